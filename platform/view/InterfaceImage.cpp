// SPDX-License-Identifier: Apache-2.0
#include "InterfaceImage.h"

#include "Log.h"

#include <Velmora/Bundle.h>

#include <QtGui/QImageReader>
#include <QtGui/QPixmap>

namespace velmora {

QIcon InterfaceImage::named(const QString &name) {
    const QString folder = Bundle::resourseBundleForClass<InterfaceImage>().resourcePath() +
                           QStringLiteral("/images/");
    QIcon icon;
    for (const int density : {1, 2, 3}) {
        const QString suffix = density == 1 ? QString() : QStringLiteral("@%1x").arg(density);
        QImageReader reader(folder + name + suffix + QStringLiteral(".png"), "png");
        // Otherwise Qt loads all image plugins into the host to detect that this is a PNG.
        reader.setAutoDetectImageFormat(false);
        QImage image = reader.read();
        image.setDevicePixelRatio(density);
        if (!image.isNull())
            icon.addPixmap(QPixmap::fromImage(std::move(image)));
    }
    if (icon.isNull())
        Log::write(QStringLiteral("interface image %1 is missing").arg(name));
    return icon;
}

} // namespace velmora
