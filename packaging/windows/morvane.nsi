; The installer of Morvane for Windows. tools/windows/package makes it, with these words defined:
; VERSION, SIZE (KiB of all files), LISTS (folder of install.nsh and uninstall.nsh), ICON, OUT.
;
; Without an administrator it installs for the user alone, which is what it does unasked; for everybody at the
; computer it asks Windows for the rights. Without a word (/S) it does the same by /AllUsers.

Unicode true
Target amd64-unicode
ManifestDPIAware true
ManifestSupportedOS all
SetCompressor /SOLID lzma
RequestExecutionLevel user
CRCCheck force
Name "Morvane"
Caption "Morvane ${VERSION}"
BrandingText "Morvane ${VERSION}"
OutFile "${OUT}"
ShowInstDetails nevershow
ShowUninstDetails nevershow

VIProductVersion "${VERSION}.0.0"
VIAddVersionKey ProductName "Morvane"
VIAddVersionKey ProductVersion "${VERSION}"
VIAddVersionKey FileVersion "${VERSION}"
VIAddVersionKey FileDescription "Installer of Morvane"
VIAddVersionKey CompanyName "Morvane"
VIAddVersionKey LegalCopyright "Copyright 2026 Morvane developers"

!include FileFunc.nsh
!include LogicLib.nsh
!include MUI2.nsh
!include WinVer.nsh

!define UNINSTALL "Software\Microsoft\Windows\CurrentVersion\Uninstall\Morvane"
!define CAPABILITIES "Software\Morvane\Capabilities"
!define ERROR_ELEVATION_REQUIRED 740
!define ERROR_SHARING_VIOLATION 32
!define ERROR_OLD_WINDOWS 1150
!define SHCNE_ASSOCCHANGED 0x08000000

Var ForAll        ; 1: for everybody at this computer
Var ForAllButton
Var OnlyMeButton
Var DesktopButton
Var DesktopLink   ; 1: a link on the desktop too

; ---- Pages

!define MUI_ICON "${ICON}"
!define MUI_UNICON "${ICON}"
!define MUI_ABORTWARNING
!define MUI_WELCOMEPAGE_TEXT "This puts Morvane ${VERSION} on the computer, and in place of an older one.$\r$\n$\r$\n\
  Sets, log, history and settings stay as they are."
!define MUI_FINISHPAGE_RUN "$INSTDIR\morvane.exe"
!define MUI_FINISHPAGE_RUN_NOTCHECKED
!define MUI_UNCONFIRMPAGE_TEXT_TOP "Sets, log, history and settings stay: the folder Morvane_Data at the top of \
  the drive, and HKEY_CURRENT_USER\Software\morvane.exe in the registry."

!insertmacro MUI_PAGE_WELCOME
Page custom ShowWhom LeaveWhom
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!insertmacro MUI_PAGE_FINISH
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES
!insertmacro MUI_LANGUAGE "English"

; ---- What both sides do

; Ends with a box, or without a word by the exit status alone.
!macro Refuse text status
  MessageBox MB_OK|MB_ICONSTOP "${text}" /SD IDOK
  SetErrorLevel ${status}
  Quit
!macroend

; The system lets nobody write a program that runs, whoever has started it.
!macro RefuseRunning file
  ${If} ${FileExists} "$INSTDIR\${file}"
    ClearErrors
    FileOpen $0 "$INSTDIR\${file}" a
    ${If} ${Errors}
      !insertmacro Refuse "Morvane is running ($INSTDIR\${file}), or you may not write there.$\r$\n$\r$\n\
        Please end it and try again." ${ERROR_SHARING_VIOLATION}
    ${EndIf}
    FileClose $0
  ${EndIf}
!macroend

!macro RefuseWhileRunning
  !insertmacro RefuseRunning morvane.exe
  !insertmacro RefuseRunning morvane-cli.exe
  !insertmacro RefuseRunning DDS_1.exe
!macroend

; $1 becomes 1 for whoever may install for everybody.
!macro AskForRights
  UserInfo::GetAccountType
  Pop $0
  StrCpy $1 0
  ${If} $0 == "Admin"
    StrCpy $1 1
  ${EndIf}
!macroend

!macro TellShell
  System::Call 'shell32::SHChangeNotify(i ${SHCNE_ASSOCCHANGED}, i 0, p 0, p 0)'
!macroend

; The board files that are known by their name: *.all, *.csv and *.txt may be anything.
!macro EachKind do
  !insertmacro ${do} pbn PBN
  !insertmacro ${do} bri BRI
  !insertmacro ${do} dge DGE
  !insertmacro ${do} dup DUP
  !insertmacro ${do} bre BRE
!macroend

; ---- For whom

!macro ChooseScope
  ${If} $ForAll = 1
    SetShellVarContext all
  ${Else}
    SetShellVarContext current
  ${EndIf}
!macroend

; Where an earlier one lies, or where the system wants programs of one user or of all; what the command line
; names (/D=) goes before it.
Function ChooseFolder
  !insertmacro ChooseScope
  ReadRegStr $0 SHCTX "${UNINSTALL}" "InstallLocation"
  ${If} $0 != ""
    StrCpy $INSTDIR $0
  ${ElseIf} $ForAll = 1
    StrCpy $INSTDIR "$PROGRAMFILES64\Morvane"
  ${Else}
    StrCpy $INSTDIR "$LOCALAPPDATA\Programs\Morvane"
  ${EndIf}
FunctionEnd

; What an earlier one had stays unless somebody says otherwise.
Function TakeDesktopLink
  ReadRegDWORD $0 SHCTX "${UNINSTALL}" "DesktopLink"
  ${If} $0 = 1
    StrCpy $DesktopLink 1
  ${EndIf}
FunctionEnd

Function .onInit
  SetRegView 64
  ${IfNot} ${AtLeastWin10}
    !insertmacro Refuse "Morvane needs Windows 10 or later." ${ERROR_OLD_WINDOWS}
  ${EndIf}
  StrCpy $DesktopLink 0
  ${GetParameters} $2
  ClearErrors
  ${GetOptions} $2 "/AllUsers" $0
  StrCpy $ForAll 1
  ${If} ${Errors}
    StrCpy $ForAll 0
  ${EndIf}
  ClearErrors
  ${GetOptions} $2 "/DesktopLink" $0
  ${IfNot} ${Errors}
    StrCpy $DesktopLink 1
  ${EndIf}
  !insertmacro AskForRights
  ${If} $ForAll = 1
  ${AndIf} $1 = 0
    !insertmacro Refuse "To install Morvane for everybody at this computer an administrator has to start the \
      installer." ${ERROR_ELEVATION_REQUIRED}
  ${EndIf}
  ${If} $INSTDIR == ""
    Call ChooseFolder
  ${Else}
    !insertmacro ChooseScope
  ${EndIf}
  Call TakeDesktopLink
FunctionEnd

Function ShowWhom
  !insertmacro MUI_HEADER_TEXT "For whom" "Who is to have Morvane on this computer?"
  nsDialogs::Create 1018
  Pop $0
  ${NSD_CreateRadioButton} 0 0 100% 12u "Only &me. No administrator is needed."
  Pop $OnlyMeButton
  ${NSD_CreateRadioButton} 0 16u 100% 12u "&Everybody at this computer. Windows asks for an administrator."
  Pop $ForAllButton
  ${NSD_CreateCheckBox} 0 48u 100% 12u "A link on the &desktop too"
  Pop $DesktopButton
  ${NSD_SetState} $DesktopButton $DesktopLink
  ${If} $ForAll = 1
    ${NSD_Check} $ForAllButton
  ${Else}
    ${NSD_Check} $OnlyMeButton
  ${EndIf}
  nsDialogs::Show
FunctionEnd

; Who has not the rights yet starts again with them; the choice goes along.
Function LeaveWhom
  ${NSD_GetState} $DesktopButton $DesktopLink
  ${NSD_GetState} $ForAllButton $3
  ${If} $3 = $ForAll
    Return
  ${EndIf}
  !insertmacro AskForRights
  ${If} $3 = 1
  ${AndIf} $1 = 0
    StrCpy $4 "/AllUsers"
    ${If} $DesktopLink = 1
      StrCpy $4 "$4 /DesktopLink"
    ${EndIf}
    ClearErrors
    ExecShell "runas" "$EXEPATH" "$4"
    ${If} ${Errors}
      Abort
    ${EndIf}
    Quit
  ${EndIf}
  StrCpy $ForAll $3
  Call ChooseFolder
FunctionEnd

; ---- Installing

; An older one takes away what it has brought. It lies where it was put, which may be another folder.
Function RemoveOlder
  ReadRegStr $0 SHCTX "${UNINSTALL}" "InstallLocation"
  ${If} $0 == ""
  ${OrIfNot} ${FileExists} "$0\uninstall.exe"
    Return
  ${EndIf}
  StrCpy $2 $INSTDIR
  StrCpy $INSTDIR $0
  !insertmacro RefuseWhileRunning
  InitPluginsDir
  CopyFiles /SILENT "$INSTDIR\uninstall.exe" "$PLUGINSDIR\older.exe"
  ExecWait '"$PLUGINSDIR\older.exe" /S _?=$INSTDIR' $0
  ${If} $0 <> 0
    !insertmacro Refuse "The older Morvane in $INSTDIR could not be taken away." $0
  ${EndIf}
  StrCpy $INSTDIR $2
FunctionEnd

; A kind of file that nobody opens yet is opened by Morvane; of the others it is one that can.
!macro RegisterKind extension words
  WriteRegStr SHCTX "Software\Classes\Morvane.${extension}" "" "Bridge boards (${words})"
  WriteRegStr SHCTX "Software\Classes\Morvane.${extension}\DefaultIcon" "" "$INSTDIR\morvane.exe,0"
  WriteRegStr SHCTX "Software\Classes\Morvane.${extension}\shell\open\command" "" '"$INSTDIR\morvane.exe" "%1"'
  WriteRegNone SHCTX "Software\Classes\.${extension}\OpenWithProgids" "Morvane.${extension}"
  WriteRegStr SHCTX "Software\Classes\Applications\morvane.exe\SupportedTypes" ".${extension}" ""
  WriteRegStr SHCTX "${CAPABILITIES}\FileAssociations" ".${extension}" "Morvane.${extension}"
  ReadRegStr $0 HKCR ".${extension}" ""
  ${If} $0 == ""
    WriteRegStr SHCTX "Software\Classes\.${extension}" "" "Morvane.${extension}"
  ${EndIf}
!macroend

!macro WriteUninstallEntry
  WriteRegStr SHCTX "${UNINSTALL}" "DisplayName" "Morvane"
  WriteRegStr SHCTX "${UNINSTALL}" "DisplayVersion" "${VERSION}"
  WriteRegStr SHCTX "${UNINSTALL}" "DisplayIcon" "$INSTDIR\morvane.exe,0"
  WriteRegStr SHCTX "${UNINSTALL}" "Publisher" "Morvane"
  WriteRegStr SHCTX "${UNINSTALL}" "InstallLocation" "$INSTDIR"
  WriteRegStr SHCTX "${UNINSTALL}" "UninstallString" '"$INSTDIR\uninstall.exe"'
  WriteRegStr SHCTX "${UNINSTALL}" "QuietUninstallString" '"$INSTDIR\uninstall.exe" /S'
  WriteRegDWORD SHCTX "${UNINSTALL}" "EstimatedSize" ${SIZE}
  WriteRegDWORD SHCTX "${UNINSTALL}" "NoModify" 1
  WriteRegDWORD SHCTX "${UNINSTALL}" "NoRepair" 1
!macroend

Section
  !insertmacro RefuseWhileRunning
  Call RemoveOlder
  SetOverwrite on
  !include "${LISTS}\install.nsh"
  WriteUninstaller "$INSTDIR\uninstall.exe"
  !insertmacro WriteUninstallEntry

  SetOutPath "$INSTDIR"
  CreateShortCut "$SMPROGRAMS\Morvane.lnk" "$INSTDIR\morvane.exe" "" "" "" SW_SHOWNORMAL "" \
    "Make sets of boards and deal them with the card-dealing machine"
  ${If} $DesktopLink = 1
    CreateShortCut "$DESKTOP\Morvane.lnk" "$INSTDIR\morvane.exe"
    WriteRegDWORD SHCTX "${UNINSTALL}" "DesktopLink" 1
  ${EndIf}

  WriteRegStr SHCTX "Software\Classes\Applications\morvane.exe" "FriendlyAppName" "Morvane"
  WriteRegStr SHCTX "Software\Classes\Applications\morvane.exe\shell\open\command" "" \
    '"$INSTDIR\morvane.exe" "%1"'
  WriteRegStr SHCTX "${CAPABILITIES}" "ApplicationName" "Morvane"
  WriteRegStr SHCTX "${CAPABILITIES}" "ApplicationDescription" \
    "Make sets of boards and deal them with the card-dealing machine"
  WriteRegStr SHCTX "Software\RegisteredApplications" "Morvane" "${CAPABILITIES}"
  !insertmacro EachKind RegisterKind
  !insertmacro TellShell
SectionEnd

; ---- Uninstalling

; The entry that names this folder says whose it is; without one it is nobody's but the user's.
Function un.onInit
  SetRegView 64
  StrCpy $ForAll 0
  ReadRegStr $0 HKLM "${UNINSTALL}" "InstallLocation"
  ${If} $0 == $INSTDIR
    StrCpy $ForAll 1
    !insertmacro AskForRights
    ${If} $1 = 0
      ${If} ${Silent}
        !insertmacro Refuse "" ${ERROR_ELEVATION_REQUIRED}
      ${EndIf}
      ExecShell "runas" "$INSTDIR\uninstall.exe"
      Quit
    ${EndIf}
  ${EndIf}
  !insertmacro ChooseScope
  !insertmacro RefuseWhileRunning
FunctionEnd

!macro UnregisterKind extension words
  DeleteRegKey SHCTX "Software\Classes\Morvane.${extension}"
  DeleteRegValue SHCTX "Software\Classes\.${extension}\OpenWithProgids" "Morvane.${extension}"
  DeleteRegKey /ifempty SHCTX "Software\Classes\.${extension}\OpenWithProgids"
  ReadRegStr $0 SHCTX "Software\Classes\.${extension}" ""
  ${If} $0 == "Morvane.${extension}"
    DeleteRegValue SHCTX "Software\Classes\.${extension}" ""
  ${EndIf}
  DeleteRegKey /ifempty SHCTX "Software\Classes\.${extension}"
!macroend

Section Uninstall
  SetOutPath "$TEMP"
  !insertmacro EachKind UnregisterKind
  DeleteRegKey SHCTX "Software\Classes\Applications\morvane.exe"
  DeleteRegKey SHCTX "${CAPABILITIES}"
  DeleteRegKey /ifempty SHCTX "Software\Morvane"
  DeleteRegValue SHCTX "Software\RegisteredApplications" "Morvane"
  Delete "$SMPROGRAMS\Morvane.lnk"
  ReadRegDWORD $0 SHCTX "${UNINSTALL}" "DesktopLink"
  ${If} $0 = 1
    Delete "$DESKTOP\Morvane.lnk"
  ${EndIf}
  DeleteRegKey SHCTX "${UNINSTALL}"
  !include "${LISTS}\uninstall.nsh"
  Delete "$INSTDIR\uninstall.exe"
  RMDir "$INSTDIR"
  !insertmacro TellShell
SectionEnd
