#include "storage/QuotedValues.h"

#include "text/Text.h"

#include <algorithm>
#include <charconv>

namespace turnpost {

namespace {

constexpr std::string_view betweenTexts = "\",\"";

enum class Follows { Comma, LineEnd, Other };

void skipBlanks(std::string_view& rest) {
    rest.remove_prefix(std::min(rest.find_first_not_of(' '), rest.size()));
}

// Takes the next value and the comma or line end that follows it. Where nothing but the end of the
// file is left (for the game's system that is also Ctrl-Z), a value may have been cut off.
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

// Where the separators between so many texts stand when each is taken as early as possible.
std::optional<std::vector<size_t>> earliest(std::string_view inner, size_t texts) {
    std::vector<size_t> places;
    for (size_t from = 0; places.size() + 1 < texts; from = places.back() + betweenTexts.size()) {
        places.push_back(inner.find(betweenTexts, from));
        if (places.back() == std::string_view::npos) {
            return std::nullopt;
        }
    }
    return places;
}

// Where they stand when each is taken as late as possible. Exists whenever earliest does.
std::vector<size_t> latest(std::string_view inner, size_t texts) {
    std::vector<size_t> places(texts - 1);
    for (size_t i = places.size(); i > 0; --i) {
        places[i - 1] = inner.rfind(betweenTexts);
        inner = inner.substr(0, places[i - 1]);
    }
    return places;
}

// Appends the texts; false when the line cannot be divided into them in exactly one way.
bool divide(std::string_view line, size_t texts, QuotedValues& values) {
    line = withoutLineEnd(line);
    if (line.size() < 2 || line.front() != '"' || line.back() != '"') {
        return false;
    }
    const std::string_view inner = line.substr(1, line.size() - 2);
    auto ends = earliest(inner, texts);
    if (!ends || *ends != latest(inner, texts)) {
        return false;
    }
    ends->push_back(inner.size());
    size_t from = 0;
    for (const size_t end : *ends) {
        values.push_back({std::string(inner.substr(from, end - from)), true});
        from = end + betweenTexts.size();
    }
    return true;
}

// The values of one line, by the first rule or divided; nothing when neither gives them all.
std::optional<QuotedValues> readLine(std::string_view line, LineLayout layout) {
    const size_t count = layout.numbers + layout.texts;
    if (static_cast<size_t>(std::count(line.begin(), line.end(), ',')) + 1 < count) {
        return std::nullopt;
    }
    QuotedReading reading = readInOrder(line, {&layout, 1});
    if (!reading.inLines || !reading.behind.empty()) {
        const LineLayout numbers{layout.numbers, 0};
        reading = readInOrder(line, {&numbers, 1});
        if (!divide(reading.behind, layout.texts, reading.values)) {
            return std::nullopt;
        }
    }
    for (size_t i = 0; i < layout.numbers; ++i) {
        if (!reading.values[i].number()) {
            return std::nullopt;
        }
    }
    return reading.values;
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
                follows == Follows::Other ? std::nullopt : takeValue(reading.behind, follows);
            if (!value) {
                return reading;
            }
            reading.values.push_back(std::move(*value));
            inLines = inLines && follows == (left > 1 ? Follows::Comma : Follows::LineEnd);
        }
    }
    reading.inLines = inLines;
    reading.whole = inLines || reading.behind.find('"') == std::string_view::npos;
    return reading;
}

bool isLine(std::string_view line, LineLayout layout) {
    return readLine(line, layout).has_value();
}

QuotedValues readByLines(std::span<const std::string_view> lines,
                         std::span<const LineLayout> layout) {
    QuotedValues values;
    for (size_t i = 0; i < std::min(layout.size(), lines.size()); ++i) {
        // One that was cut at a double quote inside its text looks whole.
        const bool ends = lines[i].ends_with('\n') || i + 1 == layout.size();
        const auto line = ends ? readLine(lines[i], layout[i]) : std::nullopt;
        if (!line) {
            break;
        }
        values.insert(values.end(), line->begin(), line->end());
    }
    return values;
}

std::vector<std::string_view> linesOf(std::string_view text) {
    const std::string_view end = text.find("\r\n") != std::string_view::npos ? "\r\n" : "\n";
    std::vector<std::string_view> lines;
    while (!text.empty()) {
        const size_t next = text.find(end);
        const size_t length = next == std::string_view::npos ? text.size() : next + end.size();
        lines.push_back(text.substr(0, length));
        text.remove_prefix(length);
    }
    return lines;
}

std::string_view withoutLineEnd(std::string_view line) {
    return line.substr(0, line.find_last_not_of("\r\n") + 1);
}

std::string quotedText(std::string_view text) {
    return std::string("\"").append(text).append("\"");
}

} // namespace turnpost
