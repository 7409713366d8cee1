#include "storage/QuotedLayout.h"

namespace turnpost {

namespace {

// Where the separators stand when each is taken as early as possible.
std::optional<std::vector<size_t>> earliest(std::string_view text,
                                            const std::vector<std::string>& separators) {
    std::vector<size_t> places;
    size_t from = 0;
    for (const std::string& separator : separators) {
        const size_t place = text.find(separator, from);
        if (place == std::string_view::npos) {
            return std::nullopt;
        }
        places.push_back(place);
        from = place + separator.size();
    }
    return places;
}

// Where they stand when each is taken as late as possible. Exists whenever earliest does.
std::vector<size_t> latest(std::string_view text, const std::vector<std::string>& separators) {
    std::vector<size_t> places(separators.size());
    size_t end = text.size();
    for (size_t i = separators.size(); i > 0; --i) {
        end = text.substr(0, end).rfind(separators[i - 1]);
        places[i - 1] = end;
    }
    return places;
}

} // namespace

std::optional<std::vector<std::string>> readByLayout(std::string_view text,
                                                     const std::vector<std::string>& separators) {
    const size_t end = text.find_last_not_of("\r\n");
    if (end == std::string_view::npos || end == 0 || text.front() != '"' || text[end] != '"') {
        return std::nullopt;
    }
    const std::string_view inner = text.substr(1, end - 1);
    const auto places = earliest(inner, separators);
    if (!places || *places != latest(inner, separators)) {
        return std::nullopt;
    }
    std::vector<std::string> values;
    size_t from = 0;
    for (size_t i = 0; i < separators.size(); ++i) {
        values.emplace_back(inner.substr(from, (*places)[i] - from));
        from = (*places)[i] + separators[i].size();
    }
    values.emplace_back(inner.substr(from));
    return values;
}

} // namespace turnpost
