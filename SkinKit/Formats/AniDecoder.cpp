#include "SkinKit/Formats/AniDecoder.h"

#include "SkinKit/Base/ByteReader.h"
#include "SkinKit/Formats/CurDecoder.h"
#include "SkinKit/Formats/CursorPicture.h"

#include <algorithm>
#include <climits>
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
Chunks findChunks(ByteView bytes, LoadMeter::Scratch& memory)
{
    constexpr std::int64_t chunkBytes = 4 * sizeof(ByteView); // kept here, and its frame's place
    Chunks chunks;
    ByteReader reader(bytes, fileHeaderBytes);
    while (memory.take(chunkBytes)) {
        const auto name = reader.bytes(nameBytes);
        if (!name)
            break;
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

std::optional<StaticCursor> decodeFrame(ByteView bytes, const Header& header, LoadMeter& meter)
{
    // A directory starts with a 0, a single picture never does.
    if (ByteReader(bytes).u16() == 0)
        return CurDecoder::decode(bytes, meter);
    auto image = CursorPicture::decode(bytes, header.frameHeight, meter);
    if (!image)
        return std::nullopt;
    return StaticCursor{{std::move(*image)}};
}

// A chunk of numbers, one for each step.
class Numbers {
public:
    explicit Numbers(const std::optional<ByteView>& chunk) : bytes_(chunk.value_or(ByteView{})) {}

    std::int64_t count() const { return std::ssize(bytes_) / numberBytes; }
    std::optional<std::uint32_t> at(std::int64_t step) const
    {
        return ByteReader(bytes_, step * numberBytes).u32();
    }

private:
    static constexpr std::int64_t numberBytes = 4;

    ByteView bytes_;
};

std::int64_t stepCount(const Numbers& sequence, const Chunks& chunks, const Header& header)
{
    if (sequence.count() == 0)
        return std::ssize(chunks.frames);
    return header.steps == 0 ? sequence.count()
                             : std::min<std::int64_t>(header.steps, sequence.count());
}

}

std::optional<AnimatedCursor> decode(ByteView bytes)
{
    LoadMeter meter;
    return decode(bytes, meter);
}

std::optional<AnimatedCursor> decode(ByteView bytes, LoadMeter& meter)
{
    if (std::ssize(bytes) < fileHeaderBytes || !asText(bytes).starts_with("RIFF") ||
        asText(bytes).substr(8, nameBytes) != "ACON")
        return std::nullopt;
    LoadMeter::Scratch memory(meter);
    const Chunks chunks = findChunks(bytes, memory);
    const auto header = readHeader(chunks.header.value_or(ByteView{}));
    if (!header)
        return std::nullopt;

    AnimatedCursor cursor;
    cursor.defaultJiffies = header->defaultJiffies;
    std::vector<std::optional<int>> places; // in `cursor.frames`, of each frame of the file
    for (const auto content : chunks.frames) {
        if (!meter.hasTimeAfter(std::ssize(content)))
            return std::nullopt;
        auto frame = decodeFrame(content, *header, meter);
        places.push_back(frame ? std::optional(static_cast<int>(cursor.frames.size()))
                               : std::nullopt);
        if (frame)
            cursor.frames.push_back(std::move(*frame));
    }

    const Numbers sequence(chunks.sequence);
    const Numbers rates(chunks.rates);
    const std::int64_t count = stepCount(sequence, chunks, *header);
    if (!meter.take(count * std::int64_t{sizeof(AnimatedCursor::Step)}))
        return std::nullopt;
    cursor.steps.reserve(static_cast<std::size_t>(count));
    for (std::int64_t i = 0; i < count; ++i) {
        const auto frame = sequence.at(i).value_or(static_cast<std::uint32_t>(i));
        if (frame >= places.size() || !places[frame])
            continue;
        const auto rate = rates.at(i).value_or(0);
        cursor.steps.push_back(
            {*places[frame], rate == 0 ? cursor.defaultJiffies : asJiffies(rate)});
    }
    if (cursor.steps.empty())
        return std::nullopt;
    return cursor;
}

}
