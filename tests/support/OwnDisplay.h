// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtCore/QProcess>
#include <QtCore/QString>

namespace velmora::test {

/// A virtual display of this process's own with a window manager on it, which the environment
/// points to until destruction.
class OwnDisplay {
public:
    OwnDisplay();
    ~OwnDisplay();

    /// What is missing; empty when the display is there.
    QString error() const { return m_error; }

private:
    bool start(QProcess &process, const QString &program, const QStringList &arguments);

    QProcess m_server;
    QProcess m_windowManager;
    QString m_error;
};

/// Runs a program on the display to its end; what it printed.
QString runOnDisplay(const QString &program, const QStringList &arguments);

} // namespace velmora::test
