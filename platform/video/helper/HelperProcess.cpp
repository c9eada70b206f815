// SPDX-License-Identifier: Apache-2.0
#include "HelperProcess.h"

#include "VideoFiles.h"

#include <QtCore/QFile>
#include <QtCore/QFileInfo>

#include <fcntl.h>
#include <pthread.h>
#include <sched.h>
#include <signal.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <chrono>
#include <cstring>
#include <utility>
#include <vector>

namespace velmora {

namespace {

using namespace std::chrono_literals;

// A helper is ready as soon as its libraries are loaded, before it scans any plugins.
constexpr auto LongestStart = 5s;

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
    int error = 0;
};

// Runs in the child process, which shares the memory of this one until exec: only system calls.
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
__attribute__((no_sanitize("address", "thread")))
#endif
int execute(void *data) {
    auto *program = static_cast<Program *>(data);
    if (dup2(program->channel, HelperChannelFile) >= 0 &&
        dup2(program->pictures, HelperPicturesFile) >= 0 &&
        close_range(HelperPicturesFile + 1, ~0U, 0) == 0)
        execve(program->path, program->arguments.data(), environ);
    program->error = errno;
    _exit(127);
}

// As posix_spawn() does it, but with no signal to the parent when the child ends.
pid_t spawn(Program *program) {
    std::vector<char> stack(64 * 1024);
    sigset_t all;
    sigset_t before;
    sigfillset(&all);
    // No handler of the host may run in the child.
    pthread_sigmask(SIG_SETMASK, &all, &before);
    const auto top = reinterpret_cast<quintptr>(stack.data() + stack.size()) & ~quintptr(15);
    const pid_t id = clone(execute, reinterpret_cast<void *>(top), CLONE_VM | CLONE_VFORK, program);
    const int error = errno;
    pthread_sigmask(SIG_SETMASK, &before, nullptr);
    if (id < 0) {
        program->error = error;
        return -1;
    }
    if (program->error == 0)
        return id;
    waitpid(id, nullptr, __WALL);
    return -1;
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
                    copyBeyond(pictures->file())};
    errno = 0;
    const pid_t id = program.channel < 0 || program.pictures < 0 ? -1 : spawn(&program);
    const int cause = program.error;
    for (const int file : {sockets[1], program.channel, program.pictures}) {
        if (file >= 0)
            ::close(file);
    }
    if (id < 0) {
        errno = cause;
        *error = systemError(name.constData());
        return nullptr;
    }
    std::unique_ptr<HelperProcess> process(
        new HelperProcess(id, std::move(channel), std::move(pictures)));
    if (process->waitUntilReady())
        return process;
    *error = QStringLiteral("%1 does not start: %2").arg(path, process->end());
    return nullptr;
}

HelperProcess::HelperProcess(pid_t id, std::shared_ptr<HelperChannel> channel,
                             std::shared_ptr<PictureSlots> pictures)
    : m_id(id), m_channel(std::move(channel)), m_pictures(std::move(pictures)) {}

HelperProcess::~HelperProcess() {
    end();
}

bool HelperProcess::waitUntilReady() {
    HelperMessage message;
    return m_channel->waitForMessage(LongestStart) && m_channel->receive(&message) &&
           message.kind == HelperMessage::Kind::Ready;
}

QString HelperProcess::end() {
    const pid_t id = std::exchange(m_id, -1);
    if (id < 0)
        return {};
    m_channel->hangUp();
    // It ends by itself when it finds the channel closed, unless it is out of control.
    kill(id, SIGKILL);
    int status = 0;
    pid_t ended = -1;
    do
        ended = waitpid(id, &status, __WALL);
    while (ended < 0 && errno == EINTR);
    if (ended != id)
        return systemError("its end is unknown");
    if (WIFSIGNALED(status))
        return QStringLiteral("signal %1, %2")
            .arg(WTERMSIG(status))
            .arg(QString::fromLocal8Bit(strsignal(WTERMSIG(status))));
    return QStringLiteral("exit code %1").arg(WEXITSTATUS(status));
}

} // namespace velmora
