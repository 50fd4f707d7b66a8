#include "SkinKit/Tooling/Corpus/CorpusRunner.h"

#include "SkinKit/Archive/SkinArchive.h"
#include "SkinKit/Base/Check.h"
#include "SkinKit/Base/Numbers.h"
#include "SkinKit/SkinParser.h"
#include "SkinKit/System/Journal.h"
#include "SkinKit/System/OutputFile.h"
#include "SkinKit/Tooling/CommandLine/OutputCheck.h"
#include "SkinKit/Tooling/Corpus/CorpusListing.h"
#include "SkinKit/Tooling/Corpus/CorpusManifest.h"
#include "SkinKit/Tooling/Corpus/CorpusPlan.h"
#include "SkinKit/Tooling/Corpus/CorpusWatchdog.h"
#include "SkinKit/Tooling/SkinInfo.h"
#include "SkinKit/Windows/Main/MainWindowRenderer.h"

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <string_view>
#include <unordered_set>
#include <utility>

namespace SkinKit {
namespace {

namespace fs = std::filesystem;
using Clock = std::chrono::steady_clock;
using Error = CorpusRunner::Error;
using Progress = CorpusRunner::Progress;

// Within a run the first failure ends everything; run() gives it to the caller as a value.
[[noreturn]] void fail(const fs::path& file, const std::string& text)
{
    throw Error{(file.empty() ? "\"\"" : file.string()) + ": " + text};
}

[[noreturn]] void fail(const fs::path& file, std::error_code error)
{
    fail(file, error.message());
}

// What was read from `file`.
template <typename T, typename Reason>
T orFail(const fs::path& file, std::expected<T, Reason> result)
{
    if (!result)
        fail(file, result.error());
    return std::move(*result);
}

// Why the results could not be written.
std::string writeError(std::error_code error)
{
    return error == std::errc::no_such_file_or_directory
               ? "deleted or renamed while the run was writing to it"
               : error.message();
}

double millisecondsSince(Clock::time_point start)
{
    return std::chrono::duration<double, std::milli>(Clock::now() - start).count();
}

CorpusRecord recordOf(const CorpusFile& file, std::string event)
{
    return {.event = std::move(event),
            .path = file.path,
            .name = file.name(),
            .md5 = file.md5,
            .size = file.size,
            .t = CorpusRecord::now()};
}

CorpusRecord resultOf(CorpusRecord start, CorpusOutcome outcome)
{
    start.event = "result";
    start.entries = outcome.entries;
    start.status = std::move(outcome.status);
    start.mainWindowComplete = outcome.mainWindowComplete;
    start.warnings = std::move(outcome.warnings);
    start.fallbacks = std::move(outcome.fallbacks);
    start.error = std::move(outcome.error);
    start.parseMs = outcome.parseMs;
    start.renderMs = outcome.renderMs;
    return start;
}

CorpusOutcome refused(const SkinError& error, std::int64_t entries, double parseMs)
{
    if (error.kind() == SkinError::Kind::modernSkin)
        return {.entries = entries, .status = "modern", .parseMs = parseMs};
    return {
        .entries = entries, .status = "failed", .error = error.description(), .parseMs = parseMs};
}

}

CorpusRunner::Config CorpusRunner::Config::of(const CorpusOptions& options)
{
    constexpr double looksInASkinsTime = 10;
    constexpr double shortestInterval = 0.005;
    constexpr double longestInterval = 0.25;
    return {.timeout = options.timeout,
            .maxMemoryMiB = options.maxMemoryMiB,
            .sample = options.sample,
            .seed = options.seed,
            .resume = options.resume,
            .manifest = options.manifest,
            .pollInterval =
                std::clamp(options.timeout / looksInASkinsTime, shortestInterval, longestInterval)};
}

CorpusRunner::Hooks CorpusRunner::Hooks::live()
{
    return {processSkin, ProcessFootprint::mebibytes, [](int status) { std::_Exit(status); }};
}

CorpusRunner::CorpusRunner(fs::path corpus, fs::path out, Config config, Hooks hooks,
                           std::function<void(const std::string&)> progress, Callbacks callbacks)
    : corpus_(std::move(corpus)), out_(std::move(out)), config_(std::move(config)),
      hooks_(std::move(hooks)),
      progress_(progress ? std::move(progress) : [](const std::string&) {}),
      callbacks_{
          callbacks.advance ? std::move(callbacks.advance) : [](const Progress&) {},
          callbacks.note ? std::move(callbacks.note) : [](const std::string&) {},
          callbacks.isCancelled ? std::move(callbacks.isCancelled) : [] { return false; },
      }
{
    check(config_.skinsBetweenLines > 0, "lines of progress need skins between them");
}

// One run, step by step.
class CorpusRunner::Run {
public:
    explicit Run(const CorpusRunner& runner) : runner_(runner), config_(runner.config_) {}

    Totals whole()
    {
        if (const auto kind = Files::kind(runner_.corpus_); !kind)
            fail(runner_.corpus_, kind.error());
        else if (*kind != Files::Kind::folder)
            fail(runner_.corpus_, std::make_error_code(std::errc::not_a_directory));
        checkOutputs();
        if (config_.manifest)
            manifest_ = orFail(*config_.manifest, CorpusManifest::read(*config_.manifest));

        Journal journal = openResults();
        CorpusHistory history;
        if (config_.resume)
            history = CorpusHistory::of(
                orFail(runner_.resultsURL(), CorpusRecords::readAll(runner_.resultsURL())));
        // What an earlier run listed, so that the work stays the same.
        auto earlier = config_.resume ? orFail(listingFile(), CorpusListing::read(listingFile()))
                                      : std::nullopt;
        auto found = earlier ? std::vector<CorpusFile>() : scan();
        if (earlier)
            noteNewFiles(*earlier);
        // Nothing old was touched so far. The old listing goes before the results do, so that no
        // run can go on by it.
        if (!earlier)
            removeListing();
        Journal results =
            config_.resume ? resumed(std::move(journal)) : startedOver(std::move(journal));
        const auto foundCount = std::ssize(found);
        auto listing = earlier ? std::move(earlier) : listed(std::move(found));
        if (!listing)
            return {.files = foundCount, .left = foundCount, .cancelled = true};
        files_ = std::move(*listing);
        const auto plan = CorpusPlan::of(files_, config_.sample, config_.seed);

        CorpusWatchdog watchdog(std::move(results), watchdogSettings());
        watchdog_ = &watchdog;
        recordCrashes(history);
        answered_ = std::move(history.answered);
        if (const auto error = watchdog.startThread())
            throw Error{"no thread for the watchdog: " + error.message()};
        End end = processAll(plan.skins);
        if (end == End::completed)
            end = recordDuplicates(plan.duplicates);
        if (end == End::completed) {
            write({.event = "end",
                   .footprintMiB = runner_.hooks_.footprint().lifetimeMax,
                   .t = CorpusRecord::now()});
            printLine();
        }
        return {.files = std::ssize(files_),
                .unique = plan.unique,
                .attempted = attempted_,
                .left =
                    end == End::cancelled ? numbers_.total - numbers_.before - numbers_.done : 0,
                .aborted = end == End::aborted,
                .cancelled = end == End::cancelled};
    }

private:
    enum class End { completed, aborted, cancelled };

    void checkOutputs() const
    {
        std::vector inputs{OutputCheck::collection(runner_.corpus_)};
        if (config_.manifest)
            inputs.push_back({*config_.manifest, "the manifest"});
        std::vector outputs{runner_.resultsURL(), listingFile()};
        if (!config_.resume)
            outputs.push_back(backupFile());
        if (const auto conflict = OutputCheck::find(inputs, outputs))
            fail(conflict->output, conflict->text);
        std::error_code ignored;
        if (!config_.resume && fs::is_directory(backupFile(), ignored))
            fail(backupFile(), std::make_error_code(std::errc::is_a_directory));
    }

    Journal openResults() const
    {
        std::error_code error;
        fs::create_directories(runner_.out_, error);
        if (error)
            fail(runner_.out_, error);
        auto journal = Journal::open(runner_.resultsURL());
        if (!journal && journal.error() == std::errc::device_or_resource_busy)
            fail(runner_.resultsURL(), "another run is writing to it");
        if (!journal)
            fail(runner_.resultsURL(), journal.error());
        return std::move(*journal);
    }

    Journal resumed(Journal results) const
    {
        checkWritten(results.closeCutLine());
        return results;
    }

    // The results file as it is when it is empty, else a new one: what earlier runs left is kept
    // under another name.
    Journal startedOver(Journal results) const
    {
        if (results.size() == 0)
            return results;
        if (const auto error = results.rename(backupFile()))
            fail(backupFile(), error);
        runner_.callbacks_.note(runner_.resultsURL().string() + ": earlier results kept as " +
                                backupFile().string());
        return openResults();
    }

    CorpusWatchdog::Settings watchdogSettings() const
    {
        return {.timeout = config_.timeout,
                .maxMemoryMiB = config_.maxMemoryMiB,
                .pollInterval = config_.pollInterval,
                .footprint = runner_.hooks_.footprint,
                .abort = runner_.hooks_.abort,
                .judged = [this](const CorpusRecord& verdict, std::error_code error) {
                    runner_.callbacks_.note(error ? runner_.resultsURL().string() + ": " +
                                                        writeError(error)
                                                  : *verdict.path + ": " + *verdict.error);
                }};
    }

    fs::path listingFile() const { return runner_.out_ / "listing.json"; }
    fs::path backupFile() const { return runner_.out_ / "results.jsonl~"; }

    // Files that came later are not in a listing that is used again.
    void noteNewFiles(const std::vector<CorpusFile>& listed) const
    {
        const auto found = orFail(runner_.corpus_, CorpusListing::findNew(runner_.corpus_, listed));
        noteUnread(found.unreadFolders);
        if (found.count > 0)
            runner_.callbacks_.note(listingFile().string() + ": listing of " +
                                    Files::dateOf(listingFile()).value_or("unknown date") +
                                    " reused, " + std::to_string(found.count) + " new file" +
                                    (found.count == 1 ? "" : "s") +
                                    " ignored; to start over, run without --resume");
    }

    void removeListing() const
    {
        const auto kind = Files::kind(listingFile());
        if (kind && *kind == Files::Kind::other)
            fail(listingFile(), std::make_error_code(std::errc::not_supported));
        std::error_code error;
        fs::remove(listingFile(), error);
        if (error)
            fail(listingFile(), error);
    }

    std::vector<CorpusFile> scan() const
    {
        auto found = orFail(runner_.corpus_, CorpusListing::scan(runner_.corpus_));
        noteUnread(found.unreadFolders);
        return std::move(found.files);
    }

    void noteUnread(const std::vector<CorpusListing::UnreadFolder>& folders) const
    {
        for (const auto& [folder, error] : folders)
            runner_.callbacks_.note((runner_.corpus_ / folder).string() + ": " + error.message());
    }

    // With the fingerprints, and kept for the runs to come. Nothing when the run is cancelled.
    std::optional<std::vector<CorpusFile>> listed(std::vector<CorpusFile> files)
    {
        begin({.phase = Progress::Phase::listing, .total = std::ssize(files)});
        for (CorpusFile& file : files) {
            if (runner_.callbacks_.isCancelled())
                return std::nullopt;
            file.md5 = CorpusListing::md5Hex(runner_.corpus_ / file.location());
            step();
        }
        if (const auto error = Files::write(listingFile(), asBytes(CorpusListing::json(files))))
            fail(listingFile(), error);
        return files;
    }

    // Answers for the skins that took their process down with them.
    void recordCrashes(CorpusHistory& history) const
    {
        for (CorpusRecord& record : history.unanswered) {
            history.answered.insert(*record.path);
            record.event = "result";
            record.status = "crashed";
            record.restart = ++history.abnormalEnds;
            record.t = CorpusRecord::now();
            write(manifest_.decorated(std::move(record)));
        }
    }

    End processAll(const std::vector<std::size_t>& skins)
    {
        const auto isAnswered = [this](std::size_t i) {
            return answered_.contains(files_[i].path);
        };
        begin({.phase = Progress::Phase::running,
               .total = std::ssize(skins),
               .before = std::ranges::count_if(skins, isAnswered)});
        for (const std::size_t i : skins) {
            if (watchdog_->isAborted())
                return End::aborted;
            if (runner_.callbacks_.isCancelled())
                return End::cancelled;
            if (!isAnswered(i) && !process(i))
                return End::aborted;
        }
        return End::completed;
    }

    // False when the watchdog answered for the skin.
    bool process(std::size_t i)
    {
        CorpusRecord record = recordOf(files_[i], "start");
        record.i = static_cast<std::int64_t>(i);
        record = manifest_.decorated(std::move(record));
        if (!taken(watchdog_->start(record)))
            return false;

        auto outcome = runner_.hooks_.process(runner_.corpus_ / files_[i].location());
        const std::string status = outcome.status;
        record = resultOf(std::move(record), std::move(outcome));
        if (!taken(watchdog_->answer(std::move(record))))
            return false;
        count(status);
        return true;
    }

    End recordDuplicates(const std::vector<CorpusPlan::Duplicate>& duplicates)
    {
        const Progress skins = numbers_; // what the last line reports
        begin({.phase = Progress::Phase::duplicates, .total = std::ssize(duplicates)});
        for (const auto& [file, of] : duplicates) {
            if (runner_.callbacks_.isCancelled())
                return End::cancelled;
            if (!answered_.contains(files_[file].path)) {
                CorpusRecord record = recordOf(files_[file], "result");
                record.of = files_[of].path;
                write(record);
            }
            step();
        }
        numbers_ = skins;
        return End::completed;
    }

    // A line after the first of so many skins, or when five seconds have passed.
    void count(const std::string& status)
    {
        constexpr std::chrono::seconds timeBetweenLines(5);
        const bool isDue = numbers_.done % config_.skinsBetweenLines == 0 ||
                           Clock::now() - lastLine_ >= timeBetweenLines;
        ++attempted_;
        ++numbers_.tally[status];
        step();
        if (isDue)
            printLine();
    }

    void begin(Progress numbers)
    {
        numbers_ = std::move(numbers);
        runner_.callbacks_.advance(numbers_);
    }

    void step()
    {
        ++numbers_.done;
        runner_.callbacks_.advance(numbers_);
    }

    void printLine()
    {
        runner_.progress_(progressLine(numbers_.done, numbers_.total, numbers_.tally));
        lastLine_ = Clock::now();
    }

    void write(const CorpusRecord& record) const { checkWritten(watchdog_->write(record)); }

    void checkWritten(std::error_code error) const
    {
        if (error)
            fail(runner_.resultsURL(), writeError(error));
    }

    bool taken(const CorpusWatchdog::Result& turn) const
    {
        if (!turn)
            fail(runner_.resultsURL(), writeError(turn.error()));
        return *turn == CorpusWatchdog::Turn::taken;
    }

    const CorpusRunner& runner_;
    const Config& config_;
    CorpusManifest manifest_;
    CorpusWatchdog* watchdog_ = nullptr;
    std::vector<CorpusFile> files_;
    std::unordered_set<std::string> answered_;
    Progress numbers_;
    std::int64_t attempted_ = 0;
    Clock::time_point lastLine_ = Clock::now();
};

std::expected<CorpusRunner::Totals, CorpusRunner::Error> CorpusRunner::run() const
{
    try {
        return Run(*this).whole();
    } catch (Error& error) {
        return std::unexpected(std::move(error));
    }
}

CorpusOutcome CorpusRunner::processSkin(const fs::path& file)
{
    const auto start = Clock::now();
    const auto archive = SkinArchive::open(file);
    const std::int64_t entries = archive ? archive->entryCount() : 0;
    const auto skin = archive ? SkinParser::parse(*archive, SkinParser::Sheets::croppedToSprites)
                              : std::unexpected(archive.error());
    const double parseMs = millisecondsSince(start);
    if (!skin)
        return refused(skin.error(), entries, parseMs);

    const auto renderStart = Clock::now();
    MainWindowRenderer::renderDynamic(MainWindowRenderer::renderBase(*skin, true, 1), *skin,
                                      MainWindowState::webampScreenshot(), 1);
    return {.entries = entries,
            .status = skin->warnings.empty() ? "ok" : "partial",
            .mainWindowComplete = RequiredSprites::missing(*skin).empty(),
            .warnings = skin->warnings,
            .fallbacks = skin->fallbacks,
            .parseMs = parseMs,
            .renderMs = millisecondsSince(renderStart)};
}

std::string CorpusRunner::progressLine(std::int64_t done, std::int64_t total, const Tally& tally)
{
    std::string line = "[" + std::to_string(done) + "/" + std::to_string(total) + "]";
    for (const std::string_view status : {"ok", "partial", "failed", "modern"}) {
        const auto found = tally.find(status);
        const auto count = static_cast<double>(found == tally.end() ? 0 : found->second);
        const double share = done == 0 ? 0 : count * 100 / static_cast<double>(done);
        line += " " + std::string(status) + " " + Numbers::oneDecimal(share) + "%";
    }
    return line;
}

}
