#include "desk/Delivery.h"

#include "desk/UuDecoder.h"

namespace turnpost::desk {

std::string deliveryFault(const ScriptedServer::Conversation& conversation, int player,
                          const std::string& turnFile) {
    const std::string number = std::to_string(player);
    const std::vector<std::string> commands = {"HELO host", "MAIL FROM:host@example.org",
                                               "RCPT TO:p" + number + "@example.org", "DATA",
                                               "QUIT"};
    const auto files = decodeUuBlocks(withoutDoubledPeriods(conversation.message));
    if (!conversation.delivered || conversation.wasReset) {
        return "player " + number + ": not delivered, or reset";
    }
    if (conversation.commands != commands) {
        return "player " + number + ": other commands";
    }
    if (!files || files->size() != 1 || (*files)[0].name != "GAME.M" + number ||
        (*files)[0].bytes != turnFile) {
        return "player " + number + ": another file";
    }
    return {};
}

} // namespace turnpost::desk
