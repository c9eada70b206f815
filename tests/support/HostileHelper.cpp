// SPDX-License-Identifier: Apache-2.0
// Stands in for the video helper after a film has taken it over: sends what no helper sends, as
// VELMORA_TEST_HELPER says.

#include "HelperChannel.h"
#include "PictureSlots.h"

#include <unistd.h>

#include <cstdlib>
#include <cstring>
#include <limits>

using velmora::HelperChannel;
using velmora::HelperMessage;
using velmora::PictureSlots;
using Kind = velmora::HelperMessage::Kind;

namespace {

HelperMessage frame(int slot, int width, int height, int bytesPerLine) {
    HelperMessage message;
    message.kind = Kind::Frame;
    message.slot = slot;
    message.width = width;
    message.height = height;
    message.bytesPerLine = bytesPerLine;
    return message;
}

void lie(HelperChannel &channel) {
    constexpr int Huge = std::numeric_limits<int>::max();
    for (const HelperMessage &lie :
         {frame(-1, 16, 16, 64), frame(PictureSlots::Count, 16, 16, 64), frame(Huge, 16, 16, 64),
          frame(0, 0, 16, 64), frame(0, 16, -16, 64), frame(0, 16, 16, 63), frame(0, 16, 16, -64),
          frame(0, Huge, Huge, Huge), frame(0, 4097, 4096, 4097 * 4), frame(1, Huge, 1, 4),
          frame(1, 1, 1 << 20, 4), frame(1, 1 << 20, 1, 4 << 20)})
        channel.send(lie);
    HelperMessage text;
    std::memset(text.text, 'x', sizeof text.text);
    std::memcpy(text.text, "\033[2J\n", 5);
    for (const Kind kind : {Kind::Remark, Kind(-1), Kind::Load, Kind::Ready}) {
        text.kind = kind;
        for (int i = 0; i < 1000; ++i)
            channel.send(text);
    }
    HelperMessage moved;
    moved.kind = Kind::Moved;
    moved.position = std::numeric_limits<double>::quiet_NaN();
    moved.quietFor = -std::numeric_limits<double>::infinity();
    channel.send(moved);
    for (int i = 0; i < 3; ++i) {
        moved.kind = Kind::Prepared;
        channel.send(moved);
    }
    channel.send(frame(2, 16, 16, 64));
    for (const Kind kind : {Kind::Ended, Kind::Ended, Kind::Failed, Kind::Failed}) {
        text.kind = kind;
        channel.send(text);
    }
}

} // namespace

int main() {
    HelperChannel channel(velmora::HelperChannelFile, HelperChannel::WhenFull::Waits);
    const char *behaviour = std::getenv("VELMORA_TEST_HELPER");
    HelperMessage message;
    int file = -1;
    if (std::strcmp(behaviour, "stays silent") == 0) {
        channel.receive(&message);
        return EXIT_FAILURE;
    }
    channel.send({});
    channel.receive(&message, &file);
    if (std::strcmp(behaviour, "lies") == 0)
        lie(channel);
    for (;;)
        pause();
}
