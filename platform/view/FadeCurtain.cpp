// SPDX-License-Identifier: Apache-2.0
#include "FadeCurtain.h"

#include "MainQueue.h"
#include "StyleShield.h"

#include <QtGui/QPainter>

#include <utility>

namespace velmora {

FadeCurtain::FadeCurtain(QWidget *view, QImage picture, QImage backdrop,
                         std::function<void()> resized)
    : QWidget(view),
      m_view(view),
      m_size(view->size()),
      m_picture(std::move(picture)),
      m_backdrop(std::move(backdrop)),
      m_resized(std::move(resized)),
      m_wasOpaque(view->testAttribute(Qt::WA_OpaquePaintEvent)) {
    setAttribute(Qt::WA_OpaquePaintEvent);
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setGeometry(view->rect());
    // Qt paints the siblings behind a view unless the view itself is opaque, too.
    view->setAttribute(Qt::WA_OpaquePaintEvent);
    new StyleShield(this, [this] { setGeometry(m_view->rect()); });
    raise();
    show();
}

FadeCurtain::~FadeCurtain() {
    m_view->setAttribute(Qt::WA_OpaquePaintEvent, m_wasOpaque);
}

void FadeCurtain::setOpacity(double opacity) {
    m_opacity = opacity;
    update();
}

void FadeCurtain::paintEvent(QPaintEvent *) {
    // A host's style sheet may resize the view for a moment, see StyleShield.
    if (m_view->size() != m_size)
        MainQueue::post(this, m_resized);
    QPainter painter(this);
    painter.drawImage(0, 0, m_backdrop);
    painter.setOpacity(m_opacity);
    painter.drawImage(0, 0, m_picture);
}

} // namespace velmora
