#include "SkinKit/Player/PlaylistHTML.h"

#include "SkinKit/Base/HTMLText.h"
#include "SkinKit/Windows/Playlist/PlaylistText.h"

#include <cmath>
#include <cstddef>
#include <string_view>

namespace SkinKit::PlaylistHTML {
namespace {

constexpr std::string_view head = R"(<!DOCTYPE html>
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
<p><span class="t">)";

constexpr std::string_view tail = R"(
</ol>
</body>
</html>
)";

struct Statistics {
    double total = 0;   // seconds, as is the average
    double average = 0; // of the known durations
};

Statistics statistics(std::span<const Entry> entries)
{
    double total = 0;
    std::size_t known = 0;
    for (const auto& [name, duration] : entries)
        if (duration && std::isfinite(*duration) && *duration >= 0) {
            total += *duration;
            ++known;
        }
    return {total, known > 0 ? total / static_cast<double>(known) : 0};
}

std::string summary(std::span<const Entry> entries)
{
    const auto [total, average] = statistics(entries);
    std::string text = std::to_string(entries.size()) + "</span> track";
    if (entries.size() != 1)
        text += 's';
    text += " in playlist, average track length: <span class=\"t\">" + PlaylistText::time(average);
    text += "</span></p>\n<p>Playlist length: <span class=\"t\">" + PlaylistText::time(total);
    text += "</span></p>\n<p class=\"t\">Playlist files:</p>\n<ol>\n";
    return text;
}

std::string row(std::size_t number, const Entry& entry)
{
    std::string text = "<li>" + std::to_string(number) + ". " +
                       HTMLText::escaped(entry.name, HTMLText::Apostrophe::escaped);
    if (const auto time = PlaylistText::time(entry.duration); !time.empty())
        text += " (" + time + ")";
    return text + "</li>";
}

}

std::string document(std::span<const Entry> entries)
{
    std::string page(head);
    page += summary(entries);
    for (std::size_t i = 0; i < entries.size(); ++i) {
        if (i > 0)
            page += '\n';
        page += row(i + 1, entries[i]);
    }
    return page += tail;
}

}
