#include "SkinKit/SkinParser.h"

#include "SkinKit/Parsers/BMPDecoder.h"
#include "SkinKit/Parsers/PlaylistStyleParser.h"
#include "SkinKit/Parsers/RegionParser.h"
#include "SkinKit/Parsers/VisColorParser.h"
#include "SkinKit/Platform/Inflate.h"
#include "SkinKit/Platform/PNGCodec.h"
#include "SkinKit/Platform/Unicode.h"
#include "SkinKit/Sprites/GeneratedBaseSkin.h"
#include "SkinKit/Sprites/SkinSprites.h"

#include <algorithm>
#include <cstdint>
#include <optional>
#include <set>
#include <string>
#include <utility>

namespace SkinKit::SkinParser {
namespace {

using Names = std::set<std::string_view>;

std::string bitmapName(std::string_view sheet)
{
    return Unicode::lowercased(sheet) + ".bmp";
}

// Decodes sheets. Those that are PNG files share a budget, from which each takes its part before it
// is decoded: a hundred thousand bytes of PNG may take as long as all honest sheets together.
class SheetDecoder {
public:
    // Files are taken for what they hold, not for what they are called.
    std::optional<Image> decode(ByteView bytes)
    {
        auto image = decodePNG(bytes);
        return image ? image : BMPDecoder::decode(bytes);
    }

private:
    std::optional<Image> decodePNG(ByteView bytes)
    {
        const auto size = PNGCodec::size(bytes);
        if (!size)
            return std::nullopt;
        const std::int64_t pixels = std::int64_t{size->width} * size->height;
        const auto count = std::ssize(bytes);
        if (size->width > BMPDecoder::maxSide || size->height > BMPDecoder::maxSide ||
            pixels > BMPDecoder::maxPixels || pixels > pixels_ || count > bytes_)
            return std::nullopt;
        // What it costs is what it can hold, not what it claims: a false size must not take the
        // part of the sheets that follow.
        constexpr std::int64_t mostPixelsPerByte = 8 * mostInflatedPerByte;
        pixels_ -= std::min(pixels, mostPixelsPerByte * count);
        bytes_ -= count;
        return PNGCodec::decode(bytes, {BMPDecoder::maxSide, BMPDecoder::maxPixels});
    }

    std::int64_t pixels_ = 32 << 20;
    std::int64_t bytes_ = 16 << 20;
};

// The corner of the image that sprites can lie in, in memory of its own.
Image drawnPart(Image image)
{
    if (image.width() <= SkinSprites::extent.width && image.height() <= SkinSprites::extent.height)
        return image;
    const Size size{std::min(image.width(), SkinSprites::extent.width),
                    std::min(image.height(), SkinSprites::extent.height)};
    auto pixels = PixelBuffer::uncleared(size);
    for (int y = 0; y < size.height; ++y)
        std::ranges::copy(image.row(y).first(static_cast<std::size_t>(size.width)),
                          pixels.row(y).begin());
    return {std::move(pixels), image.isOpaque() ? Image::Alpha::opaque : Image::Alpha::any};
}

// The skin while it is being put together. Each step adds its notes, so their order is the order of
// the steps.
class Assembly {
public:
    explicit Assembly(const SkinArchive& archive) : archive_(archive) {}

    void loadSheets(Sheets sheets)
    {
        SheetDecoder decoder;
        for (const auto& sheet : SkinSprites::sheets()) {
            const auto bytes = archive_.file(sheet.name, {"bmp", "png"});
            if (!bytes) {
                missing_.insert(sheet.name);
            } else if (auto image = decoder.decode(*bytes)) {
                skin_.sheets.emplace(sheet.name, sheets == Sheets::whole
                                                     ? std::move(*image)
                                                     : drawnPart(std::move(*image)));
            } else {
                undecodable_.insert(sheet.name);
                skin_.warnings.push_back("Undecodable " + bitmapName(sheet.name));
            }
        }
    }

    bool hasSheets() const { return !skin_.sheets.empty(); }

    void generateSheets()
    {
        for (const auto& sheet : SkinSprites::sheets()) {
            if (has(sheet.name) || (sheet.name == "NUMBERS" && has("NUMS_EX")))
                continue;
            auto image = GeneratedBaseSkin::sheet(sheet.name);
            if (!image)
                continue;
            skin_.sheets.emplace(sheet.name, std::move(*image));
            skin_.generatedSheets.emplace(sheet.name);
            skin_.fallbacks.push_back(
                bitmapName(sheet.name) +
                (undecodable_.contains(sheet.name) ? " undecodable" : " missing") +
                "; generated base");
        }
    }

    void noteMissingSheets()
    {
        for (const auto name : missing_)
            if (!SkinSprites::isOptionalSheet(name))
                skin_.warnings.push_back("Missing " + bitmapName(name));
    }

    void noteOptionalSheets()
    {
        if (isMissing("BALANCE") && has("VOLUME"))
            addFallback("balance.bmp missing; balance slider uses volume.bmp");
        if (isMissing("NUMBERS") && isMissing("NUMS_EX"))
            skin_.warnings.emplace_back("Missing numbers.bmp and nums_ex.bmp");
        else if (isMissing("NUMS_EX"))
            addFallback("nums_ex.bmp missing; digits use numbers.bmp");
        else if (isMissing("NUMBERS"))
            addFallback("numbers.bmp missing; digits use nums_ex.bmp");
        if (isMissing("EQ_EX"))
            addFallback("eq_ex.bmp missing; EQ maximize button uses eqmain.bmp");
        if (isMissing("GEN"))
            addFallback("gen.bmp missing (not used in v1)");
    }

    void readVisColors()
    {
        const auto bytes = archive_.file("viscolor", {"txt"});
        if (!bytes)
            return addFallback("viscolor.txt missing; Webamp defaults");
        const auto [colors, count] = VisColorParser::parseCounted(*bytes);
        skin_.visColors = colors;
        if (count == VisColorParser::colorCount)
            return;
        constexpr int last = VisColorParser::colorCount - 1;
        const std::string number = std::to_string(count);
        addFallback("viscolor.txt has " + number + " of 24 colours; defaults for " +
                    (count == last ? number : number + "\u2013" + std::to_string(last)));
    }

    void readRegion()
    {
        if (const auto bytes = archive_.file("region", {"txt"}))
            skin_.region = RegionParser::parse(*bytes);
    }

    void readPlaylistStyle()
    {
        const auto bytes = archive_.file("pledit", {"txt"});
        if (!bytes)
            return addFallback("pledit.txt missing; Webamp default playlist colours");
        auto [style, notes] = PlaylistStyleParser::parse(*bytes);
        skin_.playlistStyle = std::move(style);
        for (auto& note : notes)
            addFallback(std::move(note));
    }

    void readCursors() { skin_.cursors = SkinCursors::load(archive_); }

    Skin take() { return std::move(skin_); }

private:
    bool has(std::string_view sheet) const { return skin_.sheets.contains(sheet); }
    bool isMissing(std::string_view sheet) const { return missing_.contains(sheet); }
    void addFallback(std::string note) { skin_.fallbacks.push_back(std::move(note)); }

    const SkinArchive& archive_;
    Skin skin_;
    Names missing_;
    Names undecodable_;
};

}

std::expected<Skin, SkinError> parse(const std::filesystem::path& path,
                                     const SkinArchive::Limits& limits)
{
    const auto archive = SkinArchive::open(path, limits);
    if (!archive)
        return std::unexpected(archive.error());
    return parse(*archive);
}

std::expected<Skin, SkinError> parse(const SkinArchive& archive, Sheets sheets)
{
    if (archive.file("skin", {"xml"}))
        return std::unexpected(SkinError::modernSkin());

    Assembly assembly(archive);
    assembly.readRegion(); // before the sheets, which leave least memory for what reading takes
    assembly.loadSheets(sheets);
    if (!assembly.hasSheets())
        return std::unexpected(SkinError::noBitmaps());
    assembly.generateSheets();
    assembly.noteMissingSheets();
    assembly.noteOptionalSheets();
    assembly.readVisColors();
    assembly.readPlaylistStyle();
    assembly.readCursors();
    return assembly.take();
}

}
