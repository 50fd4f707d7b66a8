#include "SkinKit/Tooling/CrashLogs/CrashLog.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <filesystem>

using namespace SkinKit;
using support::bytes;

TEST(CrashLog, TakesTheTopFramesFromGdb)
{
    // The place of the crash, then the answer to `bt`.
    EXPECT_EQ(CrashLog::signatureOf(R"(
Program received signal SIGSEGV, Segmentation fault.
0x0000555555555516 in Skin::Reader::read (this=0x0, name=0x7fff "a (b", v=...) at Reader.cpp:7
7	    return *p;
#0  0x0000555555555516 in Skin::Reader::read (this=0x0, name=0x7fff "a (b", v=...) at Reader.cpp:7
#1  std::function<void (int)>::operator() (this=0x1, __args#0=2) at /usr/include/std_function.h:591
#2  (anonymous namespace)::load (path="x") at load.cpp:9
#3  0x0000555555555445 in main (argc=2) at main.cpp:8
)"),
              "Skin::Reader::read ← std::function<void (int)>::operator() ← "
              "(anonymous namespace)::load");
}

TEST(CrashLog, TakesTheThreadThatCrashed)
{
    const std::string stacks = R"(
Thread 3 (Thread 0x7ffff7a1d6c0 (LWP 30) "a"):
#0  wait () at wait.c:1
#1  start_thread (arg=0x0) at ./nptl/pthread_create.c:442
Thread 2 (Thread 0x7ffff7a1d6c1 (LWP 20) "a"):
#0  0x01 in parse () at p.cpp:1
        local = "#0"
No locals.
#1  0x02 in main::{lambda()#1}::operator()() const () at p.cpp:2
Thread 1 (Thread 0x7ffff7eaf740 (LWP 10) "a"):
#0  join () at join.c:1
)";
    EXPECT_EQ(CrashLog::signatureOf("Thread 2 \"a\" received signal SIGSEGV, Segmentation fault." +
                                    stacks),
              "parse ← main::{lambda()#1}::operator()");
    // A core file's crashed thread is the first, shown by its innermost frame at once.
    EXPECT_EQ(CrashLog::signatureOf("#0  wait () at wait.c:1\n"
                                    "[Current thread is 3 (Thread 0x7ffff7a1d6c0 (LWP 30))]" +
                                    stacks),
              "wait ← start_thread");
    // A process that hung, attached to.
    EXPECT_EQ(CrashLog::signatureOf(stacks), "join");
}

TEST(CrashLog, LeavesOutTheFramesOfAbortingAndOfASignalHandler)
{
    EXPECT_EQ(CrashLog::signatureOf(R"(terminate called without an active exception
#0  __pthread_kill_implementation (threadid=<optimized out>) at ./nptl/pthread_kill.c:44
#1  0x00007ffff7aa8f4f in __pthread_kill_internal (signo=6) at ./nptl/pthread_kill.c:78
#2  0x00007ffff7a59fb2 in __GI_raise (sig=sig@entry=6) at ../sysdeps/posix/raise.c:26
#3  0x00007ffff7a44472 in __GI_abort () at ./stdlib/abort.c:79
#4  0x00007ffff7c9d919 in ?? () from /lib/x86_64-linux-gnu/libstdc++.so.6
#5  0x00007ffff7ca8e85 in std::terminate() () from /lib/x86_64-linux-gnu/libstdc++.so.6
#6  0x000055555555558e in operator<< <char> (x=1) at a.cpp:7
)"),
              "operator<< <char>");
    EXPECT_EQ(CrashLog::signatureOf("#0  0x1 in ?? () from /lib/libstdc++.so.6\n"
                                    "#1  0x2 in std::terminate () from /lib/libstdc++.so.6\n"),
              "libstdc++.so.6 ← std::terminate"); // no abort
    EXPECT_EQ(CrashLog::signatureOf("#0  0x1 in handler (signal=11) at h.c:1\n"
                                    "#1  <signal handler called>\n#2  0x2 in decode () at d.c:2\n"),
              "decode");
    EXPECT_EQ(CrashLog::signatureOf("#0  raise (sig=6) at r.c:1\n#1  abort () at a.c:1\n"),
              "raise ← abort"); // nothing else to tell
}

TEST(CrashLog, TakesTheTopFramesFromAddressSanitizer)
{
    EXPECT_EQ(CrashLog::signatureOf(R"(a.cpp:7:142: runtime error: load of null pointer
    #0 0x111 in warned /src/a.cpp:7:142
=================================================================
==15902==ERROR: AddressSanitizer: heap-use-after-free on address 0x502000000031 at pc 0x5654
READ of size 1 at 0x502000000031 thread T0
    #0 0x5654c941aebb in Skin::read(char const*, std::vector<int>&) /src/my (skins)/a.cpp:7:142
    #1 0x5654c941a2fc in main /src/my (skins)/a.cpp:8:3
    #2 0x7f7121d65249  (/lib/x86_64-linux-gnu/libc.so.6+0x27249) (BuildId: 93ac61ec5a8e)
    #3 0x7f7121d65304 in __libc_start_main (/lib/x86_64-linux-gnu/libc.so.6+0x27304)

freed by thread T0 here:
    #0 0x5654c94184cd in operator delete(void*) (/usr/bin/skintool+0x10d4cd)
    #1 0x5654c941abbf in a /src/a.cpp:1
    #2 0x5654c941abbf in b /src/a.cpp:2
)"),
              "Skin::read ← main ← libc.so.6+0x27249");
}

TEST(CrashLog, TakesTheLibrarysLineWithoutAStack)
{
    // clang-format off
    const std::pair<std::string_view, std::string_view> rows[] = {
        {"[1/9] ok 100.0%\nfree(): invalid pointer\nAborted\n", "free(): invalid pointer"},
        {"a: free(): double free detected in tcache 2\n",
         "a: free(): double free detected in tcache 2"},
        {"malloc(): smallbin double linked list corrupted",
         "malloc(): smallbin double linked list corrupted"},
        {"malloc(): corrupted top size",                        "malloc(): corrupted top size"},
        {"double free or corruption (out)\n",                   "double free or corruption (out)"},
        {"*** stack smashing detected ***: terminated\n",
         "*** stack smashing detected ***: terminated"},
        {"a: a.cpp:7: int f(): Assertion `x == 3' failed.\n",
         "a: a.cpp:7: int f(): Assertion `x == 3' failed."},
        {"terminate called after throwing an instance of 'E'\n  what():  bad\n",
                                                "terminate called after throwing an instance of 'E', what():  bad"},
        {"terminate called without an active exception\nAborted\n",
         "terminate called without an active exception"},
        {"Killed\n# a comment\n#1 is no stack's name\n",        ""},
        {"",                                                    ""},
    };
    // clang-format on
    for (const auto& [text, expected] : rows)
        EXPECT_EQ(CrashLog::signatureOf(text), expected);
}

TEST(CrashLog, SeesThroughColours)
{
    const auto log =
        CrashLog::of("1.log", "#0  \x1B[34m0x01\x1B[m in \x1B[0;33mread\x1B[m (x=1)\n\x1B[");
    EXPECT_EQ(log.signature, "read");
    EXPECT_EQ(log.text, "#0  0x01 in read (x=1)\n");
}

TEST(CrashLog, ReadsTheTextFilesOfAFolder)
{
    const support::TemporaryFolder folder;
    folder.write("b.log", bytes("free(): invalid size\r\n"));
    folder.write("a\xFF.txt", bytes("caf\xE9\n"));
    folder.write("core", bytes(std::string_view("\x7F"
                                                "ELF\0free(): invalid size",
                                                25)));
    folder.write("long.log",
                 bytes("x" + std::string(static_cast<std::size_t>(CrashLog::maxBytes), '\n') +
                       "free(): invalid pointer"));
    std::filesystem::create_directory(folder / "folder");
    std::filesystem::create_symlink(folder / "b.log", folder / "link");

    const auto found = CrashLog::readFolder(folder.path());
    ASSERT_TRUE(found);
    EXPECT_TRUE(found->unreadFiles.empty());
    const auto& logs = found->logs;
    ASSERT_EQ(logs.size(), 3U);
    EXPECT_EQ(logs[0], (CrashLog{"a\uFFFD.txt", "caf\uFFFD\n", ""}));
    EXPECT_EQ(logs[1], (CrashLog{"b.log", "free(): invalid size\r\n", "free(): invalid size"}));
    EXPECT_EQ(std::ssize(logs[2].text), CrashLog::maxBytes);
    EXPECT_TRUE(logs[2].text.starts_with("x\n"));
    EXPECT_EQ(logs[2].signature, "free(): invalid pointer"); // at its end
    EXPECT_EQ(CrashLog::readFolder(folder / "none").error(), std::errc::no_such_file_or_directory);
}
