// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "HostWindow.h"

#include <Velmora/NotificationCenter.h>

#include <QtCore/QObject>
#include <QtCore/QSocketNotifier>
#include <QtCore/QString>
#include <QtCore/QTimer>
#include <QtCore/QUrl>
#include <QtGui/QColor>

#include <memory>
#include <vector>

namespace gallery {

/// The colour behind everything that a host shows. Neither the framework nor an ad uses it.
inline constexpr QColor Marker(0xff, 0x00, 0xff);

/// Prints a line for the test at once.
void print(const QString &line);

/// The windows of one host. It obeys the commands that the test writes to standard input, one a
/// line, and prints what happens, one line each:
///
/// | Command  | What the host does |
/// |----------|--------------------|
/// | `splash` | shows the splash screens |
/// | `banner` | adds a banner to every window |
/// | `report` | prints the lines below, and then `reported` |
/// | `quit`   | ends |
///
/// | Line                         | What has happened |
/// |------------------------------|-------------------|
/// | `ready`                      | all windows are on screen and one of them is active |
/// | `click NAME`                 | a click has reached an element of the host |
/// | `notification NAME [OBJECT]` | the framework has posted a notification |
/// | `opened URL`                 | the framework has asked the desktop to open a link |
///
/// A report has a line `window ACTIVE LEFT TOP X Y W H` for each window: its position
/// (HostWindow::knownCorner()), and its content below the menu bar. `widget INDEX NAME X Y W H`
/// follows for each visible widget that has a name, with the index of its window. Lengths are in
/// pixels of the screen, x and y from the window's corner.
class Gallery : public QObject {
    Q_OBJECT

public:
    /// @param startScreenSeconds how long splash screens show their start screen
    explicit Gallery(int startScreenSeconds);
    ~Gallery() override;

    /// Registers a window for splash screens and takes ownership of it. The host shows it.
    void add(QWidget *window);
    void add(QWindow *window);
    void add(std::unique_ptr<HostWindow> window, bool isGameEngine = false);
    /// Like add(), for a window with a game engine's view.
    void addGameEngine(QWidget *window);

public Q_SLOTS:
    void openLink(const QUrl &link);

private:
    void sayWhenReady();
    void obey();
    void addBanners();
    void report() const;
    /// The index of the window that a widget is in; -1 for none.
    qsizetype indexOfWindow(const QWidget *widget) const;

    std::vector<std::unique_ptr<HostWindow>> m_windows;
    QTimer m_readiness;
    QSocketNotifier m_commands;
    std::vector<velmora::NotificationCenter::Observation> m_observations;
};

} // namespace gallery
