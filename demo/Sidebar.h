// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtWidgets/QWidget>

class QListWidget;

namespace demo {

/// The journal's name and its list of entries.
class Sidebar : public QWidget {
    Q_OBJECT

public:
    static constexpr int Width = 248;

    explicit Sidebar(QWidget *parent = nullptr);

    void setCurrent(int entry);

Q_SIGNALS:
    void entryChosen(int entry);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QListWidget *m_list;
};

} // namespace demo
