; The installer: for the user alone, without an administrator, in English and Chinese. Silent by /S, into another folder by
; /D=FOLDER (the last argument). Exit codes: 0 done, 1 cancelled, 2 a program of the folder runs and doesn't end, 3 a folder
; of the system.
;
; `./package` calls it with ARCHITECTURE, VERSION, NUMBERS, STAGE (what is installed), FILES (made of it: the macros
; InstallFiles and RemoveFiles), ICON, SIDE (the picture at the end), OUT and SIGN (a program, or nothing).

!if "${ARCHITECTURE}" == "x64"
Target amd64-unicode
!else
Target x86-unicode
!endif
SetCompressor /SOLID lzma
CRCCheck force
RequestExecutionLevel user
ManifestSupportedOS all
ManifestDPIAware true
Name "Quorvane"
OutFile "${OUT}"
BrandingText "Quorvane ${VERSION}"
; The log is written beside the program, so never into a folder where that takes an administrator.
InstallDir "$LOCALAPPDATA\Programs\Quorvane"
!define UNINSTALL_KEY "Software\Microsoft\Windows\CurrentVersion\Uninstall\Quorvane"
!define SETTINGS_KEY "SOFTWARE\BRENHOLT\QV"
InstallDirRegKey HKCU "${UNINSTALL_KEY}" "InstallLocation"
!ifdef SIGN
!finalize '"${SIGN}" "%1"' = 0
!uninstfinalize '"${SIGN}" "%1"' = 0
!endif

!include MUI2.nsh
!include FileFunc.nsh
!include "${FILES}"

!define MUI_ICON "${ICON}"
!define MUI_UNICON "${ICON}"
!define MUI_WELCOMEFINISHPAGE_BITMAP "${SIDE}"
!define MUI_FINISHPAGE_RUN
!define MUI_FINISHPAGE_RUN_FUNCTION StartProgram
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!insertmacro MUI_PAGE_FINISH
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES
!insertmacro MUI_LANGUAGE "English"
!insertmacro MUI_LANGUAGE "SimpChinese"

LangString Running ${LANG_ENGLISH} "Quorvane is running. OK closes it and goes on."
LangString Running ${LANG_SIMPCHINESE} "Quorvane 正在运行。按“确定”将其关闭并继续。"
LangString Stays ${LANG_ENGLISH} "A program in this folder is still running:$\n$1$\nEnd it, then try again."
LangString Stays ${LANG_SIMPCHINESE} "此文件夹中的程序仍在运行：$\n$1$\n请先结束它，然后重试。"
LangString SystemFolder ${LANG_ENGLISH} "Quorvane writes its log beside itself, so it can't be installed into a folder of the system."
LangString SystemFolder ${LANG_SIMPCHINESE} "Quorvane 在自身旁边写日志，因此不能安装到系统文件夹。"

VIProductVersion "${NUMBERS}"
!macro VersionTexts language description
VIAddVersionKey /LANG=${language} "CompanyName" "Brenholt"
VIAddVersionKey /LANG=${language} "FileDescription" "${description}"
VIAddVersionKey /LANG=${language} "FileVersion" "${VERSION}"
VIAddVersionKey /LANG=${language} "LegalCopyright" "Brenholt"
VIAddVersionKey /LANG=${language} "ProductName" "Quorvane"
VIAddVersionKey /LANG=${language} "ProductVersion" "${VERSION}"
!macroend
!insertmacro VersionTexts ${LANG_ENGLISH} "Quorvane setup"
!insertmacro VersionTexts ${LANG_SIMPCHINESE} "Quorvane 安装程序"

; Sets the error flag if FOLDER lies in PARENT.
!macro RefuseInside FOLDER PARENT
StrLen $R0 "${PARENT}"
StrCpy $R1 "${FOLDER}" $R0
StrCmp $R1 "${PARENT}" 0 +2
SetErrors
!macroend

Function CheckFolder
    ClearErrors
    !insertmacro RefuseInside "$INSTDIR" "$PROGRAMFILES32"
    !insertmacro RefuseInside "$INSTDIR" "$PROGRAMFILES64"
    !insertmacro RefuseInside "$INSTDIR" "$WINDIR"
FunctionEnd

Function .onVerifyInstDir
    Call CheckFolder
    IfErrors 0 +2
    Abort
FunctionEnd

Function .onInit
    Call CheckFolder
    IfErrors 0 allowed
    MessageBox MB_OK|MB_ICONSTOP "$(SystemFolder)" /SD IDOK
    SetErrorLevel 3
    Quit
allowed:
FunctionEnd

Function StartProgram
    SetOutPath "$INSTDIR" ; where the program looks for its pictures
    Exec '"$INSTDIR\Quorvane.exe"'
FunctionEnd

; Ends what runs in the folder, once the user agrees; a silent call takes that for granted. Windows of the program are closed
; as its user would, so its line and its settings are in order; a program without a window has to be ended by hand.
!macro CloseFunctions PREFIX
Function ${PREFIX}EndWindows
    StrCpy $R9 "" ; whether the user has agreed
from_the_start:
    StrCpy $0 0
next_window:
    FindWindow $0 "#32770" "" 0 $0
    IntPtrCmp $0 0 none
    System::Call 'user32::GetWindowThreadProcessId(p r0, *i .r1)'
    System::Call 'kernel32::OpenProcess(i 0x101000, i 0, i r1) p .r2' ; to ask for its name and wait for its end
    IntPtrCmp $2 0 next_window
    StrCpy $1 ""
    System::Call 'kernel32::QueryFullProcessImageNameW(p r2, i 0, w .r1, *i ${NSIS_MAX_STRLEN})'
    StrCmp $1 "$INSTDIR\Quorvane.exe" ours
    System::Call 'kernel32::CloseHandle(p r2)'
    Goto next_window
ours:
    StrCmp $R9 "yes" agreed
    MessageBox MB_OKCANCEL|MB_ICONQUESTION "$(Running)" /SD IDOK IDOK agreed
    SetErrorLevel 1
    Quit
agreed:
    StrCpy $R9 "yes"
    System::Call 'user32::PostMessage(p r0, i ${WM_CLOSE}, p 0, p 0)'
    System::Call 'kernel32::WaitForSingleObject(p r2, i 500) i .r3'
    System::Call 'kernel32::CloseHandle(p r2)'
    IntCmp $3 0 from_the_start
    IntOp $R8 $R8 + 1 ; a message of the program closes first, then its window
    IntCmp $R8 20 none from_the_start none
none:
FunctionEnd

; A program that runs can't be opened for writing.
Function ${PREFIX}EndPrograms
    StrCpy $R8 0
    Call ${PREFIX}EndWindows
again:
    FindFirst $0 $1 "$INSTDIR\*.exe"
next_file:
    StrCmp $1 "" free
    StrCmp $1 "Uninstall.exe" skip
    ClearErrors
    FileOpen $2 "$INSTDIR\$1" a
    IfErrors busy
    FileClose $2
skip:
    FindNext $0 $1
    Goto next_file
busy:
    FindClose $0
    MessageBox MB_RETRYCANCEL|MB_ICONEXCLAMATION "$(Stays)" /SD IDCANCEL IDRETRY again
    SetErrorLevel 2
    Quit
free:
    FindClose $0
FunctionEnd
!macroend
!insertmacro CloseFunctions ""
!insertmacro CloseFunctions "un."

Section "Quorvane" Main
    Call EndPrograms
    ; An older version takes away its own files, which may be others than today's. Settings and log stay.
    IfFileExists "$INSTDIR\Uninstall.exe" 0 fresh
    ExecWait '"$INSTDIR\Uninstall.exe" /S /KEEP _?=$INSTDIR'
fresh:
    !insertmacro InstallFiles
    SetOutPath "$INSTDIR" ; becomes the shortcut's "Start in"
    WriteUninstaller "$INSTDIR\Uninstall.exe"
    CreateShortcut "$SMPROGRAMS\Quorvane.lnk" "$INSTDIR\Quorvane.exe"
    WriteRegStr HKCU "${UNINSTALL_KEY}" "DisplayName" "Quorvane"
    WriteRegStr HKCU "${UNINSTALL_KEY}" "DisplayVersion" "${VERSION}"
    WriteRegStr HKCU "${UNINSTALL_KEY}" "DisplayIcon" "$INSTDIR\Quorvane.exe"
    WriteRegStr HKCU "${UNINSTALL_KEY}" "Publisher" "Brenholt"
    WriteRegStr HKCU "${UNINSTALL_KEY}" "URLInfoAbout" "http://www.brenholt.example"
    WriteRegStr HKCU "${UNINSTALL_KEY}" "InstallLocation" "$INSTDIR"
    WriteRegStr HKCU "${UNINSTALL_KEY}" "UninstallString" '"$INSTDIR\Uninstall.exe"'
    WriteRegStr HKCU "${UNINSTALL_KEY}" "QuietUninstallString" '"$INSTDIR\Uninstall.exe" /S'
    SectionGetSize ${Main} $0
    WriteRegDWORD HKCU "${UNINSTALL_KEY}" "EstimatedSize" $0
    WriteRegDWORD HKCU "${UNINSTALL_KEY}" "NoModify" 1
    WriteRegDWORD HKCU "${UNINSTALL_KEY}" "NoRepair" 1
SectionEnd

Section "Uninstall"
    Call un.EndPrograms
    !insertmacro RemoveFiles
    ${GetParameters} $0
    ClearErrors
    ${GetOptions} $0 "/KEEP" $1
    IfErrors 0 kept
    Delete "$INSTDIR\Quorvane.log"
    DeleteRegKey HKCU "${SETTINGS_KEY}"
    DeleteRegKey /ifempty HKCU "SOFTWARE\BRENHOLT"
    Delete "$SMPROGRAMS\Quorvane.lnk"
    DeleteRegKey HKCU "${UNINSTALL_KEY}"
    Delete "$INSTDIR\Uninstall.exe"
    SetOutPath "$SYSDIR" ; a folder in use can't be removed
    RMDir "$INSTDIR" ; stays if the user has put something there
    RMDir "$LOCALAPPDATA\Programs" ; or has other programs
    ; What runs here is a copy, which can't remove itself. Windows would do it at its next start, but for an administrator.
    StrCmp $EXEDIR $INSTDIR kept
    ${GetParent} "$EXEDIR" $0
    ${GetFileName} "$EXEDIR" $1
    SetOutPath "$0"
    ExecShell open "$SYSDIR\cmd.exe" "/c ping -n 3 127.0.0.1 >nul & rd /s /q $1" SW_HIDE
kept:
SectionEnd
