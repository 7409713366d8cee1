#include "storage/DividedLines.h"

#include <algorithm>

namespace turnpost {

namespace {

constexpr std::string_view betweenTexts = "\",\"";

// Positions of the separators between `texts` texts, each taken as early as possible.
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

// The same, each taken as late as possible. Exists whenever earliest does.
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

// The values of one line, in order or divided; nothing when neither gives them all.
std::optional<QuotedValues> readLine(std::string_view line, LineLayout layout) {
    const size_t count = layout.numbers + layout.texts;
    if (static_cast<size_t>(std::count(line.begin(), line.end(), ',')) + 1 < count) {
        return std::nullopt;
    }
    QuotedReading reading = readInOrder(line, {&layout, 1});
    if (!reading.inLines || !reading.unread.empty()) {
        const LineLayout numbers{layout.numbers, 0};
        reading = readInOrder(line, {&numbers, 1});
        if (!divide(reading.unread, layout.texts, reading.values)) {
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

bool isLine(std::string_view line, LineLayout layout) {
    return readLine(line, layout).has_value();
}

QuotedValues readByLines(std::span<const std::string_view> lines,
                         std::span<const LineLayout> layout) {
    QuotedValues values;
    for (size_t i = 0; i < std::min(layout.size(), lines.size()); ++i) {
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

} // namespace turnpost
