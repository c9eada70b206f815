// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "BannerAd.h"

#include <QtCore/QJsonObject>
#include <QtCore/QUrl>

#include <memory>
#include <vector>

namespace velmora {

class AdTable;

/// Draws banner ads and downloads their pictures, one at a time. Main thread only.
class BannerLoader : public std::enable_shared_from_this<BannerLoader> {
public:
    explicit BannerLoader(std::shared_ptr<AdTable> table) : m_table(std::move(table)) {}

    /// Draws the next banner and makes it the ready one once its picture is cached. The completion,
    /// which may be empty, is called then, when the picture could not be downloaded, or, if there
    /// is nothing to draw, at once; also inside this call. A call while a banner is loading draws
    /// nothing and gets that banner.
    void loadNext(const BannerCompletion &completion);

    /// The banner whose picture was cached last; empty before the first.
    const BannerAd &ready() const { return m_ready; }
    /// The ad drawn last, which the next draw leaves out; empty before the first.
    const QJsonObject &drawnAd() const { return m_drawnAd; }

private:
    void pictureLoaded(const QJsonObject &ad, const QUrl &file);

    const std::shared_ptr<AdTable> m_table;
    QJsonObject m_drawnAd;
    BannerAd m_ready;
    /// Of all calls since the banner that is loading was drawn; empty while none is loading.
    std::vector<BannerCompletion> m_completions;
};

} // namespace velmora
