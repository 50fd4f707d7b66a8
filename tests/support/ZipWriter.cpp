#include "tests/support/ZipWriter.h"

#include <zlib.h>

#include <stdexcept>

namespace support {

ByteBuffer deflated(ByteView data)
{
    z_stream stream{};
    constexpr int rawWindow = -15;
    if (deflateInit2(&stream, Z_BEST_COMPRESSION, Z_DEFLATED, rawWindow, 8, Z_DEFAULT_STRATEGY) !=
        Z_OK)
        throw std::runtime_error("deflateInit2");
    ByteBuffer target(deflateBound(&stream, data.size()));
    stream.next_in = const_cast<Bytef*>(data.data());
    stream.avail_in = static_cast<uInt>(data.size());
    stream.next_out = target.data();
    stream.avail_out = static_cast<uInt>(target.size());
    if (deflate(&stream, Z_FINISH) != Z_STREAM_END)
        throw std::runtime_error("deflate");
    target.resize(stream.total_out);
    deflateEnd(&stream);
    return target;
}

ZipWriter& ZipWriter::add(ZipEntry entry)
{
    const ByteBuffer stored = entry.stored        ? *entry.stored
                              : entry.method == 8 ? deflated(entry.data)
                                                  : entry.data;
    const auto crc = entry.crc.value_or(static_cast<std::uint32_t>(
        crc32(0, entry.data.data(), static_cast<uInt>(entry.data.size()))));
    const auto size =
        entry.uncompressedSize.value_or(static_cast<std::uint32_t>(entry.data.size()));
    if (!entry.sharesBytes) {
        lastOffset_ = entries_.size();
        lastStoredBytes_ = stored.size();
    }

    ByteBuffer largeNumbers;
    if (entry.hasLargeNumbers) {
        append16(largeNumbers, 1);
        append16(largeNumbers, 24);
        append64(largeNumbers, size);
        append64(largeNumbers, lastStoredBytes_);
        append64(largeNumbers, lastOffset_);
    }
    // A number of the directory, or what stands there when it is among the large ones.
    const auto number = [&](std::size_t value) {
        return entry.hasLargeNumbers ? 0xFFFFFFFF : static_cast<std::uint32_t>(value);
    };

    // The fields that an entry and its place in the directory have in common, up to their sizes.
    ByteBuffer common;
    append16(common, 20);
    append16(common, entry.flags);
    append16(common, entry.method);
    append32(common, 0x5A210000); // time and date
    append32(common, crc);

    if (!entry.sharesBytes) {
        append32(entries_, 0x04034B50);
        append(entries_, common);
        append32(entries_, static_cast<std::uint32_t>(stored.size()));
        append32(entries_, size);
        append16(entries_, static_cast<std::uint32_t>(entry.name.size()));
        append16(entries_, 0);
        append(entries_, support::bytes(entry.name));
        append(entries_, stored);
    }

    append32(directory_, 0x02014B50);
    append16(directory_, entry.madeBy);
    append(directory_, common);
    append32(directory_, number(lastStoredBytes_));
    append32(directory_, number(size));
    append16(directory_, static_cast<std::uint32_t>(entry.name.size()));
    append16(directory_, static_cast<std::uint32_t>(largeNumbers.size()));
    append16(directory_, 0);
    append16(directory_, 0);
    append16(directory_, 0);
    append32(directory_, entry.externalAttributes);
    append32(directory_, number(lastOffset_));
    append(directory_, support::bytes(entry.name));
    append(directory_, largeNumbers);
    ++count_;
    return *this;
}

ByteBuffer ZipWriter::bytes() const
{
    ByteBuffer file = entries_;
    append(file, directory_);
    append32(file, 0x06054B50);
    append32(file, 0);
    append16(file, count_);
    append16(file, count_);
    append32(file, static_cast<std::uint32_t>(directory_.size()));
    append32(file, static_cast<std::uint32_t>(entries_.size()));
    append16(file, 0);
    return file;
}

ByteBuffer ZipWriter::bytesWithLargeEnd() const
{
    ByteBuffer file = entries_;
    append(file, directory_);
    append32(file, 0x06064B50);
    append64(file, 44);
    append32(file, 0);
    append64(file, 0);
    append64(file, count_);
    append64(file, count_);
    append64(file, directory_.size());
    append64(file, entries_.size());
    append32(file, 0x07064B50);
    append32(file, 0);
    append64(file, entries_.size() + directory_.size());
    append32(file, 1);
    append32(file, 0x06054B50);
    for (int i = 0; i < 4; ++i)
        append32(file, 0xFFFFFFFF);
    append16(file, 0);
    return file;
}

}
