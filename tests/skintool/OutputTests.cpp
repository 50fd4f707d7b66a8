#include "SkinKit/Graphics/PNGWriter.h"
#include "tests/skintool/Skintool.h"

#include <map>

namespace fs = std::filesystem;
using support::bytes;
using support::SkinBuilder;

TEST_F(SkintoolTest, NeverOverwritesAnInput)
{
    const auto picture = *SkinKit::PNGWriter::data(support::solidImage({275, 116}, {1, 2, 3}));
    const auto archive = SkinBuilder().allSheets().zip();
    for (const auto* name : {"refs2", "logs", "run2", "run3", "site"})
        fs::create_directory(name);
    write("all.png", archive);
    write("refs/all.png", picture);
    write("refs/new.diff.png", picture);
    write("skins/a.wsz", archive);
    write("skins/sub/b.wsz", archive);
    write("r.jsonl", bytes("{}\n"));
    write("env.json", bytes("{}"));
    write("run/listing.json", bytes("[]"));
    SkinBuilder().file("main.png", picture).text("Readme.TXT", "text").unpack("sk");
    fs::create_symlink("sk/Readme.TXT", "link");
    fs::create_symlink("../logs/new", "refs/into-logs");
    fs::create_symlink("../skins/a.wsz", "run2/results.jsonl");
    fs::create_symlink("../skins/a.wsz", "site/index.html");
    fs::create_symlink("new.diff.png", "refs/sk.png");
    fs::create_hard_link("sk/main.png", "hard");
    fs::create_hard_link("r.jsonl", "hard.jsonl");
    fs::create_hard_link("skins/sub/b.wsz", "run3/results.jsonl");

    const std::string itself = "is the skin itself";
    const std::string part = "would be read as a file of the skin";
    const std::string reference = "is the reference picture itself";
    const std::string results = "is the results file itself";
    const std::string log = "would be read as a crash log";
    const std::string report = "corpus-report r.jsonl --markdown new.md --json new.json ";
    // clang-format off
    const struct { std::string line, output, reason; } rows[] = {
        {"--png ./all.png all.png",                       "./all.png",        itself},
        {"--png sk/main.png sk",                          "sk/main.png",      part},
        {"--png sk/new.bmp sk/",                          "sk/new.bmp",       part}, // would be one
        {"--png hard sk",                                 "hard",             part},
        {"--png refs/all.png --compare refs all.png",     "refs/all.png",     reference},
        {"--png refs2/all.png --compare refs2 all.png",   "refs2/all.png",    reference}, // new
        {"--png refs/new.png --compare refs sk",          "refs/new.diff.png", reference},
        {"windows sk/. --out sk",                         "sk/main.png",      part},
        {"windows all.png --out .",                       "./all.png",        itself},
        {"preview all.png --out all.png",                 "all.png",          itself},
        {"preview sk --out sk/",                          "sk/",              itself},
        {"preview sk --out link",                         "link",             part},
        {"gallery skins --out site",
         "site/index.html", "exists and was not made by skintool gallery"},
        {"corpus skins --out run --manifest run/listing.json",
         "run/listing.json", "is the manifest itself"},
        {"corpus skins --out run2",
         "run2/results.jsonl", "would be read as a skin of the collection"},
        {"corpus skins --out run3",
         "run3/results.jsonl", "would be read as a skin of the collection"},
        {"corpus skins --out run --manifest run/results.jsonl~",
         "run/results.jsonl~", "is the manifest itself"}, // where earlier results would go
        {report + "--markdown r.jsonl",                   "r.jsonl",          results},
        {report + "--json hard.jsonl",                    "hard.jsonl",       results},
        {report + "--env env.json --json env.json",
         "env.json", "is the environment's description itself"},
        {report + "--crashes logs --json logs/new",       "logs/new",         log},
        {report + "--crashes logs --json refs/into-logs", "refs/into-logs",   log},
    };
    const struct { std::string line, output, reason; } thumbnails[] = {
        {"all.png ./all.png",  "./all.png",     itself},
        {"sk sk/Readme.TXT",   "sk/Readme.TXT", part},
        {"sk hard",            "hard",          part},
    };
    // clang-format on
    const auto contents = [] {
        std::map<std::string, support::ByteBuffer> files;
        for (const auto& entry : fs::recursive_directory_iterator("."))
            if (entry.is_regular_file())
                files[entry.path()] = support::readFile(entry);
        return files;
    };
    const auto before = contents();
    for (const auto& [line, output, reason] : rows)
        EXPECT_EQ(skintool(line), failure(output + ": " + reason));
    for (const auto& [line, output, reason] : thumbnails)
        EXPECT_EQ(support::run(THUMBNAILER_PROGRAM, support::words(line)),
                  (Outcome{2, "", "velmar-thumbnailer: " + output + ": " + reason + "\n"}));
    EXPECT_TRUE(contents() == before);

    // What opening the folder does not read is no file of the skin.
    EXPECT_EQ(skintool("preview sk --out sk/page.html"), silence());
}
