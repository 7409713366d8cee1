#pragma once

#include <string>
#include <vector>

namespace turnpost {

struct MimeAddress {
    std::string name;
    std::string address;
};

struct MimeFile {
    /// The name that the reader sees, without a folder.
    std::string name;
    std::string bytes;
};

/// A message to be written as RFC 5322 and MIME say. Texts are UTF-8.
struct MimeMessage {
    /// Without an address the message has no From field.
    MimeAddress from;
    std::vector<MimeAddress> to;
    std::vector<MimeAddress> cc;
    std::string subject;
    std::string text;
    std::vector<MimeFile> files;
};

/// The message as bytes, lines ending in LF, dated now and with an identifier of its own. Each
/// address must be as mailAddress (MimeHeader.h) gives it; line breaks in names and the subject
/// become blanks. The text comes back exactly, with each line break (CR LF, CR or LF) as the line
/// break of mail; the files come back byte for byte. At its end it takes twice the memory of what
/// it gives; one that is moved in is taken apart on the way.
std::string mimeBytes(MimeMessage message);

} // namespace turnpost
