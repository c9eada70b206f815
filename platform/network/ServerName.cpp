// SPDX-License-Identifier: Apache-2.0
#include "ServerName.h"

#include "IpAddress.h"

#include <QtCore/QList>

#include <algorithm>

namespace velmora {

namespace {

constexpr qsizetype LongestLabel = 63;
constexpr qsizetype LongestName = 253;

bool isDigit(QChar c) {
    return c >= u'0' && c <= u'9';
}

bool isLetterOrDigit(QChar c) {
    return isDigit(c) || (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z');
}

} // namespace

bool ServerName::isIPv4Address(const QString &text) {
    return IpAddress(text).family() == AF_INET;
}

bool ServerName::isDnsLabel(QStringView text) {
    return !text.isEmpty() && text.size() <= LongestLabel && text.front() != u'-' &&
           text.back() != u'-' && std::all_of(text.begin(), text.end(), [](QChar c) {
               return isLetterOrDigit(c) || c == u'-';
           });
}

bool ServerName::isDnsName(const QString &text) {
    const QList<QStringView> labels = QStringView(text).split(u'.');
    return text.size() <= LongestName &&
           std::all_of(labels.begin(), labels.end(), &ServerName::isDnsLabel) &&
           !std::all_of(labels.back().begin(), labels.back().end(), &isDigit);
}

} // namespace velmora
