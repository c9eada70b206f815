// SPDX-License-Identifier: Apache-2.0
#include "Sandbox.h"
#include "tests/support/ChildTest.h"

#include <QtCore/QFile>
#include <QtCore/QTemporaryFile>

#include <fcntl.h>
#include <signal.h>
#include <sys/ioctl.h>
#include <sys/mman.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <thread>

namespace velmora::test {

namespace {

int openFor(const QString &path, int flags) {
    const int file = ::open(QFile::encodeName(path).constData(), flags, 0600);
    if (file >= 0)
        ::close(file);
    return file;
}

void tryEverything(const QString &video, const QString &other, bool hasLandlock) {
    EXPECT_GE(openFor(video, O_RDONLY), 0);
    EXPECT_GE(openFor(QStringLiteral("/usr/lib/os-release"), O_RDONLY), 0);
    if (hasLandlock) {
        EXPECT_LT(openFor(other, O_RDONLY), 0) << "another file of the user";
    }
    for (const int flags : {O_WRONLY, O_RDWR, O_RDONLY | O_TRUNC, O_RDONLY | O_CREAT})
        EXPECT_LT(openFor(video, flags), 0) << flags;
    EXPECT_LT(openFor(other + QStringLiteral(".new"), O_WRONLY | O_CREAT), 0);
    EXPECT_NE(unlink(QFile::encodeName(video).constData()), 0);
    for (const int family : {AF_UNIX, AF_INET, AF_INET6, AF_NETLINK})
        EXPECT_LT(socket(family, SOCK_STREAM, 0), 0) << family;
    int pair[2];
    EXPECT_NE(socketpair(AF_UNIX, SOCK_DGRAM, 0, pair), 0) << "could send to others";
    EXPECT_LT(fork(), 0);
    EXPECT_LT(execl("/bin/true", "true", nullptr), 0);
    EXPECT_NE(kill(getppid(), 0), 0);
    EXPECT_LT(syscall(SYS_tgkill, getppid(), getppid(), 0), 0);
    EXPECT_LT(ioctl(STDOUT_FILENO, TIOCSTI, "x"), 0);
    EXPECT_EQ(errno, EPERM);
    EXPECT_EQ(mmap(nullptr, 4096, PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0),
              MAP_FAILED);
    EXPECT_LT(memfd_create("memory", 0), 0);
#if !defined(__SANITIZE_ADDRESS__) && !defined(__SANITIZE_THREAD__)
    EXPECT_EQ(mmap(nullptr, std::size_t(2) << 30, PROT_READ | PROT_WRITE,
                   MAP_PRIVATE | MAP_ANONYMOUS, -1, 0),
              MAP_FAILED);
#endif
}

} // namespace

/// Runs in a child process, because there is no way out of the sandbox.
TEST(RestrictedProcess, DISABLED_CanOnlyDecode) {
    QTemporaryFile video;
    QTemporaryFile other;
    ASSERT_TRUE(video.open());
    ASSERT_TRUE(other.open());
    ASSERT_FALSE(video.fileName().isEmpty()); // gives the file its name
    video.write("a film");
    video.flush();
    // The helper works in "/".
    ASSERT_EQ(chdir("/"), 0);
    qputenv("LD_LIBRARY_PATH", ".:/:" + qgetenv("HOME"));
    const QStringList faults = Sandbox::enter(video.handle());
    const bool hasLandlock = faults.filter(QStringLiteral("Landlock")).isEmpty();
    EXPECT_EQ(faults.size(), hasLandlock ? 0 : 1);
    tryEverything(QStringLiteral("/proc/self/fd/%1").arg(video.handle()), other.fileName(),
                  hasLandlock);
    std::thread([&] { tryEverything(video.fileName(), other.fileName(), hasLandlock); }).join();
    sayPartDone();
    _exit(::testing::Test::HasFailure() ? EXIT_FAILURE : EXIT_SUCCESS);
}

TEST(SandboxTest, TakesEveryOtherRight) {
    runChildTest(QStringLiteral("RestrictedProcess.*"), QStringLiteral("restricted"));
}

} // namespace velmora::test
