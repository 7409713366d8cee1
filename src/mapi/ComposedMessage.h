#pragma once

#include "mapi/MailMessages.h"

#include <string>
#include <vector>

namespace turnpost {

struct MailRecipient {
    std::string RecipDisplayName;
    std::string RecipAddress;
    int RecipType = mainRecipient;
};

struct MailAttachment {
    int AttachmentPosition = 0;
    int AttachmentType = dataFile;
    std::string AttachmentPathName;
};

/// Holds the message that is being composed; the mail systems differ only in how they submit it.
class ComposedMessage : public MailMessages {
  public:
    void SessionID(long id) override { sessionId = id; }
    void Compose() override;
    void MsgIndex(int) override {}
    void MsgSubject(const std::string& text) override { subject = text; }
    void MsgNoteText(const std::string& text) override { noteText = text; }
    void RecipIndex(int index) override;
    void RecipDisplayName(const std::string& name) override;
    void RecipAddress(const std::string& address) override;
    void RecipType(int type) override;
    void AttachmentIndex(int index) override;
    void AttachmentPosition(int position) override;
    void AttachmentType(int type) override;
    void AttachmentPathName(const std::string& path) override;

  protected:
    long sessionId = 0;
    std::string subject;
    std::string noteText;
    std::vector<MailRecipient> recipients;
    std::vector<MailAttachment> attachments;

  private:
    size_t recipient_ = 0;
    size_t attachment_ = 0;
};

} // namespace turnpost
