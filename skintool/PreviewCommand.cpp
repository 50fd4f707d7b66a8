#include "skintool/Commands.h"

#include "SkinKit/Base/Unicode.h"
#include "SkinKit/Pages/PreviewDocument.h"
#include "SkinKit/System/OutputFile.h"
#include "SkinKit/Tooling/CommandLine/OutputCheck.h"
#include "skintool/Skins.h"

#include <filesystem>
#include <optional>
#include <system_error>

namespace skintool::PreviewCommand {
namespace {

using namespace SkinKit;

// Where to write; nothing for a skin without a name when no file is given.
std::optional<std::filesystem::path> outputPath(const PreviewOptions& options)
{
    if (options.out)
        return *options.out;
    const auto name = skinName(options.input);
    if (name.empty())
        return std::nullopt;
    return name + (options.mhtml ? ".mhtml" : ".html");
}

ExitStatus write(const SkinPreviewPage& page, const std::filesystem::path& output, bool mhtml)
{
    const auto document = mhtml ? PreviewDocument::mhtml(page) : PreviewDocument::html(page);
    if (const auto error = Files::write(output, asBytes(document))) {
        Console::sayError(output.string(), error.message());
        return trouble;
    }
    return done;
}

}

const std::string_view help = R"(Examples:
  skintool preview some.wsz                    some.html, a page that any browser opens
  skintool preview some.wsz --out page.html    the same under another name
  skintool preview --mhtml some.wsz            some.mhtml, a web archive

The page shows the skin's name, its main window, the loader's warnings and the skin's
read-me text. It is one file that needs nothing else, and holds no script. A skin that
is refused gives a page that says why, and status 2; a file that is not there gives none.

Options:
  --out <file>   where to write (default: the skin's name with ".html" or ".mhtml", in
                 the current folder)
  --mhtml        a MIME document with the picture as a part of its own, which browsers
                 of the Chromium family open
  -h, --help     this text
  --version      the version

Exit status: 0 done; 2 trouble.)";

ExitStatus run(const PreviewOptions& options)
{
    const auto output = outputPath(options);
    if (!output) {
        Console::sayError(options.input, "has no name; --out says where the page goes");
        return trouble;
    }
    if (const auto conflict = OutputCheck::find({OutputCheck::skin(options.input)}, {*output})) {
        Console::sayError(output->string(), conflict->text);
        return trouble;
    }
    const auto archive = SkinArchive::open(std::filesystem::path(options.input));
    const auto skin = archive ? SkinParser::parse(*archive, SkinParser::Sheets::croppedToSprites)
                              : std::unexpected(archive.error());
    if (archive)
        sayUnreadableFiles(*archive);
    const auto page = skin ? SkinPreviewPage::of(options.input, *archive, *skin)
                           : std::unexpected(skin.error().description());
    if (page)
        return write(*page, *output, options.mhtml);

    Console::sayError(options.input, page.error());
    // A name that is mistyped needs no page.
    if (Files::kind(options.input))
        write(SkinPreviewPage::failure(options.input, page.error()), *output, options.mhtml);
    return trouble;
}

}
