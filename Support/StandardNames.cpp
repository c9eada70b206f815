// SPDX-License-Identifier: Apache-2.0
#include <Velmora/StandardNames.h>

#include "Deployment.h"

#include <Velmora/Bundle.h>
#include <Velmora/Support.h>

#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QLocale>
#include <QtCore/QStringDecoder>

#include <optional>
#include <utility>

namespace velmora {

namespace {

using Entry = std::pair<QString, QString>;

std::optional<Entry> entryFromLine(const QString &line) {
    const QStringList pieces = line.split(QStringLiteral("= \""));
    if (pieces.size() != 2)
        return {};
    const QString &left = pieces.at(0);
    const QString &right = pieces.at(1);
    const qsizetype closingQuote = left.lastIndexOf(QLatin1Char('"'));
    // At 0 it is the quote that opens the key.
    if (closingQuote < 1 || right.size() < 2)
        return {};
    return Entry{left.mid(1, closingQuote - 1), right.chopped(2)}; // without the final `";`
}

QString decodedUtf16(const QByteArray &bytes) {
    if (bytes.size() % 2 != 0)
        return {};
    QStringDecoder decoder(QStringDecoder::Utf16);
    QString text = decoder(bytes);
    return decoder.hasError() ? QString() : text;
}

} // namespace

QString StandardNames::curentLocaleIdentifier() {
    return localeIdentifier(QLocale::system().uiLanguages());
}

QString StandardNames::localeIdentifier(const QStringList &preferredLanguages) {
    for (const QString &language : preferredLanguages) {
        const QString code = language.section(QLatin1Char('-'), 0, 0);
        if (!VLMAllowLocale().contains(code))
            continue;
        if (code == QLatin1String("pt"))
            return QStringLiteral("pt-PT");
        if (code == QLatin1String("zh"))
            return QStringLiteral("zh-Hans");
        return code;
    }
    return QStringLiteral("en");
}

QHash<QString, QString> StandardNames::getInfoFromURL(const QUrl &url) {
    QFile file(url.scheme() == QLatin1String("qrc") ? QLatin1Char(':') + url.path()
                                                    : url.toLocalFile());
    // Asked first, because Qt prints a warning for a file without a name.
    if (file.fileName().isEmpty() || !file.open(QIODevice::ReadOnly))
        return {};
    QHash<QString, QString> info;
    const QStringList lines = decodedUtf16(file.readAll()).split(QLatin1Char('\n'));
    for (const QString &line : lines) {
        if (const auto entry = entryFromLine(line))
            info.insert(entry->first, entry->second);
    }
    return info;
}

QMap<QString, QString> StandardNames::standardBanners() {
    const QString store =
        QStringLiteral("macappstores://%1/app/id%2").arg(Deployment::current().storeHost);
    QMap<QString, QString> banners;
    const auto add = [&](const char *identifier, const char *storeId) {
        banners.insert(QLatin1String(identifier), store.arg(QLatin1String(storeId)));
    };
    add("mac.204117.mac-store", "1584206317"); // Quillmoor
    add("mac.204236.mac-store", "1597341082"); // Tallowick
    add("mac.204358.mac-store", "1603875294"); // Orrivane
    add("mac.204491.mac-store", "1619528473"); // Pebblotto
    return banners;
}

QString StandardNames::bannerFromName(const QString &identifier) {
    const QString path = Bundle::resourseBundleForClass<StandardNames>().resourcePath() +
                         QStringLiteral("/%1.gif").arg(identifier);
    return QFileInfo(path).isFile() ? path : QString();
}

} // namespace velmora
