#include "SkinKit/System/Sandbox.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <seccomp.h>
#include <sys/mman.h>
#include <sys/prctl.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <functional>
#include <mutex>
#include <new>

using namespace SkinKit;
using support::bytes;
using support::readFile;
using support::TemporaryFolder;

namespace {

constexpr int kernelRefuses = 77;

// How a process that did this ended: its exit status, or 128 and more when a signal ended it.
int statusOfChild(const std::function<int()>& work)
{
    const pid_t child = ::fork();
    if (child == 0)
        ::_exit(work());
    int status = 0;
    EXPECT_EQ(::waitpid(child, &status, 0), child);
    return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
}

void* mapped(std::size_t count, int protection)
{
    return ::mmap(nullptr, count, protection, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
}

class SandboxTest : public testing::Test {
protected:
    const TemporaryFolder folder;
    const std::filesystem::path path = folder.write("file", bytes("content"));
    const int output = ::open(path.c_str(), O_RDWR | O_CLOEXEC);
    const int input = ::open(folder.write("input", bytes("skin")).c_str(), O_RDONLY | O_CLOEXEC);
    ~SandboxTest() override
    {
        ::close(output);
        ::close(input);
    }
    Sandbox::OpenFiles files() const { return {output, input}; }
};

}

TEST_F(SandboxTest, LetsTheProcessDoNothingButComputeAndWriteItsOutput)
{
    const int other = ::open("/dev/null", O_RDWR | O_CLOEXEC);
    const pid_t parent = ::getpid();
    char byte = 0;
    const auto failed = [](const void* memory) { return memory == MAP_FAILED ? -1 : 0; };
    // clang-format off
    const std::pair<const char*, std::function<long()>> rows[] = {
        {"open a file",           [&] { return ::open(path.c_str(), O_RDONLY); }},
        {"remove a file",         [&] { return ::unlink(path.c_str()); }},
        {"read",                  [&] { return ::pread(output, &byte, 1, 0); }},
        {"map a file",
         [&] { return failed(::mmap(nullptr, 1, PROT_READ, MAP_SHARED, output, 0)); }},
        {"write elsewhere",       [&] { return ::write(other, "x", 1); }},
        {"duplicate",             [&] { return ::dup(output); }},
        {"start a process",       [&] { return ::fork(); }},
        {"start a program",       [&] { return ::execl("/bin/true", "true", nullptr); }},
        {"make a connection",     [&] { return ::socket(AF_UNIX, SOCK_STREAM, 0); }},
        {"reach another process", [&] { return ::kill(parent, 0); }},
        {"make code",             [&] { return failed(mapped(4096, PROT_READ | PROT_EXEC)); }},
    };
    // clang-format on
    const int status = statusOfChild([&] {
        const auto locks = Sandbox::lockDown(files());
        if (!locks.systemCalls)
            return kernelRefuses;
        int wrong = 0;
        for (const auto& [what, attempt] : rows) {
            errno = 0;
            if (attempt() == -1 && errno == EPERM)
                continue;
            std::fprintf(stderr, "Could %s\n", what);
            wrong = 1;
        }
        std::once_flag flag;
        std::call_once(flag, [] {}); // whose lock asks the kernel
        const bool computes = mapped(100 << 20, PROT_READ | PROT_WRITE) != MAP_FAILED;
        const bool reads = ::read(input, &byte, 1) == 1 && ::pread(input, &byte, 1, 3) == 1;
        const bool writes = ::ftruncate(output, 0) == 0 && ::write(output, "new", 3) == 3;
        return computes && reads && writes && locks == Sandbox::Locks{true, true, true} ? wrong : 2;
    });
    ::close(other);
    if (status == kernelRefuses)
        GTEST_SKIP() << "the kernel refuses to filter system calls";
    EXPECT_EQ(status, 0);
    EXPECT_EQ(readFile(path), bytes("new"));
}

TEST_F(SandboxTest, GoesOnWithoutTheFilterWhereItIsRefused)
{
    const int status = statusOfChild([&] {
        const scmp_filter_ctx refuse = seccomp_init(SCMP_ACT_ALLOW);
        const scmp_arg_cmp filtering{0, SCMP_CMP_EQ, PR_SET_SECCOMP, 0};
        seccomp_rule_add(refuse, SCMP_ACT_ERRNO(EPERM), SCMP_SYS(seccomp), 0);
        seccomp_rule_add_array(refuse, SCMP_ACT_ERRNO(EPERM), SCMP_SYS(prctl), 1, &filtering);
        if (seccomp_load(refuse) != 0)
            return kernelRefuses;
        seccomp_release(refuse);
        if (Sandbox::lockDown(files()) != Sandbox::Locks{true, true, false})
            return 1;
        return ::open(path.c_str(), O_RDONLY) == -1 && errno == EMFILE ? 0 : 2;
    });
    if (status == kernelRefuses)
        GTEST_SKIP() << "the kernel refuses to filter system calls";
    EXPECT_EQ(status, 0);
}

TEST_F(SandboxTest, HoldsMemoryAndFilesToTheirLimits)
{
    const int status = statusOfChild([&] {
        std::signal(SIGXFSZ, SIG_IGN);
        Sandbox::limitCosts({.moreMemoryBytes = 64 << 20, .maxFileBytes = 10}, {});
        if (mapped(16 << 20, PROT_READ) == MAP_FAILED)
            return 1;
        if (mapped(65 << 20, PROT_READ) != MAP_FAILED || errno != ENOMEM)
            return 2;
        return ::write(output, "eleven bytes", 12) == 10 && ::write(output, "x", 1) == -1 ? 0 : 3;
    });
    EXPECT_EQ(status, 0);
}

TEST_F(SandboxTest, EndsAProcessThatTakesTooMuchWithItsLastWordsAndAnEmptyOutput)
{
    const std::pair<const char*, std::function<void()>> rows[] = {
        {"too much",
         [] {
             // As operator new does it, which sanitizers replace.
             while (mapped(1 << 20, PROT_READ) != MAP_FAILED)
                 ;
             std::get_new_handler()();
         }},
        {"too long",
         [] {
             for (volatile unsigned i = 0; true;)
                 i = i + 1;
         }},
    };
    const auto said = folder / "said";
    for (const auto& [words, work] : rows) {
        folder.write("file", bytes("half a picture"));
        const int status = statusOfChild([&] {
            ::dup2(::open(said.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600), STDERR_FILENO);
            Sandbox::limitCosts({.moreMemoryBytes = 64 << 20, .processorSeconds = 1},
                                {"too much", "too long", 7});
            Sandbox::lockDown(files());
            work();
            return 0;
        });
        EXPECT_EQ(status, 7);
        EXPECT_EQ(readFile(said), bytes(words));
        EXPECT_EQ(readFile(path), bytes(""));
    }
}

TEST_F(SandboxTest, LetsABrokenPromiseEndTheProcessAsEver)
{
    const int status = statusOfChild([&] {
        Sandbox::lockDown(files());
        std::abort();
        return 0;
    });
    EXPECT_EQ(status, 128 + SIGABRT);
}
