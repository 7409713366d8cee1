#include "mapi/SendmailFailure.h"

#include "platform/CodePage.h"
#include "platform/Messages.h"

#include <cstring>
#include <sstream>
#include <system_error>

namespace turnpost {

namespace {

std::string firstLines(const std::string& errorText) {
    constexpr int mostLines = 3;
    std::string text;
    std::istringstream lines(fromWireBytes(errorText));
    int taken = 0;
    for (std::string line; taken < mostLines && std::getline(lines, line);) {
        line.erase(line.find_last_not_of(" \t\r") + 1);
        if (!line.empty()) {
            text.append(taken > 0 ? "\r\n" : "").append(line);
            ++taken;
        }
    }
    return text;
}

std::string howItEnded(const ProgramEnd& end, const std::string& program,
                       std::chrono::milliseconds limit) {
    switch (end.kind) {
    case ProgramEnd::Kind::Exited:
        return messages::mailExitStatus(end.number);
    case ProgramEnd::Kind::Signalled:
        return messages::mailSignal(end.number, strsignal(end.number));
    case ProgramEnd::Kind::TimedOut:
        return messages::mailTimeout(std::chrono::ceil<std::chrono::seconds>(limit).count());
    case ProgramEnd::Kind::NotStarted:
        break;
    }
    return messages::cannotStart(program, std::generic_category().message(end.number));
}

} // namespace

std::optional<std::string> sendmailFailure(const ProgramEnd& end, const std::string& program,
                                           std::chrono::milliseconds limit) {
    if (end.kind == ProgramEnd::Kind::Exited && end.number == 0) {
        return std::nullopt;
    }
    const std::string words = firstLines(end.errorText);
    return words.empty() ? howItEnded(end, program, limit) : words;
}

} // namespace turnpost
