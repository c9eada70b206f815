#include "content/CachesFolder.h"

#include "platform/ProcessRoot.h"

#include <QtCore/QDir>
#include <QtCore/QStandardPaths>

namespace velmora {

const QString CachesFolder::TableName = QStringLiteral("savedAds");

namespace {

struct Folder {
    Folder() : path(QStandardPaths::writableLocation(QStandardPaths::CacheLocation)) {
        QDir().mkpath(path);
    }
    QString path;
};

} // namespace

QString CachesFolder::path() {
    return ProcessRoot::get<Folder>().path;
}

QString CachesFolder::pathFor(const QString &fileName) {
    return path() + QLatin1Char('/') + fileName;
}

} // namespace velmora
