// SPDX-License-Identifier: Apache-2.0
#include "MediaCheck.h"

#include "PictureFile.h"

#include <QtCore/QFile>

#include <algorithm>

namespace velmora {

namespace {

/// The bytes by which the files of a container format begin.
struct Signature {
    qsizetype offset;
    QByteArrayView bytes;
};

constexpr Signature FilmSignatures[] = {
    {4, "ftyp"},             // MP4, QuickTime
    {4, "moov"},             // QuickTime of the first years
    {4, "mdat"},             //
    {4, "wide"},             //
    {0, "\x1a\x45\xdf\xa3"}, // Matroska, WebM
    {0, "OggS"},             //
    {8, "AVI "},             //
    {0, "FLV"},              //
    {0, "\x30\x26\xb2\x75"}, // ASF
};

bool isTransportStream(const QByteArray &head) {
    constexpr qsizetype PacketSize = 188;
    return head.size() > PacketSize && head.at(0) == 'G' && head.at(PacketSize) == 'G';
}

bool isProgramStream(const QByteArray &head) {
    return head.startsWith(QByteArrayView("\0\0\1\xba", 4)) ||
           head.startsWith(QByteArrayView("\0\0\1\xb3", 4));
}

QString refusalOfFilm(const QString &path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return file.errorString();
    const QByteArray head = file.read(1024);
    const bool isKnown = isTransportStream(head) || isProgramStream(head) ||
                         std::ranges::any_of(FilmSignatures, [&head](const Signature &signature) {
                             return QByteArrayView(head)
                                 .sliced(std::min(signature.offset, head.size()))
                                 .startsWith(signature.bytes);
                         });
    return isKnown ? QString() : QStringLiteral("it is not a film");
}

} // namespace

QString MediaCheck::refusal(const QString &path, MediaKind kind) {
    return kind == MediaKind::Film ? refusalOfFilm(path) : PictureFile(path).decodingError();
}

QString MediaCheck::quickRefusal(const QString &path, MediaKind kind) {
    return kind == MediaKind::Film ? refusalOfFilm(path) : PictureFile(path).refusal();
}

} // namespace velmora
