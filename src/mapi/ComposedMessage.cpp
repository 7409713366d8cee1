#include "mapi/ComposedMessage.h"

#include <algorithm>

namespace turnpost {

namespace {

// Selects a slot; creates it and those before it if they do not exist yet.
template <typename Slot> size_t select(std::vector<Slot>& slots, int index) {
    const auto selected = static_cast<size_t>(std::max(index, 0));
    slots.resize(std::max(slots.size(), selected + 1));
    return selected;
}

} // namespace

void ComposedMessage::Compose() {
    subject.clear();
    noteText.clear();
    recipients.clear();
    attachments.clear();
}

void ComposedMessage::RecipIndex(int index) {
    recipient_ = select(recipients, index);
}

void ComposedMessage::RecipDisplayName(const std::string& name) {
    recipients.at(recipient_).RecipDisplayName = name;
}

void ComposedMessage::RecipAddress(const std::string& address) {
    recipients.at(recipient_).RecipAddress = address;
}

void ComposedMessage::RecipType(int type) {
    recipients.at(recipient_).RecipType = type;
}

void ComposedMessage::AttachmentIndex(int index) {
    attachment_ = select(attachments, index);
}

void ComposedMessage::AttachmentPosition(int position) {
    attachments.at(attachment_).AttachmentPosition = position;
}

void ComposedMessage::AttachmentType(int type) {
    attachments.at(attachment_).AttachmentType = type;
}

void ComposedMessage::AttachmentPathName(const std::string& path) {
    attachments.at(attachment_).AttachmentPathName = path;
}

} // namespace turnpost
