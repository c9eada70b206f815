// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtWidgets/QAbstractButton>

namespace velmora {

/// An area that is a button and shows nothing but the keyboard's focus. Main thread only.
class LinkArea : public QAbstractButton {
    Q_OBJECT

public:
    explicit LinkArea(QWidget *parent = nullptr);

    /// Whether a click leads anywhere: the mouse pointer says so, and the keyboard gets here.
    void setLeadsSomewhere(bool leads);

protected:
    void paintEvent(QPaintEvent *event) override;
};

} // namespace velmora
