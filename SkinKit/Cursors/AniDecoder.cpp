#include "SkinKit/Cursors/AniDecoder.h"

#include "SkinKit/Cursors/CurDecoder.h"
#include "SkinKit/Cursors/CursorPicture.h"
#include "SkinKit/Parsers/ByteReader.h"

#include <algorithm>
#include <climits>
#include <ranges>
#include <utility>

// An animated cursor file:
//
//     0  "RIFF", size, "ACON"
//    12  chunks               name, size, that many bytes, and one more when the size is odd:
//        "anih"               the header
//        "rate"               the duration of each step
//        "seq "               the frame of each step; without it each frame is shown in turn
//        "LIST"               of "fram": an "icon" chunk for each frame; others are no concern
//
// All numbers have 4 bytes.
namespace SkinKit::AniDecoder {
namespace {

constexpr std::int64_t fileHeaderBytes = 12;
constexpr std::size_t nameBytes = 4;

// The bytes of what matters; of several chunks where there should be one, the first.
struct Chunks {
    std::optional<ByteView> header, rates, sequence;
    std::vector<ByteView> frames;

    void add(std::string_view name, ByteView content)
    {
        if (name == "icon")
            frames.push_back(content);
        else if (name == "anih" && !header)
            header = content;
        else if (name == "rate" && !rates)
            rates = content;
        else if (name == "seq " && !sequence)
            sequence = content;
    }
};

// The sizes of the file and of the list of frames are often wrong. They are not needed: the list's
// chunks are taken as if they stood in the file, which is read to its end.
Chunks findChunks(ByteView bytes)
{
    Chunks chunks;
    ByteReader reader(bytes, fileHeaderBytes);
    while (const auto name = reader.bytes(nameBytes)) {
        const auto size = reader.u32();
        if (!size)
            break;
        const std::int64_t start = reader.offset();
        const auto content = *reader.bytes(std::min<std::int64_t>(*size, reader.remaining()));
        if (*size % 2 != 0 && reader.remaining() > 0)
            reader.bytes(1);

        if (asText(*name) == "LIST" && asText(content).starts_with("fram"))
            reader = ByteReader(bytes, start + static_cast<std::int64_t>(nameBytes));
        else
            chunks.add(asText(*name), content);
    }
    return chunks;
}

struct Header {
    std::uint32_t steps = 0;
    std::uint32_t frameHeight = 0;
    int defaultJiffies = 1;
};

int asJiffies(std::uint32_t rate)
{
    return static_cast<int>(std::clamp<std::uint32_t>(rate, 1, INT_MAX));
}

std::optional<Header> readHeader(ByteView bytes)
{
    constexpr std::size_t headerBytes = 36;
    if (bytes.size() < headerBytes)
        return std::nullopt;
    Header header;
    ByteReader reader(bytes);
    reader.bytes(8); // own size, number of frames
    header.steps = *reader.u32();
    reader.u32(); // width
    header.frameHeight = *reader.u32();
    reader.bytes(8); // bit count, planes
    header.defaultJiffies = asJiffies(*reader.u32());
    return header;
}

std::optional<StaticCursor> decodeFrame(ByteView bytes, const Header& header,
                                        CursorPicture::Budget& budget)
{
    // A directory starts with a 0, a single picture never does.
    if (ByteReader(bytes).u16() == 0)
        return CurDecoder::decode(bytes, budget);
    auto image = CursorPicture::decode(bytes, header.frameHeight, budget);
    if (!image)
        return std::nullopt;
    return StaticCursor{{std::move(*image)}};
}

std::vector<std::uint32_t> numbersIn(ByteView bytes)
{
    std::vector<std::uint32_t> numbers;
    ByteReader reader(bytes);
    while (const auto number = reader.u32())
        numbers.push_back(*number);
    return numbers;
}

// The frame of each step, by its number in the file.
std::vector<std::uint32_t> frameNumbers(const Chunks& chunks, const Header& header)
{
    auto numbers = numbersIn(chunks.sequence.value_or(ByteView{}));
    if (numbers.empty()) {
        numbers.resize(chunks.frames.size());
        std::ranges::copy(std::views::iota(0U, static_cast<std::uint32_t>(numbers.size())),
                          numbers.begin());
    } else if (header.steps != 0 && header.steps < numbers.size()) {
        numbers.resize(header.steps);
    }
    return numbers;
}

}

std::optional<AnimatedCursor> decode(ByteView bytes)
{
    if (std::ssize(bytes) < fileHeaderBytes || !asText(bytes).starts_with("RIFF") ||
        asText(bytes).substr(8, nameBytes) != "ACON")
        return std::nullopt;
    const Chunks chunks = findChunks(bytes);
    const auto header = readHeader(chunks.header.value_or(ByteView{}));
    if (!header)
        return std::nullopt;

    AnimatedCursor cursor;
    cursor.defaultJiffies = header->defaultJiffies;
    CursorPicture::Budget budget(bytes);
    std::vector<std::optional<int>> places; // in `cursor.frames`, of each frame of the file
    for (const auto content : chunks.frames) {
        auto frame = decodeFrame(content, *header, budget);
        places.push_back(frame ? std::optional(static_cast<int>(cursor.frames.size()))
                               : std::nullopt);
        if (frame)
            cursor.frames.push_back(std::move(*frame));
    }

    const auto numbers = frameNumbers(chunks, *header);
    const auto rates = numbersIn(chunks.rates.value_or(ByteView{}));
    for (std::size_t i = 0; i < numbers.size(); ++i) {
        if (numbers[i] >= places.size() || !places[numbers[i]])
            continue;
        const bool hasRate = i < rates.size() && rates[i] != 0;
        cursor.steps.push_back(
            {*places[numbers[i]], hasRate ? asJiffies(rates[i]) : cursor.defaultJiffies});
    }
    if (cursor.steps.empty())
        return std::nullopt;
    return cursor;
}

}
