#pragma once

#include <optional>
#include <string>

namespace turnpost {

/// A name or subject as one line for a header field: plain ASCII unchanged, anything else in
/// encoded words (RFC 2047). Line breaks become blanks; a reader gets everything else unchanged.
std::string headerText(const std::string& value);

/// The address for a header field or a mail program: without blanks around it, and with the domain
/// in its ASCII form (RFC 5891), which every mail system knows. If the part before the "@" is not
/// ASCII, the domain stays as it is, because only a mail system that supports both can deliver such
/// mail. Returns nothing when the text is not exactly one address (it could add a recipient or a
/// header), or when its domain has no ASCII form (such mail is accepted and then lost). Whether the
/// address exists is not checked.
std::optional<std::string> mailAddress(const std::string& text);

} // namespace turnpost
