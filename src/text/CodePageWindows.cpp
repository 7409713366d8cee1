#include "text/CodePage.h"

#include <windows.h>

namespace turnpost {

namespace {

// GB 18030; windows.h has no constant for it.
constexpr UINT chineseUnicode = 54936;

std::wstring toWide(UINT codePage, std::string_view bytes) {
    const int size = static_cast<int>(bytes.size());
    std::wstring wide(
        static_cast<size_t>(MultiByteToWideChar(codePage, 0, bytes.data(), size, nullptr, 0)),
        L'\0');
    MultiByteToWideChar(codePage, 0, bytes.data(), size, wide.data(),
                        static_cast<int>(wide.size()));
    return wide;
}

std::string toBytes(UINT codePage, std::wstring_view wide) {
    // A missing character becomes "?", because a similar character would change a name unnoticed.
    // Code pages that hold every character do not accept this flag.
    const bool holdsAll = codePage == CP_UTF8 || codePage == chineseUnicode;
    const DWORD flags = holdsAll ? 0 : WC_NO_BEST_FIT_CHARS;
    const char* const missing = holdsAll ? nullptr : "?";
    const int size = static_cast<int>(wide.size());
    std::string bytes(static_cast<size_t>(WideCharToMultiByte(codePage, flags, wide.data(), size,
                                                              nullptr, 0, missing, nullptr)),
                      '\0');
    WideCharToMultiByte(codePage, flags, wide.data(), size, bytes.data(),
                        static_cast<int>(bytes.size()), missing, nullptr);
    return bytes;
}

} // namespace

std::string fromSystemBytes(std::string_view bytes) {
    // If UTF-8 is the system's code page, these bytes come from a system with another code page.
    return GetACP() == CP_UTF8 ? fromWindows1252(bytes) : fromUtf16(toWide(GetACP(), bytes));
}

std::string toFileBytes(std::string_view text) {
    return toBytes(GetACP(), toUtf16(text));
}

std::string toWireBytes(std::string_view text) {
    return toFileBytes(text);
}

std::wstring toUtf16(std::string_view text) {
    return toWide(CP_UTF8, text);
}

std::string fromUtf16(std::wstring_view text) {
    return toBytes(CP_UTF8, text);
}

} // namespace turnpost
