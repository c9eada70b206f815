#include <Velmora/Bundle.h>

#include "platform/InfoPlistReader.h"
#include "platform/ProcessRoot.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QLoggingCategory>

namespace velmora {

namespace {

constexpr qint64 LargestInfoPlist = 256 * 1024;

QVariantMap readInfo(const QStringList &places) {
    for (const QString &place : places) {
        QFile file(place);
        if (!file.open(QIODevice::ReadOnly))
            continue;
        QString error;
        const QVariantMap info = InfoPlistReader::read(file.read(LargestInfoPlist + 1), &error);
        if (error.isEmpty())
            return info;
        qWarning("velmora: %s is not a readable Info.plist: %s", qPrintable(place),
                 qPrintable(error));
    }
    return {};
}

} // namespace

// Both bundles, read together on first use.
struct BundleSet {
    BundleSet() {
        const QDir folder(QCoreApplication::applicationDirPath());
        const QString contents = folder.filePath(QStringLiteral("../Info.plist"));
        const QString appResources = folder.filePath(QStringLiteral("../Resources"));
        main.m_resources = QFileInfo::exists(contents) && QFileInfo(appResources).isDir()
                               ? QDir::cleanPath(appResources)
                               : folder.path();
        main.m_info = readInfo({folder.filePath(QStringLiteral("Info.plist")), contents,
                                QStringLiteral(":/Info.plist")});
        framework.m_resources = QStringLiteral(":/velmora");
    }

    Bundle main;
    Bundle framework;
};

const Bundle &Bundle::mainBundle() {
    return ProcessRoot::get<BundleSet>().main;
}

const Bundle &Bundle::frameworkBundle() {
    return ProcessRoot::get<BundleSet>().framework;
}

QVariant Bundle::objectForInfoDictionaryKey(const QString &key) const {
    return m_info.value(key);
}

QUrl Bundle::urlForResource(const QString &name, const QString &extension) const {
    const QString file = extension.isEmpty() ? name : name + QLatin1Char('.') + extension;
    const QString path = m_resources + QLatin1Char('/') + file;
    if (name.isEmpty() || !QFileInfo(path).isFile())
        return {};
    return path.startsWith(QLatin1Char(':')) ? QUrl(QStringLiteral("qrc") + path)
                                             : QUrl::fromLocalFile(path);
}

} // namespace velmora
