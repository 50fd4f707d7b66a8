#include "SkinKit/Tooling/CrashLogs/CrashedSkins.h"

#include "SkinKit/Base/TextLines.h"
#include "SkinKit/Base/Unicode.h"
#include "SkinKit/Tooling/CrashLogs/StackTrace.h"

#include <algorithm>
#include <cstdint>
#include <tuple>
#include <utility>

namespace SkinKit {
namespace {

// Letters of any script count as parts of words, and so do all other signs beyond ASCII.
bool isWordByte(char c)
{
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_' ||
           c < 0;
}

// Where the next word begins and ends, at or after `from`.
std::pair<std::size_t, std::size_t> nextWord(std::string_view text, std::size_t from)
{
    const auto begin =
        std::find_if(text.begin() + static_cast<std::ptrdiff_t>(from), text.end(), isWordByte);
    const auto end = std::find_if_not(begin, text.end(), isWordByte);
    return {static_cast<std::size_t>(begin - text.begin()),
            static_cast<std::size_t>(end - text.begin())};
}

bool standsAlone(std::string_view text, std::size_t begin, std::size_t end)
{
    return (begin == 0 || !isWordByte(text[begin - 1])) &&
           (end == text.size() || !isWordByte(text[end]));
}

bool isFingerprint(std::string_view word)
{
    return word.size() == 32 && word.find_first_not_of("0123456789abcdefABCDEF") == word.npos;
}

std::string_view fileName(std::string_view path)
{
    return path.substr(path.rfind('/') + 1); // npos + 1 is 0
}

// The last word of a path without its extension, or of all of it when there is none.
std::pair<std::size_t, std::size_t> lastWord(std::string_view path)
{
    const auto dot = path.rfind('.');
    for (const std::string_view text : {path.substr(0, dot), path}) {
        std::pair<std::size_t, std::size_t> last;
        for (auto word = nextWord(text, 0); word.first < word.second;
             word = nextWord(text, word.second))
            last = word;
        if (last.first < last.second)
            return last;
    }
    return {};
}

}

CrashedSkins::CrashedSkins(std::span<const CorpusSkins::File* const> skins)
{
    for (std::size_t i = 0; i < skins.size(); ++i) {
        const CorpusSkins::File& skin = *skins[i];
        add(Unicode::lowercased(skin.md5), Kind::md5, i);
        add(skin.path, Kind::file, i);
        add(fileName(skin.path), Kind::file, i);
        add(skin.name, Kind::name, i);
    }
}

void CrashedSkins::add(std::string_view text, Kind kind, std::size_t skin)
{
    const auto [begin, end] = lastWord(text);
    if (begin < end)
        marks_.emplace(text.substr(begin, end - begin), Mark{std::string(text), begin, kind, skin});
}

void CrashedSkins::forEachMark(std::string_view text, auto take) const
{
    for (auto [begin, end] = nextWord(text, 0); begin < end;
         std::tie(begin, end) = nextWord(text, end)) {
        std::string lower;
        std::string_view word = text.substr(begin, end - begin);
        if (isFingerprint(word))
            word = lower = Unicode::lowercased(word);
        const auto [first, last] = marks_.equal_range(word);
        for (auto found = first; found != last; ++found) {
            const Mark& mark = found->second;
            if (mark.kind == Kind::md5) {
                if (mark.text == word)
                    take(mark);
                continue;
            }
            const auto start = begin - mark.wordStart;
            if (begin >= mark.wordStart && text.substr(start).starts_with(mark.text) &&
                standsAlone(text, start, start + mark.text.size()))
                take(mark);
        }
    }
}

std::optional<std::size_t> CrashedSkins::find(const CrashLog& log) const
{
    const Mark* best = nullptr;
    const auto take = [&](const Mark& mark) {
        const auto rank = [](const Mark& m) {
            return std::tuple(m.kind, m.text.size(), -static_cast<std::int64_t>(m.skin));
        };
        if (!best || rank(*best) < rank(mark))
            best = &mark;
    };

    // Names are any words: short ones turn up everywhere, and a stack is full of functions.
    constexpr std::size_t shortestName = 4;
    const std::string_view stem = std::string_view(log.file).substr(0, log.file.rfind('.'));
    forEachMark(log.file, [&](const Mark& mark) {
        if (mark.kind != Kind::name || mark.text.size() >= shortestName || mark.text == stem)
            take(mark);
    });
    for (std::string_view rest = log.text; !rest.empty();) {
        const auto line = takeLine(rest);
        const bool isFrame = StackTrace::isFrame(line);
        forEachMark(line, [&](const Mark& mark) {
            if (mark.kind != Kind::name || (mark.text.size() >= shortestName && !isFrame))
                take(mark);
        });
    }
    return best ? std::optional(best->skin) : std::nullopt;
}

}
