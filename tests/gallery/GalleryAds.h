// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "adserver/AdServer.h"

#include <QtCore/QProcessEnvironment>
#include <QtCore/QTemporaryDir>

namespace velmora::test {

/// An ad server with a banner and a video of known colours.
class GalleryAds {
public:
    GalleryAds();

    /// Adds to a host's environment what leads it to the server, and folders of its own.
    void addTo(QProcessEnvironment &environment) const;

private:
    adserver::AdServer m_server;
    QTemporaryDir m_folder;
};

} // namespace velmora::test
