; The installer: for one user, without administrator rights.
;
;   makensis -DVERSION=… -DTARGET=… -DPROGRAM=<folder> -DFILE_LIST=<file> -DOUTPUT=<file> orvane.nsi
;
; FILE_LIST names all that the program folder holds, folders behind their content, one path a line
; below a first line that marks it.
; It is installed too: the uninstaller and a newer installer remove exactly what it names.

Unicode true
Target ${TARGET}
SetCompressor /SOLID lzma
RequestExecutionLevel user

!include "MUI2.nsh"
!include "LogicLib.nsh"

!define HOST_KEY "SOFTWARE\Nordel\Talmix18"
!define UNINSTALL_KEY "Software\Microsoft\Windows\CurrentVersion\Uninstall\Orvane"
!define LIST_NAME "Orvane-Dateien.txt"
!define LIST_MARK "Orvane: Diese Dateien entfernt die Deinstallation."
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
!define MUI_PAGE_CUSTOMFUNCTION_LEAVE RefuseAForeignFolder
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!insertmacro MUI_PAGE_FINISH
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES
!insertmacro MUI_LANGUAGE "German"

; What follows works on the program folder in $R1.

; A program that runs holds its file.
!macro WaitForTheProgramsEnd un
Function ${un}WaitForTheProgramsEnd
  ${Do}
    ${IfNot} ${FileExists} "$R1\orvane.exe"
      Return
    ${EndIf}
    ClearErrors
    FileOpen $0 "$R1\orvane.exe" a
    ${IfNot} ${Errors}
      FileClose $0
      Return
    ${EndIf}
    MessageBox MB_RETRYCANCEL|MB_ICONEXCLAMATION \
      "$R1\orvane.exe kann nicht ersetzt werden. Falls Orvane noch läuft, beenden Sie es bitte und versuchen Sie es dann noch einmal." \
      /SD IDCANCEL IDRETRY +3
    SetErrorLevel 2
    Abort
  ${Loop}
FunctionEnd
!macroend
!insertmacro WaitForTheProgramsEnd ""
!insertmacro WaitForTheProgramsEnd "un."

; Removes what an installed list names. A file of somebody else that has the list's name does not
; begin like it.
!macro RemoveListedFiles un
Function ${un}RemoveListedFiles
  ClearErrors
  FileOpen $0 "$R1\${LIST_NAME}" r
  ${If} ${Errors}
    Return
  ${EndIf}
  FileReadUTF16LE $0 $1
  ${If} $1 != "${LIST_MARK}$\r$\n"
    FileClose $0
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
    ${If} ${FileExists} "$R1\$1\*.*"
      RMDir "$R1\$1"
    ${Else}
      Delete "$R1\$1"
    ${EndIf}
  ${Loop}
  FileClose $0
  Delete "$R1\${LIST_NAME}"
  Delete "$R1\Deinstallieren.exe"
FunctionEnd
!macroend
!insertmacro RemoveListedFiles ""
!insertmacro RemoveListedFiles "un."

; Removes the area-code table that was put into the host's folder, unless it was replaced since.
!macro RemoveAreaCodes un
Function ${un}RemoveAreaCodes
  ReadRegStr $1 HKCU "${UNINSTALL_KEY}" "AreaCodes"
  ReadRegStr $2 HKCU "${UNINSTALL_KEY}" "AreaCodesTime"
  ${If} $1 == ""
    Return
  ${EndIf}
  ClearErrors
  GetFileTime "$1" $3 $4
  ${IfNot} ${Errors}
  ${AndIf} $2 == "$3:$4"
    Delete "$1"
  ${EndIf}
  DeleteRegValue HKCU "${UNINSTALL_KEY}" "AreaCodes"
  DeleteRegValue HKCU "${UNINSTALL_KEY}" "AreaCodesTime"
FunctionEnd
!macroend
!insertmacro RemoveAreaCodes ""
!insertmacro RemoveAreaCodes "un."

; In a folder where something else lies, its files could be overwritten now and removed later.
Function RefuseAForeignFolder
  ReadRegStr $0 HKCU "${UNINSTALL_KEY}" "InstallLocation"
  ${If} $0 == $INSTDIR
    Return
  ${EndIf}
  FindFirst $1 $2 "$INSTDIR\*.*"
  ${DoWhile} $2 != ""
    ${If} $2 != "."
    ${AndIf} $2 != ".."
      FindClose $1
      MessageBox MB_OK|MB_ICONEXCLAMATION \
        "Der Ordner $INSTDIR ist nicht leer. Bitte wählen Sie einen eigenen Ordner für Orvane." \
        /SD IDOK
      SetErrorLevel 2
      Abort
    ${EndIf}
    FindNext $1 $2
  ${Loop}
  FindClose $1
FunctionEnd

; An installation in another folder goes as well.
Function RemoveTheFormerInstallation
  ReadRegStr $R1 HKCU "${UNINSTALL_KEY}" "InstallLocation"
  ${If} $R1 == ""
    Return
  ${EndIf}
  Call WaitForTheProgramsEnd
  Call RemoveListedFiles
  ${If} $R1 != $INSTDIR
    RMDir "$R1"
  ${EndIf}
FunctionEnd

; The area-code table, where the host has none, and an empty journal for each user who has none.
; $R0 is the host's folder with "\" at the end.
Function EquipHost
  StrCpy $4 ""
  ${If} ${FileExists} "$R0res\*.*"
  ${AndIfNot} ${FileExists} "$R0res\VPB.rgt"
    ClearErrors
    CopyFiles /SILENT "$INSTDIR\${TEMPLATES}\VPB.rgt" "$R0res\VPB.rgt"
    ${If} ${Errors}
      StrCpy $4 "$R0res"
    ${Else}
      GetFileTime "$R0res\VPB.rgt" $2 $3
      WriteRegStr HKCU "${UNINSTALL_KEY}" "AreaCodes" "$R0res\VPB.rgt"
      WriteRegStr HKCU "${UNINSTALL_KEY}" "AreaCodesTime" "$2:$3"
    ${EndIf}
  ${EndIf}

  FindFirst $2 $3 "$R0Daten\User\*.*"
  ${DoWhile} $3 != ""
    ${If} $3 != "."
    ${AndIf} $3 != ".."
    ${AndIf} ${FileExists} "$R0Daten\User\$3\*.*"
    ${AndIfNot} ${FileExists} "$R0Daten\User\$3\res\TelList.fdb"
      ClearErrors
      CreateDirectory "$R0Daten\User\$3\res"
      CopyFiles /SILENT "$INSTDIR\${TEMPLATES}\TelList.fdb" "$R0Daten\User\$3\res\TelList.fdb"
      ${If} ${Errors}
        StrCpy $4 "$R0Daten\User\$3\res"
      ${EndIf}
    ${EndIf}
    FindNext $2 $3
  ${Loop}
  FindClose $2
  ${If} $4 != ""
    MessageBox MB_OK|MB_ICONINFORMATION \
      "In $4 kann nicht geschrieben werden. Vorwahlen und ein leeres Journal liegen in $INSTDIR\${TEMPLATES}; das Handbuch sagt, wohin sie gehören." \
      /SD IDOK
  ${EndIf}
FunctionEnd

; Written before the files, so that a copy that was cut short can be repeated and removed.
Function Register
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
FunctionEnd

Section "Orvane"
  Call RefuseAForeignFolder
  Call RemoveTheFormerInstallation
  Call RemoveAreaCodes
  Call Register
  ClearErrors
  SetOutPath "$INSTDIR"
  File "/oname=${LIST_NAME}" "${FILE_LIST}"
  WriteUninstaller "$INSTDIR\Deinstallieren.exe"
  File /r "${PROGRAM}/*.*"
  ${If} ${Errors}
    MessageBox MB_OK|MB_ICONSTOP \
      "Orvane konnte nicht vollständig nach $INSTDIR kopiert werden. Bitte installieren Sie es noch einmal." \
      /SD IDOK
    SetErrorLevel 2
    Abort
  ${EndIf}

  ReadRegStr $R0 HKCU "${HOST_KEY}" "TXPfad"
  ExpandEnvStrings $R0 $R0
  ${If} $R0 == ""
    MessageBox MB_OK|MB_ICONINFORMATION \
      "Talmix ist für diesen Benutzer nicht eingerichtet. Vorwahlen und ein leeres Journal liegen in $INSTDIR\${TEMPLATES}; das Handbuch sagt, wohin sie gehören." \
      /SD IDOK
  ${ElseIfNot} ${FileExists} "$R0*.*"
    MessageBox MB_OK|MB_ICONINFORMATION \
      "Der Ordner von Talmix ($R0) ist nicht zu erreichen. Vorwahlen und ein leeres Journal liegen in $INSTDIR\${TEMPLATES}; das Handbuch sagt, wohin sie gehören." \
      /SD IDOK
  ${Else}
    Call EquipHost
  ${EndIf}
SectionEnd

; Journals and speed dials are the user's and stay.
Section "Uninstall"
  StrCpy $R1 $INSTDIR
  Call un.WaitForTheProgramsEnd
  Call un.RemoveListedFiles
  RMDir "$INSTDIR"
  ; Stays when other programs are in it.
  RMDir "$LOCALAPPDATA\Programs"
  Call un.RemoveAreaCodes
  DeleteRegKey HKCU "${UNINSTALL_KEY}"
SectionEnd
