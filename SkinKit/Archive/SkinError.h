#pragma once

#include <string>
#include <utility>

namespace SkinKit {

// Why a skin was refused. Everything else that is wrong with one becomes a note in the Skin.
class SkinError {
public:
    // No archive; a modern skin; an archive without a single sheet that can be decoded.
    enum class Kind { unreadableArchive, modernSkin, noBitmaps };

    // `detail` is the archive reader's or the system's own message.
    static SkinError unreadableArchive(std::string detail);
    // Loading used up the time of its limits; an unreadable archive, too.
    static SkinError takesTooLong();
    // Without a detail.
    static SkinError modernSkin();
    static SkinError noBitmaps();

    Kind kind() const { return kind_; }
    // What the user is told; the text is fixed.
    std::string description() const;

    bool operator==(const SkinError&) const = default;

private:
    SkinError(Kind kind, std::string detail) : kind_(kind), detail_(std::move(detail)) {}

    Kind kind_;
    std::string detail_;
};

}
