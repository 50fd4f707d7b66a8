#pragma once

#include "SkinKit/Tooling/Corpus/CorpusRecord.h"

#include <filesystem>
#include <functional>
#include <system_error>

// Reading a results file record by record, so that a long one costs no memory.
namespace SkinKit::CorpusRecords {

// Hands every record to `take`, in the order of the file. Lines that are no record, such as one cut
// short by the end of the process that wrote it, are passed over.
std::error_code read(const std::filesystem::path& file,
                     const std::function<void(CorpusRecord)>& take);

}
