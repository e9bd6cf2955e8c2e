@echo off
rem Registers TOVERA.dll where it lies: for all users from an administrator's prompt, else for the current user.
rem With /s without a message. The component is of 32 bits, and so must the registering program be.
setlocal
set tool=%SystemRoot%\SysWOW64\regsvr32.exe
if not exist "%tool%" set tool=%SystemRoot%\system32\regsvr32.exe
"%tool%" %1 "%~dp0TOVERA.dll"
