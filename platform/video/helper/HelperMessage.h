// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QString>

#include <algorithm>
#include <cstring>

namespace velmora {

/// What the library and the video helper send each other. Both are installed together, so the bytes
/// in memory are the format; the number in HelperVersion tells one version from another.
struct HelperMessage {
    enum class Kind : quint32 {
        // To the helper.
        Load, ///< with the file; flag: with sound; width, height: the place
        Play,
        Pause,
        CheckOpening,
        Seek,     ///< position
        SetMuted, ///< flag
        SetPlace, ///< width, height
        Release,  ///< slot: its picture is no longer shown

        // From the helper.
        Ready,    ///< it runs
        Prepared, ///< position: the duration
        Frame,    ///< slot, width, height, bytesPerLine
        Moved,    ///< position, quietFor
        Ended,
        Failed,  ///< text; flag: the sound is at fault
        Remark,  ///< text
        Crashed, ///< slot: the signal
    };

    Kind kind = Kind::Ready;
    qint32 slot = -1;
    qint32 width = 0;
    qint32 height = 0;
    qint32 bytesPerLine = 0;
    quint32 flag = 0;
    /// In seconds, as quietFor.
    double position = 0;
    double quietFor = 0;
    /// UTF-8, ended by a zero.
    char text[400] = {};

    void setText(const QString &string) {
        const QByteArray bytes = string.toUtf8().left(qsizetype(sizeof text) - 1);
        std::copy(bytes.begin(), bytes.end(), text);
        text[bytes.size()] = 0;
    }

    /// Without control characters, which could change what a terminal or a log shows.
    QString readText() const {
        QString string = QString::fromUtf8(text, qsizetype(strnlen(text, sizeof text)));
        for (QChar &character : string) {
            if (!character.isPrint())
                character = u' ';
        }
        return string;
    }
};

/// The helper's only argument. Must change whenever the messages or the pictures' memory do.
inline constexpr const char *HelperVersion = "2";

/// The helper's open files when it starts, besides the standard ones.
inline constexpr int HelperChannelFile = 3;
inline constexpr int HelperPicturesFile = 4;
inline constexpr int HelperHostFile = 5; ///< stands for the host's process
inline constexpr int LastHelperFile = HelperHostFile;

} // namespace velmora
