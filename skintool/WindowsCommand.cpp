#include "skintool/Commands.h"

#include "SkinKit/Tooling/CommandLine/OutputCheck.h"
#include "SkinKit/Windows/Desktop/DesktopRenderer.h"
#include "SkinKit/Windows/Equalizer/EQWindowRenderer.h"
#include "SkinKit/Windows/Main/MainWindowRenderer.h"
#include "SkinKit/Windows/Playlist/PlaylistWindowRenderer.h"
#include "skintool/Skins.h"

#include <filesystem>
#include <system_error>
#include <utility>
#include <vector>

namespace skintool::WindowsCommand {
namespace {

using namespace SkinKit;

// What is drawn, and how.
struct Scene {
    const Skin& skin;
    DesktopState state;
    int scale;
    Clip clip;
};

Image main(const Scene& scene)
{
    return MainWindowRenderer::render(scene.skin, scene.state.main, scene.scale, scene.clip);
}

Image equalizer(const Scene& scene)
{
    return EQWindowRenderer::render(scene.skin, scene.state.equalizer, scene.scale, scene.clip);
}

Image playlist(const Scene& scene)
{
    return PlaylistWindowRenderer::render(scene.skin, scene.state.playlist, scene.scale,
                                          scene.clip);
}

Image all(const Scene& scene)
{
    return DesktopRenderer::render(scene.skin, scene.state, scene.scale, scene.clip);
}

struct Picture {
    const char* file;
    bool shaded;
    Image (*render)(const Scene&);
};
// clang-format off
constexpr Picture pictures[] = {
    {"main.png",            false, main},
    {"equalizer.png",       false, equalizer},
    {"playlist.png",        false, playlist},
    {"main-shade.png",      true,  main},
    {"equalizer-shade.png", true,  equalizer},
    {"playlist-shade.png",  true,  playlist},
    {"all.png",             false, all},
};
// clang-format on

std::vector<std::filesystem::path> paths(const std::filesystem::path& folder)
{
    std::vector<std::filesystem::path> paths;
    for (const Picture& picture : pictures)
        paths.push_back(folder / picture.file);
    return paths;
}

ExitStatus write(Scene scene, const std::string& out)
{
    std::error_code error;
    std::filesystem::create_directories(out, error);
    if (error) {
        Console::sayError(out, error.message());
        return trouble;
    }
    for (const Picture& picture : pictures) {
        scene.state.main.shaded = picture.shaded;
        scene.state.equalizer.shaded = picture.shaded;
        scene.state.playlist.shaded = picture.shaded;
        const auto path = std::filesystem::path(out) / picture.file;
        if (const auto status = Pictures::write(picture.render(scene), path); status != done)
            return status;
    }
    return done;
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

ExitStatus run(const WindowsOptions& options)
{
    auto state = options.state == WindowsOptions::State::idle ? DesktopState::idle()
                                                              : DesktopState::webampScreenshot();
    // All windows together are larger than each.
    if (!Pictures::canWrite(DesktopRenderer::size(state, options.scale)))
        return Pictures::sayScaleIsTooLarge(options.scale);
    const auto loaded = loadOrSayWhyNot(options.input, SkinParser::Sheets::croppedToSprites);
    if (!loaded)
        return trouble;
    if (const auto conflict =
            OutputCheck::find({OutputCheck::skin(options.input)}, paths(options.out))) {
        Console::sayError(conflict->output.string(), conflict->text);
        return trouble;
    }
    return write({.skin = loaded->skin,
                  .state = std::move(state),
                  .scale = static_cast<int>(options.scale),
                  .clip = Pictures::clip(options.noRegion)},
                 options.out);
}

}
