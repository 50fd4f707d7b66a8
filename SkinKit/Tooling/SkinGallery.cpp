#include "SkinKit/Tooling/SkinGallery.h"

#include "SkinKit/Platform/Files.h"
#include "SkinKit/Platform/Unicode.h"
#include "SkinKit/QuickLook/PreviewDocument.h"
#include "SkinKit/QuickLook/SkinGalleryPage.h"
#include "SkinKit/Rendering/MainWindowRenderer.h"
#include "SkinKit/Rendering/PNGWriter.h"
#include "SkinKit/SkinParser.h"
#include "SkinKit/Tooling/CorpusListing.h"
#include "SkinKit/Tooling/ParallelFor.h"

#include <algorithm>
#include <mutex>
#include <optional>
#include <utility>
#include <vector>

namespace SkinKit::SkinGallery {
namespace {

namespace fs = std::filesystem;
using Card = SkinGalleryPage::Card;

std::unexpected<Error> failure(const fs::path& file, const std::string& text)
{
    return std::unexpected(Error{file.string() + ": " + text});
}

// Makes the files of one skin after the other; may be used by several threads.
class Maker {
public:
    Maker(const fs::path& skins, const fs::path& out, int scale)
        : skins_(skins), out_(out), scale_(scale)
    {
    }

    // The card of the skin that is number `index` of the page.
    std::expected<Card, Error> card(const CorpusFile& file, std::size_t index) const
    {
        const std::string number = std::to_string(index + 1);
        Card card{.name = file.name(),
                  .path = file.path,
                  .picture = "pictures/" + number + ".png",
                  .preview = "previews/" + number + ".html"};
        const fs::path path = skins_ / file.location();
        const auto page = SkinPreviewPage::make(path);
        if (const auto error = write(card.preview, asBytes(PreviewDocument::html(page))))
            return std::unexpected(*error);

        const auto skin = SkinParser::parse(path);
        if (!skin) {
            card.error = skin.error().description();
            return card;
        }
        const auto picture =
            PNGWriter::data(MainWindowRenderer::render(*skin, MainWindowState::webampScreenshot(),
                                                       scale_, MainWindowRenderer::Clip::toRegion));
        if (const auto error = write(card.picture, picture.value_or(ByteBuffer())))
            return std::unexpected(*error);
        card.warnings = skin->warnings;
        card.fallbacks = skin->fallbacks;
        return card;
    }

    // Writes a file of the gallery; what went wrong.
    std::optional<Error> write(const fs::path& name, ByteView bytes) const
    {
        const fs::path path = out_ / name;
        const auto error = Files::write(path, bytes);
        return error ? std::optional(failure(path, error.message()).error()) : std::nullopt;
    }

private:
    const fs::path& skins_;
    const fs::path& out_;
    int scale_;
};

}

std::expected<Totals, Error> make(const fs::path& skins, const fs::path& out, std::int64_t scale,
                                  const std::function<void(std::int64_t, std::int64_t)>& advance)
{
    const auto size = MainWindowRenderer::size(scale);
    if (!size || size->width > PNGWriter::maxSide)
        return std::unexpected(
            Error{"a picture can't be " + std::to_string(scale) + " times as large"});
    const auto scan = CorpusListing::scan(skins);
    if (!scan)
        return failure(skins, scan.error().message());
    for (const auto* folder : {"pictures", "previews"}) {
        std::error_code error;
        fs::create_directories(out / folder, error);
        if (error)
            return failure(out / folder, error.message());
    }

    const Maker maker(skins, out, static_cast<int>(scale));
    std::vector<Card> cards(scan->files.size());
    std::mutex lock; // of what follows
    std::int64_t done = 0;
    std::optional<Error> failed;
    advance(done, std::ssize(cards));
    parallelFor(cards.size(), [&](std::size_t i) {
        auto card = maker.card(scan->files[i], i);
        const std::lock_guard held(lock);
        if (!card) {
            failed = std::move(card.error());
            return false;
        }
        cards[i] = std::move(*card);
        advance(++done, std::ssize(cards));
        return true;
    });
    if (failed)
        return std::unexpected(std::move(*failed));

    const std::string title = Unicode::repaired(asBytes(Files::named(skins).filename().native()));
    if (const auto error =
            maker.write("index.html", asBytes(SkinGalleryPage::html(title, cards, *size))))
        return std::unexpected(*error);
    const auto refused =
        std::ranges::count_if(cards, [](const Card& card) { return card.error.has_value(); });
    return Totals{std::ssize(cards), refused};
}

}
