// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtCore/QCoreApplication>

namespace velmora::test {

/// The host's application name, which a host may set whenever it likes. Put back at the end.
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
