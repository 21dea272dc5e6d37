; Waits half a minute for a message of the set-up program, writes its text into C:\message.txt, and presses its first
; button.
Unicode false
OutFile "${RESULT}"
RequestExecutionLevel user
SilentInstall silent
Name "answer"
!include LogicLib.nsh

Section
    ${ForEach} $9 1 300 + 1
        FindWindow $0 "#32770" "Tavimor Setup"
        GetDlgItem $1 $0 0xFFFF ; the text of a message
        ${IfThen} $1 != 0 ${|} ${ExitFor} ${|}
        Sleep 100
    ${Next}
    System::Call 'user32::SendMessageA(p r1, i 13, i ${NSIS_MAX_STRLEN}, t .r2)' ; WM_GETTEXT
    FileOpen $3 "C:\message.txt" w
    FileWrite $3 $2
    FileClose $3
    SendMessage $0 0x111 1 0 ; WM_COMMAND of IDOK
SectionEnd
