// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtCore/QString>

#include <netinet/in.h>

#include <optional>

struct sockaddr;

namespace velmora {

/// An IPv4 or IPv6 address. Qt's own class is in Qt Network, which would load a dozen more
/// libraries into every host. Any thread.
class IpAddress {
public:
    /// The null address, which is no address at all.
    IpAddress() = default;
    /// From text: four decimal numbers, or an IPv6 address, which may end with "%" and the name or
    /// the number of a network interface. Null when the text is neither.
    explicit IpAddress(const QString &text);
    /// From what the system's resolver gives; null for other families than the two.
    explicit IpAddress(const sockaddr *address);

    bool isNull() const { return m_family == AF_UNSPEC; }
    /// AF_INET, AF_INET6, or AF_UNSPEC for the null address.
    int family() const { return m_family; }
    /// 0.0.0.0 or ::.
    bool isAny() const;

    /// Nothing for an IPv6 address, unless that is an IPv4 address in its mapped form.
    std::optional<in_addr> ipv4() const;
    /// Of an IPv6 address.
    const in6_addr &ipv6() const { return m_ipv6; }
    /// The number of the network interface in an IPv6 address; 0 without one, and for an interface
    /// that does not exist.
    unsigned interfaceNumber() const;

    /// The mapped form of an IPv4 address as that address; every other address as it is.
    IpAddress unmapped() const;

    /// The usual text; empty for the null address.
    QString text() const;

private:
    explicit IpAddress(in_addr address) : m_family(AF_INET), m_ipv4(address) {}

    int m_family = AF_UNSPEC;
    in_addr m_ipv4{};
    in6_addr m_ipv6{};
    QString m_interface;
};

} // namespace velmora
