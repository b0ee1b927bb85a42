@echo off
rem vorn-play piece.vorn [piece.orc]: plays a score, as `vornkit play` does on other systems
setlocal
if "%~1"=="" (
    echo vorn-play piece.vorn [piece.orc]
    exit /b 2
)
set "orchestra=%~2"
if "%~2"=="" set "orchestra=%~dp0..\docs\windows\plain.orc"
"%~dp0vorn.exe" "%~1" "%TEMP%\vorn-play.sco"
if errorlevel 1 exit /b 1
call csound -d -odac "%orchestra%" "%TEMP%\vorn-play.sco"
if not errorlevel 1 exit /b 0
echo Csound did not play it. Is it installed (https://csound.com), and its folder in Path?
exit /b 1
