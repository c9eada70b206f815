// SPDX-License-Identifier: Apache-2.0
#include "SharedSettings.h"

#include "ProcessIdentity.h"

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

// QSettings reads a file again when its size or time has changed. But it takes down the time after
// it has read: when another process writes in between, on whatever thread this is read, the old
// values stay and would be written back over the new ones.
void readAgain(QSettings &settings) {
    settings.sync(); // waits for the end of a reading on another thread
    QFile file(settings.fileName());
    if (file.open(QIODevice::ReadWrite | QIODevice::ExistingOnly))
        file.setFileTime(QFileInfo(file).lastModified().addMSecs(1),
                         QFileDevice::FileModificationTime);
    file.close();
    settings.sync();
}

} // namespace

SharedSettings::SharedSettings(std::unique_ptr<QSettings> settings)
    : m_settings(std::move(settings)) {}

std::unique_ptr<FileLock> SharedSettings::lock(QSettings &settings,
                                               std::chrono::milliseconds patience) {
    const QString place = settings.fileName();
    QDir().mkpath(QFileInfo(place).path());
    auto lock = std::make_unique<FileLock>(place + QStringLiteral(".velmora-lock"));
    if (lock->tryLock(patience) == FileLock::Result::Busy) {
        lock->setNote({}); // the caller may write all the same
        return nullptr;
    }
    // The note names the process that locked last.
    const QByteArray identity = ProcessIdentity::ofThisProcess().toLatin1();
    if (lock->note() != identity) {
        readAgain(settings);
        lock->setNote(identity);
    }
    return lock;
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
    m_settings->sync();
    return m_settings->status() != QSettings::AccessError;
}

void SharedSettings::awaitOthers(const QString &place) {
    FileLock::awaitQtLock(place + QStringLiteral(".lock"), std::chrono::milliseconds(50));
}

} // namespace velmora
