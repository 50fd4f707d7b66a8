// Loaded into a program before the C library, makes one of the system calls that it asks for fail.
// The environment says which, and how:
//
//     FAILING_CALL     its number, counted from 1 over all calls below
//     FAILING_HOW      an error's number; or "short": reads and writes half
//     FAILING_ON       "1" when every call after it fails, too, as on a disk that is gone
//     FAILING_COUNTER  a file of four bytes, in which the calls are counted
//
// What would never be interrupted is not, and what has no half is done whole.
#include <dirent.h>
#include <dlfcn.h>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <cstdarg>
#include <cstdlib>
#include <type_traits>

namespace {

struct Plan {
    std::atomic<unsigned>* counter = nullptr;
    unsigned call = 0;
    int error = 0; // 0: only half
    bool goesOn = false;
};

Plan plan;

[[gnu::constructor]] void begin()
{
    const char* const path = std::getenv("FAILING_COUNTER");
    const char* const how = std::getenv("FAILING_HOW");
    const int file = path ? ::open(path, O_RDWR | O_CLOEXEC) : -1;
    if (file < 0 || !how)
        std::abort();
    void* const memory =
        ::mmap(nullptr, sizeof(unsigned), PROT_READ | PROT_WRITE, MAP_SHARED, file, 0);
    if (memory == MAP_FAILED)
        std::abort();
    ::close(file);
    plan.call = static_cast<unsigned>(std::strtoul(std::getenv("FAILING_CALL"), nullptr, 10));
    plan.error = std::atoi(how); // 0 for "short"
    plan.goesOn = std::getenv("FAILING_ON") != nullptr;
    plan.counter = static_cast<std::atomic<unsigned>*>(memory); // from here on calls are counted
}

bool isDue()
{
    if (!plan.counter)
        return false;
    const unsigned number = ++*plan.counter;
    return number == plan.call || (plan.goesOn && number > plan.call);
}

template <typename Result, typename... Arguments>
Result next(const char* name, Arguments... arguments)
{
    return reinterpret_cast<Result (*)(Arguments...)>(::dlsym(RTLD_NEXT, name))(arguments...);
}

// Calls the C library's function of that name, unless it is this call's turn to fail: a slow one,
// which a signal may interrupt.
template <typename Result, typename... Arguments>
Result slow(const char* name, Arguments... arguments)
{
    if (!isDue() || plan.error == 0)
        return next<Result>(name, arguments...);
    errno = plan.error;
    if constexpr (std::is_pointer_v<Result>)
        return nullptr;
    else
        return -1;
}

// The same for one that nothing interrupts.
template <typename Result, typename... Arguments>
Result fast(const char* name, Arguments... arguments)
{
    if (plan.error != EINTR)
        return slow<Result>(name, arguments...);
    isDue(); // counts it
    return next<Result>(name, arguments...);
}

// The same for a slow one that may be done in part.
template <typename Buffer, typename... Rest>
ssize_t part(const char* name, int file, Buffer* buffer, size_t count, Rest... rest)
{
    if (isDue()) {
        if (plan.error != 0) {
            errno = plan.error;
            return -1;
        }
        count = count > 1 ? count / 2 : count;
    }
    return next<ssize_t>(name, file, buffer, count, rest...);
}

mode_t modeOf(int flags, va_list rest)
{
    return (flags & O_CREAT) != 0 ? va_arg(rest, mode_t) : 0;
}

}

extern "C" {

int open(const char* path, int flags, ...)
{
    va_list rest;
    va_start(rest, flags);
    const mode_t mode = modeOf(flags, rest);
    va_end(rest);
    return slow<int>("open", path, flags, mode);
}
int openat(int folder, const char* path, int flags, ...)
{
    va_list rest;
    va_start(rest, flags);
    const mode_t mode = modeOf(flags, rest);
    va_end(rest);
    return slow<int>("openat", folder, path, flags, mode);
}

// Whatever it says, the file is closed.
int close(int file)
{
    const int result = next<int>("close", file);
    if (!isDue() || plan.error == 0 || plan.error == EINTR)
        return result;
    errno = plan.error;
    return -1;
}

// clang-format off
using Status = struct stat;
ssize_t read(int file, void* to, size_t n)            { return part("read", file, to, n); }
ssize_t pread(int file, void* to, size_t n, off_t at) { return part("pread", file, to, n, at); }
ssize_t write(int file, const void* from, size_t n)   { return part("write", file, from, n); }

int fsync(int file)                          { return slow<int>("fsync", file); }
int fdatasync(int file)                      { return slow<int>("fdatasync", file); }
int ftruncate(int file, off_t size) noexcept { return slow<int>("ftruncate", file, size); }
int flock(int file, int what) noexcept       { return slow<int>("flock", file, what); }
DIR* opendir(const char* path)               { return slow<DIR*>("opendir", path); }

dirent* readdir(DIR* folder)                          { return fast<dirent*>("readdir", folder); }
int stat(const char* path, Status* to) noexcept       { return fast<int>("stat", path, to); }
int lstat(const char* path, Status* to) noexcept      { return fast<int>("lstat", path, to); }
int fstat(int file, Status* to) noexcept              { return fast<int>("fstat", file, to); }
int mkdir(const char* path, mode_t mode) noexcept     { return fast<int>("mkdir", path, mode); }
int fchmod(int file, mode_t mode) noexcept            { return fast<int>("fchmod", file, mode); }
int rename(const char* from, const char* to) noexcept { return fast<int>("rename", from, to); }
int unlink(const char* path) noexcept                 { return fast<int>("unlink", path); }
int remove(const char* path) noexcept                 { return fast<int>("remove", path); }
char* realpath(const char* path, char* to) noexcept
{
    return fast<char*>("realpath", path, to);
}
ssize_t readlink(const char* path, char* to, size_t size) noexcept
{
    return fast<ssize_t>("readlink", path, to, size);
}
int fstatat(int folder, const char* path, Status* to, int flags) noexcept
{
    return fast<int>("fstatat", folder, path, to, flags);
}
// clang-format on
}
