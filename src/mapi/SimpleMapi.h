#pragma once

#include <windows.h>

#include <mapi.h>

#include <map>
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

/// Simple MAPI's calls, loaded at run time: a system need not have them.
class SimpleMapi {
  public:
    /// `libraryFile` is a name in the system's folder, or a full path. It is loaded at the first
    /// logon and then stays, since mail clients leave threads of their own in it.
    explicit SimpleMapi(std::wstring libraryFile = L"MAPI32.DLL")
        : libraryName(std::move(libraryFile)) {}
    SimpleMapi(const SimpleMapi&) = delete;
    SimpleMapi& operator=(const SimpleMapi&) = delete;

    /// Opens a session; profile and password are UTF-8. Gives its identifier, counted from 1, or 0
    /// when no mail client is set up, the library or one of its calls is missing, or the mail
    /// client refuses.
    long logon(const std::string& profile, const std::string& password, FLAGS flags);

    /// Closes the session; does nothing when it is not open.
    void logoff(long session);

    /// True when there is a call that takes UTF-16. Known after the first logon.
    bool takesUtf16() const { return sendMailWCall != nullptr; }

    /// Submits the message without a dialog. Gives SUCCESS_SUCCESS or a MAPI_E code, that of an
    /// invalid session when the session is not open.
    ULONG sendMail(long session, MapiMessage& message) const;
    ULONG sendMail(long session, MapiMessageW& message) const;

  private:
    using SendMailW = ULONG(WINAPI*)(LHANDLE, ULONG_PTR, MapiMessageW*, FLAGS, ULONG);

    bool load();

    std::wstring libraryName;
    HMODULE library = nullptr;
    LPMAPILOGON logonCall = nullptr;
    LPMAPILOGOFF logoffCall = nullptr;
    LPMAPISENDMAIL sendMailCall = nullptr;
    SendMailW sendMailWCall = nullptr;
    // Identifiers are of our own making: a handle may be wider than they are.
    std::map<long, LHANDLE> handles;
    long lastSession = 0;
};

} // namespace turnpost
