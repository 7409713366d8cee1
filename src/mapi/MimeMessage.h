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

/// A message in the format of RFC 5322 and MIME (RFC 2045 to 2047). Texts are UTF-8.
struct MimeMessage {
    /// Without an address the message has no From field.
    MimeAddress from;
    std::vector<MimeAddress> to;
    std::vector<MimeAddress> cc;
    std::string subject;
    std::string text;
    std::vector<MimeFile> files;
};

/// The message as bytes with lines ending in LF, with the current date and a new identifier. Each
/// address must be a result of mailAddress (MimeHeader.h). Line breaks in names and the subject
/// become blanks. A reader gets the text exactly, with each line break (CR LF, CR or LF) as the
/// line break of mail, and the files byte for byte. Peak memory is twice the size of the result, if
/// the argument is moved in.
std::string mimeBytes(MimeMessage message);

} // namespace turnpost
