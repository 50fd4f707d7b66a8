#include "fuzz/Fuzzing.h"
#include "tests/support/TemporaryFolder.h"

// Runs a target once over every file of the folders given, and once over nothing: the ordinary
// tests' way through the seeds and the regressions. A finding ends the process.
int main(int argc, char** argv)
{
    LLVMFuzzerTestOneInput(nullptr, 0);
    for (int i = 1; i < argc; ++i) {
        if (!std::filesystem::is_directory(argv[i]))
            continue;
        for (const auto& entry : std::filesystem::directory_iterator(argv[i])) {
            const auto bytes = support::readFile(entry.path());
            LLVMFuzzerTestOneInput(bytes.data(), bytes.size());
        }
    }
    return 0;
}
