#include "SkinKit/Tooling/CrashLogs/CrashLog.h"

#include "SkinKit/Base/TextLines.h"
#include "SkinKit/Base/Unicode.h"
#include "SkinKit/Tooling/CrashLogs/StackTrace.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace SkinKit {
namespace {

// What the C and C++ libraries say before they abort: malloc's checks, the stack guard, assert and
// an exception that nobody catches.
constexpr std::string_view abortTexts[] = {
    "***: terminated",
    "free(): ",
    "malloc(): ",
    "realloc(): ",
    "malloc_consolidate(): ",
    "munmap_chunk(): ",
    "invalid fastbin entry (free)",
    "break adjusted to free malloc space",
    "double free or corruption",
    "corrupted size vs. prev_size",
    "corrupted double-linked list",
    "Fatal glibc error: ",
    ": Assertion `",
    "terminate called ",
    "terminating due to uncaught exception",
};

bool isAbortLine(std::string_view line)
{
    return std::ranges::any_of(abortTexts,
                               [&](std::string_view text) { return line.contains(text); });
}

std::string abortLine(std::string_view text)
{
    while (true) {
        const auto line = takeLine(text);
        if (line.empty())
            return {};
        if (!isAbortLine(line))
            continue;
        std::string found(Unicode::trimmed(line));
        // The text of an exception follows on a line of its own.
        const auto next = Unicode::trimmed(takeLine(text));
        return next.starts_with("what():") ? found.append(", ").append(next) : found;
    }
}

// Without the sequences that colour text on a terminal: ESC, "[", numbers and a letter.
std::string withoutColours(std::string_view text)
{
    std::string plain;
    while (true) {
        const auto escape = text.find("\x1B[");
        plain += text.substr(0, escape);
        if (escape == text.npos)
            return plain;
        const auto end = text.find_first_not_of("0123456789;", escape + 2);
        text.remove_prefix(end == text.npos ? text.size() : end + 1);
    }
}

// Whether the bytes are those of a text: without control characters but those that lay it out or
// colour it.
bool isText(ByteView bytes)
{
    constexpr std::string_view allowed = "\t\n\f\r\b\x1B";
    return std::ranges::all_of(asText(bytes),
                               [&](char c) { return (c < 0 || c >= ' ') || allowed.contains(c); });
}

// Nothing for a file that is no text or can't be one.
Files::Result<std::optional<std::string>> readText(const std::filesystem::path& path)
{
    auto file = Files::InputFile::open(path, Files::Links::refused);
    if (!file && Files::isUnsuitableFile(file.error()))
        return std::nullopt;
    if (!file)
        return std::unexpected(file.error());
    // Of a long one the start, which may name the skin, and the end, where the crash stands.
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
    std::string plain = withoutColours(text);
    std::string signature = signatureOf(plain);
    return {std::string(file), std::move(plain), std::move(signature)};
}

std::string CrashLog::signatureOf(std::string_view text)
{
    constexpr std::size_t maxFrames = 3;
    const auto frames = StackTrace::crashedThread(text);
    std::string signature;
    for (std::size_t i = 0; i < std::min(frames.size(), maxFrames); ++i)
        signature.append(i == 0 ? "" : " ← ").append(frames[i]);
    return signature.empty() ? abortLine(text) : signature;
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
