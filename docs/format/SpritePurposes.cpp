#include "docs/format/SpritePurposes.h"

#include "SkinKit/Base/Numbers.h"
#include "SkinKit/Base/Unicode.h"

#include <algorithm>
#include <cstdint>
#include <iterator>

namespace SpritePurposes {
namespace {

struct Purpose {
    std::string_view sprite;
    std::string_view text;
};

// In the order of the sheets' own tables. "Held" is what shows while the pointer holds it down.
// clang-format off
constexpr Purpose purposes[] = {
    {"MAIN_BALANCE_BACKGROUND",                  "the track, 28 frames 15 rows apart of which 13 "
                                                 "show; the topmost for the centre"},
    {"MAIN_BALANCE_THUMB",                       "thumb"},
    {"MAIN_BALANCE_THUMB_ACTIVE",                "thumb, held"},
    {"MAIN_PREVIOUS_BUTTON",                     "previous"},
    {"MAIN_PREVIOUS_BUTTON_ACTIVE",              "previous, held"},
    {"MAIN_PLAY_BUTTON",                         "play"},
    {"MAIN_PLAY_BUTTON_ACTIVE",                  "play, held"},
    {"MAIN_PAUSE_BUTTON",                        "pause"},
    {"MAIN_PAUSE_BUTTON_ACTIVE",                 "pause, held"},
    {"MAIN_STOP_BUTTON",                         "stop"},
    {"MAIN_STOP_BUTTON_ACTIVE",                  "stop, held"},
    {"MAIN_NEXT_BUTTON",                         "next; the window shows 22 of its columns"},
    {"MAIN_NEXT_BUTTON_ACTIVE",                  "next, held; a column narrower"},
    {"MAIN_EJECT_BUTTON",                        "open a file"},
    {"MAIN_EJECT_BUTTON_ACTIVE",                 "open a file, held"},
    {"EQ_WINDOW_BACKGROUND",                     "the whole window"},
    {"EQ_TITLE_BAR",                             "title bar, inactive"},
    {"EQ_TITLE_BAR_SELECTED",                    "title bar, active"},
    {"EQ_SLIDER_BACKGROUND",                     "track of every slider, two rows of 14 frames, "
                                                 "each 14 × 63 and 15 × 65 apart, from the lowest "
                                                 "value to the highest"},
    {"EQ_SLIDER_THUMB",                          "thumb of every slider"},
    {"EQ_SLIDER_THUMB_SELECTED",                 "thumb, held"},
    {"EQ_CLOSE_BUTTON",                          "close"},
    {"EQ_CLOSE_BUTTON_ACTIVE",                   "close, held"},
    {"EQ_MAXIMIZE_BUTTON_ACTIVE_FALLBACK",       "shade, held, for skins without `EQ_EX`"},
    {"EQ_ON_BUTTON",                             "equalizer off"},
    {"EQ_ON_BUTTON_DEPRESSED",                   "equalizer off, held"},
    {"EQ_ON_BUTTON_SELECTED",                    "equalizer on"},
    {"EQ_ON_BUTTON_SELECTED_DEPRESSED",          "equalizer on, held"},
    {"EQ_AUTO_BUTTON",                           "automatic presets off"},
    {"EQ_AUTO_BUTTON_DEPRESSED",                 "automatic presets off, held"},
    {"EQ_AUTO_BUTTON_SELECTED",                  "automatic presets on"},
    {"EQ_AUTO_BUTTON_SELECTED_DEPRESSED",        "automatic presets on, held"},
    {"EQ_GRAPH_BACKGROUND",                      "behind the curve"},
    {"EQ_GRAPH_LINE_COLORS",                     "the colour of the curve in each of its rows"},
    {"EQ_PRESETS_BUTTON",                        "presets"},
    {"EQ_PRESETS_BUTTON_SELECTED",               "presets, held"},
    {"EQ_PREAMP_LINE",                           "the preamp's line across the graph"},
    {"EQ_SHADE_BACKGROUND_SELECTED",             "the shaded window, active"},
    {"EQ_SHADE_BACKGROUND",                      "the shaded window, inactive"},
    {"EQ_SHADE_VOLUME_SLIDER_LEFT",              "volume thumb in the left third"},
    {"EQ_SHADE_VOLUME_SLIDER_CENTER",            "volume thumb in the middle"},
    {"EQ_SHADE_VOLUME_SLIDER_RIGHT",             "volume thumb in the right third"},
    {"EQ_SHADE_BALANCE_SLIDER_LEFT",             "balance thumb in the left third"},
    {"EQ_SHADE_BALANCE_SLIDER_CENTER",           "balance thumb in the middle"},
    {"EQ_SHADE_BALANCE_SLIDER_RIGHT",            "balance thumb in the right third"},
    {"EQ_MAXIMIZE_BUTTON_ACTIVE",                "shade, held, in the full window"},
    {"EQ_MINIMIZE_BUTTON_ACTIVE",                "shade, held, in the shaded window"},
    {"EQ_SHADE_CLOSE_BUTTON",                    "close, in the shaded window"},
    {"EQ_SHADE_CLOSE_BUTTON_ACTIVE",             "close, held, in the shaded window"},
    {"GEN_TOP_LEFT_SELECTED",                    "top left corner, active"},
    {"GEN_TOP_LEFT_END_SELECTED",                "left end of the title, active"},
    {"GEN_TOP_CENTER_FILL_SELECTED",             "behind the title, repeated, active"},
    {"GEN_TOP_RIGHT_END_SELECTED",               "right end of the title, active"},
    {"GEN_TOP_LEFT_RIGHT_FILL_SELECTED",         "to both sides of the title, repeated, active"},
    {"GEN_TOP_RIGHT_SELECTED",                   "top right corner, active"},
    {"GEN_TOP_LEFT",                             "top left corner, inactive"},
    {"GEN_TOP_LEFT_END",                         "left end of the title, inactive"},
    {"GEN_TOP_CENTER_FILL",                      "behind the title, repeated, inactive"},
    {"GEN_TOP_RIGHT_END",                        "right end of the title, inactive"},
    {"GEN_TOP_LEFT_RIGHT_FILL",                  "to both sides of the title, repeated, inactive"},
    {"GEN_TOP_RIGHT",                            "top right corner, inactive"},
    {"GEN_BOTTOM_LEFT",                          "bottom left corner"},
    {"GEN_BOTTOM_RIGHT",                         "bottom right corner"},
    {"GEN_BOTTOM_FILL",                          "bottom edge, repeated"},
    {"GEN_MIDDLE_LEFT",                          "left edge, repeated"},
    {"GEN_MIDDLE_LEFT_BOTTOM",                   "left edge's end above the corner"},
    {"GEN_MIDDLE_RIGHT",                         "right edge, repeated"},
    {"GEN_MIDDLE_RIGHT_BOTTOM",                  "right edge's end above the corner"},
    {"GEN_CLOSE_SELECTED",                       "close, held"},
    {"MAIN_WINDOW_BACKGROUND",                   "the whole window"},
    {"MAIN_STEREO",                              "stereo, dark"},
    {"MAIN_STEREO_SELECTED",                     "stereo, lit"},
    {"MAIN_MONO",                                "mono, dark"},
    {"MAIN_MONO_SELECTED",                       "mono, lit"},
    {"NO_MINUS_SIGN",                            "no sign; blanks its place"},
    {"MINUS_SIGN",                               "minus, while time counts down"},
    {"NO_MINUS_SIGN_EX",                         "no sign; blanks its place"},
    {"MINUS_SIGN_EX",                            "minus, while time counts down"},
    {"MAIN_PLAYING_INDICATOR",                   "the player plays"},
    {"MAIN_PAUSED_INDICATOR",                    "the player pauses"},
    {"MAIN_STOPPED_INDICATOR",                   "the player is stopped"},
    {"MAIN_NOT_WORKING_INDICATOR",               "work light while playing; its leftmost 3 "
                                                 "columns show"},
    {"MAIN_WORKING_INDICATOR",                   "work light while loading; its leftmost 3 "
                                                 "columns show"},
    {"PLAYLIST_TOP_TILE",                        "title row, repeated, inactive"},
    {"PLAYLIST_TOP_LEFT_CORNER",                 "top left corner, inactive"},
    {"PLAYLIST_TITLE_BAR",                       "the title, inactive"},
    {"PLAYLIST_TOP_RIGHT_CORNER",                "top right corner, inactive"},
    {"PLAYLIST_TOP_TILE_SELECTED",               "title row, repeated, active"},
    {"PLAYLIST_TOP_LEFT_SELECTED",               "top left corner, active"},
    {"PLAYLIST_TITLE_BAR_SELECTED",              "the title, active"},
    {"PLAYLIST_TOP_RIGHT_CORNER_SELECTED",       "top right corner, active"},
    {"PLAYLIST_LEFT_TILE",                       "left edge, repeated"},
    {"PLAYLIST_RIGHT_TILE",                      "right edge with the scroll track, repeated"},
    {"PLAYLIST_BOTTOM_TILE",                     "bottom row, repeated"},
    {"PLAYLIST_BOTTOM_LEFT_CORNER",              "bottom left corner with four menu buttons"},
    {"PLAYLIST_BOTTOM_RIGHT_CORNER",             "bottom right corner with the small player and "
                                                 "one menu button"},
    {"PLAYLIST_VISUALIZER_BACKGROUND",           "behind a visualizer in the bottom row of wide "
                                                 "windows"},
    {"PLAYLIST_SHADE_BACKGROUND",                "the shaded window's middle, repeated"},
    {"PLAYLIST_SHADE_BACKGROUND_LEFT",           "the shaded window's left end"},
    {"PLAYLIST_SHADE_BACKGROUND_RIGHT",          "the shaded window's right end, inactive"},
    {"PLAYLIST_SHADE_BACKGROUND_RIGHT_SELECTED", "the shaded window's right end, active"},
    {"PLAYLIST_SCROLL_HANDLE_SELECTED",          "scroll handle, held"},
    {"PLAYLIST_SCROLL_HANDLE",                   "scroll handle"},
    {"PLAYLIST_ADD_URL",                         "menu add: an address"},
    {"PLAYLIST_ADD_URL_SELECTED",                "the same, held"},
    {"PLAYLIST_ADD_DIR",                         "menu add: a folder"},
    {"PLAYLIST_ADD_DIR_SELECTED",                "the same, held"},
    {"PLAYLIST_ADD_FILE",                        "menu add: a file"},
    {"PLAYLIST_ADD_FILE_SELECTED",               "the same, held"},
    {"PLAYLIST_REMOVE_ALL",                      "menu remove: all"},
    {"PLAYLIST_REMOVE_ALL_SELECTED",             "the same, held"},
    {"PLAYLIST_CROP",                            "menu remove: all but the selection"},
    {"PLAYLIST_CROP_SELECTED",                   "the same, held"},
    {"PLAYLIST_REMOVE_SELECTED",                 "menu remove: the selection"},
    {"PLAYLIST_REMOVE_SELECTED_SELECTED",        "the same, held"},
    {"PLAYLIST_REMOVE_MISC",                     "menu remove: more"},
    {"PLAYLIST_REMOVE_MISC_SELECTED",            "the same, held"},
    {"PLAYLIST_INVERT_SELECTION",                "menu select: the others"},
    {"PLAYLIST_INVERT_SELECTION_SELECTED",       "the same, held"},
    {"PLAYLIST_SELECT_ZERO",                     "menu select: none"},
    {"PLAYLIST_SELECT_ZERO_SELECTED",            "the same, held"},
    {"PLAYLIST_SELECT_ALL",                      "menu select: all"},
    {"PLAYLIST_SELECT_ALL_SELECTED",             "the same, held"},
    {"PLAYLIST_SORT_LIST",                       "menu misc: sort"},
    {"PLAYLIST_SORT_LIST_SELECTED",              "the same, held"},
    {"PLAYLIST_FILE_INFO",                       "menu misc: about the file"},
    {"PLAYLIST_FILE_INFO_SELECTED",              "the same, held"},
    {"PLAYLIST_MISC_OPTIONS",                    "menu misc: options"},
    {"PLAYLIST_MISC_OPTIONS_SELECTED",           "the same, held"},
    {"PLAYLIST_NEW_LIST",                        "menu list: a new one"},
    {"PLAYLIST_NEW_LIST_SELECTED",               "the same, held"},
    {"PLAYLIST_SAVE_LIST",                       "menu list: save"},
    {"PLAYLIST_SAVE_LIST_SELECTED",              "the same, held"},
    {"PLAYLIST_LOAD_LIST",                       "menu list: load"},
    {"PLAYLIST_LOAD_LIST_SELECTED",              "the same, held"},
    {"PLAYLIST_ADD_MENU_BAR",                    "bar to the left of the open menu add"},
    {"PLAYLIST_REMOVE_MENU_BAR",                 "bar to the left of the open menu remove"},
    {"PLAYLIST_SELECT_MENU_BAR",                 "bar to the left of the open menu select"},
    {"PLAYLIST_MISC_MENU_BAR",                   "bar to the left of the open menu misc"},
    {"PLAYLIST_LIST_BAR",                        "bar to the left of the open menu list"},
    {"PLAYLIST_CLOSE_SELECTED",                  "close, held"},
    {"PLAYLIST_COLLAPSE_SELECTED",               "shade, held, in the full window"},
    {"PLAYLIST_EXPAND_SELECTED",                 "shade, held, in the shaded window"},
    {"MAIN_POSITION_SLIDER_BACKGROUND",          "the seek bar's track"},
    {"MAIN_POSITION_SLIDER_THUMB",               "thumb"},
    {"MAIN_POSITION_SLIDER_THUMB_SELECTED",      "thumb, held"},
    {"MAIN_SHUFFLE_BUTTON",                      "shuffle off"},
    {"MAIN_SHUFFLE_BUTTON_DEPRESSED",            "shuffle off, held"},
    {"MAIN_SHUFFLE_BUTTON_SELECTED",             "shuffle on"},
    {"MAIN_SHUFFLE_BUTTON_SELECTED_DEPRESSED",   "shuffle on, held"},
    {"MAIN_REPEAT_BUTTON",                       "repeat off"},
    {"MAIN_REPEAT_BUTTON_DEPRESSED",             "repeat off, held"},
    {"MAIN_REPEAT_BUTTON_SELECTED",              "repeat on"},
    {"MAIN_REPEAT_BUTTON_SELECTED_DEPRESSED",    "repeat on, held"},
    {"MAIN_EQ_BUTTON",                           "equalizer window closed"},
    {"MAIN_EQ_BUTTON_SELECTED",                  "equalizer window open"},
    {"MAIN_EQ_BUTTON_DEPRESSED",                 "equalizer window closed, held"},
    {"MAIN_EQ_BUTTON_DEPRESSED_SELECTED",        "equalizer window open, held"},
    {"MAIN_PLAYLIST_BUTTON",                     "playlist window closed"},
    {"MAIN_PLAYLIST_BUTTON_SELECTED",            "playlist window open"},
    {"MAIN_PLAYLIST_BUTTON_DEPRESSED",           "playlist window closed, held"},
    {"MAIN_PLAYLIST_BUTTON_DEPRESSED_SELECTED",  "playlist window open, held"},
    {"MAIN_TITLE_BAR",                           "title bar, inactive"},
    {"MAIN_TITLE_BAR_SELECTED",                  "title bar, active"},
    {"MAIN_EASTER_EGG_TITLE_BAR",                "another title bar, inactive"},
    {"MAIN_EASTER_EGG_TITLE_BAR_SELECTED",       "another title bar, active"},
    {"MAIN_OPTIONS_BUTTON",                      "options"},
    {"MAIN_OPTIONS_BUTTON_DEPRESSED",            "options, held"},
    {"MAIN_MINIMIZE_BUTTON",                     "minimize"},
    {"MAIN_MINIMIZE_BUTTON_DEPRESSED",           "minimize, held"},
    {"MAIN_SHADE_BUTTON",                        "shade, in the full window"},
    {"MAIN_SHADE_BUTTON_DEPRESSED",              "shade, held, in the full window"},
    {"MAIN_CLOSE_BUTTON",                        "close"},
    {"MAIN_CLOSE_BUTTON_DEPRESSED",              "close, held"},
    {"MAIN_CLUTTER_BAR_BACKGROUND",              "the bar O A I D V"},
    {"MAIN_CLUTTER_BAR_BACKGROUND_DISABLED",     "the bar, its letters hidden"},
    {"MAIN_CLUTTER_BAR_BUTTON_O_SELECTED",       "O, lit: options"},
    {"MAIN_CLUTTER_BAR_BUTTON_A_SELECTED",       "A, lit: always on top"},
    {"MAIN_CLUTTER_BAR_BUTTON_I_SELECTED",       "I, lit: about the file"},
    {"MAIN_CLUTTER_BAR_BUTTON_D_SELECTED",       "D, lit: double size"},
    {"MAIN_CLUTTER_BAR_BUTTON_V_SELECTED",       "V, lit: visualizer"},
    {"MAIN_SHADE_BACKGROUND",                    "the shaded window, inactive"},
    {"MAIN_SHADE_BACKGROUND_SELECTED",           "the shaded window, active"},
    {"MAIN_SHADE_BUTTON_SELECTED",               "shade, in the shaded window"},
    {"MAIN_SHADE_BUTTON_SELECTED_DEPRESSED",     "shade, held, in the shaded window"},
    {"MAIN_SHADE_POSITION_BACKGROUND",           "the shaded window's seek bar"},
    {"MAIN_SHADE_POSITION_THUMB",                "its thumb in the middle"},
    {"MAIN_SHADE_POSITION_THUMB_LEFT",           "its thumb in the left third"},
    {"MAIN_SHADE_POSITION_THUMB_RIGHT",          "its thumb in the right third"},
    {"MAIN_VOLUME_BACKGROUND",                   "the track, 28 frames 15 rows apart of which 13 "
                                                 "show; the topmost for silence"},
    {"MAIN_VOLUME_THUMB",                        "thumb"},
    {"MAIN_VOLUME_THUMB_SELECTED",               "thumb, held"},
};
// clang-format on

}

std::optional<std::string> of(std::string_view sprite)
{
    constexpr std::string_view digit = "DIGIT_";
    if (sprite.starts_with(digit) && sprite.size() > digit.size())
        return std::string("the digit ") + sprite[digit.size()];
    const auto found = std::ranges::find(purposes, sprite, &Purpose::sprite);
    return found != std::end(purposes) ? std::optional(std::string(found->text)) : std::nullopt;
}

std::optional<std::string> character(std::string_view sprite)
{
    constexpr std::string_view prefix = "CHARACTER_";
    if (!sprite.starts_with(prefix))
        return std::nullopt;
    const auto code = SkinKit::Numbers::parseInteger<std::uint32_t>(sprite.substr(prefix.size()));
    if (!code)
        return std::nullopt;
    // A few would be lost, or break the code span, in Markdown.
    switch (*code) {
    case U' ': return "space";
    case U'\'': return "apostrophe";
    case U'\\': return "backslash";
    default: break;
    }
    std::string text = "`";
    SkinKit::Unicode::append(text, *code);
    return text += '`';
}

}
