#pragma once

#include "SkinKit/Base/Bytes.h"

#include <filesystem>
#include <string>
#include <string_view>

// What is measured. Each figure is registered under "<what>/<skin>/ours" beside a floor or a peer
// under the same name with another ending, so that both are taken in the same run.
namespace benchmarks {

struct SkinFile {
    std::string name; // without folder and extension
    std::filesystem::path path;
    SkinKit::ByteBuffer bytes;
};

// Name of a figure's case.
inline std::string caseName(std::string_view what, std::string_view which, std::string_view who)
{
    return std::string(what) + "/" + std::string(which) + "/" + std::string(who);
}

void registerArchive(const SkinFile& skin);
void registerBMP(const SkinFile& skin);
void registerRender(const SkinFile& skin);
void registerPlaylist(const SkinFile& skin);
void registerPNG(const SkinFile& skin);
void registerCompare(const SkinFile& skin);
void registerEQ(const SkinFile& skin);
void registerPipeline(const SkinFile& skin);

}
