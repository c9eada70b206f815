// SPDX-License-Identifier: Apache-2.0
#include "PictureFile.h"

#include "GifFrames.h"
#include "JpegScans.h"
#include "ProcessRoot.h"

#include <QtCore/QBuffer>
#include <QtCore/QFile>
#include <QtGui/QImageReader>

#include <algorithm>

namespace velmora {

namespace {

// Others, which the plugins on this machine may read, are not made for what strangers send.
bool isAccepted(const QByteArray &format) {
    return format == "gif" || format == "jpeg" || format == "png" || format == "webp";
}

bool isAnimated(const QImageReader &reader, const QString &path) {
    if (reader.format() != "gif")
        return reader.supportsAnimation() && reader.imageCount() != 1;
    QFile file(path);
    return file.open(QIODevice::ReadOnly) && GifFrames::areSeveral(file);
}

// Has Qt look for what reads a format, and load it if it is a plugin.
void lookForReader(const char *format) {
    QBuffer nothing;
    nothing.open(QIODevice::ReadOnly);
    QImageReader reader(&nothing, format);
    // Otherwise Qt loads all image plugins to detect the format of nothing.
    reader.setAutoDetectImageFormat(false);
    reader.canRead();
}

} // namespace

void PictureFile::prepare() {
    static const bool once = [] {
        lookForReader("png"); // built into Qt
        ProcessRoot::registerAtExit();
        return true;
    }();
    Q_UNUSED(once)
}

void PictureFile::loadPlugins() {
    prepare();
    static const bool once = [] {
        for (const char *format : {"gif", "jpeg", "webp"})
            lookForReader(format);
        return true;
    }();
    Q_UNUSED(once)
}

PictureFile::PictureFile(const QString &path) : m_path(path) {
    // The format is told by the suffix first: to tell it by the content, Qt would load every image
    // plugin.
    QImageReader reader(path);
    if (!reader.canRead()) {
        m_refusal = reader.errorString();
        return;
    }
    if (!isAccepted(reader.format())) {
        m_refusal =
            QStringLiteral("its format is not accepted: %1").arg(QLatin1String(reader.format()));
        return;
    }
    const QSize size = reader.size();
    m_isAnimation = isAnimated(reader, path);
    const qint64 pixels = qint64(size.width()) * size.height();
    const qint64 most = m_isAnimation ? MostAnimatedPixels : MostStillPixels;
    if (size.isEmpty())
        m_refusal = QStringLiteral("its size is not known");
    else if (std::max(size.width(), size.height()) > LargestSide)
        m_refusal =
            QStringLiteral("it is too long: %1x%2 pixels").arg(size.width()).arg(size.height());
    else if (pixels > most)
        m_refusal = QStringLiteral("it is too large: %1x%2 pixels, and %3 are allowed")
                        .arg(size.width())
                        .arg(size.height())
                        .arg(most);
    else
        m_size = size;
}

QString PictureFile::decodingError() const {
    if (!m_refusal.isEmpty())
        return m_refusal;
    QString error;
    firstFrame(m_path, {}, &error);
    return error;
}

QImage PictureFile::firstFrame(const QString &path, const QSize &size, QString *error) {
    QImageReader reader(path);
    QFile file(path);
    if (reader.format() == "jpeg" && file.open(QIODevice::ReadOnly) &&
        JpegScans::areTooMany(file)) {
        *error = QStringLiteral("it has more than %1 scans").arg(JpegScans::Most);
        return {};
    }
    reader.setScaledSize(size);
    QImage image = reader.read();
    if (image.isNull())
        *error = reader.errorString();
    return image;
}

} // namespace velmora
