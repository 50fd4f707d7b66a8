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
#include <cstring>
#include <type_traits>

namespace {

struct Plan {
    std::atomic<unsigned>* counter = nullptr;
    unsigned call = 0;
    int error = 0; // 0: only half
    bool goesOn = false;
};

Plan readPlan()
{
    Plan plan;
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
    plan.error =
        std::strcmp(how, "short") == 0 ? 0 : static_cast<int>(std::strtol(how, nullptr, 10));
    plan.goesOn = std::getenv("FAILING_ON") != nullptr;
    plan.counter = static_cast<std::atomic<unsigned>*>(memory); // from here on calls are counted
    return plan;
}

Plan plan;

[[gnu::constructor]] void begin()
{
    plan = readPlan();
}

bool isDue()
{
    if (!plan.counter)
        return false;
    const unsigned number = ++*plan.counter;
    return number == plan.call || (plan.goesOn && number > plan.call);
}

enum class Interruption { possible, impossible };

template <typename Result, typename... Arguments>
Result next(const char* name, Arguments... arguments)
{
    return reinterpret_cast<Result (*)(Arguments...)>(::dlsym(RTLD_NEXT, name))(arguments...);
}

template <typename Result>
Result failed()
{
    if constexpr (std::is_pointer_v<Result>)
        return nullptr;
    else
        return -1;
}

// Calls the C library's function of that name, unless it is this call's turn to fail.
template <typename Result, typename... Arguments>
Result call(Interruption interruption, const char* name, Arguments... arguments)
{
    const bool fails = isDue() && plan.error != 0 &&
                       (plan.error != EINTR || interruption == Interruption::possible);
    if (!fails)
        return next<Result>(name, arguments...);
    errno = plan.error;
    return failed<Result>();
}

// The same for what may be done in part.
template <typename Buffer, typename... Rest>
ssize_t transfer(const char* name, int file, Buffer* buffer, size_t count, Rest... rest)
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

mode_t modeOf(int flags, va_list arguments)
{
    return (flags & O_CREAT) != 0 ? va_arg(arguments, mode_t) : 0;
}

}

extern "C" {

int open(const char* path, int flags, ...)
{
    va_list arguments;
    va_start(arguments, flags);
    const mode_t mode = modeOf(flags, arguments);
    va_end(arguments);
    return call<int>(Interruption::possible, "open", path, flags, mode);
}
int openat(int folder, const char* path, int flags, ...)
{
    va_list arguments;
    va_start(arguments, flags);
    const mode_t mode = modeOf(flags, arguments);
    va_end(arguments);
    return call<int>(Interruption::possible, "openat", folder, path, flags, mode);
}

ssize_t read(int file, void* buffer, size_t count)
{
    return transfer("read", file, buffer, count);
}
ssize_t pread(int file, void* buffer, size_t count, off_t offset)
{
    return transfer("pread", file, buffer, count, offset);
}
ssize_t write(int file, const void* buffer, size_t count)
{
    return transfer("write", file, buffer, count);
}

int fsync(int file)
{
    return call<int>(Interruption::possible, "fsync", file);
}
int fdatasync(int file)
{
    return call<int>(Interruption::possible, "fdatasync", file);
}
int ftruncate(int file, off_t size) noexcept
{
    return call<int>(Interruption::possible, "ftruncate", file, size);
}
int flock(int file, int operation) noexcept
{
    return call<int>(Interruption::possible, "flock", file, operation);
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

int stat(const char* path, struct stat* status) noexcept
{
    return call<int>(Interruption::impossible, "stat", path, status);
}
int lstat(const char* path, struct stat* status) noexcept
{
    return call<int>(Interruption::impossible, "lstat", path, status);
}
int fstat(int file, struct stat* status) noexcept
{
    return call<int>(Interruption::impossible, "fstat", file, status);
}
int fstatat(int folder, const char* path, struct stat* status, int flags) noexcept
{
    return call<int>(Interruption::impossible, "fstatat", folder, path, status, flags);
}
ssize_t readlink(const char* path, char* target, size_t size) noexcept
{
    return call<ssize_t>(Interruption::impossible, "readlink", path, target, size);
}
char* realpath(const char* path, char* target) noexcept
{
    return call<char*>(Interruption::impossible, "realpath", path, target);
}

DIR* opendir(const char* path)
{
    return call<DIR*>(Interruption::possible, "opendir", path);
}
dirent* readdir(DIR* folder)
{
    return call<dirent*>(Interruption::impossible, "readdir", folder);
}

int mkdir(const char* path, mode_t mode) noexcept
{
    return call<int>(Interruption::impossible, "mkdir", path, mode);
}
int fchmod(int file, mode_t mode) noexcept
{
    return call<int>(Interruption::impossible, "fchmod", file, mode);
}
int rename(const char* from, const char* to) noexcept
{
    return call<int>(Interruption::impossible, "rename", from, to);
}
int unlink(const char* path) noexcept
{
    return call<int>(Interruption::impossible, "unlink", path);
}
int remove(const char* path) noexcept
{
    return call<int>(Interruption::impossible, "remove", path);
}
}
