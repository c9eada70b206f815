// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtWidgets/QWidget>

namespace velmora {

/// A text that a screen reader speaks when it changes, wherever the focus is. On screen it is
/// nothing. Main thread only.
///
/// Qt has an event for that only from 6.8 on. Before, the text is the name of a notification, which
/// screen readers speak when it is shown.
class Announcement : public QWidget {
    Q_OBJECT

public:
    explicit Announcement(QWidget *parent);

    /// Speaks a text. It can be read until the next one; an empty one ends that.
    void say(const QString &text);

    /// Makes this widget empty again after a style sheet has changed its size.
    void shrink() { resize(0, 0); }
};

} // namespace velmora
