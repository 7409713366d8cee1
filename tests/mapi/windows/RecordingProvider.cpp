// A mail client for tests. It appends each request to the file that TURNPOST_RECORD names, and
// answers with the codes in TURNPOST_LOGON_CODE and TURNPOST_SEND_CODE.

#include "mapi/SimpleMapi.h"
#include "text/CodePage.h"

#include <filesystem>
#include <fstream>

namespace {

using turnpost::fromUtf16;

// Wider than 32 bits, because a handle may be.
constexpr LHANDLE session = 12345678901234;

std::wstring variable(const wchar_t* name) {
    std::wstring value(32768, L'\0');
    value.resize(GetEnvironmentVariableW(name, value.data(), static_cast<DWORD>(value.size())));
    return value;
}

template <typename... Parts> void record(const Parts&... parts) {
    std::ofstream file(std::filesystem::path(variable(L"TURNPOST_RECORD")),
                       std::ios::binary | std::ios::app);
    (file << ... << parts) << '\n';
}

ULONG answer(const wchar_t* code) {
    return wcstoul(variable(code).c_str(), nullptr, 10);
}

} // namespace

extern "C" {

__declspec(dllexport) ULONG WINAPI MAPILogon(ULONG_PTR window, LPSTR profile, LPSTR password,
                                             FLAGS flags, ULONG, LPLHANDLE handle) {
    record("logon window=", window, " profile=", profile, " password=", password, " flags=", flags);
    *handle = session;
    return answer(L"TURNPOST_LOGON_CODE");
}

__declspec(dllexport) ULONG WINAPI MAPILogoff(LHANDLE handle, ULONG_PTR window, FLAGS, ULONG) {
    record("logoff session=", handle, " window=", window);
    return SUCCESS_SUCCESS;
}

__declspec(dllexport) ULONG WINAPI
    MAPISendMailW(LHANDLE handle, ULONG_PTR window, const turnpost::MapiMessageW* message,
                  FLAGS flags, ULONG) {
    record("send session=", handle, " window=", window, " flags=", flags,
           "\nsubject=", fromUtf16(message->lpszSubject),
           "\ntext=", fromUtf16(message->lpszNoteText));
    for (ULONG i = 0; i < message->nRecipCount; ++i) {
        const turnpost::MapiRecipDescW& recipient = message->lpRecips[i];
        record("recipient class=", recipient.ulRecipClass, " name=", fromUtf16(recipient.lpszName),
               " address=", fromUtf16(recipient.lpszAddress));
    }
    for (ULONG i = 0; i < message->nFileCount; ++i) {
        const turnpost::MapiFileDescW& file = message->lpFiles[i];
        record("file position=", file.nPosition, " flags=", file.flFlags,
               " path=", fromUtf16(file.lpszPathName),
               " name=", file.lpszFileName == nullptr ? "NULL" : fromUtf16(file.lpszFileName));
    }
    return answer(L"TURNPOST_SEND_CODE");
}
}
