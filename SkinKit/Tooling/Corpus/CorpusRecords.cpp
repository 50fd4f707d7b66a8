#include "SkinKit/Tooling/Corpus/CorpusRecords.h"
#include "SkinKit/System/InputFile.h"

#include <string_view>
#include <utility>

namespace SkinKit::CorpusRecords {

std::error_code read(const std::filesystem::path& file,
                     const std::function<void(CorpusRecord)>& take)
{
    return Files::forEachLine(file, [&](std::string_view line) {
        if (auto record = CorpusRecord::parse(line))
            take(std::move(*record));
    });
}

}
