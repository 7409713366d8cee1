#include "fakes/TempFolder.h"
#include "files/FileError.h"

#include <array>
#include <bit>
#include <gtest/gtest.h>
#include <windows.h>

namespace turnpost {

namespace {

const std::string oldBytes = "\"old\"\r\n";
const std::string newBytes = "\"" + std::string(700, 'n') + "\"\r\n";

// The system calls that change files and can fail; all go through one library.
constexpr std::array calls = {"NtCreateFile", "NtFlushBuffersFile", "NtOpenFile",
                              "NtSetInformationFile", "NtWriteFile"};
constexpr LONG diskFull = static_cast<LONG>(0xC000007F);

// More arguments than any of them has; passing on too many does no harm.
using P = void*;
using Call = LONG (*)(P, P, P, P, P, P, P, P, P, P, P);

std::array<Call, calls.size()> systemCalls;
// The number of calls before the one that fails.
int goodCalls = -1;
std::string failed;

template <size_t I> LONG intercepted(P a, P b, P c, P d, P e, P f, P g, P h, P i, P j, P k) {
    if (goodCalls-- == 0) {
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

} // namespace

TEST(FileFault, FailedSystemCallsLeaveTheOldFileWhole) {
    intercept(std::make_index_sequence<calls.size()>());
    const TempFolder temp;
    std::set<std::string> reported;
    bool reached = true;
    for (int before = 0; reached && !testing::Test::HasFailure(); ++before) {
        temp.write("A", oldBytes);
        bool refused = false;
        goodCalls = before;
        try {
            replaceFile(temp.path("A"), newBytes);
        } catch (const FileError&) {
            refused = true;
        }
        reached = std::exchange(goodCalls, -1) < 0;
        EXPECT_EQ(temp.read("A"), refused ? oldBytes : newBytes) << failed;
        EXPECT_EQ(temp.names(), std::set<std::string>{"A"}) << failed;
        if (refused) {
            reported.insert(failed);
        }
    }
    EXPECT_EQ(reported, std::set<std::string>(calls.begin(), calls.end()));
}

// No person may write into this folder, an administrator neither. Wine shows a Linux system as Z:.
TEST(UnwritableFolder, RefusesANewFileWithTheSystemsReason) {
    const bool isWine = std::filesystem::exists("Z:\\sys");
    const std::string path = isWine ? "Z:\\sys\\A.NTP" : "C:\\System Volume Information\\A.NTP";
    try {
        replaceFile(path, "\"game\"");
        ADD_FAILURE() << "written: " << path;
    } catch (const FileError& error) {
        EXPECT_EQ(error.reason(), systemReason({ERROR_ACCESS_DENIED, std::system_category()}));
    }
}

} // namespace turnpost
