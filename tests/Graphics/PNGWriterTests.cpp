#include "SkinKit/Graphics/PNGWriter.h"
#include "tests/support/BMPWriter.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

using namespace SkinKit;
using support::TemporaryFolder;

TEST(PNGWriter, TellsAnEncodingThatFailedFromAFileThatDid)
{
    const TemporaryFolder folder;
    const Image tooWide = support::solidImage({PNGWriter::maxSide + 1, 1}, {});
    EXPECT_EQ(PNGWriter::data(tooWide), std::nullopt);
    const auto error = PNGWriter::write(tooWide, folder / "a.png");
    EXPECT_EQ(error, PNGWriter::WriteError::couldNotEncode);
    EXPECT_EQ(error.message(), "could not encode PNG");
    EXPECT_FALSE(std::filesystem::exists(folder / "a.png"));
    EXPECT_EQ(PNGWriter::write(support::solidImage({1, 1}, {}), folder / "no/a.png"),
              std::errc::no_such_file_or_directory);
}
