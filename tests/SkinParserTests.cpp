#include "SkinKit/Base/Unicode.h"
#include "SkinKit/Graphics/PNGCodec.h"
#include "SkinKit/SkinParser.h"
#include "SkinKit/Sprites/GeneratedBaseSkin.h"
#include "SkinKit/Sprites/SkinSprites.h"
#include "SkinKit/Windows/Main/MainWindowRenderer.h"
#include "tests/support/SkinBuilder.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/ZipWriter.h"

#include <gtest/gtest.h>

using namespace SkinKit;
using support::SkinBuilder;

namespace {

using Notes = std::vector<std::string>;

const Image dot = support::solidImage({1, 1}, {1, 2, 3});

std::string colorLines(int count)
{
    std::string text;
    for (int i = 0; i < count; ++i)
        text += "1,2,3\n";
    return text;
}

// A skin that lacks nothing, so that what a test takes away is all that is noted.
SkinBuilder complete()
{
    return SkinBuilder{}
        .allSheets()
        .text("viscolor.txt", colorLines(24))
        .text("pledit.txt", "[Text]\nFont=Verdana");
}

}

TEST(SkinParser, HasNothingToSayAboutACompleteSkin)
{
    const auto skin =
        complete().text("Region.TXT", "[Normal]\nNumPoints=3\nPointList=0,0,1,0,1,1").parse();
    ASSERT_TRUE(skin);
    EXPECT_EQ(skin->warnings, Notes{});
    EXPECT_EQ(skin->fallbacks, Notes{});
    EXPECT_TRUE(skin->generatedSheets.empty());
    ASSERT_EQ(skin->sheets.size(), 16U);
    for (const auto& [name, image] : skin->sheets)
        EXPECT_EQ(image.pixel({0, 0}), opaquePixel(SkinBuilder::sheetColor(name))) << name;
    EXPECT_EQ(skin->visColors[23], (RGBColor{1, 2, 3}));
    EXPECT_EQ(skin->playlistStyle.font, "Verdana");
    ASSERT_TRUE(skin->region.normal());
    EXPECT_EQ(skin->region.normal()->size(), 1U);
    EXPECT_EQ(complete().parse()->region, SkinRegion{});
}

TEST(SkinParser, NotesAllThatASkinOfOneSheetLacks)
{
    const auto skin = SkinBuilder{}.sheet("Sub/main.bmp", dot).parse();
    EXPECT_FALSE(skin) << "a table's names have no folders";

    const auto lone = SkinBuilder{}.sheet("MAIN.bmp", dot).parse();
    ASSERT_TRUE(lone);
    EXPECT_EQ(lone->warnings,
              (Notes{"Missing cbuttons.bmp", "Missing eqmain.bmp", "Missing monoster.bmp",
                     "Missing playpaus.bmp", "Missing pledit.bmp", "Missing posbar.bmp",
                     "Missing shufrep.bmp", "Missing text.bmp", "Missing titlebar.bmp",
                     "Missing volume.bmp", "Missing numbers.bmp and nums_ex.bmp"}));
    EXPECT_EQ(lone->fallbacks,
              (Notes{"cbuttons.bmp missing; generated base", "eqmain.bmp missing; generated base",
                     "monoster.bmp missing; generated base", "numbers.bmp missing; generated base",
                     "playpaus.bmp missing; generated base", "pledit.bmp missing; generated base",
                     "posbar.bmp missing; generated base", "shufrep.bmp missing; generated base",
                     "text.bmp missing; generated base", "titlebar.bmp missing; generated base",
                     "volume.bmp missing; generated base",
                     "balance.bmp missing; balance slider uses volume.bmp",
                     "eq_ex.bmp missing; EQ maximize button uses eqmain.bmp",
                     "gen.bmp missing (not used in v1)", "viscolor.txt missing; Webamp defaults",
                     "pledit.txt missing; Webamp default playlist colours"}));
    EXPECT_EQ(lone->sheets.size(), 12U);
    EXPECT_EQ(lone->generatedSheets.size(), 11U);
    EXPECT_EQ(lone->sheets.at("MAIN"), dot);
    EXPECT_EQ(lone->sheets.at("TEXT"), *GeneratedBaseSkin::sheet("TEXT"));
    EXPECT_EQ(lone->visColors, VisColorParser::defaults);
    EXPECT_EQ(lone->playlistStyle, PlaylistStyle::defaults());
}

TEST(SkinParser, NotesEachThingTakenFromACompleteSkin)
{
    using Files = std::vector<std::string_view>;
    // What is removed, what is broken after that, the warnings, the fallbacks.
    // clang-format off
    const std::tuple<Files, Files, Notes, Notes> rows[] = {
        {{"balance.bmp"}, {}, {}, {"balance.bmp missing; balance slider uses volume.bmp"}},
        {{"numbers.bmp"}, {}, {}, {"numbers.bmp missing; digits use nums_ex.bmp"}},
        {{"nums_ex.bmp"}, {}, {}, {"nums_ex.bmp missing; digits use numbers.bmp"}},
        {{"numbers.bmp", "nums_ex.bmp"}, {}, {"Missing numbers.bmp and nums_ex.bmp"},
         {"numbers.bmp missing; generated base"}},
        {{"eq_ex.bmp"}, {}, {}, {"eq_ex.bmp missing; EQ maximize button uses eqmain.bmp"}},
        {{"gen.bmp"}, {}, {}, {"gen.bmp missing (not used in v1)"}},
        {{"text.bmp"}, {}, {"Missing text.bmp"}, {"text.bmp missing; generated base"}},
        {{}, {"main.bmp"}, {"Undecodable main.bmp"}, {"main.bmp undecodable; generated base"}},
        // always called a BMP
        {{"main.bmp"}, {"main.png"}, {"Undecodable main.bmp"},
         {"main.bmp undecodable; generated base"}},
        {{}, {"balance.bmp", "gen.bmp"}, {"Undecodable balance.bmp", "Undecodable gen.bmp"}, {}},
        {{}, {"nums_ex.bmp"}, {"Undecodable nums_ex.bmp"}, {}},
        {{}, {"numbers.bmp"}, {"Undecodable numbers.bmp"}, {}}, // the extended digits are there
        {{"numbers.bmp"}, {"nums_ex.bmp"}, {"Undecodable nums_ex.bmp"},
         {"numbers.bmp missing; generated base", "numbers.bmp missing; digits use nums_ex.bmp"}},
        {{"nums_ex.bmp"}, {"numbers.bmp"}, {"Undecodable numbers.bmp"},
         {"numbers.bmp undecodable; generated base",
          "nums_ex.bmp missing; digits use numbers.bmp"}},
        {{"balance.bmp"}, {"volume.bmp"}, {"Undecodable volume.bmp"},
         {"volume.bmp undecodable; generated base",
          "balance.bmp missing; balance slider uses volume.bmp"}},
        // the order: undecodable, missing, digits; generated, optional, text files
        {{"numbers.bmp", "nums_ex.bmp", "cbuttons.bmp", "viscolor.txt", "pledit.txt"},
         {"volume.bmp", "main.bmp"},
         {"Undecodable main.bmp", "Undecodable volume.bmp", "Missing cbuttons.bmp",
          "Missing numbers.bmp and nums_ex.bmp"},
         {"cbuttons.bmp missing; generated base", "main.bmp undecodable; generated base",
          "numbers.bmp missing; generated base", "volume.bmp undecodable; generated base",
          "viscolor.txt missing; Webamp defaults",
          "pledit.txt missing; Webamp default playlist colours"}},
    };
    // clang-format on
    for (const auto& [removed, broken, warnings, fallbacks] : rows) {
        SCOPED_TRACE(testing::PrintToString(removed) + testing::PrintToString(broken));
        auto builder = complete();
        for (const auto name : removed)
            builder.without(name);
        for (const auto name : broken)
            builder.text(std::string(name), "not a picture");
        const auto skin = builder.parse();
        ASSERT_TRUE(skin);
        EXPECT_EQ(skin->warnings, warnings);
        EXPECT_EQ(skin->fallbacks, fallbacks);
    }
}

TEST(SkinParser, NotesHowManyColoursTheVisualizerFileHas)
{
    const std::pair<int, Notes> rows[] = {
        {0,  {"viscolor.txt has 0 of 24 colours; defaults for 0\u201323"}  },
        {18, {"viscolor.txt has 18 of 24 colours; defaults for 18\u201323"}},
        {23, {"viscolor.txt has 23 of 24 colours; defaults for 23"}        },
        {24, {}                                                            },
        {30, {}                                                            },
    };
    for (const auto& [count, notes] : rows)
        EXPECT_EQ(complete().text("viscolor.txt", colorLines(count)).parse()->fallbacks, notes);
}

TEST(SkinParser, TakesPicturesForWhatTheyHoldWhateverTheyAreCalled)
{
    const ByteBuffer png = *PNGCodec::encode(dot);
    for (const auto& [name, content] : std::map<std::string, ByteBuffer>{
             {"Main.PNG", png},
             {"main.bmp", png},
             {"main.png", support::encodeBMP(dot, 24)}
    }) {
        const auto skin = complete().without("main.bmp").file(name, content).parse();
        ASSERT_TRUE(skin);
        EXPECT_EQ(skin->sheets.at("MAIN"), dot) << name;
        EXPECT_EQ(skin->warnings, Notes{}) << name;
    }
    // Of both the BMP is looked at, and no other when it is broken.
    const auto skin = complete().text("main.bmp", "broken").file("main.png", png).parse();
    EXPECT_EQ(skin->warnings, Notes{"Undecodable main.bmp"});
}

TEST(SkinParser, RefusesModernSkinsAndThoseWithoutAPicture)
{
    EXPECT_EQ(complete().text("SKIN.xml", "").parse().error(), SkinError::modernSkin());
    EXPECT_EQ(SkinBuilder{}.text("skin.xml", "").parse().error(), SkinError::modernSkin());
    EXPECT_EQ(SkinBuilder{}.parse().error(), SkinError::noBitmaps());
    EXPECT_EQ(SkinBuilder{}
                  .text("main.bmp", "broken")
                  .sheet("other.bmp", dot)
                  .text("viscolor.txt", "1,2,3")
                  .parse()
                  .error(),
              SkinError::noBitmaps());
}

// Each pixel of a sheet has a colour of its own, so that one taken from elsewhere shows.
TEST(SkinParser, DrawsTheSameFromSheetsThatAreCutToWhatIsDrawn)
{
    auto pixels = PixelBuffer::uninitialized({700, 600});
    for (int y = 0; y < 600; ++y)
        for (int x = 0; x < 700; ++x)
            pixels.row(y)[static_cast<std::size_t>(x)] =
                packPixel(static_cast<unsigned>(x % 256), static_cast<unsigned>(y % 256),
                          static_cast<unsigned>(x / 256 + y / 256 * 16));
    const Image large(std::move(pixels), Image::Alpha::opaque);
    SkinBuilder builder;
    for (const auto& sheet : SkinSprites::sheets())
        builder.sheet(Unicode::lowercased(sheet.name) + ".bmp", large);
    const auto whole = SkinParser::parse(builder.archive());
    const auto cut = SkinParser::parse(builder.archive(), SkinParser::Sheets::croppedToSprites);
    ASSERT_TRUE(whole && cut);
    EXPECT_EQ(whole->sheets.at("MAIN").size(), large.size());
    EXPECT_EQ(cut->sheets.at("MAIN").size(), (Size{512, 512}));
    for (const auto& placed : SkinSprites::all())
        EXPECT_EQ(whole->image(placed.sprite.name), cut->image(placed.sprite.name))
            << placed.sprite.name;
    for (const auto& state : {MainWindowState::idle(), MainWindowState::webampScreenshot()})
        EXPECT_EQ(MainWindowRenderer::render(*whole, state, 1, Clip::none),
                  MainWindowRenderer::render(*cut, state, 1, Clip::none));
}

TEST(SkinParser, RejectsASkinThatTakesTooLong)
{
    const auto largest = *PNGCodec::encode(support::solidImage({4096, 2048}, {1, 2, 3}));
    support::ZipWriter zip;
    for (const char* const name : {"cbuttons", "eqmain", "gen", "main", "posbar"})
        zip.add({.name = std::string(name) + ".png", .data = largest, .method = 0});
    const auto archive =
        SkinArchive::open(zip.bytes(), {.maxProcessorTime = std::chrono::milliseconds(30)});
    ASSERT_TRUE(archive);
    const auto skin = SkinParser::parse(*archive);
    ASSERT_FALSE(skin);
    EXPECT_EQ(skin.error(), SkinError::takesTooLong());
}
