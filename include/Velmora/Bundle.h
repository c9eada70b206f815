// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <Velmora/Export.h>

#include <QtCore/QString>
#include <QtCore/QUrl>
#include <QtCore/QVariantMap>

namespace velmora {

/// A folder with resources and, for an application, its Info.plist. Main thread only.
///
/// The host's bundle is the folder of its executable; in a macOS application bundle it is the
/// "Contents" folder above that. The framework's bundle is compiled into the library.
class VELMORA_EXPORT Bundle {
public:
    /// The host application's bundle. Before there is an application object (QApplication) it only
    /// has the Info.plist that is compiled in as ":/Info.plist". The reference is valid as long as
    /// the application object exists.
    static const Bundle &mainBundle();

    /// The bundle that contains a class of the framework, which is always the framework's bundle.
    /// The reference is valid as long as the application object exists.
    template<class FrameworkClass>
    static const Bundle &resourseBundleForClass() {
        return frameworkBundle();
    }

    /// The value of a key in the bundle's Info.plist; an invalid QVariant when there is none. The
    /// framework's bundle has no Info.plist.
    ///
    /// The file is searched beside the executable, in the folder above it, and in the resources as
    /// ":/Info.plist", and read once. It must be a property list in XML form of at most 256 KiB.
    /// Any other file, also a binary property list, is skipped with a warning in Qt's log, with
    /// debug mode off, too. docs/deployment.md lists the keys that the framework reads.
    QVariant objectForInfoDictionaryKey(const QString &key) const;

    /// The folder with the resources: a file path or a Qt resource path (":/..."). In a macOS
    /// application bundle it is "Contents/Resources". For the host's bundle it is empty before
    /// there is an application object.
    QString resourcePath() const { return m_resources; }

    /// The URL of a resource ("file:" or "qrc:"); empty when there is no such file.
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
