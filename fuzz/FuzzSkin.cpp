#include "SkinKit/Rendering/EQWindowRenderer.h"
#include "SkinKit/Rendering/MainWindowRenderer.h"
#include "SkinKit/SkinParser.h"
#include "fuzz/Fuzzing.h"

#include <string_view>

namespace {

bool isKnownWarning(std::string_view note)
{
    return note.starts_with("Undecodable ") || note.starts_with("Missing ");
}

bool isKnownFallback(std::string_view note)
{
    return note.ends_with("; generated base") || note.contains(" missing; ") ||
           note == "gen.bmp missing (not used in v1)" || note.starts_with("viscolor.txt has ") ||
           note.ends_with("' unusable; default");
}

}

// A whole skin, from the bytes of its file to its windows; two renders of one must be alike.
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    using namespace SkinKit;
    const SkinArchive::Limits limits{.maxEntryBytes = 1 << 20, .maxTotalBytes = 4 << 20};
    const auto archive = SkinArchive::open(ByteView(data, size), limits);
    const auto skin = archive ? SkinParser::parse(*archive) : std::unexpected(archive.error());
    if (!skin)
        return 0;
    for (const auto& note : skin->warnings)
        fuzzing::require(isKnownWarning(note));
    for (const auto& note : skin->fallbacks)
        fuzzing::require(isKnownFallback(note));
    const auto render = [&skin] {
        return MainWindowRenderer::render(*skin, MainWindowState::webampScreenshot(), 2,
                                          MainWindowRenderer::Clip::toRegion);
    };
    const Image image = render();
    fuzzing::require(image.size() == Size{550, 232} && image == render());
    for (const bool isShaded : {false, true}) {
        const EQWindowState state{.shaded = isShaded};
        EQWindowRenderer::render(*skin, state, 2, EQWindowRenderer::Clip::toRegion);
    }
    return 0;
}
