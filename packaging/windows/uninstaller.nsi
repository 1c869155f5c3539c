; Removes what the installer made, and nothing else. With /S it asks nothing; if the program is running, it changes
; nothing and ends with 2. With /D=FOLDER, the last argument, it removes the program from there.
;
; It is a program of its own: those that NSIS makes run a copy of themselves and end with 0 before that has even begun.
; This one leaves only itself and its folder to a copy, which removes them as soon as it has ended.
!include common.nsh
VIAddVersionKey FileDescription "Uninstaller of ${NAME}"
Icon icon.ico
!define COPY remove-uninstaller.exe
Caption "${NAME}"

!macro Packed file
  Delete "$INSTDIR\${file}"
!macroend

Function .onInit
  ${IfThen} $EXEFILE == ${COPY} ${|} Return ${|}
  ${IfThen} $INSTDIR == "" ${|} StrCpy $INSTDIR $EXEDIR ${|}
  MessageBox MB_OKCANCEL|MB_ICONQUESTION "Remove ${NAME} from this computer?" /SD IDOK IDOK again
  SetErrorLevel 1
  Quit
  again:
  ClearErrors
  Delete "$INSTDIR\${PROGRAM}" ; Windows does not delete a program that runs
  ${If} ${Errors}
    MessageBox MB_RETRYCANCEL|MB_ICONEXCLAMATION "${RUNNING}" /SD IDCANCEL IDRETRY again
    SetErrorLevel 2
    Quit
  ${EndIf}
  SetSilent silent
FunctionEnd

Section
  ${If} $EXEFILE != ${COPY}
    SetShellVarContext all
    !include "${FILES}/../packed.nsh"
    RMDir "$INSTDIR\licences"
    Delete "${SHORTCUT}"
    DeleteRegKey HKLM "${ENTRY}"
  ${EndIf}

  ${If} $EXEDIR == $INSTDIR ; Windows does not delete this program while it runs, and deletes the copy at the next start
    InitPluginsDir
    CopyFiles /SILENT $EXEPATH "$PLUGINSDIR\${COPY}"
    SetOutPath $TEMP ; where the copy runs, as a folder in use cannot be removed
    Exec '"$PLUGINSDIR\${COPY}" /S /D=$INSTDIR'
  ${Else}
    ${For} $0 1 100
      Delete "$INSTDIR\Uninstall.exe"
      ${IfNotThen} ${FileExists} "$INSTDIR\Uninstall.exe" ${|} ${ExitFor} ${|}
      Sleep 50
    ${Next}
    RMDir $INSTDIR
  ${EndIf}
SectionEnd
