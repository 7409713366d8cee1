#pragma once

#include <QString>

namespace turnpost::automation {

struct Command {
    QString name;
    /// What the host does in the main window. Blanks stand between deeds: a control clicked or menu
    /// item chosen; box=text typed; in the picker a file selected, of its folder or one in that;
    /// -file removed; close; restart of the program. Of what stands at the other ends: break=… is
    /// where the server breaks the next connection off.
    QString deeds;
    /// The lines of the state that differ afterwards, and what they become (faults, WholeState.h).
    QString changes;
    /// The windows that open meanwhile, in order, each with the host's deeds there; a message box
    /// and the sending report with their text.
    QString windows = {};
};

// The changes of several commands (WholeState.h).
inline const QString noNotes = "row.*.note=; ";
inline const QString written = "file.TURNPOST.INI=$settings; ";
inline const QString gameOpened =
    noNotes +
    "*.GameName=Other game; *GamePath=~/game/other/; game.HostFileName=OTHER.HST; *Year=2410; "
    "*.PlayerName(*)=Other game #; *.PlayerEmail(*)=p#@o.org; *.AltEmail(*)=a#@o.org; "
    "*.GameFile(*)=OTHER.M#; *.IncludePlayer(*); game.Shown(*); row.*.visible; "
    "message.MessageSubject=Other game subject; message.MessageBody=Other|game|body; ";
inline const QString hostFileFound =
    noNotes + "*GamePath=~/game/other/; game.HostFileName=OTHER.HST; *Year=2410; "
              "*.PlayerName([0-2])=; *.PlayerEmail([0-2])=; *.AltEmail([0-2])=; "
              "*.GameFile([0-2])=OTHER.M#; *.IncludePlayer([0-2])=1; game.Shown(2)=1; "
              "row.*(2).visible=true; game.Shown([359])=0; row.*([359]).visible=false; ";
inline const QString emptied =
    noNotes + "*GamePath=; game.HostFileName=; *.PlayerName(*)=; *.PlayerEmail(*)=; "
              "*.AltEmail(*)=; *.GameFile(*)=; game.Shown(*)=0; row.*.visible=false; message.*=; ";
inline const QString newChoices =
    "attachments.SendMFiles=1; attachments.SendXYFile=0; attachments.Extra(*)=; ";
inline const QString newGame = emptied + newChoices + "*.GameName=; ";
inline const QString started =
    newChoices + "report(*)=; GameNameToStore=; window.Shape1.width=0; window.PlaySel(2)=0; ";
inline const QString startedEmpty =
    started + emptied + "*.GameName=; *.IncludePlayer(*)=0; *Year=9999; ";
inline const QString startedFirst =
    startedEmpty +
    "settings.StoredGameName(*)= - Empty - ; settings.StoredGameFile(*)=; "
    "settings.DefaultGameFile=; menu.mnuStoredG([123])= - Empty - ; menu.mnuStoredG([123]).note; ";
inline const QString typed =
    written + "settings.HostName=Ann; settings.HostEmail=ann@c.org; settings.SmtpServer=c.org; ";
inline const QString skipped = "report([15678])=Player Skipped; report(1[0-4])=Player Skipped; ";
inline const QString sent =
    noNotes + skipped +
    "window.Shape1.width=176; report([349])=Email sent OK; report(15)=Email sent OK; ";
inline const QString typeSettings =
    "frmSettings: txtHostName=Ann txtHostEmail=ann@c.org txtSMTP=c.org ";

/// Every command, finished and broken off, and refusals of commands: in the order of the window, of
/// the dialogs, the start and sending. The host's game is described at the test.
inline const Command commands[] = {
    {"FindGame", "GameChoose", hostFileFound, "frmOpen: other/OTHER.HST butLoad"},
    {"FindGameCancelled", "GameChoose", "", "frmOpen: other/OTHER.HST butCancel"},
    {"FindGameClosed", "GameChoose", "", "frmOpen: other/OTHER.HST close"},
    {"FindGameTooShort", "GameChoose", "",
     "frmOpen: SHORT.HST butLoad; box: Cannot use the host file ~/game/SHORT.HST|It is shorter "
     "than 14 bytes and holds no game year"},
    {"New", "mnuNew", newGame},
    {"Open", "mnuOpen", gameOpened, "frmOpen: other/OTHER.NTP butLoad"},
    {"OpenCancelled", "mnuOpen", "", "frmOpen: other/OTHER.NTP LoadDef butCancel"},
    {"OpenClosed", "mnuOpen", "", "frmOpen: other/OTHER.NTP LoadDef close"},
    {"OpenAsDefault", "mnuOpen",
     gameOpened + written + "settings.DefaultGameFile=~/game/other/OTHER.NTP; ",
     "frmOpen: other/OTHER.NTP LoadDef butLoad"},
    {"OpenDamaged", "mnuOpen", "",
     "frmOpen: CUT.NTP butLoad; box: The game details file is damaged: ~/game/CUT.NTP|It is not a "
     "game details file, or only part of one"},
    {"OpenGone", "mnuOpen", "file.game/other/OTHER.NTP=(none); ",
     "frmOpen: other/OTHER.NTP -game/other/OTHER.NTP butLoad; box: Gamefile not found"},
    {"Save", "mnuSave", "file.game/CUP.NTP=$game; ", "box: Details saved to ~/game/CUP.NTP"},
    {"SaveWithoutGame", "mnuNew mnuSave", newGame, "box: No game details entered"},
    {"Stored", "mnuStoredG(1)", gameOpened},
    {"StoredGone", "mnuStoredG(2)", "", "box: Game details not found"},
    {"StoredEmpty", "mnuStoredG(4)", ""},
    {"All", "PlaySel(0)", "*.IncludePlayer([01359])=1; window.PlaySel(0)=1; window.PlaySel(2)=0; "},
    {"None", "PlaySel(1)",
     "*.IncludePlayer([01359])=0; window.PlaySel(1)=1; window.PlaySel(2)=0; "},
    {"Invert", "PlaySel(2)", "*.IncludePlayer([01359]); "},
    {"Untick", "IncludePlayer(3)", "*.IncludePlayer(3)=0; "},
    {"Type", "GameName=x PlayerName(3)=x PlayerEmail(3)=y AltEmail(3)=z",
     "*.GameName=x; *.PlayerName(3)=x; *.PlayerEmail(3)=y; *.AltEmail(3)=z; "},
    {"Empty", "GameName= PlayerName(3)= PlayerEmail(3)= AltEmail(3)=",
     "*.GameName=; *.PlayerName(3)=; *.PlayerEmail(3)=; *.AltEmail(3)=; "},
    {"TypeInReadOnlyBoxes", "GameFile(3)=x txtGamePath=x", ""},

    {"EmailSettings", "mnuEmailSets", typed, typeSettings + "butOK"},
    {"EmailSettingsClosed", "mnuEmailSets", "", typeSettings + "close"},
    {"Message", "mnuMsg", "message.MessageSubject=Turn; message.MessageBody=Hello|all; ",
     "frmMessage: txtSubject=Turn txtMessage=Hello\nall mnuOK"},
    {"MessageClosed", "mnuMsg", "",
     "frmMessage: txtSubject=Turn Default txtMessage=Hello\nall close"},
    {"MessageDefault", "mnuMsg",
     "message.MessageSubject=Turn <<GY>> for <<GN>> - Player <<PN>>; message.MessageBody; ",
     "frmMessage: Default mnuOK"},
    {"Attachments", "butAtch",
     "attachments.SendMFiles=1; attachments.SendXYFile=0; attachments.Extra(0)=x; "
     "attachments.Extra(1)=~/game/CUP.XY; attachments.Extra(2)=; ",
     "frmAtch: chkMx chkXY txtFile(0)=x butAddAtch(1) butRemove(2) butOK; frmOpen: CUP.XY butLoad"},
    {"AttachmentsClosed", "butAtch", "",
     "frmAtch: chkMx chkXY txtFile(0)=x butAddAtch(1) butRemove(2) close; frmOpen: CUP.XY butLoad"},
    {"AttachmentsPickerCancelled", "butAtch",
     "attachments.Extra(0)=~/game/CUP.XY; attachments.Extra(2)=~/game/CUP.M1; ",
     "frmAtch: butAddAtch(0) butAddAtch(1) butAddAtch(2) butOK; frmOpen: CUP.XY butLoad; frmOpen: "
     "CUP.M2 butCancel; frmOpen: CUP.M1 butLoad"},
    {"StoredGames", "mnuStoredCon",
     written + "GameNameToStore=Spring; settings.StoredGameName(0)= - Empty - ; "
               "settings.StoredGameFile(0)=; settings.StoredGameName(1)=Spring; "
               "settings.StoredGameFile(1)=~/game/CUP.NTP; menu.mnuStoredG(1)= - Empty - ; "
               "menu.mnuStoredG(2)=Spring; menu.mnuStoredG([12]).note; ",
     "frmStore: butClear(0) butStore(1) mnuOK"},
    {"StoredGamesClosed", "mnuStoredCon", "GameNameToStore=Spring; ",
     "frmStore: butClear(0) butStore(1) close"},
    {"StoredGamesWithoutName", "GameName= mnuStoredCon", "*.GameName=; ",
     "box: Please enter a game name"},
    {"StoredGamesWithoutGame", "mnuNew GameName=x mnuStoredCon",
     emptied + newChoices + "*.GameName=x; ", "box: Please find a game"},
    {"StoredGamesUnsaved", "-game/CUP.NTP mnuStoredCon", "file.game/CUP.NTP=(none); ",
     "box: Please save game details first"},
    {"About", "mnuAbout", "", "frmAbout: cmdOK"},
    {"AboutClosed", "mnuAbout", "", "frmAbout: close"},

    {"Start", "restart", started + noNotes + "*.GameName=Cup; "},
    {"StartDefaultGone", "-game/CUP.NTP restart", startedEmpty + "file.game/CUP.NTP=(none); ",
     "box: Default Gamefile not found"},
    {"FirstStart", "-TURNPOST.INI restart", startedFirst + typed, typeSettings + "butOK"},
    {"FirstStartClosed", "-TURNPOST.INI restart",
     startedFirst + "file.TURNPOST.INI=(none); settings.HostName=; settings.HostEmail=; "
                    "settings.SmtpServer=; ",
     typeSettings + "close"},

    {"Smtp", "butSend",
     sent + "report([02])=Email sent OK; mailed.smtp=p1@c.org p3@c.org p4@c.org p5@c.org p10@c.org "
            "p16@c.org ; ",
     "frmProgRept: $report"},
    {"SmtpDeletedAddress", "PlayerEmail(0)= butSend",
     sent + "*.PlayerEmail(0)=; report(0)=No Email Address for Player; report(2)=Email sent OK; "
            "mailed.smtp=p3@c.org p4@c.org p5@c.org p10@c.org p16@c.org ; ",
     "frmProgRept: $report"},
    {"SmtpGoesOn", "butSend2", sent + "mailed.smtp=p4@c.org p5@c.org p10@c.org p16@c.org ; ",
     "frmProgRept: $report"},
    {"SmtpBreaksOff", "break=p1@c.org butSend",
     "report(0)=; row.PlayNum([0-2]).note; row.IncludePlayer([0-2]).note; window.Shape1.width=35; "
     "mailed.smtp=p1@c.org ; ",
     "box: Winsock Error number *"},
    {"SmtpWithoutServer", "mnuEmailSets butSend", written + "settings.SmtpServer=; ",
     "frmSettings: txtSMTP= butOK; box: No SMTP server address entered"},
    {"SmtpWithoutGame", "mnuNew butSend", newGame + "", "box: Invalid game path"},
    {"Mapi", "Command1",
     noNotes + skipped +
         "report([02349])=Email Generated OK; report(15)=Email Generated OK; mailed.mapi=p1@c.org "
         "a1@c.org p3@c.org a3@c.org p4@c.org a4@c.org p5@c.org a5@c.org p10@c.org a10@c.org "
         "p16@c.org a16@c.org ; ",
     "frmProgRept: $report"},
    {"MapiWithoutGame", "mnuNew Command1", newGame + "", "box: Invalid game path"},
};

} // namespace turnpost::automation
