#pragma once

#include "SkinKit/Archive/SkinArchive.h"
#include "SkinKit/Platform/JSON.h"
#include "SkinKit/Skin.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace SkinKit {

// Everything the model knows of one skin, to be told to people or to programs.
struct SkinInfo {
    std::string name; // UTF-8
    Skin skin;
    std::int64_t entryCount = 0;   // of the container
    std::int64_t leftOutCount = 0; // of those

    // The facts of a skin that was parsed from this archive.
    static SkinInfo of(std::string_view name, const SkinArchive& archive, Skin skin);

    // "ok", or "partial" when the skin has a warning.
    std::string_view status() const;
    // One line: sheets, entries, and whether the main window is complete.
    std::string summary() const;
    // Short lines, aligned, a heading before each group. Texts of the skin are passed on as they
    // are: whoever prints them makes control characters visible.
    std::vector<std::string> lines() const;
    // All of it as one object, for programs.
    JSON json() const;
};

}
