// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtCore/QLoggingCategory>
#include <QtCore/QString>

/// The system log of the framework.
Q_DECLARE_LOGGING_CATEGORY(velmoraLog)

namespace velmora {

/// The framework's debug messages: what was refused and why. Any thread.
class Log {
public:
    using Gate = bool (*)();

    /// Decides what is printed; without gates nothing is. Installed by the process's switches.
    /// @param isOn       messages are wanted at all
    /// @param isSilenced only those of writeAlways() are
    static void setGates(Gate isOn, Gate isSilenced);

    static void write(const QString &message);
    /// Also while the log is silenced.
    static void writeAlways(const QString &message);
};

} // namespace velmora
