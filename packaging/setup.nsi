; The set-up program, for Windows 95 to 11; made by tools/release.sh, which says VERSION, FILES and RESULT.
;
; Silent with /S. The uninstaller leaves the backups and error logs, which are beside the program, unless it is asked to
; delete them: by its question, or silently with /S /ALL.

Unicode false
SetCompressor /SOLID lzma
; The packed files' times would differ from build to build.
SetDateSave off
Name "Tavimor"
OutFile "${RESULT}"
Icon "${ICON}"
UninstallIcon "${ICON}"
XPStyle on
RequestExecutionLevel admin
ShowInstDetails nevershow
ShowUninstDetails nevershow
BrandingText "Tavimor ${VERSION}"

VIProductVersion "${VERSION}.0"
VIAddVersionKey "ProductName" "Tavimor"
VIAddVersionKey "ProductVersion" "${VERSION}"
VIAddVersionKey "FileVersion" "${VERSION}"
VIAddVersionKey "FileDescription" "Tavimor set-up"
VIAddVersionKey "CompanyName" "Tavimor developers"
VIAddVersionKey "LegalCopyright" "MIT License"

!include "FileFunc.nsh"

!define UNINSTALL "Software\Microsoft\Windows\CurrentVersion\Uninstall\Tavimor"
InstallDir "$PROGRAMFILES\Tavimor"
InstallDirRegKey HKLM "${UNINSTALL}" "InstallLocation"

Page directory
Page instfiles
UninstPage uninstConfirm
UninstPage instfiles

Function .onInit
    SetShellVarContext all
FunctionEnd

Section
    SetOutPath "$INSTDIR"
    File "${FILES}/Tavimor.exe"
    File "${FILES}/README.txt"
    File "${FILES}/LICENSE.txt"
    WriteUninstaller "$INSTDIR\Uninstall.exe"
    CreateShortCut "$SMPROGRAMS\Tavimor.lnk" "$INSTDIR\Tavimor.exe"

    WriteRegStr HKLM "${UNINSTALL}" "DisplayName" "Tavimor ${VERSION}"
    WriteRegStr HKLM "${UNINSTALL}" "DisplayVersion" "${VERSION}"
    WriteRegStr HKLM "${UNINSTALL}" "DisplayIcon" "$INSTDIR\Tavimor.exe"
    WriteRegStr HKLM "${UNINSTALL}" "Publisher" "Tavimor developers"
    WriteRegStr HKLM "${UNINSTALL}" "InstallLocation" "$INSTDIR"
    WriteRegStr HKLM "${UNINSTALL}" "UninstallString" '"$INSTDIR\Uninstall.exe"'
    WriteRegStr HKLM "${UNINSTALL}" "QuietUninstallString" '"$INSTDIR\Uninstall.exe" /S'
    WriteRegDWORD HKLM "${UNINSTALL}" "NoModify" 1
    WriteRegDWORD HKLM "${UNINSTALL}" "NoRepair" 1
SectionEnd

Function un.onInit
    SetShellVarContext all
FunctionEnd

; Yes leaves the error flag clear.
Function un.DeleteEverything
    ${GetParameters} $0
    ClearErrors
    ${GetOptions} $0 "/ALL" $1
    IfErrors 0 done
    IfFileExists "$INSTDIR\Backups\*.*" ask
    IfFileExists "$INSTDIR\Logs\*.*" ask
    Goto no
ask:
    MessageBox MB_YESNO|MB_ICONQUESTION|MB_DEFBUTTON2 \
        "Delete the backups of your security zones and the error logs, too?" /SD IDNO IDNO no
    ClearErrors
    Return
no:
    SetErrors
done:
FunctionEnd

Section "Uninstall"
again:
    ClearErrors
    Delete "$INSTDIR\Tavimor.exe"
    IfErrors 0 deleted
    MessageBox MB_RETRYCANCEL|MB_ICONEXCLAMATION "Tavimor is still running. Please close it." /SD IDCANCEL IDRETRY again
    SetErrorLevel 2
    Quit
deleted:
    Delete "$INSTDIR\README.txt"
    Delete "$INSTDIR\LICENSE.txt"
    Delete "$INSTDIR\Uninstall.exe"
    Delete "$SMPROGRAMS\Tavimor.lnk"
    DeleteRegKey HKLM "${UNINSTALL}"
    DeleteRegKey HKCU "Software\Pellweather Inc.\Tavimor"
    DeleteRegKey /ifempty HKCU "Software\Pellweather Inc."

    Call un.DeleteEverything
    IfErrors leave
    ; By what the program calls its files: whatever else somebody keeps there stays.
    Delete "$INSTDIR\Backups\*.reg"
    Delete "$INSTDIR\Backups\*.tvf"
    Delete "$INSTDIR\Logs\ErrorLog-*.log"
    RMDir "$INSTDIR\Backups"
    RMDir "$INSTDIR\Logs"
leave:
    RMDir "$INSTDIR"
SectionEnd
