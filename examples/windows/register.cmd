@echo off
rem Registers the component where it lies, for all programs that this Windows runs: of 32 bits, and of 64 where it has
rem 64. For all users from an administrator's prompt, else for the current user. With /s without a message.
setlocal
set failed=0
set own=%SystemRoot%\System32
if exist "%SystemRoot%\Sysnative\regsvr32.exe" set own=%SystemRoot%\Sysnative
if exist "%SystemRoot%\Sysnative\regsvr32.exe" goto system64
if not "%PROCESSOR_ARCHITECTURE%"=="x86" goto system64
"%own%\regsvr32.exe" %1 "%~dp0x86\TOVERA.dll"
if errorlevel 1 set failed=1
exit /b %failed%
:system64
"%own%\regsvr32.exe" %1 "%~dp0x64\TOVERA.dll"
if errorlevel 1 set failed=1
if not exist "%SystemRoot%\SysWOW64\regsvr32.exe" exit /b %failed%
"%SystemRoot%\SysWOW64\regsvr32.exe" %1 "%~dp0x86\TOVERA.dll"
if errorlevel 1 set failed=1
exit /b %failed%
