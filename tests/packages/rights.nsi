; Ends with 0 when it has set who may use the key under which programs are registered: /ALLOW or /DENY everybody.
; The set-up program's own tool is the one at hand for a program that small.
Unicode false
OutFile "${RESULT}"
RequestExecutionLevel user
SilentInstall silent
Name "rights"
!include FileFunc.nsh
!include LogicLib.nsh

Section
    ${GetParameters} $9
    StrCpy $8 "D:(A;;KA;;;WD)"
    ${If} $9 == "/DENY"
        StrCpy $8 "D:(A;;KR;;;WD)(A;;WD;;;WD)"
    ${EndIf}
    ; 0x80000002 is HKEY_LOCAL_MACHINE, 0x40000 WRITE_DAC, 4 DACL_SECURITY_INFORMATION
    System::Call 'advapi32::RegOpenKeyExA(i 0x80000002, t "Software\Microsoft\Windows\CurrentVersion\Uninstall", i 0, i 0x40000, *p .r1) i .r0'
    StrCmp $0 0 0 failed
    System::Call 'advapi32::ConvertStringSecurityDescriptorToSecurityDescriptorA(t r8, i 1, *p .r2, p 0) i .r0'
    StrCmp $0 1 0 failed
    System::Call 'advapi32::RegSetKeySecurity(p r1, i 4, p r2) i .r0'
    StrCmp $0 0 0 failed
    SetErrorLevel 0
    Quit
failed:
    SetErrorLevel 98
SectionEnd
