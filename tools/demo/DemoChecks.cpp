#include "DemoChecks.h"

#include "platform/Files.h"
#include "support/UuDecoder.h"

#include <algorithm>
#include <iostream>

namespace turnpost::demo {

namespace {

bool complain(const std::string& what) {
    std::cerr << "demo: " << what << '\n';
    return false;
}

// The player a message belongs to, by the name of the file in it; 0 when it has no single file.
int playerOf(const std::vector<test::DecodedFile>& files) {
    constexpr const char* prefix = "GAME.M";
    const bool single = files.size() == 1 && files[0].name.starts_with(prefix);
    return single ? std::stoi(files[0].name.substr(std::string(prefix).size())) : 0;
}

} // namespace

bool checkMessages(const std::deque<test::ScriptedServer::Conversation>& conversations,
                   const std::vector<int>& players, const std::map<int, std::string>& turnFiles,
                   const std::string& folder) {
    std::vector<int> served;
    for (const auto& conversation : conversations) {
        if (!conversation.delivered) {
            continue;
        }
        const std::string message = test::withoutDoubledPeriods(conversation.message);
        const auto files = test::decodeUuBlocks(message);
        const int player = files ? playerOf(*files) : 0;
        if (player == 0 || (*files)[0].bytes != turnFiles.at(player)) {
            return complain("a damaged file arrived");
        }
        served.push_back(player);
        replaceFile(folder + "/player-" + std::to_string(player) + ".eml", message);
    }
    return served == players || complain("not every player was served once");
}

bool checkReport(const std::string& report) {
    const std::vector<std::string> kinds = {
        "Player 1: Email sent OK\n",
        "Player 3: Player Skipped\n",
        "Player 9: No Email Address for Player\n",
        "Player 12: SMTP Error: 550 5.1.1 No such mailbox here\n",
        "Player 14: M14file not found \n",
    };
    return std::all_of(kinds.begin(), kinds.end(), [&report](const std::string& line) {
        return report.find(line) != std::string::npos || complain("the report lacks " + line);
    });
}

} // namespace turnpost::demo
