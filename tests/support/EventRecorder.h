// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <Velmora/VelmoraEvents.h>

#include <QtCore/QDebug>
#include <QtCore/QList>
#include <QtCore/QStringList>

#include <ostream>
#include <utility>

namespace velmora::test {

/// Records the signals refused() and bannerRectChanged() of VelmoraEvents.
class EventRecorder {
public:
    struct Rect {
        QWidget *window;
        QRect rect;
        bool operator==(const Rect &) const = default;
        friend void PrintTo(const Rect &told, std::ostream *out) {
            QString text;
            QDebug(&text) << told.window << told.rect;
            *out << text.toStdString();
        }
    };

    EventRecorder();

    /// "Request Reason" of the refusals since the last call. Handles the pending events first.
    QStringList refusals();
    /// The rectangles since the last call. Handles the pending events first.
    QList<Rect> rects();

private:
    QObject m_context;
    QStringList m_refusals;
    QList<Rect> m_rects;
};

} // namespace velmora::test
