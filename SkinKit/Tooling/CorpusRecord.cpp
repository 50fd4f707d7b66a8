#include "SkinKit/Tooling/CorpusRecord.h"

#include "SkinKit/Platform/JSON.h"
#include "SkinKit/Platform/Numbers.h"

#include <chrono>
#include <utility>

namespace SkinKit {
namespace {

// Every field but the event, with its key.
void visitFields(auto& record, auto visit)
{
    visit("i", record.i);
    visit("path", record.path);
    visit("name", record.name);
    visit("md5", record.md5);
    visit("size", record.size);
    visit("entries", record.entries);
    visit("status", record.status);
    visit("mainWindowComplete", record.mainWindowComplete);
    visit("warnings", record.warnings);
    visit("fallbacks", record.fallbacks);
    visit("error", record.error);
    visit("parseMs", record.parseMs);
    visit("renderMs", record.renderMs);
    visit("ms", record.ms);
    visit("of", record.of);
    visit("restart", record.restart);
    visit("footprintMiB", record.footprintMiB);
    visit("t", record.t);
    visit("museumUrl", record.museumUrl);
    visit("nsfw", record.nsfw);
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

}

bool CorpusRecord::isAbnormalEnd() const
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
    JSON::Object object{
        {"event", event}
    };
    visitFields(*this, [&](const char* key, const auto& field) {
        if (field)
            object.emplace(key, toJSON(*field));
    });
    return JSON(std::move(object)).text();
}

std::optional<CorpusRecord> CorpusRecord::parse(std::string_view line)
{
    const auto json = JSON::parse(line);
    if (!json)
        return std::nullopt;
    CorpusRecord record;
    const JSON* const event = json->member("event");
    bool isRecord = event && read(*event, record.event);
    visitFields(record, [&](const char* key, auto& field) {
        const JSON* const found = json->member(key);
        if (isRecord && found && !isNull(*found))
            isRecord = read(*found, field.emplace());
    });
    return isRecord ? std::optional(std::move(record)) : std::nullopt;
}

}
