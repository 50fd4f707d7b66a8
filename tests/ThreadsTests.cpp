#include "SkinKit/Player.h"

#include "tests/support/SkinBuilder.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <functional>
#include <latch>
#include <thread>
#include <vector>

using namespace SkinKit;

namespace {

constexpr int threadCount = 8;

// Calls `work` in eight threads, none of which begins before all are there. What is computed once
// for the whole process is thus first asked for by all of them, if nothing has asked before.
void inAllThreadsAtOnce(const std::function<void(int)>& work)
{
    std::latch start(threadCount);
    std::vector<std::jthread> threads;
    for (int i = 0; i < threadCount; ++i)
        threads.emplace_back([&, i] {
            start.arrive_and_wait();
            work(i);
        });
}

// Archives with sheets in every format, regions and cursors; one with next to nothing, for which
// the sheets are generated.
std::vector<ByteBuffer> archives()
{
    std::vector<ByteBuffer> archives;
    for (const auto* name : {"arcade.wsz", "aurora.wsz", "graphite.wsz", "lagoon.wsz"})
        archives.push_back(support::readFile(std::filesystem::path(SKINKIT_SAMPLES) / name));
    archives.push_back(support::SkinBuilder()
                           .sheet("main.bmp", support::solidImage({275, 116}, {90, 60, 30}))
                           .zip());
    return archives;
}

Skin parsed(ByteView archive)
{
    return SkinParser::parse(SkinArchive::open(archive).value()).value();
}

// All that is drawn from a skin, and its file.
struct Drawing {
    Image windows;
    Image clipped;
    std::optional<ByteBuffer> file;

    bool operator==(const Drawing&) const = default;
};

Drawing drawing(const Skin& skin)
{
    constexpr int scale = 2;
    Image clipped = MainWindowRenderer::render(skin, MainWindowState::webampScreenshot(), scale,
                                               Clip::toRegion);
    auto file = PNGWriter::data(clipped);
    return {DesktopRenderer::render(skin, DesktopState::webampScreenshot(), 1, Clip::toRegion),
            std::move(clipped), std::move(file)};
}

}

TEST(Threads, DrawOneSkinAllAtOnceAsOneAloneDoes)
{
    std::vector<Skin> skins;
    for (const auto& archive : archives())
        skins.push_back(parsed(archive));
    std::vector<std::vector<Drawing>> drawn(threadCount);
    inAllThreadsAtOnce([&](int thread) {
        for (const Skin& skin : skins)
            drawn[static_cast<std::size_t>(thread)].push_back(drawing(skin));
    });
    for (std::size_t i = 0; i < skins.size(); ++i)
        for (const auto& drawings : drawn)
            EXPECT_EQ(drawings[i], drawing(skins[i])) << i;
}
