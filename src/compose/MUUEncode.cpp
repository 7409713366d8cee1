#include "compose/MUUEncode.h"

#include "platform/Files.h"
#include "platform/Path.h"
#include "platform/Text.h"

namespace turnpost {

namespace {

constexpr size_t bytesPerLine = 45;

// Zero is written as a grave accent: blanks at a line's end get lost in mail.
char character(unsigned value) {
    return value == 0 ? '`' : static_cast<char>(value + 32);
}

void appendLine(std::string& block, std::string_view chunk) {
    const auto byteAt = [&](size_t i) -> unsigned {
        return i < chunk.size() ? static_cast<unsigned char>(chunk[i]) : ' ';
    };
    block += character(static_cast<unsigned>(chunk.size()));
    for (size_t i = 0; i < chunk.size(); i += 3) {
        const unsigned group = byteAt(i) << 16 | byteAt(i + 1) << 8 | byteAt(i + 2);
        for (const int shift : {18, 12, 6, 0}) {
            block += character((group >> shift) & 63U);
        }
    }
    block += "\r\n";
}

} // namespace

std::string uuencodedBlock(std::string_view name, std::string_view bytes) {
    std::string block = "begin 664 " + oneLine(name) + "\r\n";
    block.reserve(block.size() + bytes.size() / bytesPerLine * 63 + 80);
    for (size_t from = 0; from <= bytes.size(); from += bytesPerLine) {
        appendLine(block, bytes.substr(from, bytesPerLine));
    }
    block += "`\r\nend\r\n";
    return block;
}

std::string UUEncode(const std::string& path) {
    return uuencodedBlock(nameOfPath(path), readFile(path));
}

} // namespace turnpost
