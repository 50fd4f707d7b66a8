#pragma once

#include "examples/samples/Lettering.h"

#include <functional>
#include <string>
#include <vector>

namespace samples {

// A button's four states.
struct ButtonState {
    bool pressed = false;
    bool lit = false;
};

// What windows there are, as far as their bodies and title bars differ.
enum class Window {
    main,
    equalizer,
    sizable, // made of tiles: between the corners, every row and every column must look the same
    shaded,  // the main window or the equalizer, when no more than a bar
};

// How a skin looks: what its parts are made of. How parts make up sheets is the business of
// `drawSheets`, the same for every look.
struct Look {
    std::string title; // of the main window

    // What the window is made of, and its title bars.
    Surface body;
    Surface sizableBody;
    Surface titleBar;
    Surface titleBarSelected;
    Surface titleButton;
    Surface titleButtonPressed;
    Color titleInk;
    Color titleInkSelected;
    Color titleLine; // beside the title, with titleLineShadow below it
    Color titleLineShadow;
    Color titleLineSelected;
    Color titleLineSelectedShadow;

    // Recesses.
    Surface display;     // behind the clock and the visualizer
    Surface textDisplay; // behind text; its fill is one colour, since text brings it along
    Surface groove;
    Surface list; // where the tracks stand; its fill is the playlist's background

    // Buttons, and what is written on them.
    Surface button;
    Surface buttonPressed;
    Surface toggle;
    Surface toggleLit;
    Surface togglePressed;
    Surface thumb;
    Surface thumbPressed;
    Color buttonInk;
    Color buttonInkPressed;
    Color toggleInk;
    Color toggleInkLit;
    Color lampLit; // a point of light on toggles; none for no lamp
    Color lampUnlit;
    Color grip; // the marks on thumbs
    Color gripPressed;

    Icon emblem = Icon::wave;

    // Lettering.
    Color label; // on the body
    Color labelShadow = none;
    Color stateLit; // "stereo" when it is
    Color stateUnlit;
    Color displayInk;
    Color displayDim; // unlit letters and segments
    Color play;
    Color pause;
    Color work;

    // How full a slider is, from empty to full; in marks this far apart, or in one piece for 0.
    Ramp level;
    int levelPitch = 0;
    // The equalizer's graph, from top to bottom.
    Ramp graph;
    Color graphGrid;

    // The visualizer: background, dots, bars from top to bottom, trace from its middle outwards,
    // peak marks.
    Color visBackground;
    Color visDots;
    Ramp visBars;
    Ramp visTrace;
    Color visPeak;

    // The playlist's lines.
    Color listInk;
    Color listInkCurrent;
    Color listSelection;
    std::string listFont;

    Color gutter;               // between the sprites of a sheet
    bool isTranslucent = false; // sprites show the window behind them instead of repeating it

    // A digit of the clock in its cell of 9 × 13 pixels.
    std::function<void(Painter&, int digit)> digit;
    // Added to a window's body, and to its title bar, before anything else lies on it; or nothing.
    std::function<void(Painter&, Window)> decorate;
    std::function<void(Painter&, Window)> decorateBar;
};

}
