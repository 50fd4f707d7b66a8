#pragma once

#include "SkinKit/Base/Bytes.h"

#include <string>
#include <string_view>
#include <vector>

// The project's own skins, drawn by code: the same bytes on every machine.
namespace samples {

struct SkinFile {
    std::string name; // as it stands in the archive, folders included
    SkinKit::ByteBuffer content;
};

struct SampleSkin {
    std::string_view name; // of the file, without ".wsz"
    std::vector<SkinFile> files;

    SkinKit::ByteBuffer archive() const;
};

// Dark metal with a lit display; every sheet a bitmap of 24 bits.
SampleSkin graphite();
// A light window cut to waves; its files lie in a folder, under names in mixed case.
SampleSkin lagoon();
// Sheets in PNG whose buttons and thumbs are glass; the volume stands in for the balance.
SampleSkin aurora();
// Sixteen colours in bitmaps with palettes, many of them packed; with mouse pointers.
SampleSkin arcade();

std::vector<SampleSkin> allSampleSkins();

}
