#include "SkinKit/Tooling/CrashLogs/CrashedSkins.h"

#include "SkinKit/Base/TextLines.h"
#include "SkinKit/Base/Unicode.h"

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

// Calls `take` with the position of each word, and the word.
void forEachWord(std::string_view text, auto take)
{
    for (std::size_t end = 0; end < text.size(); ++end) {
        const std::size_t begin = end;
        while (end < text.size() && isWordByte(text[end]))
            ++end;
        if (begin < end)
            take(begin, text.substr(begin, end - begin));
    }
}

// Of any case if it is as long as an MD5.
std::string keyOf(std::string_view word)
{
    constexpr std::size_t md5Size = 32;
    return word.size() == md5Size ? Unicode::lowercased(word) : std::string(word);
}

bool standsAlone(std::string_view text, std::size_t begin, std::size_t size)
{
    return (begin == 0 || !isWordByte(text[begin - 1])) &&
           (begin + size == text.size() || !isWordByte(text[begin + size]));
}

}

CrashedSkins::CrashedSkins(std::span<const CorpusSkins::File* const> skins)
{
    for (std::size_t i = 0; i < skins.size(); ++i) {
        const CorpusSkins::File& skin = *skins[i];
        add(skin.md5, Kind::md5, i);
        add(skin.path, Kind::file, i);
        add(skin.path.substr(skin.path.rfind('/') + 1), Kind::file, i); // npos + 1 is 0
        add(skin.name, Kind::name, i);
    }
}

void CrashedSkins::add(const std::string& text, Kind kind, std::size_t skin)
{
    std::string key;
    Mark mark{text, 0, kind, skin};
    const auto take = [&](std::size_t begin, std::string_view word) {
        mark.wordStart = begin;
        key = keyOf(word);
    };
    forEachWord(std::string_view(text).substr(0, text.rfind('.')), take);
    if (key.empty()) // then the extension's
        forEachWord(text, take);
    if (!key.empty())
        marks_.emplace(std::move(key), std::move(mark));
}

void CrashedSkins::forEachMark(std::string_view text, auto take) const
{
    forEachWord(text, [&](std::size_t position, std::string_view word) {
        const auto [first, last] = marks_.equal_range(keyOf(word));
        for (auto found = first; found != last; ++found) {
            const Mark& mark = found->second;
            const std::size_t begin = position - mark.wordStart;
            if (mark.kind == Kind::md5
                    ? mark.text.size() == word.size()
                    : position >= mark.wordStart && text.substr(begin).starts_with(mark.text) &&
                          standsAlone(text, begin, mark.text.size()))
                take(mark);
        }
    });
}

std::optional<std::size_t> CrashedSkins::find(const CrashLog& log) const
{
    // Names are any words: short ones are everywhere, and a stack is full of functions.
    constexpr std::size_t shortestName = 4;
    const Mark* best = nullptr;
    const auto search = [&](std::string_view text, bool hasNames, std::string_view wholeName) {
        forEachMark(text, [&](const Mark& mark) {
            const auto rank = [](const Mark& m) {
                return std::tuple(m.kind, m.text.size(), -static_cast<std::int64_t>(m.skin));
            };
            const bool counts =
                mark.kind != Kind::name ||
                (hasNames && (mark.text.size() >= shortestName || mark.text == wholeName));
            if (counts && (!best || rank(*best) < rank(mark)))
                best = &mark;
        });
    };
    search(log.file, true, std::string_view(log.file).substr(0, log.file.rfind('.')));
    std::string_view rest = log.text;
    for (auto line = takeLine(rest); !line.empty(); line = takeLine(rest))
        search(line, !CrashLog::isFrame(line), {});
    return best ? std::optional(best->skin) : std::nullopt;
}

}
