// SPDX-License-Identifier: Apache-2.0
#include "FileLock.h"

#include <QtCore/QFile>

#include <fcntl.h>
#include <sys/file.h>
#include <thread>
#include <unistd.h>

namespace velmora {

namespace {

int opened(const QString &path, FileLock::File file) {
    const int flags = O_RDWR | O_CLOEXEC | (file == FileLock::File::IsMade ? O_CREAT : 0);
    return ::open(QFile::encodeName(path).constData(), flags, 0600);
}

} // namespace

FileLock::FileLock(const QString &path, File file) : m_descriptor(opened(path, file)) {}

FileLock::~FileLock() {
    if (m_descriptor < 0)
        return;
    // A child process that the host has forked may still hold the descriptor.
    ::flock(m_descriptor, LOCK_UN);
    ::close(m_descriptor);
}

FileLock::Result FileLock::tryLock(std::chrono::milliseconds patience) {
    if (m_descriptor < 0)
        return Result::Failed;
    const auto end = std::chrono::steady_clock::now() + patience;
    while (::flock(m_descriptor, LOCK_EX | LOCK_NB) != 0) {
        if (std::chrono::steady_clock::now() >= end)
            return Result::Busy;
        std::this_thread::sleep_for(std::chrono::microseconds(500));
    }
    return Result::Locked;
}

} // namespace velmora
