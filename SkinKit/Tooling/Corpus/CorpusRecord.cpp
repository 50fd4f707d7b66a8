#include "SkinKit/Tooling/Corpus/CorpusRecord.h"

#include "SkinKit/Base/JSON.h"
#include "SkinKit/Base/Numbers.h"
#include "SkinKit/Tooling/Corpus/PlainLine.h"

#include <chrono>
#include <concepts>
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
    return json.as<std::monostate>() != nullptr;
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
        isPlain = line.take(made(field));
        hasEvent = hasEvent || std::same_as<decltype(field), std::string&>;
    });
    return isPlain && hasEvent && line.isAtEnd() ? std::optional(std::move(record)) : std::nullopt;
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
