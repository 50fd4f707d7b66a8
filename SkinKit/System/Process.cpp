#include "SkinKit/System/Process.h"

#include "SkinKit/Base/Check.h"

#include <fcntl.h>
#include <malloc.h>
#include <pthread.h>
#include <signal.h>
#include <sys/mman.h>
#include <time.h>
#include <unistd.h>

#include <cerrno>
#include <cstdint>
#include <cstdlib>
#include <initializer_list>

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
