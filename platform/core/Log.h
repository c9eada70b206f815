// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtCore/QLoggingCategory>
#include <QtCore/QString>

/// The category of the framework's log messages: "velmora".
Q_DECLARE_LOGGING_CATEGORY(velmoraLog)

namespace velmora {

/// Writes the framework's debug messages, which say what was refused and why. Any thread.
class Log {
public:
    using Gate = bool (*)();

    /// Sets the functions that decide, at every message, whether it is printed. Nothing is printed
    /// before this is called. The functions may be called on any thread.
    /// @param isOn       false: nothing is printed
    /// @param isSilenced true: only the messages of writeAlways() are printed
    static void setGates(Gate isOn, Gate isSilenced);

    static void write(const QString &message);
    /// Prints the message even while the log is silenced.
    static void writeAlways(const QString &message);
};

} // namespace velmora
