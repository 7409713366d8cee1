#include "FaultTable.h"

namespace turnpost::desk {

namespace {

constexpr size_t longReply = 1 << 20;

Fault reported(const char* name, const Answer& answer, const std::string& line,
               bool delivered = false) {
    return {name, answer, Fault::Outcome::Reported, line, false, delivered};
}

Fault refused(const char* name, const std::string& words) {
    return reported(name, {words}, "SMTP Error: " + words);
}

// The first piece is accepted; the next one is garbage, unless it comes after QUIT, which lets all
// of the message out.
Fault longAccepted(Point point, const std::string& code) {
    const bool last = point == Point::Message || point == Point::InMessage;
    Fault fault = reported("1 MiB accepted", {code + std::string(longReply, 'x')},
                           last ? "Email sent OK" : "SMTP Error: x", last || point == Point::Data);
    fault.isLong = !last;
    return fault;
}

} // namespace

std::string nameOf(Point point) {
    const char* const names[] = {"Greeting", "Helo",      "Mail",    "Recipient",
                                 "Data",     "InMessage", "Message", "Quit"};
    return names[static_cast<size_t>(point)];
}

std::vector<Fault> faultsAt(Point point) {
    using enum Answer::Then;
    using enum Fault::Outcome;
    const bool inMessage = point == Point::InMessage;
    const std::string good = inMessage ? "250 early\r\n" : goodAnswer(point).bytes;
    const std::string first = good.substr(0, 1);
    std::vector<Fault> faults = {
        {"reset", {"", Reset}, Broken, ""},
        {"close", {"", Close}, Waiting, ""},
        // Then a reply to a connection that the client has closed.
        {"silence", {"", Continue, inMessage ? "" : good}, Waiting, ""},
        // Two replies in one piece are one step; so is another accepted code than the usual one.
        reported("other codes",
                 {std::string(point == Point::Data ? "354" : "250") + "-a\r\n354 b\r\n"},
                 "Email sent OK", true),
        reported("NUL and no UTF-8", {std::string("\0g\r\n\xff rest\r\n", 12)},
                 "SMTP Error: " + std::string("\0g\r\n\u00ff rest\r\n", 13)),
        refused("1 MiB refused", "554" + std::string(longReply, 'x')),
        reported("byte by byte", {first, Continue, good.substr(1)}, "SMTP Error: " + first),
        longAccepted(point, good.substr(0, 3)),
        // After those, so that the report keeps none of their memory for these lines.
        refused("4xx", "421 <b>closing</b> & gone\r\n"),
        refused("5xx in two lines", "552-too much\r\n552 mail data\r\n"),
        refused("251", "251 forwarded\r\n")};
    for (Fault& fault : faults) {
        if (fault.line.size() > longReply) {
            fault.line.resize(20);
            fault.isLong = true;
        }
        if (inMessage && fault.answer.then == Continue) {
            // A server that reads on may have all of the message before the client sees the answer.
            fault.answer.then = Pause;
        }
        if (point == Point::Quit) {
            fault = reported(fault.name, Answer(fault.answer), "Email sent OK", true);
        }
    }
    return faults;
}

} // namespace turnpost::desk
