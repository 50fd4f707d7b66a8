#pragma once

#include "VelmarThumbnail/ThumbnailerOptions.h"

#include <filesystem>
#include <optional>
#include <string>

// What the program velmar-thumbnailer does.
namespace VelmarThumbnail::Thumbnailer {

// Why there is no thumbnail, and which file is to blame.
struct Failure {
    std::filesystem::path file;
    std::string text;
};

// Writes the thumbnail of a skin into a file, in place. A failure leaves that file empty, or as it
// was when the skin could not even be opened. For a program's main: from when the skin is open, the
// process is locked in (see SkinKit/System/Sandbox.h) and can't do anything else any more.
//
// An archive is locked in with the process before a byte of it is looked at, and may still be read.
// The files of a folder have to be opened one by one, so up to there the process still can: by then
// it has read their names, lower-cased them to choose the wanted ones, and copied those in; nothing
// has looked at what is in them.
std::optional<Failure> run(const ThumbnailerOptions& options);

}
