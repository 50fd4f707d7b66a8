#pragma once

#include "SkinKit/Base/Bytes.h"
#include "SkinKit/System/InputFile.h"

#include <cstdint>
#include <optional>
#include <system_error>

namespace SkinKit {

// Bytes to be read at any place: somebody else's memory, memory of its own, or a file. Reading
// changes nothing but what is known of errors; one thread at a time.
class ByteSource {
public:
    // The bytes must stay as they are while this lives.
    explicit ByteSource(ByteView memory) : size_(std::ssize(memory)), memory_(memory) {}
    explicit ByteSource(ByteBuffer memory);
    explicit ByteSource(Files::InputFile file) : size_(file.size()), file_(std::move(file)) {}

    std::int64_t size() const { return size_; }

    // `count` bytes from `offset` on, or nothing unless all of them are there. They are read into
    // `buffer` where they don't lie in memory yet; the view is valid while both live unchanged.
    std::optional<ByteView> read(std::int64_t offset, std::int64_t count, ByteBuffer& buffer) const;

    // Why the file could not be read where it has bytes, the last time that happened.
    std::error_code readError() const { return readError_; }

private:
    std::int64_t size_;
    ByteBuffer owned_; // a vector that moves keeps its memory where it is
    ByteView memory_;
    std::optional<Files::InputFile> file_;
    mutable std::error_code readError_;
};

}
