#include "examples/samples/Sheets.h"
#include "examples/samples/WindowParts.h"

#include <string>

// The playlist's window and the general one. Both are sizable frames: a whole window is painted and
// then cut into corners and tiles, so that the pieces close at any size.
namespace samples {
namespace {

// One step in width and in height larger than the smallest, so that each tile shows in full.
constexpr Size playlistSize{275 + 3 * 25, 116 + 29};
constexpr int topHeight = 20;
constexpr int footHeight = 38;
constexpr int cornerWidth = 25;
constexpr Rect playlistFoot{0, playlistSize.height - footHeight, playlistSize.width, footHeight};

constexpr Rect fromRight(const Rect& rect, int windowWidth)
{
    return {windowWidth - rect.x, rect.y, rect.width, rect.height};
}

// Distances from the right edge, rows from the top.
// clang-format off
constexpr Rect closeFromRight { 11, 3,  9,  9};
constexpr Rect shadeFromRight { 21, 3,  9,  9};
constexpr Rect resizeFromRight{ 29, 3,  9,  9};
// clang-format on

// What stands in the foot, rows from its top; distances from the right edge where it says so.
// clang-format off
constexpr Size menuButton{22, 18};
constexpr int  menuY = 8;
constexpr struct { int x; std::string_view caption; } menus[] = {
    {14, "ADD"}, {43, "REM"}, {72, "SEL"}, {101, "OPT"},
};
constexpr int  listMenuFromRight = 44;
constexpr Rect timeWellFromRight    {147,  7, 98, 11};
constexpr Rect miniTimeWellFromRight{ 87, 20, 38, 11};
constexpr int  miniTimeFromRight = 84;
constexpr int  miniTimeY = 23;
constexpr int  miniTimeColonX = 16;
constexpr int  actionsFromRight = 147;
constexpr int  actionsY = 22;
constexpr Size actionSize{10, 10};
constexpr Rect upFromRight          { 15,  2,  8,  5};
constexpr Rect downFromRight        { 15,  8,  8,  5};
// clang-format on

void drawPlaylistTop(Painter& painter, const Look& look, bool isSelected)
{
    const int width = painter.size().width;
    Painter bar = painter.part({0, 0, width, titleHeight});
    constexpr int margin = 8;
    drawTitleBar(bar, look,
                 {.caption = "PLAYLIST",
                  .isSelected = isSelected,
                  .linesFrom = margin,
                  .linesTo = width - shadeFromRight.x - margin / 2,
                  .window = Window::sizable});
    drawTitleButton(bar.part(fromRight(shadeFromRight, width)), look, Icon::shade, false);
    drawTitleButton(bar.part(fromRight(closeFromRight, width)), look, Icon::close, false);
}

void drawList(Painter& painter, const Look& look, const Rect& list, const Rect& track)
{
    painter.box(list, look.list);
    if (track.isEmpty())
        return;
    Surface groove = look.groove;
    groove.fill = {{groove.fill.stops.front()}}; // the tiles beside the list are all alike
    painter.box(track, groove);
}

void drawResizeGrip(Painter& painter, const Look& look, Point corner)
{
    for (int line = 0; line < 3; ++line)
        for (int i = 0; i <= 2 + 3 * line; ++i)
            painter.dot({corner.x - 2 - 3 * line + i, corner.y - i}, look.stateUnlit);
}

void drawFoot(Painter foot, const Look& look)
{
    const int width = foot.size().width;
    for (const auto& [x, caption] : menus)
        drawTextButton(foot.part(sizedBy({x, menuY}, menuButton)), look, caption, "", false);
    drawTextButton(foot.part(sizedBy({width - listMenuFromRight, menuY}, menuButton)), look, "LST",
                   "", false);

    foot.box(fromRight(timeWellFromRight, width), look.textDisplay);
    foot.box(fromRight(miniTimeWellFromRight, width), look.textDisplay);
    drawCharacter(foot, {width - miniTimeFromRight + miniTimeColonX, miniTimeY}, U':',
                  look.displayInk);

    constexpr Icon actions[] = {Icon::smallPrevious, Icon::smallPlay, Icon::smallPause,
                                Icon::smallStop,     Icon::smallNext, Icon::smallEject};
    Point at{width - actionsFromRight, actionsY};
    for (const Icon action : actions) {
        drawCenteredIcon(foot, sizedBy(at, actionSize), action, look.label);
        at.x += actionSize.width;
    }

    drawCenteredIcon(foot, fromRight(upFromRight, width), Icon::up, look.label);
    drawCenteredIcon(foot, fromRight(downFromRight, width), Icon::down, look.label);
    drawResizeGrip(foot, look, {width - 6, footHeight - 5});
}

// The whole window. The list's ring lies on the pieces around it, its inside is the player's. The
// scroll track ends in them too, with its bends, for the tiles beside the list must be straight.
Image playlistWindow(const Look& look, bool isSelected)
{
    return paintedImage(playlistSize, [&](Painter& painter) {
        const auto [width, height] = playlistSize;
        drawBody(painter, look, Window::sizable);
        const int listHeight = playlistFoot.y - topHeight + 2;
        drawList(painter, look, {11, topHeight - 1, width - 30, listHeight},
                 {width - 16, topHeight - 2, 10, listHeight + 2});
        drawPlaylistTop(painter, look, isSelected);
        drawFoot(painter.part(playlistFoot), look);
    });
}

// Fills a sprite from the window, beginning there.
void cut(Sheets& sheets, const Image& window, std::string_view name, Point from)
{
    sheets.sprite(name).put(window, {-from.x, -from.y});
}

void cutPlaylist(Sheets& sheets, const Look& look)
{
    const auto [width, height] = playlistSize;
    constexpr int titleWidth = 100;
    const Point tile{2 * cornerWidth, 0};
    const Point title{(width - titleWidth) / 2, 0};
    const Point right{width - cornerWidth, 0};

    const Image plain = playlistWindow(look, false);
    cut(sheets, plain, "PLAYLIST_TOP_LEFT_CORNER", {0, 0});
    cut(sheets, plain, "PLAYLIST_TOP_TILE", tile);
    cut(sheets, plain, "PLAYLIST_TITLE_BAR", title);
    cut(sheets, plain, "PLAYLIST_TOP_RIGHT_CORNER", right);

    const Image window = playlistWindow(look, true);
    cut(sheets, window, "PLAYLIST_TOP_LEFT_SELECTED", {0, 0});
    cut(sheets, window, "PLAYLIST_TOP_TILE_SELECTED", tile);
    cut(sheets, window, "PLAYLIST_TITLE_BAR_SELECTED", title);
    cut(sheets, window, "PLAYLIST_TOP_RIGHT_CORNER_SELECTED", right);

    constexpr int rightWidth = 20;
    constexpr int footLeft = 125;
    constexpr int footRight = 150;
    cut(sheets, window, "PLAYLIST_LEFT_TILE", {0, topHeight});
    cut(sheets, window, "PLAYLIST_RIGHT_TILE", {width - rightWidth, topHeight});
    cut(sheets, window, "PLAYLIST_BOTTOM_LEFT_CORNER", playlistFoot.origin());
    cut(sheets, window, "PLAYLIST_BOTTOM_TILE", {footLeft, playlistFoot.y});
    cut(sheets, window, "PLAYLIST_BOTTOM_RIGHT_CORNER", {width - footRight, playlistFoot.y});

    cut(sheets, window, "PLAYLIST_VISUALIZER_BACKGROUND", {footLeft, playlistFoot.y});
    Painter visualizer = sheets.sprite("PLAYLIST_VISUALIZER_BACKGROUND");
    visualizer.box({0, 9, 75, 20}, look.textDisplay);
}

void drawShadedPlaylist(Sheets& sheets, const Look& look)
{
    const Size size{125, titleHeight};
    const auto bar = [&](bool isSelected) {
        return paintedImage(size, [&](Painter& painter) {
            painter.box(painter.bounds(), look.sizableBody);
            drawBareBar(painter, look, true, Window::sizable);
            painter.box({2, 2, size.width - resizeFromRight.x - 2, 10}, look.textDisplay);
            drawResizeGrip(painter, look, {size.width - 23, 10});
            const Rect shade = fromRight(shadeFromRight, size.width);
            const Rect close = fromRight(closeFromRight, size.width);
            drawTitleButton(painter.part(shade), look, Icon::unshade, !isSelected);
            drawTitleButton(painter.part(close), look, Icon::close, !isSelected);
        });
    };
    constexpr int rightWidth = 50;
    const Image window = bar(true);
    cut(sheets, window, "PLAYLIST_SHADE_BACKGROUND_LEFT", {0, 0});
    cut(sheets, window, "PLAYLIST_SHADE_BACKGROUND", {cornerWidth, 0});
    cut(sheets, window, "PLAYLIST_SHADE_BACKGROUND_RIGHT_SELECTED", {size.width - rightWidth, 0});
    cut(sheets, bar(false), "PLAYLIST_SHADE_BACKGROUND_RIGHT", {size.width - rightWidth, 0});
}

void drawPlaylistButtons(Sheets& sheets, const Look& look)
{
    const auto onBar = [&](std::string_view name, Icon icon, const Rect& place) {
        Painter button = sheets.sprite(name);
        drawBarBehind(button, look, {0, 0, playlistSize.width, titleHeight},
                      fromRight(place, playlistSize.width).origin());
        drawTitleButton(button, look, icon, true);
    };
    onBar("PLAYLIST_CLOSE_SELECTED", Icon::close, closeFromRight);
    onBar("PLAYLIST_COLLAPSE_SELECTED", Icon::shade, shadeFromRight);
    onBar("PLAYLIST_EXPAND_SELECTED", Icon::unshade, shadeFromRight);
    onBar("GEN_CLOSE_SELECTED", Icon::close, closeFromRight);

    for (const bool isPressed : {false, true}) {
        Painter handle =
            sheets.sprite(isPressed ? "PLAYLIST_SCROLL_HANDLE_SELECTED" : "PLAYLIST_SCROLL_HANDLE");
        handle.fill(handle.bounds(), look.groove.fill.stops.front());
        drawThumb(handle, look, Grip::horizontal, isPressed);
    }
}

void drawPlaylistMenus(Sheets& sheets, const Look& look)
{
    struct Entry {
        std::string_view sprite, first, second;
    };
    constexpr Entry entries[] = {
        {"PLAYLIST_ADD_URL",          "ADD",  "URL" },
        {"PLAYLIST_ADD_DIR",          "ADD",  "DIR" },
        {"PLAYLIST_ADD_FILE",         "ADD",  "FILE"},
        {"PLAYLIST_REMOVE_ALL",       "REM",  "ALL" },
        {"PLAYLIST_CROP",             "CROP", ""    },
        {"PLAYLIST_REMOVE_SELECTED",  "REM",  "SEL" },
        {"PLAYLIST_REMOVE_MISC",      "REM",  "MISC"},
        {"PLAYLIST_INVERT_SELECTION", "INV",  "SEL" },
        {"PLAYLIST_SELECT_ZERO",      "SEL",  "NONE"},
        {"PLAYLIST_SELECT_ALL",       "SEL",  "ALL" },
        {"PLAYLIST_SORT_LIST",        "SORT", "LIST"},
        {"PLAYLIST_FILE_INFO",        "FILE", "INFO"},
        {"PLAYLIST_MISC_OPTIONS",     "MISC", "OPTS"},
        {"PLAYLIST_NEW_LIST",         "NEW",  "LIST"},
        {"PLAYLIST_SAVE_LIST",        "SAVE", "LIST"},
        {"PLAYLIST_LOAD_LIST",        "LOAD", "LIST"},
    };
    for (const auto& [name, first, second] : entries) {
        for (const bool isChosen : {false, true}) {
            Painter entry = sheets.sprite(std::string(name) + (isChosen ? "_SELECTED" : ""));
            entry.fill(entry.bounds(), look.sizableBody.fill.stops.back());
            drawTextButton(entry, look, first, second, isChosen);
        }
    }

    for (const auto name :
         {"PLAYLIST_ADD_MENU_BAR", "PLAYLIST_REMOVE_MENU_BAR", "PLAYLIST_SELECT_MENU_BAR",
          "PLAYLIST_MISC_MENU_BAR", "PLAYLIST_LIST_BAR"}) {
        Painter bar = sheets.sprite(name);
        bar.box(bar.bounds(), look.thumb);
    }
}

void drawGeneralWindow(Sheets& sheets, const Look& look)
{
    constexpr int middleHeight = 29;
    constexpr int aboveFootHeight = 24;
    constexpr int generalFootHeight = 14;
    constexpr int leftWidth = 11;
    constexpr int rightWidth = 8;
    constexpr int footCorner = 125;
    const Size size{2 * footCorner + cornerWidth,
                    topHeight + middleHeight + aboveFootHeight + generalFootHeight};
    const auto general = [&](bool isSelected) {
        return paintedImage(size, [&](Painter& painter) {
            drawBody(painter, look, Window::sizable);
            drawList(painter, look,
                     {leftWidth - 1, topHeight - 1, size.width - leftWidth - rightWidth + 2,
                      size.height - topHeight - generalFootHeight + 2},
                     {});
            // The caption is the player's; the lines leave room for it between the end pieces.
            Painter bar = painter.part({0, 0, size.width, titleHeight});
            drawBareBar(bar, look, isSelected, Window::sizable);
            bar.box({3 * cornerWidth + 3, 2, 4 * cornerWidth - 6, 10}, look.textDisplay);
            drawTitleButton(bar.part(fromRight(closeFromRight, size.width)), look, Icon::close,
                            false);
        });
    };

    struct Piece {
        std::string_view name;
        int column; // of pieces a corner wide
    };
    constexpr Piece top[] = {
        {"GEN_TOP_LEFT",            0 },
        {"GEN_TOP_LEFT_RIGHT_FILL", 1 },
        {"GEN_TOP_LEFT_END",        3 },
        {"GEN_TOP_CENTER_FILL",     4 },
        {"GEN_TOP_RIGHT_END",       6 },
        {"GEN_TOP_RIGHT",           10},
    };
    const Image plain = general(false);
    const Image window = general(true);
    for (const auto& [name, column] : top) {
        cut(sheets, plain, name, {column * cornerWidth, 0});
        cut(sheets, window, std::string(name) + "_SELECTED", {column * cornerWidth, 0});
    }

    const int foot = size.height - generalFootHeight;
    cut(sheets, window, "GEN_MIDDLE_LEFT", {0, topHeight});
    cut(sheets, window, "GEN_MIDDLE_RIGHT", {size.width - rightWidth, topHeight});
    cut(sheets, window, "GEN_MIDDLE_LEFT_BOTTOM", {0, foot - aboveFootHeight});
    cut(sheets, window, "GEN_MIDDLE_RIGHT_BOTTOM",
        {size.width - rightWidth, foot - aboveFootHeight});
    cut(sheets, window, "GEN_BOTTOM_LEFT", {0, foot});
    cut(sheets, window, "GEN_BOTTOM_FILL", {footCorner, foot});
    cut(sheets, window, "GEN_BOTTOM_RIGHT", {size.width - footCorner, foot});
}

}

void drawPlaylistSheets(Sheets& sheets, const Look& look)
{
    cutPlaylist(sheets, look);
    drawShadedPlaylist(sheets, look);
    drawPlaylistButtons(sheets, look);
    drawPlaylistMenus(sheets, look);
    drawGeneralWindow(sheets, look);
}

}
