#include "SkinKit/Graphics/PNGCodec.h"

#include "SkinKit/Base/Check.h"

#include <libdeflate.h>
#include <png.h>

#include <algorithm>
#include <csetjmp>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <string_view>
#include <utility>
#include <vector>

namespace SkinKit::PNGCodec {
namespace {

constexpr std::size_t signatureBytes = 8;
constexpr int bytesPerPixel = 4;
constexpr png_alloc_size_t largestChunkBytes = 1 << 20; // of those that need memory of their own

// libpng reports an error by jumping out of its call. Everything a call leaves behind is therefore
// held by these structs, which the jump does not unwind, and each function that makes such calls
// has nothing of its own to destroy.
void onError(png_structp png, png_const_charp)
{
    png_longjmp(png, 1);
}
void onWarning(png_structp, png_const_charp) {}

// A picture for which there is no memory is not a damaged one.
png_voidp allocate(png_structp, png_alloc_size_t size)
{
    void* const memory = std::malloc(size);
    checkMemory(memory != nullptr, "no memory for a PNG file");
    return memory;
}

struct Reader {
    Reader(ByteView source, LoadMeter& loadMeter) : rest(source), meter(loadMeter)
    {
        png = png_create_read_struct_2(PNG_LIBPNG_VER_STRING, nullptr, onError, onWarning, nullptr,
                                       allocate, nullptr);
        info = png ? png_create_info_struct(png) : nullptr;
        checkMemory(info != nullptr, "no memory for the PNG reader");
    }
    ~Reader() { png_destroy_read_struct(&png, &info, nullptr); }
    Reader(const Reader&) = delete;
    Reader& operator=(const Reader&) = delete;

    static void read(png_structp png, png_bytep target, std::size_t count)
    {
        auto& reader = *static_cast<Reader*>(png_get_io_ptr(png));
        auto& rest = reader.rest;
        if (count > rest.size())
            png_error(png, "truncated");
        if (!reader.meter.hasTimeAfter(static_cast<std::int64_t>(count)))
            png_error(png, "out of time");
        std::memcpy(target, rest.data(), count);
        rest = rest.subspan(count);
    }

    png_structp png = nullptr;
    png_infop info = nullptr;
    ByteView rest;
    LoadMeter& meter;
    Size size;
    bool hasAlpha = false;
};

bool isPNG(ByteView bytes)
{
    return bytes.size() >= signatureBytes && png_sig_cmp(bytes.data(), 0, signatureBytes) == 0;
}

// Reads up to the first row and asks for 8-bit RGBA rows.
bool readHeader(Reader& reader, const Limits& limits)
{
    if (setjmp(png_jmpbuf(reader.png)))
        return false;
    png_set_read_fn(reader.png, &reader, Reader::read);
    png_set_user_limits(reader.png, static_cast<png_uint_32>(limits.maxSide),
                        static_cast<png_uint_32>(limits.maxSide));
    // Text, profiles and the like are passed over unread; inflating them is how a small file would
    // take gigabytes.
    png_set_keep_unknown_chunks(reader.png, PNG_HANDLE_CHUNK_NEVER, nullptr, -1);
    png_set_chunk_malloc_max(reader.png, largestChunkBytes);
    png_read_info(reader.png, reader.info);

    const auto width = png_get_image_width(reader.png, reader.info);
    const auto height = png_get_image_height(reader.png, reader.info);
    if (static_cast<std::int64_t>(width) * static_cast<std::int64_t>(height) > limits.maxPixels)
        return false;
    reader.size = {static_cast<int>(width), static_cast<int>(height)};
    reader.hasAlpha = (png_get_color_type(reader.png, reader.info) & PNG_COLOR_MASK_ALPHA) != 0 ||
                      png_get_valid(reader.png, reader.info, PNG_INFO_tRNS) != 0;

    png_set_strip_16(reader.png);
    png_set_expand(reader.png);
    png_set_gray_to_rgb(reader.png);
    png_set_add_alpha(reader.png, 0xFF, PNG_FILLER_AFTER);
    png_set_interlace_handling(reader.png);
    png_read_update_info(reader.png, reader.info);
    return png_get_rowbytes(reader.png, reader.info) ==
           static_cast<std::size_t>(reader.size.width) * bytesPerPixel;
}

bool readRows(Reader& reader, png_bytepp rows)
{
    if (setjmp(png_jmpbuf(reader.png)))
        return false;
    png_read_image(reader.png, rows);
    png_read_end(reader.png, nullptr);
    return true;
}

// Premultiplies in place and tells whether every pixel was opaque.
Image::Alpha premultiplyAll(PixelBuffer& pixels)
{
    bool opaque = true;
    for (Pixel& pixel : std::span(pixels.data(), pixels.count())) {
        if (alphaOf(pixel) == 255)
            continue;
        opaque = false;
        pixel = premultiply(pixel);
    }
    return opaque ? Image::Alpha::opaque : Image::Alpha::any;
}

// The writing side: libpng frames the chunks, into `bytes`.
struct Writer {
    Writer()
    {
        png = png_create_write_struct_2(PNG_LIBPNG_VER_STRING, nullptr, onError, onWarning, nullptr,
                                        allocate, nullptr);
        info = png ? png_create_info_struct(png) : nullptr;
        checkMemory(info != nullptr, "no memory for the PNG writer");
    }
    ~Writer() { png_destroy_write_struct(&png, &info); }
    Writer(const Writer&) = delete;
    Writer& operator=(const Writer&) = delete;

    static void write(png_structp png, png_bytep source, std::size_t count)
    {
        auto& bytes = static_cast<Writer*>(png_get_io_ptr(png))->bytes;
        bytes.insert(bytes.end(), source, source + count);
    }
    static void flush(png_structp) {}

    png_structp png = nullptr;
    png_infop info = nullptr;
    ByteBuffer bytes;
};

// As libpng wants it, which only reads what it points to.
png_text plainText(const Text& text)
{
    png_text result{};
    result.compression = PNG_TEXT_COMPRESSION_NONE;
    result.key = const_cast<png_charp>(text.keyword.c_str());
    result.text = const_cast<png_charp>(text.text.c_str());
    result.text_length = text.text.size();
    return result;
}

bool writeFile(Writer& writer, Size size, std::span<const png_text> texts, ByteView compressedRows)
{
    if (setjmp(png_jmpbuf(writer.png)))
        return false;
    png_set_write_fn(writer.png, &writer, Writer::write, Writer::flush);
    png_set_user_limits(writer.png, maxEncodedSide, maxEncodedSide);
    png_set_IHDR(writer.png, writer.info, static_cast<png_uint_32>(size.width),
                 static_cast<png_uint_32>(size.height), 8, PNG_COLOR_TYPE_RGB_ALPHA,
                 PNG_INTERLACE_NONE, PNG_COMPRESSION_TYPE_DEFAULT, PNG_FILTER_TYPE_DEFAULT);
    if (!texts.empty())
        png_set_text(writer.png, writer.info, texts.data(), static_cast<int>(texts.size()));
    png_write_info(writer.png, writer.info);
    constexpr png_byte dataChunk[] = "IDAT";
    constexpr png_byte endChunk[] = "IEND";
    png_write_chunk(writer.png, dataChunk, compressedRows.data(), compressedRows.size());
    png_write_chunk(writer.png, endChunk, nullptr, 0);
    return true;
}

// Whether every pixel is opaque or fully transparent, and so the same in straight alpha.
bool isPlain(std::span<const Pixel> row)
{
    unsigned exceptions = 0; // summed without a branch, so that the compiler takes many at a time
    for (const Pixel pixel : row)
        exceptions |= (alphaOf(pixel) + 1) & 0xFE;
    return exceptions == 0;
}

// The row in straight alpha, as PNG wants it; `scratch` holds it where that differs.
const std::uint8_t* straightBytes(std::span<const Pixel> row, bool opaque, Pixel* scratch)
{
    if (opaque || isPlain(row))
        return reinterpret_cast<const std::uint8_t*>(row.data());
    std::ranges::transform(row, scratch, unpremultiply);
    return reinterpret_cast<const std::uint8_t*>(scratch);
}

// The first byte of a row says how the others were filtered.
enum Filter : std::uint8_t { none = 0, up = 2 };

// The rows as they go into the compressor, each less the row above it, so that a row that repeats
// it, as all but one in `scale` do, becomes zeros. Choosing a filter row by row, or Paeth for all,
// makes the file a few per cent smaller and takes longer than that is worth.
void filterRows(const Image& image, ByteBuffer& filtered)
{
    const auto width = static_cast<std::size_t>(image.width());
    const std::size_t count = width * bytesPerPixel;
    filtered.resize((1 + count) * static_cast<std::size_t>(image.height()));
    std::vector<Pixel> scratch(image.isOpaque() ? 0 : 2 * width); // this row and the one above
    std::uint8_t* target = filtered.data();
    const std::uint8_t* above = nullptr;
    for (int y = 0; y < image.height(); ++y) {
        Pixel* const ours = scratch.data() + (y % 2 == 0 ? 0 : scratch.size() / 2);
        const std::uint8_t* const row = straightBytes(image.row(y), image.isOpaque(), ours);
        *target++ = above ? up : none;
        if (above)
            std::transform(row, row + count, above, target, [](unsigned byte, unsigned upper) {
                return static_cast<std::uint8_t>(byte - upper);
            });
        else
            std::memcpy(target, row, count);
        target += count;
        above = row;
    }
}

struct FreeCompressor {
    void operator()(libdeflate_compressor* c) const { libdeflate_free_compressor(c); }
};

ByteBuffer compressed(ByteView bytes)
{
    constexpr int level = 3;
    thread_local const std::unique_ptr<libdeflate_compressor, FreeCompressor> compressor(
        libdeflate_alloc_compressor(level));
    checkMemory(compressor != nullptr, "no memory for a compressor");
    ByteBuffer target(libdeflate_zlib_compress_bound(compressor.get(), bytes.size()));
    target.resize(libdeflate_zlib_compress(compressor.get(), bytes.data(), bytes.size(),
                                           target.data(), target.size()));
    return target;
}

// The filtered and compressed rows. A thread keeps the memory of the filtered ones for its next
// picture, within reason: to have that much anew costs a fifth of the whole encoding.
ByteBuffer compressedRows(const Image& image)
{
    constexpr std::size_t maxKept = 8 << 20;
    thread_local ByteBuffer filtered;
    filterRows(image, filtered);
    ByteBuffer rows = compressed(filtered);
    if (filtered.capacity() > maxKept)
        filtered = {};
    return rows;
}

}

std::optional<Size> size(ByteView bytes)
{
    constexpr std::string_view firstChunk = "IHDR"; // its length before it, the sides behind it
    constexpr std::size_t widthPlace = 16;
    constexpr std::size_t heightPlace = 20;
    if (!isPNG(bytes) || bytes.size() < heightPlace + 4 ||
        !asText(bytes.subspan(signatureBytes + 4)).starts_with(firstChunk))
        return std::nullopt;
    const auto width = png_get_uint_32(bytes.data() + widthPlace);
    const auto height = png_get_uint_32(bytes.data() + heightPlace);
    if (width == 0 || width > PNG_UINT_31_MAX || height == 0 || height > PNG_UINT_31_MAX)
        return std::nullopt;
    return Size{static_cast<int>(width), static_cast<int>(height)};
}

std::optional<Image> decode(ByteView bytes, const Limits& limits)
{
    LoadMeter meter;
    return decode(bytes, limits, meter);
}

std::optional<Image> decode(ByteView bytes, const Limits& limits, LoadMeter& meter)
{
    // libpng would skip an unknown chunk in front of the header.
    if (!size(bytes))
        return std::nullopt;
    Reader reader(bytes, meter);
    if (!readHeader(reader, limits))
        return std::nullopt;

    auto pixels = PixelBuffer::uninitialized(reader.size);
    std::vector<png_bytep> rows;
    rows.reserve(static_cast<std::size_t>(reader.size.height));
    for (int y = 0; y < reader.size.height; ++y)
        rows.push_back(reinterpret_cast<png_bytep>(pixels.row(y).data()));
    if (!readRows(reader, rows.data()))
        return std::nullopt;
    const auto alpha = reader.hasAlpha ? premultiplyAll(pixels) : Image::Alpha::opaque;
    return Image(std::move(pixels), alpha);
}

std::optional<ByteBuffer> encode(const Image& image, std::span<const Text> texts)
{
    if (image.width() > maxEncodedSide || image.height() > maxEncodedSide)
        return std::nullopt;
    std::vector<png_text> remarks;
    for (const Text& text : texts)
        remarks.push_back(plainText(text));
    const ByteBuffer rows = compressedRows(image);
    Writer writer;
    writer.bytes.reserve(rows.size() + 64);
    if (!writeFile(writer, image.size(), remarks, rows))
        return std::nullopt;
    return std::move(writer.bytes);
}

}
