; The installer of Morvane for Windows. tools/windows/package makes it, with these words defined:
; VERSION, SIZE (KiB of all files), LISTS (folder of install.nsh and uninstall.nsh), ICON, OUT.
;
; Without an administrator it installs for the user alone, which is what it does unasked; for everybody at the
; computer it asks Windows for the rights. Without a word (/S) it does the same by /AllUsers.
;
; The data folder is private to whoever starts the program first, and lies at the top of the drive. One user may
; have it so; of everybody each is given a folder of his own by the links and the kinds of files.

Unicode true
Target amd64-unicode
ManifestDPIAware true
ManifestSupportedOS all
SetCompressor /SOLID lzma
RequestExecutionLevel user
CRCCheck force
AllowSkipFiles off
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
!define ERROR_ACCESS_DENIED 5
!define ERROR_WRITE_FAULT 29
!define ERROR_SHARING_VIOLATION 32
!define ERROR_OLD_WINDOWS 1150
!define ERROR_PRODUCT_VERSION 1638
!define FIRST_BUILD 18362
!define TO_WRITE 0x40000000
!define SHARED_BY_ALL 7
!define THAT_IS_THERE 3
; Not by a name that begins with L, D, S or V: in the command of a kind of files %L is the file.
!define DATA_OF_EACH "%USERPROFILE%\AppData\Local\Morvane_Data"
!define SHCNE_ASSOCCHANGED 0x08000000

Var ForAll        ; 1: for everybody at this computer
Var ForAllButton
Var OnlyMeButton
Var DesktopButton
Var DesktopLink   ; 1: a link on the desktop too
Var NamedFolder   ; what the command line names (/D=)
Var Arguments     ; what the program is started with
Var Older         ; the folder of the one that this replaces
Var Writing       ; 1: files are put there now

; ---- Pages

!define MUI_ICON "${ICON}"
!define MUI_UNICON "${ICON}"
!define MUI_ABORTWARNING
!define MUI_WELCOMEPAGE_TEXT "This puts Morvane ${VERSION} on the computer, and in place of an older one.$\r$\n$\r$\n\
  Sets, log, history and settings stay as they are."
!define MUI_FINISHPAGE_RUN "$INSTDIR\morvane.exe"
!define MUI_FINISHPAGE_RUN_NOTCHECKED
!define MUI_UNCONFIRMPAGE_TEXT_TOP "Sets, log, history and settings stay: the folder Morvane_Data at the top of \
  the drive or, where everybody had Morvane, in ${DATA_OF_EACH} of each; and \
  HKEY_CURRENT_USER\Software\morvane.exe in the registry."

!insertmacro MUI_PAGE_WELCOME
Page custom ShowWhom LeaveWhom
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!define MUI_PAGE_CUSTOMFUNCTION_SHOW ShowFinish
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
    System::Call 'kernel32::CreateFile(t "$INSTDIR\${file}", i ${TO_WRITE}, i ${SHARED_BY_ALL}, p 0, \
      i ${THAT_IS_THERE}, i 0, p 0) p.r0 ?e'
    Pop $1
    ${If} $0 != -1
      System::Call 'kernel32::CloseHandle(p r0)'
    ${ElseIf} $1 = ${ERROR_SHARING_VIOLATION}
      !insertmacro Refuse "Morvane is running ($INSTDIR\${file}).$\r$\n$\r$\nPlease end it and try again." \
        ${ERROR_SHARING_VIOLATION}
    ${Else}
      !insertmacro Refuse "$INSTDIR\${file} cannot be replaced (error $1)." ${ERROR_ACCESS_DENIED}
    ${EndIf}
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

; An administrator's run would make the data folder at the top of the drive his.
Function ShowFinish
  ${If} $ForAll = 1
    ShowWindow $mui.FinishPage.Run ${SW_HIDE}
  ${EndIf}
FunctionEnd

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
  ${If} $NamedFolder != ""
    StrCpy $INSTDIR $NamedFolder
  ${ElseIf} $0 != ""
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

; $0 becomes the folder of one that is in the list of programs and on the disk.
!macro FindInstalled hive
  ReadRegStr $0 ${hive} "${UNINSTALL}" "InstallLocation"
  ${If} $0 != ""
  ${AndIfNot} ${FileExists} "$0\uninstall.exe"
    StrCpy $0 ""
  ${EndIf}
!macroend

; Of two, a double click on a board file would open one and the menu might show the other. $0 becomes what to say.
!macro FindOther forAll
  ${If} ${forAll} = 1
    !insertmacro FindInstalled HKCU
    StrCpy $1 "you alone"
  ${Else}
    !insertmacro FindInstalled HKLM
    StrCpy $1 "everybody at this computer"
  ${EndIf}
  ${If} $0 != ""
    StrCpy $0 "Morvane is installed for $1 already, in $0.$\r$\n$\r$\nInstall it for $1 again, or uninstall that one \
      first."
  ${EndIf}
!macroend

; Without a word the command line alone says for whom; whoever is asked finds chosen what is there.
Function ChooseWhom
  ClearErrors
  ${GetOptions} $2 "/AllUsers" $0
  StrCpy $ForAll 1
  ${If} ${Errors}
    StrCpy $ForAll 0
  ${EndIf}
  !insertmacro AskForRights
  ${If} $ForAll = 1
  ${AndIf} $1 = 0
    !insertmacro Refuse "To install Morvane for everybody at this computer an administrator has to start the \
      installer." ${ERROR_ELEVATION_REQUIRED}
  ${EndIf}
  !insertmacro FindOther $ForAll
  ${If} $0 != ""
  ${AndIf} ${Silent}
    !insertmacro Refuse "$0" ${ERROR_PRODUCT_VERSION}
  ${EndIf}
FunctionEnd

Function .onInit
  SetRegView 64
  ${IfNot} ${AtLeastBuild} ${FIRST_BUILD}
    !insertmacro Refuse "Morvane needs Windows 10 of 2019 (version 1903) or later." ${ERROR_OLD_WINDOWS}
  ${EndIf}
  StrCpy $DesktopLink 0
  StrCpy $NamedFolder $INSTDIR
  ${GetParameters} $2
  ClearErrors
  ${GetOptions} $2 "/DesktopLink" $0
  ${IfNot} ${Errors}
    StrCpy $DesktopLink 1
  ${EndIf}
  Call ChooseWhom
  Call ChooseFolder
  Call TakeDesktopLink
FunctionEnd

Function ShowWhom
  !insertmacro MUI_HEADER_TEXT "For whom" "Who is to have Morvane on this computer?"
  nsDialogs::Create 1018
  Pop $0
  ${NSD_CreateRadioButton} 0 0 100% 12u "Only &me. No administrator is needed."
  Pop $OnlyMeButton
  ${NSD_CreateLabel} 12u 14u 95% 20u "Log, history and copies of unsaved sets lie in the folder Morvane_Data at the \
    top of the drive, which nobody else can use."
  Pop $0
  ${NSD_CreateRadioButton} 0 40u 100% 12u "&Everybody at this computer. Windows asks for an administrator."
  Pop $ForAllButton
  ${NSD_CreateLabel} 12u 54u 95% 20u "Each user has a log and a history of his own, in ${DATA_OF_EACH}."
  Pop $0
  ${NSD_CreateCheckBox} 0 88u 100% 12u "A link on the &desktop too"
  Pop $DesktopButton
  ${NSD_SetState} $DesktopButton $DesktopLink
  !insertmacro FindInstalled HKLM
  ${If} $ForAll = 1
  ${OrIf} $0 != ""
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
  !insertmacro FindOther $3
  ${If} $0 != ""
    MessageBox MB_OK|MB_ICONSTOP "$0"
    Abort
  ${EndIf}
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
    ${If} $NamedFolder != ""
      StrCpy $4 "$4 /D=$NamedFolder"
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

; An older one may lie in another folder.
Function FindOlder
  !insertmacro FindInstalled SHCTX
  StrCpy $Older $0
  ${If} $Older != ""
    StrCpy $2 $INSTDIR
    StrCpy $INSTDIR $Older
    !insertmacro RefuseWhileRunning
    StrCpy $INSTDIR $2
  ${EndIf}
FunctionEnd

; It takes away what it has brought.
Function RemoveOlder
  ${If} $Older == ""
    Return
  ${EndIf}
  InitPluginsDir
  CopyFiles /SILENT "$Older\uninstall.exe" "$PLUGINSDIR\older.exe"
  ExecWait '"$PLUGINSDIR\older.exe" /S _?=$Older' $0
  ${If} $0 <> 0
    RMDir "$INSTDIR"
    !insertmacro Refuse "The older Morvane in $Older could not be taken away." $0
  ${EndIf}
FunctionEnd

; Who installs for everybody may have kinds of files of his own, which are not everybody's.
!macro ReadOpener extension
  StrCpy $0 ""
  ${If} $ForAll = 0
    ReadRegStr $0 HKCU "Software\Classes\.${extension}" ""
  ${EndIf}
  ${If} $0 == ""
    ReadRegStr $0 HKLM "Software\Classes\.${extension}" ""
  ${EndIf}
!macroend

; The system puts the user's folder in where the program is started.
!macro WriteOpenCommand key
  WriteRegExpandStr SHCTX "Software\Classes\${key}\shell\open\command" "" '"$INSTDIR\morvane.exe"$Arguments "%1"'
!macroend

; A kind of file that nobody opens yet is opened by Morvane; of the others it is one that can.
!macro RegisterKind extension words
  WriteRegStr SHCTX "Software\Classes\Morvane.${extension}" "" "Bridge boards (${words})"
  WriteRegStr SHCTX "Software\Classes\Morvane.${extension}\DefaultIcon" "" "$INSTDIR\morvane.exe,0"
  !insertmacro WriteOpenCommand "Morvane.${extension}"
  WriteRegNone SHCTX "Software\Classes\.${extension}\OpenWithProgids" "Morvane.${extension}"
  WriteRegStr SHCTX "Software\Classes\Applications\morvane.exe\SupportedTypes" ".${extension}" ""
  WriteRegStr SHCTX "${CAPABILITIES}\FileAssociations" ".${extension}" "Morvane.${extension}"
  !insertmacro ReadOpener ${extension}
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

; That it cannot be made is found while the older one is still there.
!macro MakeFolder
  ClearErrors
  SetOutPath "$INSTDIR"
  ${If} ${Errors}
    !insertmacro Refuse "The folder $INSTDIR cannot be made." ${ERROR_WRITE_FAULT}
  ${EndIf}
  SetOutPath "$TEMP"
!macroend

; The files in part would be a program that does not start, and that nothing takes away.
Function .onInstFailed
  ${If} $Writing = 1
    SetOutPath "$TEMP"
    !include "${LISTS}\uninstall.nsh"
    Delete "$INSTDIR\uninstall.exe"
    RMDir "$INSTDIR"
    SetErrorLevel ${ERROR_WRITE_FAULT}
  ${EndIf}
FunctionEnd

!macro ChooseArguments
  StrCpy $Arguments ""
  ${If} $ForAll = 1
    StrCpy $Arguments ' --data "${DATA_OF_EACH}"'
  ${EndIf}
!macroend

Section
  !insertmacro RefuseWhileRunning
  Call FindOlder
  !insertmacro MakeFolder
  Call RemoveOlder
  StrCpy $Writing 1
  SetOverwrite on
  !include "${LISTS}\install.nsh"
  WriteUninstaller "$INSTDIR\uninstall.exe"
  StrCpy $Writing 0
  !insertmacro WriteUninstallEntry

  SetOutPath "$INSTDIR"
  !insertmacro ChooseArguments
  CreateShortCut "$SMPROGRAMS\Morvane.lnk" "$INSTDIR\morvane.exe" "$Arguments" "" "" SW_SHOWNORMAL "" \
    "Make sets of boards and deal them with the card-dealing machine"
  ${If} $DesktopLink = 1
    CreateShortCut "$DESKTOP\Morvane.lnk" "$INSTDIR\morvane.exe" "$Arguments"
    WriteRegDWORD SHCTX "${UNINSTALL}" "DesktopLink" 1
  ${EndIf}

  WriteRegStr SHCTX "Software\Classes\Applications\morvane.exe" "FriendlyAppName" "Morvane"
  !insertmacro WriteOpenCommand "Applications\morvane.exe"
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
