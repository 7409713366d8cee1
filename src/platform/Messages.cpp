#include "platform/Messages.h"

namespace turnpost::messages {

namespace {

std::string join(std::string_view first, std::string_view second, std::string_view third = {}) {
    return std::string(first).append(second).append(third);
}

// A file's finding is the name of its kind followed by one of these.
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

} // namespace

std::string noServerAddress() {
    return "No SMTP server address entered";
}

std::string invalidServerAddress() {
    return "Invalid SMTP server address";
}

std::string invalidGamePath() {
    return "Invalid game path";
}

std::string socketError(int number, std::string_view description) {
    return join("Winsock Error number " + std::to_string(number), "\r\n", description);
}

std::string cannotRead(std::string_view path, std::string_view reason) {
    return join(join("Cannot read ", path), "\r\n", reason);
}

std::string cannotWrite(std::string_view path, std::string_view reason) {
    return join(join("Cannot write ", path), "\r\n", reason);
}

std::string settingsDamaged(std::string_view path) {
    return join(
        "The settings file is damaged: ", path,
        "\r\nWhat could be read was taken; the rest is empty. Before the settings are saved, "
        "the damaged file is kept beside it as TURNPOST.BAD.");
}

std::string hostFileUnusable(std::string_view path, std::string_view reason) {
    return join(join("Cannot use the host file ", path), "\r\n", reason);
}

std::string hostFileTooShort() {
    return "It is shorter than 14 bytes and holds no game year";
}

std::string hostYearTooLarge() {
    return "Its game year is above 32767";
}

std::string playerSkipped() {
    return "Player Skipped";
}

std::string noEmailAddress() {
    return "No Email Address for Player";
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

std::string emailSent() {
    return "Email sent OK";
}

std::string smtpError(std::string_view reply) {
    return join("SMTP Error: ", reply);
}

std::string reportPrefix(int row) {
    return "Player " + std::to_string(row + 1) + ": ";
}

} // namespace turnpost::messages
