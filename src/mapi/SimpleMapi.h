#pragma once

#include <windows.h>

#include <mapi.h>

#include <cstdint>
#include <map>
#include <optional>
#include <string>

namespace turnpost {

// The structures in UTF-16, which the compiler's mapi.h lacks.

struct MapiFileDescW {
    ULONG ulReserved;
    ULONG flFlags;
    ULONG nPosition;
    PWSTR lpszPathName;
    PWSTR lpszFileName;
    PVOID lpFileType;
};

struct MapiRecipDescW {
    ULONG ulReserved;
    ULONG ulRecipClass;
    PWSTR lpszName;
    PWSTR lpszAddress;
    ULONG ulEIDSize;
    PVOID lpEntryID;
};

struct MapiMessageW {
    ULONG ulReserved;
    PWSTR lpszSubject;
    PWSTR lpszNoteText;
    PWSTR lpszMessageType;
    PWSTR lpszDateReceived;
    PWSTR lpszConversationID;
    FLAGS flFlags;
    MapiRecipDescW* lpOriginator;
    ULONG nRecipCount;
    MapiRecipDescW* lpRecips;
    ULONG nFileCount;
    MapiFileDescW* lpFiles;
};

/// Simple MAPI's calls, loaded at run time because a system need not have them. Messages only go
/// through MAPISendMailW: Windows has it since version 8, and the program needs Windows 10. For a
/// mail client that only takes bytes, Windows converts the message.
class SimpleMapi {
  public:
    /// `libraryName` is a name in the system's folder, or a full path. The library is loaded at the
    /// first logon and never unloaded, because mail clients leave threads of their own in it.
    explicit SimpleMapi(std::wstring libraryName = L"MAPI32.DLL")
        : libraryName_(std::move(libraryName)) {}
    SimpleMapi(const SimpleMapi&) = delete;
    SimpleMapi& operator=(const SimpleMapi&) = delete;

    struct Logon {
        /// The session's identifier, counted from 1; 0 for none.
        long session = 0;
        /// The MAPI_E code with which the mail client refused. Nothing after a success, and when
        /// there is no mail client: none is set up, or the library or one of its calls is missing.
        std::optional<ULONG> refusal;
    };

    /// Opens a session; profile and password are UTF-8.
    Logon logon(const std::string& profile, const std::string& password, FLAGS flags);

    /// Closes the session; does nothing when it is not open.
    void logoff(long session);

    /// Submits the message without a dialog. Returns SUCCESS_SUCCESS or a MAPI_E code;
    /// MAPI_E_INVALID_SESSION when the session is not open.
    ULONG sendMail(long session, MapiMessageW& message) const;

    /// Native id of the window that owns the mail client's dialogs; 0 for none.
    void setParentWindow(std::uintptr_t window) { parentWindow_ = window; }

  private:
    using SendMailW = ULONG(WINAPI*)(LHANDLE, ULONG_PTR, MapiMessageW*, FLAGS, ULONG);

    bool load();

    std::wstring libraryName_;
    HMODULE library_ = nullptr;
    LPMAPILOGON logonCall_ = nullptr;
    LPMAPILOGOFF logoffCall_ = nullptr;
    SendMailW sendMailCall_ = nullptr;
    std::uintptr_t parentWindow_ = 0;
    // Our own ids, because an LHANDLE may be wider than a long.
    std::map<long, LHANDLE> handles_;
    long lastSession_ = 0;
};

} // namespace turnpost
