#include "SkinKit/Rendering/MainWindowState.h"

#include <gtest/gtest.h>

using namespace SkinKit;

TEST(MainWindowState, HasAPlayerThatHasJustStarted)
{
    const MainWindowState expected{
        .status = {.transport = Transport::stopped,
                   .timeMode = TimeMode::elapsed,
                   .elapsed = 0,
                   .duration = 0,
                   .bitrateKbps = std::nullopt,
                   .sampleRate = std::nullopt,
                   .channels = std::nullopt},
        .focused = true,
        .marqueeText = "Velmar",
        .marqueeStep = 0,
        .marqueePixels = 0,
        .volume = 0.78F,
        .balance = 0,
        .position = std::nullopt,
        .shuffle = false,
        .repeatOn = false,
        .eqOpen = false,
        .playlistOpen = false,
        .visualizer = MainWindowState::Off{},
    };
    EXPECT_EQ(MainWindowState::idle(), expected);
}

TEST(MainWindowState, HasThePlayerOfTheReferenceScreenshots)
{
    const MainWindowState expected{
        .status = {.transport = Transport::playing,
                   .timeMode = TimeMode::elapsed,
                   .elapsed = 3,
                   .duration = 5,
                   .bitrateKbps = 128,
                   .sampleRate = 44'100,
                   .channels = 2},
        .focused = true,
        .marqueeText = "1. DJ Nico Parda - Parda Rattling Intro (0:05)",
        .marqueeStep = 0,
        .marqueePixels = 0,
        .volume = 0.78F,
        .balance = 0,
        .position = 0.6,
        .shuffle = true,
        .repeatOn = true,
        .eqOpen = true,
        .playlistOpen = true,
        .visualizer = MainWindowState::Spectrum{},
    };
    EXPECT_EQ(MainWindowState::webampScreenshot(), expected);
}

TEST(MainWindowState, ComparesTheVisualizersContents)
{
    MainWindowState a, b;
    a.visualizer = MainWindowState::Spectrum{
        {1, 2},
        {3}
    };
    b.visualizer = MainWindowState::Spectrum{
        {1, 2},
        {4}
    };
    EXPECT_NE(a, b);
    b.visualizer = a.visualizer;
    EXPECT_EQ(a, b);
    a.visualizer = MainWindowState::Oscilloscope{};
    EXPECT_NE(a, b);
}
