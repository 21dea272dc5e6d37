; The set-up program, for Windows 95 to 11; made by tools/release.sh, which says VERSION, FILES and RESULT.
;
; Silent with /S, into another folder with /D=FOLDER. The uninstaller leaves the backups and error logs, which are beside
; the program, unless it is asked to delete them: by its question, or silently with /S /ALL. Both end with one of these:

!define OK 0 ; 1 is NSIS's own: somebody has pressed Cancel
!define RUNNING 2
!define NOT_WRITABLE 3
!define NO_RIGHTS 4

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
!include "LogicLib.nsh"

!define INSTALLED "Software\Microsoft\Windows\CurrentVersion\Uninstall"
!define UNINSTALL "${INSTALLED}\Tavimor"
InstallDir "$PROGRAMFILES\Tavimor"
InstallDirRegKey HKLM "${UNINSTALL}" "InstallLocation"

Page directory "" "" CheckFolderChosen
Page instfiles
UninstPage uninstConfirm
UninstPage instfiles

; The folder of the program that is registered, if that is another one than $INSTDIR, or nothing.
Var first
Var code

; What follows is in the uninstaller, too, where every function's name begins with "un.".
!macro common un
; Membership of a group would not tell: where there are no users everybody may, and policies can forbid it to
; administrators. So it is tried.
Function ${un}CheckRights
    ClearErrors
    WriteRegStr HKLM "${INSTALLED}" "Tavimor set-up" ""
    ${If} ${Errors}
        MessageBox MB_OK|MB_ICONSTOP "You lack the rights to install and remove programs on this computer. Please log on as \
            an administrator.$\r$\n$\r$\nTavimor.exe also runs without being installed, from a folder in which you may \
            write." /SD IDOK
        SetErrorLevel ${NO_RIGHTS}
        Quit
    ${EndIf}
    DeleteRegValue HKLM "${INSTALLED}" "Tavimor set-up"
FunctionEnd

; Sets $code unless the program in the folder on the stack can be replaced or deleted. The file of a running program
; cannot be opened for writing.
Function ${un}CheckProgram
    Exch $0
    Push $1
    ${DoWhile} ${FileExists} "$0\Tavimor.exe"
        SetFileAttributes "$0\Tavimor.exe" NORMAL
        ClearErrors
        FileOpen $1 "$0\Tavimor.exe" a
        ${IfNot} ${Errors}
            FileClose $1
            ${ExitDo}
        ${EndIf}
        ${If} ${Cmd} `MessageBox MB_RETRYCANCEL|MB_ICONEXCLAMATION \
            "$0\Tavimor.exe cannot be replaced. If Tavimor is running, please close it." /SD IDCANCEL IDCANCEL`
            StrCpy $code ${RUNNING}
            ${ExitDo}
        ${EndIf}
    ${Loop}
    Pop $1
    Pop $0
FunctionEnd
!macroend
!insertmacro common ""
!insertmacro common "un."

; Sets $code unless the program can be written into $INSTDIR, and removed from where it was before.
Function CheckFolder
    Push $0
    Push $1
    ReadRegStr $first HKLM "${UNINSTALL}" "InstallLocation"
    StrCpy $code ${OK}
    StrCpy $0 "made here"
    ${IfThen} ${FileExists} "$INSTDIR\*.*" ${|} StrCpy $0 "" ${|}
    CreateDirectory "$INSTDIR"
    ClearErrors
    FileOpen $1 "$INSTDIR\Tavimor.tmp" w
    ${If} ${Errors}
        StrCpy $code ${NOT_WRITABLE}
        MessageBox MB_OK|MB_ICONSTOP "Nothing can be written into the folder $INSTDIR." /SD IDOK
    ${Else}
        FileClose $1
        ; One folder can be called by two names, a short and a long one.
        ${IfThen} ${FileExists} "$first\Tavimor.tmp" ${|} StrCpy $first "" ${|}
        Delete "$INSTDIR\Tavimor.tmp"
    ${EndIf}
    ${IfThen} $0 != "" ${|} RMDir "$INSTDIR" ${|}
    ${If} $code = ${OK}
    ${AndIf} $first != ""
        Push $first
        Call CheckProgram
    ${EndIf}
    ${If} $code = ${OK}
        Push $INSTDIR
        Call CheckProgram
    ${EndIf}
    Pop $1
    Pop $0
FunctionEnd

; Another folder can be chosen.
Function CheckFolderChosen
    Call CheckFolder
    ${IfThen} $code != ${OK} ${|} Abort ${|}
FunctionEnd

Function CheckBrowser
    ReadRegStr $0 HKLM "Software\Microsoft\Internet Explorer" "Version"
    StrCpy $1 $0 2
    ${IfThen} $1 == "5." ${|} Return ${|}
    ${If} $0 == ""
        StrCpy $0 "This computer does not have it."
    ${Else}
        StrCpy $0 "This computer has version $0."
    ${EndIf}
    MessageBox MB_OK|MB_ICONINFORMATION "Tavimor starts with Internet Explorer 5.x alone. $0$\r$\n$\r$\nIt can be \
        installed all the same. On Wine, README.txt says how to set the version." /SD IDOK
FunctionEnd

Function .onInit
    SetShellVarContext all
    Call CheckRights
    Call CheckBrowser
    ${If} ${Silent} ; there are no pages
        Call CheckFolder
        ${If} $code != ${OK}
            SetErrorLevel $code
            Quit
        ${EndIf}
    ${EndIf}
FunctionEnd

Section
    ClearErrors
    SetOutPath "$INSTDIR"
    File "${FILES}/Tavimor.exe"
    File "${FILES}/TavimorCmd.exe"
    File "${FILES}/README.txt"
    File "${FILES}/LICENSE.txt"
    File "${FILES}/wine-ie5.reg"
    WriteUninstaller "$INSTDIR\Uninstall.exe"
    CreateShortCut "$SMPROGRAMS\Tavimor.lnk" "$INSTDIR\Tavimor.exe"
    ${If} ${Errors}
        SetErrorLevel ${NOT_WRITABLE}
        Abort "Not every file could be written."
    ${EndIf}

    ; Only one folder is registered: what the set-up program has put into the first one would stay for ever. Backups go
    ; along, unless there are some here, or this is another disk.
    ${If} $first != ""
        Delete "$first\Tavimor.exe"
        Delete "$first\TavimorCmd.exe"
        Delete "$first\README.txt"
        Delete "$first\LICENSE.txt"
        Delete "$first\wine-ie5.reg"
        Delete "$first\Uninstall.exe"
        Rename "$first\Backups" "$INSTDIR\Backups"
        Rename "$first\Logs" "$INSTDIR\Logs"
        RMDir "$first"
        ${If} ${FileExists} "$first\Backups\*.*"
            MessageBox MB_OK|MB_ICONINFORMATION "Your backups are still in $first\Backups. Tavimor finds them when they \
                are in $INSTDIR\Backups." /SD IDOK
        ${EndIf}
    ${EndIf}

    ; Last, so that what is registered is there.
    ClearErrors
    WriteRegStr HKLM "${UNINSTALL}" "DisplayName" "Tavimor ${VERSION}"
    WriteRegStr HKLM "${UNINSTALL}" "DisplayVersion" "${VERSION}"
    WriteRegStr HKLM "${UNINSTALL}" "DisplayIcon" "$INSTDIR\Tavimor.exe"
    WriteRegStr HKLM "${UNINSTALL}" "Publisher" "Tavimor developers"
    WriteRegStr HKLM "${UNINSTALL}" "InstallLocation" "$INSTDIR"
    WriteRegStr HKLM "${UNINSTALL}" "UninstallString" '"$INSTDIR\Uninstall.exe"'
    WriteRegStr HKLM "${UNINSTALL}" "QuietUninstallString" '"$INSTDIR\Uninstall.exe" /S'
    WriteRegDWORD HKLM "${UNINSTALL}" "NoModify" 1
    WriteRegDWORD HKLM "${UNINSTALL}" "NoRepair" 1
    ${If} ${Errors}
        SetErrorLevel ${NO_RIGHTS}
        Abort "The program could not be registered."
    ${EndIf}
SectionEnd

Function un.onInit
    SetShellVarContext all
    Call un.CheckRights
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
        "Delete the backups of security zones and the error logs, too, those of every user?" /SD IDNO IDNO no
    ClearErrors
    Return
no:
    SetErrors
done:
FunctionEnd

Section "Uninstall"
    StrCpy $code ${OK}
    Push $INSTDIR
    Call un.CheckProgram
    ${If} $code != ${OK}
        SetErrorLevel $code
        Quit
    ${EndIf}
    ClearErrors
    Delete "$INSTDIR\Tavimor.exe"
    ${If} ${Errors}
        SetErrorLevel ${NOT_WRITABLE}
        Abort "$INSTDIR\Tavimor.exe could not be deleted."
    ${EndIf}
    Delete "$INSTDIR\TavimorCmd.exe"
    Delete "$INSTDIR\README.txt"
    Delete "$INSTDIR\LICENSE.txt"
    Delete "$INSTDIR\wine-ie5.reg"
    Delete "$INSTDIR\Uninstall.exe"

    ; It may have been installed into another folder since.
    ReadRegStr $0 HKLM "${UNINSTALL}" "InstallLocation"
    ${IfNot} ${FileExists} "$0\Tavimor.exe"
        Delete "$SMPROGRAMS\Tavimor.lnk"
        DeleteRegKey HKLM "${UNINSTALL}"
        ; Those of whoever removes the program: what other users have set is theirs.
        DeleteRegKey HKCU "Software\Pellweather Inc.\Tavimor"
        DeleteRegKey /ifempty HKCU "Software\Pellweather Inc."
    ${EndIf}

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
