// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtCore/QProcess>
#include <QtCore/QString>
#include <QtCore/QTemporaryDir>

namespace velmora::test {

/// Starts a session bus that activates the accessibility bus, points the environment of this
/// process to it, and ends both on destruction. Made before the application object.
class AccessibilityBus {
public:
    AccessibilityBus();
    ~AccessibilityBus();

    /// Why the bus is not available; empty when it is.
    QString error() const { return m_error; }

private:
    QTemporaryDir m_runtime;
    QProcess m_bus;
    QString m_error;
};

} // namespace velmora::test
