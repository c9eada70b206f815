// SPDX-License-Identifier: Apache-2.0
#include "FileLock.h"

#include <QtCore/QFile>
#include <QtCore/QFileInfo>

#include <algorithm>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>

namespace velmora {

namespace {
constexpr std::chrono::microseconds Pause{100};
} // namespace

FileLock::FileLock(const QString &path) : FileLock(path, O_CREAT) {}

FileLock::FileLock(const QString &path, int flags)
    : m_descriptor(::open(QFile::encodeName(path).constData(), O_RDWR | O_CLOEXEC | flags, 0600)) {}

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
        std::this_thread::sleep_for(Pause);
    }
    return Result::Locked;
}

QByteArray FileLock::note() const {
    constexpr size_t Longest = 64;
    QByteArray note(Longest, 0);
    const ssize_t size = ::pread(m_descriptor, note.data(), Longest, 0);
    return note.left(std::max<ssize_t>(size, 0));
}

void FileLock::setNote(const QByteArray &note) {
    // An unsuccessful write leaves less, which is no process's note.
    if (::ftruncate(m_descriptor, 0) == 0) [[maybe_unused]]
        const ssize_t written = ::pwrite(m_descriptor, note.constData(), size_t(note.size()), 0);
}

bool FileLock::isAt(const QString &path) const {
    struct stat own {};
    struct stat there {};
    return ::fstat(m_descriptor, &own) == 0 &&
           ::stat(QFile::encodeName(path).constData(), &there) == 0 && own.st_dev == there.st_dev &&
           own.st_ino == there.st_ino;
}

void FileLock::awaitQtLock(const QString &path, std::chrono::milliseconds patience) {
    const auto end = std::chrono::steady_clock::now() + patience;
    const FileLock first(path, 0);
    if (first.m_descriptor < 0)
        return; // there is none
    while (first.isAt(path)) {
        // The process writes its number microseconds after it has made the file, and holds the
        // advisory lock from before that. QLockFile itself recognises the number of a dead process.
        const bool isEmpty = QFileInfo(path).size() == 0;
        const bool isOver = std::chrono::steady_clock::now() >= end;
        FileLock lock(path, 0);
        const bool isDead = (!isEmpty || isOver) && lock.tryLock({}) == Result::Locked;
        if (isDead && isEmpty && lock.isAt(path))
            QFile::remove(path);
        if (isDead || isOver)
            return;
        std::this_thread::sleep_for(Pause);
    }
}

} // namespace velmora
