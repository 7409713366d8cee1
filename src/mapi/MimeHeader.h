#pragma once

#include <string>

namespace turnpost {

/// The name or subject on one line, as a header field holds it: plain ASCII as it is, all else in
/// encoded words (RFC 2047). Line breaks become blanks; apart from that it comes back unchanged.
std::string headerText(const std::string& value);

/// True when the text is one e-mail address as a header field or a mail program takes it, without a
/// name: nothing in it ends the address and starts something else. Whether the address exists, or
/// could, is for the mail system to say. Blanks around it do not count.
bool isOneAddress(const std::string& text);

} // namespace turnpost
