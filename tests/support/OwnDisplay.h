// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtCore/QProcess>
#include <QtCore/QSize>
#include <QtCore/QString>
#include <QtGui/QColor>
#include <QtWidgets/QWidget>

namespace velmora::test {

/// Starts a virtual X display with a window manager, points the environment of this process to it,
/// and ends both on destruction.
class OwnDisplay {
public:
    /// @param windowManager "openbox", "xfwm4", "kwin" or "i3"; empty for none
    explicit OwnDisplay(const QString &windowManager = QStringLiteral("openbox"),
                        QSize size = {1024, 768});
    ~OwnDisplay();

    /// Why the display is not available; empty when it is.
    QString error() const { return m_error; }

private:
    bool start(QProcess &process, const QString &program, const QStringList &arguments);
    void startWindowManager(const QString &name);

    QProcess m_server;
    QProcess m_windowManager;
    QString m_error;
};

/// Runs a program on the display until it ends. @return its standard output
QString runOnDisplay(const QString &program, const QStringList &arguments);

/// Clicks with the mouse on a point of the screen, or of a widget.
void clickOnDisplay(QPoint point);
void clickOnDisplay(const QWidget *widget, QPoint point);

/// The colour that the display shows at a point of a widget.
QColor colorOnDisplay(const QWidget *widget, QPoint point);

} // namespace velmora::test
