#include "storage/QuotedValues.h"

#include "text/Text.h"

#include <algorithm>
#include <charconv>

namespace turnpost {

namespace {

enum class Follows { Comma, LineEnd, Other };

void skipBlanks(std::string_view& rest) {
    rest.remove_prefix(std::min(rest.find_first_not_of(' '), rest.size()));
}

// Takes the next value and the comma or line end that follows it. At the end of the file a value
// may have been cut off (DOS also ends a text at Ctrl-Z).
std::optional<QuotedValue> takeValue(std::string_view& rest, Follows& follows) {
    skipBlanks(rest);
    const bool quoted = rest.starts_with('"');
    const size_t end =
        quoted ? rest.find('"', 1) : std::min(rest.find_first_of(",\r\n"), rest.size());
    if (rest.empty() || rest.front() == '\x1A' || end == std::string_view::npos) {
        return std::nullopt;
    }
    QuotedValue value{std::string(rest.substr(quoted ? 1 : 0, quoted ? end - 1 : end)), quoted};
    rest.remove_prefix(quoted ? end + 1 : end);
    skipBlanks(rest);
    follows = rest.starts_with(',')                                          ? Follows::Comma
              : rest.empty() || rest.front() == '\r' || rest.front() == '\n' ? Follows::LineEnd
                                                                             : Follows::Other;
    if (follows != Follows::Other) {
        rest.remove_prefix(rest.starts_with("\r\n") ? 2 : std::min<size_t>(1, rest.size()));
    }
    const bool strayQuote = !quoted && value.text.find('"') != std::string::npos;
    return strayQuote ? std::nullopt : std::optional(std::move(value));
}

} // namespace

std::optional<int> QuotedValue::number() const {
    const std::string trimmed = trimSpaces(text);
    const char* begin = trimmed.data();
    const char* end = begin + trimmed.size();
    begin += trimmed.starts_with('+') && !trimmed.starts_with("+-") ? 1 : 0;
    int result = 0;
    const auto [stop, error] = std::from_chars(begin, end, result);
    const bool good = !quoted && error == std::errc() && stop == end;
    return good ? std::optional(result) : std::nullopt;
}

QuotedReading readInOrder(std::string_view text, std::span<const LineLayout> layout) {
    QuotedReading reading{{}, text};
    auto follows = Follows::LineEnd;
    bool inLines = true;
    for (const LineLayout& line : layout) {
        for (size_t left = line.numbers + line.texts; left > 0; --left) {
            auto value =
                follows == Follows::Other ? std::nullopt : takeValue(reading.unread, follows);
            if (!value) {
                return reading;
            }
            reading.values.push_back(std::move(*value));
            inLines = inLines && follows == (left > 1 ? Follows::Comma : Follows::LineEnd);
        }
    }
    reading.inLines = inLines;
    reading.whole = inLines || reading.unread.find('"') == std::string_view::npos;
    return reading;
}

std::string quotedText(std::string_view text) {
    return std::string("\"").append(text).append("\"");
}

} // namespace turnpost
