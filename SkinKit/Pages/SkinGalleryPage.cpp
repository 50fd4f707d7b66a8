#include "SkinKit/Pages/SkinGalleryPage.h"

#include "SkinKit/Base/HTMLText.h"

#include <algorithm>

namespace SkinKit::SkinGalleryPage {
namespace {

constexpr std::string_view style = R"(
:root { color-scheme: light dark; --card: #fff; --line: #d8d8dc; --dim: #6b6b70; --back: #f4f4f6; --warn: #a15c00; }
@media (prefers-color-scheme: dark) { :root { --card: #26262a; --line: #3a3a40; --dim: #9a9aa0; --back: #18181b; --warn: #e0a040; } }
body { font: 14px/1.4 system-ui, sans-serif; margin: 0; background: var(--back); }
header { position: sticky; top: 0; z-index: 1; display: flex; flex-wrap: wrap; gap: 12px; align-items: center; padding: 12px 20px; background: var(--back); border-bottom: 1px solid var(--line); }
h1 { font-size: 17px; margin: 0; }
#count { color: var(--dim); }
.controls { margin-left: auto; display: flex; flex-wrap: wrap; gap: 8px; }
.controls[hidden] { display: none; }
input, select { font: inherit; padding: 4px 8px; }
main { display: grid; gap: 16px; padding: 20px; justify-content: center; }
article { background: var(--card); border: 1px solid var(--line); border-radius: 8px; padding: 12px; overflow-wrap: anywhere; content-visibility: auto; }
article[hidden] { display: none; }
img, .refused { display: block; max-width: 100%; height: auto; image-rendering: pixelated; }
.refused { box-sizing: border-box; display: flex; align-items: center; justify-content: center; padding: 12px; border: 1px dashed var(--line); color: var(--warn); text-align: center; }
h2 { font-size: 14px; margin: 8px 0 0; }
h2 a { color: inherit; }
.path { color: var(--dim); font-size: 12px; margin: 0; }
details { color: var(--dim); font-size: 12px; margin-top: 4px; }
.warning { color: var(--warn); }
ul { margin: 4px 0 0; padding-left: 18px; }
)";

constexpr std::string_view script = R"(
const all = document.querySelector("#count").textContent;
const cards = [...document.querySelectorAll("article")];
const main = document.querySelector("main");
const filter = document.querySelector("#filter");
const sort = document.querySelector("#sort");
const text = card => card.textContent.toLowerCase();
const texts = new Map(cards.map(card => [card, text(card)]));
const byName = new Intl.Collator(undefined, {numeric: true}).compare;
const name = card => card.querySelector("h2").textContent;
const orders = {
  listed: (a, b) => 0,
  name: (a, b) => byName(name(a), name(b)),
  notes: (a, b) => a.dataset.notes - b.dataset.notes,
  most: (a, b) => b.dataset.notes - a.dataset.notes,
  refused: (a, b) => (b.dataset.state === "refused") - (a.dataset.state === "refused"),
};
function show() {
  const words = filter.value.toLowerCase().split(/\s+/);
  let shown = 0;
  for (const card of cards) {
    card.hidden = !words.every(word => texts.get(card).includes(word));
    shown += !card.hidden;
  }
  document.querySelector("#count").textContent = shown === cards.length ? all : shown + " of " + all;
}
filter.addEventListener("input", show);
sort.addEventListener("change", () => main.append(...[...cards].sort(orders[sort.value])));
document.querySelector(".controls").hidden = false;
show();
)";

constexpr std::string_view controls =
    R"(<div class="controls" hidden>
<input id="filter" type="search" placeholder="Filter" aria-label="Filter">
<select id="sort" aria-label="Sort">
<option value="listed">in the order of the folders</option>
<option value="name">by name</option>
<option value="notes">fewest notes first</option>
<option value="most">most notes first</option>
<option value="refused">refused first</option>
</select>
</div>
)";

std::string escaped(std::string_view text)
{
    return HTMLText::escaped(text, HTMLText::Apostrophe::kept);
}

std::size_t noteCount(const Card& card)
{
    return card.warnings.size() + card.fallbacks.size();
}

std::string noteList(const Card& card)
{
    const std::size_t count = noteCount(card);
    if (count == 0)
        return {};
    std::string list = card.warnings.empty() ? "<details>" : "<details class=\"warning\">";
    list += "<summary>" + std::to_string(count) + (count == 1 ? " note" : " notes");
    list += "</summary>\n<ul>\n";
    for (const auto* const notes : {&card.warnings, &card.fallbacks})
        for (const auto& note : *notes)
            list += "<li>" + escaped(note) + "</li>\n";
    return list += "</ul></details>\n";
}

std::string countOf(const std::vector<Card>& cards)
{
    std::string text = std::to_string(cards.size()) + (cards.size() == 1 ? " skin" : " skins");
    if (const auto refused =
            std::ranges::count_if(cards, [](const Card& card) { return card.error.has_value(); }))
        text += ", " + std::to_string(refused) + " refused";
    return text;
}

std::string picture(const Card& card, Size size)
{
    const std::string width = std::to_string(size.width);
    const std::string height = std::to_string(size.height);
    if (card.error)
        return "<div class=\"refused\" style=\"aspect-ratio: " + width + " / " + height + "\">" +
               escaped(*card.error) + "</div>\n";
    return "<a href=\"" + escaped(card.preview) + "\"><img src=\"" + escaped(card.picture) +
           "\" width=\"" + width + "\" height=\"" + height + "\" loading=\"lazy\" alt=\"" +
           escaped(card.name) + "\"></a>\n";
}

std::string article(const Card& card, Size size)
{
    std::string html = "<article data-state=\"";
    html += card.error ? "refused" : "drawn";
    html += "\" data-notes=\"" + std::to_string(noteCount(card)) + "\">\n";
    html += picture(card, size);
    html += "<h2><a href=\"" + escaped(card.preview) + "\">" + escaped(card.name) + "</a></h2>\n";
    html += "<p class=\"path\">" + escaped(card.path) + "</p>\n";
    html += noteList(card);
    return html += "</article>\n";
}

}

std::string html(std::string_view title, const std::vector<Card>& cards, Size pictureSize)
{
    constexpr int cardBorders = 26; // what the style puts around a picture, left and right together
    std::string page = "<!doctype html>\n<html lang=\"en\"><head><meta charset=\"utf-8\">\n"
                       "<meta name=\"viewport\" content=\"width=device-width\">\n<title>";
    page += escaped(title);
    page += "</title>\n<style>";
    page += style;
    page += "main { grid-template-columns: repeat(auto-fill, min(100%, " +
            std::to_string(pictureSize.width + cardBorders) + "px)); }\n</style></head><body>\n";
    page +=
        "<header><h1>" + escaped(title) + "</h1><span id=\"count\">" + countOf(cards) + "</span>\n";
    page += controls;
    page += "</header>\n<main>\n";
    for (const Card& card : cards)
        page += article(card, pictureSize);
    page += "</main>\n<script>";
    page += script;
    return page += "</script>\n</body></html>\n";
}

}
