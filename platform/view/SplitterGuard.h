// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtCore/QObject>
#include <QtWidgets/QSplitter>
#include <QtWidgets/QWidget>

namespace velmora {

/// Keeps a QSplitter from making one of its panes of a view that is to lie over them. Main thread
/// only.
class SplitterGuard : public QObject {
    Q_OBJECT

public:
    /// To be called before a view becomes the child of a superview. Does nothing when that is no
    /// QSplitter.
    static void keepOut(QWidget *view, QWidget *superview);

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    explicit SplitterGuard(QSplitter *splitter);
};

} // namespace velmora
