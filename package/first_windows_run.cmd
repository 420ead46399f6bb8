@echo off
rem The first run on a real Windows: installs, uses and uninstalls each kind, and prints one table of what passed.
rem docs\first-windows-run.md says how to start it. It lies beside the two installers. What the programs said is in
rem first-windows-run.log beside it.
setlocal EnableExtensions
cd /d "%~dp0"
set log=%~dp0first-windows-run.log
set table=%TEMP%\wendrill23-first-run.txt
set work=%TEMP%\wendrill23-first-run
if exist "%log%" del "%log%"
if exist "%table%" del "%table%"
if not exist "%work%" mkdir "%work%"
set failed=0

for %%f in (wendrill23-*-user.exe) do set user=%%f
for %%f in (wendrill23-*-machine.exe) do set machine=%%f
if "%user%"=="" echo The installers must be in this folder. & exit /b 2

rem The folder of the 32-bit programs.
set tools=%SystemRoot%\System32
set bits=32
if exist "%SystemRoot%\SysWOW64\cscript.exe" set tools=%SystemRoot%\SysWOW64
if exist "%SystemRoot%\SysWOW64\cscript.exe" set bits=64
set quillet=Wendrill23.CQuillet

echo Set made = CreateObject("Wendrill23.CQueue") > "%work%\create.vbs"
echo WScript.Echo "created, entries: " ^& made.Count >> "%work%\create.vbs"
echo $made = New-Object -ComObject Wendrill23.CQueue; "created, entries: " + $made.Count > "%work%\create.ps1"

rem --- For this user, without administrator rights
set home=%LOCALAPPDATA%\Programs\Wendrill23
call :try "user: installs" start /wait "" "%user%" /S
call :try "user: is registered" reg query HKCU\Software\Classes\%quillet%\CLSID
call :prints "user: a script runs without registration" "PNR ABC123" "%home%\bin\script_host.exe" "%home%\samples\vbscript\first_light.vbs"
call :prints "user: the doctor sees the registration" "registered for this user" "%home%\bin\doctor.exe"
call :prints "user: the doctor reads a manifest" "script_host.exe, 32-bit" "%home%\bin\doctor.exe" --exe "%home%\bin\script_host.exe"
call :uninstall "user" HKCU

rem --- For all users, which needs administrator rights
reg add HKLM\Software\Wendrill23FirstRun /f >nul 2>&1
if errorlevel 1 (
  call :skip "machine" "start this file again as administrator"
  goto report
)
reg delete HKLM\Software\Wendrill23FirstRun /f >nul 2>&1
set home=%ProgramFiles%\Wendrill23
if "%bits%"=="64" set home=%ProgramFiles(x86)%\Wendrill23
call :try "machine: installs" start /wait "" "%machine%" /S
call :try "machine: is registered, 32-bit view" reg query HKLM\Software\Classes\%quillet%\CLSID /reg:32
call :prints "machine: VBScript" "entries: 0" "%tools%\cscript.exe" //nologo "%work%\create.vbs"
call :powershell "machine: PowerShell, 32-bit" "%tools%\WindowsPowerShell\v1.0\powershell.exe"
call :prints "machine: the doctor creates objects" "can be created" "%home%\bin\doctor.exe" --create
if "%bits%"=="64" (
  call :try "machine: registers for 64-bit programs" "%tools%\regsvr32.exe" /s /n /i:surrogate "%home%\bin\Wendrill23.dll"
  call :try "machine: is registered, 64-bit view" reg query HKLM\Software\Classes\%quillet%\CLSID /reg:64
  call :powershell "machine: PowerShell, 64-bit" "%SystemRoot%\System32\WindowsPowerShell\v1.0\powershell.exe"
) else (
  call :skip "machine: 64-bit programs" "this is a 32-bit Windows"
)
call :skip "machine: VBA" "by hand: see docs\first-windows-run.md"
call :uninstall "machine" HKLM

:report
echo.
type "%table%"
echo.
if "%failed%"=="0" echo Nothing failed.
if not "%failed%"=="0" echo Something failed: send first-windows-run.log.
rd /s /q "%work%"
del "%table%"
exit /b %failed%

rem :try NAME COMMAND...: passes when the command's status is 0.
:try
set name=%1
shift
set command=%1 %2 %3 %4 %5 %6 %7 %8 %9
echo == %name%: %command% >> "%log%"
%command% >> "%log%" 2>&1
if errorlevel 1 goto fails
goto passes

rem :prints NAME TEXT COMMAND...: passes when the command prints the text.
:prints
set name=%1
set text=%2
shift
shift
set command=%1 %2 %3 %4 %5 %6 %7 %8 %9
echo == %name%: %command% >> "%log%"
%command% > "%work%\printed.txt" 2>&1
type "%work%\printed.txt" >> "%log%"
find %text% "%work%\printed.txt" >nul 2>&1
if errorlevel 1 goto fails
goto passes

:powershell
if not exist %2 (
  call :skip %1 "not installed"
  exit /b 0
)
call :prints %1 "entries: 0" %2 -NoProfile -ExecutionPolicy Bypass -File "%work%\create.ps1"
exit /b 0

rem :uninstall NAME HIVE: the uninstaller waits for nobody; its folder is gone when it is ready.
:uninstall
"%home%\uninstall.exe" /S
set waits=0
:waiting
if not exist "%home%" goto gone
set /a waits=%waits%+1
if %waits% GTR 30 goto gone
ping -n 2 127.0.0.1 >nul
goto waiting
:gone
call :absent "%~1: uninstalling leaves no folder and no class" %2
exit /b 0

:absent
set name=%1
echo == %name% >> "%log%"
if exist "%home%" goto fails
reg query %2\Software\Classes\%quillet% >> "%log%" 2>&1
if errorlevel 1 goto passes
goto fails

:passes
echo pass     %name%>> "%table%"
exit /b 0

:fails
echo FAIL     %name%>> "%table%"
set failed=1
exit /b 0

:skip
echo skipped  %1, %2>> "%table%"
exit /b 0
