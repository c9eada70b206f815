// SPDX-License-Identifier: Apache-2.0
#include "tests/support/AccessibilityBus.h"

#include <QtCore/QStandardPaths>

#include <csignal>
#include <sys/prctl.h>

namespace velmora::test {

AccessibilityBus::AccessibilityBus() {
    if (QStandardPaths::locate(QStandardPaths::GenericDataLocation,
                               QStringLiteral("dbus-1/services/org.a11y.Bus.service"))
            .isEmpty()) {
        m_error = QStringLiteral("the package at-spi2-core is not installed");
        return;
    }
    qputenv("XDG_RUNTIME_DIR", m_runtime.path().toUtf8());
    qputenv("QT_LINUX_ACCESSIBILITY_ALWAYS_ON", "1");
    for (const char *variable : {"NO_AT_BRIDGE", "AT_SPI_BUS_ADDRESS", "DBUS_SESSION_BUS_ADDRESS"})
        qunsetenv(variable);
    m_bus.setStandardErrorFile(QProcess::nullDevice());
    // Ends the bus with this process, even if that crashes.
    m_bus.setChildProcessModifier([] { ::prctl(PR_SET_PDEATHSIG, SIGTERM); });
    m_bus.start(QStringLiteral("dbus-daemon"),
                {QStringLiteral("--session"), QStringLiteral("--nofork"),
                 QStringLiteral("--print-address=1")});
    while (m_bus.state() != QProcess::NotRunning && !m_bus.canReadLine()) {
        if (!m_bus.waitForReadyRead(20000))
            break;
    }
    const QByteArray address = m_bus.readLine().trimmed();
    if (address.isEmpty())
        m_error = QStringLiteral("dbus-daemon can't be started");
    qputenv("DBUS_SESSION_BUS_ADDRESS", address);
}

AccessibilityBus::~AccessibilityBus() {
    // The accessibility bus ends with the session bus.
    m_bus.terminate();
    if (!m_bus.waitForFinished(5000))
        m_bus.kill();
    m_bus.waitForFinished(5000);
}

} // namespace velmora::test
