#include "generate/generate_form.h"

#include <tuple>
#include <utility>

#include "generate/form_desk.h"

namespace morvane::generate {
namespace {

using ::testing::ElementsAre;

TEST(GenerateForm, OpensWithTheDefaultsOfTheSettings) {
  FormDesk desk;
  desk.Open();
  EXPECT_EQ(desk.Now().txtFirstBoard, "1");
  EXPECT_EQ(desk.Now().txtLastBoard, "32");
  EXPECT_TRUE(desk.Now().generate_yes);
  EXPECT_FALSE(desk.Now().Reject.Shape);
  EXPECT_TRUE(desk.Now().Reject.Inner);
  EXPECT_TRUE(desk.Now().Reject.History);
  EXPECT_TRUE(desk.Now().bigdealVisible && desk.Now().cmdDealVisible);
  EXPECT_FALSE(desk.Now().Running);
  EXPECT_EQ(desk.Now().Result, "");
  EXPECT_EQ(desk.Now().Default, FormControl::kBigDeal);
}

TEST(GenerateForm, OpensWithTheSettings) {
  FormDesk desk;
  desk.Store.Set(kNewFirstBoard, "17");
  desk.Store.Set(kNewLastBoard, "640");
  desk.Store.Set(kNewShapes, "1");
  desk.Store.Set(kNewInner, "0");
  desk.Store.Set(kNewHistory, "0");
  desk.Open();
  EXPECT_EQ(desk.Now().txtFirstBoard, "17");
  EXPECT_EQ(desk.Now().txtLastBoard, "640");
  EXPECT_TRUE(desk.Now().Reject.Shape);
  EXPECT_FALSE(desk.Now().Reject.Inner);
  EXPECT_FALSE(desk.Now().Reject.History);
}

TEST(GenerateForm, ASettingThatTheBoxCannotHoldGivesWayToItsDefault) {
  for (const char* wrong : {"0", "1000", "abc", "-4", "007"}) {
    FormDesk desk;
    desk.Store.Set(kNewFirstBoard, wrong);
    desk.Store.Set(kNewLastBoard, wrong);
    desk.Open();
    EXPECT_EQ(desk.Now().txtFirstBoard, "1") << wrong;
    EXPECT_EQ(desk.Now().txtLastBoard, "32") << wrong;
  }
}

TEST(GenerateForm, OpeningGoesToTheLastBoardThenToTheFirstAndSelectsBoth) {
  FormDesk desk;
  desk.Form.emplace(desk.Prog, desk.Gen, desk.History, nullptr);
  desk.Window.emplace(*desk.Form);
  desk.Form->Open(*desk.Window);
  EXPECT_THAT(desk.Window->Focused, ElementsAre(FormControl::kLastBoard, FormControl::kFirstBoard));
  EXPECT_EQ(desk.Window->SelectedBehind, 2U);
}

TEST(GenerateForm, OpeningLogsTheTimeAndFeedsThePoolWithTheMoment) {
  FormDesk desk;
  desk.Gen.Number.Seedo = {1, 2, 3, 4, 5};
  // 15:04:05 is 54,245,000 ms of the day; 54,245,000 - 54,179,722 = 65,278 = 0xFEFE.
  desk.Prog.ActivateTime = 54'179'722;
  desk.Open();
  EXPECT_THAT(desk.LogLines(), ElementsAre(" File-New: 3:04:05 PM"));
  EXPECT_EQ(desk.Gen.Pool.Seedm[63], 0xFE);
  EXPECT_EQ(desk.Gen.Pool.Seedm[64], 0xFE);
  EXPECT_EQ(desk.Window->Bits, 16);
  EXPECT_EQ(desk.Gen.Number.Seedo, Digest{});
}

TEST(GenerateForm, TheGeneratorSettingDecidesWhichButtonsAreThere) {
  const std::vector<std::tuple<const char*, bool, bool, FormControl>> settings{
      {"0", true, false, FormControl::kBigDeal},
      {"1", false, true, FormControl::kCmdDeal},
      {"2", true, true, FormControl::kBigDeal},
      {"7", true, true, FormControl::kBigDeal}};
  for (const auto& [setting, bigdeal, cmdDeal, preset] : settings) {
    FormDesk desk;
    desk.Store.Set(kGenerator, setting);
    desk.Open();
    EXPECT_EQ(desk.Now().bigdealVisible, bigdeal) << setting;
    EXPECT_EQ(desk.Now().cmdDealVisible, cmdDeal) << setting;
    EXPECT_EQ(desk.Now().Default, preset) << setting;
    desk.Form->ChooseRandom(false);
    EXPECT_FALSE(desk.Now().bigdealVisible) << setting;
    EXPECT_TRUE(desk.Now().cmdDealVisible) << "only it makes empty boards";
    EXPECT_EQ(desk.Now().Default, FormControl::kCmdDeal);
    desk.Form->ChooseRandom(true);
    EXPECT_EQ(desk.Now().bigdealVisible, bigdeal) << setting;
    EXPECT_EQ(desk.Now().cmdDealVisible, cmdDeal) << setting;
  }
}

TEST(GenerateForm, AButtonThatIsNotThereDoesNothing) {
  FormDesk desk;
  desk.Store.Set(kGenerator, "0");
  desk.Open();
  desk.Form->cmdDeal();
  EXPECT_FALSE(desk.Prog.Set.Exists());
  desk.Form->ChooseRandom(false);
  desk.Form->bigdeal();
  EXPECT_FALSE(desk.Prog.Set.Exists());
  EXPECT_EQ(desk.Generated, 0);
}

TEST(GenerateForm, TheBoxesTakeNumbersUpTo999) {
  FormDesk desk;
  desk.Open();
  EXPECT_EQ(desk.Form->ChangeFirstBoard({"999", 3}).Text, "999");
  const FilteredBox box = desk.Form->ChangeFirstBoard({"9990", 4});
  EXPECT_EQ(box.Text, "999");
  EXPECT_EQ(box.Caret, 3);
  EXPECT_EQ(desk.Form->ChangeFirstBoard({"x", 1}).Text, "999");
  EXPECT_EQ(desk.Form->ChangeLastBoard({"0", 1}).Text, "32");
  EXPECT_EQ(desk.Form->ChangeLastBoard({"", 0}).Text, "");
  EXPECT_EQ(desk.Now().txtFirstBoard, "999");
  EXPECT_EQ(desk.Now().txtLastBoard, "");
}

// The feeder.

TEST(Timer1big, FeedsThePoolEvery50MsWithTheMouseOfItsWindow) {
  FormDesk desk;
  desk.Open();
  desk.Ui.MouseNow = {0x11, 0x22};  // in another window's coordinates
  desk.Window->MouseNow = {0x2A, 0x14};
  desk.Loop.WaitMs(49);
  EXPECT_EQ(desk.Form->Bits(), 16);
  desk.Loop.WaitMs(1);
  EXPECT_EQ(desk.Form->Bits(), 24);
  EXPECT_EQ(desk.Window->Bits, 24);
  EXPECT_EQ(desk.Gen.Pool.Seedm[64], 0xA4);
}

TEST(Timer1big, AMouseThatMovesOnlySidewaysOrUpAndDownFeedsNothing) {
  FormDesk desk;
  desk.Open();
  desk.Window->MouseNow = {40, 20};
  desk.Loop.WaitMs(50);
  ASSERT_EQ(desk.Form->Bits(), 24);
  for (int step = 1; step <= 10; ++step) {
    desk.Window->MouseNow = {40 + 7 * step, 20};
    desk.Loop.WaitMs(50);
    desk.Window->MouseNow = {40, 20 + 7 * step};
    desk.Loop.WaitMs(50);
  }
  EXPECT_EQ(desk.Form->Bits(), 24);
}

TEST(Timer1big, HoweverLongTheMouseMovesTheLogSays512Bits) {
  FormDesk desk;
  desk.Open();
  for (int step = 1; step <= 100; ++step) {
    desk.Window->MouseNow = {3 * step, 5 * step};
    desk.Loop.WaitMs(50);
  }
  EXPECT_EQ(desk.Form->Bits(), 512);
  desk.Range("1", "1");
  desk.Form->bigdeal();
  EXPECT_EQ(desk.LogLines()[1], "  New random bits collected: 512");
  EXPECT_EQ(desk.Form->Bits(), 0);
}

TEST(Timer1big, IsOffDuringARunAndOnAgainAfterIt) {
  FormDesk desk;
  desk.Open();
  desk.Range("1", "3");
  bool running = false;
  desk.Loop.OnPump = [&] {
    if (!desk.Now().Running || std::exchange(running, true)) return;
    desk.Window->MouseNow.X += 3;
    desk.Window->MouseNow.Y += 5;
    desk.Loop.WaitMs(500);
    running = false;
    EXPECT_EQ(desk.Form->Bits(), 0);
  };
  desk.Form->cmdDeal();
  desk.Loop.OnPump = nullptr;
  EXPECT_EQ(desk.Form->Bits(), 0);
  desk.Loop.WaitMs(50);
  EXPECT_EQ(desk.Form->Bits(), 8);
}

TEST(Timer1big, IsOnAgainAfterTheSystemSourceFailedAndAfterARefusal) {
  FormDesk desk;
  desk.Open();
  desk.Range("2", "1");
  desk.Form->bigdeal();
  desk.Random.AllZero = true;
  desk.Form->bigdeal();
  const int before = desk.Form->Bits();
  desk.Window->MouseNow = {3, 5};
  desk.Loop.WaitMs(50);
  EXPECT_EQ(desk.Form->Bits(), before + 8);
}

TEST(Timer1big, EndsWithTheWindow) {
  FormDesk desk;
  desk.Open();
  desk.Form->cmdExit();
  desk.Window->MouseNow = {3, 5};
  desk.Loop.WaitMs(500);
  EXPECT_EQ(desk.Form->Bits(), 16);
  EXPECT_TRUE(desk.Form->Closed());
  EXPECT_EQ(desk.Window->Closes, 1);
}

}  // namespace
}  // namespace morvane::generate
