#include "tests/support/Program.h"

#include "tests/support/TemporaryFolder.h"

#include <fcntl.h>
#include <signal.h>
#include <stdexcept>
#include <sys/resource.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace support {
namespace {

void redirect(int stream, const std::filesystem::path& path, int flags)
{
    const int descriptor = ::open(path.c_str(), flags, 0600);
    ::dup2(descriptor, stream);
    ::close(descriptor);
}

std::string textOf(const std::filesystem::path& path)
{
    return std::string(SkinKit::asText(readFile(path)));
}

using Words = std::vector<std::string>;

// Nothing when it is 0.
void limit(__rlimit_resource resource, long most)
{
    const rlimit limits{static_cast<rlim_t>(most), static_cast<rlim_t>(most)};
    if (most > 0)
        ::setrlimit(resource, &limits);
}

// Runs a program to its end; `whileRunning` is called with its process number.
Outcome run(const std::filesystem::path& program, const Words& arguments, long limitBytes,
            long limitSeconds, const auto& whileRunning)
{
    const TemporaryFolder folder;
    const auto out = folder / "out";
    const auto err = folder / "err";
    Words words = arguments;
    words.insert(words.begin(), program.string());
    std::vector<char*> pointers;
    for (auto& word : words)
        pointers.push_back(word.data());
    pointers.push_back(nullptr);

    const pid_t child = ::fork();
    if (child == 0) {
        redirect(STDIN_FILENO, "/dev/null", O_RDONLY);
        redirect(STDOUT_FILENO, out, O_WRONLY | O_CREAT);
        redirect(STDERR_FILENO, err, O_WRONLY | O_CREAT);
        limit(RLIMIT_FSIZE, limitBytes);
        limit(RLIMIT_CPU, limitSeconds);
        ::execv(pointers[0], pointers.data());
        ::_exit(127);
    }
    int status = 0;
    rusage used{};
    if (child > 0)
        whileRunning(child);
    if (child < 0 || ::wait4(child, &status, 0, &used) != child)
        throw std::runtime_error("can't run " + program.string());
    const auto seconds = [](const timeval& time) {
        return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
    };
    return {WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status), textOf(out),
            textOf(err), seconds(used.ru_utime) + seconds(used.ru_stime),
            static_cast<double>(used.ru_maxrss) / 1024};
}

}

Outcome run(const std::filesystem::path& program, const Words& arguments, long limitBytes,
            long limitSeconds)
{
    return run(program, arguments, limitBytes, limitSeconds, [](pid_t) {});
}

Outcome runAndKill(const std::filesystem::path& program, const Words& arguments,
                   std::chrono::microseconds life)
{
    return run(program, arguments, 0, 0, [life](pid_t child) {
        std::this_thread::sleep_for(life);
        ::kill(child, SIGKILL);
    });
}

}
