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

#include <algorithm>
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

// A copy of a file beyond those that the helper expects, which it is then copied to.
FileDescriptor copyBeyond(const FileDescriptor &file) {
    return FileDescriptor(fcntl(file.get(), F_DUPFD_CLOEXEC, LastHelperFile + 1));
}

struct Program {
    const char *path;
    std::array<char *, 3> arguments;
    int channel;
    int pictures;
    int host;
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
        dup2(program->host, HelperHostFile) >= 0 &&
        close_range(LastHelperFile + 1, ~0U, CLOSE_RANGE_CLOEXEC) == 0)
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
// it may end without a signal to this process. @return 0 or the number of the error
int spawn(Program *program) {
    constexpr std::size_t StackSize = 64 * 1024;
    int ends[2];
    // Never waits: what is written is there when clone() returns, and a process that another thread
    // forks meanwhile may keep the other end open.
    if (pipe2(ends, O_CLOEXEC | O_NONBLOCK) != 0)
        return errno;
    const FileDescriptor reading(ends[0]);
    const FileDescriptor writing = copyBeyond(FileDescriptor(ends[1]));
    program->errors = writing.get();

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
    const int refusal = errno;
    pthread_sigmask(SIG_SETMASK, &before, nullptr);
    if (id < 0)
        return refusal;
    while (waitpid(id, nullptr, __WALL) < 0 && errno == EINTR) {
    }
    int error = 0;
    return ::read(reading.get(), &error, sizeof error) == ssize_t(sizeof error) ? error : 0;
}

// Errors that come again each time: there is no helper, it may not be executed here (a confinement,
// a file system for data), or the system lacks what this needs.
bool isImpossible(int error) {
    constexpr std::array Errors{ENOENT, EACCES, EPERM, ENOSYS, EINVAL};
    return std::find(Errors.begin(), Errors.end(), error) != Errors.end();
}

} // namespace

HelperStart HelperProcess::start() {
    const auto failure = [](const QString &what, int number) {
        return HelperStart{
            nullptr,
            QStringLiteral("%1: %2").arg(what, QString::fromLocal8Bit(std::strerror(number))),
            isImpossible(number)};
    };
    QString missing;
    const QString path =
        VideoFiles::find(QStringLiteral("velmora-video-helper"), "VELMORA_VIDEO_HELPER", &missing);
    if (path.isEmpty())
        return {nullptr, missing, true};
    auto pictures = PictureSlots::create();
    if (!pictures)
        return failure(QStringLiteral("no shared memory"), errno);
    int sockets[2];
    if (socketpair(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC, 0, sockets) != 0)
        return failure(QStringLiteral("no socket"), errno);
    auto channel = std::make_shared<HelperChannel>(sockets[0], HelperChannel::WhenFull::Drops);
    const FileDescriptor helpersEnd = copyBeyond(FileDescriptor(sockets[1]));
    const FileDescriptor memory(fcntl(pictures->file(), F_DUPFD_CLOEXEC, LastHelperFile + 1));
    const FileDescriptor self(int(syscall(SYS_pidfd_open, getpid(), 0)));
    if (!self.isOpen())
        return failure(QStringLiteral("no file descriptor of the process"), errno);
    const FileDescriptor host = copyBeyond(self);
    FileDescriptor process = copyBeyond(helpersEnd); // keeps the number free
    if (!helpersEnd.isOpen() || !memory.isOpen() || !host.isOpen() || !process.isOpen())
        return failure(QStringLiteral("no file descriptor"), errno);

    QByteArray name = QFile::encodeName(path);
    QByteArray version = HelperVersion;
    Program program{name.constData(), {name.data(), version.data(), nullptr},
                    helpersEnd.get(), memory.get(),
                    host.get(),       process.get()};
    if (const int error = spawn(&program))
        return failure(path, error);
    std::unique_ptr<HelperProcess> helper(
        new HelperProcess(std::move(process), std::move(channel), std::move(pictures)));
    if (helper->waitUntilReady())
        return {std::move(helper), {}, false};
    return {nullptr, QStringLiteral("%1 does not start").arg(path), false};
}

HelperProcess::HelperProcess(FileDescriptor process, std::shared_ptr<HelperChannel> channel,
                             std::shared_ptr<PictureSlots> pictures)
    : m_process(std::move(process)),
      m_channel(std::move(channel)),
      m_pictures(std::move(pictures)) {}

HelperProcess::~HelperProcess() {
    end();
}

bool HelperProcess::waitUntilReady() {
    HelperMessage message;
    return m_channel->waitForMessage(LongestStart) && m_channel->receive(&message) &&
           message.kind == HelperMessage::Kind::Ready;
}

void HelperProcess::end() {
    if (!m_process.isOpen())
        return;
    m_channel->hangUp();
    // It ends by itself when it finds the channel closed, unless it is out of control.
    syscall(SYS_pidfd_send_signal, m_process.get(), SIGKILL, nullptr, 0);
    pollfd entry{m_process.get(), POLLIN, 0};
    while (::poll(&entry, 1, LongestEndMs) < 0 && errno == EINTR) {
    }
    // Only where it has become a child of the host, which is then the first process of a container.
    siginfo_t ignored{};
    waitid(P_PIDFD, id_t(m_process.get()), &ignored, WEXITED | WNOHANG | __WALL);
    m_process.reset();
}

} // namespace velmora
