#pragma once

#include <concepts>
#include <cstddef>
#include <cstdint>
#include <expected>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

namespace SkinKit {

// A JSON value. Objects keep their keys in ascending byte order.
class JSON {
public:
    using Array = std::vector<JSON>;
    using Object = std::map<std::string, JSON, std::less<>>;

    // How deep arrays and objects may stand in each other in a text that is read.
    static constexpr int maxDepth = 64;

    // The value of a whole text, read as by `JSONText::read`. Of several equal keys the last wins.
    static std::expected<JSON, std::string> parse(std::string_view text);

    JSON() = default; // null
    JSON(std::same_as<bool> auto value) : value_(value) {}
    JSON(std::signed_integral auto value) : value_(static_cast<std::int64_t>(value)) {}
    JSON(std::unsigned_integral auto value)
    requires(!std::same_as<decltype(value), bool>) : value_(static_cast<std::uint64_t>(value)) {}
    JSON(double value) : value_(value) {}
    JSON(std::string value) : value_(std::move(value)) {}
    JSON(std::string_view value) : value_(std::string(value)) {}
    JSON(const char* value) : value_(std::string(value)) {}
    JSON(Array value) : value_(std::move(value)) {}
    JSON(Object value) : value_(std::move(value)) {}

    bool operator==(const JSON&) const = default;

    using Value = std::variant<std::monostate, bool, std::int64_t, std::uint64_t, double,
                               std::string, Array, Object>;
    const Value& value() const { return value_; }

    // What it holds when it holds a T, else null; the member of that name when it is an object.
    template <typename T>
    const T* as() const
    {
        return std::get_if<T>(&value_);
    }
    const JSON* member(std::string_view key) const;

    // As text: slashes as they are, what is not UTF-8 replaced by U+FFFD, control and other
    // invisible characters escaped, numbers that are not finite as null. Indented by `indent`
    // spaces a level, or all on one line.
    std::string text() const;
    std::string text(std::size_t indent) const;

private:
    Value value_;
};

// A value in a JSON text. Its views are valid as long as the text and its `JSONText`.
struct JSONNode {
    enum class Container { array, object };
    using Value = std::variant<std::monostate, bool, std::int64_t, std::uint64_t, double,
                               std::string_view, Container>;
    class Iterator;

    std::string_view key; // of an object's member
    Value value;
    std::size_t extent = 1; // in nodes: itself and all that it contains, which follow it

    // What it holds when it holds a T, else null.
    template <typename T>
    const T* as() const
    {
        return std::get_if<T>(&value);
    }
    bool isNull() const { return as<std::monostate>() != nullptr; }
    bool isArray() const { return value == Value(Container::array); }
    bool isObject() const { return value == Value(Container::object); }

    // What an array or object contains, in the order of the text; nothing for other values.
    Iterator begin() const;
    Iterator end() const;
    // The last member of that name, or its value when it holds a T.
    const JSONNode* member(std::string_view name) const;
    template <typename T>
    const T* member(std::string_view name) const
    {
        const JSONNode* const found = member(name);
        return found ? found->as<T>() : nullptr;
    }
};

class JSONNode::Iterator {
public:
    explicit Iterator(const JSONNode* node) : node_(node) {}

    const JSONNode& operator*() const { return *node_; }
    Iterator& operator++()
    {
        node_ += node_->extent;
        return *this;
    }
    bool operator==(const Iterator&) const = default;

private:
    const JSONNode* node_;
};

inline JSONNode::Iterator JSONNode::begin() const
{
    return Iterator(this + 1);
}
inline JSONNode::Iterator JSONNode::end() const
{
    return Iterator(this + extent);
}

// The values of a JSON text in one list, in the order of the text: for texts that are large or
// many. Nothing is allocated for a single value; texts without escapes are views into the whole.
class JSONText {
public:
    // What is wrong with the text is told as part of a sentence ("not JSON at byte 17"). Whole
    // numbers that fit are std::int64_t, larger ones std::uint64_t, all others double. Text that is
    // not UTF-8 is no JSON; a byte order mark at its start is skipped.
    static std::expected<JSONText, std::string> read(std::string_view text);

    const JSONNode& root() const { return nodes_.front(); }

private:
    class Reader;

    std::vector<JSONNode> nodes_;
    std::unique_ptr<std::string> unescaped_; // the texts that have escapes
};

}
