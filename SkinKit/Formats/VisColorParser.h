#pragma once

#include "SkinKit/Base/Bytes.h"
#include "SkinKit/Base/LoadMeter.h"
#include "SkinKit/Graphics/RGBColor.h"

#include <array>
#include <string_view>

// Reads "viscolor.txt": the visualizer's colours, one "red, green, blue" a line.
namespace SkinKit::VisColorParser {

inline constexpr int colorCount = 24;
// In the order of the file's lines; VisRenderer says what each is for.
using Colors = std::array<RGBColor, colorCount>;

// What a skin without colours gets.
// clang-format off
inline constexpr Colors defaults{
    rgb(0x000000),  //  0  background
    rgb(0x182129),  //  1  grid dots
    rgb(0xEF3110),  //  2  bars, top row …
    rgb(0xCE2910),
    rgb(0xD65A00),
    rgb(0xD66600),
    rgb(0xD67300),
    rgb(0xC67B08),
    rgb(0xDEA518),  //  8
    rgb(0xD6B521),
    rgb(0xBDDE29),
    rgb(0x94DE21),
    rgb(0x29CE10),
    rgb(0x32BE10),
    rgb(0x39B510),
    rgb(0x319C08),
    rgb(0x299400),  // 16
    rgb(0x188408),  // 17  … to the bottom row
    rgb(0xFFFFFF),  // 18  oscilloscope, centre …
    rgb(0xD6D6DE),
    rgb(0xB5BDBD),
    rgb(0xA0AAAF),
    rgb(0x949CA5),  // 22  … to the edge
    rgb(0x969696),  // 23  peaks
};
// clang-format on

// All colours, those that the file lacks by default.
struct Result {
    Colors colors;
    int parsedCount = 0; // how many of them the file gave, from the first on

    bool operator==(const Result&) const = default;
};

// Takes the colours of the first 24 lines that begin with three numbers (white space and at most
// one comma between two of them, anything after the third), so comment lines do not count. Numbers
// above 255 become 255. Never fails. Bytes that are not UTF-8 become U+FFFD.
Result parseCounted(ByteView bytes, LoadMeter& meter);
Result parseCounted(std::string_view text);

}
