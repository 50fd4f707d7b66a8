#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

// Letters drawn as pixel art in the source: what the tables of our fonts are made of.
namespace SkinKit::GlyphArt {

template <std::size_t height>
struct Glyph {
    int width = 0;                           // at most 8
    std::array<std::uint8_t, height> rows{}; // from the top; the leftmost column in the highest bit

    bool operator==(const Glyph&) const = default;

    constexpr bool isSet(int x, int y) const
    {
        return (static_cast<unsigned>(rows[static_cast<std::size_t>(y)]) << x & 0x80U) != 0;
    }
};

// Letters side by side.
template <std::size_t height>
struct Block {
    std::u32string_view characters;
    std::array<std::string_view, height> rows; // a glyph for each character, a blank between two
};

// Whether the blanks are in the same columns of every row, one fewer than there are glyphs.
template <std::size_t height>
constexpr bool isWellDrawn(const Block<height>& block)
{
    std::size_t blanks = 0;
    for (std::size_t x = 0; x < block.rows[0].size(); ++x) {
        const bool isBlank = block.rows[0][x] == ' ';
        blanks += isBlank ? 1 : 0;
        for (const auto row : block.rows)
            if (row.size() != block.rows[0].size() || (row[x] == ' ') != isBlank)
                return false;
    }
    return blanks + 1 == block.characters.size();
}

// One of a block's glyphs, its leftmost column at `left`.
template <std::size_t height>
constexpr Glyph<height> read(const Block<height>& block, std::size_t left)
{
    const std::size_t columns =
        std::min(block.rows[0].find(' ', left), block.rows[0].size()) - left;
    Glyph<height> glyph{.width = static_cast<int>(columns)};
    for (std::size_t y = 0; y < height; ++y)
        for (std::size_t x = 0; x < columns; ++x)
            if (block.rows[y][left + x] == '#')
                glyph.rows[y] = static_cast<std::uint8_t>(glyph.rows[y] | 0x80 >> x);
    return glyph;
}

}
