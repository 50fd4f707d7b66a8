#include "SkinKit/Tooling/CrashLogs/CrashLog.h"

#include "SkinKit/Base/TextLines.h"
#include "SkinKit/Base/Unicode.h"
#include "SkinKit/System/Folder.h"
#include "SkinKit/System/InputFile.h"

#include <algorithm>
#include <optional>
#include <span>
#include <utility>

namespace SkinKit {
namespace {

constexpr std::string_view digits = "0123456789";

// In the names of the innermost frames of a process that aborts itself.
constexpr std::string_view abortFunctions[] = {
    "pthread_kill",     "raise",           "abort",
    "__libc_message",   "malloc_printerr", "__fortify_fail",
    "__stack_chk_fail", "__assert_fail",   "terminate",
    "__cxa_",
};
// In the messages of the C and C++ libraries before they end a process.
constexpr std::string_view abortMessages[] = {
    "***: terminated",           "free(): ",    "malloc(): ",
    "double free or corruption", "Assertion `", "terminate called ",
};

bool containsAny(std::string_view text, std::span<const std::string_view> parts)
{
    return std::ranges::any_of(parts, [&](std::string_view part) { return text.contains(part); });
}

// What follows "#N " in the line of a frame.
std::optional<std::string_view> frameText(std::string_view line)
{
    line = Unicode::trimmedFront(line);
    const auto end = line.find_first_not_of(digits, 1);
    if (!line.starts_with('#') || end == 1 || end == line.npos || line[end] != ' ')
        return std::nullopt;
    return Unicode::trimmedFront(line.substr(end));
}

// The function's name without its arguments, which begin at the first parenthesis outside of
// templates ("function<void (int)>") and of the name ("operator()", "(anonymous namespace)::f").
// Empty or "??" for a function without a name.
//
//   0x00005555555553ff in Skin::parse (this=0x0) at Skin.cpp:8       gdb
//   0x55bc60cf2e3c in Skin::parse(char const*) /src/Skin.cpp:8:4     AddressSanitizer
//   0x55bc60cf2e3c  (/usr/bin/skintool+0x10fe3c)
std::string_view functionName(std::string_view frame)
{
    if (frame.starts_with("0x")) {
        frame.remove_prefix(std::min(frame.find(' '), frame.size()));
        if (!frame.starts_with(" in "))
            return {};
        frame.remove_prefix(4);
    }
    constexpr std::string_view callOperator = "operator()";
    constexpr std::string_view otherOperator = "operator";
    constexpr std::string_view anonymous = "(anonymous namespace)";
    int depth = 0;
    for (std::size_t i = 0; i < frame.size(); ++i) {
        const auto rest = frame.substr(i);
        if (rest.starts_with(callOperator))
            i += callOperator.size() - 1;
        else if (rest.starts_with(otherOperator))
            i += std::min(rest.find_first_not_of("<>=-", otherOperator.size()), rest.size()) - 1;
        else if (rest.starts_with(anonymous))
            i += anonymous.size() - 1;
        else if (rest.starts_with('<') || rest.starts_with('{'))
            ++depth;
        else if (rest.starts_with('>') || rest.starts_with('}'))
            --depth;
        else if (depth == 0 && (rest.starts_with('(') || rest.starts_with(" /")))
            return Unicode::trimmed(frame.substr(0, i));
    }
    return frame.substr(0, frame.find(' '));
}

// gdb's number for the thread that crashed; of a process that it was attached to, the first.
std::string_view crashedThread(std::string_view text)
{
    constexpr std::string_view thread = "Thread ";
    constexpr std::string_view current = "[Current thread is ";
    for (auto line = takeLine(text); !line.empty(); line = takeLine(text)) {
        const bool isSignal = line.starts_with(thread) && line.contains(" received signal ");
        if (!isSignal && !line.starts_with(current))
            continue;
        line.remove_prefix(isSignal ? thread.size() : current.size());
        return line.substr(0, line.find_first_not_of(digits));
    }
    return "1";
}

// The part of a log that begins with the stack of the crash.
std::string_view fromCrash(std::string_view text)
{
    // The stacks of warnings come before it.
    const auto error = text.find("ERROR: AddressSanitizer");
    const std::string heading = "\nThread " + std::string(crashedThread(text)) + " (";
    const auto begin = error != text.npos ? error : text.find(heading);
    return begin == text.npos ? text : text.substr(begin);
}

// The named frames of the first stack, innermost first.
std::vector<std::string_view> firstStack(std::string_view text)
{
    std::vector<std::string_view> names;
    bool hasBegun = false;
    std::size_t frames = 0;
    for (auto line = takeLine(text); !line.empty(); line = takeLine(text)) {
        const auto frame = frameText(line);
        const bool isInnermost = frame && Unicode::trimmedFront(line).starts_with("#0 ");
        // Of a core file gdb shows the innermost frame once more, alone, in front.
        if (isInnermost && frames > 1)
            break;
        if (isInnermost) {
            names.clear();
            frames = 0;
            hasBegun = true;
        }
        if (!frame || !hasBegun)
            continue;
        ++frames;
        const auto name = functionName(*frame);
        if (frame->starts_with("<signal handler called>"))
            names.clear();
        else if (!name.empty() && name != "??")
            names.push_back(name);
    }
    return names;
}

std::string abortMessage(std::string_view text)
{
    for (auto line = takeLine(text); !line.empty(); line = takeLine(text))
        if (containsAny(line, abortMessages))
            return std::string(Unicode::trimmed(line));
    return {};
}

// Whether the bytes are a text: without control characters but those for layout and colour.
bool isText(ByteView bytes)
{
    constexpr std::string_view allowed = "\t\n\f\r\b\x1B";
    return std::ranges::all_of(asText(bytes),
                               [&](char c) { return (c < 0 || c >= ' ') || allowed.contains(c); });
}

// Nothing for a file that is no text.
Files::Result<std::optional<std::string>> readText(const std::filesystem::path& path)
{
    auto file = Files::InputFile::open(path, Files::Links::rejected);
    if (!file && Files::isUnsuitableFile(file.error()))
        return std::nullopt;
    if (!file)
        return std::unexpected(file.error());
    // Of a long one the start, which may name the skin, and the end, which has the crash.
    const std::int64_t size = std::min(file->size(), CrashLog::maxBytes);
    ByteBuffer bytes(static_cast<std::size_t>(size));
    const auto [start, end] = std::pair(std::span(bytes).first(bytes.size() / 2),
                                        std::span(bytes).subspan(bytes.size() / 2));
    for (const auto& [offset, part] :
         {std::pair(std::int64_t{0}, start), std::pair(file->size() - std::ssize(end), end)})
        if (const auto error = file->readAt(offset, part))
            return std::unexpected(error);
    return isText(bytes) ? std::optional(Unicode::toValidUTF8(bytes)) : std::nullopt;
}

}

CrashLog CrashLog::of(std::string_view file, std::string_view text)
{
    return {std::string(file), std::string(text), signatureOf(text)};
}

std::string CrashLog::signatureOf(std::string_view text)
{
    constexpr std::ptrdiff_t maxFrames = 3;
    const auto names = firstStack(fromCrash(text));
    auto first = std::ranges::find_if_not(
        names, [](std::string_view name) { return containsAny(name, abortFunctions); });
    if (first == names.end())
        first = names.begin();
    std::string signature;
    for (auto name = first; name != names.end() && name - first < maxFrames; ++name)
        signature.append(name == first ? "" : " ← ").append(*name);
    return signature.empty() ? abortMessage(text) : signature;
}

bool CrashLog::isFrame(std::string_view line)
{
    return frameText(line).has_value();
}

Files::Result<CrashLog::Folder> CrashLog::readFolder(const std::filesystem::path& folder)
{
    const auto entries = Files::list(folder);
    if (!entries)
        return std::unexpected(entries.error());

    Folder found;
    std::int64_t totalBytes = 0;
    for (const auto& entry : *entries) {
        if (!entry.isRegularFile)
            continue;
        const auto text = readText(folder / entry.name);
        if (!text)
            found.unreadFiles.push_back({folder / entry.name, text.error()});
        if (!text || !*text)
            continue;
        found.logs.push_back(of(Unicode::toValidUTF8(asBytes(entry.name)), **text));
        totalBytes += std::ssize(**text);
        if (totalBytes > maxTotalBytes)
            found.logs.back().text = {};
    }
    return found;
}

}
