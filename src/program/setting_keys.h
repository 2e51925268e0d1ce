#pragma once

#include "platform/settings.h"

// Every setting of the program: section, key, default. A key that was never written yields its
// default; only `Seedm` is created at start-up.

namespace morvane {

inline constexpr std::string_view kSetup = "Setup";
inline constexpr std::string_view kInit = "Init_settings";
inline constexpr std::string_view kDeepFinesse = "Deep_Finesse";
inline constexpr std::string_view kWindow = "Window";

inline constexpr SettingKey kNewFirstBoard{kSetup, "New_FirstBoard", "1"};
inline constexpr SettingKey kNewLastBoard{kSetup, "New_LastBoard", "32"};
inline constexpr SettingKey kNewShapes{kSetup, "New_Shapes", "0"};
inline constexpr SettingKey kNewInner{kSetup, "New_Inner", "1"};
inline constexpr SettingKey kNewHistory{kSetup, "New_History", "1"};
inline constexpr SettingKey kGenerator{kSetup, "Generator", "2"};
inline constexpr SettingKey kLoadAllocation{kSetup, "Load_Allocation", "1"};
inline constexpr SettingKey kSaveEvent{kSetup, "Save_Event", "1"};
inline constexpr SettingKey kSaveIncomplete{kSetup, "Save_Incomplete", "1"};
inline constexpr SettingKey kSaveNumbers{kSetup, "Save_Numbers", "1"};
inline constexpr SettingKey kSaveAnalyze{kSetup, "Save_Analyze", "1"};
inline constexpr SettingKey kDealShow{kSetup, "Deal_Show", "0"};
inline constexpr SettingKey kDealSub{kSetup, "Deal_Sub", "0"};
inline constexpr SettingKey kDealCopy{kSetup, "Deal_Copy", "0"};
inline constexpr SettingKey kDealNumberCopies{kSetup, "Deal_NumberCopies", ""};
inline constexpr SettingKey kAnalyzer{kSetup, "Analyzer", "0"};
inline constexpr SettingKey kErrorSound{kSetup, "Error_sound", "1"};

inline constexpr SettingKey kSeedm{kInit, "Seedm", ""};
inline constexpr SettingKey kSeedmCounter{kInit, "Seedm_counter", "0"};
inline constexpr SettingKey kInitFormat{kInit, "Init_format", "BRI"};
inline constexpr SettingKey kInitDirectory{kInit, "Init_directory", "c:"};
/// The board files used last, in a form of `shell::RecentFiles`.
inline constexpr SettingKey kRecentFiles{kInit, "Recent_files", ""};
inline constexpr SettingKey kInitReadMode{kInit, "Init_read_mode", "0"};
/// The run window's own default is "1": a board pushed in starts its deal unless told otherwise.
inline constexpr SettingKey kInitStartFromBox{kInit, "Init_start_from_box", "1"};
inline constexpr SettingKey kNational{kInit, "National", "0"};
inline constexpr SettingKey kCardType{kInit, "CardType", "0"};
inline constexpr SettingKey kThreshold{kInit, "Threshold", "0"};
inline constexpr SettingKey kCardIndex{kInit, "CardIndex", "0"};
inline constexpr SettingKey kCheckBoard{kInit, "CheckBoard", "0"};
inline constexpr SettingKey kPrintPerPage{kInit, "PrintPerPage", "0"};
inline constexpr SettingKey kPrintColor{kInit, "PrintColor", "1"};
inline constexpr SettingKey kPrintAnalyze{kInit, "PrintAnalyze", "1"};
inline constexpr SettingKey kPrintHcp{kInit, "PrintHCP", "1"};
inline constexpr SettingKey kPrintMode{kInit, "PrintMode", "0"};
inline constexpr SettingKey kPrintScoreCardMode{kInit, "PrintScoreCardMode", "2"};
inline constexpr SettingKey kPrintStat{kInit, "PrintStat", "1"};
inline constexpr SettingKey kPrintTen{kInit, "PrintTen", "1"};
inline constexpr SettingKey kServiceFileId{kInit, "Service File ID", "0"};
/// Of the service file read last; empty: the data folder.
inline constexpr SettingKey kServiceFileFolder{kInit, "Service_file_directory", ""};

inline constexpr SettingKey kSolverAppPath{kDeepFinesse, "App_path", ""};
inline constexpr SettingKey kSolverBreak{kDeepFinesse, "Break", ""};
inline constexpr SettingKey kSolverDone{kDeepFinesse, "Done", "00"};
inline constexpr SettingKey kSolverResult{kDeepFinesse, "Result", "00000000000000000000"};
inline constexpr SettingKey kSolverError{kDeepFinesse, "Error", ""};
inline constexpr SettingKey kSolverPath{kDeepFinesse, "Path", ""};
inline constexpr SettingKey kSolverVersion{kDeepFinesse, "df1_version", "xx.xx"};

/// Where the main window stood when it was closed, as its toolkit writes it: kept for the next run,
/// not a setting that the operator sees.
inline constexpr SettingKey kMainMenuPlace{kWindow, "MainMenu", ""};

}  // namespace morvane
