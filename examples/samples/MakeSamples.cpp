#include "SkinKit/System/OutputFile.h"
#include "examples/samples/SampleSkins.h"

#include <filesystem>
#include <iostream>

int main(int argumentCount, char** arguments)
{
    if (argumentCount != 2) {
        std::cerr << "usage: MakeSamples <folder>\n";
        return 2;
    }
    const std::filesystem::path folder(arguments[1]);
    for (const auto& skin : samples::allSampleSkins()) {
        const auto path = folder / (std::string(skin.name) + ".wsz");
        if (const auto failure = SkinKit::Files::write(path, skin.archive())) {
            std::cerr << path.string() << ": " << failure.message() << '\n';
            return 2;
        }
    }
    return 0;
}
