// SPDX-License-Identifier: Apache-2.0
#include "Sandbox.h"

#include <QtCore/QByteArray>
#include <QtCore/QList>

#include <fcntl.h>
#include <linux/landlock.h>
#include <sched.h>
#include <seccomp.h>
#include <sys/ioctl.h>
#include <sys/mman.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <climits>
#include <cstdlib>
#include <cstring>
#include <memory>

namespace velmora {

namespace {

// The largest film accepted (4096x2304, H.264 with 16 reference pictures) takes about 400 MB.
constexpr rlim_t MostMemory = rlim_t(1) << 30;

constexpr quint64 Reading =
    LANDLOCK_ACCESS_FS_EXECUTE | LANDLOCK_ACCESS_FS_READ_FILE | LANDLOCK_ACCESS_FS_READ_DIR;
constexpr quint64 AllAccess =
    Reading | LANDLOCK_ACCESS_FS_WRITE_FILE | LANDLOCK_ACCESS_FS_REMOVE_DIR |
    LANDLOCK_ACCESS_FS_REMOVE_FILE | LANDLOCK_ACCESS_FS_MAKE_CHAR | LANDLOCK_ACCESS_FS_MAKE_DIR |
    LANDLOCK_ACCESS_FS_MAKE_REG | LANDLOCK_ACCESS_FS_MAKE_SOCK | LANDLOCK_ACCESS_FS_MAKE_FIFO |
    LANDLOCK_ACCESS_FS_MAKE_BLOCK | LANDLOCK_ACCESS_FS_MAKE_SYM;

// Folders that a variable lists. Not the user's home, nor what contains it.
QList<QByteArray> foldersIn(const char *variable) {
    const QByteArray home = qgetenv("HOME") + '/';
    QList<QByteArray> folders;
    for (const QByteArray &folder : qgetenv(variable).split(':')) {
        std::array<char, PATH_MAX> path{};
        if (!folder.startsWith('/') || !realpath(folder.constData(), path.data()))
            continue;
        const QByteArray whole = QByteArray(path.data()) + '/';
        if (whole != "//" && !home.startsWith(whole))
            folders << folder;
    }
    return folders;
}

// Where systems have their libraries, and the media framework its plugins.
QList<QByteArray> readableFolders() {
    QList<QByteArray> folders{"/usr", "/lib", "/lib32", "/lib64", "/opt",
                              "/app", "/nix", "/gnu",   "/snap",  "/sys/devices/system/cpu"};
    for (const char *variable : {"GST_PLUGIN_PATH", "GST_PLUGIN_PATH_1_0", "GST_PLUGIN_SYSTEM_PATH",
                                 "GST_PLUGIN_SYSTEM_PATH_1_0", "LD_LIBRARY_PATH"})
        folders += foldersIn(variable);
    return folders;
}

class Ruleset {
public:
    Ruleset() {
        const landlock_ruleset_attr attributes{AllAccess};
        m_file = int(syscall(SYS_landlock_create_ruleset, &attributes, sizeof attributes, 0));
    }
    ~Ruleset() {
        if (m_file >= 0)
            ::close(m_file);
    }
    Ruleset(const Ruleset &) = delete;
    Ruleset &operator=(const Ruleset &) = delete;

    void allow(const QByteArray &path, quint64 access) {
        const int file = path.isEmpty() ? -1 : ::open(path.constData(), O_PATH | O_CLOEXEC);
        if (file < 0)
            return;
        allow(file, access);
        ::close(file);
    }

    void allow(int file, quint64 access) {
        const landlock_path_beneath_attr attributes{access, file};
        syscall(SYS_landlock_add_rule, m_file, LANDLOCK_RULE_PATH_BENEATH, &attributes, 0);
    }

    bool apply() {
        return m_file >= 0 && prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) == 0 &&
               syscall(SYS_landlock_restrict_self, m_file, 0) == 0;
    }

private:
    int m_file = -1;
};

struct FilterDeleter {
    void operator()(void *filter) const { seccomp_release(filter); }
};

// What decoding, playing sound and the C library call. Anything else fails as "not permitted".
constexpr const char *AllowedCalls[] = {
    // Memory
    "brk", "madvise", "mprotect", "mremap", "munmap", "mlock", "munlock", "membarrier",
    "get_mempolicy",
    // Threads
    "futex", "futex_time64", "get_robust_list", "set_robust_list", "rseq", "gettid", "getpid",
    "getppid", "sched_getaffinity", "sched_getparam", "sched_getscheduler", "sched_yield",
    "sched_getattr", "sched_get_priority_max", "sched_get_priority_min", "getcpu", "exit",
    "exit_group", "restart_syscall", "set_tid_address", "sigaltstack", "rt_sigaction",
    "rt_sigprocmask", "rt_sigreturn", "umask",
    // Time
    "clock_getres", "clock_gettime", "clock_gettime64", "clock_nanosleep", "clock_nanosleep_time64",
    "gettimeofday", "nanosleep", "time", "timerfd_create", "timerfd_settime", "timerfd_gettime",
    // Open files, messages of those sockets that are connected
    "close", "dup", "dup2", "dup3", "epoll_create1", "epoll_ctl", "epoll_pwait", "epoll_wait",
    "eventfd2", "pipe2", "poll", "ppoll", "ppoll_time64", "pread64", "pselect6", "read", "readv",
    "select", "write", "writev", "lseek", "_llseek", "recvfrom", "recvmsg", "sendmsg", "shutdown",
    "getsockname", "getpeername", "getsockopt", "setsockopt",
    // Looking at files
    "access", "faccessat", "faccessat2", "fstat", "fstat64", "fstatfs", "fstatfs64", "getcwd",
    "getdents64", "lstat", "newfstatat", "readlink", "readlinkat", "stat", "stat64", "statfs",
    "statx",
    // Facts
    "getegid", "geteuid", "getgid", "getrandom", "getrlimit", "getrusage", "getuid", "sysinfo",
    "uname", "prctl", "arch_prctl"};

constexpr scmp_datum_t SocketType = 0xf;

scmp_arg_cmp equals(unsigned argument, scmp_datum_t value) {
    return {argument, SCMP_CMP_EQ, value, 0};
}

scmp_arg_cmp masked(unsigned argument, scmp_datum_t mask, scmp_datum_t value) {
    return {argument, SCMP_CMP_MASKED_EQ, mask, value};
}

bool allowCalls(scmp_filter_ctx filter) {
    bool isComplete = true;
    const auto add = [&](const char *name, auto... conditions) {
        const int number = seccomp_syscall_resolve_name(name);
        // A name that this architecture, or this version of the library, does not know.
        if (number == __NR_SCMP_ERROR)
            return;
        const int added =
            seccomp_rule_add(filter, SCMP_ACT_ALLOW, number, sizeof...(conditions), conditions...);
        isComplete = isComplete && (added == 0 || added == -EDOM);
    };
    for (const char *name : AllowedCalls)
        add(name);
    // No memory that the limit does not count.
    for (const char *name : {"mmap", "mmap2"}) {
        add(name, masked(3, MAP_ANONYMOUS, 0));
        add(name, masked(3, MAP_TYPE, MAP_PRIVATE));
    }
    // No sockets that can send to others: a datagram socket needs no connection.
    for (const int type : {SOCK_STREAM, SOCK_SEQPACKET})
        add("socketpair", masked(1, SocketType, scmp_datum_t(type)));
    add("sendto", equals(4, 0));
    // Only for reading.
    constexpr scmp_datum_t Writing = O_ACCMODE | O_CREAT | O_TRUNC;
    add("open", masked(1, Writing, O_RDONLY));
    add("openat", masked(2, Writing, O_RDONLY));
    // Settings of open files; not to whom they send signals, nor what is typed into a terminal.
    for (const int command :
         {F_DUPFD, F_DUPFD_CLOEXEC, F_GETFD, F_SETFD, F_GETFL, F_SETFL, F_ADD_SEALS, F_GET_SEALS}) {
        add("fcntl", equals(1, scmp_datum_t(command)));
        add("fcntl64", equals(1, scmp_datum_t(command)));
    }
    for (const scmp_datum_t request : {TCGETS, FIONREAD, FIONBIO})
        add("ioctl", equals(1, request));
    for (const char soundDevice : {'A', 'U'})
        add("ioctl", masked(1, 0xff00, scmp_datum_t(soundDevice) << 8));
    // This process only.
    add("tgkill", equals(0, scmp_datum_t(getpid())));
    add("prlimit64", equals(0, 0));
    // Threads, no processes. The arguments of clone3 can't be checked, and without it clone is
    // used.
    add("clone", masked(0, CLONE_THREAD, CLONE_THREAD));
    isComplete = isComplete && seccomp_rule_add(filter, SCMP_ACT_ERRNO(ENOSYS),
                                                seccomp_syscall_resolve_name("clone3"), 0) == 0;
    return isComplete;
}

bool restrictFiles(int video) {
    Ruleset rules;
    for (const QByteArray &folder : readableFolders())
        rules.allow(folder, Reading);
    for (const char *file : {"/etc/ld.so.cache", "/dev/null", "/dev/urandom"})
        rules.allow(file, LANDLOCK_ACCESS_FS_READ_FILE);
    rules.allow(video, LANDLOCK_ACCESS_FS_READ_FILE);
    return rules.apply();
}

bool restrictSystemCalls() {
    const std::unique_ptr<void, FilterDeleter> filter(seccomp_init(SCMP_ACT_ERRNO(EPERM)));
    return filter && seccomp_attr_set(filter.get(), SCMP_FLTATR_CTL_TSYNC, 1) == 0 &&
           allowCalls(filter.get()) && seccomp_load(filter.get()) == 0;
}

void limitResources() {
    // The sanitizers reserve terabytes.
#if !defined(__SANITIZE_ADDRESS__) && !defined(__SANITIZE_THREAD__)
    const rlimit memory{MostMemory, MostMemory};
    setrlimit(RLIMIT_DATA, &memory);
#endif
    const rlimit none{0, 0};
    setrlimit(RLIMIT_CORE, &none);
}

} // namespace

QStringList Sandbox::enter(int video) {
    QStringList faults;
    limitResources();
    if (!restrictFiles(video))
        faults << QStringLiteral("the video helper may read any file: the system has no Landlock");
    if (!restrictSystemCalls())
        faults << QStringLiteral("the video helper may call anything: the system has no seccomp");
    return faults;
}

} // namespace velmora
