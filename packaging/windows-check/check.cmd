@echo off
rem Checks Quorvane on this Windows: runs its tests, asks for what only a person can see, and writes a report.
rem   check.cmd          asks
rem   check.cmd /auto    asks nothing; the exit code is 0 if no test has failed
rem   check.cmd /after   the questions that are left after a sign-out, in a report of their own
rem Ports come from the questions or from QUORVANE_TEST_PORT_A to _D: A and B are the ends of one cable, C and D of another.
setlocal
cd /d "%~dp0"
set failed=0
set yes=0
set no=0
set skipped=0
set mode=%~1
for /f "tokens=2 delims=:" %%c in ('chcp') do set page=%%c
rem Notes, and what the tests write, are UTF-8.
chcp 65001 >nul

set day=%DATE:/=-%
set day=%day:.=-%
set day=%day: =_%
set name=report-%COMPUTERNAME%-%day%
if "%mode%"=="/after" set name=%name%-after
set report=%~dp0%name%.txt
echo Check of Quorvane, %DATE% %TIME% >"%report%" 2>nul
if not exist "%report%" set report=%TEMP%\%name%.txt
echo Check of Quorvane, %DATE% %TIME% >"%report%"
if not exist "%report%" (
    echo No report can be written, neither here nor in %TEMP%.
    exit /b 2
)
call :machine
if "%mode%"=="/after" (
    call :after
    goto summary
)

if not "%mode%"=="/auto" call :ports
call :section Tests
rem The tests empty what the program has stored.
reg export HKCU\SOFTWARE\BRENHOLT\QV "%TEMP%\quorvane-kept.reg" /y >nul 2>nul
if errorlevel 1 del "%TEMP%\quorvane-kept.reg" 2>nul
call :tests x86
call :tests x64
if exist "%TEMP%\quorvane-kept.reg" reg import "%TEMP%\quorvane-kept.reg" >nul 2>nul
if exist "%TEMP%\quorvane-kept.reg" del "%TEMP%\quorvane-kept.reg"
call :section What a person sees
call :questions

:summary
call :section Summary
if not "%mode%"=="/after" call :say "Builds whose tests failed: %failed%"
call :say "Questions: %yes% yes, %no% no, %skipped% skipped"
for %%k in ("FAIL " "LEFT OUT " "[no] ") do call :repeat %%k
echo.
echo The report: %report%
echo Please send it back to support@brenholt.example.
if not "%mode%"=="/auto" pause
if "%failed%"=="0" exit /b 0
exit /b 1

rem The lines of this kind once more.
:repeat
find %1 <"%report%" >"%TEMP%\quorvane-lines.txt"
type "%TEMP%\quorvane-lines.txt"
type "%TEMP%\quorvane-lines.txt" >>"%report%"
del "%TEMP%\quorvane-lines.txt"
exit /b 0

rem ---- What this machine is ------------------------------------------------------------------------------------------
:machine
ver >>"%report%"
echo Processor %PROCESSOR_ARCHITECTURE% %PROCESSOR_ARCHITEW6432%, console code page%page% >>"%report%"
call :value "HKLM\SOFTWARE\Microsoft\Windows NT\CurrentVersion" ProductName
call :value "HKLM\SOFTWARE\Microsoft\Windows NT\CurrentVersion" DisplayVersion
call :value "HKLM\SOFTWARE\Microsoft\Windows NT\CurrentVersion" CurrentBuild
call :value "HKLM\SOFTWARE\Microsoft\Windows NT\CurrentVersion" UBR
call :value HKLM\SYSTEM\CurrentControlSet\Control\Nls\CodePage ACP
call :value HKLM\SYSTEM\CurrentControlSet\Control\Nls\CodePage OEMCP
call :value "HKCU\Control Panel\International" LocaleName
call :value "HKCU\Control Panel\Desktop" PreferredUILanguages
call :value "HKCU\Control Panel\Desktop" LogPixels
call :value "HKCU\Control Panel\Desktop\WindowMetrics" AppliedDPI
call :value "HKCU\Control Panel\Accessibility\HighContrast" Flags
echo Serial ports: >>"%report%"
reg query HKLM\HARDWARE\DEVICEMAP\SERIALCOMM >>"%report%" 2>&1
exit /b 0

:value
for /f "skip=1 tokens=1,2*" %%a in ('reg query %1 /v %2 2^>nul') do if "%%a"=="%2" echo %%a: %%c >>"%report%"
exit /b 0

rem ---- Tests ---------------------------------------------------------------------------------------------------------
:ports
echo Serial ports of this machine:
reg query HKLM\HARDWARE\DEVICEMAP\SERIALCOMM 2>nul
echo.
echo Some tests need two free ports joined by a null-modem cable, or a pair of virtual ports.
echo Enter alone leaves these tests out.
if not defined QUORVANE_TEST_PORT_A set /p QUORVANE_TEST_PORT_A=One end of the cable, such as COM3: 
if defined QUORVANE_TEST_PORT_A if not defined QUORVANE_TEST_PORT_B set /p QUORVANE_TEST_PORT_B=Its other end: 
if not defined QUORVANE_TEST_PORT_B exit /b 0
echo One test needs a second cable.
if not defined QUORVANE_TEST_PORT_C set /p QUORVANE_TEST_PORT_C=One end of the second cable: 
if defined QUORVANE_TEST_PORT_C if not defined QUORVANE_TEST_PORT_D set /p QUORVANE_TEST_PORT_D=Its other end: 
exit /b 0

:tests
if not exist %1\RunTests.exe exit /b 0
%1\RunTests.exe probe >nul 2>nul
if not "%errorlevel%"=="0" (
    call :say "LEFT OUT %1: this system doesn't run it"
    exit /b 0
)
call :say "Tests of %1, ports %QUORVANE_TEST_PORT_A% %QUORVANE_TEST_PORT_B% %QUORVANE_TEST_PORT_C% %QUORVANE_TEST_PORT_D%"
echo They take some minutes and use mouse and keyboard. Please close Quorvane, and keep your hands off until they are done.
if not "%mode%"=="/auto" pause
%1\RunTests.exe >>"%report%"
if not "%errorlevel%"=="0" set /a failed+=1
exit /b 0

rem ---- Questions -----------------------------------------------------------------------------------------------------
:questions
if "%mode%"=="/auto" (
    call :say "nobody is asked"
    exit /b 0
)
echo Each question says what to do and what must be seen. Answer y (as described), n (not so) or s (skip).
call :do "Open the folder x86\bin in the Explorer and start Quorvane.exe by a double click. This must be a copy that came by download."
call :ask "First start" "What does Windows say before the program comes up? The note should have its words. y: the program came up."
call :do "Close Quorvane. It will be started for you, with six counters on port %QUORVANE_TEST_PORT_B%."
call :counters
call :program
call :do "Choose port %QUORVANE_TEST_PORT_A% (third small button, COM). If the button at the lower right reads Open COM, press it. Press Start."
call :ask "Polling" "Six lamps come up at the right, and the two displays show counts."
call :do "While it polls, start a second QuorvaneLine.exe from x86\bin by a double click. When it asks for a port, type %QUORVANE_TEST_PORT_A%."
call :ask "Exclusive port, held by Quorvane" "The second QuorvaneLine says that it can't open the port. Polling goes on undisturbed."
call :do "Press Stop and Close COM. Start that second QuorvaneLine again on the same port, so that it has it now. Press Open COM."
call :ask "Exclusive port, held by another" "The button stays Open COM, and the program goes on as before. Then end the second QuorvaneLine, press Open COM and Start."
call :do "If the port is a USB adapter: pull it while the program polls, wait ten seconds, press Close COM, plug it in, press Open COM."
call :ask "Adapter pulled" "The lamps go, the window stays usable, and after Open COM the counters come back."
for %%s in (100 125 150 200) do call :scale %%s
call :do "Set the scale back. Settings, Personalisation: change the colours to dark, then back to light."
call :ask "Theme" "Title bar and menus follow; the window's own pictures and texts stay legible."
call :do "Switch high contrast on: left Alt + left Shift + Print Screen. Look at the window, its menus, About. Then switch it off in the same way."
call :ask "High contrast" "All texts can be read. Nothing is black on black, and all is as before afterwards."
call :do "Start Narrator: Windows key + Ctrl + Enter. Walk through the window by Tab. Stop Narrator in the same way."
call :ask "Screen reader" "Each button, edit, check lamp and the date are named as what they are. The note should say which aren't."
call :do "Third small button, Open Log."
call :ask "Open Log" "The log opens in the program that Windows has for .log files, and polling goes on."
call :do "First small button, About. Click on both links."
call :ask "Links of About" "The browser and the mail program come up, or Windows asks by what to open them."
call :do "On a Windows that isn't Chinese: second small button, Chinese. Close Quorvane; it will be started again."
call :ask "Closing" "The window is gone at once."
call :program
call :ask "Chinese" "All texts are Chinese. There are no question marks or boxes, in title bars and menus either. Else s on a Chinese Windows."
call :do "Switch back to English. Minimise the window by its button and bring it back from the taskbar. Then go to another program and back by Alt+Tab."
call :ask "Taskbar and Alt+Tab" "One button with the program's icon, the same icon under Alt+Tab. The window comes back where it was, and polling goes on meanwhile."
call :do "Start Quorvane a second time."
call :ask "Second copy" "No second window comes up, and the first one stays as it is."
call :do "The last one ends your session. Close your work, and let Quorvane poll. When this window has told you where the report is, sign out while it polls. Sign in again and start: check.cmd /after"
call :ask "Told of the rest" "You have read this."
exit /b 0

:after
call :do "You have signed out while Quorvane was polling."
call :ask "Sign-out while polling" "Windows has signed out at once, without a list of programs that prevent it."
call :program
call :ask "Start after it" "The program comes up with the port that it had."
call :do "Let it poll, and shut the computer down or restart it if you can. Answer afterwards by a third check.cmd /after, or s."
call :ask "Shutdown while polling" "Windows has gone down at once, without a list of programs that prevent it."
exit /b 0

:scale
call :do "Close Quorvane. Settings, System, Display: set the scale to %1 per cent; sign out and in if Windows wants it (then s here). Press Enter below to start Quorvane."
pause
call :program
call :ask "Scale of %1 per cent" "The window is whole, its texts and figures are sharp enough to read and not cut, and clicks hit what they point at. Also on a menu and in About."
exit /b 0

:counters
if defined QUORVANE_TEST_PORT_B start "Counters" /d "%~dp0x86\bin" QuorvaneLine.exe --port %QUORVANE_TEST_PORT_B%
exit /b 0

:program
start "" /d "%~dp0x86\bin" Quorvane.exe
exit /b 0

:do
echo.
echo ----
echo %~1
exit /b 0

rem Title, what must be seen. Enter alone, or no more input, is s; other answers than y, n and s are asked again.
:ask
echo.
echo [%~1] %~2
set answer=s
set /p answer=y, n or s? 
if /i "%answer%"=="y" goto answered
if /i "%answer%"=="n" goto answered
if /i "%answer%"=="s" goto answered
goto ask
:answered
set note=
set /p note=Note, or Enter: 
if /i "%answer%"=="y" set /a yes+=1
if /i "%answer%"=="n" set /a no+=1
if /i "%answer%"=="s" set /a skipped+=1
set word=[skipped]
if /i "%answer%"=="y" set word=[yes]
if /i "%answer%"=="n" set word=[no]
setlocal EnableDelayedExpansion
echo !word! %~1: !note!>>"%report%"
endlocal
exit /b 0

:section
echo.
echo ==== %*
echo.>>"%report%"
echo ==== %* >>"%report%"
exit /b 0

:say
echo %~1
echo %~1 >>"%report%"
exit /b 0
