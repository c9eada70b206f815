// SPDX-License-Identifier: Apache-2.0
#include "tests/support/EventRecorder.h"

#include "tests/support/Waiting.h"

#include <QtCore/QMetaEnum>

namespace velmora::test {

namespace {

template<class Enum>
QString nameOf(Enum value) {
    return QString::fromLatin1(QMetaEnum::fromType<Enum>().valueToKey(int(value)));
}

} // namespace

EventRecorder::EventRecorder() {
    const auto &events = VelmoraEvents::instance();
    QObject::connect(&events, &VelmoraEvents::refused, &m_context,
                     [this](auto request, auto reason) {
                         m_refusals.append(nameOf(request) + u' ' + nameOf(reason));
                     });
    QObject::connect(&events, &VelmoraEvents::bannerRectChanged, &m_context,
                     [this](QWidget *window, const QRect &rect) {
                         m_rects.append({window, rect});
                     });
}

QStringList EventRecorder::refusals() {
    handleEvents();
    return std::exchange(m_refusals, {});
}

QList<EventRecorder::Rect> EventRecorder::rects() {
    handleEvents();
    return std::exchange(m_rects, {});
}

} // namespace velmora::test
