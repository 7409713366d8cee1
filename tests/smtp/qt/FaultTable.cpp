#include "FaultTable.h"

#include <utility>

namespace turnpost::desk {

namespace {

using enum Answer::Then;
using enum Fault::Outcome;

// More than one arrival of data.
const std::string longReply(1 << 18, 'x');

std::vector<Fault> faultsAt(Point point) {
    const bool inMessage = point == Point::InMessage;
    // What the client takes for the answer to the message; the next words come after QUIT, which
    // lets all of the message out.
    const bool last = inMessage || point == Point::Message;
    const std::string good = inMessage ? "250 early\r\n" : goodAnswer(point).bytes;
    const std::string first = good.substr(0, 1);
    const std::string code = good.substr(0, 3);
    std::vector<Fault> faults = {
        {point, "reset", {"", Reset}, Broken},
        {point, "close", {"", Close}, Waiting},
        // Then a reply to a connection that the client has closed.
        {point, "silence", {"", Continue, inMessage ? "" : good}, Waiting},
        // Two replies in one piece are one step; so is another accepted code than the usual one.
        {point,
         "other codes",
         {(point == Point::Data ? "354" : "250") + std::string("-a\r\n354 b\r\n")},
         Reported,
         "Email sent OK",
         false,
         true},
        {point,
         "byte by byte",
         {first, Continue, good.substr(1)},
         Reported,
         "SMTP Error: " + first},
        {point, "long and refused", {"554" + longReply}, Reported, "SMTP Error: 554x", true},
        {point,
         "long and accepted",
         {code + longReply},
         Reported,
         last ? "Email sent OK" : "SMTP Error: x",
         !last,
         last || point == Point::Data}};
    const std::string nul(1, '\0');
    for (const auto& [reply, shown] :
         {std::pair<std::string, std::string>("421 <b>gone</b> & x", {}),
          {"552-too much\r\n552 mail", {}},
          {"251 forwarded", {}},
          {nul + "g\r\n\xff rest", nul + "g\r\n\u00ff rest"}}) {
        faults.push_back({point,
                          reply,
                          {reply + "\r\n"},
                          Reported,
                          "SMTP Error: " + (shown.empty() ? reply : shown) + "\r\n"});
    }
    return faults;
}

} // namespace

std::vector<Fault> faultTable() {
    std::vector<Fault> table;
    for (int point = 0; point <= static_cast<int>(Point::Quit); ++point) {
        for (Fault& fault : faultsAt(static_cast<Point>(point))) {
            if (fault.point == Point::InMessage && fault.answer.then == Continue) {
                // A server that reads on may have all of the message before the client sees the
                // answer.
                fault.answer.then = Pause;
            }
            if (fault.point == Point::Quit) {
                fault = {fault.point,     fault.name, fault.answer, Reported,
                         "Email sent OK", false,      true};
            }
            table.push_back(std::move(fault));
        }
    }
    return table;
}

} // namespace turnpost::desk
