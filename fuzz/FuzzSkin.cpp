#include "SkinKit/SkinParser.h"
#include "SkinKit/Sprites/SkinSprites.h"
#include "SkinKit/Tooling/SkinInfo.h"
#include "SkinKit/Windows/Desktop/DesktopRenderer.h"
#include "fuzz/Fuzzing.h"

// A whole skin, from the bytes of its file to its windows; two loads and renders must be alike.
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    using namespace SkinKit;
    const SkinArchive::Limits limits{.maxEntryBytes = 1 << 17, .maxTotalBytes = 1 << 19};
    const auto archive = SkinArchive::open(fuzzing::withPNGChecksums({data, size}), limits);
    const auto skin = archive ? SkinParser::parse(*archive) : std::unexpected(archive.error());
    if (!skin) {
        fuzzing::require(!skin.error().description().empty());
        return 0;
    }
    const auto info = SkinInfo::of("a", *archive, *skin);
    fuzzing::require(JSON::parse(info.json().text()) == info.json());

    // Large sheets show nothing that small ones do not, only more slowly.
    std::int64_t pixels = 0;
    for (const auto& [name, image] : skin->sheets) {
        fuzzing::require(!SkinSprites::spritesOf(name).empty());
        if (!skin->generatedSheets.contains(name))
            pixels += std::int64_t{image.width()} * image.height();
    }
    if (pixels > 100'000)
        return fuzzing::notKept;

    const auto again = SkinParser::parse(*archive);
    fuzzing::require(again == skin);
    const auto state = DesktopState::webampScreenshot();
    auto shaded = state;
    shaded.main.shaded = shaded.equalizer.shaded = shaded.playlist.shaded = true;
    for (const auto& drawn : {state, shaded}) {
        const Image image = DesktopRenderer::render(*skin, drawn, 1, Clip::toRegion);
        fuzzing::require(image.size() == DesktopRenderer::size(drawn, 1) &&
                         image == DesktopRenderer::render(*again, drawn, 1, Clip::toRegion));
    }
    return 0;
}
