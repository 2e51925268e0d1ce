#include "shell/preferences.h"

#include <gmock/gmock.h>

#include <map>

#include "platform/ini_settings.h"
#include "support/fakes.h"

namespace morvane::shell {
namespace {

using ::testing::Each;
using ::testing::SizeIs;

class PreferencesTest : public ::testing::Test {
 protected:
  test::TestDesk desk;

  /// Whether leaving the boxes, with these texts in them, is let pass: first, then last.
  std::pair<bool, bool> Leave(const std::string& first, const std::string& last) {
    Preferences preferences(desk.Prog);
    preferences.Setup_New_FirstBoard = first;
    preferences.Setup_New_LastBoard = last;
    const bool firstFits = preferences.LeaveFirstBoard();
    return {firstFits, preferences.LeaveLastBoard()};
  }
  [[nodiscard]] std::string Stored(const SettingKey& key) const { return desk.Store.Get(key); }
};

bool& Switch(Preferences& preferences, const std::string& control) {
  for (std::size_t i = 0; i < Preferences::kSwitches.size(); ++i) {
    if (Preferences::kSwitches[i].Control == control) return preferences.On[i];
  }
  ADD_FAILURE() << control;
  std::abort();
}

TEST_F(PreferencesTest, AnEmptyStoreGivesEveryDefault) {
  Preferences preferences(desk.Prog);
  EXPECT_EQ(preferences.Setup_New_FirstBoard, "1");
  EXPECT_EQ(preferences.Setup_New_LastBoard, "32");
  const std::map<std::string, bool> defaults{
      {"Setup_New_Shapes", false},  {"Setup_New_Inner", true},
      {"Setup_New_History", true},  {"Setup_Load_Allocation", true},
      {"Setup_Save_Event", true},   {"Setup_Save_Incomplete", true},
      {"Setup_Save_Numbers", true}, {"Setup_Save_Analyze", true},
      {"Show_boards", false},       {"Setup_Deal_Sub", false},
      {"Setup_Deal_Copy", false},   {"Setup_Error_sound", true}};
  EXPECT_EQ(defaults.size(), Preferences::kSwitches.size());
  for (const auto& [control, on] : defaults) EXPECT_EQ(Switch(preferences, control), on) << control;
  EXPECT_EQ(preferences.Generator, 2);
  EXPECT_EQ(preferences.Analyzer, 0);
}

TEST_F(PreferencesTest, WhatTheStoreHasIsShown) {
  desk.Store.Set(kNewFirstBoard, "17");
  desk.Store.Set(kNewShapes, "1");
  desk.Store.Set(kSaveEvent, "0");
  desk.Store.Set(kGenerator, "1");
  desk.Store.Set(kAnalyzer, "1");
  Preferences preferences(desk.Prog);
  EXPECT_EQ(preferences.Setup_New_FirstBoard, "17");
  EXPECT_TRUE(Switch(preferences, "Setup_New_Shapes"));
  EXPECT_FALSE(Switch(preferences, "Setup_Save_Event"));
  EXPECT_EQ(preferences.Generator, 1);
  EXPECT_EQ(preferences.Analyzer, 1);
}

TEST_F(PreferencesTest, AnUnknownGeneratorOffersBothAndAnUnknownAnalyzerIsTheSecond) {
  desk.Store.Set(kGenerator, "7");
  desk.Store.Set(kAnalyzer, "x");
  const Preferences preferences(desk.Prog);
  EXPECT_EQ(preferences.Generator, 2);
  EXPECT_EQ(preferences.Analyzer, 1);
}

TEST_F(PreferencesTest, ZeroAnd641AreRefusedInEitherBoxAnd640InBothIsAccepted) {
  EXPECT_FALSE(Leave("0", "32").first);
  EXPECT_FALSE(Leave("641", "32").first);
  EXPECT_FALSE(Leave("", "32").first);
  ASSERT_THAT(desk.Ui.Boxes, SizeIs(4)) << "the last board is below 641 too";
  EXPECT_EQ(desk.Ui.Boxes.front(),
            (test::FakeUi::Box{"      First Board number must be between 1 and 640      \r\n"
                               "      Please enter correct value      ",
                               16, "Preferences Error"}));
  desk.Ui.Boxes.clear();
  EXPECT_FALSE(Leave("1", "0").second);
  EXPECT_FALSE(Leave("1", "641").second);
  EXPECT_FALSE(Leave("33", "32").second);
  ASSERT_THAT(desk.Ui.Boxes, SizeIs(3));
  EXPECT_THAT(desk.Ui.Boxes,
              Each(test::FakeUi::Box{
                  "      Last Board number must be between 1 and 640 and must be greater than or "
                  "equal to the First Board number      \r\n"
                  "      Please enter correct value      ",
                  16, "Preferences Error"}));
  EXPECT_EQ(Leave("640", "640"), std::pair(true, true));
  EXPECT_EQ(Leave("32", "32"), std::pair(true, true));
  EXPECT_THAT(desk.Ui.Boxes, SizeIs(3));
}

TEST_F(PreferencesTest, TypingTakesDigitsUpTo999) {
  Preferences preferences(desk.Prog);
  EXPECT_EQ(preferences.ChangeFirstBoard({"999", 3}).Text, "999");
  EXPECT_EQ(preferences.ChangeFirstBoard({"9990", 4}).Text, "999");
  EXPECT_EQ(preferences.ChangeFirstBoard({"99x", 3}).Text, "999");
  EXPECT_EQ(preferences.Setup_New_FirstBoard, "999");
  EXPECT_EQ(preferences.ChangeLastBoard({"", 0}).Text, "");
  EXPECT_EQ(preferences.ChangeLastBoard({"0", 1}).Text, "") << "no zero in the first place";
  EXPECT_EQ(preferences.Setup_New_LastBoard, "");
}

TEST_F(PreferencesTest, NothingIsWrittenBeforeClosing) {
  {
    Preferences preferences(desk.Prog);
    preferences.ChangeFirstBoard({"5", 1});
    Switch(preferences, "Setup_New_Shapes") = true;
    preferences.Generator = 0;
  }
  for (const SettingKey& key : {kNewFirstBoard, kNewShapes, kGenerator}) {
    EXPECT_FALSE(desk.Store.Has(key)) << key.Name;
  }
}

TEST_F(PreferencesTest, ClosingWritesEveryControl) {
  Preferences preferences(desk.Prog);
  preferences.ChangeFirstBoard({"5", 1});
  preferences.ChangeLastBoard({"28", 2});
  for (bool& on : preferences.On) on = !on;
  preferences.Generator = 0;
  preferences.Analyzer = 1;
  EXPECT_EQ(preferences.Close(), Preferences::Wrong::kNone);
  EXPECT_TRUE(preferences.Closed());
  EXPECT_EQ(Stored(kNewFirstBoard), "5");
  EXPECT_EQ(Stored(kNewLastBoard), "28");
  EXPECT_EQ(Stored(kNewShapes), "1");
  EXPECT_EQ(Stored(kNewInner), "0");
  EXPECT_EQ(Stored(kNewHistory), "0");
  EXPECT_EQ(Stored(kLoadAllocation), "0");
  EXPECT_EQ(Stored(kSaveEvent), "0");
  EXPECT_EQ(Stored(kSaveIncomplete), "0");
  EXPECT_EQ(Stored(kSaveNumbers), "0");
  EXPECT_EQ(Stored(kSaveAnalyze), "0");
  EXPECT_EQ(Stored(kDealShow), "1");
  EXPECT_EQ(Stored(kDealSub), "1");
  EXPECT_EQ(Stored(kDealCopy), "1");
  EXPECT_EQ(Stored(kErrorSound), "0");
  EXPECT_EQ(Stored(kGenerator), "0");
  EXPECT_EQ(Stored(kAnalyzer), "1");
  EXPECT_FALSE(desk.Store.Has(kDealNumberCopies));
}

TEST_F(PreferencesTest, WhatWasWrittenIsReadFromTheFileByTheNextProgram) {
  const std::string path = desk.Folder / "settings.ini";
  const auto withProgram = [&](const auto& act) {
    IniSettings store(path);
    Program program(
        {desk.Ui, desk.Loop, desk.Clock, store, desk.Random, desk.Speaker, desk.ThePrinter},
        {desk.Folder.Path(), desk.Folder.Path()});
    Preferences preferences(program);
    act(preferences);
  };
  std::array<bool, Preferences::kSwitches.size()> written{};
  withProgram([&](Preferences& preferences) {
    preferences.ChangeFirstBoard({"5", 1});
    preferences.ChangeLastBoard({"640", 3});
    for (bool& on : preferences.On) on = !on;
    written = preferences.On;
    preferences.Generator = 1;
    preferences.Analyzer = 1;
    EXPECT_EQ(preferences.Close(), Preferences::Wrong::kNone);
  });
  withProgram([&](const Preferences& preferences) {
    EXPECT_EQ(preferences.Setup_New_FirstBoard, "5");
    EXPECT_EQ(preferences.Setup_New_LastBoard, "640");
    EXPECT_EQ(preferences.On, written);
    EXPECT_EQ(preferences.Generator, 1);
    EXPECT_EQ(preferences.Analyzer, 1);
  });
}

TEST_F(PreferencesTest, AWrongNumberKeepsTheWindowOpenAndWritesNothing) {
  Preferences preferences(desk.Prog);
  preferences.ChangeFirstBoard({"", 0});
  EXPECT_EQ(preferences.Close(), Preferences::Wrong::kFirstBoard);
  preferences.ChangeFirstBoard({"40", 2});
  EXPECT_EQ(preferences.Close(), Preferences::Wrong::kLastBoard) << "32 is below";
  EXPECT_FALSE(preferences.Closed());
  EXPECT_FALSE(desk.Store.Has(kNewFirstBoard));
  preferences.ChangeLastBoard({"40", 2});
  EXPECT_EQ(preferences.Close(), Preferences::Wrong::kNone);
}

TEST_F(PreferencesTest, RestoreWritesEveryDefaultButDealSub) {
  Preferences preferences(desk.Prog);
  preferences.ChangeFirstBoard({"5", 1});
  for (bool& on : preferences.On) on = !on;
  preferences.Generator = 0;
  preferences.Analyzer = 1;
  ASSERT_EQ(preferences.Close(), Preferences::Wrong::kNone);

  Preferences again(desk.Prog);
  ASSERT_TRUE(Switch(again, "Setup_Deal_Sub"));
  again.Restore();
  EXPECT_FALSE(again.Closed());
  for (const SettingKey& key :
       {kNewFirstBoard, kNewLastBoard, kNewShapes, kNewInner, kNewHistory, kGenerator,
        kLoadAllocation, kSaveEvent, kSaveIncomplete, kSaveNumbers, kSaveAnalyze, kDealShow,
        kDealCopy, kErrorSound, kAnalyzer}) {
    EXPECT_EQ(Stored(key), key.Default) << key.Name;
  }
  EXPECT_EQ(Stored(kDealNumberCopies), "1");
  EXPECT_EQ(Stored(kDealSub), "1") << "required";
  EXPECT_EQ(again.Setup_New_FirstBoard, "1");
  EXPECT_TRUE(Switch(again, "Setup_Deal_Sub"));
  EXPECT_FALSE(Switch(again, "Setup_Deal_Copy"));

  desk.Store.Set(kGenerator, "0");
  desk.Store.Set(kAnalyzer, "1");
  EXPECT_EQ(again.Close(), Preferences::Wrong::kNone) << "which writes them once more";
  EXPECT_EQ(Stored(kGenerator), "2");
  EXPECT_EQ(Stored(kAnalyzer), "0");
}

TEST_F(PreferencesTest, TheFilterKnowsTheDefaultsAfterRestore) {
  Preferences preferences(desk.Prog);
  preferences.ChangeFirstBoard({"5", 1});
  preferences.Restore();
  EXPECT_EQ(preferences.ChangeFirstBoard({"1x", 2}).Text, "1");
}

TEST_F(PreferencesTest, TheSoundIsHeardOnRequestEvenWhereItIsSwitchedOff) {
  desk.Store.Set(kErrorSound, "0");
  Preferences(desk.Prog).Hear();
  EXPECT_THAT(desk.Speaker.Played,
              testing::ElementsAre(desk.Prog.Paths.Application + "/Dealing_Error.wav"));
}

TEST_F(PreferencesTest, TheStatisticsStayAsTheyAre) {
  Preferences preferences(desk.Prog);
  Switch(preferences, "Show_boards") = true;
  EXPECT_EQ(preferences.Close(), Preferences::Wrong::kNone);
  EXPECT_FALSE(desk.Prog.ShowStatistics) << "read at start-up only";
}

TEST_F(PreferencesTest, AStoreThatCannotBeWrittenIsTold) {
  desk.Store.Writable = false;
  Preferences preferences(desk.Prog);
  EXPECT_EQ(preferences.Close(), Preferences::Wrong::kNone);
  ASSERT_THAT(desk.Ui.Boxes, SizeIs(1));
  EXPECT_EQ(desk.Ui.Boxes.front().Title, "Settings Error");
}

}  // namespace
}  // namespace morvane::shell
