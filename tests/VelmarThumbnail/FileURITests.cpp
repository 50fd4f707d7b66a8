#include "VelmarThumbnail/FileURI.h"

#include <gtest/gtest.h>

#include <string>

using namespace VelmarThumbnail;

TEST(FileURI, StandsForThePathWhoseBytesItSpellsOut)
{
    const std::pair<std::string_view, std::optional<std::filesystem::path>> rows[] = {
        {"file:///a/b.wsz",             "/a/b.wsz"     },
        {"file:/a/b.wsz",               "/a/b.wsz"     },
        {"File://LOCALHOST/a",          "/a"           },
        {"file:///",                    "/"            },
        {"file:///a%20b%2Fc%25%C3%BC",  "/a b/c%\u00FC"},
        {"file:///%ff%FE",              "/\xFF\xFE"    }, // names are bytes
        {"file:///a+b",                 "/a+b"         },
        {"file://elsewhere/a",          std::nullopt   },
        {"file://localhost.elsewhere/", std::nullopt   },
        {"file:a",                      std::nullopt   },
        {"file:",                       std::nullopt   },
        {"file:///a%",                  std::nullopt   },
        {"file:///a%2",                 std::nullopt   },
        {"file:///a%2g",                std::nullopt   },
        {"file:///a%-1",                std::nullopt   },
        {"file:///a%00b",               std::nullopt   },
        {"file:///a?b",                 std::nullopt   },
        {"file:///a#b",                 std::nullopt   },
        {"http:///a",                   std::nullopt   },
    };
    for (const auto& [uri, expected] : rows)
        EXPECT_EQ(FileURI::path(uri), expected) << uri;
}
