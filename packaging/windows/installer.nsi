; The installer of the Windows program, for the user who runs it. Defined by who calls makensis:
; VERSION, FILES (the folder with the programs and their documents) and OUTPUT (the installer).
Unicode true
Target amd64-unicode
SetCompressor /SOLID lzma
RequestExecutionLevel user
ManifestDPIAware true

!define UNINSTALL "Software\Microsoft\Windows\CurrentVersion\Uninstall\Vorel"
!define FOLDER "$LOCALAPPDATA\Vorel" ; the user's files

Name "Vorel"
OutFile "${OUTPUT}"
Icon vorel.ico
UninstallIcon vorel.ico
InstallDir "$LOCALAPPDATA\Programs\Vorel"
InstallDirRegKey HKCU "${UNINSTALL}" InstallLocation
VIProductVersion "${VERSION}.0"
VIAddVersionKey ProductName "Vorel"
VIAddVersionKey ProductVersion "${VERSION}"
VIAddVersionKey FileVersion "${VERSION}"
VIAddVersionKey FileDescription "Installer of Vorel"
VIAddVersionKey LegalCopyright "MIT licence"

Page directory
Page instfiles
UninstPage uninstConfirm
UninstPage instfiles

; Fails while the program runs, before anything has changed.
!macro RemoveProgram
  ClearErrors
  Delete "$INSTDIR\vorel.exe"
  IfErrors 0 +2
    Abort "Vorel is running: close it first."
!macroend

Section
  !insertmacro RemoveProgram
  SetOutPath "$INSTDIR"
  File "${FILES}/vorel.exe" "${FILES}/vorel-maze.exe" "${FILES}/README.txt" "${FILES}/LICENSE.txt"
  WriteUninstaller "$INSTDIR\uninstall.exe"

  ; The menu entry starts the program in the folder that is set here.
  SetOutPath "${FOLDER}"
  CreateShortcut "$SMPROGRAMS\Vorel.lnk" "$INSTDIR\vorel.exe" "" "" "" "" "" "Explore random mazes"

  WriteRegStr HKCU "${UNINSTALL}" DisplayName "Vorel"
  WriteRegStr HKCU "${UNINSTALL}" DisplayVersion "${VERSION}"
  WriteRegStr HKCU "${UNINSTALL}" DisplayIcon "$INSTDIR\vorel.exe"
  WriteRegStr HKCU "${UNINSTALL}" Publisher "The Vorel developers"
  WriteRegStr HKCU "${UNINSTALL}" InstallLocation "$INSTDIR"
  WriteRegStr HKCU "${UNINSTALL}" UninstallString '"$INSTDIR\uninstall.exe"'
  WriteRegStr HKCU "${UNINSTALL}" QuietUninstallString '"$INSTDIR\uninstall.exe" /S'
  WriteRegDWORD HKCU "${UNINSTALL}" NoModify 1
  WriteRegDWORD HKCU "${UNINSTALL}" NoRepair 1
SectionEnd

Section Uninstall
  !insertmacro RemoveProgram
  Delete "$INSTDIR\vorel-maze.exe"
  Delete "$INSTDIR\README.txt"
  Delete "$INSTDIR\LICENSE.txt"
  Delete "$INSTDIR\uninstall.exe"
  RMDir "$INSTDIR"
  RMDir "${FOLDER}" ; only if it is empty
  Delete "$SMPROGRAMS\Vorel.lnk"
  DeleteRegKey HKCU "${UNINSTALL}"
SectionEnd
