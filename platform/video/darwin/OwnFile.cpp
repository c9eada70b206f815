// SPDX-License-Identifier: Apache-2.0
#include "OwnFile.h"

#include <QtCore/QFile>
#include <QtCore/QFileInfo>

#include <dlfcn.h>

namespace velmora {

QString OwnFile::folder() {
    Dl_info info{};
    if (!dladdr(reinterpret_cast<const void *>(&OwnFile::folder), &info) || !info.dli_fname)
        return {};
    return QFileInfo(QFile::decodeName(info.dli_fname)).absolutePath();
}

} // namespace velmora
