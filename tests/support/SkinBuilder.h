#pragma once

#include "SkinKit/Archive/SkinArchive.h"
#include "SkinKit/Archive/SkinError.h"
#include "SkinKit/Skin.h"
#include "tests/support/BMPWriter.h"

#include <expected>
#include <filesystem>
#include <string>
#include <string_view>

namespace support {

// A skin put together in memory, so that a test shows its whole input and its one flaw.
class SkinBuilder {
public:
    // A file of the skin; a second one of the same name replaces the first.
    SkinBuilder& file(std::string name, ByteView content);
    SkinBuilder& text(std::string name, std::string_view content)
    {
        return file(std::move(name), bytes(content));
    }
    SkinBuilder& sheet(std::string name, const SkinKit::Image& image)
    {
        return file(std::move(name), encodeBMP(image, 24));
    }
    // All sixteen sheets in full size, each of one colour of its own (`sheetColor`).
    SkinBuilder& allSheets();
    SkinBuilder& without(std::string_view name);

    static SkinKit::RGBColor sheetColor(std::string_view sheet);

    SkinKit::SkinArchive archive() const { return SkinKit::SkinArchive(files_); }
    std::expected<SkinKit::Skin, SkinKit::SkinError> parse() const;
    // As a ZIP file.
    ByteBuffer zip() const;
    // As files in a folder, which is made.
    std::string unpack(const std::filesystem::path& folder) const;

private:
    SkinKit::SkinArchive::Table files_;
};

}
