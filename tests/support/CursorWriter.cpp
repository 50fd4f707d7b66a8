#include "tests/support/CursorWriter.h"

#include <algorithm>
#include <stdexcept>

namespace support {
namespace {

constexpr std::size_t bmpHeaderBytes = 14;
constexpr std::size_t heightOffset = 8;

ByteBuffer numbers(const std::vector<std::uint32_t>& values)
{
    ByteBuffer bytes;
    for (const auto value : values)
        append32(bytes, value);
    return bytes;
}

void appendMask(ByteBuffer& target, const std::vector<std::string_view>& mask)
{
    for (auto row = mask.rbegin(); row != mask.rend(); ++row) {
        ByteBuffer bits((row->size() + 31) / 32 * 4);
        std::fill(bits.begin(), bits.end(), std::uint8_t{0});
        for (std::size_t x = 0; x < row->size(); ++x)
            if ((*row)[x] == '#')
                bits[x / 8] = static_cast<std::uint8_t>(bits[x / 8] | 0x80 >> x % 8);
        append(target, bits);
    }
}

}

ByteBuffer cursorPicture(ByteView bmp, const std::vector<std::string_view>& mask)
{
    if (bmp.size() < bmpHeaderBytes + heightOffset + 4)
        throw std::invalid_argument("no bitmap file");
    ByteBuffer picture(bmp.begin() + bmpHeaderBytes, bmp.end());
    std::uint32_t height = 0;
    for (std::size_t i = 0; i < 4; ++i)
        height |= static_cast<std::uint32_t>(picture[heightOffset + i]) << (8 * i);
    put32(picture, heightOffset, 2 * height);
    appendMask(picture, mask);
    return picture;
}

ByteBuffer CurFile::bytes() const
{
    ByteBuffer file;
    file.reserve(6 + 16 * entries.size());
    append16(file, 0);
    append16(file, static_cast<std::uint32_t>(type));
    append16(file, static_cast<std::uint32_t>(count.value_or(static_cast<int>(entries.size()))));
    std::size_t offset = file.size() + 16 * entries.size();
    for (const CurEntry& entry : entries) {
        file.push_back(static_cast<std::uint8_t>(entry.size.width));
        file.push_back(static_cast<std::uint8_t>(entry.size.height));
        append16(file, 0);
        append16(file, static_cast<std::uint32_t>(entry.hotSpot.x));
        append16(file, static_cast<std::uint32_t>(entry.hotSpot.y));
        append32(file,
                 entry.pictureBytes.value_or(static_cast<std::uint32_t>(entry.picture.size())));
        append32(file, entry.offset.value_or(static_cast<std::uint32_t>(offset)));
        offset += entry.picture.size();
    }
    for (const CurEntry& entry : entries)
        append(file, entry.picture);
    return file;
}

ByteBuffer curFile(ByteView picture, SkinKit::Point hotSpot)
{
    return CurFile{{{.picture = {picture.begin(), picture.end()}, .hotSpot = hotSpot}}}.bytes();
}

ByteBuffer chunk(std::string_view name, ByteView content, std::optional<std::uint32_t> size)
{
    ByteBuffer result = bytes(name);
    append32(result, size.value_or(static_cast<std::uint32_t>(content.size())));
    append(result, content);
    if (content.size() % 2 != 0)
        result.push_back(0);
    return result;
}

ByteBuffer AniFile::bytes() const
{
    const auto count = static_cast<std::uint32_t>(frames.size());
    const auto stepCount = sequence.empty() ? count : static_cast<std::uint32_t>(sequence.size());
    ByteBuffer content = support::bytes("ACON");
    if (hasHeader)
        append(content, chunk("anih", numbers({36, count, steps.value_or(stepCount), 0, frameHeight,
                                               0, 0, defaultRate, flags})));
    append(content, extraChunks);
    if (!rates.empty())
        append(content, chunk("rate", numbers(rates)));
    if (!sequence.empty())
        append(content, chunk("seq ", numbers(sequence)));
    ByteBuffer list = support::bytes("fram");
    for (const auto& frame : frames)
        append(list, chunk("icon", frame));
    append(content, chunk("LIST", list, listBytes));
    return chunk("RIFF", content);
}

}
