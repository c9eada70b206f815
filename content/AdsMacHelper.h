#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QString>

namespace velmora {

/// What the machine is and whether it is on the internet.
class AdsMacHelper {
public:
    /// Whether the internet (the deployment's probe address) is reachable now, without a
    /// connection to establish first. Reads the routes and sends nothing; well below a
    /// millisecond. Main thread.
    static bool isInternetConnection();

    /// The machine's identifier as upper-case UUID text, empty when the system has none. The
    /// first answer holds for the process. Any thread.
    static QString getSystemUUID();

    /// The UUID text of an identifier as the system stores it: 32 digits without dashes get
    /// theirs. An identifier of another shape is only put in upper case.
    static QString uuidText(const QByteArray &identifier);
};

} // namespace velmora
