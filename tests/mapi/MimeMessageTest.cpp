#include "mapi/MimeMessage.h"
#include "mapi/MimeHeader.h"
#include "mapi/ParsedMail.h"

#include <algorithm>
#include <sstream>

namespace turnpost {

using test::ParsedMail;

namespace {

const std::string plainFields =
    "date from subject to message-id mime-version content-type content-transfer-encoding";

MimeMessage plainMessage() {
    return {{"Host", "host@example.org"}, {{"Ann", "ann@example.org"}}, {}, "Turn", "Text", {}};
}

bool isPrintable(const std::string& line) {
    return std::all_of(line.begin(), line.end(),
                       [](char c) { return c == '\t' || (c >= ' ' && c <= '~'); });
}

std::string identifier(const std::string& message) {
    const std::string field = "\nMessage-Id: <";
    const size_t start = message.find(field) + field.size();
    return message.substr(start, message.find('\n', start) - start);
}

} // namespace

TEST(MimeMessage, TheTextComesBackExactly) {
    MimeMessage message = plainMessage();
    for (const std::string& text :
         {std::string(), std::string("no line end"), std::string("blanks   \n \n  "),
          std::string("\n\n\n"), std::string("From you\n.\nFrom me\n"), std::string("=41 = \t\n"),
          std::string("Grüße, 漢字 \xF0\x9F\x98\x80"), std::string(3000, 'x'),
          std::string(200, ' '), std::string("a\0b", 3)}) {
        message.text = text;
        message.files = {};
        const std::string bytes = mimeBytes(message);
        EXPECT_EQ(ParsedMail(bytes)["text"], text);
        // Mail systems add the one and mark the other.
        EXPECT_EQ(bytes.back(), '\n');
        EXPECT_EQ(bytes.find("\nFrom "), std::string::npos);
        message.files = {{"file", ""}};
        EXPECT_EQ(ParsedMail(mimeBytes(message))["text"], text) << "with an attachment";
    }
    message.text = "one\r\ntwo\rthree\n";
    const std::string bytes = mimeBytes(message);
    EXPECT_EQ(ParsedMail(bytes)["text"], "one\ntwo\nthree\n");
    EXPECT_EQ(bytes.find('\r'), std::string::npos);
}

TEST(MimeMessage, NoTextAddsAFieldOrARecipient) {
    const std::string attack = "x\r\nBcc: eve@example.org\n\rTo: <eve@example.org>, \"";
    MimeMessage message = plainMessage();
    message.from.name = message.subject = attack;
    message.to = {{attack, "ann@example.org"}, {"a@b.org>, Eve <eve@example.org", "bob@b.org"}};
    message.files = {{"a\r\nBcc: eve@example.org", "bytes"}};
    const ParsedMail parsed(mimeBytes(message));
    const std::string harmless = "x Bcc: eve@example.org  To: <eve@example.org>, \"";
    EXPECT_EQ(parsed["fields"], "date from subject to message-id mime-version content-type");
    EXPECT_EQ(parsed["from"], harmless + "\nhost@example.org\n");
    EXPECT_EQ(parsed["to"],
              harmless + "\nann@example.org\n" + "a@b.org>, Eve <eve@example.org\nbob@b.org\n");
    EXPECT_EQ(parsed["subject"], harmless);
    EXPECT_EQ(parsed["0.name"], "a Bcc: eve@example.org");
}

TEST(MimeMessage, NamesAndSubjectsOfAnyLanguageAreShortAsciiLinesAndComeBackUnchanged) {
    std::string japanese = "A ";
    while (japanese.size() < 300) {
        japanese += "銀河大戦第二十四期";
    }
    for (const std::string& text :
         {japanese, std::string("Zoë \"Q\", the (last) Ümlaut; <x>"), std::string("  two  blanks "),
          std::string("=?utf-8?q?=41?= really=?"), std::string(1200, ' ') + "end",
          std::string(1200, 'x'), std::string("tab\tescape\x1B")}) {
        MimeMessage message = plainMessage();
        message.to.front().name = message.subject = text;
        const std::string bytes = mimeBytes(message);
        const ParsedMail parsed(bytes);
        EXPECT_EQ(parsed["subject"], text);
        EXPECT_EQ(parsed["to"], text + "\nann@example.org\n");
        std::istringstream lines(bytes);
        for (std::string line; std::getline(lines, line) && !line.empty();) {
            EXPECT_LE(line.size(), 78U) << line;
            EXPECT_TRUE(isPrintable(line)) << line;
            const size_t word = line.rfind("=?UTF-8?B?");
            EXPECT_TRUE(word == std::string::npos || line.find("?=", word + 10) < line.size())
                << "an encoded word is broken: " << line;
        }
    }
}

TEST(MimeMessage, IsMultipartOnlyWithAttachmentsAndHasNoFromWithoutAnAddress) {
    MimeMessage message = plainMessage();
    EXPECT_EQ(ParsedMail(mimeBytes(message))["fields"], plainFields);
    EXPECT_EQ(ParsedMail(mimeBytes(message))["types"], "text/plain");
    message.from.address.clear();
    message.files = {{"a", ""}, {"b", "b"}};
    const ParsedMail parsed(mimeBytes(message));
    EXPECT_EQ(parsed["types"],
              "multipart/mixed text/plain application/octet-stream application/octet-stream");
    EXPECT_EQ(parsed["from"], "");
}

TEST(MimeMessage, TwoMessagesNeverShareAnIdentifier) {
    const std::string one = identifier(mimeBytes(plainMessage()));
    EXPECT_TRUE(one.ends_with("@example.org>")) << one;
    EXPECT_NE(one, identifier(mimeBytes(plainMessage())));
}

TEST(MimeHeader, AnAddressThatHoldsMoreThanOneIsNotOne) {
    for (const char* one : {"ann@example.org", " ann@example.org ", "bob", "a..b@x.org", "-o@x.org",
                            "\"a, <b>\\\"\"@x.org", "müller@x.org", "a@[127.0.0.1]"}) {
        EXPECT_TRUE(isOneAddress(one)) << one;
    }
    for (const char* other :
         {"", " ", "a@x.org, b@x.org", "a@x.org b@x.org", "a@x.org;b@x.org", "Ann <a@x.org>",
          "a@x.org (Ann)", "a@x.org\nBcc: b@x.org", "\"a\\\nBcc: b\"@x.org", "\"a@x.org"}) {
        EXPECT_FALSE(isOneAddress(other)) << other;
    }
}

} // namespace turnpost
