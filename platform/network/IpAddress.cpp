// SPDX-License-Identifier: Apache-2.0
#include "IpAddress.h"

#include <arpa/inet.h>
#include <net/if.h>

#include <array>
#include <cstring>

namespace velmora {

namespace {

// inet_pton() would stop at a null character.
bool parse(int family, const QString &text, void *address) {
    return !text.contains(QChar::Null) &&
           inet_pton(family, text.toUtf8().constData(), address) == 1;
}

} // namespace

IpAddress::IpAddress(const QString &text) {
    const qsizetype percent = text.indexOf(u'%');
    if (percent < 0 && parse(AF_INET, text, &m_ipv4)) {
        m_family = AF_INET;
    } else if (parse(AF_INET6, text.left(percent), &m_ipv6)) {
        m_family = AF_INET6;
        m_interface = percent < 0 ? QString() : text.mid(percent + 1);
    }
}

IpAddress::IpAddress(const sockaddr *address) {
    if (address->sa_family == AF_INET) {
        sockaddr_in known{};
        std::memcpy(&known, address, sizeof known);
        m_family = AF_INET;
        m_ipv4 = known.sin_addr;
    } else if (address->sa_family == AF_INET6) {
        sockaddr_in6 known{};
        std::memcpy(&known, address, sizeof known);
        m_family = AF_INET6;
        m_ipv6 = known.sin6_addr;
        if (known.sin6_scope_id != 0)
            m_interface = QString::number(known.sin6_scope_id);
    }
}

bool IpAddress::isAny() const {
    return m_family == AF_INET ? m_ipv4.s_addr == INADDR_ANY
                               : m_family == AF_INET6 && IN6_IS_ADDR_UNSPECIFIED(&m_ipv6);
}

std::optional<in_addr> IpAddress::ipv4() const {
    if (m_family == AF_INET)
        return m_ipv4;
    if (m_family != AF_INET6 || !IN6_IS_ADDR_V4MAPPED(&m_ipv6))
        return {};
    in_addr mapped{};
    std::memcpy(&mapped, m_ipv6.s6_addr + 12, sizeof mapped);
    return mapped;
}

unsigned IpAddress::interfaceNumber() const {
    bool isNumber = false;
    const unsigned number = m_interface.toUInt(&isNumber);
    return isNumber ? number : if_nametoindex(m_interface.toUtf8().constData());
}

IpAddress IpAddress::unmapped() const {
    const std::optional<in_addr> address = ipv4();
    return address ? IpAddress(*address) : *this;
}

QString IpAddress::text() const {
    if (isNull())
        return {};
    std::array<char, INET6_ADDRSTRLEN> buffer{};
    const void *address = m_family == AF_INET ? static_cast<const void *>(&m_ipv4) : &m_ipv6;
    inet_ntop(m_family, address, buffer.data(), buffer.size());
    const QString text = QString::fromLatin1(buffer.data());
    return m_interface.isEmpty() ? text : text + u'%' + m_interface;
}

} // namespace velmora
