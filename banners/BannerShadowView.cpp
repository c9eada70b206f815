// SPDX-License-Identifier: Apache-2.0
#include "BannerShadowView.h"

#include "SplitterGuard.h"

#include <QtGui/QPainter>

namespace velmora {

namespace {
constexpr int DarkestAlpha = 60; // of 255, next to the banner
constexpr int SideInset = 3;     // points
} // namespace

BannerShadowView::BannerShadowView(QWidget *banner) : m_banner(banner) {
    enterSuperview();
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setAttribute(Qt::WA_NoSystemBackground);
    setFocusPolicy(Qt::NoFocus);
    connect(banner, &QObject::destroyed, this, &QObject::deleteLater);
    hide();
}

void BannerShadowView::enterSuperview() {
    SplitterGuard::keepOut(this, m_banner->parentWidget());
    setParent(m_banner->parentWidget());
}

void BannerShadowView::follow(const QRect &banner, int depth) {
    if (m_banner && parentWidget() != m_banner->parentWidget()) {
        const bool wasHidden = isHidden();
        enterSuperview();
        setVisible(!wasHidden);
    }
    setGeometry(banner.x(), banner.y() + banner.height(), banner.width(), depth);
    if (m_banner)
        stackUnder(m_banner);
}

void BannerShadowView::paintEvent(QPaintEvent *) {
    QPainter painter(this);
    QLinearGradient fading(0, 0, 0, height());
    fading.setColorAt(0, QColor(0, 0, 0, DarkestAlpha));
    fading.setColorAt(1, QColor(0, 0, 0, 0));
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(fading);
    const double radius = height();
    painter.drawRoundedRect(QRectF(SideInset, -radius, width() - 2 * SideInset, 2 * radius), radius,
                            radius);
}

} // namespace velmora
