// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtCore/QString>

namespace velmora {

/// The file that contains the library's code: the shared library, or the host's program or plugin
/// that the static library is linked into. Any thread.
class OwnFile {
public:
    /// The folder of the file, as an absolute path; empty when the system does not tell.
    static QString folder();
};

} // namespace velmora
