#include "SkinKit/Tooling/CommandLine/OutputCheck.h"

#include "SkinKit/Archive/SkinArchive.h"
#include "SkinKit/System/Files.h"

#include <system_error>
#include <utility>

namespace SkinKit::OutputCheck {
namespace {

namespace fs = std::filesystem;

// The file that writing to `path` makes or changes, links followed, in one spelling for all names
// of it.
fs::path written(const fs::path& path)
{
    std::error_code error;
    const auto whole = fs::absolute(path, error);
    const auto target = Files::followLinks(whole).value_or(whole);
    return fs::weakly_canonical(target.parent_path(), error) / target.filename();
}

// A file has one folder and one name, unless it has hard links.
bool hasAnotherName(const fs::path& path)
{
    std::error_code error;
    return fs::is_regular_file(path, error) && fs::hard_link_count(path, error) > 1;
}

bool isReadFrom(const Input& folder, const fs::path& output)
{
    std::error_code error;
    const auto root = fs::canonical(folder.path, error);
    if (error || !fs::is_directory(root, error))
        return false;
    const auto below = written(output).lexically_relative(root);
    if (!below.empty() && *below.begin() != ".." && folder.isRead(below))
        return true;
    if (!hasAnotherName(output))
        return false;
    const auto skipped = fs::directory_options::skip_permission_denied;
    for (fs::recursive_directory_iterator entry(root, skipped, error), end; entry != end && !error;
         entry.increment(error))
        if (folder.isRead(entry->path().lexically_relative(root)) && isSame(entry->path(), output))
            return true;
    return false;
}

std::optional<std::string> conflict(const Input& input, const fs::path& output)
{
    if (isSame(input.path, output))
        return "is " + std::string(input.name) + " itself";
    if (input.isRead && isReadFrom(input, output))
        return "would be read as " + std::string(input.part);
    return std::nullopt;
}

bool isDirect(const fs::path& below)
{
    return !below.has_parent_path();
}

}

Input skin(fs::path path)
{
    return {std::move(path), "the skin", "a file of the skin", [](const fs::path& below) {
                return isDirect(below) && SkinArchive::readsFromFolder(below.string());
            }};
}

Input collection(fs::path path)
{
    return {std::move(path), "the collection", "a skin of the collection",
            SkinArchive::hasSkinName};
}

Input crashLogs(fs::path path)
{
    return {std::move(path), "the folder of crash logs", "a crash log", isDirect};
}

std::optional<Conflict> find(const std::vector<Input>& inputs, const std::vector<fs::path>& outputs)
{
    for (const auto& output : outputs)
        for (const auto& input : inputs)
            if (auto text = conflict(input, output))
                return Conflict{output, std::move(*text)};
    return std::nullopt;
}

bool isSame(const fs::path& a, const fs::path& b)
{
    std::error_code error;
    const bool areEquivalent = fs::equivalent(a, b, error);
    return areEquivalent || (!fs::exists(a, error) && written(a) == written(b));
}

}
