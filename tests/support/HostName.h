// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtCore/QCoreApplication>

namespace velmora::test {

/// Changes the host's application name, as a host may at any time. The destructor restores it.
class HostName {
public:
    HostName() : m_before(QCoreApplication::applicationName()) {}
    ~HostName() { set(m_before); }
    HostName(const HostName &) = delete;
    HostName &operator=(const HostName &) = delete;

    static void set(const QString &name) { QCoreApplication::setApplicationName(name); }

private:
    const QString m_before;
};

} // namespace velmora::test
