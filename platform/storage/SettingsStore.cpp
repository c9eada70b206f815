// SPDX-License-Identifier: Apache-2.0
#include "SettingsStore.h"

#include "MainQueue.h"
#include "SharedSettings.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QSettings>

#include <algorithm>
#include <utility>

namespace velmora {

namespace {
// Without the lock a value is written all the same.
constexpr std::chrono::milliseconds LockPatience{50};
} // namespace

SettingsStore::SettingsStore() = default;
SettingsStore::~SettingsStore() = default;

SettingsStore::Names SettingsStore::namesNow() {
    Names names{QCoreApplication::organizationName(), QCoreApplication::applicationName()};
    if (names.organization.isEmpty())
        names.organization = QCoreApplication::organizationDomain();
    if (names.organization.isEmpty())
        names.organization = names.application;
    return names;
}

QVariant SettingsStore::value(const QString &key) {
    const bool retries = mayRetry();
    const std::lock_guard lock(m_mutex);
    follow();
    if (retries && hasDue())
        storeDue();
    const auto own = m_own.constFind(key);
    if (own != m_own.constEnd() && !own->isStored)
        return own->value;
    if (!m_settings)
        return {};
    m_settings->sync(); // reads the file again if it has changed
    return m_settings->value(key);
}

bool SettingsStore::setValue(const QString &key, const QVariant &value) {
    const std::lock_guard lock(m_mutex);
    follow();
    m_own.insert(key, {value});
    if (!m_settings) {
        complain(QStringLiteral("the application has no name yet"));
        return false;
    }
    const bool isStored = storeDue();
    if (!isStored)
        complain(QStringLiteral("%1 cannot be written").arg(m_settings->fileName()));
    return isStored;
}

QString SettingsStore::place() {
    const std::lock_guard lock(m_mutex);
    follow();
    return m_settings ? m_settings->fileName() : QString();
}

std::unique_ptr<QSettings> SettingsStore::open() {
    const std::lock_guard lock(m_mutex);
    follow();
    return settingsOf(m_names);
}

QStringList SettingsStore::takeComplaints() {
    const std::lock_guard lock(m_mutex);
    return std::exchange(m_complaints, {});
}

void SettingsStore::complain(const QString &reason) {
    m_complaints.append(QStringLiteral("settings hold for this run only: %1").arg(reason));
}

// Switches to the settings of the current names. A worker does that only while there are none yet,
// because the main thread may be changing the names at the same time.
void SettingsStore::follow() {
    if (m_settings && !MainQueue::isMainThread())
        return;
    const Names names = namesNow();
    if (names == m_names)
        return;
    m_names = names;
    m_settings = settingsOf(names);
    for (OwnValue &own : m_own)
        own.isStored = false;
    if (m_settings && hasDue() && !storeDue())
        complain(QStringLiteral("%1 cannot be written").arg(m_settings->fileName()));
}

std::unique_ptr<QSettings> SettingsStore::settingsOf(const Names &names) {
    if (names.application.isEmpty())
        return nullptr;
    auto settings = std::make_unique<QSettings>(QSettings::NativeFormat, QSettings::UserScope,
                                                names.organization, names.application);
    // Otherwise QSettings would also return the keys of the whole organisation.
    settings->setFallbacksEnabled(false);
    return settings;
}

bool SettingsStore::hasDue() const {
    return std::any_of(m_own.begin(), m_own.end(), [](const auto &own) { return !own.isStored; });
}

// Rate limited, because every log line reads a setting, and trying to write is slow. The limiter is
// asked without the lock: it takes that of ProcessRoot, whose objects read settings while they are
// made, which takes the two in the other order.
bool SettingsStore::mayRetry() {
    {
        const std::lock_guard lock(m_mutex);
        if (!hasDue())
            return false;
    }
    return MainQueue::isMainThread() && m_retries.allows();
}

bool SettingsStore::storeDue() {
    if (!m_settings)
        return false;
    // QSettings never clears its error status, so only a new object shows whether a write succeeds.
    if (m_settings->status() != QSettings::NoError)
        m_settings = settingsOf(m_names);
    const auto lock = SharedSettings::lock(*m_settings, LockPatience);
    for (auto it = m_own.cbegin(); it != m_own.cend(); ++it) {
        if (it->isStored)
            continue;
        if (it->value.isValid())
            m_settings->setValue(it.key(), it->value);
        else
            m_settings->remove(it.key());
    }
    SharedSettings::awaitOthers(m_settings->fileName());
    m_settings->sync();
    if (m_settings->status() == QSettings::AccessError)
        return false;
    for (OwnValue &own : m_own)
        own.isStored = true;
    return true;
}

} // namespace velmora
