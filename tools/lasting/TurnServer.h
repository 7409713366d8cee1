#pragma once

#include "desk/ScriptedServer.h"

#include <QSocketNotifier>
#include <map>

namespace turnpost::lasting {

/// Turn file lengths of the sample game, by player; all 16 play.
std::map<int, size_t> turnLengths();

/// The mail server's process: says its address in a line on standard output, then answers each line
/// on standard input with one about the send that has just come to its end: "well" or what was
/// wrong with it. Ends the program with its standard input.
class TurnServer final : public QObject {
  public:
    TurnServer();

  private:
    void answerQuestion();
    std::string faultOfSend();

    desk::ScriptedServer server;
    QSocketNotifier questions;
};

} // namespace turnpost::lasting
