#include "program/program.h"

#include "support/fakes.h"

namespace morvane {
namespace {

using test::TestDesk;
using ::testing::ElementsAre;

TEST(ShowMessage, WritesItsLineBehindTheBox) {
  TestDesk desk;
  desk.Ui.OnBox = [&] { EXPECT_TRUE(desk.LogLines().empty()); };
  desk.Prog.ShowMessage("      One      \r\n      Two      ", kOkCritical, "Title");
  EXPECT_THAT(desk.LogLines(), ElementsAre("    Title: One : Two"));
}

TEST(StoreSetting, KeepsTheValueWithoutAWord) {
  TestDesk desk;
  EXPECT_TRUE(desk.Prog.StoreSetting(kNewLastBoard, "36"));
  EXPECT_EQ(desk.Store.Get(kNewLastBoard), "36");
  EXPECT_TRUE(desk.Ui.Boxes.empty());
}

TEST(StoreSetting, TheFirstFailureIsToldAndNoOther) {
  TestDesk desk;
  desk.Store.Writable = false;
  EXPECT_FALSE(desk.Prog.StoreSetting(kNewLastBoard, "36"));
  EXPECT_FALSE(desk.Prog.StoreSetting(kNewFirstBoard, "5"));
  EXPECT_THAT(desk.Ui.Boxes,
              ElementsAre(test::FakeUi::Box{
                  "      Settings cannot be saved      \r\n"
                  "      Changes of settings will be lost when the program ends      ",
                  48, "Settings Error"}));
  EXPECT_THAT(desk.LogLines(),
              ElementsAre("    Settings Error: Settings cannot be saved : Changes of settings will "
                          "be lost when the program ends"));
  EXPECT_EQ(desk.Store.Get(kNewLastBoard), "32");
}

TEST(StoreSetting, WhatFailsWhileTheBoxIsOpenOpensNoSecondOne) {
  TestDesk desk;
  desk.Store.Writable = false;
  desk.Ui.OnBox = [&] { desk.Prog.StoreSetting(kNewFirstBoard, "5"); };
  desk.Prog.StoreSetting(kNewLastBoard, "36");
  EXPECT_EQ(desk.Ui.Boxes.size(), 1U);
}

TEST(StoreSetting, AStoreThatCanBeWrittenAgainIsWritten) {
  TestDesk desk;
  desk.Store.Writable = false;
  desk.Prog.StoreSetting(kNewLastBoard, "36");
  desk.Store.Writable = true;
  EXPECT_TRUE(desk.Prog.StoreSetting(kNewLastBoard, "40"));
  EXPECT_EQ(desk.Store.Get(kNewLastBoard), "40");
  desk.Store.Writable = false;
  EXPECT_FALSE(desk.Prog.StoreSetting(kNewLastBoard, "50"));
  EXPECT_EQ(desk.Ui.Boxes.size(), 1U);
}

/// A store that had to be put aside.
class DamagedSettings final : public Settings {
 public:
  [[nodiscard]] std::string Get(const SettingKey& key) const override {
    return std::string(key.Default);
  }
  bool Set(const SettingKey& /*key*/, std::string_view /*value*/) override { return true; }
  std::string TakePutAside() override { return std::exchange(Aside, {}); }
  std::string Aside = "/home/me/morvane.exe.ini.damaged";
};

TEST(StoreSetting, AStoreThatWasPutAsideIsToldOnce) {
  TestDesk desk;
  DamagedSettings store;
  Program program(
      {desk.Ui, desk.Loop, desk.Clock, store, desk.Random, desk.Speaker, desk.ThePrinter},
      {desk.Folder.Path(), desk.Prog.Paths.Data});
  EXPECT_TRUE(program.StoreSetting(kNewLastBoard, "36"));
  EXPECT_TRUE(program.StoreSetting(kNewFirstBoard, "5"));
  EXPECT_THAT(desk.Ui.Boxes,
              ElementsAre(test::FakeUi::Box{
                  "      The settings file was too large or no text, and begins anew      \r\n"
                  "      What it was is now: /home/me/morvane.exe.ini.damaged      ",
                  48, "Settings Error"}));
}

}  // namespace
}  // namespace morvane
