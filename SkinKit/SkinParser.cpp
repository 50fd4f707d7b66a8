#include "SkinKit/SkinParser.h"

#include "SkinKit/Base/LoadMeter.h"
#include "SkinKit/Base/Unicode.h"
#include "SkinKit/Formats/PlaylistStyleParser.h"
#include "SkinKit/Formats/RegionParser.h"
#include "SkinKit/Formats/VisColorParser.h"
#include "SkinKit/Graphics/BMPDecoder.h"
#include "SkinKit/Graphics/PNGCodec.h"
#include "SkinKit/Sprites/GeneratedBaseSkin.h"
#include "SkinKit/Sprites/SkinSprites.h"
#include "SkinKit/System/Process.h"

#include <algorithm>
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

// Files are taken for what they hold, not for what they are called.
std::optional<Image> decodeSheet(ByteView bytes, LoadMeter& meter)
{
    auto image = PNGCodec::decode(bytes, {BMPDecoder::maxSide, BMPDecoder::maxPixels}, meter);
    return image ? image : BMPDecoder::decode(bytes);
}

// The corner of the image that sprites can lie in, in memory of its own.
Image drawnPart(Image image)
{
    if (image.width() <= SkinSprites::extent.width && image.height() <= SkinSprites::extent.height)
        return image;
    const Size size{std::min(image.width(), SkinSprites::extent.width),
                    std::min(image.height(), SkinSprites::extent.height)};
    auto pixels = PixelBuffer::uninitialized(size);
    for (int y = 0; y < size.height; ++y)
        std::ranges::copy(image.row(y).first(static_cast<std::size_t>(size.width)),
                          pixels.row(y).begin());
    return {std::move(pixels), image.isOpaque() ? Image::Alpha::opaque : Image::Alpha::any};
}

// The skin while it is being put together. Each step adds its notes, so their order is the order of
// the steps.
class Assembly {
public:
    explicit Assembly(const SkinArchive& archive)
        : archive_(archive), meter_(Process::threadTime, archive.timeLeft())
    {
    }

    bool isOutOfTime() const { return meter_.isOutOfTime(); }

    void loadSheets(Sheets sheets)
    {
        for (const auto& sheet : SkinSprites::sheets()) {
            const auto bytes = archive_.file(sheet.name, {"bmp", "png"});
            if (!bytes) {
                missing_.insert(sheet.name);
            } else if (auto image = decodeSheet(*bytes, meter_)) {
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
        const auto [colors, count] = VisColorParser::parseCounted(*bytes, meter_);
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
            skin_.region = RegionParser::parse(*bytes, meter_);
    }

    void readPlaylistStyle()
    {
        const auto bytes = archive_.file("pledit", {"txt"});
        if (!bytes)
            return addFallback("pledit.txt missing; Webamp default playlist colours");
        auto [style, notes] = PlaylistStyleParser::parse(*bytes, meter_);
        skin_.playlistStyle = std::move(style);
        for (auto& note : notes)
            addFallback(std::move(note));
    }

    void readCursors() { skin_.cursors = SkinCursors::load(archive_, meter_); }

    Skin take() { return std::move(skin_); }

private:
    bool has(std::string_view sheet) const { return skin_.sheets.contains(sheet); }
    bool isMissing(std::string_view sheet) const { return missing_.contains(sheet); }
    void addFallback(std::string note) { skin_.fallbacks.push_back(std::move(note)); }

    const SkinArchive& archive_;
    LoadMeter meter_;
    Skin skin_;
    Names missing_;
    Names undecodable_;
};

}

std::expected<Skin, SkinError> parse(const std::filesystem::path& path,
                                     const SkinArchive::Limits& limits, Sheets sheets)
{
    const auto archive = SkinArchive::open(path, limits);
    if (!archive)
        return std::unexpected(archive.error());
    return parse(*archive, sheets);
}

std::expected<Skin, SkinError> parse(const SkinArchive& archive, Sheets sheets)
{
    if (archive.file("skin", {"xml"}))
        return std::unexpected(SkinError::modernSkin());

    Assembly assembly(archive);
    assembly.loadSheets(sheets);
    if (!assembly.hasSheets() && !assembly.isOutOfTime())
        return std::unexpected(SkinError::noBitmaps());
    assembly.generateSheets();
    assembly.noteMissingSheets();
    assembly.noteOptionalSheets();
    assembly.readVisColors();
    assembly.readRegion();
    assembly.readPlaylistStyle();
    assembly.readCursors();
    if (assembly.isOutOfTime())
        return std::unexpected(SkinError::takesTooLong());
    return assembly.take();
}

}
