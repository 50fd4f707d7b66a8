#pragma once

// Loads a classic skin, draws its windows, and writes PNG files:
//
//     const auto skin = SkinParser::parse("some.wsz");
//     const auto state = MainWindowState::idle();
//     const Image image = MainWindowRenderer::render(*skin, state, 2, Clip::toRegion);
//     PNGWriter::write(image, "some.png");
//
// Everything is a value or a pure function; any thread may use them. What a player needs on top is
// in SkinKit/Player.h.

#if __cplusplus < 202100L
#error "SkinKit needs C++23"
#else

#include "SkinKit/Archive/SkinArchive.h"
#include "SkinKit/Archive/SkinError.h"
#include "SkinKit/Graphics/Image.h"
#include "SkinKit/Graphics/PNGWriter.h"
#include "SkinKit/Skin.h"
#include "SkinKit/SkinParser.h"
#include "SkinKit/Version.h"
#include "SkinKit/Windows/Desktop/DesktopRenderer.h"
#include "SkinKit/Windows/Equalizer/EQWindowRenderer.h"
#include "SkinKit/Windows/Main/MainWindowRenderer.h"
#include "SkinKit/Windows/Main/MainWindowState.h"
#include "SkinKit/Windows/Playlist/PlaylistWindowRenderer.h"

#endif
