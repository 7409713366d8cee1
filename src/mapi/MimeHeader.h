#pragma once

#include <optional>
#include <string>

namespace turnpost {

/// The name or subject on one line, as a header field holds it: plain ASCII as it is, all else in
/// encoded words (RFC 2047). Line breaks become blanks; apart from that it comes back unchanged.
std::string headerText(const std::string& value);

/// The address as a header field and a mail program take it, without the blanks around it: with the
/// domain in its ASCII form (RFC 5891), which every mail system knows. One whose local part is not
/// ASCII stays as it is: only a mail system that takes all of it can deliver it. Nothing when the
/// text is not one address, so that a part of it would end the address and start something else, or
/// when its domain has no ASCII form: such mail is taken and then lost. Whether the address exists,
/// or could, is for the mail system to say.
std::optional<std::string> mailAddress(const std::string& text);

} // namespace turnpost
