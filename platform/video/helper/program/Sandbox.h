// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtCore/QStringList>

namespace velmora {

/// Takes rights away from this process before it decodes a video of unknown origin:
/// - Files (Landlock, Linux 5.13): this thread, and those that it starts later, open only the
/// video,
///   the system's libraries and their data. Threads that exist already, such as that of the sound
///   server's library, are not restricted in this.
/// - System calls (seccomp): no thread opens a file for writing, connects to anything, starts a
///   process or sends it a signal, or calls anything else but what decoding and playing need.
/// - Memory: 1 GB. No core is dumped.
///
/// The sound device must be open before: opening it may start the sound server, which must not be
/// restricted.
class Sandbox {
public:
    /// @param video the open file
    /// @return what the system could not restrict, for the log
    static QStringList enter(int video);
};

} // namespace velmora
