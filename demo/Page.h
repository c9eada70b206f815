// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtWidgets/QWidget>

class QVBoxLayout;

namespace demo {

/// The window's content area. The framework reserves the space of its banner at the bottom, in the
/// contents margins; the page paints a shelf there.
class Page : public QWidget {
    Q_OBJECT

public:
    explicit Page(QWidget *parent = nullptr);

    QVBoxLayout *column() const { return m_column; }

    /// The banner's view; null while there is none.
    QWidget *banner() const;

protected:
    bool event(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    QVBoxLayout *m_column;
};

} // namespace demo
