// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtCore/QObject>

#include <memory>

namespace velmora {

/// Whether the user has asked the desktop for less motion. Main thread only.
class DesktopMotion : public QObject {
    Q_OBJECT

public:
    /// Starts to ask the desktop, which never blocks, and follows its setting from then on.
    static std::unique_ptr<DesktopMotion> watch();

    /// False until the desktop has answered, and on desktops that don't answer.
    virtual bool isReduced() const = 0;

Q_SIGNALS:
    /// isReduced() has changed.
    void changed();

protected:
    DesktopMotion() = default;
};

} // namespace velmora
