#include "tests/support/SkinBuilder.h"

#include "SkinKit/Base/Unicode.h"
#include "SkinKit/SkinParser.h"
#include "SkinKit/Sprites/GeneratedBaseSkin.h"
#include "SkinKit/Sprites/SkinSprites.h"
#include "tests/support/ZipWriter.h"

#include <algorithm>
#include <fstream>

namespace support {

SkinBuilder& SkinBuilder::file(std::string name, ByteView content)
{
    files_.insert_or_assign(std::move(name), ByteBuffer(content.begin(), content.end()));
    return *this;
}

SkinBuilder& SkinBuilder::allSheets()
{
    for (const auto& sheet : SkinKit::SkinSprites::sheets())
        this->sheet(
            SkinKit::Unicode::lowercased(sheet.name) + ".bmp",
            solidImage(SkinKit::GeneratedBaseSkin::size(sheet.name), sheetColor(sheet.name)));
    return *this;
}

SkinBuilder& SkinBuilder::without(std::string_view name)
{
    std::erase_if(files_, [name](const auto& file) { return file.first == name; });
    return *this;
}

SkinKit::RGBColor SkinBuilder::sheetColor(std::string_view sheet)
{
    const auto sheets = SkinKit::SkinSprites::sheets();
    const auto place =
        std::ranges::find(sheets, sheet, &SkinKit::SkinSprites::Sheet::name) - sheets.begin();
    return {static_cast<std::uint8_t>(15 + 15 * place), static_cast<std::uint8_t>(240 - 10 * place),
            static_cast<std::uint8_t>(place)};
}

std::expected<SkinKit::Skin, SkinKit::SkinError> SkinBuilder::parse() const
{
    return SkinKit::SkinParser::parse(archive());
}

ByteBuffer SkinBuilder::zip() const
{
    ZipWriter writer;
    for (const auto& [name, content] : files_)
        writer.add(name, content);
    return writer.bytes();
}

std::string SkinBuilder::unpack(const std::filesystem::path& folder) const
{
    std::filesystem::create_directories(folder);
    for (const auto& [name, content] : files_)
        std::ofstream(folder / name, std::ios::binary) << SkinKit::asText(content);
    return folder.string();
}

}
