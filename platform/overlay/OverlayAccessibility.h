// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtCore/QList>
#include <QtCore/QObject>
#include <QtCore/QPointer>
#include <QtCore/QRect>
#include <QtGui/QAccessible>
#include <QtWidgets/QWidget>

namespace velmora {

/// What assistive technology finds while an overlay is shown: its view is a modal dialog in the
/// superview, and the widgets that it covers have no name, no action and no text. Main thread only.
///
/// Qt keeps the QAccessibleInterface of every object that assistive technology has asked about, and
/// a screen reader can use each of them at any time. When the overlay is shown, those of covered
/// objects are therefore deleted. A factory for QAccessible then makes an inert one
/// (CoveredAccessible) for each that is asked about; at the end these are deleted in turn, and Qt
/// makes the host's own again. A screen reader is told both times that the content is another.
///
/// A host's QWindow that is not a widget's is covered in the same way, with the objects in it that
/// assistive technology can reach when the overlay is shown (the items of a Qt Quick scene).
class OverlayAccessibility : public QObject, private QAccessible::ActivationObserver {
    Q_OBJECT

public:
    OverlayAccessibility(QWidget *view, QWidget *superview);
    ~OverlayAccessibility() override;

    /// Tells which part of the superview the view covers. Widgets outside it stay as they are.
    void setFrame(const QRect &frame) { m_frame = frame; }

    /// Covers the content, before the view is shown.
    void begin();
    /// Uncovers the content. Ignored while it is not covered.
    void end();

    QWidget *view() const { return m_view; }
    /// The object whose only child is the view: the superview; the host's QWindow when the
    /// superview lies in the proxy of one. Null once it is destroyed.
    QObject *place() const;

    /// The children of a widget that assistive technology may reach: the view, and what it leaves
    /// free.
    QList<QObject *> reachableChildren(const QWidget *parent) const;

private:
    static QAccessibleInterface *makeInterface(const QString &, QObject *object);
    QAccessibleInterface *interfaceFor(QObject *object);
    void accessibilityActiveChanged(bool active) override;

    bool isCovered(const QWidget *widget) const;
    bool isReachable(const QWidget *widget) const;

    void deleteHostInterfaces();
    void tellFocus();
    void deleteInterfacesOf(QWidget *widget);
    void deleteInterfacesOfObjects(QAccessibleInterface *parent);

    QPointer<QWidget> m_view;
    QPointer<QWidget> m_superview;
    QRect m_frame;
    bool m_isActive = false;
    /// Objects in a covered window that are not widgets.
    QList<QPointer<QObject>> m_coveredObjects;
    /// What has an inert interface.
    QList<QPointer<QObject>> m_replaced;
};

} // namespace velmora
