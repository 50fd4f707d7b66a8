#include "SkinKit/Tooling/CrashLogs/CrashLog.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <utility>

using namespace SkinKit;
using support::bytes;

TEST(CrashLog, TakesTheInnermostNamedFramesOfTheThreadThatCrashed)
{
    const std::string threads = R"(
Thread 2 (Thread 0x7ffff7a1d6c0 (LWP 20) "a"):
#0  wait () at wait.c:1
#1  start_thread (arg=0x0) at ./nptl/pthread_create.c:442
Thread 1 (Thread 0x7ffff7eaf740 (LWP 10) "a"):
#0  join () at join.c:1
)";
    // clang-format off
    const std::pair<std::string, std::string_view> rows[] = {
        // The answer to `bt`, behind the place of the crash.
        {R"(
0x0000555555555516 in Skin::Reader::read (this=0x0, name=0x7fff "a (b", v=...) at Reader.cpp:7
#0  0x0000555555555516 in Skin::Reader::read (this=0x0, name=0x7fff "a (b", v=...) at Reader.cpp:7
        local = "#0"
#1  0x00007ffff7c9d919 in ?? () from /lib/x86_64-linux-gnu/libstdc++.so.6
#2  std::function<void (int)>::operator() (this=0x1, __args#0=2) at /usr/include/std_function.h:591
#3  (anonymous namespace)::load(int)::{lambda()#1}::operator()() const (x=1) at load.cpp:9
#4  0x0000555555555445 in main (argc=2) at main.cpp:8
)", "Skin::Reader::read ← std::function<void (int)>::operator() ← (anonymous namespace)::load"},
        {R"(a.cpp:7:142: runtime error: load of null pointer
    #0 0x111 in warned /src/a.cpp:7:142
==15902==ERROR: AddressSanitizer: heap-use-after-free on address 0x502000000031 at pc 0x5654
READ of size 1 at 0x502000000031 thread T0
    #0 0x7f7121d65249  (/lib/x86_64-linux-gnu/libc.so.6+0x27249) (BuildId: 93ac61ec5a8e)
    #1 0x5654c941aebb in Skin::read(char const*, std::vector<int>&) /src/my (skins)/a.cpp:7:142
    #2 0x5654c941a2fc in main /src/my (skins)/a.cpp:8:3

freed by thread T0 here:
    #0 0x5654c94184cd in operator delete(void*) (/usr/bin/skintool+0x10d4cd)
)", "Skin::read ← main"},
        {"Thread 2 \"a\" received signal SIGSEGV" + threads, "wait ← start_thread"},
        {"#0  wait () at w.c:1\n[Current thread is 2 (LWP 20)]" + threads, "wait ← start_thread"},
        {threads, "join"}, // a process that hung, attached to
        {"#0  0x1 in handler (signal=11) at h.c:1\n#1  <signal handler called>\n"
         "#2  operator<< <char> (x=1) at a.cpp:7\n", "operator<< <char>"},
        {"#0  __pthread_kill_internal (signo=6) at ./nptl/pthread_kill.c:78\n"
         "#1  0x1 in __GI_raise (sig=6) at r.c:26\n#2  0x2 in __GI_abort () at abort.c:79\n"
         "#3  0x3 in std::terminate() () from /lib/libstdc++.so.6\n#4  0x4 in load () at l.cpp:1\n",
         "load"},
        {"#0  raise (sig=6) at r.c:1\n#1  abort () at a.c:1\n", "raise ← abort"},
        {"[1/9] ok 100.0%\nfree(): invalid pointer\r\nAborted\n", "free(): invalid pointer"},
        {"#0 0x1 in ?? ()\na: a.cpp:7: int f(): Assertion `x' failed.",
         "a: a.cpp:7: int f(): Assertion `x' failed."},
        {"Killed\n# a comment\n#1 is no stack\n", ""},
    };
    // clang-format on
    for (const auto& [text, expected] : rows)
        EXPECT_EQ(CrashLog::signatureOf(text), expected) << text;
}

TEST(CrashLog, ReadsTheTextFilesOfAFolder)
{
    const support::TemporaryFolder folder;
    folder.write("b.log", bytes("free(): invalid size\r\n"));
    folder.write("a\xFF.txt", bytes("caf\xE9\n"));
    folder.write("core", ByteBuffer{0x7F, 'E', 'L', 'F', 0});
    folder.write("long.log",
                 bytes("x" + std::string(static_cast<std::size_t>(CrashLog::maxBytes), '\n') +
                       "free(): invalid pointer"));
    std::filesystem::create_symlink(folder / "b.log", folder / "link");

    const auto found = CrashLog::readFolder(folder.path());
    ASSERT_TRUE(found);
    const auto& logs = found->logs;
    ASSERT_EQ(logs.size(), 3U);
    EXPECT_EQ(logs[0], (CrashLog{"a\uFFFD.txt", "caf\uFFFD\n", ""}));
    EXPECT_EQ(logs[1], (CrashLog{"b.log", "free(): invalid size\r\n", "free(): invalid size"}));
    EXPECT_EQ(std::ssize(logs[2].text), CrashLog::maxBytes);
    EXPECT_EQ(logs[2].signature, "free(): invalid pointer"); // at its end
    EXPECT_EQ(CrashLog::readFolder(folder / "none").error(), std::errc::no_such_file_or_directory);
}
