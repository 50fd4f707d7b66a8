#pragma once

#include <concepts>
#include <cstdint>
#include <expected>
#include <map>
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

    // The value that a whole text holds, or what is wrong with it, in a sentence's part ("not JSON
    // at byte 17"). Whole numbers that fit are std::int64_t, larger ones std::uint64_t, all others
    // double. Of several equal keys the last wins. Text that is not UTF-8 is no JSON.
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
    // The member's value when it has that type.
    template <typename T>
    std::optional<T> member(std::string_view key) const
    {
        const JSON* const found = member(key);
        const T* const value = found ? found->as<T>() : nullptr;
        return value ? std::optional(*value) : std::nullopt;
    }

    // As text: slashes as they are, what is not UTF-8 replaced by U+FFFD, control and other
    // invisible characters escaped. Indented by `indent` spaces a level, or all on one line.
    std::string text() const;
    std::string text(int indent) const;

private:
    Value value_;
};

}
