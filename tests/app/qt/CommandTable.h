#pragma once

#include <string>

namespace turnpost::automation {

struct Command {
    std::string name;
    /// What the host does in the main window. Blanks stand between deeds: a control clicked or menu
    /// item chosen; box=text typed; in the picker a file selected, of its folder or one in that;
    /// -file removed; close; restart of the program. Of what stands at the other ends: break=… is
    /// where the server breaks the next connection off; nobody takes the mail system away.
    std::string deeds;
    /// The lines of the state that differ afterwards, and what they become (Change, WholeState.h).
    std::string changes;
    /// The windows that open meanwhile, in order, each with the host's deeds there; a message box
    /// and the sending report with their text.
    std::string windows = {};
};

// The changes of several commands (WholeState.h).
inline const std::string noNotes = "row.*.note=; ";
inline const std::string written = "file.TURNPOST.INI=$settings; ";
inline const std::string gameOpened =
    noNotes + "*.GameName=Other; *GamePath=~/game/other/; game.HostFileName=OTHER.HST; *Year=2410; "
              "*.PlayerName(*)=Other #; *.PlayerEmail(*)=p#@o.org; *.AltEmail(*)=a#@o.org; "
              "*.GameFile(*)=OTHER.M#; *.IncludePlayer(*); game.Shown(*); row.*.shown; "
              "message.MessageSubject=Other subject; message.MessageBody=Other|body; ";
inline const std::string hostFileFound =
    noNotes +
    "window.focus=GameChoose; *GamePath=~/game/other/; game.HostFileName=OTHER.HST; *Year=2410; "
    "*.PlayerName([0-2])=; *.PlayerEmail([0-2])=; *.AltEmail([0-2])=; *.GameFile([0-2])=OTHER.M#; "
    "*.IncludePlayer([0-2])=1; game.Shown(2)=1; row.*(2).shown=1; game.Shown([359])=0; "
    "row.*([359]).shown=0; ";
inline const std::string emptied =
    noNotes +
    "*GamePath=; game.HostFileName=; *.PlayerName(*)=; *.PlayerEmail(*)=; *.AltEmail(*)=; "
    "*.GameFile(*)=; game.Shown(*)=0; row.*.shown=0; message.*=; ";
inline const std::string newChoices =
    "attachments.SendMFiles=1; attachments.SendXYFile=0; attachments.Extra(*)=; ";
inline const std::string newGame = emptied + newChoices + "*.GameName=; ";
inline const std::string started = newChoices +
                                   "window.focus=GameName; report(*)=; GameNameToStore=; "
                                   "window.Shape1.width=0; window.PlaySel(2)=0; ";
inline const std::string startedEmpty =
    started + emptied + "*.GameName=; *.IncludePlayer(*)=0; *Year=9999; ";
inline const std::string startedFirst =
    startedEmpty +
    "settings.StoredGameName(*)= - Empty - ; settings.StoredGameFile(*)=; "
    "settings.DefaultGameFile=; menu.mnuStoredG([123])= - Empty - ; menu.mnuStoredG([123]).tip; ";
inline const std::string typed =
    written + "settings.HostName=Ann; settings.HostEmail=ann@c.org; settings.SmtpServer=c.org; ";
inline const std::string skipped =
    "report([15678])=Player Skipped; report(1[0-4])=Player Skipped; ";
inline const std::string sent = noNotes + skipped +
                                "window.Shape1.width=176; report([349])=Email sent OK; "
                                "report(15)=Email sent OK; ";
inline const std::string mapi = noNotes + skipped +
                                "report([02349])=Email Generated OK; "
                                "report(15)=Email Generated OK; mailed.mapi=";

inline const std::string typeSettings =
    "txtHostName=Ann txtHostEmail=ann@c.org txtSMTP=c.org butOK";
inline const std::string typeSettingsOnly =
    "txtHostName=Ann txtHostEmail=ann@c.org txtSMTP=c.org close";

/// Every command, finished and broken off, and every refusal of one: in the order of the window, of
/// the dialogs, the start and sending. The host's game is described at the test.
inline const Command commands[] = {
    {"FindGame", "GameChoose", hostFileFound, "frmOpen: other/OTHER.HST butLoad"},
    {"FindGameCancelled", "GameChoose", "window.focus=GameChoose; ",
     "frmOpen: other/OTHER.HST butCancel"},
    {"FindGameClosed", "GameChoose", "window.focus=GameChoose; ", "frmOpen: other/OTHER.HST close"},
    {"FindGameTooShort", "GameChoose", "window.focus=GameChoose; ",
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
     "frmOpen: CUT.NTP butLoad; box: The game details file is damaged: ~/game/CUT.NTP|*"},
    {"OpenGone", "mnuOpen", "file.game/other/OTHER.NTP=(none); ",
     "frmOpen: other/OTHER.NTP -game/other/OTHER.NTP butLoad; box: Gamefile not found"},
    {"Save", "mnuSave", "file.game/CUP.NTP=$game; ", "box: Details saved to ~/game/CUP.NTP"},
    {"SaveWithoutGame", "mnuNew mnuSave", newGame, "box: No game details entered"},
    {"Stored", "mnuStoredG(1)", gameOpened},
    {"StoredGone", "mnuStoredG(2)", "", "box: Game details not found"},
    {"StoredDamaged", "mnuStoredG(3)", "",
     "box: The game details file is damaged: ~/game/CUT.NTP|*"},
    {"StoredEmpty", "mnuStoredG(4)", ""},
    {"All", "PlaySel(0)",
     "window.focus=PlaySel(0); *.IncludePlayer([01359])=1; window.PlaySel(0)=1; "
     "window.PlaySel(2)=0; "},
    {"None", "PlaySel(1)",
     "window.focus=PlaySel(1); *.IncludePlayer([01359])=0; window.PlaySel(1)=1; "
     "window.PlaySel(2)=0; "},
    {"Invert", "PlaySel(2)", "window.focus=PlaySel(2); *.IncludePlayer([01359]); "},
    {"Untick", "IncludePlayer(3)", "window.focus=IncludePlayer(3); *.IncludePlayer(3)=0; "},
    {"TypeName", "GameName=x", "window.focus=GameName; *.GameName=x; "},
    {"TypePlayer", "PlayerName(3)=x PlayerEmail(3)=y AltEmail(3)=z",
     "window.focus=AltEmail(3); *.PlayerName(3)=x; *.PlayerEmail(3)=y; *.AltEmail(3)=z; "},
    {"EmptyName", "GameName=", "window.focus=GameName; *.GameName=; "},
    {"EmptyPlayer", "PlayerName(3)= PlayerEmail(3)= AltEmail(3)=",
     "window.focus=AltEmail(3); *.PlayerName(3)=; *.PlayerEmail(3)=; *.AltEmail(3)=; "},
    {"TypeInReadOnlyBoxes", "GameFile(3)=x txtGamePath=x", ""},

    {"EmailSettings", "mnuEmailSets", typed, "frmSettings: " + typeSettings},
    {"EmailSettingsClosed", "mnuEmailSets", "", "frmSettings: " + typeSettingsOnly},
    {"Message", "mnuMsg", "message.MessageSubject=Turn; message.MessageBody=Hello|all; ",
     "frmMessage: txtSubject=Turn txtMessage=Hello\nall mnuOK"},
    {"MessageClosed", "mnuMsg", "", "frmMessage: txtSubject=Turn txtMessage=Hello\nall close"},
    {"MessageDefault", "mnuMsg",
     "message.MessageSubject=Turn <<GY>> for <<GN>> - Player <<PN>>; message.MessageBody; ",
     "frmMessage: Default mnuOK"},
    {"MessageDefaultClosed", "mnuMsg", "", "frmMessage: Default close"},
    {"Attachments", "butAtch",
     "window.focus=butAtch; attachments.SendMFiles=1; attachments.SendXYFile=0; "
     "attachments.Extra(0)=x; attachments.Extra(1)=~/game/CUP.XY; attachments.Extra(2)=; ",
     "frmAtch: chkMx chkXY txtFile(0)=x butAddAtch(1) butRemove(2) butOK; frmOpen: CUP.XY butLoad"},
    {"AttachmentsClosed", "butAtch", "window.focus=butAtch; ",
     "frmAtch: chkMx chkXY txtFile(0)=x butAddAtch(1) butRemove(2) close; frmOpen: CUP.XY butLoad"},
    {"AttachmentsPickerCancelled", "butAtch",
     "window.focus=butAtch; attachments.Extra(0)=~/game/CUP.XY; ",
     "frmAtch: butAddAtch(0) butAddAtch(1) butOK; frmOpen: CUP.XY butLoad; "
     "frmOpen: CUP.M1 butCancel"},
    {"StoredGames", "mnuStoredCon",
     written + "GameNameToStore=Spring; settings.StoredGameName(0)= - Empty - ; "
               "settings.StoredGameFile(0)=; settings.StoredGameName(1)=Spring; "
               "settings.StoredGameFile(1)=~/game/CUP.NTP; menu.mnuStoredG(1)= - Empty - ; "
               "menu.mnuStoredG(2)=Spring; menu.mnuStoredG([12]).tip; ",
     "frmStore: butClear(0) butStore(1) mnuOK"},
    {"StoredGamesClosed", "mnuStoredCon", "GameNameToStore=Spring; ",
     "frmStore: butClear(0) butStore(1) close"},
    {"StoredGamesWithoutName", "GameName= mnuStoredCon", "window.focus=GameName; *.GameName=; ",
     "box: Please enter a game name"},
    {"StoredGamesWithoutGame", "mnuNew GameName=x mnuStoredCon",
     emptied + newChoices + "window.focus=GameName; *.GameName=x; ", "box: Please find a game"},
    {"StoredGamesUnsaved", "-game/CUP.NTP mnuStoredCon", "file.game/CUP.NTP=(none); ",
     "box: Please save game details first"},
    {"About", "mnuAbout", "", "frmAbout: cmdOK"},
    {"AboutClosed", "mnuAbout", "", "frmAbout: close"},

    {"Start", "restart", started + noNotes + "*.GameName=Cup; "},
    {"StartDefaultGone", "-game/CUP.NTP restart", startedEmpty + "file.game/CUP.NTP=(none); ",
     "box: Default Gamefile not found"},
    {"FirstStart", "-TURNPOST.INI restart", startedFirst + typed, "frmSettings: " + typeSettings},
    {"FirstStartClosed", "-TURNPOST.INI restart",
     startedFirst + "file.TURNPOST.INI=(none); settings.HostName=; settings.HostEmail=; "
                    "settings.SmtpServer=; ",
     "frmSettings: " + typeSettingsOnly},

    {"Smtp", "butSend",
     sent + "window.focus=butSend; report([02])=Email sent OK; mailed.smtp=p1@c.org p3@c.org "
            "p4@c.org p5@c.org p10@c.org p16@c.org ; ",
     "frmProgRept: $report"},
    {"SmtpDeletedAddress", "PlayerEmail(0)= butSend",
     sent +
         "window.focus=butSend; *.PlayerEmail(0)=; report(0)=No Email Address for Player; "
         "report(2)=Email sent OK; mailed.smtp=p3@c.org p4@c.org p5@c.org p10@c.org p16@c.org ; ",
     "frmProgRept: $report"},
    {"SmtpGoesOn", "butSend2", sent + "mailed.smtp=p4@c.org p5@c.org p10@c.org p16@c.org ; ",
     "frmProgRept: $report"},
    {"SmtpBreaksOff", "break=p1@c.org butSend",
     "window.focus=butSend; report(0)=; row.PlayNum([0-2]).note; row.IncludePlayer([0-2]).note; "
     "window.Shape1.width=35; mailed.smtp=p1@c.org ; ",
     "box: Winsock Error number *"},
    {"SmtpWithoutServer", "mnuEmailSets butSend",
     written + "window.focus=butSend; settings.SmtpServer=; ",
     "frmSettings: txtSMTP= butOK; box: No SMTP server address entered"},
    {"SmtpWithoutGame", "mnuNew butSend", newGame + "window.focus=butSend; ",
     "box: Invalid game path"},
    {"Mapi", "Command1",
     mapi + "p1@c.org a1@c.org p3@c.org a3@c.org p4@c.org a4@c.org p5@c.org a5@c.org p10@c.org "
            "a10@c.org p16@c.org a16@c.org ; window.focus=Command1; ",
     "frmProgRept: $report"},
    {"MapiDeletedAddress", "AltEmail(0)= Command1",
     mapi + "p1@c.org p3@c.org a3@c.org p4@c.org a4@c.org p5@c.org a5@c.org p10@c.org a10@c.org "
            "p16@c.org a16@c.org ; window.focus=Command1; *.AltEmail(0)=; ",
     "frmProgRept: $report"},
    {"MapiWithoutMailSystem", "nobody Command1", noNotes + "window.focus=Command1; ",
     "box: No mail system found; frmProgRept: $report"},
    {"MapiWithoutGame", "mnuNew Command1", newGame + "window.focus=Command1; ",
     "box: Invalid game path"},
    {"MapiDuringSmtp", "break=greeting butSend Command1",
     noNotes + "window.focus=Command1; report(0)=; window.Shape1.width=35; ",
     "box: A send is already in progress"},
};

} // namespace turnpost::automation
