#include "SkinKit/Display/PlaylistHTML.h"

#include <gtest/gtest.h>

#include <algorithm>
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

// The tags of a page that were opened and not closed, or the first that does not fit; "" when all
// is well. Knows no more of HTML than the page uses: every "<" begins a tag and every "&" a
// character reference.
std::string flaw(std::string_view page)
{
    std::vector<std::string> open;
    for (std::size_t i = 0; i < page.size(); ++i) {
        if (page[i] == '&') {
            const auto end = page.find(';', i);
            const auto reference = page.substr(i, end == page.npos ? end : end - i + 1);
            if (reference != "&amp;" && reference != "&lt;" && reference != "&gt;" &&
                reference != "&quot;" && reference != "&#39;")
                return "stray ampersand";
        } else if (page[i] == '>') {
            return "stray >";
        } else if (page[i] == '<') {
            const auto end = page.find('>', i);
            if (end == page.npos)
                return "tag without an end";
            const std::string tag(page.substr(i + 1, end - i - 1));
            i = end;
            const std::string name = tag.substr(0, tag.find(' '));
            if (name == "!DOCTYPE" || name == "meta")
                continue;
            if (!name.starts_with('/')) {
                open.push_back(name);
            } else if (open.empty() || "/" + open.back() != name) {
                return "unexpected " + name;
            } else {
                open.pop_back();
            }
        }
    }
    return open.empty() ? "" : "unclosed " + open.back();
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

TEST(PlaylistHTML, WritesAPageWithoutEntriesToo)
{
    EXPECT_EQ(PlaylistHTML::document({}),
              std::string(head) +
                  "0</span> tracks in playlist, average track length: <span class=\"t\">0:00"
                  "</span></p>\n<p>Playlist length: <span class=\"t\">0:00</span></p>\n"
                  "<p class=\"t\">Playlist files:</p>\n<ol>\n" +
                  std::string(tail));
}

TEST(PlaylistHTML, CountsAddsUpAndAverages)
{
    struct Row {
        std::vector<Entry> entries;
        std::string_view count, average, length;
    };
    const Row rows[] = {
        {{{"a", 59.9}},                         "1</span> track in",  "0:59",   "0:59"  },
        {{{"a", 0}},                            "1</span> track in",  "0:00",   "0:00"  },
        {{{"a", 0}, {"b", 10}},                 "2</span> tracks in", "0:05",   "0:10"  }, // zero is known
        {{{"a", std::nullopt}},                 "1</span> track in",  "0:00",   "0:00"  },
        {{{"a", -5}, {"b", 7325}},              "2</span> tracks in", "122:05", "122:05"},
        {{{"a", infinity}, {"b", 3}},           "2</span> tracks in", "0:03",   "0:03"  },
        {{{"a", notANumber}, {"b", -infinity}}, "2</span> tracks in", "0:00",   "0:00"  },
        {{{"a", huge}, {"b", huge}},            "2</span> tracks in", "",       ""      }, // more than can be told
    };
    for (const auto& row : rows) {
        const auto page = PlaylistHTML::document(row.entries);
        EXPECT_TRUE(page.contains("<span class=\"t\">" + std::string(row.count))) << page;
        EXPECT_EQ(between(page, "average track length: <span class=\"t\">", "</span>"),
                  row.average);
        EXPECT_EQ(between(page, "Playlist length: <span class=\"t\">", "</span>"), row.length);
    }
}

TEST(PlaylistHTML, WritesARowForEachEntry)
{
    struct Row {
        Entry entry;
        std::string_view expected;
    };
    const Row table[] = {
        {{"a", 65.9},                "<li>1. a (1:05)</li>"                },
        {{"a", 0},                   "<li>1. a (0:00)</li>"                },
        {{"a", 7325},                "<li>1. a (122:05)</li>"              },
        {{"a", 1e18},                "<li>1. a (16666666666666666:40)</li>"},
        {{"a", -0.5},                "<li>1. a</li>"                       },
        {{"a", infinity},            "<li>1. a</li>"                       },
        {{"a", notANumber},          "<li>1. a</li>"                       },
        {{"", std::nullopt},         "<li>1. </li>"                        },
        {{"<\"&'>", {}},             "<li>1. &lt;&quot;&amp;&#39;&gt;</li>"},
        {{"caf\xC3\xA9\xFF 🎵", {}}, "<li>1. café\uFFFD 🎵</li>"           },
    };
    for (const auto& row : table)
        EXPECT_EQ(rows(PlaylistHTML::document({&row.entry, 1})), row.expected);
}

TEST(PlaylistHTML, NumbersTheRowsAndJoinsThemByLineFeeds)
{
    const std::vector<Entry> entries(12, {"x", std::nullopt});
    const auto list = rows(PlaylistHTML::document(entries));
    EXPECT_TRUE(list.starts_with("<li>1. x</li>\n<li>2. x</li>\n")) << list;
    EXPECT_TRUE(list.ends_with("</li>\n<li>12. x</li>")) << list;
    EXPECT_EQ(std::ranges::count(list, '\n'), 11);
}

TEST(PlaylistHTML, StaysWellFormedWhateverTheNames)
{
    ASSERT_EQ(flaw("<p>a &amp; b</p>"), "");
    for (const auto* broken : {"<p>", "</p>", "<p></b>", "a & b", "a > b", "<p", "<b><i></b></i>"})
        ASSERT_NE(flaw(broken), "") << broken;

    std::vector<Entry> entries{
        {"</li></ol><script>alert(\"1\")</script>", 1},
        {"<!-- ",                                   2},
        {"]]> &amp; &#39; &nosuch; &",              3},
    };
    std::string everyByte;
    for (int c = 0; c < 256; ++c)
        everyByte += static_cast<char>(c);
    entries.push_back({everyByte, 4});
    const auto page = PlaylistHTML::document(entries);
    EXPECT_EQ(flaw(page), "");
    EXPECT_FALSE(page.contains("<script"));
    EXPECT_FALSE(rows(page).contains('\'') || rows(page).contains('"'));
}
