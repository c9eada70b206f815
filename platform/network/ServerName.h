// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtCore/QString>

namespace velmora {

/// Checks the names and addresses of servers in configuration files. Any thread.
class ServerName {
public:
    /// True for an IPv4 address of four decimal numbers.
    static bool isIPv4Address(const QString &text);

    /// True for one label of a DNS name: letters, digits and inner hyphens, 63 at most.
    static bool isDnsLabel(QStringView text);

    /// True for labels with dots between them, 253 characters at most. The last label is not a
    /// number, which would make it a wrong IPv4 address.
    static bool isDnsName(const QString &text);
};

} // namespace velmora
