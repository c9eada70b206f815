// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QString>

namespace velmora {

/// The identifier that the system gave this machine. Any thread.
class MachineIdentifier {
public:
    /// As UUID text, empty when there is none.
    static QString uuid();

    /// The UUID text of an identifier as the system stores it: 32 digits without dashes get
    /// theirs. An identifier of another shape is only put in upper case.
    static QString uuidText(const QByteArray &identifier);
};

} // namespace velmora
