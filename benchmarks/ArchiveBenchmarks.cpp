#include "SkinKit/Archive/SkinArchive.h"
#include "SkinKit/Archive/ZipFile.h"
#include "benchmarks/Cases.h"

#include <benchmark/benchmark.h>
#include <libdeflate.h>

#include <cstdlib>
#include <vector>

// Reading an archive, beside what libdeflate alone needs to inflate the same entries from memory
// into buffers that are there already.
namespace benchmarks {
namespace {

struct Packed {
    SkinKit::ByteBuffer deflated;
    SkinKit::ByteBuffer target;
};

// The deflated entries that the archive keeps.
std::vector<Packed> packedEntries(const SkinFile& skin)
{
    const auto archive = SkinKit::SkinArchive::open(SkinKit::ByteView(skin.bytes));
    const auto zip = SkinKit::ZipFile::open(SkinKit::ByteView(skin.bytes));
    std::vector<Packed> entries;
    for (const auto& entry : zip->entries()) {
        const std::string path = entry.path();
        const auto dot = path.rfind('.');
        if (entry.method != SkinKit::ZipFile::Method::deflated || dot == path.npos ||
            !SkinKit::SkinArchive::Limits{}.allowedExtensions.contains(path.substr(dot + 1)))
            continue;
        SkinKit::ByteBuffer buffer;
        const auto deflated = *zip->rawBytes(entry, buffer);
        entries.push_back({SkinKit::ByteBuffer(deflated.begin(), deflated.end()),
                           SkinKit::ByteBuffer(static_cast<std::size_t>(entry.uncompressedBytes))});
    }
    return entries;
}

}

void registerArchive(const SkinFile& skin)
{
    benchmark::RegisterBenchmark(
        caseName("read archive", skin.name, "ours").c_str(), [&skin](benchmark::State& state) {
            for (auto _ : state)
                benchmark::DoNotOptimize(SkinKit::SkinArchive::open(skin.path));
        });
    benchmark::RegisterBenchmark(
        caseName("read archive", skin.name, "libdeflate").c_str(),
        [entries = packedEntries(skin)](benchmark::State& state) mutable {
            const auto decompressor = libdeflate_alloc_decompressor();
            for (auto _ : state)
                for (auto& entry : entries)
                    if (libdeflate_deflate_decompress(decompressor, entry.deflated.data(),
                                                      entry.deflated.size(), entry.target.data(),
                                                      entry.target.size(),
                                                      nullptr) != LIBDEFLATE_SUCCESS)
                        std::abort();
            libdeflate_free_decompressor(decompressor);
        });
}

}
