#include "SkinKit/Platform/JSON.h"
#include "fuzz/Fuzzing.h"

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    using namespace SkinKit;
    if (const auto json = JSON::parse(asText({data, size})))
        fuzzing::require(JSON::parse(json->text()) == json && JSON::parse(json->text(2)) == json);
    return 0;
}
