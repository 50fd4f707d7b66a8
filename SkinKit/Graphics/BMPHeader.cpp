#include "SkinKit/Graphics/BMPHeader.h"

#include "SkinKit/Base/ByteReader.h"

#include <algorithm>
#include <bit>
#include <iterator>

namespace SkinKit {
namespace {

constexpr std::uint32_t knownSizes[] = {12, 40, 52, 56, 108, 124};

}

std::optional<BMPHeader> BMPHeader::read(ByteView bytes)
{
    ByteReader reader(bytes);
    BMPHeader header;
    header.headerBytes = reader.u32().value_or(0);
    if (std::ranges::find(knownSizes, header.headerBytes) == std::end(knownSizes) ||
        std::ssize(bytes) < header.headerBytes)
        return std::nullopt;

    const auto side = [&]() -> std::int64_t {
        return header.isCore() ? *reader.u16() : std::bit_cast<std::int32_t>(*reader.u32());
    };
    header.width = side();
    header.height = side();
    reader.u16(); // planes
    header.bitCount = *reader.u16();
    if (!header.isCore()) {
        header.compression = *reader.u32();
        reader.bytes(12); // image size and the two resolutions
        header.colorsUsed = *reader.u32();
    }
    return header;
}

int BMPHeader::paletteEntries() const
{
    if (bitCount > 8)
        return 0;
    const std::uint32_t most = 1U << bitCount;
    return static_cast<int>(colorsUsed != 0 && colorsUsed <= most ? colorsUsed : most);
}

std::int64_t BMPHeader::paletteOffset() const
{
    const bool masksFollow = compression == bitFields && headerBytes == infoBytes;
    return headerBytes + (masksFollow ? masksBytes : 0);
}

std::int64_t BMPHeader::paletteEnd() const
{
    return paletteOffset() + std::int64_t{paletteEntries()} * paletteEntryBytes();
}

}
