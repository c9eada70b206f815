// SPDX-License-Identifier: Apache-2.0
#include "SettingsStore.h"

#include "MainQueue.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QSettings>

#include <algorithm>
#include <utility>

namespace velmora {

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
    const std::lock_guard lock(m_mutex);
    follow();
    // Rate limited, because every log line reads a setting, and trying to write is slow.
    if (hasDue() && MainQueue::isMainThread() && m_retries.allows())
        storeDue();
    const auto own = m_own.constFind(key);
    if (own != m_own.constEnd() && isDue(*own))
        return own->value;
    if (!m_settings)
        return {};
    m_settings->sync(); // reads the file again if it has changed
    return m_settings->value(key);
}

void SettingsStore::setValue(const QString &key, const QVariant &value, OnRename onRename) {
    const std::lock_guard lock(m_mutex);
    follow();
    const OwnValue former = m_own.value(key);
    m_own.insert(key, {value, onRename, m_names});
    if (!m_settings) {
        complain(QStringLiteral("the application has no name yet"));
        return;
    }
    if (!storeDue()) {
        complain(QStringLiteral("%1 cannot be written").arg(m_settings->fileName()));
        return;
    }
    if (onRename == OnRename::Moves && former.isStored && former.names != m_names)
        settingsOf(former.names)->remove(key);
}

QString SettingsStore::place() {
    const std::lock_guard lock(m_mutex);
    follow();
    return m_settings ? m_settings->fileName() : QString();
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
    for (OwnValue &own : m_own) {
        if (own.onRename == OnRename::GoesAlong)
            own.isStored = false;
    }
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

bool SettingsStore::isDue(const OwnValue &own) const {
    return !own.isStored && (own.onRename == OnRename::GoesAlong || own.names == m_names);
}

bool SettingsStore::hasDue() const {
    return std::any_of(m_own.begin(), m_own.end(), [this](const auto &own) { return isDue(own); });
}

bool SettingsStore::storeDue() {
    if (!m_settings)
        return false;
    // QSettings never clears its error status, so only a new object shows whether a write succeeds.
    if (m_settings->status() != QSettings::NoError)
        m_settings = settingsOf(m_names);
    for (auto it = m_own.cbegin(); it != m_own.cend(); ++it) {
        if (!isDue(*it))
            continue;
        if (it->value.isValid())
            m_settings->setValue(it.key(), it->value);
        else
            m_settings->remove(it.key());
    }
    m_settings->sync();
    if (m_settings->status() == QSettings::AccessError)
        return false;
    for (OwnValue &own : m_own)
        own.isStored = own.isStored || isDue(own);
    return true;
}

} // namespace velmora
