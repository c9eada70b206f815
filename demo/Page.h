// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtCore/QPointer>
#include <QtWidgets/QWidget>

class QVBoxLayout;

namespace demo {

/// The window's content area. The framework lays its banner over the bottom, so the page keeps its
/// own content out of that strip as long as there is a banner.
class Page : public QWidget {
    Q_OBJECT

public:
    explicit Page(QWidget *parent = nullptr);

    QVBoxLayout *column() const { return m_column; }

    /// The banner's view; null while there is none.
    QWidget *banner() const { return m_banner; }

protected:
    void childEvent(QChildEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    void makeRoom();

    QVBoxLayout *m_column;
    QPointer<QWidget> m_banner;
};

} // namespace demo
