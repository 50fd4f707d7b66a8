#include "SkinKit/Windows/Playlist/PlaylistLayout.h"

#include "SkinKit/Base/Unicode.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>
#include <span>

namespace SkinKit::PlaylistLayout {
namespace {

constexpr Size menuButtonSize{22, 18};
constexpr int menuBarWidth = 3;

// From top to bottom.
constexpr std::string_view addEntries[] = {"PLAYLIST_ADD_URL", "PLAYLIST_ADD_DIR",
                                           "PLAYLIST_ADD_FILE"};
constexpr std::string_view removeEntries[] = {"PLAYLIST_REMOVE_MISC", "PLAYLIST_REMOVE_ALL",
                                              "PLAYLIST_CROP", "PLAYLIST_REMOVE_SELECTED"};
constexpr std::string_view selectionEntries[] = {"PLAYLIST_INVERT_SELECTION",
                                                 "PLAYLIST_SELECT_ZERO", "PLAYLIST_SELECT_ALL"};
constexpr std::string_view miscEntries[] = {"PLAYLIST_SORT_LIST", "PLAYLIST_FILE_INFO",
                                            "PLAYLIST_MISC_OPTIONS"};
constexpr std::string_view listEntries[] = {"PLAYLIST_NEW_LIST", "PLAYLIST_SAVE_LIST",
                                            "PLAYLIST_LOAD_LIST"};

struct MenuParts {
    int x; // of the button; from the right edge when negative
    std::string_view bar;
    std::span<const std::string_view> entries;
};
// clang-format off
constexpr MenuParts menus[] = {
    { 14, "PLAYLIST_ADD_MENU_BAR",    addEntries},
    { 43, "PLAYLIST_REMOVE_MENU_BAR", removeEntries},
    { 72, "PLAYLIST_SELECT_MENU_BAR", selectionEntries},
    {101, "PLAYLIST_MISC_MENU_BAR",   miscEntries},
    {-44, "PLAYLIST_LIST_BAR",        listEntries},
};
// clang-format on

const MenuParts& parts(Menu menu)
{
    return menus[static_cast<int>(menu)];
}

Steps wholeSteps(double width, double height)
{
    const auto whole = [](double steps) {
        constexpr double most = std::numeric_limits<int>::max();
        return std::isfinite(steps) ? static_cast<int>(std::clamp(std::floor(steps), 0.0, most))
                                    : 0;
    };
    return {whole(width), whole(height)};
}

}

// An odd number of width steps leaves room for the same whole tiles at both sides of the title. An
// even one leaves 25 pixels over, which two narrow tiles share: 12 on the left, 13 on the right.
std::vector<Piece> topRow(bool selected, Steps steps)
{
    constexpr int cornerWidth = 25;
    constexpr int titleWidth = 100;
    constexpr int narrowLeft = 12;
    constexpr int narrowRight = cornerWidth - narrowLeft;
    const bool isOdd = steps.width() % 2 != 0;
    const int free = right(steps) - 2 * cornerWidth - titleWidth;
    const int run = isOdd ? free / 2 : (free - narrowLeft - narrowRight) / 2;
    const auto tile = selected ? "PLAYLIST_TOP_TILE_SELECTED" : "PLAYLIST_TOP_TILE";

    std::vector<Piece> pieces;
    int x = 0;
    const auto add = [&](std::string_view sprite, int width, bool tiled) {
        pieces.push_back({
            sprite, {x, 0, width, topHeight},
             tiled
        });
        x += width;
    };
    // The active left corner lacks the word "corner" in its name.
    add(selected ? "PLAYLIST_TOP_LEFT_SELECTED" : "PLAYLIST_TOP_LEFT_CORNER", cornerWidth, false);
    if (!isOdd)
        add(tile, narrowLeft, true);
    add(tile, run, true);
    add(selected ? "PLAYLIST_TITLE_BAR_SELECTED" : "PLAYLIST_TITLE_BAR", titleWidth, false);
    if (!isOdd)
        add(tile, narrowRight, true);
    add(tile, run, true);
    add(selected ? "PLAYLIST_TOP_RIGHT_CORNER_SELECTED" : "PLAYLIST_TOP_RIGHT_CORNER", cornerWidth,
        false);
    return pieces;
}

Piece leftTile(Steps steps)
{
    const Rect rect{0, topHeight, leftWidth, middleHeight(steps)};
    return {"PLAYLIST_LEFT_TILE", rect, true};
}

Piece rightTile(Steps steps)
{
    const Rect rect{right(steps) - rightWidth, topHeight, rightWidth, middleHeight(steps)};
    return {"PLAYLIST_RIGHT_TILE", rect, true};
}

std::array<Piece, 3> bottomRow(Steps steps)
{
    const auto piece = [steps](std::string_view sprite, int x, int width, bool tiled) {
        return Piece{
            sprite, {x, bottom(steps) - bottomHeight, width, bottomHeight},
             tiled
        };
    };
    const int width = right(steps);
    return {piece("PLAYLIST_BOTTOM_TILE", 0, width, true),
            piece("PLAYLIST_BOTTOM_LEFT_CORNER", 0, 125, false),
            piece("PLAYLIST_BOTTOM_RIGHT_CORNER", width - 150, 150, false)};
}

Rect menuButton(Menu menu, Steps steps)
{
    const int x = parts(menu).x;
    return {x < 0 ? right(steps) + x : x, bottom(steps) - 30, menuButtonSize.width,
            menuButtonSize.height};
}

std::vector<MenuEntry> menuEntries(Menu menu, Steps steps)
{
    const auto sprites = parts(menu).entries;
    Rect rect = menuButton(menu, steps);
    rect.y -= rect.height * (static_cast<int>(sprites.size()) - 1);
    std::vector<MenuEntry> entries;
    for (const auto sprite : sprites) {
        entries.push_back({sprite, rect});
        rect.y += rect.height;
    }
    return entries;
}

Piece menuBar(Menu menu, Steps steps)
{
    const auto& [x, bar, entries] = parts(menu);
    const Rect button = menuButton(menu, steps);
    const int height = button.height * static_cast<int>(entries.size());
    return {
        bar, {button.x - menuBarWidth, button.bottom() - height, menuBarWidth, height},
         false
    };
}

int scrollHandleY(double value, Steps steps)
{
    const Rect track = scrollTrack(steps);
    const int travel = track.height - scrollHandleHeight;
    return track.y + static_cast<int>(std::floor(clamped(value, 1) * travel));
}

double scrollValue(double pointerY, double grabOffset, Steps steps)
{
    const Rect track = scrollTrack(steps);
    const int travel = track.height - scrollHandleHeight;
    return clamped((pointerY - track.y - grabOffset) / travel, 1);
}

Steps stepsAfterDrag(Steps steps, double dx, double dy)
{
    return wholeSteps(steps.width() + std::floor(dx / stepSize.width + 0.5),
                      steps.height() + std::floor(dy / stepSize.height + 0.5));
}

Steps stepsForPixelSize(double width, double height)
{
    return wholeSteps((width - baseSize.width) / stepSize.width,
                      (height - baseSize.height) / stepSize.height);
}

}

namespace SkinKit::PlaylistScroll {
namespace {

constexpr double lastPosition = 100;

double nearest(double value)
{
    return std::floor(value + 0.5);
}

}

int overflow(int count, int visibleRows)
{
    constexpr std::int64_t most = std::numeric_limits<int>::max();
    const std::int64_t rows = std::int64_t{count} - visibleRows;
    return static_cast<int>(std::clamp<std::int64_t>(rows, 0, most));
}

int offset(double position, int count, int visibleRows)
{
    const int most = overflow(count, visibleRows);
    return static_cast<int>(nearest(clamped(position, lastPosition) / lastPosition * most));
}

Rows visibleRange(double position, int count, int visibleRows)
{
    const int first = offset(position, count, visibleRows);
    const std::int64_t end = std::min<std::int64_t>(count, std::int64_t{first} + visibleRows);
    return {first, static_cast<int>(std::max<std::int64_t>(first, end))};
}

double handleValue(double position, int count, int visibleRows)
{
    const int most = overflow(count, visibleRows);
    if (most == 0)
        return 0;
    const double row = nearest(clamped(position, lastPosition) * most / lastPosition);
    return nearest(row / most * 100) / 100;
}

double positionAfterWheel(double delta, double position, int count)
{
    if (count < 1)
        return 0;
    const double listHeight = static_cast<double>(count) * rowHeight;
    return clamped(position + delta / listHeight * lastPosition, lastPosition);
}

double positionAfterScrolling(int rows, double position, int count, int visibleRows)
{
    const int most = overflow(count, visibleRows);
    if (most < 1)
        return 0;
    const double first = static_cast<double>(offset(position, count, visibleRows)) + rows;
    return std::clamp(first / most, 0.0, 1.0) * lastPosition;
}

}

namespace SkinKit::PlaylistShadeLayout {

std::string title(std::optional<std::string_view> name, int width)
{
    if (!name)
        return "[No file]";

    constexpr int besideTitle = 70; // pixels
    constexpr int characterWidth = 5;
    const int most = (right(width) - besideTitle) / characterWidth;
    const auto first = [&](int count) {
        return Unicode::firstGraphemes(*name, static_cast<std::size_t>(std::max(count, 0)));
    };
    if (most >= 0 && first(most).size() == name->size())
        return std::string(*name);
    return std::string(first(most - 1)) + "…";
}

std::string timeString(std::optional<double> seconds)
{
    return seconds ? timeString(TimeDigits::fromSeconds(*seconds)) : "";
}

std::string timeString(const TimeDigits& digits)
{
    const auto text = [](std::optional<int> digit) { return std::to_string(digit.value_or(0)); };
    const std::string tens = digits.minutesTens == 0 ? "" : text(digits.minutesTens);
    return tens + text(digits.minutesOnes) + ":" + text(digits.secondsTens) +
           text(digits.secondsOnes);
}

}
