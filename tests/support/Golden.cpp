#include "tests/support/Golden.h"

#include "SkinKit/Graphics/PNGWriter.h"
#include "SkinKit/System/InputFile.h"
#include "SkinKit/System/OutputFile.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <string>

namespace support {

using namespace SkinKit;

namespace {

std::filesystem::path goldenPath(std::string_view file)
{
    return std::filesystem::path(SKINKIT_SOURCE_FOLDER) / "tests/goldens" / file;
}

}

void expectGolden(const Image& image, std::string_view name)
{
    const auto path = goldenPath(std::string(name) + ".png");
    if (std::getenv("REWRITE_GOLDENS")) {
        ASSERT_FALSE(PNGWriter::write(image, path)) << path;
        return;
    }
    const auto golden = PNGWriter::read(path);
    ASSERT_TRUE(golden) << path << " can't be read";
    if (*golden == image)
        return;
    const auto actual = std::filesystem::absolute(std::string(name) + ".actual.png");
    PNGWriter::write(image, actual);
    ADD_FAILURE() << "not as in " << path << "; see " << actual;
}

void expectGoldenText(std::string_view text, std::string_view file)
{
    const auto path = goldenPath(file);
    if (std::getenv("REWRITE_GOLDENS")) {
        ASSERT_FALSE(Files::write(path, asBytes(text))) << path;
        return;
    }
    constexpr std::int64_t maxBytes = 1 << 20;
    const auto golden = Files::read(path, maxBytes);
    ASSERT_TRUE(golden) << path << " can't be read";
    EXPECT_EQ(text, asText(*golden)) << "not as in " << path;
}

}
