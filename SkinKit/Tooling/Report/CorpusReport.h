#pragma once

#include "SkinKit/Base/JSON.h"
#include "SkinKit/Tooling/Corpus/CorpusRecord.h"
#include "SkinKit/Tooling/Corpus/CorpusSkins.h"
#include "SkinKit/Tooling/CrashLogs/CrashLog.h"
#include "SkinKit/Tooling/Report/CorpusSummary.h"

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

// Turns the records of a collection's runs into numbers, and these into a document.
namespace SkinKit::CorpusReport {

// Where skins without a page of their own are looked up: their fingerprint follows.
inline constexpr std::string_view museum = "https://example.org/skin/";

// The share of complete main windows that the gate asks for.
inline constexpr double leastCompleteRate = 0.95;

// Sums the records up. `sample` skins are drawn with `seed` for the gate, which is passed when none
// of them ended abnormally and enough of them are complete. `environment` is passed through.
CorpusSummary summarize(std::span<const CorpusRecord> records, std::optional<JSON> environment,
                        std::int64_t sample, std::uint64_t seed,
                        std::span<const CrashLog> crashLogs);
// The same for records that were read one by one.
CorpusSummary summarize(const CorpusSkins& skins, std::optional<JSON> environment,
                        std::int64_t sample, std::uint64_t seed,
                        std::span<const CrashLog> crashLogs);

// The document in Markdown with tables. Names and texts of skins stand in it as they are read, not
// as markup.
std::string markdown(const CorpusSummary& summary);

// Of ascending values the one at or below which `p` per cent of them are (nearest rank); 0 of none.
double percentile(std::span<const double> sorted, double p);

}
