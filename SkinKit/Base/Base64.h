#pragma once

#include "SkinKit/Base/Bytes.h"

#include <string>

// Bytes as plain letters, for documents that hold pictures as text.
namespace SkinKit::Base64 {

// Four characters for every three bytes, the last ones padded with "=".
std::string encoded(ByteView bytes);

// The same in lines of at most 76 characters, each ended by "\r\n", as mail wants it.
std::string encodedLines(ByteView bytes);

}
