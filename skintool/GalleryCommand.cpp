#include "skintool/Commands.h"

#include "SkinKit/Tooling/Gallery/SkinGallery.h"
#include "skintool/ProgressDisplay.h"

#include <filesystem>

namespace skintool::GalleryCommand {

const std::string_view help = R"(Examples:
  skintool gallery skins --out gallery              gallery/index.html, all skins
  skintool gallery skins --out gallery --scale 2    the same, twice as large

The page shows every .wsz and .zip file below <dir> with its picture, its name and
what the loader noticed; each leads to a page of its own. It needs no server. Skins
that are rejected are shown with the reason. Files in the output folder that an
earlier gallery made are replaced or deleted; no others are touched.

Options:
  --out <dir>   the folder of the page, made if it is missing
  --scale N     N pixels for each pixel of a window (default 1)
  -h, --help    this text
  --version     the version

Exit status: 0 done, whatever the skins are like; 2 trouble.)";

ExitStatus run(const SkinKit::GalleryOptions& options)
{
    ProgressDisplay display;
    const auto totals = SkinKit::SkinGallery::make(
        options.input, options.out, options.scale,
        {.advance =
             [&](std::int64_t done, std::int64_t total) {
                 display.advance({.done = done, .total = total, .what = "skins"});
             },
         .note = [&](const std::string& text) { display.note(text); }});
    display.end();
    if (!totals) {
        Console::sayError(totals.error().description);
        return trouble;
    }
    const auto page = std::filesystem::path(options.out) / "index.html";
    Console::print(Console::visible(page.string()) + ": " + std::to_string(totals->skins) +
                   " skins, " + std::to_string(totals->refused) + " refused");
    return done;
}

}
