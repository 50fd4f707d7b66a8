#include "examples/samples/SampleSkins.h"

#include "SkinKit/Archive/SkinArchive.h"
#include "SkinKit/Graphics/PNGCodec.h"
#include "SkinKit/SkinParser.h"
#include "SkinKit/Tooling/SkinInfo.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <map>

namespace {

using namespace SkinKit;

std::filesystem::path committedPath(std::string_view name)
{
    return std::filesystem::path(SKINKIT_SOURCE_FOLDER) / "examples/skins" /
           (std::string(name) + ".wsz");
}

Image decodedPNG(ByteView bytes)
{
    return PNGCodec::decode(bytes, {.maxSide = 1024, .maxPixels = 1 << 20}).value();
}

}

TEST(SampleSkins, AreWhatTheProgramMakesToday)
{
    for (const auto& skin : samples::allSampleSkins()) {
        const SkinArchive made = SkinArchive::open(skin.archive()).value();
        const SkinArchive committed = SkinArchive::open(committedPath(skin.name)).value();
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
        const Skin skin = SkinParser::parse(committedPath(name)).value();
        EXPECT_TRUE(skin.warnings.empty()) << name << ": " << skin.warnings.front();
        EXPECT_EQ(skin.fallbacks, fallbacks) << name;
        EXPECT_TRUE(skin.generatedSheets.empty()) << name;
        EXPECT_TRUE(RequiredSprites::missing(skin).empty()) << name;
        EXPECT_NE(skin.visColors, VisColorParser::defaults) << name;
        EXPECT_NE(skin.playlistStyle, PlaylistStyle{}) << name;
        EXPECT_LT(std::filesystem::file_size(committedPath(name)), 100'000U) << name;
    }
}
