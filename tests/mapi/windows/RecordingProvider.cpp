// A mail client for tests. It appends what it is asked to the file that TURNPOST_RECORD names and
// answers with the codes in TURNPOST_LOGON_CODE and TURNPOST_SEND_CODE.

#include <windows.h>

#include <mapi.h>

#include <filesystem>
#include <fstream>
#include <string>

namespace {

// Wider than 32 bits, as a handle may be.
constexpr LHANDLE session = 12345678901234;

std::wstring variable(const wchar_t* name) {
    std::wstring value(32768, L'\0');
    value.resize(GetEnvironmentVariableW(name, value.data(), static_cast<DWORD>(value.size())));
    return value;
}

ULONG answer(const wchar_t* name) {
    return wcstoul(variable(name).c_str(), nullptr, 10);
}

template <typename... Parts> void record(const Parts&... parts) {
    std::ofstream file(std::filesystem::path(variable(L"TURNPOST_RECORD")),
                       std::ios::binary | std::ios::app);
    (file << ... << parts) << '\n';
}

// The structures of both calls differ in the characters only. Bytes of the system's code page are
// recorded as they are.
template <typename Char> std::string text(LPSTR pointer) {
    if (pointer == nullptr) {
        return "NULL";
    }
    if constexpr (sizeof(Char) == 1) {
        return pointer;
    } else {
        const std::u8string bytes =
            std::filesystem::path(reinterpret_cast<const Char*>(pointer)).u8string();
        return {bytes.begin(), bytes.end()};
    }
}

template <typename Char>
ULONG recordMessage(const char* call, LHANDLE handle, const MapiMessage& message, FLAGS flags) {
    record(call, " session=", handle, " flags=", flags,
           " type=", text<Char>(message.lpszMessageType), " messageflags=", message.flFlags,
           "\nsubject=", text<Char>(message.lpszSubject),
           "\ntext=", text<Char>(message.lpszNoteText));
    for (ULONG i = 0; i < message.nRecipCount; ++i) {
        const MapiRecipDesc& recipient = message.lpRecips[i];
        record("recipient class=", recipient.ulRecipClass, " name=", text<Char>(recipient.lpszName),
               " address=", text<Char>(recipient.lpszAddress));
    }
    for (ULONG i = 0; i < message.nFileCount; ++i) {
        const MapiFileDesc& file = message.lpFiles[i];
        record("file position=", file.nPosition, " flags=", file.flFlags,
               " path=", text<Char>(file.lpszPathName), " name=", text<Char>(file.lpszFileName));
    }
    return answer(L"TURNPOST_SEND_CODE");
}

} // namespace

extern "C" {

__declspec(dllexport) ULONG WINAPI MAPILogon(ULONG_PTR window, LPSTR profile, LPSTR password,
                                             FLAGS flags, ULONG, LPLHANDLE handle) {
    record("logon window=", window, " profile=", text<char>(profile),
           " password=", text<char>(password), " flags=", flags);
    *handle = session;
    return answer(L"TURNPOST_LOGON_CODE");
}

__declspec(dllexport) ULONG WINAPI MAPILogoff(LHANDLE handle, ULONG_PTR, FLAGS, ULONG) {
    record("logoff session=", handle);
    return SUCCESS_SUCCESS;
}

#ifndef WITHOUT_SENDING
__declspec(dllexport) ULONG WINAPI
    MAPISendMail(LHANDLE handle, ULONG_PTR, lpMapiMessage message, FLAGS flags, ULONG) {
    return recordMessage<char>("send", handle, *message, flags);
}

#ifndef WITHOUT_UTF16
__declspec(dllexport) ULONG WINAPI
    MAPISendMailW(LHANDLE handle, ULONG_PTR, lpMapiMessage message, FLAGS flags, ULONG) {
    return recordMessage<wchar_t>("sendW", handle, *message, flags);
}
#endif
#endif
}
