#ifndef _WIN32

#include "app/AppFixture.h"
#include "support/Unprivileged.h"

#include <sys/stat.h>

namespace turnpost {

// Files that a person may not read or write; root, who may, is such a person meanwhile.
class Reasons : public AppFixture {
  protected:
    Reasons() {
        application.saveGame();
        lock(folder, 0777);
        lock(program.path(), 0777);
    }

    static void lock(const std::string& path, unsigned mode = 0) {
        std::filesystem::permissions(path, std::filesystem::perms(mode));
    }

    void expectBox(const std::function<void()>& command, const std::string& box) {
        windows.boxes.clear();
        const Unprivileged person;
        command();
        EXPECT_EQ(windows.boxes, Texts{box});
    }

    void expectUnusable(const std::string& file, const std::string& reason) {
        willPick(host, file);
        expectBox([this] { application.findGame(); },
                  "Cannot use the host file " + folder + file + reason);
    }

    const std::function<void()> load = [this] { open(host, "GAME.NTP"); };
    const std::function<void()> save = [this] { application.saveGame(); };
    const std::function<void()> store = [this] { application.storeStoredGames({}); };
    const std::string details = folder + "GAME.NTP";
    const std::string ini = program.path("TURNPOST.INI");
    const std::string denied = "\r\nPermission denied";
};

TEST_F(Reasons, SayWhyAFileIsNotRead) {
    host.makeFolder("A.HST");
    expectUnusable("A.HST", "\r\nIt is a folder, not a file");
    ASSERT_EQ(mkfifo(host.path("B.HST").c_str(), 0666), 0);
    expectUnusable("B.HST", "\r\nIt is a pipe, not a file");
    std::filesystem::create_symlink("/dev/null", folder + "C.HST");
    expectUnusable("C.HST", "\r\nIt is a device, not a file");
    lock(folder + "GAME.HST");
    expectUnusable("GAME.HST", denied);
    expectBox(load, "Cannot use the host file " + folder + "GAME.HST" + denied);
    lock(details);
    expectBox(load, "Cannot read " + details + denied);
    lock(ini);
    expectBox([this] { application.startUp(); }, "Cannot read " + ini + denied);
    expectBox(store, "Cannot write " + ini + denied);
}

TEST_F(Reasons, SayWhyAFileIsNotWritten) {
    lock(details, 0444);
    expectBox(save, "Cannot write " + details + denied);
    std::filesystem::remove(details);
    lock(folder, 0555);
    expectBox(save, "Cannot write " + details + denied);
    game.GameName = "\xFF";
    expectBox(save, "Cannot write " + details + "\r\nA name in it is not valid UTF-8");
    game.GameName = "";
    game.GamePath += "gone/";
    expectBox(save, "Cannot write " + folder + "gone/GAME.NTP\r\nNo such file or directory");
}

TEST_F(Reasons, RefuseTheRowOfAnUnreadableTurnFile) {
    host.write("GAME.XY", "");
    host.write("EXTRA", "");
    for (const char* name : {"GAME.M1", "GAME.XY", "EXTRA"}) {
        lock(folder + name);
    }
    application.storeAttachments({1, 1, {"", folder + "EXTRA", ""}});
    game.rows[0].PlayerEmail = "one@example.org";
    const std::string extra = "\r\nFile 1 cannot be read ";
    const Unprivileged person;
    application.butSend_Click();
    EXPECT_EQ(values.report[0], "M1file cannot be read \r\nXY file cannot be read " + extra);
    application.sendByMailSystem();
    EXPECT_EQ(values.report[0], "M1file cannot be read " + extra);
    EXPECT_EQ(socket.servers, Texts());
}

} // namespace turnpost

#endif
