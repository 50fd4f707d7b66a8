#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <map>
#include <optional>
#include <regex>
#include <set>
#include <string>
#include <string_view>
#include <vector>

// The tree is a house: a file includes only what stands on a lower floor than its own, or a
// neighbour in its folder that stands no higher. These tests read the sources and say where one
// does not.
namespace {

namespace fs = std::filesystem;

// The longest prefix of a file's path says where it stands.
struct Place {
    std::string_view prefix;
    int floor;
};
// clang-format off
constexpr Place places[] = {
    // the ground
    {"SkinKit/Version.h",              0},
    {"SkinKit/Platform/Bytes.",        0},
    {"SkinKit/Platform/Check.",        0},
    {"SkinKit/Platform/Simd.",         0},
    {"SkinKit/Raster/",                1},
    {"SkinKit/Platform/",              2},
    // what knows no Skin, which may use each other one way only
    {"SkinKit/SkinError.",             3},
    {"SkinKit/SkinRegion.",            3},
    {"SkinKit/Parsers/ByteReader.",    3},  // reads archives, too
    {"SkinKit/Archive/",               4},
    {"SkinKit/Display/",               4},
    {"SkinKit/Parsers/",               4},
    {"SkinKit/Sprites/",               4},
    {"SkinKit/Vis/",                   4},
    {"SkinKit/Cursors/",               5},
    {"SkinKit/Layout/",                5},
    {"SkinKit/Text/",                  5},
    {"SkinKit/Menus/",                 6},  // follow what the display shows
    // a Skin, and what needs one
    {"SkinKit/Skin.",                  6},
    {"SkinKit/SkinParser.",            6},
    {"SkinKit/Display/EQGraph.",       7},
    {"SkinKit/Text/TextRenderer.",     7},
    {"SkinKit/Rendering/",             8},
    {"SkinKit/QuickLook/",             9},
    {"SkinKit/Tooling/",              10},
    // the public face, and the programs that stand on it
    {"SkinKit/SkinKit.h",             11},
    {"VelmarThumbnail/",              12},
    {"skintool/",                     12},
};
// clang-format on

// All of the language's own library that is used; a header of any other kind belongs into Platform.
// clang-format off
const std::set<std::string_view> standardHeaders{
    "algorithm", "array", "atomic", "bit", "cctype", "cerrno", "charconv", "chrono", "cinttypes",
    "climits", "cmath", "compare", "concepts", "condition_variable", "cstddef", "cstdint", "cstdio",
    "cstdlib", "cstring", "expected", "filesystem", "functional", "initializer_list", "iterator",
    "limits", "map", "memory", "mutex", "new", "numbers", "numeric", "optional", "ranges", "set",
    "span", "string", "string_view", "system_error", "thread", "tuple", "type_traits",
    "unordered_map", "unordered_set", "utility", "variant", "vector",
};
// clang-format on

struct Source {
    std::vector<std::string> ours;   // included in quotes
    std::vector<std::string> others; // included in angle brackets
};
using Sources = std::map<std::string, Source>;

Sources readSources()
{
    const fs::path root = SKINKIT_SOURCE_FOLDER;
    const std::regex include(R"re(^\s*#\s*include\s*(["<])([^">]+)[">])re");
    Sources sources;
    for (const char* folder : {"SkinKit", "VelmarThumbnail", "skintool"}) {
        if (!fs::exists(root / folder))
            continue;
        for (const auto& entry : fs::recursive_directory_iterator(root / folder)) {
            const auto extension = entry.path().extension();
            if (extension != ".h" && extension != ".cpp")
                continue;
            Source& source = sources[entry.path().lexically_relative(root).generic_string()];
            std::ifstream stream(entry.path());
            for (std::string line; std::getline(stream, line);)
                if (std::smatch match; std::regex_search(line, match, include))
                    (match[1] == "\"" ? source.ours : source.others).push_back(match[2]);
        }
    }
    return sources;
}

std::optional<int> floorOf(std::string_view path)
{
    const Place* best = nullptr;
    for (const Place& place : places)
        if (path.starts_with(place.prefix) && (!best || place.prefix.size() > best->prefix.size()))
            best = &place;
    return best ? std::optional(best->floor) : std::nullopt;
}

bool mayInclude(const std::string& file, const std::string& included)
{
    const auto own = floorOf(file);
    const auto other = floorOf(included);
    const bool areNeighbours = fs::path(file).parent_path() == fs::path(included).parent_path();
    return own && other && (*other < *own || (areNeighbours && *other <= *own));
}

// The files on a way from `file` back to one that is already on it; empty when there is none.
std::vector<std::string> findCycle(const std::string& file, const Sources& sources,
                                   std::vector<std::string>& way, std::set<std::string>& cleared)
{
    const auto seen = std::ranges::find(way, file);
    if (seen != way.end())
        return {seen, way.end()};
    const auto source = sources.find(file);
    if (source == sources.end() || cleared.contains(file))
        return {};
    way.push_back(file);
    for (const auto& included : source->second.ours)
        if (auto cycle = findCycle(included, sources, way, cleared); !cycle.empty())
            return cycle;
    way.pop_back();
    cleared.insert(file);
    return {};
}

}

TEST(Floors, EveryFileIncludesOnlyWhatStandsBelowItOrBesideIt)
{
    const Sources sources = readSources();
    ASSERT_GT(sources.size(), 80U);
    for (const auto& [file, source] : sources) {
        EXPECT_TRUE(floorOf(file)) << file << " stands nowhere";
        for (const auto& included : source.ours) {
            EXPECT_TRUE(sources.contains(included)) << file << " includes " << included;
            EXPECT_TRUE(mayInclude(file, included)) << file << " includes " << included;
        }
    }
}

TEST(Floors, OnlyThePlatformsSourcesIncludeOtherPeoplesHeaders)
{
    for (const auto& [file, source] : readSources()) {
        if (file.starts_with("SkinKit/Platform/") && file.ends_with(".cpp"))
            continue;
        for (const auto& included : source.others)
            EXPECT_TRUE(standardHeaders.contains(included)) << file << " includes " << included;
    }
}

TEST(Floors, NoFileIncludesItselfByAnyWay)
{
    const Sources sources = readSources();
    std::set<std::string> cleared;
    for (const auto& [file, source] : sources) {
        std::vector<std::string> way;
        const auto cycle = findCycle(file, sources, way, cleared);
        ASSERT_TRUE(cycle.empty()) << testing::PrintToString(cycle);
    }
}

TEST(Floors, KnowsAForbiddenIncludeWhenItSeesOne)
{
    EXPECT_TRUE(mayInclude("SkinKit/Raster/Canvas.cpp", "SkinKit/Platform/Check.h"));
    EXPECT_FALSE(mayInclude("SkinKit/Raster/Canvas.cpp", "SkinKit/Platform/Files.h"));
    EXPECT_TRUE(mayInclude("SkinKit/Cursors/SkinCursors.cpp", "SkinKit/Parsers/BMPDecoder.h"));
    EXPECT_FALSE(mayInclude("SkinKit/Parsers/BMPDecoder.cpp", "SkinKit/Cursors/SkinCursors.h"));
    EXPECT_FALSE(mayInclude("SkinKit/Text/TextFont.cpp", "SkinKit/Text/TextRenderer.h"));
    EXPECT_FALSE(mayInclude("SkinKit/Vis/VisRenderer.cpp", "SkinKit/Skin.h"));
    EXPECT_FALSE(mayInclude("SkinKit/New/File.h", "SkinKit/Raster/Image.h"));
    std::vector<std::string> way;
    std::set<std::string> cleared;
    const Sources circle{
        {"a", {{"b"}, {}}},
        {"b", {{"c"}, {}}},
        {"c", {{"b"}, {}}}
    };
    EXPECT_EQ(findCycle("a", circle, way, cleared), (std::vector<std::string>{"b", "c"}));
}
