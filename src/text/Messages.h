#pragma once

#include <string>
#include <string_view>

// Every text of a message box and of the sending report. File names and the words of servers and
// systems are inserted unchanged, so show these texts as plain text.
namespace turnpost::messages {

// Message boxes. They show about 500 characters of a path or reason.
inline constexpr const char* noServerAddress = "No SMTP server address entered";
inline constexpr const char* invalidServerAddress = "Invalid SMTP server address";
inline constexpr const char* invalidGamePath = "Invalid game path";
/// `fault`: see invisibleCharacter.
std::string ownAddressUnsendable(std::string_view fault);
std::string socketError(int number, std::string_view description);
std::string cannotRead(std::string_view path, std::string_view reason);
std::string cannotWrite(std::string_view path, std::string_view reason);
/// `copy` is the name under which the damaged file is kept.
std::string settingsDamaged(std::string_view path, std::string_view copy);
std::string doesNotSurviveRoundTrip(std::string_view path);
std::string hostFileUnusable(std::string_view path, std::string_view reason);
inline constexpr const char* noMailSystem = "No mail system found";
inline constexpr const char* sendInProgress = "A send is already in progress";
inline constexpr const char* noGameDetails = "No game details entered";
std::string detailsSaved(std::string_view path);
inline constexpr const char* gameFileNotFound = "Gamefile not found";
inline constexpr const char* defaultGameFileNotFound = "Default Gamefile not found";
inline constexpr const char* storedGameNotFound = "Game details not found";
std::string gameFileDamaged(std::string_view path, std::string_view reason);
inline constexpr const char* enterGameName = "Please enter a game name";
inline constexpr const char* findGameFirst = "Please find a game";
inline constexpr const char* saveGameFirst = "Please save game details first";

// What is wrong with a game details file.
inline constexpr const char* notWholeGameFile =
    "It is not a game details file, or only part of one";
inline constexpr const char* severalWaysToRead = "Its double quotes leave several ways to read it";
std::string flagIsNoNumber(int row);
inline constexpr const char* ownFileTooLarge = "It is larger than 1 MiB";

// Why one of the program's own files cannot be written.
inline constexpr const char* ownFileWouldBeTooLarge =
    "It would be larger than 1 MiB, and so not be read again";
inline constexpr const char* ownFileNotUtf8 = "A name in it is not valid UTF-8";

// Reasons why a file cannot be read or written.
inline constexpr const char* isFolder = "It is a folder, not a file";
inline constexpr const char* isPipe = "It is a pipe, not a file";
inline constexpr const char* isDevice = "It is a device, not a file";
inline constexpr const char* nulInPath = "A file name cannot hold a NUL character";
inline constexpr const char* notOfThisSystem = "It is not a full path on this system";
/// For an error for which the system has no words.
std::string unknownSystemError(int number);

// Why a folder or file is grey in the file picker.
inline constexpr const char* nameIsNotUtf8 =
    "This name is not valid UTF-8, so a game file cannot hold it. Rename it to use it here.";
inline constexpr const char* nameHoldsLineBreak =
    "This name holds a line break, so a game file cannot hold it. Rename it to use it here.";

// Reasons why a host file gives no year.
inline constexpr const char* hostFileTooShort =
    "It is shorter than 14 bytes and holds no game year";
inline constexpr const char* hostYearTooLarge = "Its game year is above 32767";
inline constexpr const char* hostFileMissing = "There is no such file";

// Lines of the sending report. Rows are 0 to 15, entries 0 to 2.
inline constexpr const char* playerSkipped = "Player Skipped";
inline constexpr const char* noEmailAddress = "No Email Address for Player";
std::string addressUnsendable(std::string_view fault);
std::string alternateAddressUnsendable(std::string_view fault);
/// The `fault` of an address: its character at this place, counted from 1.
std::string invisibleCharacter(int place, char32_t code);
std::string unwritableCharacter(int place, char32_t code);
std::string turnFileNotFound(int row);
std::string turnFileUnreadable(int row);
std::string universeFileNotFound();
std::string universeFileUnreadable();
std::string extraFileNotFound(int entry);
std::string extraFileUnreadable(int entry);
inline constexpr const char* messageTooLong = "Message too long";
inline constexpr const char* emailSent = "Email sent OK";
std::string smtpError(std::string_view reply);
inline constexpr const char* emailGenerated = "Email Generated OK";
std::string mapiError(std::string_view words);
/// Words for an error code of Simple MAPI (1 and up), followed by the code.
std::string simpleMapiFailure(unsigned long code);
/// How the sendmail program ended: with an exit status (those of sysexits(3) in words), by a
/// signal, killed after this time, or not even started.
std::string mailExitStatus(int status);
std::string mailSignal(int number, std::string_view description);
std::string mailTimeout(long long seconds);
std::string cannotStart(std::string_view path, std::string_view reason);
/// The text is not exactly one address, or its domain has no ASCII form.
std::string notOneAddress(std::string_view address);
std::string hostNotOneAddress(std::string_view address);

/// What the main window shows at a row after a send has broken off.
inline constexpr const char* brokeOffHere = "Broke off here: may or may not have arrived";
inline constexpr const char* notReached = "Not reached";

/// The text before a row's line in the report.
std::string reportPrefix(int row);

} // namespace turnpost::messages
