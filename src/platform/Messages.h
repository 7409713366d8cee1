#pragma once

#include <string>
#include <string_view>

// Every text of a message box and of the sending report, and nothing else. File names and the words
// of servers and systems are put in as they are; whoever shows them shows plain text.
namespace turnpost::messages {

// Message boxes.
std::string noServerAddress();
std::string invalidServerAddress();
std::string invalidGamePath();
std::string socketError(int number, std::string_view description);
std::string cannotRead(std::string_view path, std::string_view reason);
std::string cannotWrite(std::string_view path, std::string_view reason);
std::string settingsDamaged(std::string_view path);
std::string hostFileUnusable(std::string_view path, std::string_view reason);

// Reasons why a host file gives no year.
std::string hostFileTooShort();
std::string hostYearTooLarge();

// Lines of the sending report. Rows are 0 to 15.
std::string playerSkipped();
std::string noEmailAddress();
std::string turnFileNotFound(int row);
std::string turnFileUnreadable(int row);
std::string universeFileNotFound();
std::string universeFileUnreadable();
std::string extraFileNotFound(int entry);
std::string extraFileUnreadable(int entry);
std::string emailSent();
std::string smtpError(std::string_view reply);

/// What stands before row i's outcome in the report.
std::string reportPrefix(int row);

} // namespace turnpost::messages
