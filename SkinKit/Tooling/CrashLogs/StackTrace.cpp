#include "SkinKit/Tooling/CrashLogs/StackTrace.h"

#include "SkinKit/Base/TextLines.h"
#include "SkinKit/Base/Unicode.h"

#include <algorithm>
#include <cstddef>
#include <optional>
#include <span>
#include <utility>

namespace SkinKit::StackTrace {
namespace {

constexpr std::string_view digits = "0123456789";

// The frames between a failed check and the end of the process.
constexpr std::string_view abortFunctions[] = {
    "__pthread_kill_implementation",
    "__pthread_kill_internal",
    "__pthread_kill",
    "pthread_kill",
    "__GI___pthread_kill",
    "__GI_raise",
    "raise",
    "__GI_abort",
    "abort",
    "__libc_message",
    "__libc_message_impl",
    "__libc_fatal",
    "malloc_printerr",
    "__fortify_fail",
    "__GI___fortify_fail",
    "__stack_chk_fail",
    "__assert_fail_base",
    "__assert_fail",
    "__GI___assert_fail",
};

// Before them, those between an exception that nobody catches and the abort; without debugging
// symbols most have no names.
constexpr std::string_view terminateFunctions[] = {
    "__gnu_cxx::__verbose_terminate_handler",
    "__cxxabiv1::__terminate",
    "std::terminate",
    "__cxa_throw",
    "__cxa_rethrow",
    "libstdc++.so.6",
};

bool contains(std::span<const std::string_view> names, std::string_view name)
{
    return std::ranges::find(names, name) != names.end();
}

void skipBlanks(std::string_view& text)
{
    text.remove_prefix(std::min(text.find_first_not_of(" \t"), text.size()));
}

// Takes all of the given characters off the front.
std::string_view take(std::string_view& text, std::string_view characters)
{
    const auto taken = text.substr(0, text.find_first_not_of(characters));
    text.remove_prefix(taken.size());
    return taken;
}

// What stands behind "#N " in a frame's line.
std::optional<std::string_view> frameText(std::string_view line)
{
    skipBlanks(line);
    if (!line.starts_with('#'))
        return std::nullopt;
    line.remove_prefix(1);
    if (take(line, digits).empty() || !line.starts_with(' '))
        return std::nullopt;
    skipBlanks(line);
    return line;
}

bool isInnermost(std::string_view line)
{
    skipBlanks(line);
    return line.starts_with("#0 ");
}

// Where the parenthesis that opens at `open` is closed.
std::size_t closing(std::string_view text, std::size_t open)
{
    int depth = 0;
    for (std::size_t i = open; i < text.size(); ++i) {
        if (text[i] == '(')
            ++depth;
        else if (text[i] == ')' && --depth == 0)
            return i;
    }
    return text.npos;
}

// The function's name without its arguments and its place: up to the first parenthesis that is
// part neither of the name ("operator()", "(anonymous namespace)::f", "main()::{lambda()#1}") nor
// of a template's argument.
std::string_view functionName(std::string_view text)
{
    constexpr std::string_view operatorWord = "operator";
    constexpr std::string_view operatorSigns = "<>=!+-*/%^&|~,[]";
    int depth = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const auto rest = text.substr(i);
        if (rest.starts_with(operatorWord)) {
            i += operatorWord.size();
            if (text.substr(i).starts_with("()"))
                i += 2;
            else
                i = std::min(text.find_first_not_of(operatorSigns, i), text.size());
            --i;
        } else if (rest.starts_with('<') || rest.starts_with('{')) {
            ++depth;
        } else if (rest.starts_with('>') || rest.starts_with('}')) {
            depth = std::max(depth - 1, 0);
        } else if (depth == 0 && rest.starts_with(" /")) {
            return text.substr(0, i);
        } else if (depth == 0 && rest.starts_with('(')) {
            const auto end = closing(text, i);
            if (end == text.npos || !text.substr(end + 1).starts_with("::"))
                return Unicode::trimmed(text.substr(0, i));
            i = end;
        }
    }
    return text.substr(0, text.find(' '));
}

// The file's name in "… from /lib/libc.so.6" and "… (/usr/bin/skintool+0x10fe3c) (BuildId: 4a74)".
std::string_view moduleName(std::string_view text)
{
    constexpr std::string_view from = " from ";
    if (const auto found = text.rfind(from); found != text.npos) {
        text.remove_prefix(found + from.size());
    } else if (text.starts_with('(')) {
        text.remove_prefix(1);
        text = text.substr(0, text.find(')'));
    } else {
        return {};
    }
    const auto slash = text.rfind('/');
    return slash == text.npos ? text : text.substr(slash + 1);
}

std::string frameName(std::string_view text)
{
    if (std::string_view address = text; address.starts_with("0x")) {
        address.remove_prefix(2);
        take(address, "0123456789abcdefABCDEF");
        skipBlanks(address);
        text = address.starts_with("in ") ? address.substr(3) : address;
    }
    constexpr std::string_view unknown = "??";
    const auto name = functionName(text);
    if (!name.empty() && name != unknown)
        return std::string(name);
    const auto module = moduleName(text);
    return std::string(module.empty() ? unknown : module);
}

struct Stack {
    std::string_view thread; // gdb's number for it; empty without a heading
    std::vector<std::string> frames;
};

// Goes through a log line by line.
class Reader {
public:
    void read(std::string_view line)
    {
        constexpr std::string_view current = "[Current thread is ";
        if (const auto frame = frameText(line)) {
            readFrame(*frame, isInnermost(line));
        } else if (line.contains("ERROR: AddressSanitizer")) {
            // The stacks of warnings before it are not of the crash.
            if (!std::exchange(hasError_, true))
                stacks_.clear();
        } else if (line.starts_with("Thread ")) {
            readThread(line.substr(7));
        } else if (line.starts_with(current)) {
            line.remove_prefix(current.size());
            currentThread_ = take(line, digits);
        }
    }

    std::vector<std::string> crashedThread()
    {
        const auto first = findCrashed();
        if (first == stacks_.end())
            return {};
        // Of a core file gdb shows the innermost frame first, and all of them when it is asked to.
        const Stack* whole = &*first;
        for (const Stack& stack : stacks_)
            if (stack.frames.front() == first->frames.front() &&
                stack.frames.size() > whole->frames.size())
                whole = &stack;
        return withoutAbort(whole->frames);
    }

private:
    void readFrame(std::string_view frame, bool isInnermost)
    {
        // Enough to see past the abort functions.
        constexpr std::size_t maxFrames = 24;
        if (isInnermost)
            stacks_.push_back({std::exchange(heading_, {}), {}});
        if (stacks_.empty())
            return;
        auto& frames = stacks_.back().frames;
        if (frame.starts_with("<signal handler called>"))
            frames.clear();
        else if (frames.size() < maxFrames)
            frames.push_back(frameName(frame));
    }

    // `Thread 2 "name" received signal SIGSEGV` or `Thread 2 (Thread 0x7f… (LWP 15868)):`.
    void readThread(std::string_view line)
    {
        const auto number = take(line, digits);
        if (line.starts_with(" ("))
            heading_ = number;
        else if (line.contains(" received signal "))
            currentThread_ = number;
    }

    std::vector<Stack>::const_iterator findCrashed()
    {
        // One without frames broke off in a signal handler.
        std::erase_if(stacks_, [](const Stack& stack) { return stack.frames.empty(); });
        const auto isCrashed = [&](const Stack& stack) {
            return stack.thread.empty() || stack.thread == currentThread_;
        };
        const auto found = std::ranges::find_if(std::as_const(stacks_), isCrashed);
        return found == stacks_.end() ? stacks_.begin() : found;
    }

    static std::vector<std::string> withoutAbort(const std::vector<std::string>& frames)
    {
        auto first = std::ranges::find_if_not(
            frames, [](std::string_view name) { return contains(abortFunctions, name); });
        if (first != frames.begin())
            first = std::find_if_not(first, frames.end(), [](std::string_view name) {
                return contains(terminateFunctions, name);
            });
        return first == frames.end() ? frames : std::vector(first, frames.end());
    }

    std::vector<Stack> stacks_;
    bool hasError_ = false;
    std::string_view heading_;             // the thread whose stack comes next
    std::string_view currentThread_ = "1"; // as in a core file, or a process that was attached to
};

}

bool isFrame(std::string_view line)
{
    return frameText(line).has_value();
}

std::vector<std::string> crashedThread(std::string_view text)
{
    Reader reader;
    while (true) {
        const auto line = takeLine(text);
        if (line.empty())
            return reader.crashedThread();
        reader.read(line);
    }
}

}
