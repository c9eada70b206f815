// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtCore/QSize>
#include <QtCore/QString>
#include <QtGui/QImage>

namespace velmora {

/// A picture file, looked at but not decoded: only its header is read. Any thread.
///
/// Accepted are GIF, JPEG, PNG and, where Qt has the plugin, WebP. A small file can declare a
/// picture that takes seconds and gigabytes to decode. Those over the limits are refused.
class PictureFile {
public:
    /// Pixels of one frame of an animation, which is decoded again and again.
    static constexpr qint64 MostAnimatedPixels = 2'000'000;
    static constexpr qint64 MostStillPixels = 24'000'000;
    /// Pixels of the longer side.
    static constexpr int LargestSide = 16'384;

    /// Makes what Qt needs to read pictures, and has exit() end the threads that use it before it
    /// is destroyed. Call this before pictures are decoded on another thread.
    static void prepare();
    /// Loads Qt's plugins for the accepted formats, which otherwise happens when the first picture
    /// of each is looked at.
    static void loadPlugins();

    explicit PictureFile(const QString &path);

    const QString &path() const { return m_path; }
    /// Why the file is refused; empty when it may be decoded.
    const QString &refusal() const { return m_refusal; }
    /// In pixels; empty when the file is refused.
    QSize size() const { return m_size; }
    /// True when there is more than one frame, or the format does not say so.
    bool isAnimation() const { return m_isAnimation; }

    /// Decodes the first frame. Takes a while.
    /// @return why it can't be decoded; empty when it can
    QString decodingError() const;

    /// Decodes the first frame of an accepted file. Takes a while.
    /// @param size  in pixels; empty for the picture's own size
    /// @param error receives the reason when the result is null
    static QImage firstFrame(const QString &path, const QSize &size, QString *error);

private:
    QString m_path;
    QString m_refusal;
    QSize m_size;
    bool m_isAnimation = false;
};

} // namespace velmora
