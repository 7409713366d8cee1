#pragma once

#include "text/Refusal.h"

#include <optional>
#include <string>

namespace turnpost {

inline constexpr int mainRecipient = 1;
inline constexpr int copyRecipient = 2;
inline constexpr int dataFile = 0;

/// The message that is being composed, with the members of the Simple MAPI message component. Texts
/// are UTF-8. RecipIndex and AttachmentIndex select a slot, which the members after them then fill.
/// Selecting a slot creates it.
class MailMessages {
  public:
    virtual ~MailMessages() = default;

    /// The session in which messages are sent.
    virtual void SessionID(long id) = 0;
    /// Clears the composition buffer and starts a new message.
    virtual void Compose() = 0;
    /// -1 means the message that is being composed; there is no other.
    virtual void MsgIndex(int index) = 0;
    virtual void MsgSubject(const std::string& subject) = 0;
    /// Lines end in CR LF.
    virtual void MsgNoteText(const std::string& text) = 0;
    virtual void RecipIndex(int index) = 0;
    virtual void RecipDisplayName(const std::string& name) = 0;
    virtual void RecipAddress(const std::string& address) = 0;
    /// mainRecipient or copyRecipient.
    virtual void RecipType(int type) = 0;
    virtual void AttachmentIndex(int index) = 0;
    /// Character of the note text, counted from 0, at which the attachment is placed.
    virtual void AttachmentPosition(int position) = 0;
    /// dataFile.
    virtual void AttachmentType(int type) = 0;
    /// Full path; the mail system shows the file's own name.
    virtual void AttachmentPathName(const std::string& path) = 0;

    /// Submits the message without a dialog. A refusal has the mail system's own words.
    virtual std::optional<Refusal> Send() = 0;
};

} // namespace turnpost
