#pragma once

#include "SkinKit/Base/Bytes.h"

#include <memory>
#include <string>

struct MD5Context;

namespace SkinKit {

// The MD5 message digest (RFC 1321): a fingerprint that tells files apart; it protects nothing.
class MD5 {
public:
    MD5();
    ~MD5();

    // The next bytes of the message.
    void add(ByteView bytes);
    // The digest of all of them, as 32 lower-case hexadecimal digits. Once, at the end.
    std::string hexDigest();

private:
    std::unique_ptr<MD5Context> context_;
};

}
