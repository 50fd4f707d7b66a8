#include "SkinKit/Base/MD5.h"

#include <md5.h>

namespace SkinKit {

MD5::MD5() : context_(std::make_unique<MD5Context>())
{
    MD5Init(context_.get());
}

MD5::~MD5() = default;

void MD5::add(ByteView bytes)
{
    MD5Update(context_.get(), bytes.data(), bytes.size());
}

std::string MD5::hexDigest()
{
    char digits[MD5_DIGEST_STRING_LENGTH];
    return MD5End(context_.get(), digits);
}

}
