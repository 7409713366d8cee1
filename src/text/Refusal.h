#pragma once

#include <string>

namespace turnpost {

/// Why something was not done, in words for a person. Functions that may refuse give a
/// std::optional of it: nothing when all went well.
struct Refusal {
    std::string words;

    bool operator==(const Refusal&) const = default;
};

} // namespace turnpost
