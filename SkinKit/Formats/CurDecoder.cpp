#include "SkinKit/Formats/CurDecoder.h"

#include "SkinKit/Base/ByteReader.h"
#include "SkinKit/Formats/CursorPicture.h"

#include <algorithm>
#include <utility>

// A cursor file:
//
//     0  0, type, number of entries         2 bytes each; type 1 is an icon, 2 a cursor
//     6  entries                            16 bytes each:
//        width, height, colours, reserved   1 byte each; a side of 0 is 256
//        hot spot x, y                      2 bytes each; of an icon planes and bits instead
//        size, offset of the picture        4 bytes each
namespace SkinKit::CurDecoder {
namespace {

enum Type : std::uint16_t { icon = 1, cursor = 2 };

constexpr std::int64_t entryBytes = 16;

struct Entry {
    std::int64_t height = 0;
    Point hotSpot;
    std::int64_t size = 0;
    std::int64_t offset = 0;
};

std::optional<Entry> readEntry(ByteReader& reader)
{
    if (reader.remaining() < entryBytes)
        return std::nullopt;
    Entry entry;
    const auto sides = *reader.bytes(4);
    entry.height = sides[1] == 0 ? CursorPicture::maxSide : sides[1];
    entry.hotSpot.x = *reader.u16();
    entry.hotSpot.y = *reader.u16();
    entry.size = *reader.u32();
    entry.offset = *reader.u32();
    return entry;
}

std::optional<CursorImage> decodeEntry(ByteView bytes, const Entry& entry, LoadMeter& meter)
{
    if (entry.offset >= std::ssize(bytes))
        return std::nullopt;
    const auto rest = bytes.subspan(static_cast<std::size_t>(entry.offset));
    const auto size = std::min(rest.size(), static_cast<std::size_t>(entry.size));
    return CursorPicture::decode(rest.first(size), entry.height, meter);
}

Point nearestPixel(Point point, Size size)
{
    return {std::min(point.x, size.width - 1), std::min(point.y, size.height - 1)};
}

}

std::optional<StaticCursor> decode(ByteView bytes)
{
    LoadMeter meter;
    return decode(bytes, meter);
}

std::optional<StaticCursor> decode(ByteView bytes, LoadMeter& meter)
{
    ByteReader reader(bytes);
    const auto reserved = reader.u16();
    const auto type = reader.u16();
    const auto count = reader.u16();
    if (!count || *reserved != 0 || (*type != icon && *type != cursor))
        return std::nullopt;

    StaticCursor result;
    for (int i = 0; i < *count; ++i) {
        const auto entry = readEntry(reader);
        if (!entry || !meter.hasTimeAfter(entryBytes))
            break;
        auto image = decodeEntry(bytes, *entry, meter);
        if (!image)
            continue;
        if (*type == cursor)
            image->hotSpot = nearestPixel(entry->hotSpot, image->image.size());
        result.images.push_back(std::move(*image));
    }
    if (result.images.empty())
        return std::nullopt;
    return result;
}

}
