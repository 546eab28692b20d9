/// Preloaded before the C library: has one call on the file system fail, or be the program's last.
///
/// A program arms it through the two functions below, which it finds by their names.

#include <atomic>
#include <cerrno>
#include <csignal>
#include <cstdarg>
#include <dlfcn.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

std::atomic<long> calls = 0;
std::atomic<long> failing = 0; // 0 while not armed
std::atomic<int> failure = 0;  // 0 kills the program

bool isDoomed()
{
    if (failing == 0 || ++calls != failing) {
        return false;
    }
    if (failure == 0) {
        ::raise(SIGKILL);
    }
    errno = failure;
    return true;
}

mode_t modeOf(int flags, std::va_list& arguments)
{
    return (flags & O_CREAT) != 0 ? va_arg(arguments, mode_t) : 0;
}
}

#define EXPORT extern "C" __attribute__((visibility("default")))

EXPORT void armFault(long call, int error)
{
    calls = 0;
    failure = error;
    failing = call;
}

/// \return whether the call was reached
EXPORT bool disarmFault()
{
    auto const isReached = calls >= failing;
    failing = 0;
    return isReached;
}

#define SHIM(result, name, parameters, ...)                                                                            \
    EXPORT result name parameters                                                                                      \
    {                                                                                                                  \
        using Function = result(*) parameters;                                                                         \
        static auto const next = reinterpret_cast<Function>(::dlsym(RTLD_NEXT, #name));                                \
        return isDoomed() ? static_cast<result>(-1) : next(__VA_ARGS__);                                               \
    }

#define SHIM_OPEN(name, before, forwarded)                                                                             \
    EXPORT int name before                                                                                             \
    {                                                                                                                  \
        using Function = int (*)(...);                                                                                 \
        static auto const next = reinterpret_cast<Function>(::dlsym(RTLD_NEXT, #name));                                \
        std::va_list arguments;                                                                                        \
        va_start(arguments, flags);                                                                                    \
        auto const mode = modeOf(flags, arguments);                                                                    \
        va_end(arguments);                                                                                             \
        return isDoomed() ? -1 : next forwarded;                                                                       \
    }

SHIM_OPEN(open, (char const* path, int flags, ...), (path, flags, mode))
SHIM_OPEN(open64, (char const* path, int flags, ...), (path, flags, mode))
SHIM_OPEN(openat, (int folder, char const* path, int flags, ...), (folder, path, flags, mode))
SHIM_OPEN(openat64, (int folder, char const* path, int flags, ...), (folder, path, flags, mode))
SHIM(ssize_t, read, (int file, void* bytes, size_t size), file, bytes, size)
SHIM(ssize_t, pread, (int file, void* bytes, size_t size, off_t offset), file, bytes, size, offset)
SHIM(ssize_t, pread64, (int file, void* bytes, size_t size, off64_t offset), file, bytes, size, offset)
SHIM(ssize_t, write, (int file, void const* bytes, size_t size), file, bytes, size)
SHIM(ssize_t, pwrite, (int file, void const* bytes, size_t size, off_t offset), file, bytes, size, offset)
SHIM(ssize_t, pwrite64, (int file, void const* bytes, size_t size, off64_t offset), file, bytes, size, offset)
SHIM(int, fsync, (int file), file)
SHIM(int, fdatasync, (int file), file)
SHIM(int, ftruncate, (int file, off_t size), file, size)
SHIM(int, ftruncate64, (int file, off64_t size), file, size)
SHIM(int, fchmod, (int file, mode_t mode), file, mode)
SHIM(int, fchown, (int file, uid_t owner, gid_t group), file, owner, group)
SHIM(int, rename, (char const* from, char const* to), from, to)
SHIM(int, renameat, (int fromFolder, char const* from, int toFolder, char const* to), fromFolder, from, toFolder, to)
SHIM(int, link, (char const* from, char const* to), from, to)
SHIM(int, unlink, (char const* path), path)
SHIM(int, unlinkat, (int folder, char const* path, int flags), folder, path, flags)
SHIM(int, mkdir, (char const* path, mode_t mode), path, mode)
SHIM(int, stat, (char const* path, struct stat* found), path, found)
SHIM(int, fstat, (int file, struct stat* found), file, found)
SHIM(int, faccessat, (int folder, char const* path, int kind, int flags), folder, path, kind, flags)
