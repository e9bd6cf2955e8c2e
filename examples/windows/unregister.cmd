@echo off
rem Takes back what register.cmd has registered. With /s without a message.
setlocal
set failed=0
set own=%SystemRoot%\System32
if exist "%SystemRoot%\Sysnative\regsvr32.exe" set own=%SystemRoot%\Sysnative
if exist "%SystemRoot%\Sysnative\regsvr32.exe" goto system64
if not "%PROCESSOR_ARCHITECTURE%"=="x86" goto system64
"%own%\regsvr32.exe" /u %1 "%~dp0x86\TOVERA.dll"
if errorlevel 1 set failed=1
exit /b %failed%
:system64
"%own%\regsvr32.exe" /u %1 "%~dp0x64\TOVERA.dll"
if errorlevel 1 set failed=1
if not exist "%SystemRoot%\SysWOW64\regsvr32.exe" exit /b %failed%
"%SystemRoot%\SysWOW64\regsvr32.exe" /u %1 "%~dp0x86\TOVERA.dll"
if errorlevel 1 set failed=1
exit /b %failed%
