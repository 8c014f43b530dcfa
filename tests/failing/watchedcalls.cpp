/// The system's calls, as the program's libraries find them: a program's own symbols come before those of the
/// libraries. Each asks the watched folder, when there is one, how it is to go, and otherwise passes on.
///
/// The functions have names of their own and are bound to the system's names by the assembler, so that they
/// meet neither the declarations nor the checking wrappers of the system's headers.

#include "failing/watchedfolder.h"

#include <algorithm>
#include <cerrno>
#include <cstdarg>
#include <dlfcn.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/types.h>

namespace ovrano::failing {

namespace {

struct Name {
    const char* text;
};

/// The function that would have been called without this file.
template<typename Function>
Function* next(Name name) {
    return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name.text));
}

void dieWhenLast(const Outcome& outcome) {
    if (outcome.isLast)
        killProgram();
}

/// A call on a path or a descriptor whose failure is told by `failed`.
template<typename Result, typename Where, typename Real>
Result ask(Call call, const Where& where, Result failed, Real&& real) {
    WatchedFolder* const folder = WatchedFolder::current();
    if (!folder || !folder->concerns(where))
        return real();
    Step step{call, {}, 0};
    if constexpr (std::is_same_v<Where, int>)
        step.path = folder->pathOf(where);
    else
        step.path = where;
    const Outcome outcome = folder->decide(std::move(step));
    if (outcome.error != 0) {
        errno = outcome.error;
        return failed;
    }
    const Result result = real();
    dieWhenLast(outcome);
    return result;
}

/// A call that nothing may come of.
template<typename Real>
int leave(const char* what, Real&& real) {
    WatchedFolder* const folder = WatchedFolder::current();
    if (!folder)
        return real();
    folder->decide({Call::Outside, what, 0});
    errno = EACCES;
    return -1;
}

template<typename Real>
int openWatched(const char* path, Real&& real) {
    const int descriptor = ask(Call::Open, path, -1, real);
    WatchedFolder* const folder = WatchedFolder::current();
    if (folder && descriptor >= 0 && folder->concerns(path))
        folder->opened(descriptor, path);
    return descriptor;
}

} // namespace

extern "C" {

using Open = int(const char*, int, ...);
using OpenAt = int(int, const char*, int, ...);

#define OVRANO_MODE_OF(last)                                                                                 \
    va_list arguments;                                                                                       \
    va_start(arguments, last);                                                                               \
    const mode_t mode = (last & O_CREAT) != 0 ? va_arg(arguments, mode_t) : 0;                               \
    va_end(arguments)

int watchedOpen(const char* path, int flags, ...) __asm__("open");
int watchedOpen(const char* path, int flags, ...) {
    OVRANO_MODE_OF(flags);
    return openWatched(path, [&] { return next<Open>({"open"})(path, flags, mode); });
}

int watchedOpen64(const char* path, int flags, ...) __asm__("open64");
int watchedOpen64(const char* path, int flags, ...) {
    OVRANO_MODE_OF(flags);
    return openWatched(path, [&] { return next<Open>({"open64"})(path, flags, mode); });
}

int watchedOpenAt(int folder, const char* path, int flags, ...) __asm__("openat");
int watchedOpenAt(int folder, const char* path, int flags, ...) {
    OVRANO_MODE_OF(flags);
    return openWatched(path, [&] { return next<OpenAt>({"openat"})(folder, path, flags, mode); });
}

int watchedOpenAt64(int folder, const char* path, int flags, ...) __asm__("openat64");
int watchedOpenAt64(int folder, const char* path, int flags, ...) {
    OVRANO_MODE_OF(flags);
    return openWatched(path, [&] { return next<OpenAt>({"openat64"})(folder, path, flags, mode); });
}

ssize_t watchedWrite(int descriptor, const void* bytes, size_t count) __asm__("write");
ssize_t watchedWrite(int descriptor, const void* bytes, size_t count) {
    auto* const real = next<ssize_t(int, const void*, size_t)>({"write"});
    WatchedFolder* const folder = WatchedFolder::current();
    if (!folder || !folder->concerns(descriptor))
        return real(descriptor, bytes, count);
    const Outcome outcome = folder->decide({Call::Write, folder->pathOf(descriptor), count});
    if (outcome.error != 0) {
        errno = outcome.error;
        return -1;
    }
    const ssize_t written = real(descriptor, bytes, std::min(count, outcome.mostBytes));
    dieWhenLast(outcome);
    return written;
}

ssize_t watchedRead(int descriptor, void* bytes, size_t count) __asm__("read");
ssize_t watchedRead(int descriptor, void* bytes, size_t count) {
    return ask(Call::Read, descriptor, ssize_t{-1},
               [&] { return next<ssize_t(int, void*, size_t)>({"read"})(descriptor, bytes, count); });
}

int watchedClose(int descriptor) __asm__("close");
int watchedClose(int descriptor) {
    auto* const real = next<int(int)>({"close"});
    WatchedFolder* const folder = WatchedFolder::current();
    if (!folder || !folder->concerns(descriptor))
        return real(descriptor);
    const Outcome outcome = folder->decide({Call::Close, folder->pathOf(descriptor), 0});
    folder->closed(descriptor);
    const int result = real(descriptor); // the descriptor goes in any case
    dieWhenLast(outcome);
    errno = outcome.error;
    return outcome.error != 0 ? -1 : result;
}

int watchedSync(int descriptor) __asm__("fsync");
int watchedSync(int descriptor) {
    return ask(Call::Sync, descriptor, -1, [&] { return next<int(int)>({"fsync"})(descriptor); });
}

int watchedRename(const char* from, const char* to) __asm__("rename");
int watchedRename(const char* from, const char* to) {
    return ask(Call::Rename, from, -1,
               [&] { return next<int(const char*, const char*)>({"rename"})(from, to); });
}

int watchedRenameAt2(int a, const char* from, int b, const char* to, unsigned flags) __asm__("renameat2");
int watchedRenameAt2(int a, const char* from, int b, const char* to, unsigned flags) {
    return ask(Call::Rename, from, -1, [&] {
        return next<int(int, const char*, int, const char*, unsigned)>({"renameat2"})(a, from, b, to, flags);
    });
}

int watchedRemove(const char* path) __asm__("remove");
int watchedRemove(const char* path) {
    return ask(Call::Remove, path, -1, [&] { return next<int(const char*)>({"remove"})(path); });
}

int watchedUnlink(const char* path) __asm__("unlink");
int watchedUnlink(const char* path) {
    return ask(Call::Remove, path, -1, [&] { return next<int(const char*)>({"unlink"})(path); });
}

int watchedChmod(const char* path, mode_t mode) __asm__("chmod");
int watchedChmod(const char* path, mode_t mode) {
    return ask(Call::Permissions, path, -1,
               [&] { return next<int(const char*, mode_t)>({"chmod"})(path, mode); });
}

int watchedFchmod(int descriptor, mode_t mode) __asm__("fchmod");
int watchedFchmod(int descriptor, mode_t mode) {
    return ask(Call::Permissions, descriptor, -1,
               [&] { return next<int(int, mode_t)>({"fchmod"})(descriptor, mode); });
}

int watchedAccess(const char* path, int mode) __asm__("access");
int watchedAccess(const char* path, int mode) {
    return ask(Call::Look, path, -1, [&] { return next<int(const char*, int)>({"access"})(path, mode); });
}

int watchedStat(const char* path, struct stat* status) __asm__("stat");
int watchedStat(const char* path, struct stat* status) {
    return ask(Call::Look, path, -1,
               [&] { return next<int(const char*, struct stat*)>({"stat"})(path, status); });
}

int watchedLstat(const char* path, struct stat* status) __asm__("lstat");
int watchedLstat(const char* path, struct stat* status) {
    return ask(Call::Look, path, -1,
               [&] { return next<int(const char*, struct stat*)>({"lstat"})(path, status); });
}

int watchedStatx(int folder, const char* path, int flags, unsigned mask,
                 struct statx* status) __asm__("statx");
int watchedStatx(int folder, const char* path, int flags, unsigned mask, struct statx* status) {
    const auto real = [&] {
        return next<int(int, const char*, int, unsigned, struct statx*)>({"statx"})(folder, path, flags, mask,
                                                                                    status);
    };
    return path && *path == '\0' ? ask(Call::Look, folder, -1, real) : ask(Call::Look, path, -1, real);
}

char* watchedRealpath(const char* path, char* resolved) __asm__("realpath");
char* watchedRealpath(const char* path, char* resolved) {
    return ask(Call::Look, path, static_cast<char*>(nullptr),
               [&] { return next<char*(const char*, char*)>({"realpath"})(path, resolved); });
}

ssize_t watchedReadlink(const char* path, char* target, size_t size) __asm__("readlink");
ssize_t watchedReadlink(const char* path, char* target, size_t size) {
    return ask(Call::Look, path, ssize_t{-1},
               [&] { return next<ssize_t(const char*, char*, size_t)>({"readlink"})(path, target, size); });
}

int watchedSocket(int domain, int type, int protocol) __asm__("socket");
int watchedSocket(int domain, int type, int protocol) {
    return leave("socket", [&] { return next<int(int, int, int)>({"socket"})(domain, type, protocol); });
}

int watchedExecve(const char* path, char* const* arguments, char* const* environment) __asm__("execve");
int watchedExecve(const char* path, char* const* arguments, char* const* environment) {
    return leave("execve", [&] {
        return next<int(const char*, char* const*, char* const*)>({"execve"})(path, arguments, environment);
    });
}

pid_t watchedFork() __asm__("fork");
pid_t watchedFork() {
    return leave("fork", [] { return next<pid_t()>({"fork"})(); });
}

} // extern "C"

} // namespace ovrano::failing
