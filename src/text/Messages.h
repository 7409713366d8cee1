#pragma once

#include <string>
#include <string_view>

// Every text of a message box and of the sending report, and nothing else. File names and the words
// of servers and systems are put in as they are; whoever shows them shows plain text.
namespace turnpost::messages {

// Message boxes. Of a path or a reason they show at most some 500 characters.
std::string noServerAddress();
std::string invalidServerAddress();
std::string invalidGamePath();
/// The host's own address, and what is wrong with it (see below).
std::string ownAddressUnsendable(std::string_view fault);
std::string socketError(int number, std::string_view description);
std::string cannotRead(std::string_view path, std::string_view reason);
std::string cannotWrite(std::string_view path, std::string_view reason);
/// `copy` is the name under which the damaged file is kept.
std::string settingsDamaged(std::string_view path, std::string_view copy);
std::string doesNotSurviveRoundTrip(std::string_view path);
std::string hostFileUnusable(std::string_view path, std::string_view reason);
std::string noMailSystem();
std::string sendInProgress();
std::string noGameDetails();
std::string detailsSaved(std::string_view path);
std::string gameFileNotFound();
std::string defaultGameFileNotFound();
std::string storedGameNotFound();
std::string gameFileDamaged(std::string_view path, std::string_view reason);
std::string enterGameName();
std::string findGameFirst();
std::string saveGameFirst();

// What is wrong with a game details file.
std::string notWholeGameFile();
std::string severalWaysToRead();
std::string ownFileTooLarge();

// Why one of the program's own files is not written.
std::string ownFileWouldBeTooLarge();
std::string ownFileNotUtf8();
std::string flagIsNoNumber(int row);

// Reasons why a file cannot be read or written.
std::string isFolder();
std::string isPipe();
std::string isDevice();
std::string nulInPath();
std::string notOfThisSystem();
/// For an error that the system has no words for.
std::string unknownSystemError(int number);

// Why the file picker offers a folder or file only greyed.
std::string nameIsNotUtf8();
std::string nameHoldsLineBreak();

// Reasons why a host file gives no year.
std::string hostFileTooShort();
std::string hostYearTooLarge();
std::string hostFileMissing();

// Lines of the sending report. Rows are 0 to 15.
std::string playerSkipped();
std::string noEmailAddress();
/// An address that would go out as another one, and why.
std::string addressUnsendable(std::string_view fault);
std::string alternateAddressUnsendable(std::string_view fault);
/// What is wrong with an address: its character at this place, counted from 1.
std::string invisibleCharacter(int place, char32_t code);
std::string unwritableCharacter(int place, char32_t code);
std::string turnFileNotFound(int row);
std::string turnFileUnreadable(int row);
std::string universeFileNotFound();
std::string universeFileUnreadable();
std::string extraFileNotFound(int entry);
std::string extraFileUnreadable(int entry);
std::string messageTooLong();
std::string emailSent();
std::string smtpError(std::string_view reply);
std::string emailGenerated();
std::string mapiError(std::string_view words);
/// Words for an error code of Simple MAPI (1 and up), followed by the code.
std::string simpleMapiFailure(unsigned long code);
/// Words for how the sendmail program ended: an exit status of sysexits(3), others by number; a
/// signal; a program ended after this time; one that could not be started.
std::string mailExitStatus(int status);
std::string mailSignal(int number, std::string_view description);
std::string mailTimeout(long long seconds);
std::string cannotStart(std::string_view path, std::string_view reason);
/// An address that no mail can go to, of a player or of the host.
std::string notOneAddress(std::string_view address);
std::string hostNotOneAddress(std::string_view address);

/// Of a row after a send that broke off without a report.
std::string brokeOffHere();
std::string notReached();

/// What stands before row i's outcome in the report.
std::string reportPrefix(int row);

} // namespace turnpost::messages
