// SPDX-License-Identifier: Apache-2.0
#include "adserver/Fault.h"

namespace velmora::adserver {

namespace {

Fault ofKind(Fault::Kind kind) {
    Fault fault;
    fault.kind = kind;
    return fault;
}

// A whole number from 0 to the limit.
std::optional<qint64> numberFrom(const QString &text, qint64 limit) {
    bool ok = false;
    const qint64 number = text.toLongLong(&ok);
    return ok && number >= 0 && number <= limit ? std::optional(number) : std::nullopt;
}

std::optional<Fault> statusFrom(const QString &argument) {
    const qsizetype colon = argument.indexOf(QLatin1Char(':'));
    const auto code = numberFrom(argument.left(colon), 599);
    if (!code || *code < 200)
        return std::nullopt;
    return Fault::statusCode(static_cast<int>(*code),
                             colon < 0 ? QByteArray() : argument.mid(colon + 1).toUtf8());
}

} // namespace

Fault Fault::delay(int milliseconds) {
    return ofKind(Kind::None).after(milliseconds);
}

Fault Fault::statusCode(int code, const QByteArray &body) {
    Fault fault = ofKind(Kind::Status);
    fault.status = code;
    fault.body = body;
    return fault;
}

Fault Fault::wrongBody(const QByteArray &bytes) {
    Fault fault = ofKind(Kind::Body);
    fault.body = bytes;
    return fault;
}

Fault Fault::truncated() {
    return ofKind(Kind::Truncated);
}

Fault Fault::huge(qint64 bytes) {
    Fault fault = ofKind(Kind::Huge);
    fault.size = bytes;
    return fault;
}

Fault Fault::reset() {
    return ofKind(Kind::Reset);
}

Fault Fault::close() {
    return ofKind(Kind::Close);
}

Fault Fault::stale() {
    return ofKind(Kind::Stale);
}

Fault Fault::hang() {
    return ofKind(Kind::Hang);
}

Fault Fault::redirect(const QString &url) {
    Fault fault = ofKind(Kind::Redirect);
    fault.location = url;
    return fault;
}

Fault Fault::times(int count) const {
    Fault fault = *this;
    fault.remaining = count;
    return fault;
}

Fault Fault::after(int milliseconds) const {
    Fault fault = *this;
    fault.delayMs = milliseconds;
    return fault;
}

std::optional<Fault> Fault::fromText(const QString &text) {
    const qsizetype colon = text.indexOf(QLatin1Char(':'));
    const QString kind = text.left(colon);
    const bool hasArgument = colon >= 0;
    const QString argument = hasArgument ? text.mid(colon + 1) : QString();
    if (!hasArgument) {
        if (kind == QLatin1String("truncated"))
            return truncated();
        if (kind == QLatin1String("reset"))
            return reset();
        if (kind == QLatin1String("close"))
            return close();
        if (kind == QLatin1String("stale"))
            return stale();
        if (kind == QLatin1String("hang"))
            return hang();
        return std::nullopt;
    }
    if (kind == QLatin1String("delay")) {
        const auto milliseconds = numberFrom(argument, 24 * 3600 * 1000);
        return milliseconds ? std::optional(delay(static_cast<int>(*milliseconds))) : std::nullopt;
    }
    if (kind == QLatin1String("status"))
        return statusFrom(argument);
    if (kind == QLatin1String("body"))
        return wrongBody(argument.toUtf8());
    if (kind == QLatin1String("huge")) {
        const auto bytes = numberFrom(argument, Q_INT64_C(1) << 50);
        return bytes ? std::optional(huge(*bytes)) : std::nullopt;
    }
    if (kind == QLatin1String("redirect") && !argument.isEmpty())
        return redirect(argument);
    return std::nullopt;
}

} // namespace velmora::adserver
