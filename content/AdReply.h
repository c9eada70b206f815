// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "DrawableAds.h"

#include <QtCore/QByteArray>
#include <QtCore/QJsonObject>
#include <QtCore/QString>

#include <optional>

namespace velmora {

/// The ad server's reply, parsed and screened.
struct AdReply {
    /// More ads of a placement are cut off, and the log says so.
    static constexpr qsizetype MostAds = 10'000;

    /// The table as the server sent it, cut; nothing when the reply was no table.
    std::optional<QJsonObject> table;
    DrawableAds ads;
    /// Why the reply was no table; empty when it was.
    QString error;

    static AdReply of(const std::optional<QJsonObject> &table);
    /// Parses a reply's body. A large one takes longer than a frame of the host, so this belongs on
    /// another thread than the main one; the main thread must have used Deployment::current().
    static AdReply parsed(const QByteArray &body);
};

} // namespace velmora
