// SPDX-License-Identifier: Apache-2.0
#include "InterfaceImage.h"

#include "Log.h"
#include "ProcessRoot.h"

#include <Velmora/Bundle.h>

#include <QtCore/QFile>
#include <QtCore/QHash>
#include <QtGui/QIconEngine>
#include <QtGui/QImageReader>
#include <QtGui/QPainter>

namespace velmora {

namespace {

QString pathOf(const QString &name) {
    const QString folder = Bundle::resourseBundleForClass<InterfaceImage>().resourcePath();
    return QStringLiteral("%1/images/%2.png").arg(folder, name);
}

// The images that have been drawn. Each is decoded once in a process, whoever shows it.
struct DecodedImages {
    QHash<QString, QPixmap> pixmaps;

    const QPixmap &named(const QString &name) {
        QPixmap &pixmap = pixmaps[name];
        if (pixmap.isNull()) {
            QImageReader reader(pathOf(name), "png");
            // Otherwise Qt loads all image plugins into the host to detect that this is a PNG.
            reader.setAutoDetectImageFormat(false);
            pixmap = QPixmap::fromImage(reader.read());
        }
        return pixmap;
    }
};

// Decodes an image when it is drawn for the first time: most are on splash screens, which many
// hosts never show.
class ImageEngine : public QIconEngine {
public:
    explicit ImageEngine(const QString &name) : m_name(name) {}

    QPixmap pixmap(const QSize &size, QIcon::Mode, QIcon::State) override {
        const QPixmap &image = ProcessRoot::get<DecodedImages>().named(m_name);
        const bool fits = image.width() <= size.width() && image.height() <= size.height();
        return fits ? image : image.scaled(size, Qt::KeepAspectRatio, Qt::SmoothTransformation);
    }

    void paint(QPainter *painter, const QRect &rect, QIcon::Mode mode,
               QIcon::State state) override {
        painter->drawPixmap(rect, pixmap(rect.size(), mode, state));
    }

    QIconEngine *clone() const override { return new ImageEngine(m_name); }

private:
    const QString m_name;
};

} // namespace

QIcon InterfaceImage::named(const QString &name) {
    if (QFile::exists(pathOf(name)))
        return QIcon(new ImageEngine(name));
    Log::write(QStringLiteral("interface image %1 is missing").arg(name));
    return {};
}

} // namespace velmora
