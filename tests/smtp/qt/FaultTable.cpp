#include "FaultTable.h"

#include <utility>

namespace turnpost::desk {

namespace {

using enum Answer::Then;
using enum Fault::Outcome;

// More than one arrival of data.
const std::string longReply(1 << 18, 'x');

Fault reported(const std::string& name, const Answer& answer, const std::string& line) {
    return {name, answer, Reported, line, line == "Email sent OK"};
}

Fault refused(const std::string& reply) {
    return reported(reply, {reply}, "SMTP Error: " + reply);
}

std::vector<Fault> faultsAt(Point point) {
    const bool inMessage = point == Point::InMessage;
    const std::string good = inMessage ? "250 early\r\n" : goodAnswer(point).bytes;
    const std::string first = good.substr(0, 1);
    const std::string codes = (point == Point::Data ? "354" : "250") + std::string("-a\r\n354 b");
    std::vector<Fault> faults = {
        {"reset", {"", Reset}, Broken},
        {"close", {"", Close}, Waiting},
        // Then a reply to a connection that the client has closed.
        {"silence", {"", Continue, inMessage ? "" : good}, Waiting},
        // Two replies in one piece are one step; so is another accepted code than the usual one.
        reported("other codes", {codes}, "Email sent OK"),
        reported("NUL and no UTF-8", {std::string("\0g\r\n\xff rest\r\n", 12)},
                 "SMTP Error: " + std::string("\0g\r\n\u00ff rest\r\n", 13)),
        reported("byte by byte", {first, Continue, good.substr(1)}, "SMTP Error: " + first),
        reported("long and refused", {"554" + longReply}, "SMTP Error: 554x"),
        reported("long and accepted", {good.substr(0, 3) + longReply}, "SMTP Error: x"),
        refused("421 <b>closing</b> & gone\r\n"),
        refused("552-too much\r\n552 mail data\r\n"),
        refused("251 forwarded\r\n")};
    Fault& longAccepted = faults.at(7);
    if (inMessage || point == Point::Message) {
        // The second piece comes after QUIT.
        longAccepted.line = "Email sent OK";
    }
    longAccepted.delivered = inMessage || point == Point::Message || point == Point::Data;
    return faults;
}

} // namespace

std::vector<Fault> faultTable() {
    std::vector<Fault> table;
    for (int point = 0; point <= static_cast<int>(Point::Quit); ++point) {
        for (Fault& fault : faultsAt(static_cast<Point>(point))) {
            fault.point = static_cast<Point>(point);
            if (fault.point == Point::InMessage && fault.answer.then == Continue) {
                // A server that reads on may have all of the message before the client sees the
                // answer.
                fault.answer.then = Pause;
            }
            if (fault.point == Point::Quit) {
                fault = {fault.name, fault.answer, Reported, "Email sent OK", true, Point::Quit};
            }
            table.push_back(std::move(fault));
        }
    }
    return table;
}

} // namespace turnpost::desk
