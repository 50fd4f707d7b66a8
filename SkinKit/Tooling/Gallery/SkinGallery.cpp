#include "SkinKit/Tooling/Gallery/SkinGallery.h"

#include "SkinKit/Base/Numbers.h"
#include "SkinKit/Base/Unicode.h"
#include "SkinKit/Graphics/PNGCodec.h"
#include "SkinKit/Graphics/PNGWriter.h"
#include "SkinKit/Pages/PreviewDocument.h"
#include "SkinKit/Pages/SkinGalleryPage.h"
#include "SkinKit/SkinParser.h"
#include "SkinKit/System/Folder.h"
#include "SkinKit/System/InputFile.h"
#include "SkinKit/System/OutputFile.h"
#include "SkinKit/Tooling/Corpus/CorpusListing.h"
#include "SkinKit/Windows/Main/MainWindowRenderer.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <mutex>
#include <optional>
#include <set>
#include <string_view>
#include <system_error>
#include <thread>
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

constexpr std::string_view indexName = "index.html";
constexpr std::string_view picturesFolder = "pictures";
constexpr std::string_view pictureExtension = ".png";
constexpr std::string_view previewsFolder = "previews";
constexpr std::string_view previewExtension = ".html";

std::string numbered(std::string_view folder, std::size_t number, std::string_view extension)
{
    return std::string(folder) + "/" + std::to_string(number) + std::string(extension);
}

// The number in a name that a gallery gives.
std::optional<std::size_t> numberIn(std::string_view name, std::string_view extension)
{
    if (!name.ends_with(extension))
        return std::nullopt;
    const auto stem = name.substr(0, name.size() - extension.size());
    const auto number = Numbers::parseInteger<std::size_t>(stem);
    return number && *number > 0 && std::to_string(*number) == stem ? number : std::nullopt;
}

// Each file of a gallery names its generator in its first bytes, as its format has it.
constexpr std::string_view pageMark = R"(<meta name="generator" content="skintool gallery">)";
constexpr std::string_view pictureMark("tEXtSoftware\0skintool gallery", 29);
constexpr std::size_t markEnd = 128; // a mark is before that byte

std::string marked(std::string page)
{
    constexpr std::string_view head = "<head>";
    return page.insert(page.find(head) + head.size(), pageMark);
}

std::optional<ByteBuffer> marked(const Image& picture)
{
    return PNGCodec::encode(picture, std::array{
                                         PNGCodec::Text{"Software", "skintool gallery"}
    });
}

Files::Result<bool> isMarked(const fs::path& path)
{
    auto file = Files::InputFile::open(path, Files::Links::rejected);
    if (!file)
        return std::unexpected(file.error());
    std::array<std::uint8_t, markEnd> start;
    const auto count = file->readNext(start);
    if (!count)
        return std::unexpected(count.error());
    const std::string_view text = asText(std::span(start).first(*count));
    return text.contains(pageMark) || text.contains(pictureMark);
}

// Whether the file is of a gallery; fails when it is not and must not stand in the way of one.
std::expected<bool, Error> isOfGallery(const fs::path& path, bool isRegularFile, bool isWanted)
{
    const auto answer = isRegularFile ? isMarked(path) : Files::Result<bool>(false);
    if (!answer)
        return failure(path, answer.error().message());
    if (!*answer && isWanted)
        return failure(path, "exists and was not made by skintool gallery");
    return *answer;
}

// The pictures and previews of an earlier gallery in `out`, as names below it. Fails when a gallery
// of `count` skins would overwrite something else.
std::expected<std::vector<std::string>, Error> earlierFiles(const fs::path& out, std::size_t count)
{
    std::error_code ignored;
    const auto index = fs::symlink_status(out / indexName, ignored);
    if (fs::exists(index))
        if (const auto own = isOfGallery(out / indexName, fs::is_regular_file(index), true); !own)
            return std::unexpected(own.error());

    std::vector<std::string> files;
    for (const auto& [folder, extension] : {std::pair(picturesFolder, pictureExtension),
                                            std::pair(previewsFolder, previewExtension)}) {
        const auto entries = Files::list(out / folder);
        if (!entries && entries.error() == std::errc::no_such_file_or_directory)
            continue;
        if (!entries)
            return failure(out / folder, entries.error().message());
        for (const auto& entry : *entries) {
            const auto number = numberIn(entry.name, extension);
            if (!number)
                continue;
            const std::string name = numbered(folder, *number, extension);
            const auto own = isOfGallery(out / name, entry.isRegularFile, *number <= count);
            if (!own)
                return std::unexpected(own.error());
            if (*own)
                files.push_back(name);
        }
    }
    return files;
}

// Deletes what the cards do not lead to.
std::optional<Error> removeStale(const fs::path& out, const std::vector<std::string>& earlier,
                                 const std::vector<Card>& cards)
{
    std::set<std::string_view> current;
    for (const Card& card : cards) {
        current.insert(card.preview);
        if (!card.error)
            current.insert(card.picture);
    }
    for (const auto& name : earlier) {
        std::error_code error;
        if (!current.contains(name))
            fs::remove(out / name, error);
        if (error)
            return failure(out / name, error.message()).error();
    }
    return std::nullopt;
}

// As many threads up to `count` as the system starts.
std::vector<std::jthread> startThreads(std::size_t count, const std::function<void()>& work)
{
    std::vector<std::jthread> threads;
    try {
        while (threads.size() < count)
            threads.emplace_back(work);
    } catch (const std::system_error&) {
        return threads; // those there are, and the caller's, do all the work
    }
    return threads;
}

// Calls `body` for 0 … count - 1, each once, in no certain order, on the caller's thread and as
// many others as the machine runs at a time. Where fewer can be started, or none, those there are
// do all. No more calls are begun once one gives false.
void parallelFor(std::size_t count, const std::function<bool(std::size_t)>& body)
{
    std::atomic<std::size_t> next = 0;
    std::atomic<bool> goesOn = true;
    const auto work = [&] {
        for (std::size_t i = next++; i < count && goesOn; i = next++)
            if (!body(i))
                goesOn = false;
    };
    const std::size_t most = std::max(std::thread::hardware_concurrency(), 1U);
    const auto helpers = startThreads(std::min(most, std::max<std::size_t>(count, 1)) - 1, work);
    work();
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
        const std::size_t number = index + 1;
        Card card{.name = file.name(),
                  .path = file.path,
                  .picture = numbered(picturesFolder, number, pictureExtension),
                  .preview = numbered(previewsFolder, number, previewExtension)};
        const fs::path path = skins_ / file.location();
        const auto archive = SkinArchive::open(path);
        const auto skin = archive
                              ? SkinParser::parse(*archive, SkinParser::Sheets::croppedToSprites)
                              : std::unexpected(archive.error());
        auto page = skin ? SkinPreviewPage::of(path, *archive, *skin)
                         : std::unexpected(skin.error().description());
        if (!page)
            page = SkinPreviewPage::failure(path, page.error());
        if (const auto error = write(card.preview, asBytes(marked(PreviewDocument::html(*page)))))
            return std::unexpected(*error);
        if (!skin) {
            card.error = skin.error().description();
            return card;
        }
        const auto picture = marked(MainWindowRenderer::render(
            *skin, MainWindowState::webampScreenshot(), scale_, Clip::toRegion));
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
                                  const Callbacks& callbacks)
{
    const auto size = MainWindowRenderer::size({}, scale);
    if (!size || size->width > PNGWriter::maxSide)
        return std::unexpected(
            Error{"a picture can't be " + std::to_string(scale) + " times as large"});
    const auto scan = CorpusListing::scan(skins);
    if (!scan)
        return failure(skins, scan.error().message());
    for (const auto& [folder, error] : scan->unreadFolders)
        if (callbacks.note)
            callbacks.note((skins / folder).string() + ": " + error.message());
    const auto earlier = earlierFiles(out, scan->files.size());
    if (!earlier)
        return std::unexpected(earlier.error());
    for (const auto folder : {picturesFolder, previewsFolder}) {
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
    const auto advance = [&] {
        if (callbacks.advance)
            callbacks.advance(done, std::ssize(cards));
    };
    advance();
    parallelFor(cards.size(), [&](std::size_t i) {
        auto card = maker.card(scan->files[i], i);
        const std::lock_guard held(lock);
        if (!card) {
            failed = std::move(card.error());
            return false;
        }
        cards[i] = std::move(*card);
        ++done;
        advance();
        return true;
    });
    if (failed)
        return std::unexpected(std::move(*failed));

    const std::string title =
        Unicode::toValidUTF8(asBytes(Files::named(skins).filename().native()));
    if (const auto error =
            maker.write(indexName, asBytes(marked(SkinGalleryPage::html(title, cards, *size)))))
        return std::unexpected(*error);
    if (const auto error = removeStale(out, *earlier, cards))
        return std::unexpected(*error);
    const auto refused =
        std::ranges::count_if(cards, [](const Card& card) { return card.error.has_value(); });
    return Totals{std::ssize(cards), refused};
}

}
