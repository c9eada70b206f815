// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtGui/QImage>
#include <QtWidgets/QWidget>

#include <array>
#include <functional>
#include <utility>

namespace velmora {

/// Covers a view that fades and draws it blended with a picture of what is behind it, so that Qt
/// does not paint what is behind it at each frame: it may be a whole window of the host's. The view
/// owns it. Main thread only.
class FadeCurtain : public QWidget {
    Q_OBJECT

public:
    /// @param picture  the view, of its size
    /// @param backdrop what is behind it, opaque and of the same size
    /// @param resized  called later when the view has got another size, which the pictures don't
    /// fit
    FadeCurtain(QWidget *view, QImage picture, QImage backdrop, std::function<void()> resized);
    ~FadeCurtain() override;

    /// 0 shows what is behind the view, 1 the view.
    void setOpacity(double opacity);

    /// What it was given. It must not be drawn afterwards.
    std::array<QImage, 2> takeImages() { return {std::move(m_picture), std::move(m_backdrop)}; }

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QWidget *m_view;
    QSize m_size; ///< of the view when its picture was drawn
    QImage m_picture;
    QImage m_backdrop;
    std::function<void()> m_resized;
    double m_opacity = 1;
    bool m_wasOpaque;
};

} // namespace velmora
