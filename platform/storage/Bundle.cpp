// SPDX-License-Identifier: Apache-2.0
#include <Velmora/Bundle.h>

#include "InfoPlistReader.h"
#include "ProcessRoot.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QFileInfo>

// Outside of the namespace, because the resources' own function is. It makes the linker take the
// resources from a static library.
static void registerResources() {
    Q_INIT_RESOURCE(velmora_resources);
}

namespace velmora {

namespace {

QVariantMap readInfo(const QStringList &places) {
    for (const QString &place : places) {
        QFile file(place);
        if (!file.open(QIODevice::ReadOnly))
            continue;
        QString error;
        const QByteArray bytes = file.read(InfoPlistReader::LargestFile + 1);
        const QVariantMap info = InfoPlistReader::read(bytes, &error);
        if (error.isEmpty())
            return info;
        // Without debug mode, too: the host's developer has to correct the file.
        qWarning("velmora: %s is not a readable Info.plist: %s", qPrintable(place),
                 qPrintable(error));
    }
    return {};
}

} // namespace

// The host's bundle. It is read once, and a second time when the first was before there was an
// application object, without which Qt does not know the executable's folder.
struct HostBundle {
    void read() {
        const bool knowsFolder = QCoreApplication::instance() != nullptr;
        if (ProcessRoot::hasEnded() || (isRead && (hasFolder || !knowsFolder)))
            return;
        isRead = true;
        hasFolder = knowsFolder;
        QStringList places;
        if (knowsFolder) {
            const QDir folder(QCoreApplication::applicationDirPath());
            const QString contents = folder.filePath(QStringLiteral("../Info.plist"));
            const QString appResources = folder.filePath(QStringLiteral("../Resources"));
            bundle.m_resources = QFileInfo::exists(contents) && QFileInfo(appResources).isDir()
                                     ? QDir::cleanPath(appResources)
                                     : folder.path();
            places = {folder.filePath(QStringLiteral("Info.plist")), contents};
        }
        bundle.m_info = readInfo(places << QStringLiteral(":/Info.plist"));
    }

    Bundle bundle;
    bool isRead = false;
    bool hasFolder = false;
};

struct FrameworkBundle {
    FrameworkBundle() {
        registerResources();
        bundle.m_resources = QStringLiteral(":/velmora");
    }
    Bundle bundle;
};

const Bundle &Bundle::mainBundle() {
    HostBundle &host = ProcessRoot::get<HostBundle>();
    host.read();
    return host.bundle;
}

const Bundle &Bundle::frameworkBundle() {
    return ProcessRoot::get<FrameworkBundle>().bundle;
}

QVariant Bundle::objectForInfoDictionaryKey(const QString &key) const {
    return m_info.value(key);
}

QUrl Bundle::urlForResource(const QString &name, const QString &extension) const {
    const QString file = extension.isEmpty() ? name : name + QLatin1Char('.') + extension;
    const QString path = m_resources + QLatin1Char('/') + file;
    if (name.isEmpty() || m_resources.isEmpty() || !QFileInfo(path).isFile())
        return {};
    return path.startsWith(QLatin1Char(':')) ? QUrl(QStringLiteral("qrc") + path)
                                             : QUrl::fromLocalFile(path);
}

} // namespace velmora
