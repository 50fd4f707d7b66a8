#include "SkinKit/SkinError.h"

#include <gtest/gtest.h>

using namespace SkinKit;

TEST(SkinError, DescribesEachKindInFixedWords)
{
    EXPECT_EQ(SkinError::unreadableArchive("Not a zip archive").description(),
              "Unreadable archive: Not a zip archive");
    EXPECT_EQ(SkinError::modernSkin().description(), "Modern (Winamp 3/5) skin; not supported");
    EXPECT_EQ(SkinError::noBitmaps().description(), "No classic skin bitmaps found");
    EXPECT_NE(SkinError::unreadableArchive("a"), SkinError::unreadableArchive("b"));
    EXPECT_NE(SkinError::modernSkin(), SkinError::noBitmaps());
}
