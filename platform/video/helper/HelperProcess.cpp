// SPDX-License-Identifier: Apache-2.0
#include "HelperProcess.h"

#include "VideoFiles.h"

#include <QtCore/QFile>

#include <fcntl.h>
#include <poll.h>
#include <pthread.h>
#include <sched.h>
#include <signal.h>
#include <sys/socket.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <chrono>
#include <cstdlib>
#include <cstring>
#include <utility>
#include <vector>

namespace velmora {

namespace {

using namespace std::chrono_literals;

// A helper is ready as soon as its libraries are loaded, before it scans any plugins.
constexpr auto LongestStart = 5s;
// A process that was killed is gone at once, unless it waits for a disk.
constexpr int LongestEndMs = 1000;

QString systemError(const char *what) {
    return QStringLiteral("%1: %2").arg(QLatin1String(what),
                                        QString::fromLocal8Bit(std::strerror(errno)));
}

// A copy of a file beyond those that the helper expects, which it is then copied to.
int copyBeyond(int file) {
    return fcntl(file, F_DUPFD_CLOEXEC, HelperPicturesFile + 1);
}

struct Program {
    const char *path;
    std::array<char *, 3> arguments;
    int channel;
    int pictures;
    /// Becomes the file that stands for the process.
    int process;
    /// Where the new processes write the number of the error when they fail.
    int errors = -1;
    char *stackTop = nullptr;
};

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
#define VELMORA_ON_OTHER_STACK __attribute__((no_sanitize("address", "thread")))
#else
#define VELMORA_ON_OTHER_STACK
#endif

#ifdef __SANITIZE_THREAD__
// The thread sanitizer does not understand processes that share their memory.
constexpr int Sharing = CLONE_VFORK;
#else
constexpr int Sharing = CLONE_VFORK | CLONE_VM;
#endif

// The functions below run in new processes that share the memory of this one, while the thread that
// has started them waits. They may only make system calls, and leave nothing in memory for it.

VELMORA_ON_OTHER_STACK void endWithError(const Program *program) {
    const int error = errno;
    [[maybe_unused]] const auto written = ::write(program->errors, &error, sizeof error);
    _exit(EXIT_FAILURE);
}

VELMORA_ON_OTHER_STACK int execute(void *data) {
    const auto *program = static_cast<Program *>(data);
    if (dup2(program->channel, HelperChannelFile) >= 0 &&
        dup2(program->pictures, HelperPicturesFile) >= 0 &&
        close_range(HelperPicturesFile + 1, ~0U, CLOSE_RANGE_CLOEXEC) == 0)
        execve(program->path, program->arguments.data(), environ);
    endWithError(program);
    return 0;
}

// Shares the open files of this process, too.
VELMORA_ON_OTHER_STACK int startAndEnd(void *data) {
    auto *program = static_cast<Program *>(data);
    int process = -1;
    if (clone(execute, program->stackTop, Sharing | CLONE_PIDFD | SIGCHLD, program, &process) < 0 ||
        dup3(process, program->process, O_CLOEXEC) < 0)
        endWithError(program);
    ::close(process);
    _exit(EXIT_SUCCESS);
}

// Starts the program in a grandchild, whose parent ends at once. That parent executes nothing, so
// it may end without a signal to this process. @return false with errno set
bool spawn(Program *program) {
    constexpr std::size_t StackSize = 64 * 1024;
    int errors[2];
    if (pipe2(errors, O_CLOEXEC) != 0)
        return false;
    program->errors = copyBeyond(errors[1]);
    ::close(errors[1]);

    std::vector<char> stacks(2 * StackSize);
    const auto top = [&stacks](std::size_t end) {
        return reinterpret_cast<char *>(reinterpret_cast<quintptr>(&stacks[end - 1]) &
                                        ~quintptr(15));
    };
    program->stackTop = top(StackSize);
    sigset_t all;
    sigset_t before;
    sigfillset(&all);
    // No handler of the host may run in the new processes.
    pthread_sigmask(SIG_SETMASK, &all, &before);
    const pid_t id = clone(startAndEnd, top(2 * StackSize), Sharing | CLONE_FILES, program);
    int error = id < 0 ? errno : 0;
    pthread_sigmask(SIG_SETMASK, &before, nullptr);
    while (id > 0 && waitpid(id, nullptr, __WALL) < 0 && errno == EINTR) {
    }
    // Otherwise the program's own copy of the pipe's end was closed by exec.
    ::close(program->errors);
    if (id > 0 && ::read(errors[0], &error, sizeof error) != ssize_t(sizeof error))
        error = 0;
    ::close(errors[0]);
    errno = error;
    return error == 0;
}

} // namespace

std::unique_ptr<HelperProcess> HelperProcess::start(QString *error) {
    const QString path =
        VideoFiles::find(QStringLiteral("velmora-video-helper"), "VELMORA_VIDEO_HELPER", error);
    if (path.isEmpty())
        return nullptr;
    auto pictures = PictureSlots::create();
    if (!pictures) {
        *error = systemError("no shared memory");
        return nullptr;
    }
    int sockets[2];
    if (socketpair(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC, 0, sockets) != 0) {
        *error = systemError("no socket");
        return nullptr;
    }
    auto channel = std::make_shared<HelperChannel>(sockets[0], HelperChannel::WhenFull::Drops);

    QByteArray name = QFile::encodeName(path);
    QByteArray version = HelperVersion;
    Program program{name.constData(),
                    {name.data(), version.data(), nullptr},
                    copyBeyond(sockets[1]),
                    copyBeyond(pictures->file()),
                    copyBeyond(sockets[1])};
    const bool hasFiles = program.channel >= 0 && program.pictures >= 0 && program.process >= 0;
    const bool isStarted = hasFiles && spawn(&program);
    if (!isStarted)
        *error = systemError(name.constData());
    for (const int file :
         {sockets[1], program.channel, program.pictures, isStarted ? -1 : program.process}) {
        if (file >= 0)
            ::close(file);
    }
    if (!isStarted)
        return nullptr;
    std::unique_ptr<HelperProcess> process(
        new HelperProcess(program.process, std::move(channel), std::move(pictures)));
    if (process->waitUntilReady())
        return process;
    *error = QStringLiteral("%1 does not start").arg(path);
    return nullptr;
}

HelperProcess::HelperProcess(int process, std::shared_ptr<HelperChannel> channel,
                             std::shared_ptr<PictureSlots> pictures)
    : m_process(process), m_channel(std::move(channel)), m_pictures(std::move(pictures)) {}

HelperProcess::~HelperProcess() {
    end();
}

bool HelperProcess::waitUntilReady() {
    HelperMessage message;
    return m_channel->waitForMessage(LongestStart) && m_channel->receive(&message) &&
           message.kind == HelperMessage::Kind::Ready;
}

void HelperProcess::end() {
    const int process = std::exchange(m_process, -1);
    if (process < 0)
        return;
    m_channel->hangUp();
    // It ends by itself when it finds the channel closed, unless it is out of control.
    syscall(SYS_pidfd_send_signal, process, SIGKILL, nullptr, 0);
    pollfd entry{process, POLLIN, 0};
    while (::poll(&entry, 1, LongestEndMs) < 0 && errno == EINTR) {
    }
    // Only where it has become a child of the host, which is then the first process of a container.
    siginfo_t ignored{};
    waitid(P_PIDFD, id_t(process), &ignored, WEXITED | WNOHANG | __WALL);
    ::close(process);
}

} // namespace velmora
