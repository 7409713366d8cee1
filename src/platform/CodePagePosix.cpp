#include "platform/CodePage.h"

namespace turnpost {

std::string fromFileBytes(std::string_view bytes) {
    constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
    if (!isUtf8(bytes)) {
        return fromWindows1252(bytes);
    }
    return std::string(bytes.starts_with(byteOrderMark) ? bytes.substr(byteOrderMark.size())
                                                        : bytes);
}

std::string toFileBytes(std::string_view text) {
    return std::string(text);
}

std::string toWireBytes(std::string_view text) {
    return toWindows1252(text);
}

std::string fromWireBytes(std::string_view bytes) {
    return isUtf8(bytes) ? std::string(bytes) : fromWindows1252(bytes);
}

} // namespace turnpost
