// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <utility>

#include <unistd.h>

namespace velmora {

/// Owns an open file, which it closes when it is destroyed; -1 for none.
class FileDescriptor {
public:
    explicit FileDescriptor(int file = -1) : m_file(file) {}
    ~FileDescriptor() { reset(); }
    FileDescriptor(FileDescriptor &&other) noexcept : m_file(std::exchange(other.m_file, -1)) {}
    FileDescriptor &operator=(FileDescriptor &&other) noexcept {
        reset(std::exchange(other.m_file, -1));
        return *this;
    }

    int get() const { return m_file; }
    bool isOpen() const { return m_file >= 0; }

    void reset(int file = -1) {
        if (m_file >= 0)
            ::close(m_file);
        m_file = file;
    }

private:
    int m_file;
};

} // namespace velmora
