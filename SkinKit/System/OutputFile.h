#pragma once

#include "SkinKit/Base/Bytes.h"
#include "SkinKit/System/Descriptor.h"
#include "SkinKit/System/Files.h"

// Writing files.
namespace SkinKit::Files {

// A file to be written where it stands, never replaced: for whoever has an eye on this very file
// and not on its name. Made, or emptied, when it is opened; what is written in part only is taken
// back, so that a file which is not whole is empty.
class OutputFile {
public:
    static Result<OutputFile> open(const std::filesystem::path& path);

    int descriptor() const { return descriptor_.number(); }

    // Writes everything and closes the file.
    std::error_code write(ByteView bytes) &&;

private:
    explicit OutputFile(Descriptor descriptor) : descriptor_(std::move(descriptor)) {}

    Descriptor descriptor_;
};

// Writes `bytes` to `path`, links followed. A regular file, or one yet to be made, is replaced in
// one step, so that nobody ever sees half of it and an error leaves it as it was (nothing is forced
// to the disk: a power cut may still lose it). A new file gets the permissions that the umask
// leaves; an old one keeps its permissions, not its owner. Anything else (a device, a pipe) is
// written in place, and so is what is open already, named /dev/stdout, /dev/fd/N or the like.
std::error_code write(const std::filesystem::path& path, ByteView bytes);

}
