// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtCore/QObject>
#include <QtCore/QPointer>
#include <QtQuick/QQuickItem>

namespace velmora {

class OffscreenBanner;

/// Invisible items over the ad and the close button of a Banner item. Assistive technology finds
/// them as a group with a link and a button; Tab reaches them, and they draw a focus ring. They are
/// made of QML, because Qt Quick has no public C++ interface for that. Main thread only.
class BannerControls : public QObject {
    Q_OBJECT

public:
    /// @param item the Banner, which owns the items. One that no QML engine has made gets none.
    explicit BannerControls(QQuickItem *item);

    /// Takes over places, names and tab order.
    /// @param banner null when nothing is shown
    void follow(const OffscreenBanner *banner);

Q_SIGNALS:
    /// @param control object name of the widget
    void pressed(const QString &control, bool byKey);

private:
    QPointer<QQuickItem> m_group;
};

} // namespace velmora
