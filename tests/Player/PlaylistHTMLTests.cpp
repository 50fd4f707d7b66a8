#include "SkinKit/Player/PlaylistHTML.h"

#include <gtest/gtest.h>

#include <limits>
#include <vector>

using namespace SkinKit;
using PlaylistHTML::Entry;

namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();
constexpr double huge = std::numeric_limits<double>::max();

constexpr std::string_view head = "<!DOCTYPE html>\n"
                                  "<html>\n"
                                  "<head>\n"
                                  "<meta charset=\"utf-8\">\n"
                                  "<title>Velmar Generated PlayList</title>\n"
                                  "<style>\n"
                                  "body { background: #000040; color: #4040FF; font-family: "
                                  "Arial, sans-serif; }\n"
                                  ".h { color: #FFFFFF; font-size: 32px; }\n"
                                  ".t { color: #FFFFFF; }\n"
                                  "ol { list-style: none; padding-left: 0; color: #4040FF; }\n"
                                  "</style>\n"
                                  "</head>\n"
                                  "<body>\n"
                                  "<div class=\"h\">Velmar Generated PlayList</div>\n"
                                  "<p><span class=\"t\">";
constexpr std::string_view tail = "\n</ol>\n</body>\n</html>\n";

// The part of a page from `begin` on up to `end`, without both.
std::string between(const std::string& page, std::string_view begin, std::string_view end)
{
    const auto start = page.find(begin);
    const auto stop = start == page.npos ? page.npos : page.find(end, start + begin.size());
    if (stop == page.npos)
        return "missing " + std::string(begin);
    return page.substr(start + begin.size(), stop - start - begin.size());
}

std::string rows(const std::string& page)
{
    return between(page, "<ol>\n", tail);
}

}

TEST(PlaylistHTML, WritesTheWholePage)
{
    const std::vector<Entry> entries{
        {"Overture",     60          },
        {"Unknown",      std::nullopt},
        {"Rock & 'Roll", 30          }
    };
    EXPECT_EQ(PlaylistHTML::document(entries),
              std::string(head) +
                  "3</span> tracks in playlist, average track length: <span class=\"t\">0:45"
                  "</span></p>\n<p>Playlist length: <span class=\"t\">1:30</span></p>\n"
                  "<p class=\"t\">Playlist files:</p>\n<ol>\n"
                  "<li>1. Overture (1:00)</li>\n"
                  "<li>2. Unknown</li>\n"
                  "<li>3. Rock &amp; &#39;Roll (0:30)</li>" +
                  std::string(tail));
    EXPECT_EQ(head.size(), 391U);
}

TEST(PlaylistHTML, CountsAddsUpAndAverages)
{
    const std::tuple<std::vector<Entry>, std::string_view, std::string_view, std::string_view>
        rows[] = {
            {{},                                   "0</span> tracks in", "0:00",   "0:00"  },
            {{{"a", 59.9}},                        "1</span> track in",  "0:59",   "0:59"  },
            {{{"a", 0}, {"b", 10}},                "2</span> tracks in", "0:05",   "0:10"  }, // zero is known
            {{{"a", std::nullopt}},                "1</span> track in",  "0:00",   "0:00"  },
            {{{"a", -5}, {"b", 7325}},             "2</span> tracks in", "122:05", "122:05"},
            {{{"a", infinity}, {"b", notANumber}}, "2</span> tracks in", "0:00",   "0:00"  },
            {{{"a", huge}, {"b", huge}},           "2</span> tracks in", "",       ""      }, // more than can be told
    };
    for (const auto& [entries, count, average, length] : rows) {
        const auto page = PlaylistHTML::document(entries);
        EXPECT_TRUE(page.contains("<span class=\"t\">" + std::string(count))) << page;
        EXPECT_EQ(between(page, "average track length: <span class=\"t\">", "</span>"), average);
        EXPECT_EQ(between(page, "Playlist length: <span class=\"t\">", "</span>"), length);
    }
}

TEST(PlaylistHTML, WritesARowForEachEntry)
{
    const std::pair<Entry, std::string_view> table[] = {
        {{"a", 65.9},                "<li>1. a (1:05)</li>"                },
        {{"a", 1e18},                "<li>1. a (16666666666666666:40)</li>"},
        {{"a", -0.5},                "<li>1. a</li>"                       },
        {{"a", notANumber},          "<li>1. a</li>"                       },
        {{"", std::nullopt},         "<li>1. </li>"                        },
        {{"<\"&'>", {}},             "<li>1. &lt;&quot;&amp;&#39;&gt;</li>"},
        {{"caf\xC3\xA9\xFF 🎵", {}}, "<li>1. café\uFFFD 🎵</li>"           },
    };
    for (const auto& [entry, expected] : table)
        EXPECT_EQ(rows(PlaylistHTML::document({&entry, 1})), expected);
    const auto list = rows(PlaylistHTML::document(std::vector<Entry>(12, {"x", std::nullopt})));
    EXPECT_TRUE(list.starts_with("<li>1. x</li>\n<li>2. x</li>\n")) << list;
    EXPECT_TRUE(list.ends_with("</li>\n<li>12. x</li>")) << list;
}

TEST(PlaylistHTML, StaysWellFormedWhateverTheNames)
{
    std::string everyByte;
    for (int c = 0; c < 256; ++c)
        everyByte += static_cast<char>(c);
    const std::vector<Entry> entries{
        {"</li></ol><script>alert(\"1\")</script><!-- ", 1},
        {"]]> &amp; &#39; &nosuch; &",                   2},
        {everyByte,                                      3},
    };
    // But for what the page itself writes, nothing is left that HTML gives a meaning to.
    std::string list = rows(PlaylistHTML::document(entries));
    for (const std::string_view own : {"<li>", "</li>", "&amp;", "&lt;", "&gt;", "&quot;", "&#39;"})
        for (auto at = list.find(own); at != list.npos; at = list.find(own, at))
            list.replace(at, own.size(), own.size(), ' ');
    EXPECT_EQ(list.find_first_of("<>&\"'"), list.npos) << list;
}
