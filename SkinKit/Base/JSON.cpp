#include "SkinKit/Base/JSON.h"

#include "SkinKit/Base/Unicode.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <cstdio>

namespace SkinKit {
namespace {

using Node = nlohmann::json; // sorts its keys

Node toNode(const JSON& json)
{
    struct Convert {
        Node operator()(std::monostate) const { return nullptr; }
        Node operator()(bool value) const { return value; }
        Node operator()(std::int64_t value) const { return value; }
        Node operator()(std::uint64_t value) const { return value; }
        Node operator()(double value) const { return value; }
        Node operator()(const std::string& value) const { return value; }
        Node operator()(const JSON::Array& array) const
        {
            Node node = Node::array();
            for (const JSON& element : array)
                node.push_back(toNode(element));
            return node;
        }
        Node operator()(const JSON::Object& object) const
        {
            Node node = Node::object();
            for (const auto& [key, element] : object)
                node[key] = toNode(element);
            return node;
        }
    };
    return std::visit(Convert{}, json.value());
}

// Takes a text's parts as they are read and builds the value, so that a text nested too deeply is
// given up before anything deep exists.
class Builder {
public:
    JSON takeResult() { return std::move(result_); }
    const std::string& error() const { return error_; }

    bool null() { return put({}); }
    bool boolean(bool value) { return put(value); }
    bool number_integer(std::int64_t value) { return put(value); }
    bool number_unsigned(std::uint64_t value)
    {
        return std::in_range<std::int64_t>(value) ? put(static_cast<std::int64_t>(value))
                                                  : put(value);
    }
    bool number_float(double value, const std::string&) { return put(value); }
    bool string(std::string& value) { return put(std::move(value)); }
    static bool binary(Node::binary_t&) { return false; }
    bool key(std::string& value)
    {
        open_.back().key = std::move(value);
        return true;
    }
    bool start_object(std::size_t) { return start(JSON::Object()); }
    bool start_array(std::size_t) { return start(JSON::Array()); }
    bool end_object() { return end(); }
    bool end_array() { return end(); }
    bool parse_error(std::size_t position, const std::string&, const Node::exception&)
    {
        error_ = "not JSON at byte " + std::to_string(position);
        return false;
    }

private:
    // An array or object not yet at its end.
    struct Open {
        JSON::Value value;
        std::string key; // of the member to come
    };

    bool put(JSON value)
    {
        if (open_.empty())
            result_ = std::move(value);
        else if (auto* const array = std::get_if<JSON::Array>(&open_.back().value))
            array->push_back(std::move(value));
        else
            std::get<JSON::Object>(open_.back().value)
                .insert_or_assign(std::move(open_.back().key), std::move(value));
        return true;
    }

    bool start(JSON::Value value)
    {
        if (std::ssize(open_) == JSON::maxDepth) {
            error_ = "nested deeper than " + std::to_string(JSON::maxDepth) + " levels";
            return false;
        }
        open_.push_back({std::move(value), {}});
        return true;
    }

    bool end()
    {
        JSON::Value value = std::move(open_.back().value);
        open_.pop_back();
        return std::holds_alternative<JSON::Array>(value)
                   ? put(std::get<JSON::Array>(std::move(value)))
                   : put(std::get<JSON::Object>(std::move(value)));
    }

    std::vector<Open> open_;
    JSON result_;
    std::string error_;
};

constexpr int oneLine = -1;

// Escapes what a terminal would obey or not show. The library that writes JSON escapes C0 only, or
// all that is not ASCII.
std::string withInvisiblesEscaped(std::string json)
{
    const auto isPlain = [](char c) { return c >= 0 && c < 0x7F; };
    if (std::ranges::all_of(json, isPlain))
        return json;
    std::string result;
    for (std::string_view rest = json; !rest.empty();) {
        const std::string_view before = rest;
        const char32_t codePoint = Unicode::takeCodePoint(rest);
        const auto character = before.substr(0, before.size() - rest.size());
        if (codePoint == U'\n' || !Unicode::isInvisible(codePoint)) { // indented texts have lines
            result += character;
            continue;
        }
        for (const char16_t unit : Unicode::toUTF16(character)) {
            char escape[8];
            std::snprintf(escape, sizeof escape, "\\u%04x", static_cast<unsigned>(unit));
            result += escape;
        }
    }
    return result;
}

}

std::expected<JSON, std::string> JSON::parse(std::string_view text)
{
    Builder builder;
    if (!Node::sax_parse(text.begin(), text.end(), &builder))
        return std::unexpected(builder.error());
    return builder.takeResult();
}

const JSON* JSON::member(std::string_view key) const
{
    const auto* const object = as<Object>();
    if (!object)
        return nullptr;
    const auto found = object->find(key);
    return found == object->end() ? nullptr : &found->second;
}

std::string JSON::text() const
{
    return text(oneLine);
}

std::string JSON::text(int indent) const
{
    return withInvisiblesEscaped(
        toNode(*this).dump(indent, ' ', false, Node::error_handler_t::replace));
}

}
