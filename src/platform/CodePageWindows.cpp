#include "platform/CodePage.h"

#include <windows.h>

namespace turnpost {

namespace {

std::wstring toWide(UINT codePage, std::string_view bytes) {
    const int size = static_cast<int>(bytes.size());
    std::wstring wide(
        static_cast<size_t>(MultiByteToWideChar(codePage, 0, bytes.data(), size, nullptr, 0)),
        L'\0');
    MultiByteToWideChar(codePage, 0, bytes.data(), size, wide.data(),
                        static_cast<int>(wide.size()));
    return wide;
}

std::string toBytes(UINT codePage, const std::wstring& wide) {
    // Best-fit characters would change a name silently; "?" can be seen.
    const DWORD flags = codePage == CP_UTF8 ? 0 : WC_NO_BEST_FIT_CHARS;
    const int size = static_cast<int>(wide.size());
    std::string bytes(static_cast<size_t>(WideCharToMultiByte(codePage, flags, wide.data(), size,
                                                              nullptr, 0, nullptr, nullptr)),
                      '\0');
    WideCharToMultiByte(codePage, flags, wide.data(), size, bytes.data(),
                        static_cast<int>(bytes.size()), nullptr, nullptr);
    return bytes;
}

} // namespace

std::string fromFileBytes(std::string_view bytes) {
    return toBytes(CP_UTF8, toWide(CP_ACP, bytes));
}

std::string toFileBytes(std::string_view text) {
    return toBytes(CP_ACP, toWide(CP_UTF8, text));
}

std::string toWireBytes(std::string_view text) {
    return toFileBytes(text);
}

std::string fromWireBytes(std::string_view bytes) {
    return isUtf8(bytes) ? std::string(bytes) : fromFileBytes(bytes);
}

std::wstring toUtf16(std::string_view text) {
    return toWide(CP_UTF8, text);
}

std::string fromUtf16(const std::wstring& wide) {
    return toBytes(CP_UTF8, wide);
}

} // namespace turnpost
