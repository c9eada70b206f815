// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <Velmora/Export.h>

#include <QtCore/QHash>
#include <QtCore/QMap>
#include <QtCore/QString>
#include <QtCore/QStringList>
#include <QtCore/QUrl>

namespace velmora {

/// The framework's languages and string tables, and its house banners: the banners that are shown
/// when the ad server has none. No function throws. Any thread, except for the house banners.
class VELMORA_EXPORT StandardNames {
public:
    StandardNames() = delete;

    /// The name, without ".lproj", of the folder with the framework's texts in the user's language.
    /// That is the first of the user's preferred languages whose primary code is in
    /// VLMAllowLocale(), otherwise "en". "pt" gives "pt-PT", and "zh" gives "zh-Hans". Read from
    /// the system at each call.
    static QString curentLocaleIdentifier();

    /// The same for given languages, such as "de-DE" or "zh-Hans-CN", in the order of preference.
    static QString localeIdentifier(const QStringList &preferredLanguages);

    /// Reads a strings file: UTF-16 text with one `"key" = "value";` in each line, without escapes.
    /// A byte-order mark tells the byte order, which is otherwise the machine's. Lines of any other
    /// form are skipped, and the last line with a key counts.
    /// @param url a local file, or a Qt resource ("qrc:/...")
    /// @return the values by key; empty when the file is missing or can't be decoded
    static QHash<QString, QString> getInfoFromURL(const QUrl &url);

    /// The store links of the house banners, by ad identifier ("mac.204117.mac-store"). Main
    /// thread.
    static QMap<QString, QString> standardBanners();

    /// The path of a house banner's GIF, a Qt resource path; empty for an unknown identifier. Main
    /// thread.
    static QString bannerFromName(const QString &identifier);
};

} // namespace velmora
