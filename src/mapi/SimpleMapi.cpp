#include "mapi/SimpleMapi.h"

#include "platform/CodePage.h"

#include <bit>

namespace turnpost {

namespace {

template <typename Call> void find(Call& call, HMODULE library, const char* name) {
    call = std::bit_cast<Call>(GetProcAddress(library, name));
}

// Without a mail client the system's library would ask the person to set one up, or take every
// message and drop it.
bool isMailClientSetUp() {
    for (const HKEY root : {HKEY_CURRENT_USER, HKEY_LOCAL_MACHINE}) {
        DWORD size = 0;
        const LSTATUS status = RegGetValueW(root, L"Software\\Clients\\Mail", nullptr,
                                            RRF_RT_REG_SZ, nullptr, nullptr, &size);
        if (status == ERROR_SUCCESS && size > sizeof(wchar_t)) {
            return true;
        }
    }
    return false;
}

template <typename Call, typename Message>
ULONG submit(Call call, const std::map<long, LHANDLE>& handles, long session, Message& message) {
    const auto handle = handles.find(session);
    if (handle == handles.end()) {
        return MAPI_E_INVALID_SESSION;
    }
    return call == nullptr ? MAPI_E_NOT_SUPPORTED : call(handle->second, 0, &message, 0, 0);
}

} // namespace

bool SimpleMapi::load() {
    if (library == nullptr) {
        // The system's folder only: a library of this name beside the program is not to be trusted.
        library = LoadLibraryExW(libraryName.c_str(), nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32);
    }
    if (library == nullptr) {
        return false;
    }
    find(logonCall, library, "MAPILogon");
    find(logoffCall, library, "MAPILogoff");
    find(sendMailCall, library, "MAPISendMail");
    find(sendMailWCall, library, "MAPISendMailW");
    return logonCall != nullptr && logoffCall != nullptr &&
           (sendMailCall != nullptr || sendMailWCall != nullptr);
}

long SimpleMapi::logon(const std::string& profile, const std::string& password, FLAGS flags) {
    if (!isMailClientSetUp() || !load()) {
        return 0;
    }
    std::string profileBytes = toFileBytes(profile);
    std::string passwordBytes = toFileBytes(password);
    LHANDLE handle = lhSessionNull;
    const ULONG code = logonCall(0, profileBytes.data(), passwordBytes.data(), flags, 0, &handle);
    if (code != SUCCESS_SUCCESS || handle == lhSessionNull) {
        return 0;
    }
    handles[++lastSession] = handle;
    return lastSession;
}

void SimpleMapi::logoff(long session) {
    if (const auto handle = handles.find(session); handle != handles.end()) {
        logoffCall(handle->second, 0, 0, 0);
        handles.erase(handle);
    }
}

ULONG SimpleMapi::sendMail(long session, MapiMessage& message) const {
    return submit(sendMailCall, handles, session, message);
}

ULONG SimpleMapi::sendMail(long session, MapiMessageW& message) const {
    return submit(sendMailWCall, handles, session, message);
}

} // namespace turnpost
