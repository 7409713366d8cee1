#include "Property.h"
#include "platform/CodePage.h"
#include "platform/Text.h"

#include <iconv.h>
#include <optional>

using namespace turnpost;
using fuzz::require;

namespace {

/// The system's own opinion: the bytes in another encoding; nothing when they are none of this one.
std::optional<std::string> converted(std::string bytes, const char* from, const char* to) {
    const iconv_t converter = iconv_open(to, from);
    std::string result(bytes.size() * 4, '\0');
    char* in = bytes.data();
    char* out = result.data();
    size_t inLeft = bytes.size();
    size_t outLeft = result.size();
    const bool good = iconv(converter, &in, &inLeft, &out, &outLeft) != static_cast<size_t>(-1);
    iconv_close(converter);
    result.resize(result.size() - outLeft);
    return good ? std::optional(result) : std::nullopt;
}

void checkWindows1252(const std::string& bytes) {
    const std::string text = fromWindows1252(bytes);
    require(isUtf8(text), "any bytes become well-formed text");
    require(toWindows1252(text) == bytes, "every byte of the code page survives a round trip");
    const auto expected = converted(bytes, "WINDOWS-1252", "UTF-8");
    require(!expected || text == *expected, "bytes are the characters that the system knows");
}

void checkCodePoints(const std::string& bytes) {
    std::string again;
    size_t points = 0;
    for (size_t position = 0; position < bytes.size(); ++points) {
        const size_t before = position;
        appendUtf8(again, nextCodePoint(bytes, position));
        require(position > before && position <= bytes.size(), "reading moves on, inside the text");
    }
    require(isUtf8(bytes) == converted(bytes, "UTF-8", "UTF-32LE").has_value(),
            "UTF-8 is what the system takes for it");
    require(isUtf8(again), "code points that were read can be written");
    require((again == bytes) == isUtf8(bytes), "only what is no UTF-8 changes");
    require(toWindows1252(bytes).size() == points, "one byte a character, none lost");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, size_t size) {
    const std::string bytes = fuzz::bytesOf(data, size);
    checkWindows1252(bytes);
    checkCodePoints(bytes);
    require(isUtf8(fromFileBytes(bytes)), "a file's bytes become well-formed text");
    require(isUtf8(fromWireBytes(bytes)), "a server's words become well-formed text");
    if (isUtf8(bytes) && !bytes.starts_with("\xEF\xBB\xBF")) {
        require(fromFileBytes(toFileBytes(bytes)) == bytes, "a file keeps every character");
    }
    require(foldCase(foldCase(bytes)) == foldCase(bytes), "folding twice changes nothing more");
    return 0;
}
