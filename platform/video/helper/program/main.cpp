// SPDX-License-Identifier: Apache-2.0
// Plays one video for the library, which starts this program: decodes it in a process that may do
// little else, and puts the pictures into memory that both share.

#include "EngineHost.h"

#include <fcntl.h>
#include <signal.h>
#include <unistd.h>

#include <cstdlib>
#include <cstring>

namespace {

using velmora::HelperChannel;
using velmora::HelperMessage;

HelperChannel *s_channel = nullptr;
HelperMessage s_lastWords;

// Tells the library why its video ends. No core is dumped and no crash reporter asks the user
// anything: what crashes is a decoder that is not ours, on a file from a server.
void sayLastWords(int signal) {
    s_lastWords.slot = signal;
    s_channel->send(s_lastWords);
    _exit(EXIT_FAILURE);
}

void catchCrashes() {
    s_lastWords.kind = HelperMessage::Kind::Crashed;
    struct sigaction action {};
    action.sa_handler = sayLastWords;
    action.sa_flags = SA_ONSTACK;
    for (const int signal : {SIGABRT, SIGBUS, SIGFPE, SIGILL, SIGSEGV, SIGSYS})
        sigaction(signal, &action, nullptr);
}

// What is typed or piped into the host is not for the helper. Warnings of the media framework go
// where the host's go.
void detachStandardFiles() {
    const int nothing = open("/dev/null", O_RDWR | O_CLOEXEC);
    for (const int file : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
        if (file != STDERR_FILENO || fcntl(file, F_GETFD) < 0)
            dup2(nothing, file);
    }
}

} // namespace

int main(int argc, char **argv) {
    using namespace velmora;
    if (argc != 2 || std::strcmp(argv[1], HelperVersion) != 0)
        return EXIT_FAILURE;
    detachStandardFiles();
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
    s_channel = &channel;
    catchCrashes();
    SlotMemory memory(pictures);
    EngineHost(channel, memory).run();
}
