; What the installer and the uninstaller share. pack, which runs makensis, defines VERSION, HOMEPAGE,
; OUT (the .exe to make) and FILES (the folder of all files to install; packed.nsh names them, sorted).
Target amd64-unicode
SetCompressor /SOLID lzma
SetDateSave off ; otherwise the .exe would contain the times of the files
OutFile "${OUT}"
BrandingText "${VERSION}"
RequestExecutionLevel admin
ManifestDPIAware true
!include LogicLib.nsh

!define NAME "Celestrix Satellite Encoder"
!define MAINTAINERS "${NAME} maintainers"
!define PROGRAM celestrix-satellite-encoder.exe
!define SHORTCUT "$SMPROGRAMS\${NAME}.lnk"
!define RUNNING "${NAME} is running. Close it, then try again."
!define ENTRY "Software\Microsoft\Windows\CurrentVersion\Uninstall\${NAME}" ; in the list of installed apps

Name "${NAME}"
VIProductVersion ${VERSION}.0
VIAddVersionKey ProductName "${NAME}"
VIAddVersionKey ProductVersion ${VERSION}
VIAddVersionKey FileVersion ${VERSION}
VIAddVersionKey CompanyName "${MAINTAINERS}"
VIAddVersionKey LegalCopyright "2026 ${MAINTAINERS}. MIT licence."
