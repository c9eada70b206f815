// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "LayoutConstraint.h"
#include "TextField.h"
#include "TimeProgressView.h"

#include <QtCore/QPointer>
#include <QtWidgets/QWidget>

namespace velmora {

/// Holds the start screen's two lines of text, its countdown text and its ring, and is always as
/// wide as its superview. Main thread only.
class SplashScreenLabelsView : public QWidget {
    Q_OBJECT

public:
    explicit SplashScreenLabelsView(QWidget *parent = nullptr);

    /// Gives the view a frame; its width then becomes the superview's.
    void setFrame(const QRect &frame);

    // Set from the interface resource; null when it lacks the element or that was destroyed.
    TextField *textCommentFieldFirst() const { return m_textCommentFieldFirst; }
    void setTextCommentFieldFirst(TextField *field) { m_textCommentFieldFirst = field; }
    TextField *textCommentFieldSecond() const { return m_textCommentFieldSecond; }
    void setTextCommentFieldSecond(TextField *field) { m_textCommentFieldSecond = field; }
    TextField *timeLabel() const { return m_timeLabel; }
    void setTimeLabel(TextField *label) { m_timeLabel = label; }
    TimeProgressView *timeProgressView() const { return m_timeProgressView; }
    void setTimeProgressView(TimeProgressView *view) { m_timeProgressView = view; }

    /// Its constant is the width that the view keeps, points: that of the superview, or 0 without
    /// one. Without a constraint the view does not change its width.
    LayoutConstraintPtr widthConstraint() const { return m_widthConstraint; }
    void setWidthConstraint(const LayoutConstraintPtr &constraint);

    /// How strongly a field of text resists being made narrower than its text; 750 unless a
    /// frame change has set it.
    static int horizontalCompressionResistance(const TextField *field);

    bool eventFilter(QObject *watched, QEvent *event) override;

protected:
    bool event(QEvent *event) override;

private:
    void followSuperview();
    void frameChanged();

    QPointer<TextField> m_textCommentFieldFirst;
    QPointer<TextField> m_textCommentFieldSecond;
    QPointer<TextField> m_timeLabel;
    QPointer<TimeProgressView> m_timeProgressView;
    LayoutConstraintPtr m_widthConstraint;
    QPointer<QWidget> m_superview;
};

} // namespace velmora
