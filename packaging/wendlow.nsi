; The installer for one user, without administrator rights. packaging/make-installer gives it
;     VERSION       1.2.3
;     FILES         the folder that holds what is installed
;     LISTS         the folder of install.nsh and remove.nsh, which name every file of FILES
;     OUTPUT        the installer to write
; and, when it signs, SIGN: a command that signs the file after it.
;
; Silent:    wendlow-VERSION-setup.exe /S [/DESKTOP] [/FILETYPE=EXTENSION] [/D=FOLDER]
;            uninstall.exe /S
; What an earlier installation had is chosen again, and the rest of it goes.
; Exit codes: 0 fine, 1 cancelled, 2 failed, 3 Wendlow is running, 4 no extension of a file.

Unicode true
Target amd64-unicode
ManifestDPIAware true
ManifestLongPathAware true
RequestExecutionLevel user
SetCompressor /SOLID lzma

!include MUI2.nsh
!include nsDialogs.nsh
!include FileFunc.nsh
!include LogicLib.nsh
!include Sections.nsh

!define UNINSTALL_KEY "Software\Microsoft\Windows\CurrentVersion\Uninstall\Wendlow"
!define CLASSES "Software\Classes"
!define PROFILE_CLASS "Wendlow.Profile"
; The class of Wendlow's main window, as in main_prg/main_window.h.
!define MAIN_WINDOW_CLASS "prg_wnds_layout"

Name "Wendlow"
BrandingText "Wendlow ${VERSION}"
OutFile "${OUTPUT}"
InstallDir "$LOCALAPPDATA\Programs\Wendlow"
InstallDirRegKey HKCU "${UNINSTALL_KEY}" InstallLocation

VIProductVersion "${VERSION}.0"
VIAddVersionKey CompanyName "The Wendlow project"
VIAddVersionKey FileDescription "Installs Wendlow"
VIAddVersionKey FileVersion "${VERSION}.0"
VIAddVersionKey ProductName "Wendlow"
VIAddVersionKey ProductVersion "${VERSION}.0"
VIAddVersionKey LegalCopyright ""

!ifdef SIGN
    !uninstfinalize '${SIGN} "%1"' = 0
    !finalize '${SIGN} "%1"' = 0
!endif

!define MUI_ICON "${FILES}\..\wendlow.ico"
!define MUI_UNICON "${FILES}\..\wendlow.ico"
!define MUI_ABORTWARNING
!define MUI_COMPONENTSPAGE_SMALLDESC
!define MUI_FINISHPAGE_RUN "$INSTDIR\wendlow.exe"
!define MUI_FINISHPAGE_SHOWREADME "$INSTDIR\docs\guide.html"
!define MUI_FINISHPAGE_SHOWREADME_TEXT "Read the guide"

!insertmacro MUI_PAGE_COMPONENTS
Page custom ask_file_type take_file_type
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!insertmacro MUI_PAGE_FINISH
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES
!insertmacro MUI_LANGUAGE English

Var file_type ; without its dot
Var file_type_edit

; Installing and removing both want Wendlow closed: Windows keeps the file of a running program.
!macro WANT_WENDLOW_CLOSED prefix
Function ${prefix}want_wendlow_closed
    ${Do}
        FindWindow $0 "${MAIN_WINDOW_CLASS}"
        ${If} $0 P= 0
            Return
        ${EndIf}
    ${LoopWhile} ${Cmd} 'MessageBox MB_RETRYCANCEL|MB_ICONEXCLAMATION "Wendlow is running. Close it, and choose Retry." /SD IDCANCEL IDRETRY'
    SetErrorLevel 3
    Quit
FunctionEnd
!macroend
!insertmacro WANT_WENDLOW_CLOSED ""
!insertmacro WANT_WENDLOW_CLOSED "un."

; Windows' windows of files learn of the entry under "Open with" at once.
!macro ANNOUNCE_FILE_TYPES
    System::Call 'shell32::SHChangeNotify(i 0x08000000, i 0, p 0, p 0)'
!macroend

; Takes the entry for the file type in $0 back; what else stands there stays.
!macro REMOVE_FILE_TYPE
    ${If} $0 != ""
        DeleteRegValue HKCU "${CLASSES}\.$0\OpenWithProgids" "${PROFILE_CLASS}"
        DeleteRegKey /ifempty HKCU "${CLASSES}\.$0\OpenWithProgids"
        DeleteRegKey /ifempty HKCU "${CLASSES}\.$0"
    ${EndIf}
    DeleteRegKey HKCU "${CLASSES}\${PROFILE_CLASS}"
!macroend

; Removes what stands where the last installation put it: its folder may be another one, and its files others.
Function remove_earlier_installation
    ReadRegStr $R1 HKCU "${UNINSTALL_KEY}" InstallLocation
    ${If} $R1 == ""
    ${OrIfNot} ${FileExists} "$R1\uninstall.exe"
        Return
    ${EndIf}
    ExecWait '"$R1\uninstall.exe" /S _?=$R1' ; started so it can be waited for, and leaves itself
    Delete "$R1\uninstall.exe"
    RMDir "$R1"
FunctionEnd

Section "Wendlow" section_program
    SectionIn RO
    Call want_wendlow_closed
    SetShellVarContext current
    Call remove_earlier_installation
    ClearErrors
    !include "${LISTS}/install.nsh"
    WriteUninstaller "$INSTDIR\uninstall.exe"
    ${If} ${Errors}
        MessageBox MB_ICONSTOP "Not every file could be written. Install again once nothing uses them." /SD IDOK
        SetErrorLevel 2
        Abort
    ${EndIf}
    SetOutPath "$INSTDIR"
    CreateShortcut "$SMPROGRAMS\Wendlow.lnk" "$INSTDIR\wendlow.exe"

    ${GetSize} "$INSTDIR" "/S=0K" $0 $1 $2
    WriteRegStr HKCU "${UNINSTALL_KEY}" DisplayName "Wendlow"
    WriteRegStr HKCU "${UNINSTALL_KEY}" DisplayVersion "${VERSION}"
    WriteRegStr HKCU "${UNINSTALL_KEY}" DisplayIcon "$INSTDIR\wendlow.exe"
    WriteRegStr HKCU "${UNINSTALL_KEY}" Publisher "The Wendlow project"
    WriteRegStr HKCU "${UNINSTALL_KEY}" InstallLocation "$INSTDIR"
    WriteRegStr HKCU "${UNINSTALL_KEY}" UninstallString '"$INSTDIR\uninstall.exe"'
    WriteRegStr HKCU "${UNINSTALL_KEY}" QuietUninstallString '"$INSTDIR\uninstall.exe" /S'
    WriteRegDWORD HKCU "${UNINSTALL_KEY}" EstimatedSize $0
    WriteRegDWORD HKCU "${UNINSTALL_KEY}" NoModify 1
    WriteRegDWORD HKCU "${UNINSTALL_KEY}" NoRepair 1
SectionEnd

Section /o "Shortcut on the desktop" section_desktop
    CreateShortcut "$DESKTOP\Wendlow.lnk" "$INSTDIR\wendlow.exe"
SectionEnd

Section /o "$\"Open with$\" entry for a type of file" section_file_type
    ; An earlier installation that could not be removed may have taken another one.
    ReadRegStr $0 HKCU "${UNINSTALL_KEY}" FileType
    !insertmacro REMOVE_FILE_TYPE
    WriteRegStr HKCU "${CLASSES}\${PROFILE_CLASS}" "" "Wendlow profile"
    WriteRegStr HKCU "${CLASSES}\${PROFILE_CLASS}\Application" ApplicationName "Wendlow"
    WriteRegStr HKCU "${CLASSES}\${PROFILE_CLASS}\DefaultIcon" "" "$INSTDIR\wendlow.exe,0"
    WriteRegStr HKCU "${CLASSES}\${PROFILE_CLASS}\shell\open\command" "" '"$INSTDIR\wendlow-open.exe" "%1"'
    WriteRegStr HKCU "${CLASSES}\.$file_type\OpenWithProgids" "${PROFILE_CLASS}" ""
    WriteRegStr HKCU "${UNINSTALL_KEY}" FileType $file_type
    !insertmacro ANNOUNCE_FILE_TYPES
SectionEnd

!insertmacro MUI_FUNCTION_DESCRIPTION_BEGIN
    !insertmacro MUI_DESCRIPTION_TEXT ${section_program} "The program, its companions for profiles, and the guide."
    !insertmacro MUI_DESCRIPTION_TEXT ${section_desktop} "A shortcut to Wendlow on your desktop."
    !insertmacro MUI_DESCRIPTION_TEXT ${section_file_type} "Lets you load a profile by a right click on its file."
!insertmacro MUI_FUNCTION_DESCRIPTION_END

; Leaves $0 without its leading dot, and $1 empty when it may be the extension of a file.
Function look_at_file_type
    StrCpy $1 $0 1
    ${If} $1 == "."
        StrCpy $0 $0 "" 1
    ${EndIf}
    StrCpy $1 "empty"
    StrCpy $2 0
    ${Do}
        StrCpy $3 $0 1 $2
        ${If} $3 == ""
            Return
        ${EndIf}
        ${If} $3 == "."
        ${OrIf} $3 == " "
        ${OrIf} $3 == "\"
        ${OrIf} $3 == "/"
        ${OrIf} $3 == ":"
        ${OrIf} $3 == "*"
        ${OrIf} $3 == "?"
        ${OrIf} $3 == "$\""
        ${OrIf} $3 == "<"
        ${OrIf} $3 == ">"
        ${OrIf} $3 == "|"
            StrCpy $1 "wrong"
            Return
        ${EndIf}
        StrCpy $1 ""
        IntOp $2 $2 + 1
    ${Loop}
FunctionEnd

Function .onInit
    SetShellVarContext current
    StrCpy $file_type "txt" ; what Wendlow proposes when it saves a profile
    ReadRegStr $0 HKCU "${UNINSTALL_KEY}" FileType
    ${If} $0 != ""
        StrCpy $file_type $0
        !insertmacro SelectSection ${section_file_type}
    ${EndIf}
    ReadRegStr $0 HKCU "${UNINSTALL_KEY}" InstallLocation
    ${If} $0 != ""
    ${AndIf} ${FileExists} "$DESKTOP\Wendlow.lnk"
        !insertmacro SelectSection ${section_desktop}
    ${EndIf}
    ${GetParameters} $R0
    ClearErrors
    ${GetOptions} $R0 "/DESKTOP" $0
    ${IfNot} ${Errors}
        !insertmacro SelectSection ${section_desktop}
    ${EndIf}
    ClearErrors
    ${GetOptions} $R0 "/FILETYPE=" $0
    ${IfNot} ${Errors}
        Call look_at_file_type
        ${If} $1 != ""
            MessageBox MB_ICONSTOP "$\".$0$\" is no extension of a file." /SD IDOK
            SetErrorLevel 4
            Quit
        ${EndIf}
        StrCpy $file_type $0
        !insertmacro SelectSection ${section_file_type}
    ${EndIf}
    Call want_wendlow_closed
FunctionEnd

Function ask_file_type
    ${IfNot} ${SectionIsSelected} ${section_file_type}
        Abort
    ${EndIf}
    !insertmacro MUI_HEADER_TEXT "Type of file" "Choose which files can be opened with Wendlow."
    nsDialogs::Create 1018
    Pop $0
    ${NSD_CreateLabel} 0 0 100% 36u "Files with this extension get $\"Wendlow$\" under $\"Open with$\". The program that opens them by a double click stays the same. Profiles may have any extension; Wendlow itself proposes $\"txt$\"."
    Pop $0
    ${NSD_CreateText} 0 44u 80u 13u $file_type
    Pop $file_type_edit
    ${NSD_SetFocus} $file_type_edit
    nsDialogs::Show
FunctionEnd

Function take_file_type
    ${NSD_GetText} $file_type_edit $0
    Call look_at_file_type
    ${If} $1 != ""
        MessageBox MB_ICONEXCLAMATION "$\".$0$\" is no extension of a file."
        Abort
    ${EndIf}
    StrCpy $file_type $0
FunctionEnd

Function un.onInit
    Call un.want_wendlow_closed
FunctionEnd

Section "un.Wendlow"
    SetShellVarContext current
    ReadRegStr $0 HKCU "${UNINSTALL_KEY}" FileType
    !insertmacro REMOVE_FILE_TYPE
    !insertmacro ANNOUNCE_FILE_TYPES
    DeleteRegKey HKCU "${UNINSTALL_KEY}"
    Delete "$SMPROGRAMS\Wendlow.lnk"
    Delete "$DESKTOP\Wendlow.lnk"
    ; By name: the user's own files in the folder stay.
    !include "${LISTS}/remove.nsh"
    Delete "$INSTDIR\uninstall.exe"
    RMDir "$INSTDIR"
SectionEnd
