#include "text/Messages.h"

#include "text/CodePage.h"
#include "text/Path.h"
#include "text/Text.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <iomanip>
#include <sstream>

namespace turnpost::messages {

namespace {

std::string join(std::string_view first, std::string_view second, std::string_view third = {}) {
    return std::string(first).append(second).append(third);
}

// How much of a path or reason is shown.
constexpr size_t maxCharacters = 500;

std::string shown(std::string_view reason) {
    return shortened(reason, maxCharacters);
}

// A path that was joined from paths of two systems holds both separators.
std::string shownPath(std::string_view path) {
    std::string result = shown(path);
    if (result.find('/') != std::string::npos && result.find('\\') != std::string::npos) {
        std::replace_if(result.begin(), result.end(), isSeparator, pathSeparator);
    }
    return result;
}

// A path and what is wrong with the file there.
std::string fileBox(std::string_view beginning, std::string_view path, std::string_view reason) {
    return join(join(beginning, shownPath(path)), "\r\n", shown(reason));
}

// In the notation of Unicode: U+ and at least four digits.
std::string codeOf(char32_t character) {
    std::ostringstream code;
    code << "U+" << std::hex << std::uppercase << std::setw(4) << std::setfill('0')
         << static_cast<std::uint32_t>(character);
    return code.str();
}

std::string character(int place) {
    return "character " + std::to_string(place);
}

// The line about a file is the name of its kind followed by one of these.
constexpr std::string_view notFound = "not found ";
constexpr std::string_view cannotBeRead = "cannot be read ";

std::string turnFile(int row, std::string_view finding) {
    return join("M" + std::to_string(row + 1), "file ", finding);
}

std::string universeFile(std::string_view finding) {
    return join("XY file ", finding);
}

std::string extraFile(int entry, std::string_view finding) {
    return join("File " + std::to_string(entry), " ", finding);
}

// The exit statuses of sysexits(3), from firstMailStatus on.
constexpr int firstMailStatus = 64;
constexpr std::array<std::string_view, 15> mailStatuses = {
    "The mail program does not understand its arguments",
    "The message is malformed",
    "The mail program cannot open its input",
    "A recipient is unknown",
    "The recipient's host is unknown",
    "The mail service is unavailable",
    "The mail program has an internal error",
    "The operating system failed the mail program",
    "A file of the mail system is missing or unusable",
    "The mail program cannot create a file",
    "The mail program could not read or write a file",
    "Temporary failure, please try again later",
    "The remote mail system did not follow the protocol",
    "The mail program denies permission",
    "The mail system is not set up properly",
};

// Indexed by MAPI_E code; an empty text is an unused code.
constexpr std::array<std::string_view, 29> simpleMapiFailures = {
    "",
    "The mail program was cancelled",
    "The mail program failed without a reason",
    "The mail program refused the logon",
    "The disk is full",
    "There is too little memory",
    "Access is denied",
    "",
    "Too many mail sessions are open",
    "The message has too many attachments",
    "The message has too many recipients",
    "An attachment was not found",
    "An attachment cannot be opened",
    "An attachment cannot be written",
    "A recipient is unknown",
    "A recipient is of the wrong type",
    "There is no such message",
    "The message is invalid",
    "The text is too large",
    "The mail session is no longer open",
    "The type of the message is not supported",
    "A recipient is ambiguous",
    "The message is in use",
    "The network failed",
    "The message has invalid fields",
    "A recipient is invalid",
    "The mail program does not support this",
    "The mail program does not support Unicode",
    "An attachment is too large",
};

} // namespace

std::string ownAddressUnsendable(std::string_view fault) {
    return join("Your own address cannot be sent: ", fault);
}

std::string socketError(int number, std::string_view description) {
    return join("Winsock Error number " + std::to_string(number), "\r\n", description);
}

std::string cannotRead(std::string_view path, std::string_view reason) {
    return fileBox("Cannot read ", path, reason);
}

std::string cannotWrite(std::string_view path, std::string_view reason) {
    return fileBox("Cannot write ", path, reason);
}

std::string settingsDamaged(std::string_view path, std::string_view copy) {
    return fileBox(
        "The settings file is damaged: ", path,
        join("What could be read was taken; the rest is empty. Before the settings are saved, the "
             "damaged file is kept beside it as ",
             copy, "."));
}

std::string doesNotSurviveRoundTrip(std::string_view path) {
    return fileBox(
        "Not all of this can be read back from ", path,
        "Please take the double quotes out of names and addresses, and characters that this "
        "system's code page lacks, and save again.");
}

std::string hostFileUnusable(std::string_view path, std::string_view reason) {
    return fileBox("Cannot use the host file ", path, reason);
}

std::string detailsSaved(std::string_view path) {
    return join("Details saved to ", shownPath(path));
}

std::string gameFileDamaged(std::string_view path, std::string_view reason) {
    return fileBox("The game details file is damaged: ", path, reason);
}

std::string unknownSystemError(int number) {
    return "Unknown error (error " + std::to_string(number) + ")";
}

std::string flagIsNoNumber(int row) {
    return "A flag of player " + std::to_string(row + 1) + " is no number";
}

std::string addressUnsendable(std::string_view fault) {
    return join("The address cannot be sent: ", fault);
}

std::string alternateAddressUnsendable(std::string_view fault) {
    return join("The alternate address cannot be sent: ", fault);
}

std::string invisibleCharacter(int place, char32_t code) {
    return join(character(place), " is invisible (", codeOf(code) + ")");
}

std::string unwritableCharacter(int place, char32_t code) {
    std::string shown;
    appendUtf8(shown, code);
    return join("\"Send via SMTP\" cannot write ", character(place),
                " (" + shown + ", " + codeOf(code) + ")");
}

std::string turnFileNotFound(int row) {
    return turnFile(row, notFound);
}

std::string turnFileUnreadable(int row) {
    return turnFile(row, cannotBeRead);
}

std::string universeFileNotFound() {
    return universeFile(notFound);
}

std::string universeFileUnreadable() {
    return universeFile(cannotBeRead);
}

std::string extraFileNotFound(int entry) {
    return extraFile(entry, notFound);
}

std::string extraFileUnreadable(int entry) {
    return extraFile(entry, cannotBeRead);
}

std::string smtpError(std::string_view reply) {
    return join("SMTP Error: ", reply);
}

std::string mapiError(std::string_view words) {
    return join("MAPI Error: ", words);
}

std::string simpleMapiFailure(unsigned long code) {
    const std::string_view words =
        code < simpleMapiFailures.size() ? simpleMapiFailures.at(code) : std::string_view();
    return join(words.empty() ? "Unknown error" : words, " (error ", std::to_string(code) + ")");
}

std::string mailExitStatus(int status) {
    const auto index = static_cast<size_t>(status - firstMailStatus);
    return index < mailStatuses.size() ? std::string(mailStatuses.at(index))
                                       : "exit status " + std::to_string(status);
}

std::string mailSignal(int number, std::string_view description) {
    return join("The mail program was ended by signal " + std::to_string(number), ": ",
                description);
}

std::string mailTimeout(long long seconds) {
    return "no answer within " + std::to_string(seconds) + " seconds";
}

std::string cannotStart(std::string_view path, std::string_view reason) {
    return join(join("Cannot start ", path), "\r\n", reason);
}

std::string notOneAddress(std::string_view address) {
    return join("This is not one e-mail address: ", address);
}

std::string hostNotOneAddress(std::string_view address) {
    return join("Your own address is not one e-mail address: ", address);
}

std::string reportPrefix(int row) {
    return "Player " + std::to_string(row + 1) + ": ";
}

} // namespace turnpost::messages
