#include "mapi/SendmailFailure.h"

#include "text/CodePage.h"
#include "text/Messages.h"

#include <cstring>
#include <deque>
#include <sstream>
#include <system_error>

namespace turnpost {

namespace {

std::string lastLines(const std::string& written) {
    constexpr size_t maxLines = 5;
    std::deque<std::string> kept;
    std::istringstream lines(written);
    for (std::string line; std::getline(lines, line);) {
        line.erase(line.find_last_not_of(" \t\r") + 1);
        if (!line.empty()) {
            kept.push_back(line);
        }
        if (kept.size() > maxLines) {
            kept.pop_front();
        }
    }
    std::string text;
    for (const std::string& line : kept) {
        text.append(text.empty() ? "" : "\r\n").append(fromWireBytes(line));
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

std::optional<Refusal> sendmailFailure(const ProgramEnd& end, const std::string& program,
                                       std::chrono::milliseconds limit) {
    if (end.kind == ProgramEnd::Kind::Exited && end.number == 0) {
        return std::nullopt;
    }
    std::string words = lastLines(end.errorText);
    if (words.empty()) {
        words = lastLines(end.outputText);
    }
    if (words.empty() || end.kind != ProgramEnd::Kind::Exited) {
        words.append(words.empty() ? "" : "\r\n").append(howItEnded(end, program, limit));
    }
    return Refusal{words};
}

} // namespace turnpost
