// What a player does with a skin, at its smallest: loads it, says what the loader noticed, and
// draws the main window of a player that is in the middle of a track.
//
//     player some.wsz out.png
//
// Built by the CMakeLists.txt beside it, or without CMake:
//
//     g++ -std=c++23 main.cpp $(pkg-config --cflags --libs skinkit) -o player

#include "SkinKit/SkinKit.h"

#include <iostream>
#include <string>

namespace {

SkinKit::MainWindowState playingState()
{
    SkinKit::MainWindowState state;
    state.status.transport = SkinKit::Transport::playing;
    state.status.elapsed = 83; // seconds: the clock shows 01:23
    state.status.duration = 242;
    state.status.bitrateKbps = 192;
    state.status.sampleRate = 44'100;
    state.status.channels = 2;
    state.position = state.status.elapsed / state.status.duration;
    state.marqueeText = "1. Somebody - Some Song (4:02)";
    state.volume = 0.6F;
    state.balance = 0;
    state.repeatOn = true;
    return state;
}

}

int main(int argc, char** argv)
{
    if (argc != 3) {
        std::cerr << "usage: player <skin.wsz | folder> <out.png>\n";
        return 2;
    }

    const auto skin = SkinKit::SkinParser::parse(argv[1]);
    if (!skin) {
        std::cerr << argv[1] << ": " << skin.error().description() << '\n';
        return 2;
    }
    for (const std::string& note : skin->warnings)
        std::cout << "warning: " << note << '\n';
    for (const std::string& note : skin->fallbacks)
        std::cout << "fallback: " << note << '\n';

    const SkinKit::Image window =
        SkinKit::MainWindowRenderer::render(*skin, playingState(), 2, SkinKit::Clip::toRegion);
    if (const auto error = SkinKit::PNGWriter::write(window, argv[2])) {
        std::cerr << argv[2] << ": " << error.message() << '\n';
        return 2;
    }
    return 0;
}
