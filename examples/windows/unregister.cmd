@echo off
rem Takes back what register.cmd has registered. With /s without a message.
rem The component is of 32 bits, and so must the registering program be.
setlocal
set tool=%SystemRoot%\SysWOW64\regsvr32.exe
if not exist "%tool%" set tool=%SystemRoot%\system32\regsvr32.exe
"%tool%" /u %1 "%~dp0TOVERA.dll"
