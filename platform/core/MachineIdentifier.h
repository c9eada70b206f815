// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QString>

namespace velmora {

/// The identifier that the system gave this machine. Any thread.
class MachineIdentifier {
public:
    /// The identifier as UUID text; empty when the machine has none.
    static QString uuid();

    /// Turns an identifier, as the system stores it, into UUID text. 32 hexadecimal digits get the
    /// dashes of a UUID; an identifier of any other form is only converted to upper case.
    static QString uuidText(const QByteArray &identifier);
};

} // namespace velmora
