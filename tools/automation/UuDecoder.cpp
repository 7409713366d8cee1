#include "automation/UuDecoder.h"

namespace turnpost::automation {

namespace {

class Lines {
  public:
    explicit Lines(std::string_view all) : text_(all) {}

    std::optional<std::string_view> next() {
        const size_t end = text_.find("\r\n");
        if (end == std::string_view::npos) {
            return std::nullopt;
        }
        const std::string_view line = text_.substr(0, end);
        text_.remove_prefix(end + 2);
        return line;
    }

  private:
    std::string_view text_;
};

unsigned valueOf(char c) {
    return (static_cast<unsigned char>(c) - 32U) & 63U;
}

// False when the line is shorter than its length character says.
bool decodeLine(std::string_view line, std::string& bytes) {
    const size_t length = line.empty() ? 0 : valueOf(line[0]);
    if (line.empty() || line.size() != 1 + (length + 2) / 3 * 4) {
        return false;
    }
    for (size_t i = 0; i < length; ++i) {
        const size_t at = 1 + i / 3 * 4 + i % 3;
        const unsigned pair = valueOf(line[at]) << 6 | valueOf(line[at + 1]);
        bytes += static_cast<char>(pair >> (4 - i % 3 * 2) & 255U);
    }
    return true;
}

} // namespace

std::optional<std::vector<DecodedFile>> decodeUuBlocks(std::string_view text) {
    constexpr std::string_view begin = "begin 664 ";
    std::vector<DecodedFile> files;
    Lines lines(text);
    while (auto line = lines.next()) {
        if (!line->starts_with(begin)) {
            continue;
        }
        DecodedFile file{std::string(line->substr(begin.size())), {}};
        while ((line = lines.next()) && *line != "end") {
            if (!decodeLine(*line, file.bytes)) {
                return std::nullopt;
            }
        }
        if (!line) {
            return std::nullopt;
        }
        files.push_back(std::move(file));
    }
    return files;
}

std::string withoutDoubledPeriods(std::string_view text) {
    std::string result;
    for (size_t i = 0; i < text.size(); ++i) {
        const bool lineStart = i == 0 || text[i - 1] == '\n';
        if (!(lineStart && text.substr(i).starts_with(".."))) {
            result += text[i];
        }
    }
    return result;
}

} // namespace turnpost::automation
