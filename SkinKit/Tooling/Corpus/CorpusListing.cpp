#include "SkinKit/Tooling/Corpus/CorpusListing.h"

#include "SkinKit/Archive/SkinArchive.h"
#include "SkinKit/Base/Encodings.h"
#include "SkinKit/Base/JSON.h"
#include "SkinKit/Base/Unicode.h"
#include "SkinKit/System/Folder.h"
#include "SkinKit/System/InputFile.h"

#include <algorithm>
#include <array>
#include <functional>
#include <limits>
#include <map>
#include <set>
#include <unordered_set>
#include <utility>

namespace SkinKit {
namespace {

namespace fs = std::filesystem;

std::string asUTF8(const fs::path& path)
{
    return Unicode::toValidUTF8(asBytes(path.native()));
}

// Replaces each path by its text. Two that read alike are told apart by a number, as "a (2).wsz".
void giveTexts(std::vector<CorpusFile>& files)
{
    std::set<std::string> taken;
    std::map<std::string, int> nextNumber; // of a text that was taken
    for (const CorpusFile& file : files)
        if (asUTF8(file.path) == file.path)
            taken.insert(file.path);
    for (CorpusFile& file : files) {
        fs::path text = asUTF8(file.path);
        if (text == file.path)
            continue;
        const std::string stem = text.stem();
        const std::string extension = text.extension();
        int& number = nextNumber.try_emplace(text, 2).first->second;
        while (!taken.insert(text).second)
            text.replace_filename(stem + " (" + std::to_string(number++) + ")" + extension);
        file.pathBytes = std::exchange(file.path, text);
    }
}

JSON toJSON(const CorpusFile& file)
{
    JSON::Object object{
        {"path", file.path}
    };
    if (file.md5)
        object.emplace("md5", *file.md5);
    if (file.size)
        object.emplace("size", *file.size);
    if (file.pathBytes)
        object.emplace("pathBytes", Hex::encoded(asBytes(*file.pathBytes)));
    return object;
}

// Takes the member of that name, which may be missing, but not of another type.
template <typename T, typename Stored>
bool take(const JSONNode& json, std::string_view key, std::optional<Stored>& value)
{
    const T* const found = json.member<T>(key);
    if (found)
        value.emplace(*found);
    return found || !json.member(key);
}

std::optional<CorpusFile> fromJSON(const JSONNode& json)
{
    std::optional<std::string> path;
    std::optional<std::string> hex;
    CorpusFile file;
    if (!take<std::string_view>(json, "path", path) || !path ||
        !take<std::string_view>(json, "md5", file.md5) ||
        !take<std::int64_t>(json, "size", file.size) ||
        !take<std::string_view>(json, "pathBytes", hex))
        return std::nullopt;
    file.path = std::move(*path);
    file.pathBytes = hex ? Hex::decoded(*hex) : std::nullopt;
    return hex && !file.pathBytes ? std::nullopt : std::optional(std::move(file));
}

}

std::string CorpusFile::name() const
{
    return fs::path(path).stem();
}

namespace CorpusListing {
namespace {

// Gives the path of every skin, below the folder, and its size to `take`; the folders that can't be
// read.
Files::Result<std::vector<UnreadFolder>>
forEachSkin(const fs::path& folder, Files::Details details,
            const std::function<void(std::string path, std::int64_t size)>& take)
{
    constexpr auto all = std::numeric_limits<std::int64_t>::max();
    std::error_code error;
    const fs::path root = fs::canonical(folder, error);
    if (error)
        return std::unexpected(error);

    std::vector<UnreadFolder> unreadFolders;
    std::vector<std::string> folders{""}; // still to be read, below the root
    while (!folders.empty()) {
        const std::string below = std::move(folders.back());
        folders.pop_back();
        const auto entries = Files::list(root / below, all, details);
        if (!entries && below.empty())
            return std::unexpected(entries.error());
        if (!entries) {
            unreadFolders.push_back({below, entries.error()});
            continue;
        }
        for (const auto& entry : *entries) {
            if (entry.name.starts_with('.'))
                continue;
            auto path = below.empty() ? entry.name : below + "/" + entry.name;
            if (entry.isFolder)
                folders.push_back(std::move(path));
            else if (entry.isRegularFile && SkinArchive::hasSkinName(entry.name))
                take(std::move(path), entry.size);
        }
    }
    return unreadFolders;
}

}

Files::Result<Scan> scan(const fs::path& folder)
{
    Scan scan;
    auto unreadFolders =
        forEachSkin(folder, Files::Details::all, [&](std::string path, std::int64_t size) {
            scan.files.push_back({.path = std::move(path), .size = size});
        });
    if (!unreadFolders)
        return std::unexpected(unreadFolders.error());
    scan.unreadFolders = std::move(*unreadFolders);
    std::ranges::sort(scan.files, {}, &CorpusFile::path);
    giveTexts(scan.files);
    return scan;
}

Files::Result<NewFiles> findNew(const fs::path& folder, const std::vector<CorpusFile>& listed)
{
    std::unordered_set<std::string_view> known;
    known.reserve(listed.size());
    for (const CorpusFile& file : listed)
        known.insert(file.pathBytes ? *file.pathBytes : file.path);

    NewFiles found;
    auto unreadFolders =
        forEachSkin(folder, Files::Details::kinds, [&](const std::string& path, std::int64_t) {
            found.count += known.contains(path) ? 0 : 1;
        });
    if (!unreadFolders)
        return std::unexpected(unreadFolders.error());
    found.unreadFolders = std::move(*unreadFolders);
    return found;
}

std::optional<std::string> md5Hex(const fs::path& path)
{
    auto file = Files::InputFile::open(path, Files::Links::followed);
    if (!file)
        return std::nullopt;
    MD5 digest;
    std::array<std::uint8_t, 1 << 16> room;
    while (true) {
        const auto count = file->readNext(room);
        if (!count)
            return std::nullopt;
        digest.add(std::span(room).first(*count));
        if (*count < room.size())
            return digest.hexDigest();
    }
}

std::string json(const std::vector<CorpusFile>& files)
{
    std::string text = "[";
    for (const CorpusFile& file : files)
        text += (text.size() == 1 ? "\n" : ",\n") + toJSON(file).text();
    return text + "\n]\n";
}

std::optional<std::vector<CorpusFile>> parse(std::string_view json)
{
    const auto text = JSONText::read(json);
    if (!text || !text->root().isArray())
        return std::nullopt;
    std::vector<CorpusFile> files;
    for (const JSONNode& element : text->root()) {
        auto file = fromJSON(element);
        if (!file)
            return std::nullopt;
        files.push_back(std::move(*file));
    }
    return files;
}

Files::Result<std::optional<std::vector<CorpusFile>>> read(const fs::path& file)
{
    constexpr std::int64_t maxBytes = std::int64_t{1} << 32;
    const auto bytes = Files::read(file, maxBytes);
    if (!bytes && bytes.error() != std::errc::no_such_file_or_directory)
        return std::unexpected(bytes.error());
    return bytes ? parse(asText(*bytes)) : std::nullopt;
}

}

}
