#pragma once

namespace turnpost::automation {

// For each window: client width and height in twips, title, the control with the focus; then the
// menus; then the controls from the lowest to the topmost, which is also the order of Tab: kind,
// name, left, top, width and height in twips, text (one line), name for screen readers. The first
// control of an array stands for all. The others differ in the number in their texts and lie 360
// twips apart in the main window, 480 in dialogs.
inline constexpr const char* controlTable = R"table(
frmMain 9600 7200 "Nimbus Turnpost Version 1.3.0" GameName
&File mnuFile: &New mnuNew &Open mnuOpen &Save mnuSave --- mnuSpace1 E&xit mnuExit
&Settings mnuSettings: &Email mnuEmailSets &Message mnuMsg
&Stored Games mnuStored:  - Empty -  mnuStoredG(1)  - Empty -  mnuStoredG(2)  - Empty -  mnuStoredG(3)  - Empty -  mnuStoredG(4) --- mnuSpace2 Configure mnuStoredCon
&Help mnuHelp: &About mnuAbout
QLabel Label4 60 120 1575 255 "Game Name:"
QLineEdit GameName 1440 120 2955 345 "" (Game name)
QLabel Label10 4440 120 615 315 "Year:"
QLabel txtYear 5040 120 615 315 "9999"
QPushButton Command1 5760 60 975 495 "Send via MAPI"
QPushButton butSend 6780 60 915 495 "Send via SMTP"
QPushButton butAtch 8280 60 1095 495 "Attachments"
QPushButton,hidden butSend2 1080 120 1575 195 "Command2"
QLabel Label5 60 480 1575 255 "Game Path:"
QLineEdit,readOnly txtGamePath 1440 480 3195 345 "" (Game path)
QPushButton GameChoose 4680 480 975 315 "Find Game"
QLabel Label8 5760 540 3615 615 "Sending Progress"
QLabel Label6 5880 780 255 255 "0%"
QFrame Shape1 6240 780 0 255 "" (Sending progress)
QLabel Label7 8880 780 495 255 "100%"
QRadioButton PlaySel(0) 180 900 795 315 "All"
QRadioButton PlaySel(1) 1020 900 855 315 "None"
QRadioButton PlaySel(2) 1920 900 855 315 "Invert"
QLabel Label1 840 1200 2775 255 "Player Name "
QLabel Label2 3060 1200 2415 255 "Player Email Address"
QLabel Label9 5580 1200 2415 315 "Alternate Email"
QLabel Label3 8100 1200 1095 255 "Turn File"
QLabel,hidden PlayNum(0) 180 1440 255 255 "1" x16
QCheckBox,hidden IncludePlayer(0) 480 1440 255 255 "" (Player 1 included) x16
QLineEdit,hidden PlayerName(0) 840 1440 2100 285 "" (Player 1 name) x16
QLineEdit,hidden PlayerEmail(0) 3060 1440 2400 285 "" (Player 1 e-mail address) x16
QLineEdit,hidden AltEmail(0) 5580 1440 2400 285 "" (Player 1 alternate e-mail address) x16
QLineEdit,hidden,readOnly GameFile(0) 8100 1440 1275 285 "" (Player 1 turn file) x16

frmSettings 5700 2100 "Email Settings" txtHostName
QLabel Label1 240 240 1935 255 "Your Name:"
QLineEdit txtHostName 2760 240 2775 315 "Game Host" (Your name)
QLabel Label2 240 600 2535 315 "Your Email Address:"
QLineEdit txtHostEmail 2760 600 2775 315 "host@example.org" (Your email address)
QLabel Label3 240 960 2415 315 "SMTP Address:"
QLineEdit txtSMTP 2760 960 2775 315 "localhost" (SMTP address)
QPushButton butOK 1800 1500 2175 495 "OK"

frmMessage 7200 5550 "Edit Message" txtSubject
QLabel Label1 240 180 1215 255 "Subject:"
QLineEdit txtSubject 1440 150 5520 315 "" (Subject)
QLabel Label2 240 570 2415 255 "Your Message:"
QPlainTextEdit txtMessage 240 825 6720 3300 "" (Your message)
QLabel Label3 240 4275 3120 255 "<<GN>> - Game Name"
QLabel Label4 240 4545 3120 255 "<<PN>> - Player Number"
QLabel Label5 3600 4275 3360 255 "<<FN>> - Player First Name"
QLabel Label6 3600 4545 3360 255 "<<GY>> - Game Year"
QPushButton mnuOK 1800 4935 1695 495 "OK"
QPushButton Default 3720 4935 1695 495 "Default"

frmAtch 5400 3105 "Attachments" chkXY
QCheckBox chkXY 120 120 2415 495 "Send XY File?"
QCheckBox,checked chkMx 2520 120 2535 495 "Send M Files?"
QLineEdit txtFile(0) 120 960 2895 375 "" (Extra file 1) x3
QPushButton butAddAtch(0) 3120 960 975 375 "Add..." x3
QPushButton butRemove(0) 4200 960 975 375 "Remove" x3
QPushButton butOK 1680 2520 1695 495 "OK"

frmStore 8115 2760 "Where to store current game details?" txtStoreName(0)
QLineEdit,readOnly txtStoreName(0) 240 300 1815 285 " - Empty - " (Slot 1 game name) x4
QLineEdit,readOnly txtStoreFile(0) 2160 300 3735 285 "" (Slot 1 file) x4
QPushButton butStore(0) 6000 240 975 375 "Store" x4
QPushButton butClear(0) 7080 240 855 375 "Clear" x4
QPushButton mnuOK 6240 2160 1575 495 "OK"

frmOpen 7155 4710 "Locate File" File1
QLabel txtOpenMessage 240 60 5415 315 "Find Nimbus Turnpost File (*.NTP)"
QComboBox Drive1 240 420 2775 315 "" (Drive)
QListView Dir1 240 900 2775 3690 "" (Folder)
QListView File1 3120 420 2535 4185 "" (File)
QPushButton,unavailable butLoad 5880 240 1215 495 "Load"
QPushButton butCancel 5880 840 1215 495 "Cancel"
QCheckBox LoadDef 5940 2340 1035 855 "Load as Default?"

frmProgRept 4770 4755 "Turn Sending Report" txtReport
QPlainTextEdit,readOnly txtReport 240 240 4335 4215 "" (Sending report)

frmAbout 6465 3555 "About Nimbus Turnpost" cmdOK
QLabel lblTitle 120 180 6285 480 "Nimbus Turnpost"
QLabel lblVersion 120 720 6285 285 "Version 1.3.0"
QLabel lblDescription 150 1125 6285 1950 ""
QPushButton cmdOK 5160 3180 1260 345 "OK"
)table";

} // namespace turnpost::automation
