#pragma once

#include "SkinKit/Graphics/Geometry.h"
#include "tests/support/BMPWriter.h"

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

// Cursor files, written from the formats' tables, so that any field can be wrong.
namespace support {

// A picture as it lies in a cursor file: a bitmap without its file header, the height doubled, and
// the mask, '#' a set bit. Without rows there is no mask.
ByteBuffer cursorPicture(ByteView bmp, const std::vector<std::string_view>& mask = {});

// One entry of a directory. What is not set is what a well-formed file would have.
struct CurEntry {
    ByteBuffer picture;
    SkinKit::Size size{1, 1}; // as the directory has it, of which each side keeps one byte
    SkinKit::Point hotSpot;
    std::optional<std::uint32_t> pictureBytes;
    std::optional<std::uint32_t> offset;
};

struct CurFile {
    std::vector<CurEntry> entries;
    int type = 2;
    std::optional<int> count;

    ByteBuffer bytes() const;
};

// A cursor of one picture.
ByteBuffer curFile(ByteView picture, SkinKit::Point hotSpot = {});

// A name of four letters, a size and the bytes, padded to an even number.
ByteBuffer chunk(std::string_view name, ByteView content,
                 std::optional<std::uint32_t> size = std::nullopt);

struct AniFile {
    std::vector<ByteBuffer> frames; // what the "icon" chunks hold
    std::vector<std::uint32_t> sequence;
    std::vector<std::uint32_t> rates;
    std::uint32_t defaultRate = 10;
    std::optional<std::uint32_t> steps; // of the header, like the next two
    std::uint32_t frameHeight = 0;
    std::uint32_t flags = 1;
    bool hasHeader = true;
    ByteBuffer extraChunks;                 // between the header and the rest
    std::optional<std::uint32_t> listBytes; // the size that the list of frames claims

    ByteBuffer bytes() const;
};

}
