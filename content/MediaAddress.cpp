#include "content/MediaAddress.h"

#include "content/CachesFolder.h"

#include <algorithm>

namespace velmora {

namespace {

constexpr qsizetype LongestFileName = 200;

QString refusalOfName(const QString &name) {
    if (name.isEmpty() || name == QLatin1String(".") || name == QLatin1String(".."))
        return QStringLiteral("has no file name");
    // The table's lock and temporary files begin with its name; some disks ignore case.
    if (name.startsWith(CachesFolder::TableName, Qt::CaseInsensitive))
        return QStringLiteral("has the ad table's file name");
    if (name.toUtf8().size() > LongestFileName)
        return QStringLiteral("has a file name that is too long");
    const bool plain = std::all_of(name.begin(), name.end(), [](QChar c) {
        return c.isPrint() && c != QLatin1Char('/') && c != QLatin1Char('\\') &&
               c != QLatin1Char(':');
    });
    return plain ? QString() : QStringLiteral("has a file name with forbidden characters");
}

} // namespace

MediaAddress MediaAddress::from(const QString &server, const QJsonValue &path) {
    MediaAddress address;
    if (path.isUndefined() || path.isNull())
        return address;
    const QString text = path.toString();
    if (!text.startsWith(QLatin1Char('/'))) {
        address.refusal = QStringLiteral("is not a path that begins with /");
        return address;
    }
    const QUrl base(server);
    const QUrl remote(server + text);
    if (!remote.isValid() || remote.scheme() != base.scheme() ||
        remote.authority() != base.authority()) {
        address.refusal = QStringLiteral("leaves the ad server");
        return address;
    }
    const QString encodedName = remote.path(QUrl::FullyEncoded).section(QLatin1Char('/'), -1);
    address.refusal = encodedName.contains(QLatin1String("%2F"), Qt::CaseInsensitive)
                          ? QStringLiteral("has a file name with forbidden characters")
                          : refusalOfName(cachedName(remote));
    if (address.refusal.isEmpty())
        address.remote = remote;
    return address;
}

QString MediaAddress::cachedName(const QUrl &remote) {
    if (remote.isEmpty())
        return QStringLiteral("(null)");
    return remote.path(QUrl::FullyDecoded).section(QLatin1Char('/'), -1);
}

} // namespace velmora
