#include "SkinKit/Player/PlaylistHTML.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <vector>

using namespace SkinKit;
using PlaylistHTML::Entry;

TEST(PlaylistHTML, WritesTheWholePage)
{
    const std::vector<Entry> entries{
        {"Overture",                  60  },
        {"</li>\"&amp; 'Roll\xFF 🎵", 30.9},
        {"",                          -1  },
        {"Unknown",                   NAN }
    };
    EXPECT_EQ(PlaylistHTML::document(entries), R"(<!DOCTYPE html>
<html>
<head>
<meta charset="utf-8">
<title>Velmar Generated PlayList</title>
<style>
body { background: #000040; color: #4040FF; font-family: Arial, sans-serif; }
.h { color: #FFFFFF; font-size: 32px; }
.t { color: #FFFFFF; }
ol { list-style: none; padding-left: 0; color: #4040FF; }
</style>
</head>
<body>
<div class="h">Velmar Generated PlayList</div>
<p><span class="t">4</span> tracks in playlist, average track length: <span class="t">)"
                                               R"(0:45</span></p>
<p>Playlist length: <span class="t">1:30</span></p>
<p class="t">Playlist files:</p>
<ol>
<li>1. Overture (1:00)</li>
<li>2. &lt;/li&gt;&quot;&amp;amp; &#39;Roll� 🎵 (0:30)</li>
<li>3. </li>
<li>4. Unknown</li>
</ol>
</body>
</html>
)");
}

TEST(PlaylistHTML, CountsAddsUpAndAverages)
{
    constexpr double huge = std::numeric_limits<double>::max();
    const std::tuple<std::vector<Entry>, std::string, std::string, std::string> rows[] = {
        {{},                           "0</span> tracks", "0:00", "0:00"},
        {{{"a", 59.9}},                "1</span> track ", "0:59", "0:59"},
        {{{"a", 0}, {"b", 10}},        "2</span> tracks", "0:05", "0:10"}, // zero is known
        {{{"a", {}}, {"b", HUGE_VAL}}, "2</span> tracks", "0:00", "0:00"},
        {{{"a", huge}, {"b", huge}},   "2</span> tracks", "",     ""    }, // no number holds it
    };
    for (const auto& [entries, count, average, length] : rows) {
        const auto page = PlaylistHTML::document(entries);
        EXPECT_TRUE(page.contains(">" + count)) << page;
        EXPECT_TRUE(page.contains("average track length: <span class=\"t\">" + average + "<"));
        EXPECT_TRUE(page.contains("Playlist length: <span class=\"t\">" + length + "<"));
    }
}
