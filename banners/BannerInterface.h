// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "AdMark.h"
#include "BannerFocus.h"
#include "BannerImageView.h"
#include "CloseButtonCell.h"

#include <QtCore/QPointer>

namespace velmora {

/// The view of a banner and its elements: loads them from the interface resource and gives them
/// their pictures, accessible names and place in the tab order. An element is null when the
/// resource does not have it, and after it was destroyed. Main thread only.
class BannerInterface {
public:
    /// The view, owned by the caller; null, with a log line, when the resource cannot be loaded.
    QWidget *load();
    /// Prepares a loaded view. Missing elements are skipped.
    void prepare(QWidget *root);

    /// Sets whether Tab reaches the close button and the ad. Default: true.
    void setInTabOrder(bool isInTabOrder);

    BannerImageView *image() const { return m_image; }
    CloseButtonCell *closeButton() const { return m_closeButton; }
    AdMark *adMark() const { return m_adMark; }

private:
    QPointer<BannerImageView> m_image;
    QPointer<CloseButtonCell> m_closeButton;
    QPointer<AdMark> m_adMark;
    QPointer<BannerFocus> m_focus;
};

} // namespace velmora
