#include "storage/QuotedValues.h"

#include "platform/Text.h"

#include <algorithm>
#include <charconv>

namespace turnpost {

namespace {

constexpr std::string_view betweenTexts = "\",\"";

enum class Follows { Comma, LineEnd, Other };

class Reader {
  public:
    explicit Reader(std::string_view text) : rest(text) {}

    // The next value and what follows it; comma and line end are taken too.
    std::optional<QuotedValue> read() {
        skipBlanks();
        QuotedValue value{{}, rest.starts_with('"')};
        const size_t begin = value.quoted ? 1 : 0;
        const size_t end = value.quoted ? rest.find('"', begin) : rest.find_first_of(",\r\n");
        const bool open = end == std::string_view::npos;
        value.text = rest.substr(begin, open ? end : end - begin);
        const bool quoteInside = !value.quoted && value.text.find('"') != std::string::npos;
        // Nothing at all at the end of a file is no value: there may have been one before a cut.
        if (quoteInside || (open && (value.quoted || rest.empty()))) {
            return std::nullopt;
        }
        rest.remove_prefix(open ? rest.size() : end + begin);
        takeSeparator();
        return value;
    }

    Follows follows() const { return following; }
    std::string_view behind() const { return rest; }

  private:
    void skipBlanks() { rest.remove_prefix(std::min(rest.find_first_not_of(' '), rest.size())); }

    void takeSeparator() {
        skipBlanks();
        following = rest.starts_with(',') ? Follows::Comma
                    : rest.empty() || rest.front() == '\r' || rest.front() == '\n'
                        ? Follows::LineEnd
                        : Follows::Other;
        if (following != Follows::Other && !rest.empty()) {
            rest.remove_prefix(rest.starts_with("\r\n") ? 2 : 1);
        }
    }

    std::string_view rest;
    Follows following = Follows::LineEnd;
};

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

bool numbersAreNumbers(const QuotedValues& values, size_t numbers) {
    return std::all_of(values.begin(), values.begin() + static_cast<std::ptrdiff_t>(numbers),
                       [](const QuotedValue& value) { return value.number().has_value(); });
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
    QuotedReading reading;
    Reader reader(text);
    bool inItsLine = true;
    for (const LineLayout& line : layout) {
        for (size_t left = line.numbers + line.texts; left > 0; --left) {
            auto value = reader.follows() == Follows::Other ? std::nullopt : reader.read();
            if (!value) {
                return reading;
            }
            reading.values.push_back(std::move(*value));
            inItsLine =
                inItsLine && reader.follows() == (left > 1 ? Follows::Comma : Follows::LineEnd);
        }
    }
    reading.whole = inItsLine || reader.behind().find('"') == std::string_view::npos;
    return reading;
}

std::optional<QuotedValues> readLine(std::string_view line, LineLayout layout) {
    const size_t count = layout.numbers + layout.texts;
    if (static_cast<size_t>(std::count(line.begin(), line.end(), ',')) + 1 < count) {
        return std::nullopt;
    }
    Reader reader(line);
    QuotedValues values;
    std::string_view texts = line;
    while (values.size() < count && reader.follows() != Follows::Other) {
        texts = values.size() == layout.numbers ? reader.behind() : texts;
        auto value = reader.read();
        if (!value) {
            break;
        }
        values.push_back(std::move(*value));
    }
    const bool toItsEnd = reader.follows() == Follows::LineEnd && reader.behind().empty();
    bool good = values.size() == count && toItsEnd;
    if (!good && values.size() >= layout.numbers) {
        values.resize(layout.numbers);
        good = divide(texts, layout.texts, values);
    }
    good = good && numbersAreNumbers(values, layout.numbers);
    return good ? std::optional(std::move(values)) : std::nullopt;
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
