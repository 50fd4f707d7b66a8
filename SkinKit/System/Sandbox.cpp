#include "SkinKit/System/Sandbox.h"

#include "SkinKit/Base/Check.h"

#include <seccomp.h>
#include <signal.h>
#include <sys/mman.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <functional>
#include <initializer_list>
#include <memory>
#include <string_view>
#include <utility>

namespace SkinKit::Sandbox {
namespace {

// Sets the soft limit, and the hard one beyond it; never above what is allowed already.
bool limit(__rlimit_resource resource, rlim_t soft, rlim_t hard)
{
    rlimit limits{};
    if (::getrlimit(resource, &limits) != 0)
        return false;
    limits.rlim_max = std::min(hard, limits.rlim_max);
    limits.rlim_cur = std::min({soft, limits.rlim_cur, limits.rlim_max});
    return ::setrlimit(resource, &limits) == 0;
}

// The address space that the process has now, or 0 where nothing tells.
rlim_t addressSpaceBytes()
{
    const auto close = [](std::FILE* file) { std::fclose(file); };
    const std::unique_ptr<std::FILE, decltype(close)> file(std::fopen("/proc/self/statm", "re"),
                                                           close);
    unsigned long pages = 0;
    if (!file || std::fscanf(file.get(), "%lu", &pages) != 1)
        return 0;
    return pages * static_cast<rlim_t>(::sysconf(_SC_PAGESIZE));
}

// For what runs when a limit is reached, where nothing can be allocated or passed along. Made once
// and never freed, since that may be at any time.
const LastWords* lastWords = nullptr;
volatile sig_atomic_t outputFile = -1;

[[noreturn]] void endSaying(std::string_view words)
{
    // What has been written is no whole picture.
    [[maybe_unused]] const int emptied = ::ftruncate(outputFile, 0);
    [[maybe_unused]] const auto said = ::write(STDERR_FILENO, words.data(), words.size());
    ::_exit(lastWords->status);
}

bool setHandlers()
{
    whenOutOfMemory([] { endSaying(lastWords->outOfMemory); });
    struct ::sigaction action{};
    action.sa_handler = [](int) { endSaying(lastWords->outOfTime); };
    return ::sigaction(SIGXCPU, &action, nullptr) == 0;
}

bool keepNewAway()
{
    const bool results[] = {
        limit(RLIMIT_NOFILE, 0, 0), // those that are open stay
        limit(RLIMIT_NPROC, 0, 0),
    };
    return std::ranges::all_of(results, std::identity{});
}

class Filter {
public:
    Filter() : context_(seccomp_init(SCMP_ACT_ERRNO(static_cast<unsigned>(EPERM)))) {}
    ~Filter() { seccomp_release(context_); }
    Filter(const Filter&) = delete;
    Filter& operator=(const Filter&) = delete;

    // Lets a call through whose arguments fit.
    void allow(int call, std::initializer_list<scmp_arg_cmp> arguments = {})
    {
        complete_ = complete_ && seccomp_rule_add_array(context_, SCMP_ACT_ALLOW, call,
                                                        static_cast<unsigned>(arguments.size()),
                                                        arguments.begin()) == 0;
    }

    bool load() const { return complete_ && seccomp_load(context_) == 0; }

private:
    scmp_filter_ctx context_;
    bool complete_ = context_ != nullptr;
};

constexpr scmp_arg_cmp equals(unsigned argument, int value)
{
    return {argument, SCMP_CMP_EQ, static_cast<scmp_datum_t>(value), 0};
}

// None of the bits of `mask` is set.
constexpr scmp_arg_cmp lacks(unsigned argument, int mask)
{
    return {argument, SCMP_CMP_MASKED_EQ, static_cast<scmp_datum_t>(mask), 0};
}

// All of the bits of `mask` are set.
constexpr scmp_arg_cmp has(unsigned argument, int mask)
{
    const auto bits = static_cast<scmp_datum_t>(mask);
    return {argument, SCMP_CMP_MASKED_EQ, bits, bits};
}

bool filterSystemCalls(const OpenFiles& files)
{
    Filter filter;
    for (const int descriptor : {files.output, STDERR_FILENO})
        filter.allow(SCMP_SYS(write), {equals(0, descriptor)});
    filter.allow(SCMP_SYS(writev), {equals(0, STDERR_FILENO)}); // the runtime's last words
    filter.allow(SCMP_SYS(ftruncate), {equals(0, files.output)});
    if (files.input)
        for (const int call : {SCMP_SYS(read), SCMP_SYS(pread64)})
            filter.allow(call, {equals(0, *files.input)});
    filter.allow(SCMP_SYS(close));

    filter.allow(SCMP_SYS(futex)); // what is computed once is guarded, even with one thread
    filter.allow(SCMP_SYS(clock_gettime), {equals(0, CLOCK_THREAD_CPUTIME_ID)});
    filter.allow(SCMP_SYS(brk));
    filter.allow(SCMP_SYS(mmap), {lacks(2, PROT_EXEC), has(3, MAP_ANONYMOUS)}); // no file's
    filter.allow(SCMP_SYS(mprotect), {lacks(2, PROT_EXEC)});
    for (const int call : {SCMP_SYS(munmap), SCMP_SYS(mremap), SCMP_SYS(madvise)})
        filter.allow(call);

    // To end, in good order or by abort().
    for (const int call : {SCMP_SYS(exit), SCMP_SYS(exit_group), SCMP_SYS(rt_sigreturn),
                           SCMP_SYS(rt_sigprocmask), SCMP_SYS(getpid), SCMP_SYS(gettid)})
        filter.allow(call);
    filter.allow(SCMP_SYS(tgkill), {equals(0, ::getpid())});
    filter.allow(SCMP_SYS(sigaltstack), {equals(0, 0)}); // a question, which sanitizers ask then
    return filter.load();
}

}

bool limitCosts(const Limits& limits, const LastWords& words)
{
    const auto memory = addressSpaceBytes() + static_cast<rlim_t>(limits.moreMemoryBytes);
    const auto fileBytes = static_cast<rlim_t>(limits.maxFileBytes);
    const auto seconds = static_cast<rlim_t>(limits.processorSeconds);
    lastWords = new LastWords(words);
    const bool results[] = {
        setHandlers(),
        limit(RLIMIT_AS, memory, memory),
        limit(RLIMIT_FSIZE, fileBytes, fileBytes),
        limit(RLIMIT_CPU, seconds, seconds + 1),
        limit(RLIMIT_CORE, 0, 0),
    };
    return std::ranges::all_of(results, std::identity{});
}

Locks lockDown(const OpenFiles& files)
{
    outputFile = files.output;
    Locks locks;
    locks.noNewPrivileges = ::prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) == 0;
    locks.limits = keepNewAway();
    locks.systemCalls = filterSystemCalls(files);
    return locks;
}

}
