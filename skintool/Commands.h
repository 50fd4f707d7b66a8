#pragma once

#include "SkinKit/Tooling/CommandLine/CorpusOptions.h"
#include "SkinKit/Tooling/CommandLine/SkintoolOptions.h"
#include "skintool/Console.h"

#include <string_view>

// What each command does, and its help below the usage.
namespace skintool {

namespace RenderCommand { // without a word: describes or draws one skin
extern const std::string_view help;
ExitStatus run(const SkinKit::SkintoolOptions& options);
}

namespace InfoCommand {
extern const std::string_view help;
ExitStatus run(const SkinKit::InfoOptions& options);
}

namespace WindowsCommand {
extern const std::string_view help;
ExitStatus run(const SkinKit::WindowsOptions& options);
}

namespace PreviewCommand {
extern const std::string_view help;
ExitStatus run(const SkinKit::PreviewOptions& options);
}

namespace GalleryCommand {
extern const std::string_view help;
ExitStatus run(const SkinKit::GalleryOptions& options);
}

namespace CorpusCommand {
extern const std::string_view help;
ExitStatus run(const SkinKit::CorpusOptions& options);
}

namespace CorpusReportCommand {
extern const std::string_view help;
ExitStatus run(const SkinKit::CorpusReportOptions& options);
}

}
