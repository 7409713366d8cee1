#pragma once

#include <array>
#include <cstdint>
#include <string>

namespace turnpost {

/// What goes to every included player besides the text; lasts for the run only.
struct AttachmentChoices {
    /// Flags are on only when they hold exactly 1.
    std::uint8_t SendMFiles = 1;
    std::uint8_t SendXYFile = 0;
    /// Full paths; an empty entry is unused.
    std::array<std::string, 3> ExtraAttachments;

    bool operator==(const AttachmentChoices&) const = default;
};

} // namespace turnpost
