// SPDX-License-Identifier: Apache-2.0
// A picture file: what is accepted can be decoded in any size. libFuzzer limits time and memory.
// The last three bytes choose the size and the suffix; decoders of pictures ignore what is behind
// the picture.
#include "FrameDecoder.h"
#include "Fuzzing.h"
#include "PictureFile.h"

using namespace velmora;
using velmora::fuzz::require;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
    static const fuzz::Scratch scratch;
    static const QString names[] = {QStringLiteral("x"), QStringLiteral("x.gif"),
                                    QStringLiteral("x.jpg"), QStringLiteral("x.png")};
    if (size < 3)
        return 0;
    const PictureFile file(scratch.write(names[data[size - 3] % 4], fuzz::bytesOf(data, size)));
    require(file.size().isEmpty() != file.refusal().isEmpty(), "there is a size or a refusal");
    if (!file.refusal().isEmpty())
        return 0;
    const QSize shown(data[size - 1] + 1, data[size - 2] + 1);
    FrameDecoder decoder(file);
    for (int i = 0; i < (file.isAnimation() ? 6 : 1); ++i) {
        const auto frame = decoder.next(shown);
        if (!frame)
            break;
        require(frame->image.size() == shown, "a frame has the size that it is shown in");
        require(frame->image.format() == QImage::Format_RGB32 ||
                    frame->image.format() == QImage::Format_ARGB32_Premultiplied,
                "a frame is drawn without conversion");
        require(!file.isAnimation() || frame->delayMs >= 20, "an animation takes its time");
    }
    return 0;
}
