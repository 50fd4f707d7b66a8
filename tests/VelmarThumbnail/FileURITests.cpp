#include "VelmarThumbnail/FileURI.h"
#include "tests/support/Table.h"

#include <string>

using namespace VelmarThumbnail;

// clang-format off
TEST(FileURI, GivesThePathOfItsBytes)
{
    support::expectTable<std::string, std::optional<std::filesystem::path>>(FileURI::path, {
        {"file:///a/b.wsz",            "/a/b.wsz"},
        {"file:/a/b.wsz",              "/a/b.wsz"},
        {"File://LOCALHOST/a",         "/a"},
        {"file:///a%20b%2Fc%25%C3%BC", "/a b/c%\u00FC"},
        {"file:///%ff%FE+",            "/\xFF\xFE+"}, // names are bytes
        {"file://elsewhere/a", {}}, {"file://localhost.elsewhere/", {}}, {"http:///a", {}},
        {"file:a", {}}, {"file:", {}}, {"file:///a%", {}}, {"file:///a%2", {}},
        {"file:///a%2g", {}}, {"file:///a%-1", {}}, {"file:///a%00b", {}}, {"file:///a?b", {}},
        {"file:///a#b", {}},
    });
}
// clang-format on
