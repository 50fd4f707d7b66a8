#pragma once

#include <concepts>
#include <cstdint>
#include <map>
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

    // As text: slashes as they are, what is not UTF-8 replaced by U+FFFD. Indented by `indent`
    // spaces a level, or all on one line.
    std::string text() const;
    std::string text(int indent) const;

private:
    Value value_;
};

}
