#include "SkinKit/Tooling/CorpusRecord.h"

#include "SkinKit/Platform/JSON.h"
#include "SkinKit/Platform/Numbers.h"

#include <algorithm>
#include <charconv>
#include <chrono>
#include <concepts>
#include <system_error>
#include <utility>

namespace SkinKit {
namespace {

// Every field with its key, in the order of the keys in a line.
void visitFields(auto& record, auto visit)
{
    visit("entries", record.entries);
    visit("error", record.error);
    visit("event", record.event);
    visit("fallbacks", record.fallbacks);
    visit("footprintMiB", record.footprintMiB);
    visit("i", record.i);
    visit("mainWindowComplete", record.mainWindowComplete);
    visit("md5", record.md5);
    visit("ms", record.ms);
    visit("museumUrl", record.museumUrl);
    visit("name", record.name);
    visit("nsfw", record.nsfw);
    visit("of", record.of);
    visit("parseMs", record.parseMs);
    visit("path", record.path);
    visit("renderMs", record.renderMs);
    visit("restart", record.restart);
    visit("size", record.size);
    visit("status", record.status);
    visit("t", record.t);
    visit("warnings", record.warnings);
}

template <typename T>
bool isThere(const std::optional<T>& field)
{
    return field.has_value();
}

bool isThere(const std::string&)
{
    return true;
}

template <typename T>
T& made(std::optional<T>& field)
{
    return field.emplace();
}

std::string& made(std::string& event)
{
    return event;
}

template <typename T>
JSON toJSON(const T& value)
{
    return value;
}

JSON toJSON(const std::vector<std::string>& texts)
{
    return JSON::Array(texts.begin(), texts.end());
}

template <typename T>
JSON toJSON(const std::optional<T>& value)
{
    return toJSON(*value);
}

// Takes the value out when it has the type, or one that means the same.
template <typename T>
bool read(const JSON& json, T& value)
{
    const T* const found = json.as<T>();
    if (found)
        value = *found;
    return found;
}

bool read(const JSON& json, std::int64_t& value)
{
    if (const auto* const decimal = json.as<double>()) {
        const auto whole = Numbers::exactInteger(*decimal);
        value = whole.value_or(0);
        return whole.has_value();
    }
    return read<std::int64_t>(json, value);
}

bool read(const JSON& json, double& value)
{
    if (const auto* const whole = json.as<std::int64_t>())
        value = static_cast<double>(*whole);
    else if (const auto* const large = json.as<std::uint64_t>())
        value = static_cast<double>(*large);
    else
        return read<double>(json, value);
    return true;
}

bool read(const JSON& json, std::vector<std::string>& texts)
{
    const auto* const array = json.as<JSON::Array>();
    if (!array)
        return false;
    for (const JSON& element : *array)
        if (!read(element, texts.emplace_back()))
            return false;
    return true;
}

bool isNull(const JSON& json)
{
    return json.as<std::monostate>();
}

std::optional<CorpusRecord> parseAny(std::string_view line)
{
    const auto json = JSON::parse(line);
    if (!json || !json->member("event"))
        return std::nullopt;
    CorpusRecord record;
    bool isRecord = true;
    visitFields(record, [&](const char* key, auto& field) {
        const JSON* const found = json->member(key);
        const bool isAbsent =
            !found || (isNull(*found) && !std::same_as<decltype(field), std::string&>);
        if (isRecord && !isAbsent)
            isRecord = read(*found, made(field));
    });
    return isRecord ? std::optional(std::move(record)) : std::nullopt;
}

// Takes values off the front of a line, as long as they are plain: texts without escapes in ASCII,
// numbers without a sign, nothing between them.
class PlainLine {
public:
    explicit PlainLine(std::string_view line) : rest_(line) {}

    std::string_view rest() const { return rest_; }

    bool take(std::string_view expected)
    {
        if (!rest_.starts_with(expected))
            return false;
        rest_.remove_prefix(expected.size());
        return true;
    }

    // The start of a member of that name.
    bool takeKey(std::string_view key)
    {
        PlainLine line(rest_);
        if (!line.take(isFirst_ ? "{\"" : ",\"") || !line.take(key) || !line.take("\":"))
            return false;
        rest_ = line.rest_;
        isFirst_ = false;
        return true;
    }

    bool read(std::string& text)
    {
        if (!take("\""))
            return false;
        const auto end =
            std::ranges::find_if(rest_, [](char c) { return c < ' ' || c == '"' || c == '\\'; });
        if (end == rest_.end() || *end != '"')
            return false;
        const auto size = static_cast<std::size_t>(end - rest_.begin());
        text = rest_.substr(0, size);
        rest_.remove_prefix(size + 1);
        return true;
    }

    bool read(std::vector<std::string>& texts)
    {
        if (!take("["))
            return false;
        if (take("]"))
            return true;
        do {
            if (!read(texts.emplace_back()))
                return false;
        } while (take(","));
        return take("]");
    }

    bool read(bool& value)
    {
        value = rest_.starts_with('t');
        return take(value ? "true" : "false");
    }

    bool read(std::int64_t& value)
    {
        const auto digits = takeDigits();
        const auto [end, error] =
            std::from_chars(digits.data(), digits.data() + digits.size(), value);
        return isWhole(digits) && error == std::errc();
    }

    bool read(double& value)
    {
        const char* const begin = rest_.data();
        if (!isWhole(takeDigits()) || (take(".") && takeDigits().empty()))
            return false;
        if (take("e") && ((take("-") || take("+")), takeDigits().empty()))
            return false;
        return std::from_chars(begin, rest_.data(), value).ec == std::errc();
    }

private:
    std::string_view takeDigits()
    {
        const auto digits = rest_.substr(0, rest_.find_first_not_of("0123456789"));
        rest_.remove_prefix(digits.size());
        return digits;
    }

    static bool isWhole(std::string_view digits)
    {
        return !digits.empty() && (digits.front() != '0' || digits.size() == 1);
    }

    std::string_view rest_;
    bool isFirst_ = true;
};

// A line in the form that most have, written by us and without odd characters, in a fraction of the
// time; nothing when it is another, whatever it says.
std::optional<CorpusRecord> parsePlain(std::string_view text)
{
    CorpusRecord record;
    PlainLine line(text);
    bool isPlain = true;
    bool hasEvent = false;
    visitFields(record, [&](std::string_view key, auto& field) {
        if (!isPlain || !line.takeKey(key))
            return;
        isPlain = line.read(made(field));
        hasEvent = hasEvent || std::same_as<decltype(field), std::string&>;
    });
    return isPlain && hasEvent && line.rest() == "}" ? std::optional(std::move(record))
                                                     : std::nullopt;
}

}

bool CorpusRecord::isAbnormalEnd(std::string_view status)
{
    return status == "crashed" || status == "timeout" || status == "memory";
}

double CorpusRecord::now()
{
    const auto sinceEpoch = std::chrono::system_clock::now().time_since_epoch();
    return std::chrono::duration<double>(sinceEpoch).count();
}

std::string CorpusRecord::line() const
{
    JSON::Object object;
    visitFields(*this, [&](const char* key, const auto& field) {
        if (isThere(field))
            object.emplace(key, toJSON(field));
    });
    return JSON(std::move(object)).text();
}

std::optional<CorpusRecord> CorpusRecord::parse(std::string_view line)
{
    auto record = parsePlain(line);
    return record ? std::move(record) : parseAny(line);
}

}
