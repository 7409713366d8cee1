#include "text/CodePage.h"
#include "text/SystemErrors.h"

#include <iterator>
#include <windows.h>

namespace turnpost {

std::string systemErrorWords(unsigned long code) {
    wchar_t words[1024];
    const DWORD length = FormatMessageW(
        FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS | FORMAT_MESSAGE_MAX_WIDTH_MASK,
        nullptr, code, 0, words, static_cast<DWORD>(std::size(words)), nullptr);
    std::string text = fromUtf16({words, length});
    text.erase(text.find_last_not_of(" \r\n") + 1);
    return text;
}

} // namespace turnpost
