#include "SkinKit/SkinParser.h"
#include "SkinKit/Sprites/SkinSprites.h"
#include "SkinKit/Tooling/SkinInfo.h"
#include "SkinKit/Windows/Equalizer/EQWindowRenderer.h"
#include "SkinKit/Windows/Main/MainShadeRenderer.h"
#include "SkinKit/Windows/Main/MainWindowRenderer.h"
#include "SkinKit/Windows/Playlist/PlaylistWindowRenderer.h"
#include "VelmarThumbnail/ThumbnailProvider.h"
#include "fuzz/Fuzzing.h"

#include <optional>

namespace {

using namespace SkinKit;

// The other windows, which are as large as they say.
void renderOthers(const Skin& skin)
{
    for (const bool isShaded : {false, true}) {
        const EQWindowState state{.shaded = isShaded};
        fuzzing::require(
            EQWindowRenderer::render(skin, state, 1, EQWindowRenderer::Clip::toRegion).size() ==
            EQWindowRenderer::size(state, 1));
    }
    const PlaylistWindowState state{
        .entries = {{.name = "A – Ω"}, {.name = "b", .duration = 61}}
    };
    fuzzing::require(PlaylistWindowRenderer::render(skin, state, 1).size() ==
                     PlaylistWindowRenderer::size(state.steps, 1));
    fuzzing::require(PlaylistWindowRenderer::renderShade(skin, state, 1).size() ==
                     PlaylistWindowRenderer::shadeSize(state.steps, 1));
    fuzzing::require(MainShadeRenderer::render(skin, MainWindowState::idle(), 1,
                                               MainShadeRenderer::Clip::toRegion)
                         .size() == MainShadeRenderer::size(1));
}

// The picture that the desktop shows of it.
void drawThumbnail(const SkinArchive& archive)
{
    std::optional<VelmarThumbnail::ThumbnailReply> reply;
    VelmarThumbnail::ThumbnailProvider::provideThumbnail(
        {
            .maximumSize = {64, 64}
    },
        [&](auto given, const auto&) { reply = std::move(given); },
        [&](const auto&) { return archive; });
    const auto image = reply.value().image(1);
    fuzzing::require(image && image->width() <= 64 && image->height() <= 64);
}

}

// A whole skin, from the bytes of its file to its windows; two loads and renders must be alike.
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const SkinArchive::Limits limits{.maxEntryBytes = 1 << 17, .maxTotalBytes = 1 << 19};
    const ByteBuffer file = fuzzing::withPNGChecksums({data, size});
    const auto archive = SkinArchive::open(file, limits);
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

    const auto draw = [](const Skin& drawn) {
        return MainWindowRenderer::render(drawn, MainWindowState::webampScreenshot(), 2,
                                          MainWindowRenderer::Clip::toRegion);
    };
    const auto again = SkinParser::parse(*archive);
    fuzzing::require(again == skin && draw(*skin) == draw(*again));
    renderOthers(*skin);
    drawThumbnail(*archive);
    return 0;
}
