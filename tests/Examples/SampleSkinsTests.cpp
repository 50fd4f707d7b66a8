#include "examples/samples/SampleSkins.h"

#include "SkinKit/Archive/SkinArchive.h"
#include "SkinKit/Archive/ZipFile.h"
#include "SkinKit/Graphics/PNGCodec.h"
#include "SkinKit/SkinParser.h"
#include "SkinKit/Tooling/SkinInfo.h"
#include "SkinKit/Windows/Main/MainSliders.h"
#include "SkinKit/Windows/Main/MainWindowLayout.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <map>
#include <set>

namespace {

using namespace SkinKit;

std::filesystem::path committedPath(std::string_view name)
{
    return std::filesystem::path(SKINKIT_SOURCE_FOLDER) / "examples/skins" /
           (std::string(name) + ".wsz");
}

SkinArchive committedArchive(std::string_view name)
{
    return SkinArchive::open(committedPath(name)).value();
}

Skin committedSkin(std::string_view name)
{
    return SkinParser::parse(committedPath(name)).value();
}

// The paths of a container's entries, as they are written there.
std::vector<std::string> entryPaths(const ZipFile& zip)
{
    std::vector<std::string> paths;
    for (const auto& entry : zip.entries())
        paths.push_back(entry.path());
    return paths;
}

std::uint32_t numberAt(ByteView bytes, std::size_t offset, int width)
{
    std::uint32_t number = 0;
    for (int i = width - 1; i >= 0; --i)
        number = number << 8 | bytes[offset + static_cast<std::size_t>(i)];
    return number;
}

Image decodedPNG(ByteView bytes)
{
    return PNGCodec::decode(bytes, {.maxSide = 1024, .maxPixels = 1 << 20}).value();
}

// How many pixels of an image are of some kind.
template <class Predicate>
int countPixels(const Image& image, Predicate&& predicate)
{
    int count = 0;
    for (int y = 0; y < image.height(); ++y)
        count += static_cast<int>(std::ranges::count_if(image.row(y), predicate));
    return count;
}

bool isPartlyTransparent(Pixel pixel)
{
    return alphaOf(pixel) > 0 && alphaOf(pixel) < 255;
}

}

TEST(SampleSkins, AreWhatTheProgramMakesToday)
{
    for (const auto& skin : samples::allSampleSkins()) {
        const auto zip = ZipFile::open(committedPath(skin.name));
        ASSERT_TRUE(zip) << skin.name;
        std::vector<std::string> names;
        for (const auto& file : skin.files)
            names.push_back(file.name);
        EXPECT_EQ(entryPaths(*zip), names) << skin.name;

        const SkinArchive made = SkinArchive::open(skin.archive()).value();
        const SkinArchive committed = committedArchive(skin.name);
        ASSERT_EQ(made.files().size(), committed.files().size()) << skin.name;
        for (const auto& [name, bytes] : made.files()) {
            const auto& there = committed.files().at(name);
            // How a PNG file is packed depends on the library; what it shows does not.
            if (name.ends_with(".png"))
                EXPECT_EQ(decodedPNG(there), decodedPNG(bytes)) << skin.name << ": " << name;
            else
                EXPECT_EQ(there, bytes) << skin.name << ": " << name;
        }
    }
}

TEST(SampleSkins, ParseWithoutAWarningAndBringTheirWholeMainWindow)
{
    for (const auto& [name, fallbacks] : std::map<std::string_view, std::vector<std::string>>{
             {"graphite", {"nums_ex.bmp missing; digits use numbers.bmp"}},
             {"lagoon",   {"nums_ex.bmp missing; digits use numbers.bmp"}},
             {"aurora",
              {"balance.bmp missing; balance slider uses volume.bmp",
               "nums_ex.bmp missing; digits use numbers.bmp"}            },
             {"arcade",   {"numbers.bmp missing; digits use nums_ex.bmp"}},
    }) {
        const Skin skin = committedSkin(name);
        EXPECT_TRUE(skin.warnings.empty()) << name << ": " << skin.warnings.front();
        EXPECT_EQ(skin.fallbacks, fallbacks) << name;
        EXPECT_TRUE(skin.generatedSheets.empty()) << name;
        EXPECT_TRUE(RequiredSprites::missing(skin).empty()) << name;
        EXPECT_NE(skin.visColors, VisColorParser::defaults) << name;
        EXPECT_NE(skin.playlistStyle, PlaylistStyle{}) << name;
        EXPECT_LT(std::filesystem::file_size(committedPath(name)), 100'000U) << name;
    }
}

TEST(SampleSkins, ShowAPressedControlDifferentlyFromAReleasedOne)
{
    for (const auto& made : samples::allSampleSkins()) {
        const Skin skin = committedSkin(made.name);
        for (const auto button : MainWindowLayout::allTransports) {
            using MainWindowLayout::ButtonState;
            EXPECT_NE(skin.image(MainWindowLayout::spriteName(button, ButtonState::released)),
                      skin.image(MainWindowLayout::spriteName(button, ButtonState::pressed)));
        }
        for (const auto toggle : {MainSliders::Toggle::shuffle, MainSliders::Toggle::repeatAll,
                                  MainSliders::Toggle::equalizer, MainSliders::Toggle::playlist}) {
            std::vector<Image> faces;
            for (const bool selected : {false, true})
                for (const bool pressed : {false, true})
                    faces.push_back(
                        skin.image(MainSliders::spriteName(toggle, {selected, pressed})).value());
            for (std::size_t a = 0; a < faces.size(); ++a)
                for (std::size_t b = a + 1; b < faces.size(); ++b)
                    EXPECT_NE(faces[a], faces[b]) << made.name;
        }
    }
}

TEST(SampleSkins, HaveFramesWhosePiecesMeetWithoutASeam)
{
    enum class Side { right, below };
    struct Row {
        std::string_view piece;
        Side side;
        std::string_view neighbour;
    };
    constexpr Row rows[] = {
        {"PLAYLIST_TOP_LEFT_CORNER",       Side::right, "PLAYLIST_TOP_TILE"              },
        {"PLAYLIST_TOP_TILE",              Side::right, "PLAYLIST_TOP_TILE"              },
        {"PLAYLIST_TOP_TILE",              Side::right, "PLAYLIST_TITLE_BAR"             },
        {"PLAYLIST_TITLE_BAR",             Side::right, "PLAYLIST_TOP_TILE"              },
        {"PLAYLIST_TOP_LEFT_SELECTED",     Side::right, "PLAYLIST_TOP_TILE_SELECTED"     },
        {"PLAYLIST_TOP_TILE_SELECTED",     Side::right, "PLAYLIST_TOP_TILE_SELECTED"     },
        {"PLAYLIST_TITLE_BAR_SELECTED",    Side::right, "PLAYLIST_TOP_TILE_SELECTED"     },
        {"PLAYLIST_LEFT_TILE",             Side::below, "PLAYLIST_LEFT_TILE"             },
        {"PLAYLIST_RIGHT_TILE",            Side::below, "PLAYLIST_RIGHT_TILE"            },
        {"PLAYLIST_BOTTOM_LEFT_CORNER",    Side::right, "PLAYLIST_BOTTOM_TILE"           },
        {"PLAYLIST_BOTTOM_TILE",           Side::right, "PLAYLIST_BOTTOM_TILE"           },
        {"PLAYLIST_BOTTOM_TILE",           Side::right, "PLAYLIST_BOTTOM_RIGHT_CORNER"   },
        {"PLAYLIST_SHADE_BACKGROUND_LEFT", Side::right, "PLAYLIST_SHADE_BACKGROUND"      },
        {"PLAYLIST_SHADE_BACKGROUND",      Side::right, "PLAYLIST_SHADE_BACKGROUND_RIGHT"},
        {"GEN_TOP_LEFT",                   Side::right, "GEN_TOP_LEFT_RIGHT_FILL"        },
        {"GEN_TOP_CENTER_FILL",            Side::right, "GEN_TOP_RIGHT_END"              },
        {"GEN_BOTTOM_LEFT",                Side::right, "GEN_BOTTOM_FILL"                },
        {"GEN_BOTTOM_FILL",                Side::right, "GEN_BOTTOM_RIGHT"               },
        {"GEN_MIDDLE_LEFT",                Side::below, "GEN_MIDDLE_LEFT_BOTTOM"         },
    };
    for (const auto& made : samples::allSampleSkins()) {
        const Skin skin = committedSkin(made.name);
        for (const auto& [piece, side, neighbour] : rows) {
            const Image a = skin.image(piece).value();
            const Image b = skin.image(neighbour).value();
            if (side == Side::right)
                EXPECT_EQ(a.crop({a.width() - 1, 0, 1, a.height()}), b.crop({0, 0, 1, b.height()}))
                    << made.name << ": " << piece << " | " << neighbour;
            else
                EXPECT_EQ(a.crop({0, a.height() - 1, a.width(), 1}), b.crop({0, 0, b.width(), 1}))
                    << made.name << ": " << piece << " / " << neighbour;
        }
    }
}

TEST(SampleSkins, CutLagoonToShapesThatSpareEveryControl)
{
    const SkinRegion region = committedSkin("lagoon").region;
    ASSERT_TRUE(region.normal() && region.windowShade() && region.equalizer() &&
                region.equalizerShade());

    const auto mask = SkinRegion::maskImage(*region.normal(), MainWindowLayout::size, 1);
    ASSERT_TRUE(mask);
    const auto isHidden = [](Pixel pixel) { return alphaOf(pixel) == 0; };
    const int hidden = countPixels(*mask, isHidden);
    EXPECT_GT(hidden, 1000);
    EXPECT_LT(hidden, 5000);

    std::vector<Rect> controls{
        MainWindowLayout::clutterBar,      MainWindowLayout::visualizer,
        MainWindowLayout::marqueeHitArea,  MainSliders::volume.background(),
        MainSliders::balance.background(), MainSliders::position.background()};
    using MainWindowLayout::TitleButton;
    for (const auto button : MainWindowLayout::allTransports)
        controls.push_back(MainWindowLayout::rect(button));
    for (const auto toggle : {MainSliders::Toggle::shuffle, MainSliders::Toggle::repeatAll,
                              MainSliders::Toggle::equalizer, MainSliders::Toggle::playlist})
        controls.push_back(MainSliders::frame(toggle));
    for (const auto button :
         {TitleButton::options, TitleButton::minimize, TitleButton::shade, TitleButton::close})
        controls.push_back(MainWindowLayout::rect(button));
    for (const Rect& control : controls)
        EXPECT_EQ(countPixels(mask->crop(control).value(), isHidden), 0)
            << control.x << ", " << control.y;

    const auto shade = SkinRegion::maskImage(*region.windowShade(), MainWindowLayout::shadeSize, 1);
    ASSERT_TRUE(shade);
    EXPECT_TRUE(isHidden(shade->pixel({0, 0})));
    EXPECT_FALSE(isHidden(shade->pixel({137, 7})));
}

// What the samples are there to show, so that every reader has something real to read.
TEST(SampleSkins, ShowEveryKindOfFileThatSkinsAreMadeOf)
{
    for (const auto& path : entryPaths(*ZipFile::open(committedPath("lagoon")))) {
        EXPECT_TRUE(path.starts_with("Lagoon Skin/")) << path;
        const auto isLower = [](char c) { return c >= 'a' && c <= 'z'; };
        const auto isUpper = [](char c) { return c >= 'A' && c <= 'Z'; };
        const std::string_view name = std::string_view(path).substr(path.find('/') + 1);
        EXPECT_TRUE(std::ranges::any_of(name, isLower) && std::ranges::any_of(name, isUpper))
            << path;
    }

    // The depth and the compression of each bitmap.
    using Kinds = std::set<std::pair<std::uint32_t, std::uint32_t>>;
    Kinds kinds;
    const SkinArchive arcade = committedArchive("arcade");
    for (const auto& [name, bytes] : arcade.files())
        if (name.ends_with(".bmp"))
            kinds.emplace(numberAt(bytes, 28, 2), numberAt(bytes, 30, 4));
    const Kinds all{
        {1, 0},
        {4, 0},
        {8, 0},
        {4, 2},
        {8, 1}
    };
    EXPECT_EQ(kinds, all);
    const SkinCursors cursors = committedSkin("arcade").cursors;
    EXPECT_TRUE(cursors.unreadable.empty());
    for (const auto& [name, bitCount] : {
             std::pair{"NORMAL", 1 },
             {"POSBAR", 8 },
             {"CLOSE",  32}
    })
        EXPECT_EQ(std::get<StaticCursor>(*cursors.cursor(name)).best().bitCount, bitCount) << name;
    EXPECT_EQ(std::get<AnimatedCursor>(*cursors.cursor("TITLEBAR")).steps.size(), 4U);

    const SkinArchive aurora = committedArchive("aurora");
    for (const auto& [name, bytes] : aurora.files())
        EXPECT_TRUE(name.ends_with(".png") || name.ends_with(".txt")) << name;
    EXPECT_GT(countPixels(*committedSkin("aurora").image("MAIN_PLAY_BUTTON"), isPartlyTransparent),
              50);
}
