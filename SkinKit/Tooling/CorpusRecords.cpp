#include "SkinKit/Tooling/CorpusRecords.h"

#include "SkinKit/Platform/Bytes.h"
#include "SkinKit/Platform/Files.h"

#include <string_view>
#include <utility>

namespace SkinKit::CorpusRecords {
namespace {

// Puts the lines of a file together again that is read in parts.
class Lines {
public:
    explicit Lines(const std::function<void(CorpusRecord)>& take) : take_(take) {}

    void add(std::string_view part)
    {
        for (auto end = part.find('\n'); end != part.npos; end = part.find('\n')) {
            finish(part.substr(0, end));
            part.remove_prefix(end + 1);
        }
        keep(part);
    }

    // The end of the last line, or of the whole file.
    void finish(std::string_view rest = {})
    {
        if (cut_.empty() && !isTooLong_) {
            takeLine(rest);
            return;
        }
        keep(rest);
        takeLine(cut_);
        cut_.clear();
        isTooLong_ = false;
    }

private:
    void keep(std::string_view part)
    {
        isTooLong_ = isTooLong_ || std::ssize(cut_) + std::ssize(part) > maxLineBytes;
        if (isTooLong_)
            cut_.clear();
        else
            cut_ += part;
    }

    void takeLine(std::string_view line) const
    {
        if (line.empty())
            return;
        if (auto record = CorpusRecord::parse(line))
            take_(std::move(*record));
    }

    const std::function<void(CorpusRecord)>& take_;
    std::string cut_; // the start of a line whose end is yet to come
    bool isTooLong_ = false;
};

}

std::error_code read(const std::filesystem::path& file,
                     const std::function<void(CorpusRecord)>& take)
{
    auto input = Files::InputFile::open(file, Files::Links::followed);
    if (!input)
        return input.error();

    constexpr std::size_t partBytes = 256 << 10;
    ByteBuffer part(partBytes);
    Lines lines(take);
    while (true) {
        const auto count = input->readNext(part);
        if (!count)
            return count.error();
        lines.add(asText(ByteView(part).first(*count)));
        if (*count < part.size())
            break;
    }
    lines.finish();
    return {};
}

}
