#include "DemoChecks.h"

#include "MailStandIn.h"
#include "automation/UuDecoder.h"
#include "files/Files.h"
#include "text/Path.h"

#include <algorithm>
#include <iostream>
#include <vector>

namespace turnpost::demo {

namespace {

bool complain(const std::string& what) {
    std::cerr << "demo: " << what << '\n';
    return false;
}

// The player of a message, by the name of the first of its two files; 0 if it has other files.
int playerOf(const std::vector<automation::DecodedFile>& files) {
    const std::string prefix = "GAME.M";
    const bool complete = files.size() == 2 && files[0].name.starts_with(prefix);
    return complete ? std::stoi(files[0].name.substr(prefix.size())) : 0;
}

bool holdsAll(const std::string& report, const std::vector<std::string>& lines) {
    return std::all_of(lines.begin(), lines.end(), [&report](const std::string& line) {
        return report.find(line) != std::string::npos || complain("the report lacks " + line);
    });
}

} // namespace

bool checkMessages(const std::deque<automation::ScriptedServer::Conversation>& conversations,
                   const TurnFiles& turnFiles, const std::string& extraFile,
                   const std::string& folder) {
    std::vector<int> served;
    for (const auto& conversation : conversations) {
        if (!conversation.delivered) {
            continue;
        }
        const std::string message = automation::withoutDoubledPeriods(conversation.message);
        const auto files = automation::decodeUuBlocks(message);
        const int player = files ? playerOf(*files) : 0;
        if (player == 0 || (*files)[0].bytes != turnFiles.at(player) ||
            (*files)[1].bytes != extraFile) {
            return complain("a damaged file arrived");
        }
        served.push_back(player);
        const std::string name = "player-" + std::to_string(player) + ".eml";
        replaceFile(joinPath(folder, name), message);
    }
    return served == std::vector<int>{1, 2, 4, 7} || complain("not every player was served once");
}

bool checkMailSystem(const std::map<std::string, int>& playersByAddress,
                     const std::string& folder) {
    for (const auto& [address, player] : playersByAddress) {
        if (!wasHanded(folder, address, {"GAME.M" + std::to_string(player), "news & rules.txt"})) {
            return complain("the mail system got a damaged file for " + address);
        }
    }
    return true;
}

bool checkReports(const std::string& bySmtp, const std::string& byMailSystem) {
    return holdsAll(bySmtp, {"Player 1: Email sent OK\n", "Player 3: Player Skipped\n",
                             "Player 9: No Email Address for Player\n",
                             "Player 12: SMTP Error: 550 5.1.1 No such mailbox here\n",
                             "Player 14: M14file not found \n"}) &&
           holdsAll(byMailSystem,
                    {"Player 1: Email Generated OK\n", "Player 3: Player Skipped\n",
                     "Player 12: Email Generated OK\n", "Player 14: M14file not found \n"});
}

} // namespace turnpost::demo
