#include "tests/support/Collection.h"

#include "tests/support/TemporaryFolder.h"

#include <algorithm>
#include <fstream>
#include <string>

namespace support {

namespace fs = std::filesystem;

std::vector<ByteBuffer> readFolder(const fs::path& folder)
{
    std::vector<fs::path> paths(fs::directory_iterator(folder), fs::directory_iterator{});
    std::ranges::sort(paths);
    std::vector<ByteBuffer> files;
    for (const auto& path : paths)
        files.push_back(readFile(path));
    return files;
}

void writeCollection(const fs::path& folder, const std::vector<ByteBuffer>& models,
                     std::size_t count)
{
    constexpr std::size_t skinsInAFolder = 1000;
    for (std::size_t i = 0; i < count; ++i) {
        const auto below = folder / std::to_string(i / skinsInAFolder);
        fs::create_directories(below);
        const std::string number = std::to_string(i);
        auto archive = models[i % models.size()];
        put16(archive, archive.size() - 2, static_cast<std::uint32_t>(number.size()));
        append(archive, bytes(number));
        std::ofstream(below / (number + ".wsz"), std::ios::binary) << SkinKit::asText(archive);
    }
}

}
