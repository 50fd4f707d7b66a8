#include "SkinKit/SkinParser.h"
#include "SkinKit/Sprites/SkinSprites.h"
#include "SkinKit/Tooling/SkinInfo.h"
#include "SkinKit/Windows/Desktop/DesktopRenderer.h"
#include "SkinKit/Windows/Equalizer/EQWindowRenderer.h"
#include "SkinKit/Windows/Main/MainWindowRenderer.h"
#include "SkinKit/Windows/Playlist/PlaylistWindowRenderer.h"
#include "VelmarThumbnail/ThumbnailProvider.h"
#include "fuzz/Fuzzing.h"

#include <optional>

namespace {

using namespace SkinKit;

template <class Renderer>
void requireSize(const Skin& skin, const typename Renderer::State& state)
{
    fuzzing::require(Renderer::render(skin, state, 1, Clip::toRegion).size() ==
                     Renderer::size(state, 1));
}

// The windows rolled up, and the picture that the desktop shows: each of the size it should have.
void drawOthers(const SkinArchive& archive, const Skin& skin)
{
    requireSize<MainWindowRenderer>(skin, {.shaded = true});
    requireSize<EQWindowRenderer>(skin, {.shaded = true});
    requireSize<PlaylistWindowRenderer>(skin, {.shaded = true});

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
    const auto state = DesktopState::webampScreenshot();
    const Image image = DesktopRenderer::render(*skin, state, 1, Clip::toRegion);
    fuzzing::require(again == skin && image.size() == DesktopRenderer::size(state, 1) &&
                     image == DesktopRenderer::render(*again, state, 1, Clip::toRegion));
    drawOthers(*archive, *skin);
    return 0;
}
