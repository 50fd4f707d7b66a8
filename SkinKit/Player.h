#pragma once

// What a player needs beside SkinKit/SkinKit.h: where everything is in the windows, conversions
// between pointer and value, menus, hot keys, cursors, texts and the visualizer.

#include "SkinKit/SkinKit.h"

#include "SkinKit/Formats/Cursor.h"
#include "SkinKit/Formats/PlaylistStyle.h"
#include "SkinKit/Formats/SkinCursors.h"
#include "SkinKit/Formats/SkinRegion.h"
#include "SkinKit/Formats/VisColorParser.h"
#include "SkinKit/Graphics/Canvas.h"
#include "SkinKit/Graphics/Geometry.h"
#include "SkinKit/Graphics/RGBColor.h"
#include "SkinKit/Player/MainMenu.h"
#include "SkinKit/Player/PlaylistHTML.h"
#include "SkinKit/Player/WinampHotkeys.h"
#include "SkinKit/Sprites/GeneratedBaseSkin.h"
#include "SkinKit/Sprites/SkinSprites.h"
#include "SkinKit/Text/ListFont.h"
#include "SkinKit/Text/TextFont.h"
#include "SkinKit/Text/TimeDigits.h"
#include "SkinKit/Windows/Equalizer/CubicSpline.h"
#include "SkinKit/Windows/Equalizer/EQGraph.h"
#include "SkinKit/Windows/Equalizer/EQLayout.h"
#include "SkinKit/Windows/Main/MainSliders.h"
#include "SkinKit/Windows/Main/MainWindowLayout.h"
#include "SkinKit/Windows/Main/MainWindowRenderer.h"
#include "SkinKit/Windows/Playlist/PlaylistLayout.h"
#include "SkinKit/Windows/Playlist/PlaylistText.h"
#include "SkinKit/Windows/VisRenderer.h"
#include "SkinKit/Windows/WindowDrawing.h"
