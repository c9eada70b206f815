// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtCore/QCoreApplication>

namespace velmora::test {

/// Sets the host's application name and restores the old one when it is destroyed.
class HostName {
public:
    HostName() : m_before(QCoreApplication::applicationName()) {}
    ~HostName() { set(m_before); }
    HostName(const HostName &) = delete;
    HostName &operator=(const HostName &) = delete;

    static void set(QAnyStringView name) { QCoreApplication::setApplicationName(name.toString()); }

private:
    const QString m_before;
};

} // namespace velmora::test
