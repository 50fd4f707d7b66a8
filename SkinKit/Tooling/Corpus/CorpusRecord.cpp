#include "SkinKit/Tooling/Corpus/CorpusRecord.h"

#include "SkinKit/Base/JSON.h"
#include "SkinKit/Base/Numbers.h"
#include "SkinKit/System/InputFile.h"

#include <chrono>
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
bool read(const JSONNode& json, T& value)
{
    const T* const found = json.as<T>();
    if (found)
        value = *found;
    return found != nullptr;
}

bool read(const JSONNode& json, std::string& text)
{
    const auto* const found = json.as<std::string_view>();
    if (found)
        text = *found;
    return found != nullptr;
}

bool read(const JSONNode& json, std::int64_t& value)
{
    if (const auto* const decimal = json.as<double>()) {
        const auto whole = Numbers::exactInteger(*decimal);
        value = whole.value_or(0);
        return whole.has_value();
    }
    return read<std::int64_t>(json, value);
}

bool read(const JSONNode& json, double& value)
{
    if (const auto* const whole = json.as<std::int64_t>())
        value = static_cast<double>(*whole);
    else if (const auto* const large = json.as<std::uint64_t>())
        value = static_cast<double>(*large);
    else
        return read<double>(json, value);
    return true;
}

bool read(const JSONNode& json, std::vector<std::string>& texts)
{
    for (const JSONNode& element : json)
        if (!read(element, texts.emplace_back()))
            return false;
    return json.isArray();
}

template <typename T>
bool read(const JSONNode& json, std::optional<T>& field)
{
    return json.isNull() || read(json, field.emplace());
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
    const auto json = JSONText::read(line);
    if (!json || !json->root().member("event"))
        return std::nullopt;
    CorpusRecord record;
    bool isRecord = true;
    visitFields(record, [&](std::string_view key, auto& field) {
        const JSONNode* const found = json->root().member(key);
        isRecord = isRecord && (!found || read(*found, field));
    });
    return isRecord ? std::optional(std::move(record)) : std::nullopt;
}

namespace CorpusRecords {

std::error_code read(const std::filesystem::path& file,
                     const std::function<void(CorpusRecord)>& take)
{
    return Files::forEachLine(file, [&](std::string_view line) {
        if (auto record = CorpusRecord::parse(line))
            take(std::move(*record));
    });
}

Files::Result<std::vector<CorpusRecord>> readAll(const std::filesystem::path& file)
{
    std::vector<CorpusRecord> records;
    const auto error =
        read(file, [&](CorpusRecord record) { records.push_back(std::move(record)); });
    if (error && error != std::errc::no_such_file_or_directory)
        return std::unexpected(error);
    return records;
}

}

}
