#include "tests/support/Program.h"

#include "tests/support/TemporaryFolder.h"

#include <fcntl.h>
#include <stdexcept>
#include <sys/resource.h>
#include <sys/wait.h>
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

}

Outcome run(const std::filesystem::path& program, const std::vector<std::string>& arguments,
            long limitBytes)
{
    const TemporaryFolder folder;
    const auto out = folder / "out";
    const auto err = folder / "err";
    std::vector<std::string> words = arguments;
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
        if (limitBytes > 0) {
            const auto limit = static_cast<rlim_t>(limitBytes);
            const rlimit limits{limit, limit};
            ::setrlimit(RLIMIT_FSIZE, &limits);
        }
        ::execv(pointers[0], pointers.data());
        ::_exit(127);
    }
    int status = 0;
    if (child < 0 || ::waitpid(child, &status, 0) != child)
        throw std::runtime_error("can't run " + program.string());
    return {WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status), textOf(out),
            textOf(err)};
}

}
