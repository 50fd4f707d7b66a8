// Written by hand: a report reads hundreds of thousands of lines, and takes less than half the time
// of one with a library that makes a tree of each. What is written has to be safe on a terminal,
// which libraries do not see to.
#include "SkinKit/Base/JSON.h"

#include "SkinKit/Base/Encodings.h"
#include "SkinKit/Base/Numbers.h"
#include "SkinKit/Base/Unicode.h"

#include <algorithm>
#include <cmath>

namespace SkinKit {
namespace {

// What a letter behind a backslash means, in the same place. The solidus is only read.
constexpr std::string_view escapeLetters = "\"\\bfnrt/";
constexpr std::string_view escapeMeanings = "\"\\\b\f\n\r\t/";

// A character of a text that means itself and takes one byte.
constexpr bool isPlain(char c)
{
    return c >= ' ' && c != '"' && c != '\\'; // the bytes of longer characters are negative
}

}

// Goes through a text once.
class JSONText::Reader {
public:
    Reader(std::string_view text, JSONText& result) : text_(text), result_(result) {}

    // What is wrong, if anything.
    std::optional<std::string> read()
    {
        constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
        if (text_.starts_with(byteOrderMark))
            at_ = byteOrderMark.size();
        const bool isRead = takeValue({});
        if (isRead && at_ == text_.size())
            return std::nullopt;
        if (depth_ > JSON::maxDepth)
            return "nested deeper than " + std::to_string(JSON::maxDepth) + " levels";
        return "not JSON at byte " + std::to_string(at_ + 1);
    }

private:
    // The functions that take something leave the position at the first byte that does not fit.

    char next() const { return at_ < text_.size() ? text_[at_] : '\0'; }

    bool skip(char expected)
    {
        if (next() != expected)
            return false;
        ++at_;
        return true;
    }

    void skipBlanks()
    {
        while (next() == ' ' || next() == '\n' || next() == '\r' || next() == '\t')
            ++at_;
    }

    // With the blanks around it.
    bool takeValue(std::string_view key)
    {
        const std::size_t place = result_.nodes_.size();
        result_.nodes_.push_back({.key = key});
        JSONNode::Value value;
        skipBlanks();
        if (!take(value))
            return false;
        skipBlanks();
        JSONNode& node = result_.nodes_[place];
        node.value = value;
        node.extent = result_.nodes_.size() - place;
        return true;
    }

    bool take(JSONNode::Value& value)
    {
        switch (next()) {
        case '{': value = JSONNode::Container::object; return takeContents('}');
        case '[': value = JSONNode::Container::array; return takeContents(']');
        case '"': return takeText(value.emplace<std::string_view>());
        case 't': value = true; return takeWord("true");
        case 'f': value = false; return takeWord("false");
        case 'n': return takeWord("null");
        default: return takeNumber(value);
        }
    }

    bool takeContents(char close)
    {
        if (++depth_ > JSON::maxDepth)
            return false;
        ++at_;
        skipBlanks();
        if (next() != close)
            do {
                std::string_view key;
                if ((close == '}' && !takeKey(key)) || !takeValue(key))
                    return false;
            } while (skip(','));
        --depth_;
        return skip(close);
    }

    bool takeKey(std::string_view& key)
    {
        skipBlanks();
        if (next() != '"' || !takeText(key))
            return false;
        skipBlanks();
        return skip(':');
    }

    bool takeWord(std::string_view word)
    {
        return std::ranges::all_of(word, [this](char c) { return skip(c); });
    }

    bool takeText(std::string_view& text)
    {
        const std::size_t written = result_.unescaped_ ? result_.unescaped_->size() : 0;
        bool hasEscapes = false;
        std::size_t begin = ++at_; // of the part that is not copied
        while (true) {
            while (isPlain(next()))
                ++at_;
            if (skip('"'))
                break;
            if (next() == '\\') {
                copy(begin);
                if (!takeEscape())
                    return false;
                hasEscapes = true;
                begin = at_;
            } else {
                // Neither control characters nor the end of all belong to a text.
                const bool isLong = next() < 0;
                const auto length = isLong ? Unicode::characterLength(text_.substr(at_)) : 0;
                if (length == 0)
                    return false;
                at_ += length;
            }
        }
        const std::size_t end = at_ - 1;
        text = text_.substr(begin, end - begin);
        if (hasEscapes) {
            result_.unescaped_->append(text);
            text = std::string_view(*result_.unescaped_).substr(written);
        }
        return true;
    }

    // Adds what is behind `begin` to the texts with escapes. These have enough space for all from
    // the first, so that views into them stay valid.
    void copy(std::size_t begin)
    {
        if (!result_.unescaped_) {
            result_.unescaped_ = std::make_unique<std::string>();
            result_.unescaped_->reserve(text_.size());
        }
        result_.unescaped_->append(text_.substr(begin, at_ - begin));
    }

    bool takeEscape()
    {
        ++at_;
        if (next() == 'u')
            return takeCodePoint();
        const auto letter = escapeLetters.find(next());
        if (letter == escapeLetters.npos)
            return false;
        ++at_;
        *result_.unescaped_ += escapeMeanings[letter];
        return true;
    }

    // "uXXXX", or two of them with a backslash between: the halves of a character beyond U+FFFF.
    bool takeCodePoint()
    {
        const auto first = takeUnit();
        if (!first || isLowHalf(*first))
            return false;
        char32_t codePoint = *first;
        if (isHighHalf(*first)) {
            const auto second = skip('\\') ? takeUnit() : std::nullopt;
            if (!second || !isLowHalf(*second))
                return false;
            codePoint = 0x10000 + ((*first - 0xD800) << 10) + (*second - 0xDC00);
        }
        Unicode::append(*result_.unescaped_, codePoint);
        return true;
    }

    std::optional<std::uint32_t> takeUnit()
    {
        constexpr std::size_t digits = 4;
        if (!skip('u') || text_.size() - at_ < digits)
            return std::nullopt;
        const auto unit = Hex::parse(text_.substr(at_, digits));
        at_ += unit ? digits : 0;
        return unit;
    }

    static bool isHighHalf(std::uint32_t unit) { return unit >= 0xD800 && unit < 0xDC00; }
    static bool isLowHalf(std::uint32_t unit) { return unit >= 0xDC00 && unit < 0xE000; }

    bool takeNumber(JSONNode::Value& value)
    {
        const std::size_t begin = at_;
        skip('-');
        if (!skip('0') && !takeDigits())
            return false;
        bool isWhole = true;
        if (skip('.')) {
            isWhole = false;
            if (!takeDigits())
                return false;
        }
        if (skip('e') || skip('E')) {
            isWhole = false;
            if (!skip('-'))
                skip('+');
            if (!takeDigits())
                return false;
        }

        const auto number = text_.substr(begin, at_ - begin);
        if (isWhole) {
            if (const auto whole = Numbers::parseInteger<std::int64_t>(number)) {
                value = *whole;
                return true;
            }
            if (const auto large = Numbers::parseInteger<std::uint64_t>(number)) {
                value = *large;
                return true;
            }
        }
        const auto decimal = Numbers::parseDecimal(number);
        if (!decimal) {
            --at_; // too large, which shows at its last digit
            return false;
        }
        value = *decimal;
        return true;
    }

    bool takeDigits()
    {
        const std::size_t begin = at_;
        while (next() >= '0' && next() <= '9')
            ++at_;
        return at_ > begin;
    }

    std::string_view text_;
    std::size_t at_ = 0;
    int depth_ = 0;
    JSONText& result_;
};

std::expected<JSONText, std::string> JSONText::read(std::string_view text)
{
    constexpr std::size_t usualValues = 32;
    JSONText result;
    result.nodes_.reserve(usualValues);
    if (auto error = Reader(text, result).read())
        return std::unexpected(std::move(*error));
    return result;
}

const JSONNode* JSONNode::member(std::string_view name) const
{
    const JSONNode* found = nullptr;
    if (isObject())
        for (const JSONNode& child : *this)
            if (child.key == name)
                found = &child;
    return found;
}

namespace {

JSON toJSON(const JSONNode& node)
{
    if (node.isArray()) {
        JSON::Array array;
        for (const JSONNode& element : node)
            array.push_back(toJSON(element));
        return array;
    }
    if (node.isObject()) {
        JSON::Object object;
        for (const JSONNode& member : node)
            object.insert_or_assign(std::string(member.key), toJSON(member));
        return object;
    }
    const auto convert = []<typename T>(const T& value) -> JSON {
        if constexpr (std::constructible_from<JSON, T>)
            return value;
        else
            return {};
    };
    return std::visit(convert, node.value);
}

// Writes a value behind what is written already.
class Writer {
public:
    explicit Writer(std::optional<std::size_t> indent) : indent_(indent) {}

    std::string take() { return std::move(text_); }

    void write(const JSON& json) { std::visit(*this, json.value()); }

    void operator()(std::monostate) { text_ += "null"; }
    void operator()(bool value) { text_ += value ? "true" : "false"; }
    void operator()(std::int64_t value) { text_ += std::to_string(value); }
    void operator()(std::uint64_t value) { text_ += std::to_string(value); }
    void operator()(double value)
    {
        text_ += std::isfinite(value) ? Numbers::shortest(value) : "null";
    }
    void operator()(const JSON::Array& array)
    {
        writeAll(array, "[]", [this](const JSON& element) { write(element); });
    }
    void operator()(const JSON::Object& object)
    {
        writeAll(object, "{}", [this](const auto& member) {
            (*this)(member.first);
            text_ += indent_ ? ": " : ":";
            write(member.second);
        });
    }
    void operator()(const std::string& text)
    {
        const std::string repaired = Unicode::toValidUTF8(asBytes(text));
        text_ += '"';
        for (std::string_view rest = repaired; !rest.empty();) {
            const std::string_view before = rest;
            const char32_t codePoint = Unicode::takeCodePoint(rest);
            writeCharacter(codePoint, before.substr(0, before.size() - rest.size()));
        }
        text_ += '"';
    }

private:
    void writeAll(const auto& elements, std::string_view brackets, auto writeOne)
    {
        text_ += brackets.front();
        ++level_;
        for (bool isFirst = true; const auto& element : elements) {
            if (!std::exchange(isFirst, false))
                text_ += ',';
            startLine();
            writeOne(element);
        }
        --level_;
        if (!elements.empty())
            startLine();
        text_ += brackets.back();
    }

    void startLine()
    {
        if (indent_)
            text_.append("\n").append(level_ * *indent_, ' ');
    }

    void writeCharacter(char32_t codePoint, std::string_view character)
    {
        const auto meaning = escapeMeanings.find(character);
        if (meaning != escapeMeanings.npos && character != "/") {
            text_.append("\\").append(1, escapeLetters[meaning]);
        } else if (Unicode::isInvisible(codePoint)) {
            for (const char16_t unit : Unicode::toUTF16(character)) {
                text_ += "\\u";
                Hex::append(text_, static_cast<std::uint8_t>(unit >> 8), Hex::lowerCase);
                Hex::append(text_, static_cast<std::uint8_t>(unit), Hex::lowerCase);
            }
        } else {
            text_ += character;
        }
    }

    std::string text_;
    std::optional<std::size_t> indent_; // spaces a level, or all on one line
    std::size_t level_ = 0;
};

std::string written(const JSON& json, std::optional<std::size_t> indent)
{
    Writer writer(indent);
    writer.write(json);
    return writer.take();
}

}

std::expected<JSON, std::string> JSON::parse(std::string_view text)
{
    const auto read = JSONText::read(text);
    if (!read)
        return std::unexpected(read.error());
    return toJSON(read->root());
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
    return written(*this, std::nullopt);
}

std::string JSON::text(std::size_t indent) const
{
    return written(*this, indent);
}

}
