#include "SkinKit/Base/Numbers.h"
#include "SkinKit/Sprites/SkinSprites.h"
#include "SkinKit/Windows/Main/MainSliders.h"
#include "SkinKit/Windows/Main/MainWindowLayout.h"
#include "examples/samples/Sheets.h"
#include "examples/samples/WindowParts.h"

#include <string>

// The main window: what lies behind everything, and every sprite that is drawn on it.
namespace samples {
namespace {

namespace Layout = SkinKit::MainWindowLayout;
namespace Shade = SkinKit::MainShadeLayout;
namespace Sliders = SkinKit::MainSliders;

// The recesses around what the layout places in them.
// clang-format off
//                            x   y    w   h
constexpr Rect clockWell   { 21, 22,  83, 43};
constexpr Rect marqueeWell {108, 23, 159, 13};
constexpr Rect kbpsWell    {108, 39,  21, 13};
constexpr Rect khzWell     {153, 39,  16, 13};
// clang-format on
static_assert(contains(clockWell, Layout::visualizer) && contains(clockWell, Layout::timeHitArea));
static_assert(contains(marqueeWell, Layout::marquee));
static_assert(contains(kbpsWell, Layout::kbps) && contains(khzWell, Layout::khz));

constexpr Point kbpsLabel{kbpsWell.right() + 3, Layout::kbps.y - 2};
constexpr Point khzLabel{khzWell.right() + 3, Layout::khz.y - 2};
constexpr Rect emblem{241, 89, 25, 15};
constexpr int digitWidth = 9;
constexpr int digitHeight = 13;

// The groove of a slider, in the middle of its height.
constexpr Rect grooveOf(const Sliders::Slider& slider, int height)
{
    const int middle = slider.thumbY() + (slider.thumbSize.height - height) / 2;
    return {slider.origin.x, middle, slider.size.width, height};
}
constexpr Rect volumeGroove = grooveOf(Sliders::volume, 5);
constexpr Rect balanceGroove = grooveOf(Sliders::balance, 5);
constexpr Rect positionGroove = grooveOf(Sliders::position, 6);

constexpr Rect relativeTo(const Rect& rect, Point origin)
{
    return {rect.x - origin.x, rect.y - origin.y, rect.width, rect.height};
}

void drawVisualizerDots(Painter& painter, const Rect& rect, const Look& look)
{
    painter.fill(rect, look.visBackground);
    for (int y = 1; y < rect.height; y += 2)
        for (int x = 0; x < rect.width; x += 2)
            painter.dot({rect.x + x, rect.y + y}, look.visDots);
}

void drawClockWell(Painter& painter, const Look& look)
{
    painter.box(clockWell, look.display);
    drawVisualizerDots(painter, Layout::visualizer, look);

    // The colon stands in the middle between minutes and seconds.
    const int left = Layout::digitXs[1] + digitWidth;
    const int x = left + (Layout::digitXs[2] - left) / 2 - 1;
    for (const int y : {Layout::digitY + 3, Layout::digitY + 8})
        painter.fill({x, y, 2, 2}, look.displayInk);
}

Image mainWindow(const Look& look)
{
    return paintedImage(Layout::size, [&](Painter& painter) {
        drawBody(painter, look, Window::main);
        drawClockWell(painter, look);
        for (const Rect& well : {marqueeWell, kbpsWell, khzWell})
            painter.box(well, look.textDisplay);
        for (const Rect& groove : {volumeGroove, balanceGroove, positionGroove})
            painter.box(groove, look.groove);
        drawIconLabel(painter, kbpsLabel, Icon::kbps, look);
        drawIconLabel(painter, khzLabel, Icon::khz, look);
        drawCenteredIcon(painter, emblem, look.emblem, look.label);
    });
}

Icon iconOf(Layout::TitleButton button)
{
    constexpr Icon icons[] = {Icon::options, Icon::minimize, Icon::shade, Icon::close};
    return icons[static_cast<int>(button)];
}

constexpr Layout::TitleButton titleButtons[] = {
    Layout::TitleButton::options, Layout::TitleButton::minimize, Layout::TitleButton::shade,
    Layout::TitleButton::close};

void drawMainTitle(Painter bar, const Look& look, std::string_view caption, bool isSelected)
{
    constexpr int margin = 4;
    drawTitleBar(bar, look,
                 {.caption = caption,
                  .isSelected = isSelected,
                  .linesFrom = Layout::rect(Layout::TitleButton::options).right() + margin,
                  .linesTo = Layout::rect(Layout::TitleButton::minimize).x - margin});
    for (const auto button : titleButtons)
        drawTitleButton(bar.part(Layout::rect(button)), look, iconOf(button), false);
}

void drawShadeBar(Painter bar, const Look& look, bool isSelected)
{
    constexpr Shade::Transport transports[] = {Shade::Transport::previous, Shade::Transport::play,
                                               Shade::Transport::pause,    Shade::Transport::stop,
                                               Shade::Transport::next,     Shade::Transport::eject};
    constexpr Icon icons[] = {Icon::smallPrevious, Icon::smallPlay, Icon::smallPause,
                              Icon::smallStop,     Icon::smallNext, Icon::smallEject};

    drawBareBar(bar, look, isSelected, Window::shaded);
    drawText(bar, {Shade::buttonRects[0].right() + 4, 5}, look.title,
             isSelected ? look.titleInkSelected : look.titleInk);
    const int wellRight = Shade::miniTimeHitArea.right() + 1;
    bar.box({Shade::visualizerFrame.x - 2, 2, wellRight - Shade::visualizerFrame.x + 2, 10},
            look.textDisplay);
    drawCharacter(bar,
                  {Shade::miniTimeOrigin.x + Shade::miniTimeCellX[2] + 4, Shade::miniTimeOrigin.y},
                  U':', look.displayInk);
    for (const auto transport : transports)
        drawCenteredIcon(bar, Shade::frame(transport), icons[static_cast<int>(transport)],
                         isSelected ? look.titleInkSelected : look.titleInk);
    for (const auto button : titleButtons)
        drawTitleButton(bar.part(Layout::rect(button)), look,
                        button == Layout::TitleButton::shade ? Icon::unshade : iconOf(button),
                        false);
}

void drawClutterBar(Sheets& sheets, const Look& look, const Image& window)
{
    struct Letter {
        Layout::ClutterButton button;
        char letter;
    };
    constexpr Letter letters[] = {
        {Layout::ClutterButton::mainMenu,    'O'},
        {Layout::ClutterButton::alwaysOnTop, 'A'},
        {Layout::ClutterButton::fileInfo,    'I'},
        {Layout::ClutterButton::doubleSize,  'D'},
        {Layout::ClutterButton::visualizer,  'V'}
    };

    const auto bar = [&](bool hasLetters) {
        return paintedImage(Layout::clutterBar.size(), [&](Painter& painter) {
            drawBehind(painter, look, window, Layout::clutterBar.origin());
            painter.box(painter.bounds(), look.groove);
            for (const auto& [button, letter] : letters) {
                const Rect place = relativeTo(Layout::rect(button), Layout::clutterBar.origin());
                if (hasLetters)
                    drawCharacter(painter, {place.x + 2, place.y + 1},
                                  static_cast<unsigned char>(letter), look.displayDim);
            }
        });
    };

    const Image enabled = bar(true);
    const Image disabled = bar(false);
    sheets.sprite("MAIN_CLUTTER_BAR_BACKGROUND").put(enabled, {0, 0});
    sheets.sprite("MAIN_CLUTTER_BAR_BACKGROUND_DISABLED").put(disabled, {0, 0});
    for (const auto& [button, letter] : letters) {
        Painter lit = sheets.sprite(Layout::spriteName(button));
        drawBehind(lit, look, disabled, {0, Layout::rect(button).y - Layout::clutterBar.y});
        drawCharacter(lit, {2, 1}, static_cast<unsigned char>(letter), look.displayInk);
    }
}

void drawTitleBars(Sheets& sheets, const Look& look)
{
    struct Bar {
        std::string_view sprite, caption;
        bool isSelected;
    };
    const Bar bars[] = {
        {"MAIN_TITLE_BAR",                     look.title,               false},
        {"MAIN_TITLE_BAR_SELECTED",            look.title,               true },
        {"MAIN_EASTER_EGG_TITLE_BAR",          "* * * TURN IT UP * * *", false},
        {"MAIN_EASTER_EGG_TITLE_BAR_SELECTED", "* * * TURN IT UP * * *", true },
    };
    for (const auto& [sprite, caption, isSelected] : bars)
        drawMainTitle(sheets.sprite(sprite), look, caption, isSelected);
    drawShadeBar(sheets.sprite("MAIN_SHADE_BACKGROUND"), look, false);
    drawShadeBar(sheets.sprite("MAIN_SHADE_BACKGROUND_SELECTED"), look, true);

    struct Button {
        std::string_view sprite;
        Icon icon;
        bool isPressed;
    };
    constexpr Button buttons[] = {
        {"MAIN_OPTIONS_BUTTON",                  Icon::options,  false},
        {"MAIN_OPTIONS_BUTTON_DEPRESSED",        Icon::options,  true },
        {"MAIN_MINIMIZE_BUTTON",                 Icon::minimize, false},
        {"MAIN_MINIMIZE_BUTTON_DEPRESSED",       Icon::minimize, true },
        {"MAIN_SHADE_BUTTON",                    Icon::shade,    false},
        {"MAIN_SHADE_BUTTON_DEPRESSED",          Icon::shade,    true },
        {"MAIN_SHADE_BUTTON_SELECTED",           Icon::unshade,  false},
        {"MAIN_SHADE_BUTTON_SELECTED_DEPRESSED", Icon::unshade,  true },
        {"MAIN_CLOSE_BUTTON",                    Icon::close,    false},
        {"MAIN_CLOSE_BUTTON_DEPRESSED",          Icon::close,    true },
    };
    const Rect corner = Layout::rect(Layout::TitleButton::options);
    for (const auto& [sprite, icon, isPressed] : buttons) {
        Painter button = sheets.sprite(sprite);
        drawBarBehind(button, look, Layout::titleBar, corner.origin());
        drawTitleButton(button, look, icon, isPressed);
    }

    Painter position = sheets.sprite("MAIN_SHADE_POSITION_BACKGROUND");
    drawBarBehind(position, look, Layout::titleBar, Sliders::shadePosition.origin);
    position.box({0, 1, position.size().width, 5}, look.groove);
    for (const auto thumb : {"MAIN_SHADE_POSITION_THUMB", "MAIN_SHADE_POSITION_THUMB_LEFT",
                             "MAIN_SHADE_POSITION_THUMB_RIGHT"})
        drawThumb(sheets.sprite(thumb), look, Grip::small, false);
}

void drawTransport(Sheets& sheets, const Look& look, const Image& window)
{
    constexpr Icon icons[] = {Icon::previous, Icon::play, Icon::pause,
                              Icon::stop,     Icon::next, Icon::eject};
    for (const auto button : Layout::allTransports) {
        const Rect place = Layout::rect(button);
        for (const auto state : {Layout::ButtonState::released, Layout::ButtonState::pressed}) {
            Painter sprite = sheets.sprite(Layout::spriteName(button, state));
            // One sprite is a column wider than its button; that column belongs to its neighbour.
            Painter face = sprite.part({0, 0, place.width, place.height});
            drawBehind(face, look, window, place.origin());
            drawIconButton(face, look, icons[static_cast<int>(button)],
                           state == Layout::ButtonState::pressed);
        }
    }
}

void drawToggles(Sheets& sheets, const Look& look, const Image& window)
{
    struct Caption {
        Sliders::Toggle toggle;
        std::string_view caption;
    };
    constexpr Caption captions[] = {
        {Sliders::Toggle::shuffle,   "SHUFFLE"},
        {Sliders::Toggle::repeatAll, "REP"    },
        {Sliders::Toggle::equalizer, "EQ"     },
        {Sliders::Toggle::playlist,  "PL"     }
    };
    for (const auto& [toggle, caption] : captions) {
        for (const bool lit : {false, true}) {
            for (const bool pressed : {false, true}) {
                Painter sprite = sheets.sprite(
                    Sliders::spriteName(toggle, {.selected = lit, .pressed = pressed}));
                drawBehind(sprite, look, window, Sliders::frame(toggle).origin());
                drawToggle(sprite, look, caption, {.pressed = pressed, .lit = lit});
            }
        }
    }

    struct Channels {
        std::string_view sprite, caption;
        Point at;
        bool isLit;
    };
    constexpr Channels channels[] = {
        {"MAIN_MONO",            "MONO",   Layout::mono,   false},
        {"MAIN_MONO_SELECTED",   "MONO",   Layout::mono,   true },
        {"MAIN_STEREO",          "STEREO", Layout::stereo, false},
        {"MAIN_STEREO_SELECTED", "STEREO", Layout::stereo, true },
    };
    for (const auto& [name, caption, at, isLit] : channels) {
        Painter sprite = sheets.sprite(name);
        drawBehind(sprite, look, window, at);
        drawCenteredText(sprite, {0, 0, sprite.size().width, 10}, caption,
                         isLit ? look.stateLit : look.stateUnlit);
    }
}

void drawIndicators(Sheets& sheets, const Look& look, const Image& window)
{
    const Point workPlace = Layout::workIndicator.origin();
    // The two work lights overlap on the sheet; only their first three columns are ever shown.
    for (const bool isLit : {false, true}) {
        Painter sprite =
            sheets.sprite(isLit ? "MAIN_WORKING_INDICATOR" : "MAIN_NOT_WORKING_INDICATOR");
        drawBehind(sprite, look, window, workPlace);
        sprite.fill({0, 1, 2, 7}, isLit ? look.work : look.displayDim);
    }

    struct Indicator {
        std::string_view sprite;
        Icon icon;
        Color color;
    };
    const Indicator indicators[] = {
        {"MAIN_PLAYING_INDICATOR", Icon::lampPlay,  look.play      },
        {"MAIN_PAUSED_INDICATOR",  Icon::lampPause, look.pause     },
        {"MAIN_STOPPED_INDICATOR", Icon::lampStop,  look.displayInk},
    };
    for (const auto& [name, icon, color] : indicators) {
        Painter sprite = sheets.sprite(name);
        drawBehind(sprite, look, window, Layout::playIndicator);
        const int height = static_cast<int>(rowsOf(icon).size());
        drawIcon(sprite, {2, 1 + (7 - height) / 2}, icon, color);
    }
}

void drawDigits(Sheets& sheets, const Look& look, const Image& window)
{
    const Point clock{Layout::digitXs[0], Layout::digitY};
    for (const std::string suffix : {"", "_EX"}) {
        for (int digit = 0; digit <= 9; ++digit) {
            Painter sprite = sheets.sprite("DIGIT_" + std::to_string(digit) + suffix);
            drawBehind(sprite, look, window, clock);
            look.digit(sprite, digit);
        }
    }
    // On the plain sheet the signs lie inside digits; only the extended one has cells for them.
    for (const bool isNegative : {false, true}) {
        Painter sprite = sheets.sprite(isNegative ? "MINUS_SIGN_EX" : "NO_MINUS_SIGN_EX");
        drawBehind(sprite, look, window, clock);
        if (isNegative)
            sprite.fill({1, digitHeight / 2, 6, 2}, look.displayInk);
    }
}

void drawTextSheet(Sheets& sheets, const Look& look, const Image& window)
{
    constexpr std::string_view prefix = "CHARACTER_";
    for (const auto& character : SkinKit::SkinSprites::spritesOf("TEXT")) {
        const auto code =
            SkinKit::Numbers::parseInteger<std::uint32_t>(character.name.substr(prefix.size()));
        Painter cell = sheets.sprite(character.name);
        drawBehind(cell, look, window, Layout::marquee.origin());
        if (code)
            drawCharacter(cell, {0, 0}, *code, look.displayInk);
    }
}

// A strip of frames, each with the slider's surroundings and its groove filled to a share.
template <class DrawLevel>
void drawFrames(Painter strip, const Look& look, const Image& window, const Sliders::Slider& slider,
                const Rect& groove, DrawLevel&& drawShare)
{
    for (int frame = 0; frame < Sliders::frameCount; ++frame) {
        Painter painter = strip.part(Sliders::frameRect(strip.bounds(), frame));
        drawBehind(painter, look, window, slider.origin);
        drawShare(painter, look, relativeTo(groove, slider.origin),
                  frame * 256 / (Sliders::frameCount - 1));
    }
}

void drawSliders(Sheets& sheets, const Look& look, const Image& window)
{
    drawFrames(sheets.sprite("MAIN_VOLUME_BACKGROUND"), look, window, Sliders::volume, volumeGroove,
               drawLevel);
    drawFrames(sheets.sprite("MAIN_BALANCE_BACKGROUND"), look, window, Sliders::balance,
               balanceGroove, drawLevelFromCentre);

    Painter position = sheets.sprite("MAIN_POSITION_SLIDER_BACKGROUND");
    drawBehind(position, look, window, Sliders::position.origin);

    struct Thumb {
        std::string_view sprite;
        Sliders::Slider slider;
        bool isPressed;
    };
    constexpr Thumb thumbs[] = {
        {"MAIN_VOLUME_THUMB",                   Sliders::volume,   false},
        {"MAIN_VOLUME_THUMB_SELECTED",          Sliders::volume,   true },
        {"MAIN_BALANCE_THUMB",                  Sliders::balance,  false},
        {"MAIN_BALANCE_THUMB_ACTIVE",           Sliders::balance,  true },
        {"MAIN_POSITION_SLIDER_THUMB",          Sliders::position, false},
        {"MAIN_POSITION_SLIDER_THUMB_SELECTED", Sliders::position, true },
    };
    for (const auto& [name, slider, isPressed] : thumbs) {
        Painter sprite = sheets.sprite(name);
        drawBehind(sprite, look, window, {slider.origin.x + slider.travel / 2, slider.thumbY()});
        drawThumb(sprite, look, Grip::vertical, isPressed);
    }
}

}

void drawMainSheets(Sheets& sheets, const Look& look)
{
    const Image window = mainWindow(look);
    sheets.sprite("MAIN_WINDOW_BACKGROUND").put(window, {0, 0});
    drawTitleBars(sheets, look);
    drawClutterBar(sheets, look, window);
    drawTransport(sheets, look, window);
    drawToggles(sheets, look, window);
    drawIndicators(sheets, look, window);
    drawDigits(sheets, look, window);
    drawTextSheet(sheets, look, window);
    drawSliders(sheets, look, window);
}

}
