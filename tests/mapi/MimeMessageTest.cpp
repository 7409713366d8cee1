#include "mapi/MimeMessage.h"
#include "mapi/MimeHeader.h"
#include "mapi/ParsedMail.h"

#include <algorithm>
#include <sstream>

namespace turnpost {

class MimeMessages : public testing::Test {
  protected:
    using Texts = std::vector<std::string>;

    MimeMessage message{
        {"Host", "host@example.org"}, {{"Ann", "ann@example.org"}}, {}, "Turn", "Text", {}};
};

TEST_F(MimeMessages, TextsOfAnyLanguageSurviveAsAscii) {
    std::string japanese = "A ";
    while (japanese.size() < 300) {
        japanese += "銀河大戦第二十四期";
    }
    for (const std::string& text :
         Texts{"", "blanks   \n \n  ", "\n\n\n", "From you\n.\nFrom me\n", "=41 = \t\n",
               "Zoë \"Q\", the (last) Ümlaut; <x>", "two  blanks", "=?utf-8?q?=41?= really=?",
               std::string(3000, 'x'), std::string("a\0b\x1B", 4), japanese}) {
        message.to.front().name = message.subject = message.text = text;
        std::string oneLine = text;
        std::ranges::replace(oneLine, '\n', ' ');
        const std::string bytes = mimeBytes(message);
        EXPECT_NE(bytes, mimeBytes(message)) << "two messages share an identifier";
        const ParsedMail parsed(bytes);
        EXPECT_EQ(parsed["text"], text);
        EXPECT_EQ(parsed["subject"], oneLine);
        EXPECT_EQ(parsed["to"], oneLine + "\nann@example.org\n");
        // Mail systems would add a missing last line end, and a ">" before "From ".
        EXPECT_EQ(bytes.back(), '\n');
        EXPECT_EQ(bytes.find("\nFrom "), std::string::npos);
        std::istringstream lines(bytes);
        for (std::string line; std::getline(lines, line);) {
            EXPECT_LE(line.size(), 78U) << line;
            EXPECT_EQ(std::ranges::count_if(line, [](char c) { return c < '\t' || c > '~'; }), 0);
        }
    }
}

TEST_F(MimeMessages, TextsNeverAddFieldsOrRecipients) {
    const std::string attack = "x\r\nBcc: eve@example.org\n\rTo: <eve@example.org>, \"";
    message.from.name = message.subject = attack;
    message.to = {{attack, "ann@example.org"}, {"a@b.org>, Eve <eve@example.org", "bob@b.org"}};
    message.files = {{"a\r\nBcc: eve@example.org", "bytes"}};
    const ParsedMail parsed(mimeBytes(message));
    const std::string harmless = "x Bcc: eve@example.org  To: <eve@example.org>, \"";
    EXPECT_EQ(parsed["fields"], "date from subject to message-id mime-version content-type");
    EXPECT_EQ(parsed["from"] + parsed["to"] + parsed["subject"],
              harmless + "\nhost@example.org\n" + harmless + "\nann@example.org\n" +
                  "a@b.org>, Eve <eve@example.org\nbob@b.org\n" + harmless);
    EXPECT_EQ(parsed["0.name"], "a Bcc: eve@example.org");
    EXPECT_EQ(parsed["types"], "multipart/mixed text/plain application/octet-stream");
    message.from.address.clear();
    EXPECT_EQ(ParsedMail(mimeBytes(message))["fields"],
              "date subject to message-id mime-version content-type");
}

TEST(MimeHeader, AcceptsOneAddressAndMakesItsDomainAscii) {
    for (const char* one : {"bob", "a..b@x.org", "-o@x.org", "Ann@Example.org", "müller@bücher.de",
                            "\"a, <b>\\\"\"@x.org", "a@[127.0.0.1]"}) {
        EXPECT_EQ(mailAddress(one), one);
    }
    EXPECT_EQ(mailAddress(" \"a@b\"@BÜCHER.de "), "\"a@b\"@xn--bcher-kva.de");
    for (const char* other :
         {"", " ", "a@x.org, b@x.org", "a,b@x.org", "a@x.org b@x.org", "a@x.org;b@x.org",
          "Ann <a@x.org>", "a@x.org (Ann)", "a@x.org\nBcc: b@x.org", "\"a\\\nBcc: b\"@x.org",
          "\"a@x.org", "a@x，b.org", "a@x＠ü.org", "a@☃.org", "ü@☃.org"}) {
        EXPECT_EQ(mailAddress(other), std::nullopt) << other;
    }
}

} // namespace turnpost
