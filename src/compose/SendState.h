#pragma once

#include <cstdint>
#include <string>

namespace turnpost {

/// What a session has sent last, from nothing yet (0) to QUIT (6). A session that was broken off
/// counts as having sent QUIT, so that it ignores further replies.
enum class LastSent : std::uint8_t { Nothing, Helo, MailFrom, RcptTo, Data, MessageText, Quit };

/// The fields of a send, shared by the driver and the session. Between two events they are the
/// whole state of the send.
struct SendState {
    /// The server setting without the blanks around it, taken when the send starts.
    std::string ServerAddress;
    /// The roster row being processed: -1 before the first step, 16 after the last row.
    std::int16_t SendCursor = -1;
    /// Rows ticked when the send started, and ticked rows reached so far.
    std::int16_t IncludedCount = 0;
    std::int16_t ReachedCount = 0;
    /// UUencoded blocks of the row's files, each followed by an empty line.
    std::string AttachmentText;
    /// The row's texts after placeholder substitution.
    std::string PlayerBody;
    std::string PlayerSubject;
    LastSent SmtpState = LastSent::Quit;
};

} // namespace turnpost
