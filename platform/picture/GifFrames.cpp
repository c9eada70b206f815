// SPDX-License-Identifier: Apache-2.0
#include "GifFrames.h"

#include <QtCore/QByteArray>
#include <QtCore/QIODevice>

namespace velmora {

namespace {

constexpr char Extension = '\x21';
constexpr char Frame = '\x2c';
constexpr uchar HasColorTable = 0x80;

// The size of a color table, which flags say.
qint64 colorTableSize(uchar flags) {
    return flags & HasColorTable ? qint64(3) << ((flags & 7) + 1) : 0;
}

bool skip(QIODevice &file, qint64 count) {
    return file.skip(count) == count;
}

// Blocks of data, each after its length; the last one is empty.
bool skipBlocks(QIODevice &file) {
    char length = 0;
    while (file.getChar(&length)) {
        if (length == 0)
            return true;
        if (!skip(file, uchar(length)))
            return false;
    }
    return false;
}

} // namespace

bool GifFrames::areSeveral(QIODevice &file) {
    const QByteArray head = file.read(13); // signature and screen
    if (head.size() < 13 || !head.startsWith("GIF8") ||
        !skip(file, colorTableSize(uchar(head[10]))))
        return false;
    bool hasFrame = false;
    char kind = 0;
    while (file.getChar(&kind)) {
        if (kind == Frame) {
            if (hasFrame)
                return true;
            hasFrame = true;
            const QByteArray frame = file.read(9); // place and flags
            const bool isWhole =
                frame.size() == 9 && skip(file, colorTableSize(uchar(frame[8]))) && skip(file, 1);
            if (!isWhole || !skipBlocks(file))
                return false;
        } else if (kind != Extension || !skip(file, 1) || !skipBlocks(file)) {
            return false;
        }
    }
    return false;
}

} // namespace velmora
