#pragma once

#include <cstdint>
#include <string>

namespace turnpost {

/// The fields of a send, shared by the driver and the session. Between two events they are all that
/// is left of it.
struct SendState {
    /// The server setting without the blanks around it, taken when the send starts.
    std::string ServerAddress;
    /// The roster row being processed: -1 before the first step, 16 once past the last row.
    std::int16_t SendCursor = -1;
    /// Rows ticked when the send started, and ticked rows reached so far.
    std::int16_t IncludedCount = 0;
    std::int16_t ReachedCount = 0;
    /// UUencoded blocks of the row's files, each followed by an empty line.
    std::string AttachmentText;
    /// The row's texts after placeholder substitution.
    std::string PlayerBody;
    std::string PlayerSubject;
    /// The last thing sent: 0 nothing, 1 HELO, 2 MAIL FROM, 3 RCPT TO, 4 DATA, 5 the message text,
    /// 6 QUIT or abandoned.
    int SmtpState = 6;
};

} // namespace turnpost
