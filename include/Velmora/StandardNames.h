// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <Velmora/Export.h>

#include <QtCore/QHash>
#include <QtCore/QMap>
#include <QtCore/QString>
#include <QtCore/QStringList>
#include <QtCore/QUrl>

namespace velmora {

/// Names that ship with the framework: its languages and string tables, and its house banners.
/// None of the operations throws; any thread, but for the house banners.
class VELMORA_EXPORT StandardNames {
public:
    StandardNames() = delete;

    /// The language folder (without ".lproj") that the framework's texts are taken from, chosen
    /// anew at each call from the user's preferred languages: the first whose primary code is
    /// among VLMAllowLocale(), "pt" as "pt-PT" and "zh" as "zh-Hans"; "en" when none is.
    static QString curentLocaleIdentifier();

    /// The same for given languages, such as "de-DE" or "zh-Hans-CN", the preferred one first.
    static QString localeIdentifier(const QStringList &preferredLanguages);

    /// Parses a strings file: UTF-16 text (a byte-order mark decides the order, without one the
    /// machine's own), one `"key" = "value";` a line, no escapes. Lines of any other shape are
    /// skipped, and of two lines with one key the later counts; a missing or undecodable file
    /// gives an empty table.
    /// @param url a local file, or a resource ("qrc:/...")
    static QHash<QString, QString> getInfoFromURL(const QUrl &url);

    /// The house banners: ad identifier to store link, built anew at each call. Main thread.
    static QMap<QString, QString> standardBanners();

    /// The animated picture of a house banner: the path of its GIF, empty when there is none. Main
    /// thread.
    static QString bannerFromName(const QString &identifier);
};

} // namespace velmora
