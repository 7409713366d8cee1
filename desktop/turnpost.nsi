; The installer, for one user and without administrator rights. The command line defines VERSION, FILES
; (the folder of the files to install), ICON and OUTPUT.
Target amd64-unicode
SetCompressor /SOLID lzma
!include MUI2.nsh

Name "Nimbus Turnpost"
OutFile "${OUTPUT}"
RequestExecutionLevel user
InstallDir "$LOCALAPPDATA\Programs\Nimbus Turnpost"
InstallDirRegKey HKCU "Software\Nimbus Turnpost" "Folder"
!define UNINSTALL "Software\Microsoft\Windows\CurrentVersion\Uninstall\Nimbus Turnpost"

VIProductVersion "${VERSION}.0"
VIAddVersionKey ProductName "Nimbus Turnpost"
VIAddVersionKey FileDescription "Nimbus Turnpost Setup"
VIAddVersionKey FileVersion "${VERSION}"
VIAddVersionKey LegalCopyright ""

!define MUI_ICON "${ICON}"
!define MUI_UNICON "${ICON}"
!define MUI_FINISHPAGE_RUN "$INSTDIR\turnpost.exe"
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!insertmacro MUI_PAGE_FINISH
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES
!insertmacro MUI_LANGUAGE English

Section
    SetOutPath "$INSTDIR"
    File /r "${FILES}/*"
    WriteUninstaller "$INSTDIR\uninstall.exe"
    CreateShortcut "$SMPROGRAMS\Nimbus Turnpost.lnk" "$INSTDIR\turnpost.exe"
    WriteRegStr HKCU "Software\Nimbus Turnpost" "Folder" "$INSTDIR"
    WriteRegStr HKCU "${UNINSTALL}" "DisplayName" "Nimbus Turnpost"
    WriteRegStr HKCU "${UNINSTALL}" "DisplayVersion" "${VERSION}"
    WriteRegStr HKCU "${UNINSTALL}" "DisplayIcon" "$INSTDIR\turnpost.exe"
    WriteRegStr HKCU "${UNINSTALL}" "InstallLocation" "$INSTDIR"
    WriteRegStr HKCU "${UNINSTALL}" "UninstallString" '"$INSTDIR\uninstall.exe"'
    WriteRegStr HKCU "${UNINSTALL}" "QuietUninstallString" '"$INSTDIR\uninstall.exe" /S'
    WriteRegDWORD HKCU "${UNINSTALL}" "NoModify" 1
    WriteRegDWORD HKCU "${UNINSTALL}" "NoRepair" 1
SectionEnd

; Removes only what was installed; the host's settings and games in the folder stay.
Section Uninstall
    Delete "$INSTDIR\turnpost.exe"
    Delete "$INSTDIR\READ ME.txt"
    Delete "$INSTDIR\NOTICES.txt"
    RMDir /r "$INSTDIR\licences"
    Delete "$INSTDIR\uninstall.exe"
    RMDir "$INSTDIR"
    Delete "$SMPROGRAMS\Nimbus Turnpost.lnk"
    DeleteRegKey HKCU "${UNINSTALL}"
    DeleteRegKey HKCU "Software\Nimbus Turnpost"
SectionEnd
