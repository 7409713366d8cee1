#include "text/CodePage.h"

namespace turnpost {

std::string fromSystemBytes(std::string_view bytes) {
    return fromWindows1252(bytes);
}

std::string toFileBytes(std::string_view text) {
    return std::string(text);
}

std::string toWireBytes(std::string_view text) {
    return toWindows1252(text);
}

} // namespace turnpost
