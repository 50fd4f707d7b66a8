#include "SkinKit/Archive/ByteSource.h"

namespace SkinKit {

ByteSource::ByteSource(ByteBuffer memory)
    : size_(std::ssize(memory)), owned_(std::move(memory)), memory_(owned_)
{
}

std::optional<ByteView> ByteSource::read(std::int64_t offset, std::int64_t count,
                                         ByteBuffer& buffer) const
{
    // Checked before any memory is asked for, so that a false number costs nothing.
    if (offset < 0 || count < 0 || count > size_ || offset > size_ - count)
        return std::nullopt;
    if (!file_)
        return memory_.subspan(static_cast<std::size_t>(offset), static_cast<std::size_t>(count));
    buffer.resize(static_cast<std::size_t>(count));
    if (const auto error = file_->readAt(offset, buffer)) {
        readError_ = error;
        return std::nullopt;
    }
    return buffer;
}

}
