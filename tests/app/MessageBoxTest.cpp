#include "app/AppFixture.h"

namespace turnpost {

namespace {

// How a message box is brought about in a program that has found and named a game, and what it
// says.
struct Row {
    std::string name;
    std::function<void(PlayedProgram&)> before;
    std::function<void(PlayedProgram&)> command;
    /// {host} and {program} stand for these folders.
    std::vector<std::string> boxes;
};

const auto nothing = [](PlayedProgram&) {};
const auto save = [](PlayedProgram& p) { p.application.saveGame(); };
const auto configure = [](PlayedProgram& p) { p.application.configureStoredGames(); };
const auto send = [](PlayedProgram& p) { p.application.butSend_Click(); };
const auto mail = [](PlayedProgram& p) { p.application.sendByMailSystem(); };
const auto startAnew = [](PlayedProgram& p) { p.application.startUp(); };

std::function<void(PlayedProgram&)> find(const std::string& file) {
    return [file](PlayedProgram& p) { p.find(file); };
}

std::function<void(PlayedProgram&)> open(const std::string& file) {
    return [file](PlayedProgram& p) { p.open(p.host, file); };
}

std::function<void(PlayedProgram&)> load(int slot) {
    return [slot](PlayedProgram& p) { p.application.loadStoredGame(slot); };
}

std::function<void(PlayedProgram&)> hostHas(const std::string& name, const std::string& bytes) {
    return [=](PlayedProgram& p) { p.host.write(name, bytes); };
}

std::function<void(PlayedProgram&)> programHas(const std::string& bytes) {
    return [bytes](PlayedProgram& p) {
        p.program.write("TURNPOST.INI", bytes);
        p.application.newGame();
    };
}

std::function<void(PlayedProgram&)> storeSettings(const std::string& name,
                                                  const std::string& server) {
    return [=](PlayedProgram& p) {
        p.application.storeEmailSettings(name, "host@example.org", server);
    };
}

std::function<void(PlayedProgram&)> slots(const StoredGame& first, const StoredGame& second = {}) {
    return [=](PlayedProgram& p) { p.application.storeStoredGames({{first, second, {}, {}}}); };
}

void iniIsAFolder(PlayedProgram& p) {
    std::filesystem::remove(toNativePath(p.program.path("TURNPOST.INI")));
    p.program.makeFolder("TURNPOST.INI");
    p.application.newGame();
}

const std::string willNotComeBack =
    "\r\nPlease take the double quotes out of names and addresses, and characters that this "
    "system's code page lacks, and save again.";
const std::string settingsAreDamaged =
    "The settings file is damaged: {program}TURNPOST.INI\r\nWhat could be read was taken; the rest "
    "is empty. Before the settings are saved, the damaged file is kept beside it as TURNPOST.BAD";

const std::vector<Row> rows = {
    {"saved", nothing, save, {"Details saved to {host}GAME.NTP"}},
    {"saved over an old file",
     hostHas("GAME.NTP", "old"),
     save,
     {"Details saved to {host}GAME.NTP"}},
    {"nothing to save",
     [](PlayedProgram& p) { p.application.newGame(); },
     save,
     {"No game details entered"}},
    {"a file that would not be read again",
     [](PlayedProgram& p) {
         p.application.storeMessage({"", std::string(1U << 20U, 'x')});
     },
     save,
     {"Cannot write {host}GAME.NTP\r\nIt would be larger than 1 MiB, and so not be read again"}},
    {"a folder in the file's place",
     [](PlayedProgram& p) { p.host.makeFolder("GAME.NTP"); },
     save,
     {"Cannot write {host}GAME.NTP\r\nIt is a folder, not a file"}},
    {"a path of two systems",
     [](PlayedProgram& p) { p.game.GamePath += "none\\"; },
     save,
     {"Cannot write {host}none" + std::string(1, pathSeparator) +
      "GAME.NTP\r\nNo such file or directory"}},
    {"a name that will not come back",
     [](PlayedProgram& p) { p.game.rows[0].PlayerName = "Red\",\"Leader"; },
     save,
     {"Details saved to {host}GAME.NTP",
      "Not all of this can be read back from {host}GAME.NTP" + willNotComeBack}},
    {"open: gone", nothing, open("NONE.NTP"), {"Gamefile not found"}},
    {"open: a folder",
     [](PlayedProgram& p) { p.host.makeFolder("A.NTP"); },
     open("A.NTP"),
     {"Gamefile not found"}},
    {"open: cut",
     hostHas("BAD.NTP", "\"a\"\r\n\"b\"\r\n\"c"),
     open("BAD.NTP"),
     {"The game details file is damaged: {host}BAD.NTP\r\n"
      "It holds 2 values that can be read, not 101"}},
    {"open: large",
     hostHas("BAD.NTP", std::string((1U << 20U) + 1, '\n')),
     open("BAD.NTP"),
     {"The game details file is damaged: {host}BAD.NTP\r\nIt is larger than 1 MiB"}},
    {"find: short",
     hostHas("BAD.HST", std::string(13, '\1')),
     find("BAD.HST"),
     {"Cannot use the host file {host}BAD.HST\r\n"
      "It is shorter than 14 bytes and holds no game year"}},
    {"find: year 32768",
     hostHas("BAD.HST", std::string(12, 'x') + "\xA0\x76"),
     find("BAD.HST"),
     {"Cannot use the host file {host}BAD.HST\r\nIts game year is above 32767"}},
    {"find: gone",
     nothing,
     find("NONE.HST"),
     {"Cannot use the host file {host}NONE.HST\r\nNo such file or directory"}},
    {"stored game: an empty slot", slots({" - Empty - ", "/gone.NTP"}), load(1), {}},
    {"stored game: gone", slots({}, {"Gone", "/gone.NTP"}), load(2), {"Game details not found"}},
    {"stored game: no file", slots({"No file", ""}), load(1), {"Game details not found"}},
    {"configure: no name",
     [](PlayedProgram& p) { p.game.GameName = p.game.GamePath = ""; },
     configure,
     {"Please enter a game name"}},
    {"configure: no game",
     [](PlayedProgram& p) { p.game.GamePath = ""; },
     configure,
     {"Please find a game"}},
    {"configure: not saved", nothing, configure, {"Please save game details first"}},
    {"settings that come back", nothing, storeSettings("The \"Great\" Host", "mail"), {}},
    {"settings that do not",
     nothing,
     slots({"Red\",\"Cup", "a"}),
     {"Not all of this can be read back from {program}TURNPOST.INI" + willNotComeBack}},
    {"settings that cannot be written",
     iniIsAFolder,
     storeSettings("Host", "mail"),
     {"Cannot write {program}TURNPOST.INI\r\nIt is a folder, not a file"}},
    {"settings that cannot be read",
     iniIsAFolder,
     startAnew,
     {"Cannot read {program}TURNPOST.INI\r\nIt is a folder, not a file"}},
    {"settings damaged",
     programHas("\"Host\"\r\n\"host@exam"),
     startAnew,
     {settingsAreDamaged + "."}},
    {"settings damaged again",
     [](PlayedProgram& p) {
         programHas("\"Host\"\r\n\"host@exam")(p);
         p.program.write("TURNPOST.BAD", "older");
     },
     startAnew,
     {settingsAreDamaged + "2."}},
    {"default game: gone",
     programHas(printSettings({"", "", "", {}, "/gone.NTP"})),
     startAnew,
     {"Default Gamefile not found"}},
    {"send: no server", storeSettings("Host", "  "), send, {"No SMTP server address entered"}},
    {"send: no port", storeSettings("Host", "mail:"), send, {"Invalid SMTP server address"}},
    {"send: no game", [](PlayedProgram& p) { p.game.GamePath = ""; }, send, {"Invalid game path"}},
    {"mail: a send under way", send, mail, {"A send is already in progress"}},
    {"send: the connection broke",
     send,
     [](PlayedProgram& p) { p.socket.fail(10061, "refused"); },
     {"Winsock Error number 10061\r\nrefused"}},
#ifndef _WIN32
    {"a file of another case",
     hostHas("game.ntp", "old"),
     save,
     {"Details saved to {host}game.ntp"}},
    {"a path that no box can hold",
     [](PlayedProgram& p) { p.game.GamePath = "/" + std::string(600, 'a'); },
     save,
     {"Cannot write /" + std::string(249, 'a') + "..." + std::string(242, 'a') +
      "GAME.NTP\r\nFile name too long"}},
#endif
};

std::string filledIn(std::string text, const std::string& marker, const std::string& folder) {
    const size_t at = text.find(marker);
    return at == std::string::npos ? text : text.replace(at, marker.size(), withSeparator(folder));
}

} // namespace

TEST(MessageBoxes, SayWhatIsTheMatterAndTheGameStaysAsItWas) {
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        PlayedProgram played;
        played.startWithGame();
        played.game.rows[3].PlayerEmail = "four@example.org";
        row.before(played);
        played.windows.boxes.clear();
        const SharedValues before = played.values;
        row.command(played);
        std::vector<std::string> expected;
        for (const std::string& box : row.boxes) {
            expected.push_back(filledIn(filledIn(box, "{host}", played.host.path()), "{program}",
                                        played.program.path()));
        }
        EXPECT_EQ(played.windows.boxes, expected);
        EXPECT_TRUE(played.values.game == before.game);
        EXPECT_EQ(played.values.message, before.message);
        EXPECT_EQ(played.values.report, before.report);
    }
}

} // namespace turnpost
