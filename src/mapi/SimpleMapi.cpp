#include "mapi/SimpleMapi.h"

#include "text/CodePage.h"

#include <bit>

namespace turnpost {

namespace {

template <typename Call> void find(Call& call, HMODULE library, const char* name) {
    call = std::bit_cast<Call>(GetProcAddress(library, name));
}

// Without a mail client, the system's library would ask the host to set one up, or accept every
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

} // namespace

bool SimpleMapi::load() {
    if (library_ == nullptr) {
        // Only from the system's folder: a library beside the program is not to be trusted.
        library_ = LoadLibraryExW(libraryName_.c_str(), nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32);
    }
    if (library_ == nullptr) {
        return false;
    }
    find(logonCall_, library_, "MAPILogon");
    find(logoffCall_, library_, "MAPILogoff");
    find(sendMailCall_, library_, "MAPISendMailW");
    return logonCall_ != nullptr && logoffCall_ != nullptr && sendMailCall_ != nullptr;
}

SimpleMapi::Logon SimpleMapi::logon(const std::string& profile, const std::string& password,
                                    FLAGS flags) {
    if (!isMailClientSetUp() || !load()) {
        return {};
    }
    std::string profileBytes = toFileBytes(profile);
    std::string passwordBytes = toFileBytes(password);
    LHANDLE handle = lhSessionNull;
    const ULONG code =
        logonCall_(parentWindow_, profileBytes.data(), passwordBytes.data(), flags, 0, &handle);
    if (code != SUCCESS_SUCCESS || handle == lhSessionNull) {
        return {0, code == SUCCESS_SUCCESS ? MAPI_E_FAILURE : code};
    }
    handles_[++lastSession_] = handle;
    return {lastSession_, std::nullopt};
}

void SimpleMapi::logoff(long session) {
    if (const auto handle = handles_.find(session); handle != handles_.end()) {
        logoffCall_(handle->second, parentWindow_, 0, 0);
        handles_.erase(handle);
    }
}

ULONG SimpleMapi::sendMail(long session, MapiMessageW& message) const {
    const auto handle = handles_.find(session);
    return handle == handles_.end() ? MAPI_E_INVALID_SESSION
                                    : sendMailCall_(handle->second, parentWindow_, &message, 0, 0);
}

} // namespace turnpost
