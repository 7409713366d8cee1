#pragma once

#include <array>
#include <cstdint>
#include <string>

namespace turnpost {

/// What every included player gets besides the text. The choices last until the program ends.
struct AttachmentChoices {
    /// A flag is on only when it holds exactly 1.
    std::uint8_t SendMFiles = 1;
    std::uint8_t SendXYFile = 0;
    /// Full paths; an empty entry is unused.
    std::array<std::string, 3> ExtraAttachments;

    bool operator==(const AttachmentChoices&) const = default;
};

} // namespace turnpost
