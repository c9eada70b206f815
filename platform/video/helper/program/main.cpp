// SPDX-License-Identifier: Apache-2.0
// Plays one video for the library, which starts this program: decodes it in a process that may do
// little else, and puts the pictures into memory that both share.

#include "EngineHost.h"

#include <signal.h>
#include <unistd.h>

#include <cstdlib>
#include <cstring>

int main(int argc, char **argv) {
    using namespace velmora;
    if (argc != 2 || std::strcmp(argv[1], HelperVersion) != 0)
        return EXIT_FAILURE;
    // The library starts it with all signals blocked.
    sigset_t none;
    sigemptyset(&none);
    sigprocmask(SIG_SETMASK, &none, nullptr);
    if (chdir("/") != 0)
        return EXIT_FAILURE;
    const auto pictures = PictureSlots::open(HelperPicturesFile);
    if (!pictures)
        return EXIT_FAILURE;
    HelperChannel channel(HelperChannelFile, HelperChannel::WhenFull::Waits);
    SlotMemory memory(pictures);
    EngineHost(channel, memory).run();
}
