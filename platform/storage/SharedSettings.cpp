// SPDX-License-Identifier: Apache-2.0
#include "SharedSettings.h"

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QFileInfo>

#include <utility>

namespace velmora {

namespace {

std::unique_ptr<QSettings> sameAgain(const QSettings &settings) {
    auto same =
        std::make_unique<QSettings>(settings.format(), settings.scope(),
                                    settings.organizationName(), settings.applicationName());
    same->setFallbacksEnabled(settings.fallbacksEnabled());
    return same;
}

// QSettings reads a file again when its size or its time has changed. Two writes of equal length
// may come within one tick of the file system's clock; the other process would then not notice the
// second one and write the old values back.
void makeNewer(const QString &place, const QDateTime &before) {
    if (!before.isValid() || QFileInfo(place).lastModified() > before)
        return;
    QFile file(place);
    if (file.open(QIODevice::ReadWrite | QIODevice::ExistingOnly))
        file.setFileTime(before.addMSecs(1), QFileDevice::FileModificationTime);
}

} // namespace

SharedSettings::SharedSettings(std::unique_ptr<QSettings> settings)
    : m_settings(std::move(settings)) {}

QString SharedSettings::lockPath() const {
    QDir().mkpath(QFileInfo(place()).path());
    return place() + QStringLiteral(".velmora-lock");
}

QVariant SharedSettings::value(const QString &key) {
    m_settings->sync();
    return m_settings->value(key);
}

QStringList SharedSettings::keys(const QString &group) {
    m_settings->sync();
    m_settings->beginGroup(group);
    QStringList keys = m_settings->childKeys();
    m_settings->endGroup();
    for (QString &key : keys)
        key = group + u'/' + key;
    return keys;
}

void SharedSettings::setValue(const QString &key, const QVariant &value) {
    noteTime();
    if (value.isValid())
        m_settings->setValue(key, value);
    else
        m_settings->remove(key);
}

bool SharedSettings::write() {
    // QSettings never clears its error status. A new object for the same file has the values that
    // the old one could not write.
    if (m_settings->status() != QSettings::NoError)
        m_settings = sameAgain(*m_settings);
    awaitOthers(place());
    noteTime();
    m_settings->sync();
    if (m_settings->status() == QSettings::AccessError)
        return false;
    makeNewer(place(), m_newest);
    return true;
}

// Before each value is set and before all are written, since QSettings may write in between.
void SharedSettings::noteTime() {
    const QDateTime time = QFileInfo(place()).lastModified();
    if (time.isValid() && (!m_newest.isValid() || time > m_newest))
        m_newest = time;
}

void SharedSettings::awaitOthers(const QString &place) {
    FileLock::awaitQtLock(place + QStringLiteral(".lock"), std::chrono::milliseconds(50));
}

} // namespace velmora
