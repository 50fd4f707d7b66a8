#include "tests/hostile/Trial.h"

#include "tests/support/Program.h"
#include "tests/support/TemporaryFolder.h"

namespace hostile {
namespace {

// What would take longer than this is stopped.
constexpr long maxSeconds = 20;

std::string withoutName(std::string text, const std::filesystem::path& skin)
{
    const std::string name = skin.string() + ": ";
    const auto place = text.find(name);
    return place == text.npos ? text : text.substr(place + name.size());
}

std::vector<Attempt> tryAll(const std::filesystem::path& program, const std::filesystem::path& skin,
                            const std::vector<std::vector<std::string>>& forms)
{
    const support::TemporaryFolder folder;
    std::vector<Attempt> attempts;
    for (auto form : forms) {
        std::string what;
        for (std::string& word : form) {
            if (word == "SKIN")
                word = skin.string();
            else if (word == "OUT")
                word = (folder / std::to_string(attempts.size())).string();
            else
                what += (what.empty() ? "" : " ") + word;
        }
        const auto outcome = support::run(program, form, {.maxProcessorSeconds = maxSeconds});
        attempts.push_back({what, outcome.status, withoutName(outcome.err, skin),
                            outcome.processorSeconds, outcome.peakMiB});
        if (outcome.status != 0)
            break; // the other forms load the skin alike
    }
    return attempts;
}

}

std::vector<Attempt> trySkintool(const std::filesystem::path& skintool,
                                 const std::filesystem::path& skin)
{
    return tryAll(skintool, skin,
                  {
                      {"-v", "--state", "idle", "--png", "OUT", "SKIN"},
                      {"--state", "webamp", "--scale", "8", "--png", "OUT", "SKIN"},
                      {"info", "--json", "SKIN"},
                      {"preview", "--out", "OUT", "SKIN"},
                      {"windows", "--out", "OUT", "SKIN"},
    });
}

std::vector<Attempt> tryThumbnailer(const std::filesystem::path& thumbnailer,
                                    const std::filesystem::path& skin)
{
    return tryAll(thumbnailer, skin,
                  {
                      {"SKIN", "OUT"},
                      {"-s", "4096", "SKIN", "OUT"}
    });
}

}
