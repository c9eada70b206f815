// SPDX-License-Identifier: Apache-2.0
#include "OwnFile.h"

#include <QtCore/QFile>
#include <QtCore/QFileInfo>

#include <dlfcn.h>
#include <link.h>

namespace velmora {

QString OwnFile::folder() {
    Dl_info info{};
    void *extra = nullptr;
    if (!dladdr1(reinterpret_cast<const void *>(&OwnFile::folder), &info, &extra,
                 RTLD_DL_LINKMAP) ||
        !extra)
        return {};
    // The program has no name here, and dli_fname is what it was called by, which may be just a
    // name.
    const QString name = QFile::decodeName(static_cast<const link_map *>(extra)->l_name);
    const QString file =
        name.isEmpty() ? QFile::symLinkTarget(QStringLiteral("/proc/self/exe")) : name;
    return file.isEmpty() ? QString() : QFileInfo(file).absolutePath();
}

} // namespace velmora
