// SPDX-License-Identifier: Apache-2.0
#include "tests/support/TestGif.h"

namespace velmora::test {

namespace {

void appendWord(QByteArray &bytes, int word) {
    bytes += char(word & 0xff);
    bytes += char(word >> 8 & 0xff);
}

QByteArray header(QSize size) {
    QByteArray bytes("GIF89a");
    appendWord(bytes, size.width());
    appendWord(bytes, size.height());
    bytes += QByteArray::fromHex("000000"); // no global colour table
    return bytes;
}

// The pixels of a frame whose first columns have colour 0 and the others colour 1, in LZW codes of
// 3 bits. A clear code after every second pixel keeps the codes that short.
QByteArray packedPixels(QSize size, int firstColumns) {
    QByteArray packed;
    int held = 0;
    int heldBits = 0;
    const auto code = [&](int value) {
        held |= value << heldBits;
        for (heldBits += 3; heldBits >= 8; heldBits -= 8, held >>= 8)
            packed += char(held & 0xff);
    };
    constexpr int Clear = 4;
    constexpr int End = 5;
    for (int i = 0; i < size.width() * size.height(); ++i) {
        if (i % 2 == 0)
            code(Clear);
        code(i % size.width() < firstColumns ? 0 : 1);
    }
    code(End);
    packed += char(held & 0xff);

    QByteArray blocks(1, 2);
    for (qsizetype at = 0; at < packed.size(); at += 255) {
        const QByteArray block = packed.mid(at, 255);
        blocks += char(block.size());
        blocks += block;
    }
    return blocks + '\0';
}

QByteArray frame(QSize size, int delay, const QColor &first, const QColor &second,
                 const QByteArray &pixels) {
    QByteArray bytes = QByteArray::fromHex("21f90404");
    appendWord(bytes, delay);
    bytes += QByteArray::fromHex("0000");
    bytes += ',';
    appendWord(bytes, 0);
    appendWord(bytes, 0);
    appendWord(bytes, size.width());
    appendWord(bytes, size.height());
    bytes += char(0x81); // a colour table of its own, with four colours
    for (const QColor &color : {first, second, first, second}) {
        bytes += char(color.red());
        bytes += char(color.green());
        bytes += char(color.blue());
    }
    return bytes + pixels;
}

} // namespace

QByteArray gif(const QList<QColor> &frames, QSize size, int delay) {
    QByteArray bytes = header(size);
    bytes += QByteArray::fromHex("21ff0b") + "NETSCAPE2.0" + QByteArray::fromHex("0301000000");
    const QByteArray pixels = packedPixels(size, size.width());
    for (const QColor &color : frames)
        bytes += frame(size, delay, color, color, pixels);
    return bytes + ';';
}

QByteArray stillGif(const QColor &left, const QColor &right, QSize size) {
    return header(size) + frame(size, 0, left, right, packedPixels(size, size.width() / 2)) + ';';
}

} // namespace velmora::test
