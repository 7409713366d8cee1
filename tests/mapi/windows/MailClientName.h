#pragma once

#include <windows.h>

#include <bit>
#include <string>

namespace turnpost {

/// Hides a root of the registry behind a key that holds the mail client's name only, or not even
/// that; for one test.
class MailClientName {
  public:
    MailClientName(HKEY registryRoot, const wchar_t* name) : root(registryRoot) {
        const auto path = L"Nimbus Turnpost Test\\" + std::to_wstring(std::bit_cast<size_t>(root));
        RegCreateKeyExW(HKEY_CURRENT_USER, path.c_str(), 0, nullptr, 0, KEY_ALL_ACCESS, nullptr,
                        &key, nullptr);
        if (name != nullptr) {
            RegSetKeyValueW(key, L"Software\\Clients\\Mail", nullptr, REG_SZ, name,
                            static_cast<DWORD>((wcslen(name) + 1) * sizeof(wchar_t)));
        }
        RegOverridePredefKey(root, key);
    }
    MailClientName(const MailClientName&) = delete;
    MailClientName& operator=(const MailClientName&) = delete;
    ~MailClientName() {
        RegOverridePredefKey(root, nullptr);
        RegDeleteTreeW(key, nullptr);
        RegCloseKey(key);
    }

  private:
    HKEY root;
    HKEY key = nullptr;
};

} // namespace turnpost
