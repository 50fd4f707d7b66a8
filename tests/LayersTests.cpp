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

// A file includes headers of its own folder and of folders on lower layers. The layers are those of
// the table in README.md.
namespace {

namespace fs = std::filesystem;

const fs::path root = SKINKIT_SOURCE_FOLDER;

// By folder with a slash at its end, or by a single file's path.
using Layers = std::map<std::string, int, std::less<>>;

Layers readLayers()
{
    const std::regex row(R"re(^\| (\d+) \| `([^`]+)` \|)re");
    Layers layers;
    std::ifstream stream(root / "README.md");
    for (std::string line; std::getline(stream, line);)
        if (std::smatch match; std::regex_search(line, match, row))
            layers[match[2]] = std::stoi(match[1]);
    return layers;
}

// All of the language's own library that is used; a header of any other kind belongs in System.
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

// The headers of other libraries, each with the sources that may include it.
// clang-format off
const std::map<std::string_view, std::vector<std::string_view>> libraryHeaders{
    {"csetjmp",           {"SkinKit/Graphics/PNGCodec.cpp"}},
    {"libdeflate.h",      {"SkinKit/Archive/Inflate.cpp", "SkinKit/Graphics/PNGCodec.cpp"}},
    {"md5.h",             {"SkinKit/Base/Encodings.cpp"}},
    {"png.h",             {"SkinKit/Graphics/PNGCodec.cpp"}},
    {"utf8proc.h",        {"SkinKit/Base/Unicode.cpp"}},
    {"immintrin.h",       {"SkinKit/Graphics/Simd.cpp"}},
};
// clang-format on

struct Source {
    std::vector<std::string> ours;   // included in quotes
    std::vector<std::string> others; // included in angle brackets
};
using Sources = std::map<std::string, Source>;

Sources readSources()
{
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

std::string folderOf(const std::string& file)
{
    return fs::path(file).parent_path().generic_string() + "/";
}

std::optional<int> layerOf(const std::string& file, const Layers& layers)
{
    for (const auto& place : {file, folderOf(file)})
        if (const auto found = layers.find(place); found != layers.end())
            return found->second;
    return std::nullopt;
}

bool mayInclude(const std::string& file, const std::string& included, const Layers& layers)
{
    const auto own = layerOf(file, layers);
    const auto other = layerOf(included, layers);
    return own && other &&
           (*other < *own || (*other == *own && folderOf(file) == folderOf(included)));
}

bool mayIncludeLibrary(const std::string& file, const std::string& header)
{
    if (standardHeaders.contains(header))
        return true;
    if (const auto found = libraryHeaders.find(header); found != libraryHeaders.end())
        return std::ranges::find(found->second, file) != found->second.end();
    return file.starts_with("SkinKit/System/") && file.ends_with(".cpp");
}

}

TEST(Layers, EveryFileIncludesOnlyItsFolderAndLowerLayers)
{
    const Layers layers = readLayers();
    const Sources sources = readSources();
    ASSERT_GT(layers.size(), 20U);
    ASSERT_GT(sources.size(), 80U);
    for (const auto& [file, source] : sources) {
        EXPECT_TRUE(layerOf(file, layers)) << file << " has no layer";
        for (const auto& included : source.ours) {
            EXPECT_TRUE(sources.contains(included)) << file << " includes " << included;
            EXPECT_TRUE(mayInclude(file, included, layers)) << file << " includes " << included;
        }
    }
}

TEST(Layers, SystemHeadersAreIncludedInSystemAndALibrarysByItsOwnFile)
{
    for (const auto& [file, source] : readSources())
        for (const auto& included : source.others)
            EXPECT_TRUE(mayIncludeLibrary(file, included)) << file << " includes " << included;
}

TEST(Layers, DetectForbiddenIncludes)
{
    const Layers layers{
        {"a/", 0},
        {"b/", 1},
        {"c/", 1}
    };
    EXPECT_TRUE(mayInclude("b/b.cpp", "a/a.h", layers));
    EXPECT_FALSE(mayInclude("a/a.cpp", "b/b.h", layers));
    EXPECT_FALSE(mayInclude("b/b.cpp", "c/c.h", layers));
    EXPECT_FALSE(mayInclude("a/new/a.cpp", "a/a.h", layers));
    EXPECT_FALSE(mayIncludeLibrary("SkinKit/Base/Encodings.cpp", "png.h"));
    EXPECT_FALSE(mayIncludeLibrary("skintool/main.cpp", "unistd.h"));
}
