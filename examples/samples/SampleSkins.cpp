#include "examples/samples/SampleSkins.h"

#include "tests/support/ZipWriter.h"

namespace samples {

SkinKit::ByteBuffer SampleSkin::archive() const
{
    support::ZipWriter zip;
    for (const auto& file : files)
        zip.add(file.name, file.content);
    return zip.bytes();
}

std::vector<SampleSkin> allSampleSkins()
{
    return {graphite(), lagoon(), aurora(), arcade()};
}

}
