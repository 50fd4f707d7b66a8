#include "SkinKit/Tooling/CrashLogs/CrashedSkins.h"
#include "fuzz/Fuzzing.h"

#include <array>

// The input's first line is the name of a skin and of the log, the rest the log.
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    using namespace SkinKit;
    const std::string_view text = asText({data, size});
    const std::string name(text.substr(0, text.find('\n')));
    const auto log = CrashLog::of(name, text);
    fuzzing::require(log == CrashLog::of(name, text) && log.file == name);
    fuzzing::require(log.text == text && log.signature == CrashLog::signatureOf(text));
    fuzzing::require(!log.signature.contains('\n') && !log.signature.contains('\r'));

    const CorpusSkins::File skins[] = {
        {.path = "y/a.wsz", .name = "a", .md5 = "00ff00ff00ff00ff00ff00ff00ff00ff"},
        {.path = name, .name = name}
    };
    const std::array pointers{&skins[0], &skins[1]};
    const auto found = CrashedSkins(pointers).find(log);
    fuzzing::require(!found || *found < pointers.size());
    return 0;
}
