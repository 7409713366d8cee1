#pragma once

#include <string>

namespace turnpost {

/// Why something was not done, in words for the host. Functions that may refuse return
/// std::optional<Refusal>: nothing when all went well.
struct Refusal {
    std::string words;

    bool operator==(const Refusal&) const = default;
};

} // namespace turnpost
