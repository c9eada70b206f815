// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtWidgets/QAbstractButton>

namespace velmora {

/// A round button over a banner whose animation stands still: shows a triangle that plays the
/// animation, and while it plays two bars that stop it. Its accessible name says which. Main thread
/// only.
class PlayButton : public QAbstractButton {
    Q_OBJECT

public:
    explicit PlayButton(QWidget *parent = nullptr);

    /// Sets whether the animation plays. Default: false.
    void setPlaying(bool playing);
    bool isPlaying() const { return m_isPlaying; }

    /// Places the button in the left bottom corner of a banner of this size.
    void place(const QSize &banner);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    bool m_isPlaying = true;
};

} // namespace velmora
