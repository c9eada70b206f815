// SPDX-License-Identifier: Apache-2.0
#include "AdArea.h"

#include <QtGui/QMouseEvent>
#include <QtWidgets/QApplication>

namespace velmora {

AdArea::AdArea(QWidget *parent) : QAbstractButton(parent) {
    connect(this, &QAbstractButton::clicked, this,
            [this] { ignorePressesFor(QApplication::doubleClickInterval() / 1000.0); });
}

void AdArea::ignorePressesFor(double seconds) {
    m_ignoresUntil = TimeSource::current().now() + std::chrono::round<TimeSource::Duration>(
                                                       std::chrono::duration<double>(seconds));
}

void AdArea::ignorePresses() {
    m_ignoresUntil = TimeSource::Duration::max();
}

void AdArea::clickByKey(QAbstractButton *button) {
    const auto *ad = qobject_cast<const AdArea *>(button);
    if (!ad || !ad->isIgnoring())
        button->click();
}

bool AdArea::isIgnoring() const {
    return TimeSource::current().now() < m_ignoresUntil;
}

// Qt reports the second press of a double click here, too.
void AdArea::mousePressEvent(QMouseEvent *event) {
    if (!isIgnoring())
        QAbstractButton::mousePressEvent(event);
    event->accept();
}

void AdArea::mouseMoveEvent(QMouseEvent *event) {
    QAbstractButton::mouseMoveEvent(event);
    event->accept();
}

void AdArea::mouseReleaseEvent(QMouseEvent *event) {
    QAbstractButton::mouseReleaseEvent(event);
    event->accept();
}

void AdArea::keyPressEvent(QKeyEvent *event) {
    const bool isPress = event->key() == Qt::Key_Space || event->key() == Qt::Key_Select;
    if (!isPress || !isIgnoring())
        QAbstractButton::keyPressEvent(event);
}

} // namespace velmora
