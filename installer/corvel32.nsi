; The installer for Windows 95 and 98: the program, the runtime files that the system lacks, and the
; practice client.   makensis -DBUILD=FOLDER -DVERSION=9.1.0 -DOUT=FILE corvel32.nsi
Unicode false
Name "Corvel 32"
OutFile "${OUT}"
InstallDir "$PROGRAMFILES\Corvel 32"
InstallDirRegKey HKLM "${UNINSTALL}" "InstallLocation"
RequestExecutionLevel admin
SetCompressor /SOLID lzma
SetDateSave off
XPStyle off
CRCCheck on
ShowInstDetails show
InstallColors /windows
BrandingText " "
Icon "${ART}/corvel32.ico"
UninstallIcon "${ART}/corvel32.ico"

!define UNINSTALL "Software\Microsoft\Windows\CurrentVersion\Uninstall\Corvel 32"

Page directory
Page instfiles
UninstPage uninstConfirm
UninstPage instfiles

; The size of a file in $1, "" if it can't be read.
!macro SizeOf PATH
  StrCpy $1 ""
  ClearErrors
  FileOpen $0 "${PATH}" r
  IfErrors +3
    FileSeek $0 0 END $1
    FileClose $0
!macroend

; A runtime file is laid where the system has none, never over an existing one; and only one that was
; laid here is taken away again. Another program's set-up may have put the real one over it since:
; that one has another size.
!macro Runtime FILE
  IfFileExists "$SYSDIR\${FILE}" end_${FILE}
    SetOutPath "$SYSDIR"
    File "${BUILD}/runtime/${FILE}"
    !insertmacro SizeOf "$SYSDIR\${FILE}"
    WriteINIStr "$INSTDIR\install.log" "Runtime" "${FILE}" "$1"
  end_${FILE}:
!macroend
!macro un.Runtime FILE
  ReadINIStr $2 "$INSTDIR\install.log" "Runtime" "${FILE}"
  StrCmp $2 "" end_${FILE}
    !insertmacro SizeOf "$SYSDIR\${FILE}"
    StrCmp $1 $2 0 end_${FILE}
      Delete "$SYSDIR\${FILE}"
  end_${FILE}:
!macroend
!macro EachRuntime DO
  !insertmacro ${DO} dwqrvspy.dll
  !insertmacro ${DO} dwspy5.dll
  !insertmacro ${DO} qrvproxy.dll
  !insertmacro ${DO} qrverrhd.dll
  !insertmacro ${DO} qrvbtns.ocx
  !insertmacro ${DO} qrvbar.ocx
  !insertmacro ${DO} qrvspy32.ocx
  !insertmacro ${DO} dwsbc36.ocx
  !insertmacro ${DO} mscomctl.ocx
  !insertmacro ${DO} dwspy36.dll
  !insertmacro ${DO} inetwh32.dll
  !insertmacro ${DO} launch32.dll
!macroend

Section "Corvel 32"
  SetOutPath "$INSTDIR"
  File "${BUILD}/corvel32.exe"
  File "${BUILD}/corvelhk.dll"
  !insertmacro EachRuntime Runtime
  SetOutPath "$INSTDIR\Practice"
  File "/oname=waol.exe" "${BUILD}/practice.exe"
  File "${BUILD}/aol.exe"
  File "${BUILD}/runtime/iwengx32.dll"
  WriteUninstaller "$INSTDIR\uninstall.exe"
  SetOutPath "$INSTDIR\Practice"
  CreateDirectory "$SMPROGRAMS\Corvel 32"
  CreateShortCut "$SMPROGRAMS\Corvel 32\Practice client.lnk" "$INSTDIR\Practice\waol.exe"
  SetOutPath "$INSTDIR"
  CreateShortCut "$SMPROGRAMS\Corvel 32\Corvel 32.lnk" "$INSTDIR\corvel32.exe"
  CreateShortCut "$SMPROGRAMS\Corvel 32\Uninstall.lnk" "$INSTDIR\uninstall.exe"
  WriteRegStr HKLM "${UNINSTALL}" "DisplayName" "Corvel 32 ${VERSION}"
  WriteRegStr HKLM "${UNINSTALL}" "InstallLocation" "$INSTDIR"
  WriteRegStr HKLM "${UNINSTALL}" "UninstallString" '"$INSTDIR\uninstall.exe"'
SectionEnd

; What the user has made (data, logs, styles, settings) stays.
Section "Uninstall"
  !insertmacro EachRuntime un.Runtime
  Delete "$INSTDIR\corvel32.exe"
  Delete "$INSTDIR\corvelhk.dll"
  Delete "$INSTDIR\install.log"
  Delete "$INSTDIR\Practice\waol.exe"
  Delete "$INSTDIR\Practice\aol.exe"
  Delete "$INSTDIR\Practice\iwengx32.dll"
  RMDir "$INSTDIR\Practice"
  Delete "$INSTDIR\uninstall.exe"
  RMDir "$INSTDIR"
  Delete "$SMPROGRAMS\Corvel 32\*.lnk"
  RMDir "$SMPROGRAMS\Corvel 32"
  DeleteRegKey HKLM "${UNINSTALL}"
SectionEnd
