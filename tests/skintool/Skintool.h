#pragma once

#include "tests/support/Program.h"
#include "tests/support/SkinBuilder.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

// skintool, run in a new folder that holds a whole skin, "skin.wsz".
class SkintoolTest : public testing::Test {
protected:
    using Outcome = support::Outcome;

    SkintoolTest()
    {
        std::filesystem::current_path(folder.path());
        write("skin.wsz", support::SkinBuilder().allSheets().zip());
    }
    ~SkintoolTest() override { std::filesystem::current_path(elsewhere); }

    static Outcome skintool(const std::string& line, long limitBytes = 0)
    {
        return support::run(SKINTOOL_PROGRAM, support::words(line), limitBytes);
    }
    // What it gives when it fails.
    static Outcome failure(const std::string& error)
    {
        return {2, "", "skintool: " + error + "\n"};
    }
    static Outcome silence() { return {}; }

    void write(std::string_view name, support::ByteView content) const
    {
        std::filesystem::create_directories((folder / name).parent_path());
        folder.write(name, content);
    }
    static std::string read(const std::filesystem::path& file)
    {
        return std::string(SkinKit::asText(support::readFile(file)));
    }
    static auto countFiles(const std::filesystem::path& folder)
    {
        return std::distance(std::filesystem::directory_iterator(folder), {});
    }

    const std::filesystem::path elsewhere = std::filesystem::current_path();
    const support::TemporaryFolder folder;
};
