#include "SkinKit/Graphics/PNGWriter.h"

#include "SkinKit/Graphics/BMPDecoder.h"
#include "SkinKit/System/InputFile.h"
#include "SkinKit/System/OutputFile.h"

#include <string>

namespace SkinKit::PNGWriter {
namespace {

// What reading one picture back may cost.
constexpr std::int64_t maxFileBytes = std::int64_t{1} << 30;
constexpr PNGCodec::Limits readLimits{maxSide, std::int64_t{1} << 28};

class Category : public std::error_category {
public:
    const char* name() const noexcept override { return "PNGWriter"; }
    std::string message(int) const override { return "could not encode PNG"; }
};

}

std::error_code make_error_code(WriteError error)
{
    static const Category category;
    return {static_cast<int>(error), category};
}

std::optional<ByteBuffer> data(const Image& image)
{
    return PNGCodec::encode(image);
}

std::error_code write(const Image& image, const std::filesystem::path& file)
{
    const auto bytes = data(image);
    return bytes ? Files::write(file, *bytes) : WriteError::couldNotEncode;
}

std::optional<Image> read(const std::filesystem::path& file)
{
    const auto bytes = Files::read(file, maxFileBytes);
    if (!bytes)
        return std::nullopt;
    auto image = PNGCodec::decode(*bytes, readLimits);
    return image ? image : BMPDecoder::decode(*bytes);
}

}
