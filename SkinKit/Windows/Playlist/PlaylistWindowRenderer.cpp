#include "SkinKit/Windows/Playlist/PlaylistWindowRenderer.h"

#include "SkinKit/Sprites/SkinSprites.h"
#include "SkinKit/Text/ListFont.h"
#include "SkinKit/Text/TextFont.h"
#include "SkinKit/Windows/Main/MainWindowRenderer.h"
#include "SkinKit/Windows/Playlist/PlaylistLayout.h"
#include "SkinKit/Windows/Playlist/PlaylistText.h"
#include "SkinKit/Windows/WindowDrawing.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <limits>
#include <utility>

namespace SkinKit {
namespace {

namespace Layout = PlaylistLayout;
namespace ShadeLayout = PlaylistShadeLayout;
using Layout::Piece;
using Layout::Steps;

// Within a row of the list. The last row may lose as many pixels as the list's lower margin has;
// its letters are above them.
constexpr int nameInset = 3;
constexpr int nameToDuration = 6;
constexpr int letterTop = 1;
static_assert(letterTop + ListFont::height <= Layout::rowHeight - Layout::trackMargin);

void drawTiles(const SpriteDrawer& drawer, const Piece& piece)
{
    const auto placed = SkinSprites::byName(piece.sprite);
    const auto image = drawer.skin.image(piece.sprite);
    if (!placed || !image)
        return;
    const SavedCanvasState saved(drawer.context);
    drawer.context.clip(piece.rect);
    for (int y = piece.rect.y; y < piece.rect.bottom(); y += placed->sprite.height)
        for (int x = piece.rect.x; x < piece.rect.right(); x += placed->sprite.width)
            drawer.context.draw(*image, Point{x, y});
}

void drawPiece(const SpriteDrawer& drawer, const Piece& piece)
{
    if (piece.tiled)
        drawTiles(drawer, piece);
    else
        drawer.drawClipped(piece.sprite, piece.rect);
}

void drawFrame(const SpriteDrawer& drawer, const PlaylistWindowState& state)
{
    for (const Piece& piece : Layout::topRow(state.focused, state.steps))
        drawPiece(drawer, piece);
    drawPiece(drawer, Layout::leftTile(state.steps));
    drawPiece(drawer, Layout::rightTile(state.steps));
    for (const Piece& piece : Layout::bottomRow(state.steps))
        drawPiece(drawer, piece);
    if (const auto visualizer = Layout::visualizerBackground(state.steps))
        drawer.drawClipped("PLAYLIST_VISUALIZER_BACKGROUND", *visualizer);
}

int entryCount(const PlaylistWindowState& state)
{
    constexpr std::size_t most = std::numeric_limits<int>::max();
    return static_cast<int>(std::min(state.entries.size(), most));
}

// Sets the dots of glyphs that are inside the raster, side by side from `left` on.
void drawGlyphs(PixelBuffer& pixels, std::span<const ListFont::Glyph> glyphs, int left, Pixel ink)
{
    for (const auto& glyph : glyphs) {
        for (int y = 0; y < ListFont::height; ++y) {
            const auto row = pixels.row(letterTop + y).subspan(static_cast<std::size_t>(left));
            for (auto dots = glyph.rows[static_cast<std::size_t>(y)]; dots != 0;) {
                const int x = std::countl_zero(dots);
                row[static_cast<std::size_t>(x)] = ink;
                dots = static_cast<std::uint8_t>(dots & ~(0x80U >> x));
            }
        }
        left += glyph.width + ListFont::gap;
    }
}

// A whole row of the list: the number and the name from the left, the duration at the right.
Image entryImage(const PlaylistWindowState& state, int index, int width, const PlaylistStyle& style)
{
    const auto place = static_cast<std::size_t>(index);
    const auto& entry = state.entries[place];
    const Pixel ink = opaquePixel(state.current == place ? style.current : style.normal);
    auto pixels = PixelBuffer::uninitialized({width, Layout::rowHeight});
    std::fill_n(pixels.data(), pixels.count(),
                opaquePixel(entry.isSelected ? style.selectedBackground : style.normalBackground));

    int nameRight = width - Layout::durationRightInset;
    const auto duration = ListFont::line(PlaylistText::time(entry.duration), nameRight - nameInset);
    if (!duration.empty()) {
        const int left = nameRight - ListFont::width(duration);
        drawGlyphs(pixels, duration, left, ink);
        nameRight = left - nameToDuration;
    }
    const std::string name = PlaylistText::rowNumber(index, entryCount(state)) + entry.name;
    drawGlyphs(pixels, ListFont::line(name, nameRight - nameInset), nameInset, ink);
    return {std::move(pixels), Image::Alpha::opaque};
}

void drawList(const SpriteDrawer& drawer, const PlaylistWindowState& state)
{
    const PlaylistStyle& style = drawer.skin.playlistStyle;
    const Rect area = Layout::trackArea(state.steps);
    const Rect list{area.x, Layout::topHeight, area.width, Layout::middleHeight(state.steps)};
    const auto rows = PlaylistScroll::visibleRange(state.scrollPosition, entryCount(state),
                                                   Layout::visibleRows(state.steps));

    const SavedCanvasState saved(drawer.context);
    drawer.context.clip(list);
    drawer.context.fill({list.x, list.y, list.width, area.y - list.y}, style.normalBackground);
    int y = area.y;
    for (int index = rows.first; index < rows.end; ++index) {
        drawer.context.draw(entryImage(state, index, area.width, style), Point{area.x, y});
        y += Layout::rowHeight;
    }
    drawer.context.fill({list.x, y, list.width, list.bottom() - y}, style.normalBackground);
}

void drawScrollHandle(const SpriteDrawer& drawer, const PlaylistWindowState& state)
{
    const double value = PlaylistScroll::handleValue(state.scrollPosition, entryCount(state),
                                                     Layout::visibleRows(state.steps));
    drawer.draw("PLAYLIST_SCROLL_HANDLE",
                {Layout::scrollTrack(state.steps).x, Layout::scrollHandleY(value, state.steps)});
}

// The known durations of all entries, and of those that are selected.
std::string runningTime(const PlaylistWindowState& state)
{
    double selected = 0;
    double total = 0;
    for (const auto& entry : state.entries) {
        const double duration = entry.duration.value_or(0);
        if (!std::isfinite(duration) || duration < 0)
            continue;
        total += duration;
        selected += entry.isSelected ? duration : 0;
    }
    return PlaylistText::runningTime(selected, total);
}

// In the skin's font, cut at the end of `width` pixels.
void drawTextWithin(const SpriteDrawer& drawer, std::string_view text, Point at, int width)
{
    const SavedCanvasState saved(drawer.context);
    drawer.context.clip(Rect{at.x, at.y, width, TextFont::cellHeight});
    drawText(drawer.context, drawer.skin, text, at);
}

void drawTimes(const SpriteDrawer& drawer, const PlaylistWindowState& state)
{
    drawTextWithin(drawer, runningTime(state), Layout::runningTimeOrigin(state.steps),
                   PlaylistText::runningTimeLength * TextFont::cellWidth);
    drawer.draw(miniTimeImage(drawer.skin, MiniTime::characters(state.status)),
                Layout::miniTimeOrigin(state.steps));
}

void drawMenu(const SpriteDrawer& drawer, Layout::Menu menu, Steps steps)
{
    drawPiece(drawer, Layout::menuBar(menu, steps));
    for (const auto& [sprite, rect] : Layout::menuEntries(menu, steps))
        drawer.drawClipped(sprite, rect);
}

void drawShadeFrame(const SpriteDrawer& drawer, const PlaylistWindowState& state)
{
    using namespace ShadeLayout;
    const int width = Layout::right(state.steps);
    const auto drawPart = [&](std::string_view sprite, int left, int right, bool tiled) {
        drawPiece(drawer, {
                              sprite, {left, 0, right - left, height},
                               tiled
        });
    };
    drawPart("PLAYLIST_SHADE_BACKGROUND_LEFT", 0, leftWidth, false);
    drawPart("PLAYLIST_SHADE_BACKGROUND", leftWidth, width - rightWidth, true);
    drawPart(state.focused ? "PLAYLIST_SHADE_BACKGROUND_RIGHT_SELECTED"
                           : "PLAYLIST_SHADE_BACKGROUND_RIGHT",
             width - rightWidth, width, false);
}

void drawShadeTexts(const SpriteDrawer& drawer, const PlaylistWindowState& state)
{
    const int width = Layout::right(state.steps);
    const auto* entry = state.current && *state.current < state.entries.size()
                            ? &state.entries[*state.current]
                            : nullptr;
    const auto name = entry ? std::optional<std::string_view>(entry->name) : std::nullopt;
    const auto time = ShadeLayout::timeString(entry ? entry->duration : std::nullopt);

    const int timeX =
        ShadeLayout::timeRightEdge(width) - TextFont::cellWidth * static_cast<int>(time.size());
    const Point origin = ShadeLayout::titleOrigin;
    drawTextWithin(drawer, ShadeLayout::title(name, width), origin, timeX - origin.x);
    drawText(drawer.context, drawer.skin, time, {timeX, ShadeLayout::timeY});
}

void drawShaded(const SpriteDrawer& drawer, const PlaylistWindowState& state)
{
    drawShadeFrame(drawer, state);
    drawShadeTexts(drawer, state);
}

void drawWindow(const SpriteDrawer& drawer, const PlaylistWindowState& state)
{
    drawList(drawer, state);
    drawFrame(drawer, state);
    drawScrollHandle(drawer, state);
    drawTimes(drawer, state);
    if (state.openMenu)
        drawMenu(drawer, *state.openMenu, state.steps);
}

}

Size PlaylistWindow::size(const State& state)
{
    const Size window = Layout::size(state.steps);
    return state.shaded ? Size{window.width, ShadeLayout::height} : window;
}

const SkinRegion::Polygons* PlaylistWindow::outline(const SkinRegion&, const State&)
{
    return nullptr;
}

void PlaylistWindow::paint(const SpriteDrawer& drawer, const State& state, int, Clip)
{
    if (state.shaded)
        drawShaded(drawer, state);
    else
        drawWindow(drawer, state);
}

template struct WindowRenderer<PlaylistWindow>;

}
