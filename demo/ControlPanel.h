#pragma once

#include <Velmora/ViewController.h>

#include <QtWidgets/QWidget>

class QAbstractButton;
class QCheckBox;
class QGridLayout;
class QSlider;
class QVBoxLayout;

namespace demo {

class Advertising;
class JournalWindow;

/// The developer's panel: everything that the framework offers for banners, to try out, and the
/// log of what the framework said.
class ControlPanel : public QWidget {
    Q_OBJECT

public:
    static constexpr int Width = 272;

    ControlPanel(Advertising &advertising, JournalWindow *window);

Q_SIGNALS:
    void secondWindowWanted();

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QWidget *newPlacement();
    QWidget *newActions();
    QWidget *newServer();
    QWidget *newLog();
    QAbstractButton *newButton(const QString &text, const QString &name);
    QSlider *newSlider(QGridLayout *grid, int row, const QString &text, int least, int most);
    void setHeight(bool large);
    void setInsets();
    void setHidden(bool hidden);

    Advertising &m_advertising;
    JournalWindow *m_window;
    QCheckBox *m_everyWindow = nullptr;
    QSlider *m_bottom = nullptr;
    QSlider *m_centre = nullptr;
};

} // namespace demo
