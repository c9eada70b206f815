// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "AdReply.h"
#include "AdsCacheInfoStorage.h"
#include "DrawableAds.h"

#include <QtCore/QJsonObject>
#include <QtCore/QSet>
#include <QtCore/QString>

#include <functional>
#include <memory>
#include <optional>

namespace velmora {

struct UrlResponse;

/// The ad table: which banner and video ads there are. It is requested from the ad server once a
/// process run; until the reply arrives, and whenever the machine is offline, the ads that earlier
/// runs cached take its place. Main thread only.
class AdTable : public std::enable_shared_from_this<AdTable> {
public:
    using Completion = std::function<void()>;
    using Drawing = std::function<void(const DrawableAds &)>;

    /// The ad request's body: JSON on one line, with the host's ad identifier, which is not
    /// escaped.
    static QString requestBody();

    /// Loads the table. The completion means that ads may be drawn now. It is called once the
    /// cached ads are loaded, if they suffice or the machine is offline, otherwise when the reply,
    /// of whatever kind, is there too. That is inside this call when the cached ads that suffice
    /// were loaded before. While the request runs, and once it has ended, this does nothing.
    void load(const Completion &completion);

    /// The table that ads are drawn from: while offline the cached ads; else the reply, before it
    /// the cached ads as load() found them, and nothing when the reply was unusable.
    std::optional<QJsonObject> current();
    /// Replaces the reply.
    void setReply(AdReply reply);

    /// Calls back with the ads to draw from, which are valid during the callback. Inside this call,
    /// unless these are the cached ads and their file is still being read.
    void whenReady(const Drawing &callback);

    /// Draws one usable ad of a placement by weight. Finds nothing while the cached ads are read.
    /// @param excluded an ad that is drawn only when the placement has no other; may be empty
    std::optional<QJsonObject> draw(const QString &placementKey, const QJsonObject &excluded = {});
    /// An ad whose media cannot be used is not drawn any more in this run.
    void rest(const QJsonObject &ad);

    /// True when the request of this run has ended, in whatever way.
    bool hasReply() const { return m_hasReply; }
    /// True when a completion has been called and no later load() will call one.
    bool isSettled() const;

    /// The ads whose media are cached.
    AdsCacheInfoStorage &cacheStorage() { return m_cacheStorage; }

private:
    void warnIfNoIdentifier();
    void request(const Completion &completion);
    void parse(const UrlResponse &response, const Completion &completion);
    void decideOnCache(bool isOnline, const Completion &completion);
    void takeReply(AdReply reply, const Completion &completion);
    bool usesCache() const;
    const DrawableAds &drawable();

    AdsCacheInfoStorage m_cacheStorage;
    AdReply m_reply;
    QSet<QJsonObject> m_resting;
    bool m_hasLookedForIdentifier = false;
    /// Until the reply is there, ads are drawn from the cached ones.
    bool m_usesCache = false;
    bool m_isRequested = false;
    bool m_hasReply = false;
    /// The cached ads held both placements at the last load().
    bool m_isCacheComplete = false;
};

} // namespace velmora
