#include "SkinKit/SkinParser.h"
#include "SkinKit/Sprites/GeneratedBaseSkin.h"
#include "SkinKit/Sprites/SkinSprites.h"
#include "SkinKit/Tooling/SkinInfo.h"
#include "SkinKit/Windows/Equalizer/EQWindowRenderer.h"
#include "SkinKit/Windows/Main/MainWindowRenderer.h"
#include "SkinKit/Windows/Playlist/PlaylistWindowRenderer.h"
#include "VelmarThumbnail/ThumbnailProvider.h"
#include "fuzz/Fuzzing.h"
#include "fuzz/PNGChecksums.h"

#include <algorithm>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <utility>

namespace {

using namespace SkinKit;

using Notes = std::set<std::string, std::less<>>;

std::string fileOf(std::string_view sheet)
{
    std::string name(sheet);
    std::ranges::transform(name, name.begin(), [](char c) {
        return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
    });
    return name + ".bmp";
}

// Every text that a warning may have.
Notes allWarnings()
{
    Notes notes{"Missing numbers.bmp and nums_ex.bmp"};
    for (const auto& sheet : SkinSprites::sheets()) {
        notes.insert("Undecodable " + fileOf(sheet.name));
        if (!SkinSprites::isOptionalSheet(sheet.name))
            notes.insert("Missing " + fileOf(sheet.name));
    }
    return notes;
}

// Every text that a fallback may have, but for those that quote the skin.
Notes allFallbacks()
{
    Notes notes{"balance.bmp missing; balance slider uses volume.bmp",
                "nums_ex.bmp missing; digits use numbers.bmp",
                "numbers.bmp missing; digits use nums_ex.bmp",
                "eq_ex.bmp missing; EQ maximize button uses eqmain.bmp",
                "gen.bmp missing (not used in v1)",
                "viscolor.txt missing; Webamp defaults",
                "viscolor.txt has 23 of 24 colours; defaults for 23",
                "pledit.txt missing; Webamp default playlist colours"};
    for (const auto& sheet : SkinSprites::sheets())
        for (const std::string_view what : {" missing", " undecodable"})
            if (GeneratedBaseSkin::isGenerated(sheet.name))
                notes.insert(fileOf(sheet.name).append(what) + "; generated base");
    for (int count = 0; count < 23; ++count)
        notes.insert("viscolor.txt has " + std::to_string(count) + " of 24 colours; defaults for " +
                     std::to_string(count) + "–23");
    return notes;
}

void requireKnownNotes(const Skin& skin)
{
    static const Notes warnings = allWarnings();
    static const Notes fallbacks = allFallbacks();
    for (const auto& note : skin.warnings)
        fuzzing::require(warnings.contains(note));
    for (const auto& note : skin.fallbacks)
        fuzzing::require(fallbacks.contains(note) || (note.starts_with("pledit.txt ") &&
                                                      note.ends_with("' unusable; default")));
}

void requireSound(const Skin& skin)
{
    requireKnownNotes(skin);
    for (const auto& [name, image] : skin.sheets)
        fuzzing::require(!SkinSprites::spritesOf(name).empty());
    for (const auto& name : skin.generatedSheets)
        fuzzing::require(skin.sheets.contains(name));
    for (const auto name : RequiredSprites::missing(skin))
        fuzzing::require(SkinSprites::byName(name).has_value());
}

Image mainWindow(const Skin& skin)
{
    return MainWindowRenderer::render(skin, MainWindowState::webampScreenshot(), 2, Clip::toRegion);
}

// Every window, which is as large as it says.
template <class Renderer>
void render(const Skin& skin, typename Renderer::State state)
{
    for (const bool isShaded : {false, true}) {
        state.shaded = isShaded;
        const auto image = Renderer::render(skin, state, 1, Clip::toRegion);
        fuzzing::require(image.size() == Renderer::size(state, 1));
    }
}

void renderAll(const Skin& skin)
{
    render<MainWindowRenderer>(skin, {});
    render<EQWindowRenderer>(skin, {});
    render<PlaylistWindowRenderer>(
        skin, {
                  .entries = {{.name = "A – Ω"}, {.name = "b", .duration = 61}}
    });
}

// The picture that the desktop shows of it.
void drawThumbnail(const SkinArchive& archive)
{
    namespace Provider = VelmarThumbnail::ThumbnailProvider;
    const VelmarThumbnail::ThumbnailRequest request{
        .maximumSize = {64, 64}
    };
    std::optional<VelmarThumbnail::ThumbnailReply> reply;
    Provider::provideThumbnail(
        request, [&](auto given, const auto&) { reply = std::move(given); },
        [&](const auto&) { return archive; });
    fuzzing::require(reply.has_value());
    const auto image = reply->image(1);
    fuzzing::require(image && image->width() <= 64 && image->height() <= 64);
}

// Pixels of the sheets that the skin brought.
std::int64_t pixelsOf(const Skin& skin)
{
    std::int64_t pixels = 0;
    for (const auto& [name, image] : skin.sheets)
        if (!skin.generatedSheets.contains(name))
            pixels += std::int64_t{image.width()} * image.height();
    return pixels;
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
    requireSound(*skin);
    const auto info = SkinInfo::of("a", *archive, *skin);
    fuzzing::require(JSON::parse(info.json().text()) == info.json());
    // Large sheets show nothing that small ones do not, only more slowly.
    constexpr std::int64_t largeEnough = 100'000;
    if (pixelsOf(*skin) > largeEnough)
        return fuzzing::notKept;

    const auto again = SkinParser::parse(*archive);
    fuzzing::require(again == skin);
    const Image image = mainWindow(*skin);
    fuzzing::require(image.size() == Size{550, 232} && image == mainWindow(*again));
    renderAll(*skin);
    drawThumbnail(*archive);
    return 0;
}
