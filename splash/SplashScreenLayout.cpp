// SPDX-License-Identifier: Apache-2.0
#include "SplashScreenLayout.h"

#include "Animator.h"
#include "SplashElementPlacing.h"

#include <QtCore/QEvent>

#include <initializer_list>

namespace velmora {

SplashScreenLayout::SplashScreenLayout(QWidget *root, const SplashScreenOutlets &outlets)
    : QObject(root), m_root(root), m_outlets(outlets), m_start(outlets), m_video(outlets) {
    root->installEventFilter(this);
}

bool SplashScreenLayout::eventFilter(QObject *watched, QEvent *event) {
    // FontChange, because Qt tells only windows that the application's font has changed.
    if (watched == m_root && (event->type() == QEvent::Resize || event->type() == QEvent::Show ||
                              event->type() == QEvent::FontChange))
        apply();
    return false;
}

void SplashScreenLayout::apply() {
    // Until it is shown, the view does not have its size, and to measure texts loads the fonts.
    if (!m_root->isVisible())
        return;
    for (QWidget *view :
         std::initializer_list<QWidget *>{m_outlets.bgImage, m_outlets.splashScreenPlayerView,
                                          m_outlets.interstitialImage, m_outlets.urlButton})
        SplashElementPlacing::place(view, m_root->rect());
    m_video.apply(m_root->size());
    m_start.apply(m_root->size(), corner());
}

QList<QRect> SplashScreenLayout::corner() const {
    QList<QRect> frames;
    for (const QWidget *element : std::initializer_list<const QWidget *>{
             m_outlets.adMark, m_outlets.closeButton, m_outlets.videoProgressView}) {
        if (element && !Animator::isHidden(element))
            frames.append(element->geometry());
    }
    return frames;
}

} // namespace velmora
