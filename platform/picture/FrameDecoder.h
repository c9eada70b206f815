// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtGui/QImage>

#include <memory>
#include <optional>

class QFile;
class QImageReader;

namespace velmora {

class PictureFile;

/// Decodes a picture frame by frame, scaled to the size at which it is shown. On one thread at a
/// time.
class FrameDecoder {
public:
    struct Frame {
        QImage image; ///< in a format that is drawn without conversion
        int delayMs = 0;
    };

    explicit FrameDecoder(const PictureFile &file);
    /// A picture that is decoded already, of one frame.
    explicit FrameDecoder(const QImage &image);
    ~FrameDecoder();

    bool isAnimation() const { return m_isAnimation; }

    /// The next frame; nothing after the last one, and when the picture can't be decoded. A picture
    /// of one frame always has a next one.
    /// @param size in pixels
    std::optional<Frame> next(const QSize &size);
    /// The last frame again, at another size.
    std::optional<Frame> again(const QSize &size);
    /// Frees the last frame and what the file format's decoder keeps. The next call of the two
    /// above decodes the file again, from its start up to where it was.
    void dropFrames();

    /// Why the first frame could not be decoded; empty when it could.
    const QString &error() const { return m_error; }

private:
    std::optional<Frame> still(const QSize &size);
    bool resume();
    bool readNext();
    bool rewindAfterLastFrame();
    void readFromStart();

    const QString m_path;
    bool m_isAnimation = false;
    // Of an animation. The file stays open, so that it plays on when it is deleted.
    std::unique_ptr<QFile> m_file;
    std::unique_ptr<QImageReader> m_reader;
    int m_repeatsLeft = 0; // -1: without end
    int m_framesOfPass = 0;
    bool m_hasDecoded = false;
    QImage m_current; // the animation's last frame, or the picture without a file; not scaled
    int m_delayMs = 0;
    QString m_error;
};

} // namespace velmora
