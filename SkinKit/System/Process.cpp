#include "SkinKit/System/Process.h"

#include "SkinKit/Base/Check.h"
#include "SkinKit/System/InputFile.h"

#include <fcntl.h>
#include <malloc.h>
#include <pthread.h>
#include <signal.h>
#include <sys/ioctl.h>
#include <sys/mman.h>
#include <time.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <cstdint>
#include <cstdlib>
#include <initializer_list>
#include <string_view>

namespace SkinKit::Process {
namespace {

volatile sig_atomic_t held = 0;

}

void nameThread(const char* name)
{
    ::pthread_setname_np(::pthread_self(), name);
}

std::chrono::nanoseconds threadTime()
{
    ::timespec time{};
    check(::clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time) == 0, "no clock for the thread");
    return std::chrono::seconds(time.tv_sec) + std::chrono::nanoseconds(time.tv_nsec);
}

void releaseFreeMemory()
{
    ::malloc_trim(0);
}

std::optional<int> errorColumns()
{
    constexpr int usualColumns = 80;
    if (::isatty(STDERR_FILENO) == 0)
        return std::nullopt;
    struct ::winsize size{};
    const bool isKnown = ::ioctl(STDERR_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col > 0;
    return isKnown ? size.ws_col : usualColumns;
}

void abortOnOutOfMemory()
{
    whenOutOfMemory([] { fail("no memory"); });
}

void reserveStandardStreams()
{
    for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO})
        if (::fcntl(stream, F_GETFD) < 0 && errno == EBADF)
            // The lowest number that is free is this one. Open for what it is not used for.
            ::open("/dev/null", stream == STDIN_FILENO ? O_WRONLY : O_RDONLY);
}

void ignoreFileSizeSignal()
{
    ::signal(SIGXFSZ, SIG_IGN);
}

void ignorePipeSignal()
{
    ::signal(SIGPIPE, SIG_IGN);
}

void deferInterrupts()
{
    struct ::sigaction action{};
    action.sa_handler = [](int signal) {
        held = signal;
        ::signal(SIGINT, SIG_DFL);
        ::signal(SIGTERM, SIG_DFL);
    };
    action.sa_flags = SA_RESTART;
    ::sigaction(SIGINT, &action, nullptr);
    ::sigaction(SIGTERM, &action, nullptr);
}

int deferredInterrupt()
{
    return held;
}

void raiseDeferredInterrupt()
{
    ::raise(held);
}

void preallocateMemory()
{
    constexpr std::size_t bytes = 2 << 20;
    // Blocks come from one heap, which keeps what is freed: at once what the allocator would come
    // to by itself, once large blocks have been freed.
    constexpr int largestBlock = 32 << 20;
    ::mallopt(M_MMAP_THRESHOLD, largestBlock);
    ::mallopt(M_TRIM_THRESHOLD, 2 * largestBlock);

    void* const block = std::malloc(bytes);
    if (!block)
        return;
    const auto pageBytes = static_cast<std::uintptr_t>(::sysconf(_SC_PAGESIZE));
    const std::uintptr_t inPage = reinterpret_cast<std::uintptr_t>(block) % pageBytes;
    // A system that does not know this advice gives the pages later, as usual.
    ::madvise(static_cast<char*>(block) - inPage, bytes, MADV_POPULATE_WRITE);
    std::free(block);
}

}

namespace SkinKit::ProcessFootprint {
namespace {

ByteBuffer contentOf(const char* path)
{
    constexpr std::int64_t maxBytes = 1 << 16;
    return Files::read(path, maxBytes).value_or(ByteBuffer());
}

// The number at the front of `text`, behind blanks.
std::int64_t leadingNumber(std::string_view text)
{
    text.remove_prefix(std::min(text.find_first_not_of(" \t"), text.size()));
    std::int64_t number = 0;
    std::from_chars(text.data(), text.data() + text.size(), number);
    return number;
}

std::int64_t currentBytes()
{
    const ByteBuffer file = contentOf("/proc/self/statm");
    std::string_view pages = asText(file); // in all, then resident
    pages.remove_prefix(std::min(pages.find(' '), pages.size()));
    return leadingNumber(pages) * ::sysconf(_SC_PAGESIZE);
}

std::int64_t lifetimeMaxBytes()
{
    constexpr std::string_view key = "\nVmHWM:";
    constexpr std::int64_t kibibyte = 1024;
    const ByteBuffer file = contentOf("/proc/self/status");
    const std::string_view text = asText(file);
    const auto found = text.find(key);
    return found == text.npos ? 0 : leadingNumber(text.substr(found + key.size())) * kibibyte;
}

}

Mebibytes mebibytes()
{
    constexpr int bitsOfMebibyte = 20;
    return {currentBytes() >> bitsOfMebibyte, lifetimeMaxBytes() >> bitsOfMebibyte};
}

}
