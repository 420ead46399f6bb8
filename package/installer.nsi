; The installer of one kind. script/package compiles it with these definitions:
;
;   KIND       user (this user, no administrator rights) or machine (all users)
;   VERSION    as in 1.0.0
;   FILES      a folder with install.nsh, remove.nsh and programs.nsh: the lines for each delivered file
;   OUTPUT     the file to write
;   SIZE       of the delivered files, in KB
;   SIGN       a command that signs the file that is appended to it; may be undefined
;
; Switches and exit statuses: docs/install.md.

Unicode true
SetCompressor /SOLID lzma
ManifestSupportedOS all
ManifestDPIAware true

!include LogicLib.nsh
!include FileFunc.nsh
!include WordFunc.nsh
!include MUI2.nsh

!define KEY "Software\Microsoft\Windows\CurrentVersion\Uninstall\Wendrill23"

; What the two kinds differ in.
!if "${KIND}" == "user"
  !define ROOT HKCU
  !define WHOM "for this user"
  !define OTHER_ROOT HKLM
  !define OTHER_WHOM "for all users"
  !define REGISTERS "/n /i:user"
  InstallDir "$LOCALAPPDATA\Programs\Wendrill23"
  RequestExecutionLevel user
!else
  !define ROOT HKLM
  !define WHOM "for all users"
  !define OTHER_ROOT HKCU
  !define OTHER_WHOM "for this user"
  !define REGISTERS ""
  InstallDir "$PROGRAMFILES32\Wendrill23"
  RequestExecutionLevel admin
!endif
InstallDirRegKey ${ROOT} "${KEY}" InstallLocation

!define STATUS_FILES 2       ; a file could not be written
!define STATUS_REGISTER 3    ; the registration failed; all is as before
!define STATUS_IN_USE 4      ; a program or DLL is in use; nothing was changed
!define STATUS_NEWER 5       ; a newer version is installed; nothing was changed
!define STATUS_OTHER_KIND 6  ; the other kind is installed; nothing was changed
!define STATUS_RIGHTS 7      ; administrator rights are needed; nothing was changed

Name "Wendrill23 ${VERSION}"
OutFile "${OUTPUT}"
BrandingText " "
ShowInstDetails nevershow
ShowUninstDetails nevershow
VIProductVersion "${VERSION}.0"
VIFileVersion "${VERSION}.0"
VIAddVersionKey FileDescription "Wendrill23 ${VERSION}, installer ${WHOM}"
VIAddVersionKey FileVersion "${VERSION}"
VIAddVersionKey ProductName "Wendrill23"
VIAddVersionKey ProductVersion "${VERSION}"
VIAddVersionKey LegalCopyright ""
!ifdef SIGN
  !uninstfinalize '${SIGN} "%1"' = 0
!endif

!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES
!insertmacro MUI_LANGUAGE English

Var LogFile     ; of /LOG=; empty without
Var OldFolder   ; of the installation that is replaced; empty when there is none
Var OldVersion
Var OldIsRegistered
Var Created     ; the topmost folder that did not exist before the installation; empty when all existed
Var NoRegister  ; 1 with /NOREGISTER
Var IsUpgrade   ; of the uninstaller: 1 when a new version replaces this one

; --- What installer and uninstaller share

!macro SharedFunctions un

; Appends the text on the stack to the log, one line of UTF-8.
Function ${un}Log
  Exch $0
  Push $1
  Push $2
  Push $3
  ${If} $LogFile != ""
    System::Call 'kernel32::CreateFileW(w "$LogFile", i 4, i 3, p 0, i 4, i 0x80, p 0) p .r1'  ; append, share, open or create
    ${If} $1 P<> -1
      StrCpy $0 "$0$\r$\n"
      System::Call 'kernel32::WideCharToMultiByte(i 65001, i 0, w r0, i -1, p 0, i 0, p 0, p 0) i .r2'
      System::Alloc $2
      Pop $3
      System::Call 'kernel32::WideCharToMultiByte(i 65001, i 0, w r0, i -1, p r3, i r2, p 0, p 0) i .r2'
      IntOp $2 $2 - 1  ; without the final zero
      System::Call 'kernel32::WriteFile(p r1, p r3, i r2, *i .r0, p 0)'
      System::Free $3
      System::Call 'kernel32::CloseHandle(p r1)'
    ${EndIf}
  ${EndIf}
  Pop $3
  Pop $2
  Pop $1
  Pop $0
FunctionEnd

; Reads /LOG=.
Function ${un}ReadLogFile
  Push $0
  ${GetParameters} $0
  ClearErrors
  ${GetOptions} $0 "/LOG=" $LogFile
  Pop $0
FunctionEnd

; Calls regsvr32 for the library in the folder $R0 with the switches $R1; its status is in $R2. The library writes the
; reason for a refusal to the log.
Function ${un}Regsvr32
  ${If} $LogFile != ""
    System::Call 'kernel32::SetEnvironmentVariableW(w "WENDRILL_REGISTER_LOG", w "$LogFile")'
  ${EndIf}
  ClearErrors
  ExecWait '"$SYSDIR\regsvr32.exe" /s $R1 ${REGISTERS} "$R0\bin\Wendrill23.dll"' $R2
  ${If} ${Errors}
    StrCpy $R2 -1
  ${EndIf}
  Push "regsvr32 $R1 ${REGISTERS} $R0\bin\Wendrill23.dll: status $R2"
  Call ${un}Log
FunctionEnd

!macroend
!insertmacro SharedFunctions ""
!insertmacro SharedFunctions "un."

!macro Log un text
  Push "${text}"
  Call ${un}Log
!macroend

; Ends the program with a status and a reason, which is shown unless it is silent.
!macro End un status reason
  !insertmacro Log "${un}" "${reason} (status ${status})"
  MessageBox MB_OK|MB_ICONSTOP "${reason}" /SD IDOK
  SetErrorLevel ${status}
  Quit
!macroend

; A file that a program has loaded cannot be opened for writing.
!macro CheckProgram un folder file
  ${If} ${FileExists} "${folder}\${file}"
    ClearErrors
    FileOpen $R9 "${folder}\${file}" a
    ${If} ${Errors}
      !insertmacro End "${un}" ${STATUS_IN_USE} "A program uses ${folder}\${file}. Close it and start again; nothing was changed."
    ${EndIf}
    FileClose $R9
  ${EndIf}
!macroend

!include "${FILES}\install.nsh"   ; macro InstallFiles
!include "${FILES}\remove.nsh"    ; macro RemoveFiles folder
!include "${FILES}\programs.nsh"  ; macro CheckPrograms un folder

; --- Installing

Function .onInit
  SetRegView 32
  Call ReadLogFile
  ${GetParameters} $0
  ClearErrors
  ${GetOptions} $0 "/NOREGISTER" $1
  StrCpy $NoRegister 1
  ${If} ${Errors}
    StrCpy $NoRegister 0
  ${EndIf}
  !insertmacro Log "" "Wendrill23 ${VERSION}, installer ${WHOM}"
!if "${KIND}" == "machine"
  UserInfo::GetAccountType
  Pop $0
  ${If} $0 != "Admin"
    !insertmacro End "" ${STATUS_RIGHTS} "Installing for all users needs administrator rights. Without them, use the installer for one user."
  ${EndIf}
!endif
  ReadRegStr $0 ${OTHER_ROOT} "${KEY}" InstallLocation
  ${If} $0 != ""
    !insertmacro End "" ${STATUS_OTHER_KIND} "Wendrill23 is installed ${OTHER_WHOM} already, in $0. Uninstall it there first; nothing was changed."
  ${EndIf}
  ReadRegStr $OldFolder ${ROOT} "${KEY}" InstallLocation
  ReadRegStr $OldVersion ${ROOT} "${KEY}" DisplayVersion
  ReadRegDWORD $OldIsRegistered ${ROOT} "${KEY}" Registered
  ${If} $OldFolder != ""
    ${VersionCompare} "$OldVersion" "${VERSION}" $0
    ${If} $0 = 1
      !insertmacro End "" ${STATUS_NEWER} "Version $OldVersion, which is newer, is installed in $OldFolder; nothing was changed."
    ${EndIf}
  ${EndIf}
FunctionEnd

; The topmost folder that the installation has to create.
Function FindCreated
  StrCpy $Created ""
  StrCpy $0 $INSTDIR
  ${DoUntil} ${FileExists} "$0\*.*"
    StrCpy $Created $0
    ${GetParent} $0 $0
    ${If} $0 == ""
      ${ExitDo}
    ${EndIf}
  ${Loop}
FunctionEnd

; Removes empty folders from the parent of $0 up to $Created.
!macro RemoveCreated
  ${If} $Created != ""
    ${DoWhile} $0 != $Created
      ${GetParent} $0 $0
      ${If} $0 == ""
        ${ExitDo}
      ${EndIf}
      RMDir "$0"
    ${Loop}
  ${EndIf}
!macroend

; Takes an older installation away, and keeps a copy of it until the new one is in its place.
Function RemoveOld
  InitPluginsDir
  CreateDirectory "$PLUGINSDIR\old"
  CopyFiles /SILENT "$OldFolder\*.*" "$PLUGINSDIR\old"
  !insertmacro Log "" "removing version $OldVersion from $OldFolder"
  ExecWait '"$PLUGINSDIR\old\uninstall.exe" /S /UPGRADE _?=$OldFolder' $0
  Delete "$OldFolder\uninstall.exe"
  RMDir "$OldFolder"
FunctionEnd

; All as it was: the new files are removed, the old ones and their registration come back.
Function RollBack
  !insertmacro Log "" "taking everything back"
  SetOutPath $TEMP
  !insertmacro RemoveFiles "$INSTDIR"
  Delete "$INSTDIR\uninstall.exe"
  RMDir "$INSTDIR"
  StrCpy $0 $INSTDIR
  !insertmacro RemoveCreated
  ${If} $OldFolder != ""
    CreateDirectory "$OldFolder"
    CopyFiles /SILENT "$PLUGINSDIR\old\*.*" "$OldFolder"
    ${If} $OldIsRegistered = 1
      StrCpy $R0 $OldFolder
      StrCpy $R1 ""
      Call Regsvr32
    ${EndIf}
  ${EndIf}
FunctionEnd

Section
  !insertmacro CheckPrograms "" "$INSTDIR"
  Call FindCreated
  ${If} $OldFolder != ""
    ${If} $OldFolder != $INSTDIR
      !insertmacro CheckPrograms "" "$OldFolder"
    ${Else}
      ReadRegStr $Created ${ROOT} "${KEY}" CreatedFolder
    ${EndIf}
    Call RemoveOld
  ${EndIf}

  SetOverwrite try
  ClearErrors
  !insertmacro InstallFiles
  SetOutPath "$INSTDIR"
  WriteUninstaller "$INSTDIR\uninstall.exe"
  ${If} ${Errors}
    Call RollBack
    !insertmacro End "" ${STATUS_FILES} "The files could not be written to $INSTDIR."
  ${EndIf}

  ${If} $NoRegister = 0
    StrCpy $R0 $INSTDIR
    StrCpy $R1 ""
    Call Regsvr32
    ${If} $R2 <> 0
      Call RollBack
      !insertmacro End "" ${STATUS_REGISTER} "The library could not be registered (regsvr32: $R2). Everything was taken back."
    ${EndIf}
  ${EndIf}

  WriteRegStr ${ROOT} "${KEY}" DisplayName "Wendrill23"
  WriteRegStr ${ROOT} "${KEY}" DisplayVersion "${VERSION}"
  WriteRegStr ${ROOT} "${KEY}" InstallLocation "$INSTDIR"
  WriteRegStr ${ROOT} "${KEY}" UninstallString '"$INSTDIR\uninstall.exe"'
  WriteRegStr ${ROOT} "${KEY}" QuietUninstallString '"$INSTDIR\uninstall.exe" /S'
  WriteRegStr ${ROOT} "${KEY}" CreatedFolder "$Created"
  WriteRegDWORD ${ROOT} "${KEY}" EstimatedSize ${SIZE}
  WriteRegDWORD ${ROOT} "${KEY}" NoModify 1
  WriteRegDWORD ${ROOT} "${KEY}" NoRepair 1
  IntOp $0 1 - $NoRegister
  WriteRegDWORD ${ROOT} "${KEY}" Registered $0
  !insertmacro Log "" "installed in $INSTDIR"
  SetErrorLevel 0
SectionEnd

; --- Uninstalling

Function un.onInit
  SetRegView 32
  Call un.ReadLogFile
  ${GetParameters} $0
  ClearErrors
  ${GetOptions} $0 "/UPGRADE" $1
  StrCpy $IsUpgrade 1
  ${If} ${Errors}
    StrCpy $IsUpgrade 0
  ${EndIf}
FunctionEnd

Section Uninstall
  !insertmacro CheckPrograms "un." "$INSTDIR"
  StrCpy $R0 $INSTDIR
  StrCpy $R1 "/u"
  Call un.Regsvr32
  SetOutPath $TEMP  ; the current folder could not be removed
  !insertmacro RemoveFiles "$INSTDIR"
  ${If} $IsUpgrade = 0
    ReadRegStr $Created ${ROOT} "${KEY}" CreatedFolder
    Delete "$INSTDIR\uninstall.exe"
    RMDir "$INSTDIR"
    StrCpy $0 $INSTDIR
    !insertmacro RemoveCreated
    DeleteRegKey ${ROOT} "${KEY}"
    DeleteRegKey /ifempty ${ROOT} "Software\Microsoft\Windows\CurrentVersion\Uninstall"
    !insertmacro Log "un." "uninstalled from $INSTDIR"
  ${EndIf}
  SetErrorLevel 0
SectionEnd
