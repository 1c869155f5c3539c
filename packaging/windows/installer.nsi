; Installs the program for all users. An upgrade goes to the folder where the program is. With /S it asks nothing; if
; the program is running, it changes nothing and ends with 2.
!include common.nsh
VIAddVersionKey FileDescription "Installer of ${NAME}"
InstallDir "$PROGRAMFILES64\${NAME}"
InstallDirRegKey HKLM "${ENTRY}" InstallLocation
AllowSkipFiles off

!define MUI_ICON icon.ico
!include MUI2.nsh
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!insertmacro MUI_LANGUAGE English

!macro Packed file
  File "/oname=$INSTDIR\${file}" "${FILES}/${file}"
!macroend

Section "" everything
  SetShellVarContext all
  ReadRegStr $0 HKLM "${ENTRY}" InstallLocation
  ${If} $0 != ""
  ${AndIf} ${FileExists} "$0\Uninstall.exe"
    InitPluginsDir
    CopyFiles /SILENT "$0\Uninstall.exe" $PLUGINSDIR
    again:
    ExecWait '"$PLUGINSDIR\Uninstall.exe" /S /D=$0' $1
    ${If} $1 <> 0
      MessageBox MB_RETRYCANCEL|MB_ICONEXCLAMATION "${RUNNING}" /SD IDCANCEL IDRETRY again
      Abort
    ${EndIf}
  ${EndIf}

  SetOutPath "$INSTDIR\licences"
  SetOutPath $INSTDIR ; the program's working folder, too, when it is started from the menu
  !include "${FILES}/../packed.nsh"
  File "${FILES}/../Uninstall.exe"
  CreateShortcut "${SHORTCUT}" "$INSTDIR\${PROGRAM}"

  WriteRegStr HKLM "${ENTRY}" DisplayName "${NAME}"
  WriteRegStr HKLM "${ENTRY}" DisplayVersion ${VERSION}
  WriteRegStr HKLM "${ENTRY}" DisplayIcon "$INSTDIR\${PROGRAM}"
  WriteRegStr HKLM "${ENTRY}" Publisher "${MAINTAINERS}"
  WriteRegStr HKLM "${ENTRY}" URLInfoAbout ${HOMEPAGE}
  WriteRegStr HKLM "${ENTRY}" InstallLocation $INSTDIR
  WriteRegStr HKLM "${ENTRY}" UninstallString '"$INSTDIR\Uninstall.exe"'
  WriteRegStr HKLM "${ENTRY}" QuietUninstallString '"$INSTDIR\Uninstall.exe" /S'
  SectionGetSize ${everything} $0
  WriteRegDWORD HKLM "${ENTRY}" EstimatedSize $0
  WriteRegDWORD HKLM "${ENTRY}" NoModify 1
  WriteRegDWORD HKLM "${ENTRY}" NoRepair 1
SectionEnd
