#include "SkinKit/Tooling/CrashLogs/CrashedSkins.h"
#include "fuzz/Fuzzing.h"

#include <array>
#include <string>

// The input's first line is the name of a skin and of the log, the rest the log.
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    using namespace SkinKit;
    const std::string_view text = asText({data, size});
    const std::string name(text.substr(0, text.find('\n')));
    const auto log = CrashLog::of(name, text);
    fuzzing::require(log == CrashLog::of(name, text) &&
                     log.signature.find_first_of("\r\n") == log.signature.npos);

    const CorpusSkins::File skin{.path = name, .name = name};
    const auto found = CrashedSkins(std::array{&skin}).find(log);
    fuzzing::require(!found || *found == 0);
    return 0;
}
