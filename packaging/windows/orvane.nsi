; The installer: for one user, without administrator rights.
;
;   makensis -DVERSION=… -DTARGET=… -DPROGRAM=<folder> -DFILE_LIST=<file> -DOUTPUT=<file> orvane.nsi
;
; FILE_LIST names all that the program folder holds, folders behind their content, one path a line.
; It is installed too: the uninstaller and a newer installer remove exactly what it names.

Unicode true
Target ${TARGET}
SetCompressor /SOLID lzma
RequestExecutionLevel user

!include "MUI2.nsh"
!include "LogicLib.nsh"

!define HOST_KEY "SOFTWARE\Nordel\Talmix18"
!define UNINSTALL_KEY "Software\Microsoft\Windows\CurrentVersion\Uninstall\Orvane"
!define LIST_NAME "Dateien.txt"
; What the host gets lies in this folder of the program.
!define TEMPLATES "Vorlagen"

Name "Orvane"
OutFile "${OUTPUT}"
InstallDir "$LOCALAPPDATA\Programs\Orvane"
InstallDirRegKey HKCU "${UNINSTALL_KEY}" "InstallLocation"
BrandingText "Orvane ${VERSION}"
VIProductVersion "${VERSION}.0"
VIAddVersionKey /LANG=1031 "ProductName" "Orvane"
VIAddVersionKey /LANG=1031 "ProductVersion" "${VERSION}"
VIAddVersionKey /LANG=1031 "FileVersion" "${VERSION}"
VIAddVersionKey /LANG=1031 "FileDescription" "Orvane Installation"
VIAddVersionKey /LANG=1031 "LegalCopyright" "Orvane"

!define MUI_ICON "${ICON}"
!define MUI_UNICON "${ICON}"
!define MUI_ABORTWARNING
!insertmacro MUI_PAGE_WELCOME
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!insertmacro MUI_PAGE_FINISH
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES
!insertmacro MUI_LANGUAGE "German"

; A program that runs holds its file.
!macro WaitForTheProgramsEnd un
Function ${un}WaitForTheProgramsEnd
  ${Do}
    ${IfNot} ${FileExists} "$INSTDIR\orvane.exe"
      Return
    ${EndIf}
    ClearErrors
    FileOpen $0 "$INSTDIR\orvane.exe" a
    ${IfNot} ${Errors}
      FileClose $0
      Return
    ${EndIf}
    MessageBox MB_RETRYCANCEL|MB_ICONEXCLAMATION \
      "Orvane läuft noch. Bitte beenden Sie es und versuchen Sie es dann noch einmal." \
      /SD IDCANCEL IDRETRY +3
    SetErrorLevel 2
    Abort
  ${Loop}
FunctionEnd
!macroend
!insertmacro WaitForTheProgramsEnd ""
!insertmacro WaitForTheProgramsEnd "un."

; Removes what an installed list names.
!macro RemoveListedFiles un
Function ${un}RemoveListedFiles
  ClearErrors
  FileOpen $0 "$INSTDIR\${LIST_NAME}" r
  ${If} ${Errors}
    Return
  ${EndIf}
  ${Do}
    ClearErrors
    FileReadUTF16LE $0 $1
    ${If} ${Errors}
      ${ExitDo}
    ${EndIf}
    ; Without the end of the line.
    StrCpy $1 $1 -2
    ${If} ${FileExists} "$INSTDIR\$1\*.*"
      RMDir "$INSTDIR\$1"
    ${Else}
      Delete "$INSTDIR\$1"
    ${EndIf}
  ${Loop}
  FileClose $0
  Delete "$INSTDIR\${LIST_NAME}"
FunctionEnd
!macroend
!insertmacro RemoveListedFiles ""
!insertmacro RemoveListedFiles "un."

; The area-code table, where the host has none or has ours, and an empty journal for each user who
; has none. $R0 is the host's folder with "\" at the end.
Function EquipHost
  ReadRegStr $1 HKCU "${UNINSTALL_KEY}" "AreaCodes"
  ${If} ${FileExists} "$R0res\*.*"
    ${If} $1 == "$R0res\VPB.rgt"
    ${OrIfNot} ${FileExists} "$R0res\VPB.rgt"
      ClearErrors
      CopyFiles /SILENT "$INSTDIR\${TEMPLATES}\VPB.rgt" "$R0res\VPB.rgt"
      ${IfNot} ${Errors}
        WriteRegStr HKCU "${UNINSTALL_KEY}" "AreaCodes" "$R0res\VPB.rgt"
      ${EndIf}
    ${EndIf}
  ${EndIf}

  FindFirst $2 $3 "$R0Daten\User\*.*"
  ${DoWhile} $3 != ""
    ${If} $3 != "."
    ${AndIf} $3 != ".."
    ${AndIf} ${FileExists} "$R0Daten\User\$3\*.*"
    ${AndIfNot} ${FileExists} "$R0Daten\User\$3\res\TelList.fdb"
      CreateDirectory "$R0Daten\User\$3\res"
      CopyFiles /SILENT "$INSTDIR\${TEMPLATES}\TelList.fdb" "$R0Daten\User\$3\res\TelList.fdb"
    ${EndIf}
    FindNext $2 $3
  ${Loop}
  FindClose $2
FunctionEnd

Section "Orvane"
  Call WaitForTheProgramsEnd
  Call RemoveListedFiles
  SetOutPath "$INSTDIR"
  File /r "${PROGRAM}/*.*"
  File "/oname=${LIST_NAME}" "${FILE_LIST}"
  WriteUninstaller "$INSTDIR\Deinstallieren.exe"

  WriteRegStr HKCU "${UNINSTALL_KEY}" "DisplayName" "Orvane"
  WriteRegStr HKCU "${UNINSTALL_KEY}" "DisplayVersion" "${VERSION}"
  WriteRegStr HKCU "${UNINSTALL_KEY}" "DisplayIcon" "$INSTDIR\orvane.exe"
  WriteRegStr HKCU "${UNINSTALL_KEY}" "Publisher" "Orvane"
  WriteRegStr HKCU "${UNINSTALL_KEY}" "InstallLocation" "$INSTDIR"
  WriteRegStr HKCU "${UNINSTALL_KEY}" "UninstallString" '"$INSTDIR\Deinstallieren.exe"'
  WriteRegStr HKCU "${UNINSTALL_KEY}" "QuietUninstallString" '"$INSTDIR\Deinstallieren.exe" /S'
  WriteRegDWORD HKCU "${UNINSTALL_KEY}" "NoModify" 1
  WriteRegDWORD HKCU "${UNINSTALL_KEY}" "NoRepair" 1
  SectionGetSize 0 $0
  WriteRegDWORD HKCU "${UNINSTALL_KEY}" "EstimatedSize" $0

  ReadRegStr $R0 HKCU "${HOST_KEY}" "TXPfad"
  ${If} $R0 == ""
    DetailPrint "Talmix ist für diesen Benutzer nicht eingerichtet. Vorwahlen und ein leeres Journal liegen in $INSTDIR\${TEMPLATES}."
  ${Else}
    Call EquipHost
  ${EndIf}
SectionEnd

; Journals and speed dials are the user's and stay.
Section "Uninstall"
  Call un.WaitForTheProgramsEnd
  Call un.RemoveListedFiles
  Delete "$INSTDIR\Deinstallieren.exe"
  RMDir "$INSTDIR"
  ; Stays when other programs are in it.
  RMDir "$LOCALAPPDATA\Programs"
  ReadRegStr $1 HKCU "${UNINSTALL_KEY}" "AreaCodes"
  ${If} $1 != ""
    Delete "$1"
  ${EndIf}
  DeleteRegKey HKCU "${UNINSTALL_KEY}"
SectionEnd
