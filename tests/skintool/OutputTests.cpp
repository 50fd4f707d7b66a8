#include "SkinKit/Graphics/PNGWriter.h"
#include "tests/support/Program.h"
#include "tests/support/SkinBuilder.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <map>

// What the programs write, beside what they read.
namespace {

namespace fs = std::filesystem;
using support::bytes;
using support::SkinBuilder;
using Words = std::vector<std::string>;

using Contents = std::map<std::string, support::ByteBuffer>;

Contents contentsOf(const fs::path& folder)
{
    Contents contents;
    for (const auto& entry : fs::recursive_directory_iterator(folder))
        if (entry.is_regular_file())
            contents[entry.path()] = support::readFile(entry);
    return contents;
}

}

TEST(Outputs, AreNeverFilesThatTheCommandReads)
{
    const support::TemporaryFolder folder;
    const auto picture = *SkinKit::PNGWriter::data(support::solidImage({275, 116}, {1, 2, 3}));
    for (const auto* name : {"refs", "refs2", "logs", "skins", "run", "run2", "site"})
        fs::create_directory(folder / name);
    folder.write("all.png", SkinBuilder().allSheets().zip());
    folder.write("refs/all.png", picture);
    folder.write("refs/new.diff.png", picture);
    folder.write("skins/a.wsz", SkinBuilder().allSheets().zip());
    folder.write("results.jsonl", bytes("{}\n"));
    folder.write("env.json", bytes("{}"));
    folder.write("run/listing.json", bytes("[]"));
    SkinBuilder().file("main.png", picture).text("Readme.TXT", "text").unpack(folder / "sk");
    fs::create_symlink("sk/Readme.TXT", folder / "link");
    fs::create_symlink("../logs/new", folder / "refs/into logs");
    fs::create_symlink("../skins/a.wsz", folder / "run2/results.jsonl");
    fs::create_symlink("../skins/a.wsz", folder / "site/index.html");
    fs::create_symlink("new.diff.png", folder / "refs/sk.png");
    fs::create_hard_link(folder / "sk/main.png", folder / "hard");
    fs::create_hard_link(folder / "results.jsonl", folder / "hard.jsonl");

    const std::string itself = "is the skin itself";
    const std::string part = "would be read as a file of the skin";
    const std::string reference = "is the reference picture itself";
    const std::string results = "is the results file itself";
    const std::string log = "would be read as a crash log";
    const auto report = [](const Words& more) {
        Words words{"corpus-report", "results.jsonl", "--markdown", "new.md", "--json", "new.json"};
        words.insert(words.end(), more.begin(), more.end());
        return words;
    };
    // clang-format off
    const struct { Words arguments; std::string output, reason; } rows[] = {
        {{"--png", "./all.png", "all.png"},                           "./all.png",       itself},
        {{"--png", "sk/main.png", "sk"},                              "sk/main.png",     part},
        {{"--png", "sk/new.bmp", "sk/"},                              "sk/new.bmp",      part}, // changes the skin, too
        {{"--png", "hard", "sk"},                                     "hard",            part},
        {{"--png", "refs/all.png", "--compare", "refs", "all.png"},   "refs/all.png",    reference},
        {{"--png", "refs2/all.png", "--compare", "refs2", "all.png"}, "refs2/all.png",   reference}, // not there yet
        {{"--png", "refs/new.png", "--compare", "refs", "sk"},        "refs/new.diff.png", reference},
        {{"windows", "sk/.", "--out", "sk"},                          "sk/main.png",     part},
        {{"windows", "all.png", "--out", "."},                        "./all.png",       itself},
        {{"preview", "all.png", "--out", "all.png"},                  "all.png",         itself},
        {{"preview", "sk", "--out", "sk/"},                           "sk/",             itself},
        {{"preview", "sk", "--out", "link"},                          "link",            part},
        {{"gallery", "skins", "--out", "site"}, "site/index.html", "exists and was not made by skintool gallery"},
        {{"corpus", "skins", "--out", "run", "--manifest", "run/listing.json"},
         "run/listing.json", "is the manifest itself"},
        {{"corpus", "skins", "--out", "run2"}, "run2/results.jsonl", "would be read as a skin of the collection"},
        {report({"--markdown", "results.jsonl"}),                     "results.jsonl",   results},
        {report({"--json", "hard.jsonl"}),                            "hard.jsonl",      results},
        {report({"--env", "env.json", "--json", "env.json"}), "env.json", "is the environment's description itself"},
        {report({"--crashes", "logs", "--json", "logs/new"}),         "logs/new",        log},
        {report({"--crashes", "logs", "--json", "refs/into logs"}),   "refs/into logs",  log},
    };
    const struct { Words arguments; std::string reason; } thumbnails[] = {
        {{"all.png", "./all.png"},  itself},
        {{"sk", "sk/Readme.TXT"},   part},
        {{"sk", "hard"},            part},
    };
    // clang-format on
    const auto before = contentsOf(folder.path());
    const auto elsewhere = fs::current_path();
    fs::current_path(folder.path());
    for (const auto& [arguments, output, reason] : rows)
        EXPECT_EQ(support::run(SKINTOOL_PROGRAM, arguments),
                  (support::Outcome{2, "", "skintool: " + output + ": " + reason + "\n"}));
    for (const auto& [arguments, reason] : thumbnails)
        EXPECT_EQ(support::run(THUMBNAILER_PROGRAM, arguments),
                  (support::Outcome{
                      2, "", "velmar-thumbnailer: " + arguments.back() + ": " + reason + "\n"}));
    EXPECT_TRUE(contentsOf(folder.path()) == before);

    // What opening the folder does not read is no file of the skin.
    EXPECT_EQ(support::run(SKINTOOL_PROGRAM, {"preview", "sk", "--out", "sk/page.html"}).status, 0);
    fs::current_path(elsewhere);
}
