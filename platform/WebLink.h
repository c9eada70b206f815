#pragma once

#include <QtCore/QUrl>

namespace velmora {

/// Which links may leave the process. Handing an untrusted link to the desktop's opener is a
/// known kind of hole, so only web pages and store pages may.
class WebLink {
public:
    /// True for a whole link with the scheme macappstores, https or http.
    static bool mayOpen(const QUrl &link);
};

} // namespace velmora
