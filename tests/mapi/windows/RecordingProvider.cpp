// A mail client for tests. It appends what it is asked to the file that TURNPOST_RECORD names and
// answers with the codes in TURNPOST_LOGON_CODE and TURNPOST_SEND_CODE.

#include <windows.h>

#include <mapi.h>

#include <sstream>
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

std::string oneLine(const std::string& text) {
    std::string line;
    for (const char c : text) {
        line += c == '\r' ? "<CR>" : c == '\n' ? "<LF>" : std::string(1, c);
    }
    return line;
}

template <typename... Parts> void record(const Parts&... parts) {
    const HANDLE file = CreateFileW(variable(L"TURNPOST_RECORD").c_str(), FILE_APPEND_DATA, 0,
                                    nullptr, OPEN_ALWAYS, 0, nullptr);
    std::ostringstream line;
    (line << ... << parts);
    const std::string bytes = oneLine(line.str()) + '\n';
    DWORD written = 0;
    WriteFile(file, bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr);
    CloseHandle(file);
}

// Bytes of the system's code page are recorded as they are.
std::string textAt(const char* text) {
    return text == nullptr ? "NULL" : text;
}

[[maybe_unused]] std::string textAt(const wchar_t* text) {
    if (text == nullptr) {
        return "NULL";
    }
    std::string bytes(3 * wcslen(text) + 1, '\0');
    bytes.resize(static_cast<size_t>(WideCharToMultiByte(
        CP_UTF8, 0, text, -1, bytes.data(), static_cast<int>(bytes.size()), nullptr, nullptr)));
    bytes.pop_back();
    return bytes;
}

// The structures of both calls differ in the characters only.
template <typename Char> std::string text(LPSTR pointer) {
    return textAt(reinterpret_cast<const Char*>(pointer));
}

template <typename Char>
ULONG recordMessage(const char* call, LHANDLE handle, const MapiMessage& message, FLAGS flags) {
    record(call, " session=", handle, " flags=", flags,
           " type=", text<Char>(message.lpszMessageType), " messageflags=", message.flFlags);
    record("subject=", text<Char>(message.lpszSubject));
    record("text=", text<Char>(message.lpszNoteText));
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
    record("logon window=", window, " profile=", textAt(profile), " password=", textAt(password),
           " flags=", flags);
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
