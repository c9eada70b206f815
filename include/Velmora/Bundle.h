// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <Velmora/Export.h>

#include <QtCore/QString>
#include <QtCore/QUrl>
#include <QtCore/QVariantMap>

namespace velmora {

/// A place that holds resources and, for an application, its Info.plist.
///
/// The host's bundle is the folder of its executable, or the "Contents" folder above it in an
/// application bundle. The framework's bundle is compiled into the library.
class VELMORA_EXPORT Bundle {
public:
    /// The host application's bundle. Before there is an application object it is only what was
    /// compiled in as ":/Info.plist".
    static const Bundle &mainBundle();

    /// The bundle that contains a class of the framework: the framework's own.
    template<class FrameworkClass>
    static const Bundle &resourseBundleForClass() {
        return frameworkBundle();
    }

    /// The value under a key of the bundle's Info.plist; invalid when there is none. The file
    /// is looked for beside the executable, in the folder above it, and compiled in as
    /// ":/Info.plist"; it is read once. It is at most 256 KiB of XML. Any other, a binary one too,
    /// is passed over with a warning in the system log.
    QVariant objectForInfoDictionaryKey(const QString &key) const;

    /// The folder that holds the resources: a file path or a ":/" resource path. Empty for the
    /// host's before there is an application object.
    QString resourcePath() const { return m_resources; }

    /// The URL of a resource; empty when there is no such file.
    /// @param name      the file's name without its extension
    /// @param extension the extension without a dot; may be empty
    QUrl urlForResource(const QString &name, const QString &extension) const;

private:
    friend struct HostBundle;
    friend struct FrameworkBundle;
    static const Bundle &frameworkBundle();

    QString m_resources;
    QVariantMap m_info;
};

} // namespace velmora
