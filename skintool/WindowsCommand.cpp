#include "skintool/WindowsCommand.h"

#include "SkinKit/Rendering/DesktopRenderer.h"
#include "SkinKit/Rendering/EQWindowRenderer.h"
#include "SkinKit/Rendering/MainShadeRenderer.h"
#include "SkinKit/Rendering/MainWindowRenderer.h"
#include "SkinKit/Rendering/PlaylistWindowRenderer.h"
#include "SkinKit/Tooling/WindowsOptions.h"
#include "skintool/Loading.h"
#include "skintool/Paths.h"
#include "skintool/Pictures.h"

#include <filesystem>
#include <system_error>
#include <utility>

namespace skintool::WindowsCommand {
namespace {

using namespace SkinKit;

// What is drawn, and how.
struct Scene {
    const Skin& skin;
    DesktopState state;
    int scale;
    WindowDrawing::Clip clip;
};

Image main(const Scene& scene)
{
    return MainWindowRenderer::render(scene.skin, scene.state.main, scene.scale, scene.clip);
}

Image mainShade(const Scene& scene)
{
    return MainShadeRenderer::render(scene.skin, scene.state.main, scene.scale, scene.clip);
}

Image equalizer(const Scene& scene)
{
    return EQWindowRenderer::render(scene.skin, scene.state.equalizer, scene.scale, scene.clip);
}

Image equalizerShade(const Scene& scene)
{
    auto state = scene.state.equalizer;
    state.shaded = true;
    return EQWindowRenderer::render(scene.skin, state, scene.scale, scene.clip);
}

Image playlist(const Scene& scene)
{
    return PlaylistWindowRenderer::render(scene.skin, scene.state.playlist, scene.scale);
}

Image playlistShade(const Scene& scene)
{
    return PlaylistWindowRenderer::renderShade(scene.skin, scene.state.playlist, scene.scale);
}

Image all(const Scene& scene)
{
    return DesktopRenderer::render(scene.skin, scene.state, scene.scale, scene.clip);
}

struct Picture {
    const char* file;
    Image (*render)(const Scene&);
};
// clang-format off
constexpr Picture pictures[] = {
    {"main.png",            main},
    {"equalizer.png",       equalizer},
    {"playlist.png",        playlist},
    {"main-shade.png",      mainShade},
    {"equalizer-shade.png", equalizerShade},
    {"playlist-shade.png",  playlistShade},
    {"all.png",             all},
};
// clang-format on

// Why the pictures can't go where they should; nothing when they can. A folder that is the skin may
// hold files of these names itself.
std::optional<std::string> conflict(const WindowsOptions& options)
{
    if (Paths::isSame(options.out, options.input))
        return options.out;
    for (const Picture& picture : pictures)
        if (const auto path = std::filesystem::path(options.out) / picture.file;
            Paths::isSame(path, options.input))
            return path.string();
    return std::nullopt;
}

ExitStatus write(const Scene& scene, const std::string& out)
{
    std::error_code error;
    std::filesystem::create_directories(out, error);
    if (error) {
        Console::sayError(out, error.message());
        return trouble;
    }
    for (const Picture& picture : pictures) {
        const auto path = std::filesystem::path(out) / picture.file;
        if (const auto status = Pictures::write(picture.render(scene), path); status != done)
            return status;
    }
    return done;
}

ExitStatus run(const WindowsOptions& options)
{
    auto state = options.state == WindowsOptions::State::idle ? DesktopState::idle()
                                                              : DesktopState::webampScreenshot();
    // All windows together are larger than each.
    if (!Pictures::canWrite(DesktopRenderer::size(state, options.scale)))
        return Pictures::sayScaleIsTooLarge(options.scale);
    const auto info = loadOrSayWhyNot(options.input);
    if (!info)
        return trouble;
    if (const auto path = conflict(options)) {
        Console::sayError(*path, "is the skin itself");
        return trouble;
    }
    return write({.skin = info->skin,
                  .state = std::move(state),
                  .scale = static_cast<int>(options.scale),
                  .clip = Pictures::clip(options.noRegion)},
                 options.out);
}

}

const std::string_view help = R"(Examples:
  skintool windows some.wsz --out pictures             all windows of a skin
  skintool windows some.wsz --out pictures --scale 2   twice as large

Writes main.png, equalizer.png and playlist.png, the same windows shaded
(main-shade.png, equalizer-shade.png, playlist-shade.png), and all.png: the three
windows one below the other.

Options:
  --out <dir>           the folder for the pictures, made if it is missing
  --scale N             N device pixels for each pixel of a window (default 1)
  --state webamp|idle   a playing player with a dozen tracks (the default) or one
                        just started
  --no-region           whole rectangles, not the shapes that the skin cuts
  -h, --help            this text
  --version             the version

Exit status: 0 done; 2 trouble.)";

ExitStatus run(std::span<const std::string> arguments)
{
    const auto options = WindowsOptions::parse(arguments);
    if (!options)
        return Console::sayUsageError(options.error().description, WindowsOptions::usage);
    return run(*options);
}

}
