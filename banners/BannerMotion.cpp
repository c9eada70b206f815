// SPDX-License-Identifier: Apache-2.0
#include "BannerMotion.h"

#include "ReducedMotion.h"

#include <QtCore/QEvent>

namespace velmora {

BannerMotion::BannerMotion(BannerImageView *picture)
    : QObject(picture), m_picture(picture), m_button(new PlayButton(picture)) {
    m_button->setObjectName(QStringLiteral("playButton"));
    picture->installEventFilter(this);
    connect(picture, &BannerImageView::imageChanged, this, &BannerMotion::reset);
    connect(&ReducedMotion::current(), &ReducedMotion::changed, this, &BannerMotion::motionChanged);
    connect(m_button, &QAbstractButton::clicked, this,
            [this] { setPlaying(!m_picture->isPlaying()); });
    reset();
}

bool BannerMotion::eventFilter(QObject *watched, QEvent *event) {
    if (watched == m_picture && event->type() == QEvent::Resize)
        m_button->place(m_picture->size());
    return false;
}

void BannerMotion::reset() {
    const bool isReduced = ReducedMotion::current().isOn();
    setPlaying(!isReduced);
    m_button->place(m_picture->size());
    m_button->setVisible(isReduced && m_picture->isAnimation());
}

void BannerMotion::motionChanged() {
    reset();
    if (ReducedMotion::current().isOn())
        m_picture->rewind();
}

void BannerMotion::setPlaying(bool playing) {
    m_picture->setPlaying(playing);
    m_button->setPlaying(playing);
}

} // namespace velmora
