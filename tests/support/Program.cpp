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
    const int descriptor = ::open(path.c_str(), flags);
    ::dup2(descriptor, stream);
    ::close(descriptor);
}

using Words = std::vector<std::string>;

void limit(__rlimit_resource resource, long most)
{
    if (most <= 0)
        return;
    const rlimit limits{static_cast<rlim_t>(most), static_cast<rlim_t>(most)};
    ::setrlimit(resource, &limits);
}

void enter(const Setting& setting)
{
    limit(RLIMIT_FSIZE, setting.maxFileBytes);
    limit(RLIMIT_AS, setting.maxMemoryBytes);
    limit(RLIMIT_CPU, setting.maxProcessorSeconds);
    ::alarm(setting.seconds);
    for (const int stream : setting.closedStreams)
        ::close(stream);
}

std::vector<char*> pointersTo(Words& words)
{
    std::vector<char*> pointers;
    for (auto& word : words)
        pointers.push_back(word.data());
    pointers.push_back(nullptr);
    return pointers;
}

}

Outcome run(const std::filesystem::path& program, const Words& arguments, const Setting& setting)
{
    const TemporaryFolder folder;
    // There before the program is, which may be killed at once.
    const auto out = folder.write("out", {});
    const auto err = folder.write("err", {});
    Words words = arguments;
    words.insert(words.begin(), program.string());
    const auto pointers = pointersTo(words);
    Words variables = setting.variables;
    for (char* const* variable = environ; *variable; ++variable)
        variables.emplace_back(*variable);
    const auto environment = pointersTo(variables);

    const pid_t child = ::fork();
    if (child == 0) {
        redirect(STDIN_FILENO, "/dev/null", O_RDONLY);
        redirect(STDOUT_FILENO, out, O_WRONLY);
        redirect(STDERR_FILENO, err, O_WRONLY);
        enter(setting);
        ::execve(pointers[0], pointers.data(), environment.data());
        ::_exit(127);
    }
    int status = 0;
    rusage used{};
    if (child > 0 && setting.life) {
        std::this_thread::sleep_for(*setting.life);
        ::kill(child, SIGKILL);
    }
    if (child < 0 || ::wait4(child, &status, 0, &used) != child)
        throw std::runtime_error("can't run " + program.string());
    const auto seconds = [](const timeval& time) {
        return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
    };
    const auto textOf = [](const auto& path) {
        return std::string(SkinKit::asText(readFile(path)));
    };
    return {WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status), textOf(out),
            textOf(err), seconds(used.ru_utime) + seconds(used.ru_stime),
            static_cast<double>(used.ru_maxrss) / 1024};
}

}
