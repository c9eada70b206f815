// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "tests/gallery/Desktop.h"

#include <QtCore/QProcess>
#include <QtCore/QTemporaryDir>

namespace velmora::test {

/// The Wayland compositor sway without a screen. It tiles the windows.
class SwayDesktop : public Desktop {
public:
    SwayDesktop();
    ~SwayDesktop() override;

    QString error() const override { return m_error; }
    QProcessEnvironment environment() const override;
    int startScreenSeconds() const override { return 5; } // each picture takes a process
    QImage picture() override;
    void click(QPoint point) override;
    std::optional<QPoint> positionOf(const QString &title) override;

private:
    bool startCompositor();
    bool startPointer();
    QByteArray run(const QString &program, const QStringList &arguments) const;

    QTemporaryDir m_folder;
    QProcess m_compositor;
    QProcess m_pointer;
    QString m_error;
};

} // namespace velmora::test
