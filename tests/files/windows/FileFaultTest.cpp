#include "fakes/TempFolder.h"
#include "files/FileError.h"

#include <array>
#include <bit>
#include <gtest/gtest.h>
#include <process.h>
#include <windows.h>

namespace turnpost {

namespace {

const std::string oldBytes = "\"old\"\r\n";
const std::string newBytes = "\"" + std::string(700, 'n') + "\"\r\n";

// The system calls that change files; all go through one library. The first, closing, cannot fail.
constexpr std::array calls = {"NtClose",    "NtCreateFile",         "NtFlushBuffersFile",
                              "NtOpenFile", "NtSetInformationFile", "NtWriteFile"};
constexpr LONG diskFull = static_cast<LONG>(0xC000007F);
constexpr int killed = 9;

// More arguments than any of them has; passing on too many does no harm.
using P = void*;
using Call = LONG (*)(P, P, P, P, P, P, P, P, P, P, P);

std::array<Call, calls.size()> systemCalls;
// The number of calls before the one that fails or ends the process.
int goodCalls = -1;
bool kills = false;
std::string failed;

template <size_t I> LONG intercepted(P a, P b, P c, P d, P e, P f, P g, P h, P i, P j, P k) {
    if ((I > 0 || kills) && goodCalls-- == 0) {
        if (kills) {
            TerminateProcess(GetCurrentProcess(), killed);
        }
        failed = calls.at(I);
        return diskFull;
    }
    return systemCalls[I](a, b, c, d, e, f, g, h, i, j, k);
}

template <size_t... I> void intercept(std::index_sequence<I...> /*all*/) {
    auto* const library = reinterpret_cast<char*>(GetModuleHandleW(L"kernelbase.dll"));
    const auto& headers = *reinterpret_cast<IMAGE_NT_HEADERS*>(
        library + reinterpret_cast<IMAGE_DOS_HEADER*>(library)->e_lfanew);
    const auto& imports = headers.OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IAT];
    auto* const import = reinterpret_cast<Call*>(library + imports.VirtualAddress);
    DWORD protection = 0;
    VirtualProtect(import, imports.Size, PAGE_READWRITE, &protection);
    const auto divert = [&](Call& call, const char* name, Call ours) {
        call = std::bit_cast<Call>(GetProcAddress(GetModuleHandleW(L"ntdll.dll"), name));
        std::replace(import, import + imports.Size / sizeof(Call), call, ours);
    };
    (divert(systemCalls[I], calls[I], intercepted<I>), ...);
}

// Why the save was refused; empty when it was not.
std::string failure(const std::string& path, int callsBefore) {
    goodCalls = callsBefore;
    try {
        replaceFile(path, newBytes);
        return "";
    } catch (const FileError& error) {
        return error.reason();
    }
}

} // namespace

TEST(FileFault, FailedSystemCallsLeaveTheOldFileWhole) {
    intercept(std::make_index_sequence<calls.size()>());
    const TempFolder temp;
    std::set<std::string> reported;
    bool reached = true;
    for (int before = 0; reached && !testing::Test::HasFailure(); ++before) {
        temp.write("A", oldBytes);
        const bool refused = !failure(temp.path("A"), before).empty();
        reached = std::exchange(goodCalls, -1) < 0;
        EXPECT_EQ(temp.read("A"), refused ? oldBytes : newBytes) << failed;
        EXPECT_EQ(temp.names(), std::set<std::string>{"A"}) << failed;
        if (refused) {
            reported.insert(failed);
        }
    }
    EXPECT_EQ(reported, std::set<std::string>(calls.begin() + 1, calls.end()));
}

TEST(FileFault, KilledSavesLeaveTheOldOrTheNewFile) {
    if (const wchar_t* path = _wgetenv(L"TURNPOST_FILE")) {
        intercept(std::make_index_sequence<calls.size()>());
        kills = true;
        failure(fromNativePath(path), _wtoi(_wgetenv(L"TURNPOST_GOOD_CALLS")));
        _exit(0);
    }
    const TempFolder temp;
    SetEnvironmentVariableW(L"TURNPOST_FILE", toNativePath(temp.path("A")).c_str());
    std::set<std::string> seen;
    std::intptr_t end = killed;
    for (int before = 0; end == killed && !testing::Test::HasFailure(); ++before) {
        temp.write("A", oldBytes);
        SetEnvironmentVariableW(L"TURNPOST_GOOD_CALLS", std::to_wstring(before).c_str());
        end = -1;
        // On a busy machine Wine sometimes fails to start a program.
        for (int attempt = 0; attempt < 5 && end == -1; ++attempt) {
            end = _wspawnl(_P_WAIT, _wpgmptr, L"test", L"--gtest_brief=1",
                           L"--gtest_filter=FileFault.KilledSaves*", nullptr);
        }
        const std::string found = temp.read("A");
        EXPECT_TRUE(found == oldBytes || found == newBytes) << before << found;
        seen.insert(found);
        EXPECT_EQ(failure(temp.path("A"), -1), "") << "what a killed save left is in the way";
    }
    EXPECT_EQ(end, 0);
    EXPECT_EQ(seen.size(), 2U) << "never killed on both sides of the change";
    SetEnvironmentVariableW(L"TURNPOST_FILE", nullptr);
}

} // namespace turnpost
