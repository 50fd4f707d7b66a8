#include "tests/support/TemporaryFolder.h"

#include <cstdlib>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>

namespace support {

TemporaryFolder::TemporaryFolder()
{
    std::string name = (std::filesystem::temp_directory_path() / "skinkit-test-XXXXXX").string();
    if (!::mkdtemp(name.data()))
        throw std::runtime_error("no temporary folder");
    path_ = name;
}

TemporaryFolder::~TemporaryFolder()
{
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
}

std::filesystem::path TemporaryFolder::write(std::string_view name, ByteView content) const
{
    const auto path = path_ / name;
    std::ofstream stream(path, std::ios::binary);
    stream.write(reinterpret_cast<const char*>(content.data()),
                 static_cast<std::streamsize>(content.size()));
    if (!stream.flush())
        throw std::runtime_error("can't write " + path.string());
    return path;
}

ByteBuffer readFile(const std::filesystem::path& path)
{
    std::ifstream stream(path, std::ios::binary);
    if (!stream)
        throw std::runtime_error("can't read " + path.string());
    return bytes(std::string(std::istreambuf_iterator<char>(stream), {}));
}

}
