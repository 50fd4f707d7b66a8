#include "SkinKit/Sprites/SkinSprites.h"

#include <algorithm>
#include <array>

namespace SkinKit::SkinSprites {
namespace {

// Sheet pixels, origin top left.
// clang-format off
constexpr Sprite balanceSprites[] = {
    // name                        x    y    w    h
    {"MAIN_BALANCE_BACKGROUND",     9,   0,  38, 420},  // 28 frames, 15 apart
    {"MAIN_BALANCE_THUMB",         15, 422,  14,  11},
    {"MAIN_BALANCE_THUMB_ACTIVE",   0, 422,  14,  11},
};

constexpr Sprite cbuttonsSprites[] = {
    // name                          x    y    w    h
    {"MAIN_PREVIOUS_BUTTON",          0,   0,  23,  18},
    {"MAIN_PREVIOUS_BUTTON_ACTIVE",   0,  18,  23,  18},
    {"MAIN_PLAY_BUTTON",             23,   0,  23,  18},
    {"MAIN_PLAY_BUTTON_ACTIVE",      23,  18,  23,  18},
    {"MAIN_PAUSE_BUTTON",            46,   0,  23,  18},
    {"MAIN_PAUSE_BUTTON_ACTIVE",     46,  18,  23,  18},
    {"MAIN_STOP_BUTTON",             69,   0,  23,  18},
    {"MAIN_STOP_BUTTON_ACTIVE",      69,  18,  23,  18},
    {"MAIN_NEXT_BUTTON",             92,   0,  23,  18},
    {"MAIN_NEXT_BUTTON_ACTIVE",      92,  18,  22,  18},  // one column narrower than its released twin
    {"MAIN_EJECT_BUTTON",           114,   0,  22,  16},
    {"MAIN_EJECT_BUTTON_ACTIVE",    114,  16,  22,  16},
};

constexpr Sprite eqmainSprites[] = {
    // name                                 x    y    w    h
    {"EQ_WINDOW_BACKGROUND",                 0,   0, 275, 116},
    {"EQ_TITLE_BAR",                         0, 149, 275,  14},
    {"EQ_TITLE_BAR_SELECTED",                0, 134, 275,  14},
    {"EQ_SLIDER_BACKGROUND",                13, 164, 209, 129},
    {"EQ_SLIDER_THUMB",                      0, 164,  11,  11},
    {"EQ_SLIDER_THUMB_SELECTED",             0, 176,  11,  11},
    {"EQ_CLOSE_BUTTON",                      0, 116,   9,   9},
    {"EQ_CLOSE_BUTTON_ACTIVE",               0, 125,   9,   9},
    {"EQ_MAXIMIZE_BUTTON_ACTIVE_FALLBACK", 254, 152,   9,   9},
    {"EQ_ON_BUTTON",                        10, 119,  26,  12},
    {"EQ_ON_BUTTON_DEPRESSED",             128, 119,  26,  12},
    {"EQ_ON_BUTTON_SELECTED",               69, 119,  26,  12},
    {"EQ_ON_BUTTON_SELECTED_DEPRESSED",    187, 119,  26,  12},
    {"EQ_AUTO_BUTTON",                      36, 119,  32,  12},
    {"EQ_AUTO_BUTTON_DEPRESSED",           154, 119,  32,  12},
    {"EQ_AUTO_BUTTON_SELECTED",             95, 119,  32,  12},
    {"EQ_AUTO_BUTTON_SELECTED_DEPRESSED",  213, 119,  32,  12},
    {"EQ_GRAPH_BACKGROUND",                  0, 294, 113,  19},
    {"EQ_GRAPH_LINE_COLORS",               115, 294,   1,  19},
    {"EQ_PRESETS_BUTTON",                  224, 164,  44,  12},
    {"EQ_PRESETS_BUTTON_SELECTED",         224, 176,  44,  12},
    {"EQ_PREAMP_LINE",                       0, 314, 113,   1},
};

constexpr Sprite eqExSprites[] = {
    // name                             x    y    w    h
    {"EQ_SHADE_BACKGROUND_SELECTED",     0,   0, 275,  14},
    {"EQ_SHADE_BACKGROUND",              0,  15, 275,  14},
    {"EQ_SHADE_VOLUME_SLIDER_LEFT",      1,  30,   3,   7},
    {"EQ_SHADE_VOLUME_SLIDER_CENTER",    4,  30,   3,   7},
    {"EQ_SHADE_VOLUME_SLIDER_RIGHT",     7,  30,   3,   7},
    {"EQ_SHADE_BALANCE_SLIDER_LEFT",    11,  30,   3,   7},
    {"EQ_SHADE_BALANCE_SLIDER_CENTER",  14,  30,   3,   7},
    {"EQ_SHADE_BALANCE_SLIDER_RIGHT",   17,  30,   3,   7},
    {"EQ_MAXIMIZE_BUTTON_ACTIVE",        1,  38,   9,   9},
    {"EQ_MINIMIZE_BUTTON_ACTIVE",        1,  47,   9,   9},
    {"EQ_SHADE_CLOSE_BUTTON",           11,  38,   9,   9},
    {"EQ_SHADE_CLOSE_BUTTON_ACTIVE",    11,  47,   9,   9},
};

constexpr Sprite genSprites[] = {
    // name                               x    y    w    h
    {"GEN_TOP_LEFT_SELECTED",              0,   0,  25,  20},
    {"GEN_TOP_LEFT_END_SELECTED",         26,   0,  25,  20},
    {"GEN_TOP_CENTER_FILL_SELECTED",      52,   0,  25,  20},
    {"GEN_TOP_RIGHT_END_SELECTED",        78,   0,  25,  20},
    {"GEN_TOP_LEFT_RIGHT_FILL_SELECTED", 104,   0,  25,  20},
    {"GEN_TOP_RIGHT_SELECTED",           130,   0,  25,  20},
    {"GEN_TOP_LEFT",                       0,  21,  25,  20},
    {"GEN_TOP_LEFT_END",                  26,  21,  25,  20},
    {"GEN_TOP_CENTER_FILL",               52,  21,  25,  20},
    {"GEN_TOP_RIGHT_END",                 78,  21,  25,  20},
    {"GEN_TOP_LEFT_RIGHT_FILL",          104,  21,  25,  20},
    {"GEN_TOP_RIGHT",                    130,  21,  25,  20},
    {"GEN_BOTTOM_LEFT",                    0,  42, 125,  14},
    {"GEN_BOTTOM_RIGHT",                   0,  57, 125,  14},
    {"GEN_BOTTOM_FILL",                  127,  72,  25,  14},
    {"GEN_MIDDLE_LEFT",                  127,  42,  11,  29},
    {"GEN_MIDDLE_LEFT_BOTTOM",           158,  42,  11,  24},
    {"GEN_MIDDLE_RIGHT",                 139,  42,   8,  29},
    {"GEN_MIDDLE_RIGHT_BOTTOM",          170,  42,   8,  24},
    {"GEN_CLOSE_SELECTED",               148,  42,   9,   9},
};

constexpr Sprite mainSprites[] = {
    // name                     x    y    w    h
    {"MAIN_WINDOW_BACKGROUND",   0,   0, 275, 116},
};

constexpr Sprite monosterSprites[] = {
    // name                   x    y    w    h
    {"MAIN_STEREO",            0,  12,  29,  12},
    {"MAIN_STEREO_SELECTED",   0,   0,  29,  12},
    {"MAIN_MONO",             29,  12,  27,  12},
    {"MAIN_MONO_SELECTED",    29,   0,  27,  12},
};

constexpr Sprite numbersSprites[] = {
    // name            x    y    w    h
    {"NO_MINUS_SIGN",   9,   6,   5,   1},
    {"MINUS_SIGN",     20,   6,   5,   1},
    {"DIGIT_0",         0,   0,   9,  13},
    {"DIGIT_1",         9,   0,   9,  13},
    {"DIGIT_2",        18,   0,   9,  13},
    {"DIGIT_3",        27,   0,   9,  13},
    {"DIGIT_4",        36,   0,   9,  13},
    {"DIGIT_5",        45,   0,   9,  13},
    {"DIGIT_6",        54,   0,   9,  13},
    {"DIGIT_7",        63,   0,   9,  13},
    {"DIGIT_8",        72,   0,   9,  13},
    {"DIGIT_9",        81,   0,   9,  13},
};

constexpr Sprite numsExSprites[] = {
    // name               x    y    w    h
    {"NO_MINUS_SIGN_EX",  90,   0,   9,  13},
    {"MINUS_SIGN_EX",     99,   0,   9,  13},
    {"DIGIT_0_EX",         0,   0,   9,  13},
    {"DIGIT_1_EX",         9,   0,   9,  13},
    {"DIGIT_2_EX",        18,   0,   9,  13},
    {"DIGIT_3_EX",        27,   0,   9,  13},
    {"DIGIT_4_EX",        36,   0,   9,  13},
    {"DIGIT_5_EX",        45,   0,   9,  13},
    {"DIGIT_6_EX",        54,   0,   9,  13},
    {"DIGIT_7_EX",        63,   0,   9,  13},
    {"DIGIT_8_EX",        72,   0,   9,  13},
    {"DIGIT_9_EX",        81,   0,   9,  13},
};

constexpr Sprite playpausSprites[] = {
    // name                         x    y    w    h
    {"MAIN_PLAYING_INDICATOR",       0,   0,   9,   9},
    {"MAIN_PAUSED_INDICATOR",        9,   0,   9,   9},
    {"MAIN_STOPPED_INDICATOR",      18,   0,   9,   9},
    {"MAIN_NOT_WORKING_INDICATOR",  36,   0,   9,   9},
    {"MAIN_WORKING_INDICATOR",      39,   0,   9,   9},
};

constexpr Sprite pleditSprites[] = {
    // name                                       x    y    w    h
    {"PLAYLIST_TOP_TILE",                        127,  21,  25,  20},
    {"PLAYLIST_TOP_LEFT_CORNER",                   0,  21,  25,  20},
    {"PLAYLIST_TITLE_BAR",                        26,  21, 100,  20},
    {"PLAYLIST_TOP_RIGHT_CORNER",                153,  21,  25,  20},
    {"PLAYLIST_TOP_TILE_SELECTED",               127,   0,  25,  20},
    {"PLAYLIST_TOP_LEFT_SELECTED",                 0,   0,  25,  20},
    {"PLAYLIST_TITLE_BAR_SELECTED",               26,   0, 100,  20},
    {"PLAYLIST_TOP_RIGHT_CORNER_SELECTED",       153,   0,  25,  20},
    {"PLAYLIST_LEFT_TILE",                         0,  42,  12,  29},
    {"PLAYLIST_RIGHT_TILE",                       31,  42,  20,  29},
    {"PLAYLIST_BOTTOM_TILE",                     179,   0,  25,  38},
    {"PLAYLIST_BOTTOM_LEFT_CORNER",                0,  72, 125,  38},
    {"PLAYLIST_BOTTOM_RIGHT_CORNER",             126,  72, 150,  38},
    {"PLAYLIST_VISUALIZER_BACKGROUND",           205,   0,  75,  38},
    {"PLAYLIST_SHADE_BACKGROUND",                 72,  57,  25,  14},
    {"PLAYLIST_SHADE_BACKGROUND_LEFT",            72,  42,  25,  14},
    {"PLAYLIST_SHADE_BACKGROUND_RIGHT",           99,  57,  50,  14},
    {"PLAYLIST_SHADE_BACKGROUND_RIGHT_SELECTED",  99,  42,  50,  14},
    {"PLAYLIST_SCROLL_HANDLE_SELECTED",           61,  53,   8,  18},
    {"PLAYLIST_SCROLL_HANDLE",                    52,  53,   8,  18},
    {"PLAYLIST_ADD_URL",                           0, 111,  22,  18},
    {"PLAYLIST_ADD_URL_SELECTED",                 23, 111,  22,  18},
    {"PLAYLIST_ADD_DIR",                           0, 130,  22,  18},
    {"PLAYLIST_ADD_DIR_SELECTED",                 23, 130,  22,  18},
    {"PLAYLIST_ADD_FILE",                          0, 149,  22,  18},
    {"PLAYLIST_ADD_FILE_SELECTED",                23, 149,  22,  18},
    {"PLAYLIST_REMOVE_ALL",                       54, 111,  22,  18},
    {"PLAYLIST_REMOVE_ALL_SELECTED",              77, 111,  22,  18},
    {"PLAYLIST_CROP",                             54, 130,  22,  18},
    {"PLAYLIST_CROP_SELECTED",                    77, 130,  22,  18},
    {"PLAYLIST_REMOVE_SELECTED",                  54, 149,  22,  18},
    {"PLAYLIST_REMOVE_SELECTED_SELECTED",         77, 149,  22,  18},
    {"PLAYLIST_REMOVE_MISC",                      54, 168,  22,  18},
    {"PLAYLIST_REMOVE_MISC_SELECTED",             77, 168,  22,  18},
    {"PLAYLIST_INVERT_SELECTION",                104, 111,  22,  18},
    {"PLAYLIST_INVERT_SELECTION_SELECTED",       127, 111,  22,  18},
    {"PLAYLIST_SELECT_ZERO",                     104, 130,  22,  18},
    {"PLAYLIST_SELECT_ZERO_SELECTED",            127, 130,  22,  18},
    {"PLAYLIST_SELECT_ALL",                      104, 149,  22,  18},
    {"PLAYLIST_SELECT_ALL_SELECTED",             127, 149,  22,  18},
    {"PLAYLIST_SORT_LIST",                       154, 111,  22,  18},
    {"PLAYLIST_SORT_LIST_SELECTED",              177, 111,  22,  18},
    {"PLAYLIST_FILE_INFO",                       154, 130,  22,  18},
    {"PLAYLIST_FILE_INFO_SELECTED",              177, 130,  22,  18},
    {"PLAYLIST_MISC_OPTIONS",                    154, 149,  22,  18},
    {"PLAYLIST_MISC_OPTIONS_SELECTED",           177, 149,  22,  18},
    {"PLAYLIST_NEW_LIST",                        204, 111,  22,  18},
    {"PLAYLIST_NEW_LIST_SELECTED",               227, 111,  22,  18},
    {"PLAYLIST_SAVE_LIST",                       204, 130,  22,  18},
    {"PLAYLIST_SAVE_LIST_SELECTED",              227, 130,  22,  18},
    {"PLAYLIST_LOAD_LIST",                       204, 149,  22,  18},
    {"PLAYLIST_LOAD_LIST_SELECTED",              227, 149,  22,  18},
    {"PLAYLIST_ADD_MENU_BAR",                     48, 111,   3,  54},
    {"PLAYLIST_REMOVE_MENU_BAR",                 100, 111,   3,  72},
    {"PLAYLIST_SELECT_MENU_BAR",                 150, 111,   3,  54},
    {"PLAYLIST_MISC_MENU_BAR",                   200, 111,   3,  54},
    {"PLAYLIST_LIST_BAR",                        250, 111,   3,  54},
    {"PLAYLIST_CLOSE_SELECTED",                   52,  42,   9,   9},
    {"PLAYLIST_COLLAPSE_SELECTED",                62,  42,   9,   9},
    {"PLAYLIST_EXPAND_SELECTED",                 150,  42,   9,   9},
};

constexpr Sprite posbarSprites[] = {
    // name                                  x    y    w    h
    {"MAIN_POSITION_SLIDER_BACKGROUND",       0,   0, 248,  10},
    {"MAIN_POSITION_SLIDER_THUMB",          248,   0,  29,  10},
    {"MAIN_POSITION_SLIDER_THUMB_SELECTED", 278,   0,  29,  10},
};

constexpr Sprite shufrepSprites[] = {
    // name                                      x    y    w    h
    {"MAIN_SHUFFLE_BUTTON",                      28,   0,  47,  15},
    {"MAIN_SHUFFLE_BUTTON_DEPRESSED",            28,  15,  47,  15},
    {"MAIN_SHUFFLE_BUTTON_SELECTED",             28,  30,  47,  15},
    {"MAIN_SHUFFLE_BUTTON_SELECTED_DEPRESSED",   28,  45,  47,  15},
    {"MAIN_REPEAT_BUTTON",                        0,   0,  28,  15},
    {"MAIN_REPEAT_BUTTON_DEPRESSED",              0,  15,  28,  15},
    {"MAIN_REPEAT_BUTTON_SELECTED",               0,  30,  28,  15},
    {"MAIN_REPEAT_BUTTON_SELECTED_DEPRESSED",     0,  45,  28,  15},
    {"MAIN_EQ_BUTTON",                            0,  61,  23,  12},
    {"MAIN_EQ_BUTTON_SELECTED",                   0,  73,  23,  12},
    {"MAIN_EQ_BUTTON_DEPRESSED",                 46,  61,  23,  12},
    {"MAIN_EQ_BUTTON_DEPRESSED_SELECTED",        46,  73,  23,  12},
    {"MAIN_PLAYLIST_BUTTON",                     23,  61,  23,  12},
    {"MAIN_PLAYLIST_BUTTON_SELECTED",            23,  73,  23,  12},
    {"MAIN_PLAYLIST_BUTTON_DEPRESSED",           69,  61,  23,  12},
    {"MAIN_PLAYLIST_BUTTON_DEPRESSED_SELECTED",  69,  73,  23,  12},
};

constexpr Sprite textSprites[] = {
    // name             x    y    w    h
    {"CHARACTER_97",     0,   0,   5,   6},  // a
    {"CHARACTER_98",     5,   0,   5,   6},  // b
    {"CHARACTER_99",    10,   0,   5,   6},  // c
    {"CHARACTER_100",   15,   0,   5,   6},  // d
    {"CHARACTER_101",   20,   0,   5,   6},  // e
    {"CHARACTER_102",   25,   0,   5,   6},  // f
    {"CHARACTER_103",   30,   0,   5,   6},  // g
    {"CHARACTER_104",   35,   0,   5,   6},  // h
    {"CHARACTER_105",   40,   0,   5,   6},  // i
    {"CHARACTER_106",   45,   0,   5,   6},  // j
    {"CHARACTER_107",   50,   0,   5,   6},  // k
    {"CHARACTER_108",   55,   0,   5,   6},  // l
    {"CHARACTER_109",   60,   0,   5,   6},  // m
    {"CHARACTER_110",   65,   0,   5,   6},  // n
    {"CHARACTER_111",   70,   0,   5,   6},  // o
    {"CHARACTER_112",   75,   0,   5,   6},  // p
    {"CHARACTER_113",   80,   0,   5,   6},  // q
    {"CHARACTER_114",   85,   0,   5,   6},  // r
    {"CHARACTER_115",   90,   0,   5,   6},  // s
    {"CHARACTER_116",   95,   0,   5,   6},  // t
    {"CHARACTER_117",  100,   0,   5,   6},  // u
    {"CHARACTER_118",  105,   0,   5,   6},  // v
    {"CHARACTER_119",  110,   0,   5,   6},  // w
    {"CHARACTER_120",  115,   0,   5,   6},  // x
    {"CHARACTER_121",  120,   0,   5,   6},  // y
    {"CHARACTER_122",  125,   0,   5,   6},  // z
    {"CHARACTER_34",   130,   0,   5,   6},  // "
    {"CHARACTER_64",   135,   0,   5,   6},  // @
    {"CHARACTER_32",   150,   0,   5,   6},  // space
    {"CHARACTER_48",     0,   6,   5,   6},  // 0
    {"CHARACTER_49",     5,   6,   5,   6},  // 1
    {"CHARACTER_50",    10,   6,   5,   6},  // 2
    {"CHARACTER_51",    15,   6,   5,   6},  // 3
    {"CHARACTER_52",    20,   6,   5,   6},  // 4
    {"CHARACTER_53",    25,   6,   5,   6},  // 5
    {"CHARACTER_54",    30,   6,   5,   6},  // 6
    {"CHARACTER_55",    35,   6,   5,   6},  // 7
    {"CHARACTER_56",    40,   6,   5,   6},  // 8
    {"CHARACTER_57",    45,   6,   5,   6},  // 9
    {"CHARACTER_8230",  50,   6,   5,   6},  // …
    {"CHARACTER_46",    55,   6,   5,   6},  // .
    {"CHARACTER_58",    60,   6,   5,   6},  // :
    {"CHARACTER_40",    65,   6,   5,   6},  // (
    {"CHARACTER_41",    70,   6,   5,   6},  // )
    {"CHARACTER_45",    75,   6,   5,   6},  // -
    {"CHARACTER_39",    80,   6,   5,   6},  // '
    {"CHARACTER_33",    85,   6,   5,   6},  // !
    {"CHARACTER_95",    90,   6,   5,   6},  // _
    {"CHARACTER_43",    95,   6,   5,   6},  // +
    {"CHARACTER_92",   100,   6,   5,   6},  // backslash
    {"CHARACTER_47",   105,   6,   5,   6},  // /
    {"CHARACTER_91",   110,   6,   5,   6},  // [
    {"CHARACTER_93",   115,   6,   5,   6},  // ]
    {"CHARACTER_94",   120,   6,   5,   6},  // ^
    {"CHARACTER_38",   125,   6,   5,   6},  // &
    {"CHARACTER_37",   130,   6,   5,   6},  // %
    {"CHARACTER_44",   135,   6,   5,   6},  // ,
    {"CHARACTER_61",   140,   6,   5,   6},  // =
    {"CHARACTER_36",   145,   6,   5,   6},  // $
    {"CHARACTER_35",   150,   6,   5,   6},  // #
    {"CHARACTER_197",    0,  12,   5,   6},  // Å
    {"CHARACTER_214",    5,  12,   5,   6},  // Ö
    {"CHARACTER_196",   10,  12,   5,   6},  // Ä
    {"CHARACTER_63",    15,  12,   5,   6},  // ?
    {"CHARACTER_42",    20,  12,   5,   6},  // *
    {"CHARACTER_60",   110,   6,   5,   6},  // <, drawn as [
    {"CHARACTER_123",  110,   6,   5,   6},  // {, drawn as [
    {"CHARACTER_62",   115,   6,   5,   6},  // >, drawn as ]
    {"CHARACTER_125",  115,   6,   5,   6},  // }, drawn as ]
};

constexpr Sprite titlebarSprites[] = {
    // name                                   x    y    w    h
    {"MAIN_TITLE_BAR",                        27,  15, 275,  14},
    {"MAIN_TITLE_BAR_SELECTED",               27,   0, 275,  14},
    {"MAIN_EASTER_EGG_TITLE_BAR",             27,  72, 275,  14},
    {"MAIN_EASTER_EGG_TITLE_BAR_SELECTED",    27,  57, 275,  14},
    {"MAIN_OPTIONS_BUTTON",                    0,   0,   9,   9},
    {"MAIN_OPTIONS_BUTTON_DEPRESSED",          0,   9,   9,   9},
    {"MAIN_MINIMIZE_BUTTON",                   9,   0,   9,   9},
    {"MAIN_MINIMIZE_BUTTON_DEPRESSED",         9,   9,   9,   9},
    {"MAIN_SHADE_BUTTON",                      0,  18,   9,   9},
    {"MAIN_SHADE_BUTTON_DEPRESSED",            9,  18,   9,   9},
    {"MAIN_CLOSE_BUTTON",                     18,   0,   9,   9},
    {"MAIN_CLOSE_BUTTON_DEPRESSED",           18,   9,   9,   9},
    {"MAIN_CLUTTER_BAR_BACKGROUND",          304,   0,   8,  43},
    {"MAIN_CLUTTER_BAR_BACKGROUND_DISABLED", 312,   0,   8,  43},
    {"MAIN_CLUTTER_BAR_BUTTON_O_SELECTED",   304,  47,   8,   8},
    {"MAIN_CLUTTER_BAR_BUTTON_A_SELECTED",   312,  55,   8,   7},
    {"MAIN_CLUTTER_BAR_BUTTON_I_SELECTED",   320,  62,   8,   7},
    {"MAIN_CLUTTER_BAR_BUTTON_D_SELECTED",   328,  69,   8,   8},
    {"MAIN_CLUTTER_BAR_BUTTON_V_SELECTED",   336,  77,   8,   7},
    {"MAIN_SHADE_BACKGROUND",                 27,  42, 275,  14},
    {"MAIN_SHADE_BACKGROUND_SELECTED",        27,  29, 275,  14},
    {"MAIN_SHADE_BUTTON_SELECTED",             0,  27,   9,   9},
    {"MAIN_SHADE_BUTTON_SELECTED_DEPRESSED",   9,  27,   9,   9},
    {"MAIN_SHADE_POSITION_BACKGROUND",         0,  36,  17,   7},
    {"MAIN_SHADE_POSITION_THUMB",             20,  36,   3,   7},
    {"MAIN_SHADE_POSITION_THUMB_LEFT",        17,  36,   3,   7},
    {"MAIN_SHADE_POSITION_THUMB_RIGHT",       23,  36,   3,   7},
};

constexpr Sprite volumeSprites[] = {
    // name                         x    y    w    h
    {"MAIN_VOLUME_BACKGROUND",       0,   0,  68, 420},  // 28 frames, 15 apart
    {"MAIN_VOLUME_THUMB",           15, 422,  14,  11},
    {"MAIN_VOLUME_THUMB_SELECTED",   0, 422,  14,  11},
};

constexpr Sheet allSheets[] = {
    {"BALANCE",   balanceSprites},
    {"CBUTTONS",  cbuttonsSprites},
    {"EQMAIN",    eqmainSprites},
    {"EQ_EX",     eqExSprites},
    {"GEN",       genSprites},
    {"MAIN",      mainSprites},
    {"MONOSTER",  monosterSprites},
    {"NUMBERS",   numbersSprites},
    {"NUMS_EX",   numsExSprites},
    {"PLAYPAUS",  playpausSprites},
    {"PLEDIT",    pleditSprites},
    {"POSBAR",    posbarSprites},
    {"SHUFREP",   shufrepSprites},
    {"TEXT",      textSprites},
    {"TITLEBAR",  titlebarSprites},
    {"VOLUME",    volumeSprites},
};

constexpr Fallback fallbackTable[] = {
    // asked for                       drawn instead
    {"MAIN_BALANCE_BACKGROUND",       "MAIN_VOLUME_BACKGROUND"},
    {"MAIN_BALANCE_THUMB",            "MAIN_VOLUME_THUMB"},
    {"MAIN_BALANCE_THUMB_ACTIVE",     "MAIN_VOLUME_THUMB_SELECTED"},
    {"EQ_MAXIMIZE_BUTTON_ACTIVE",     "EQ_MAXIMIZE_BUTTON_ACTIVE_FALLBACK"},
    {"EQ_SHADE_BACKGROUND",           "EQ_TITLE_BAR"},
    {"EQ_SHADE_BACKGROUND_SELECTED",  "EQ_TITLE_BAR_SELECTED"},
};

constexpr NumberPair numberPairTable[] = {
    // NUMBERS          NUMS_EX
    {"DIGIT_0",        "DIGIT_0_EX"},
    {"DIGIT_1",        "DIGIT_1_EX"},
    {"DIGIT_2",        "DIGIT_2_EX"},
    {"DIGIT_3",        "DIGIT_3_EX"},
    {"DIGIT_4",        "DIGIT_4_EX"},
    {"DIGIT_5",        "DIGIT_5_EX"},
    {"DIGIT_6",        "DIGIT_6_EX"},
    {"DIGIT_7",        "DIGIT_7_EX"},
    {"DIGIT_8",        "DIGIT_8_EX"},
    {"DIGIT_9",        "DIGIT_9_EX"},
    {"MINUS_SIGN",     "MINUS_SIGN_EX"},
    {"NO_MINUS_SIGN",  "NO_MINUS_SIGN_EX"},
};

constexpr std::string_view optionalSheets[] = {"BALANCE", "NUMBERS", "NUMS_EX", "EQ_EX", "GEN"};
// clang-format on

constexpr std::size_t spriteCount = 281;

// Every sprite under its name, sorted by the compiler.
constexpr auto sortedSprites = [] {
    std::array<Placed, spriteCount> sorted;
    auto next = sorted.begin();
    for (const Sheet& sheet : allSheets)
        for (const Sprite& sprite : sheet.sprites)
            *next++ = {sheet.name, sprite};
    std::ranges::sort(sorted, {}, [](const Placed& placed) { return placed.sprite.name; });
    return sorted;
}();

constexpr const Placed* find(std::string_view name)
{
    const auto found = std::ranges::lower_bound(
        sortedSprites, name, {}, [](const Placed& placed) { return placed.sprite.name; });
    return found != sortedSprites.end() && found->sprite.name == name ? &*found : nullptr;
}

constexpr bool isOn(std::string_view name, std::string_view sheet)
{
    const Placed* const placed = find(name);
    return placed != nullptr && placed->sheet == sheet;
}

static_assert(std::size(allSheets) == sheetCount);
static_assert(std::ranges::is_sorted(allSheets, {}, &Sheet::name));
static_assert([] {
    std::size_t count = 0;
    for (const Sheet& sheet : allSheets)
        count += sheet.sprites.size();
    return count;
}() == spriteCount);
static_assert(std::ranges::adjacent_find(sortedSprites, {}, [](const Placed& placed) {
                  return placed.sprite.name;
              }) == sortedSprites.end());
static_assert(std::ranges::all_of(sortedSprites, [](const Placed& placed) {
    const auto& sprite = placed.sprite;
    return sprite.x >= 0 && sprite.y >= 0 && !sprite.rect().isEmpty() &&
           sprite.x + sprite.width <= extent.width && sprite.y + sprite.height <= extent.height;
}));
static_assert(std::ranges::all_of(fallbackTable, [](const Fallback& fallback) {
    return find(fallback.name) && find(fallback.substitute);
}));
static_assert(std::size(numberPairTable) == std::size(numbersSprites));
static_assert(std::ranges::all_of(numberPairTable, [](const NumberPair& pair) {
    return isOn(pair.plain, "NUMBERS") && isOn(pair.ext, "NUMS_EX") &&
           pair.ext.starts_with(pair.plain) && pair.ext.substr(pair.plain.size()) == "_EX";
}));

}

std::span<const Sheet> sheets()
{
    return allSheets;
}

std::span<const Sprite> spritesOf(std::string_view sheet)
{
    const auto found = std::ranges::lower_bound(allSheets, sheet, {}, &Sheet::name);
    return found != std::end(allSheets) && found->name == sheet ? found->sprites
                                                                : std::span<const Sprite>{};
}

std::span<const Placed> all()
{
    return sortedSprites;
}

std::optional<Placed> byName(std::string_view name)
{
    const Placed* const placed = find(name);
    return placed ? std::optional(*placed) : std::nullopt;
}

std::span<const Fallback> fallbacks()
{
    return fallbackTable;
}

std::span<const NumberPair> numberPairs()
{
    return numberPairTable;
}

bool isOptionalSheet(std::string_view sheet)
{
    return std::ranges::find(optionalSheets, sheet) != std::end(optionalSheets);
}

}

namespace SkinKit::SpriteFallbacks {
namespace {

std::optional<Resolved> own(std::string_view name)
{
    const auto placed = SkinSprites::byName(name);
    return placed ? std::optional(Resolved{placed->sheet, placed->sprite.rect()}) : std::nullopt;
}

// Null for what is no digit.
const SkinSprites::NumberPair* numberPair(std::string_view name)
{
    const auto found =
        std::ranges::find(SkinSprites::numberPairs(), name, &SkinSprites::NumberPair::plain);
    return found == SkinSprites::numberPairs().end() ? nullptr : &*found;
}

}

std::optional<Resolved> preferred(std::string_view name)
{
    const auto* const pair = numberPair(name);
    return own(pair ? pair->ext : name);
}

std::optional<Resolved> substitute(std::string_view name)
{
    if (const auto* const pair = numberPair(name))
        return own(pair->plain);
    const auto fallback =
        std::ranges::find(SkinSprites::fallbacks(), name, &SkinSprites::Fallback::name);
    if (fallback == SkinSprites::fallbacks().end())
        return std::nullopt;
    auto place = own(fallback->substitute);
    if (const auto wanted = own(name); place && wanted) {
        place->rect.width = std::min(place->rect.width, wanted->rect.width);
        place->rect.height = std::min(place->rect.height, wanted->rect.height);
    }
    return place;
}

}
