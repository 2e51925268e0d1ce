#include "program/setting_keys.h"

#include <set>
#include <utility>

#include "support/fakes.h"

namespace morvane {
namespace {

struct Row {
  SettingKey Key;
  std::string Section;
  std::string Name;
  std::string Default;
};

const std::vector<Row> kRows = {
    {kNewFirstBoard, "Setup", "New_FirstBoard", "1"},
    {kNewLastBoard, "Setup", "New_LastBoard", "32"},
    {kNewShapes, "Setup", "New_Shapes", "0"},
    {kNewInner, "Setup", "New_Inner", "1"},
    {kNewHistory, "Setup", "New_History", "1"},
    {kGenerator, "Setup", "Generator", "2"},
    {kLoadAllocation, "Setup", "Load_Allocation", "1"},
    {kSaveEvent, "Setup", "Save_Event", "1"},
    {kSaveIncomplete, "Setup", "Save_Incomplete", "1"},
    {kSaveNumbers, "Setup", "Save_Numbers", "1"},
    {kSaveAnalyze, "Setup", "Save_Analyze", "1"},
    {kDealShow, "Setup", "Deal_Show", "0"},
    {kDealSub, "Setup", "Deal_Sub", "0"},
    {kDealCopy, "Setup", "Deal_Copy", "0"},
    {kDealNumberCopies, "Setup", "Deal_NumberCopies", ""},
    {kAnalyzer, "Setup", "Analyzer", "0"},
    {kErrorSound, "Setup", "Error_sound", "1"},
    {kSeedm, "Init_settings", "Seedm", ""},
    {kSeedmCounter, "Init_settings", "Seedm_counter", "0"},
    {kInitFormat, "Init_settings", "Init_format", "BRI"},
    {kInitDirectory, "Init_settings", "Init_directory", "c:"},
    {kRecentFiles, "Init_settings", "Recent_files", ""},
    {kInitReadMode, "Init_settings", "Init_read_mode", "0"},
    {kInitStartFromBox, "Init_settings", "Init_start_from_box", "1"},
    {kNational, "Init_settings", "National", "0"},
    {kCardType, "Init_settings", "CardType", "0"},
    {kThreshold, "Init_settings", "Threshold", "0"},
    {kCardIndex, "Init_settings", "CardIndex", "0"},
    {kCheckBoard, "Init_settings", "CheckBoard", "0"},
    {kPrintPerPage, "Init_settings", "PrintPerPage", "0"},
    {kPrintColor, "Init_settings", "PrintColor", "1"},
    {kPrintAnalyze, "Init_settings", "PrintAnalyze", "1"},
    {kPrintHcp, "Init_settings", "PrintHCP", "1"},
    {kPrintMode, "Init_settings", "PrintMode", "0"},
    {kPrintScoreCardMode, "Init_settings", "PrintScoreCardMode", "2"},
    {kPrintStat, "Init_settings", "PrintStat", "1"},
    {kPrintTen, "Init_settings", "PrintTen", "1"},
    {kServiceFileId, "Init_settings", "Service File ID", "0"},
    {kServiceFileFolder, "Init_settings", "Service_file_directory", ""},
    {kSolverAppPath, "Deep_Finesse", "App_path", ""},
    {kSolverBreak, "Deep_Finesse", "Break", ""},
    {kSolverDone, "Deep_Finesse", "Done", "00"},
    {kSolverResult, "Deep_Finesse", "Result", "00000000000000000000"},
    {kSolverError, "Deep_Finesse", "Error", ""},
    {kSolverPath, "Deep_Finesse", "Path", ""},
    {kSolverVersion, "Deep_Finesse", "df1_version", "xx.xx"},
    {kMainMenuPlace, "Window", "MainMenu", ""},
};

TEST(SettingKeys, StandInTheirSectionsUnderTheirNames) {
  std::set<std::pair<std::string, std::string>> places;
  for (const Row& row : kRows) {
    EXPECT_EQ(row.Key.Section, row.Section) << row.Name;
    EXPECT_EQ(row.Key.Name, row.Name);
    EXPECT_TRUE(places.emplace(row.Section, row.Name).second) << row.Name;
  }
}

TEST(SettingKeys, AnEmptyStoreYieldsEveryDefault) {
  const test::MemorySettings store;
  for (const Row& row : kRows) EXPECT_EQ(store.Get(row.Key), row.Default) << row.Name;
}

TEST(Settings, ASwitchIsOnOnlyWhenItsTextIsOne) {
  test::MemorySettings store;
  EXPECT_TRUE(store.IsOn(kNewInner));
  EXPECT_FALSE(store.IsOn(kNewShapes));
  for (const char* off : {"", "01", " 1", "1 ", "2", "0", "true"}) {
    store.Set(kNewInner, off);
    EXPECT_FALSE(store.IsOn(kNewInner)) << '"' << off << '"';
  }
  store.Set(kNewInner, "1");
  EXPECT_TRUE(store.IsOn(kNewInner));
}

}  // namespace
}  // namespace morvane
