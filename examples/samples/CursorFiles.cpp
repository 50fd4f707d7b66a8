#include "examples/samples/CursorFiles.h"

#include "tests/support/CursorWriter.h"

#include <string>
#include <string_view>
#include <vector>

namespace samples {
namespace {

// Straight colours with their alpha, which no ordinary bitmap keeps.
support::ByteBuffer bitmapWithAlpha(const Image& image)
{
    support::BMPFile file{.width = image.width(),
                          .height = image.height(),
                          .bitCount = 32,
                          .palette = {},
                          .pixels = {}};
    for (int y = image.height() - 1; y >= 0; --y) {
        for (const auto premultiplied : image.row(y)) {
            const auto pixel = SkinKit::unpremultiply(premultiplied);
            for (const unsigned byte : {SkinKit::blueOf(pixel), SkinKit::greenOf(pixel),
                                        SkinKit::redOf(pixel), SkinKit::alphaOf(pixel)})
                file.pixels.push_back(static_cast<std::uint8_t>(byte));
        }
    }
    return file.bytes();
}

// Rows of the mask: '#' for what does not show.
std::vector<std::string> maskOf(const Image& image)
{
    std::vector<std::string> mask;
    for (int y = 0; y < image.height(); ++y) {
        auto& row = mask.emplace_back();
        for (const auto pixel : image.row(y))
            row += SkinKit::alphaOf(pixel) == 0 ? '#' : '.';
    }
    return mask;
}

}

SkinKit::ByteBuffer encodePointer(const Pointer& pointer, int bitCount)
{
    const auto mask = maskOf(pointer.image);
    const auto bitmap = bitCount == 32 ? bitmapWithAlpha(pointer.image)
                                       : support::encodeBMP(pointer.image, bitCount);
    return support::CurFile{{{.picture = support::cursorPicture(bitmap, {mask.begin(), mask.end()}),
                              .size = pointer.image.size(),
                              .hotSpot = pointer.hotSpot}}}
        .bytes();
}

SkinKit::ByteBuffer encodeMovingPointer(std::span<const Pointer> frames,
                                        std::span<const PointerStep> steps, int bitCount)
{
    constexpr std::uint32_t framesAreFiles = 1;
    constexpr std::uint32_t hasSequence = 2;
    support::AniFile file{.frames = {},
                          .sequence = {},
                          .rates = {},
                          .defaultRate = steps.front().duration,
                          .flags = framesAreFiles | hasSequence,
                          .extraChunks = {}};
    for (const Pointer& frame : frames)
        file.frames.push_back(encodePointer(frame, bitCount));
    for (const PointerStep& step : steps) {
        file.sequence.push_back(step.frame);
        file.rates.push_back(step.duration);
    }
    return file.bytes();
}

}
