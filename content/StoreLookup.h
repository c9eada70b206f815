// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtCore/QJsonObject>
#include <QtCore/QString>

#include <optional>

namespace velmora {

/// Asks the store's look-up service about applications. Both operations block until the service
/// has answered, so they are refused on the main thread and belong on any other.
class StoreLookup {
public:
    /// Requests a look-up URL and returns the first result; nothing when there is none, the
    /// service cannot be reached, or the process's URL session is not there or ends meanwhile.
    static std::optional<QJsonObject> firstResult(const QString &address);

    /// The name of the application that a store link leads to, up to the first "-" and without
    /// spaces; "null" when it cannot be found out.
    /// @param link  ends in "id" and the application's store number
    /// @param isWeb puts "Web " in front
    static QString shortName(const QString &link, bool isWeb);
};

} // namespace velmora
