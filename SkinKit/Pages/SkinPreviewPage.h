#pragma once

#include "SkinKit/Archive/SkinArchive.h"
#include "SkinKit/Base/Bytes.h"
#include "SkinKit/Skin.h"

#include <expected>
#include <filesystem>
#include <functional>
#include <map>
#include <optional>
#include <string>

namespace SkinKit {

// One skin as a small HTML page for a file-preview window: its name, the main window at twice its
// size, the parser's warnings and the read-me text. The picture travels beside the page, which
// addresses it as "cid:main"; PreviewDocument puts both into one file. Whatever a skin's texts hold
// is shown as text. Keeps no state, so pages may be made on any number of threads.
struct SkinPreviewPage {
    std::string title; // the name of the skin's file or folder without its extension; UTF-8
    std::string html;  // the whole page, UTF-8 with line feeds
    // "main" is the PNG file of the main window at four times its size; a failure page has none.
    std::map<std::string, ByteBuffer, std::less<>> attachments;

    bool operator==(const SkinPreviewPage&) const = default;

    // The page of the skin at `path`, archive or folder. Never fails: a skin that can't be shown
    // gives a page that says so in one sentence.
    static SkinPreviewPage make(const std::filesystem::path& path,
                                const SkinArchive::Limits& limits = {});

    // The two pages that `make` chooses from: that of a skin which is loaded already, or why there
    // is none, and the one that gives a reason. `path` only gives the title.
    static std::expected<SkinPreviewPage, std::string>
    of(const std::filesystem::path& path, const SkinArchive& archive, const Skin& skin);
    static SkinPreviewPage failure(const std::filesystem::path& path, const std::string& reason);

    // The text to show as a skin's read-me, at most some 20 KB of it; nothing when the skin has
    // none or it can't be decoded.
    static std::optional<std::string> readme(const SkinArchive& archive);
};

}
