#pragma once

#include <string>

namespace turnpost {

/// What every player's e-mail is made from, with placeholders.
struct MessageTemplate {
    std::string MessageSubject;
    /// Lines separated by CR LF.
    std::string MessageBody;

    bool operator==(const MessageTemplate&) const = default;
};

} // namespace turnpost
