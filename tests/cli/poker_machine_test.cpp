#include <gmock/gmock.h>

#include <algorithm>

#include "cli/cli_desk.h"
#include "poker/pkr_file.h"
#include "poker/random_deals.h"

namespace morvane::cli {
namespace {

using ::testing::Each;
using ::testing::HasSubstr;
using ::testing::Not;
using ::testing::StartsWith;

/// A folder with an order of three deals, and the simulated machine.
struct Desk : CliDesk {
  explicit Desk(bool yes = false, bool overwrite = false) : CliDesk(yes, AtSpeed(0), overwrite) {
    Order = poker::EmptyOrder(3);
    poker::FillAtRandom(Order, Random);
    Write();
  }
  void Write() { test::WriteContent(Pkr, poker::PokerFileBytes(Order)); }
  [[nodiscard]] poker::PokerOrder Saved() const {
    poker::PokerOrder order;
    EXPECT_TRUE(poker::ReadPokerFile(test::Content(Read), order));
    return order;
  }
  /// What lies on top of North.
  [[nodiscard]] poker::PokerDeal Stacked() const {
    const auto pile = Machine.MachineCardsByPocket()[4];
    poker::PokerDeal deal{};
    std::copy_n(pile.rbegin(), poker::kSlots, deal.begin() + 1);
    return deal;
  }
  poker::PokerOrder Order;
  const std::string Pkr = Folder / "evening.pkr";
  const std::string Read = Folder / "read.pkr";
};

TEST(PokerDealCommand, StacksEachDealInFourRuns) {
  Desk desk;
  EXPECT_EQ(desk.Run(PokerDealOptions{.In = desk.Pkr, .Auto = true}), kDone);
  EXPECT_THAT(desk.Screen.Output, StartsWith("Machine: simulated\nDeal 1, run 1  "));
  EXPECT_THAT(desk.Screen.Output, HasSubstr("\nDeal 3, run 4  "));
  EXPECT_THAT(desk.Screen.Output, ::testing::EndsWith("   stacked right\n3 of 3 deals stacked.\n"));
  EXPECT_EQ(desk.Screen.Errors, "Poker Dealing: All Deals was successfully dealt\n");
  EXPECT_EQ(desk.Stacked(), desk.Order.PokerDeals[3]);
}

TEST(PokerDealCommand, StacksTheDealsThatAreNamed) {
  Desk desk;
  EXPECT_EQ(desk.Run(PokerDealOptions{.In = desk.Pkr, .From = 2, .To = 2, .Auto = true}), kDone);
  EXPECT_THAT(desk.Screen.Output, HasSubstr("Deal 2, run 1"));
  EXPECT_THAT(desk.Screen.Output, HasSubstr("1 of 1 deals stacked."));
  EXPECT_THAT(desk.Screen.Output, ::testing::Not(HasSubstr("Deal 1,")));
  EXPECT_EQ(desk.Stacked(), desk.Order.PokerDeals[2]);
}

TEST(PokerDealCommand, DealsThatAreNotThereAreTold) {
  Desk desk;
  EXPECT_EQ(desk.Run(PokerDealOptions{.In = desk.Pkr, .To = 4, .Auto = true}), kFailed);
  EXPECT_EQ(desk.Screen.Errors, "Deal 4 is not in evening.pkr, which has 1 to 3.\n");
  EXPECT_EQ(desk.Run(PokerDealOptions{.In = desk.Pkr, .From = 3, .To = 2, .Auto = true}), kFailed);
  EXPECT_THAT(desk.Screen.Errors, HasSubstr("--to must not be below --from.\n"));
}

TEST(PokerDealCommand, AnEmptyDealIsNotReadInstead) {
  Desk desk;
  desk.Order.PokerDeals[2] = {};
  desk.Write();
  EXPECT_EQ(desk.Run(PokerDealOptions{.In = desk.Pkr, .Auto = true}), kFailed);
  EXPECT_EQ(desk.Screen.Errors, "Deal 2 of evening.pkr is empty.\n");
  EXPECT_EQ(desk.Screen.Output, "");
}

TEST(PokerDealCommand, AWrongCarryStopsItAlsoUnderYes) {
  Desk desk(true);
  desk.Machine.CarryNext(simulator::Carry::kPilesSwapped);
  EXPECT_EQ(desk.Run(PokerDealOptions{.In = desk.Pkr, .Auto = true, .Yes = true}), kFailed);
  EXPECT_THAT(desk.Screen.Errors, HasSubstr("Incorrect Card Order"));
  EXPECT_THAT(desk.Screen.Output, HasSubstr("Deal 1, run 2  "));
  EXPECT_THAT(desk.Screen.Output, HasSubstr("stopped\n0 of 3 deals stacked.\n"));
}

TEST(PokerDealCommand, EndingTheProgramBreaksTheRunAndFailsAlsoUnderYes) {
  Desk desk(true);
  int pumps = 0;
  desk.Loop.OnPump = [&] {
    if (desk.Machine.Busy() && ++pumps == 20) desk.Loop.Quit();
  };
  EXPECT_EQ(desk.Run(PokerDealOptions{.In = desk.Pkr, .Auto = true, .Yes = true}), kFailed);
  EXPECT_THAT(desk.Screen.Output, HasSubstr("0 of 3 deals stacked."));
  EXPECT_FALSE(desk.Machine.Busy());
}

TEST(PokerDealCommand, ALinkLostInTheFirstRunOrTheThirdIsNotedOfThatRun) {
  for (const auto& [run, cards] : {std::pair{1, 10}, {3, 90}}) {
    Desk desk;
    int busy = 0;
    desk.Loop.OnPump = [&, after = cards] {
      if (desk.Machine.Busy() && ++busy == after) desk.Machine.PowerOff();
    };
    EXPECT_EQ(desk.Run(PokerDealOptions{.In = desk.Pkr, .Auto = true}), kFailed);
    EXPECT_THAT(desk.Screen.Errors, HasSubstr("Lost Communication with Morvane"));
    EXPECT_THAT(desk.Screen.Output, HasSubstr("\nDeal 1, run " + std::to_string(run) + "  "));
    EXPECT_THAT(desk.Screen.Output, ::testing::EndsWith(" s  stopped\n0 of 3 deals stacked.\n"));
    EXPECT_THAT(desk.Screen.Output,
                Not(HasSubstr("Deal 1, run " + std::to_string(run + 1) + "  ")));
  }
}

TEST(PokerDealCommand, ADealThatCannotBeStackedIsToldBeforeTheFirst) {
  Desk desk;
  desk.Order.PokerDeals[3][17] = 0;
  desk.Write();
  EXPECT_EQ(desk.Run(PokerDealOptions{.In = desk.Pkr, .Auto = true}), kFailed);
  EXPECT_THAT(desk.Screen.Errors, StartsWith("Deal 3 of evening.pkr cannot be stacked.\n"));
  EXPECT_THAT(desk.Screen.Errors, HasSubstr("Slot 17 of this deal is empty."));
  EXPECT_EQ(desk.Screen.Output, "");
  EXPECT_EQ(desk.Run(PokerDealOptions{.In = desk.Pkr, .To = 2, .Auto = true}), kDone);
}

TEST(PokerDealCommand, WithNobodyThereTheSimulatedMachineNeedsAuto) {
  Desk desk;
  EXPECT_EQ(desk.Run(PokerDealOptions{.In = desk.Pkr}), kFailed);
  EXPECT_THAT(desk.Screen.Errors, HasSubstr("use --auto"));
}

TEST(PokerDealCommand, OnAnotherMachineEachRunWaitsForEnterOrThePedal) {
  Desk desk;
  desk.Screen.Person = true;
  desk.Screen.Lines = {"", "", "", ""};
  EXPECT_EQ(desk.RunOn(desk.Machine, PokerDealOptions{.In = desk.Pkr, .From = 1, .To = 1}), kDone);
  EXPECT_THAT(desk.Screen.Output, StartsWith("Press Enter or the pedal for run 1 of deal 1.\n"));
  EXPECT_THAT(desk.Screen.Output,
              HasSubstr("First Run done. Put cards from EWS back to the feeder.\n"
                        "E on the top , S on the bottom.  Start second run\n"
                        "Press Enter or the pedal for run 2 of deal 1.\n"));
  EXPECT_THAT(desk.Screen.Output, HasSubstr("1 of 1 deals stacked."));
  EXPECT_EQ(desk.Stacked(), desk.Order.PokerDeals[1]);
}

TEST(PokerDealCommand, OnAnotherMachineAutoWaitsForThePedal) {
  Desk desk;
  int pumps = 0;
  desk.Loop.OnPump = [&] {
    if (!desk.Machine.Busy() && ++pumps % 400 == 0) desk.Machine.PressPedal();
  };
  EXPECT_EQ(
      desk.RunOn(desk.Machine, PokerDealOptions{.In = desk.Pkr, .From = 1, .To = 1, .Auto = true}),
      kDone);
  EXPECT_THAT(desk.Screen.Output, StartsWith("Press the pedal for run 1 of deal 1.\n"));
  EXPECT_EQ(desk.Stacked(), desk.Order.PokerDeals[1]);
}

TEST(PokerReadCommand, ReadsPacksIntoAnEmptyOrderAndSavesIt) {
  Desk desk;
  EXPECT_EQ(desk.Run(PokerReadOptions{.Out = desk.Read, .Deals = 2, .Auto = true}), kDone);
  EXPECT_THAT(desk.Screen.Output, HasSubstr("Deal 2, read  "));
  EXPECT_THAT(desk.Screen.Output, HasSubstr("2 of 2 deals read, saved in " + desk.Read + ".\n"));
  const poker::PokerOrder order = desk.Saved();
  EXPECT_EQ(order.PokerDealCount, 2);
  EXPECT_EQ(order.PokerDeals[2], desk.Stacked());
  EXPECT_NE(order.PokerDeals[1], order.PokerDeals[2]);
}

TEST(PokerReadCommand, WhatWasStackedIsReadBack) {
  Desk desk;
  EXPECT_EQ(desk.Run(PokerDealOptions{.In = desk.Pkr, .From = 3, .Auto = true}), kDone);
  ASSERT_TRUE(desk.Machine.PutBackPack());
  EXPECT_EQ(desk.Run(PokerReadOptions{.Out = desk.Read, .Deals = 1, .Auto = true}), kDone);
  EXPECT_EQ(desk.Saved().PokerDeals[1], desk.Order.PokerDeals[3]);
}

TEST(PokerReadCommand, AFileThatExistsIsRefusedBeforeAnyPackIsRead) {
  Desk desk(true);
  test::WriteContent(desk.Read, "mine");
  EXPECT_EQ(desk.Run(PokerReadOptions{.Out = desk.Read, .Deals = 1, .Auto = true}), kFailed);
  EXPECT_EQ(test::Content(desk.Read), "mine");
  EXPECT_EQ(desk.Screen.Output, "");
  Desk forced(false, true);
  test::WriteContent(forced.Read, "mine");
  EXPECT_EQ(forced.Run(PokerReadOptions{.Out = forced.Read, .Deals = 1, .Auto = true}), kDone);
}

TEST(PokerReadCommand, WhatWasReadIsKeptWhenTheSecondPackStops) {
  Desk desk(true);
  int busy = 0;
  desk.Loop.OnPump = [&] {
    if (desk.Machine.Busy() && ++busy == 70) desk.Machine.CauseFault(61);
  };
  EXPECT_EQ(desk.Run(PokerReadOptions{.Out = desk.Read, .Deals = 3, .Auto = true}), kFailed);
  EXPECT_THAT(desk.Screen.Output, HasSubstr("1 of 3 deals read, saved in " + desk.Read + ".\n"));
  EXPECT_NE(desk.Saved().PokerDeals[1][1], 0);
  EXPECT_THAT(desk.Saved().PokerDeals[2], Each(0));
  EXPECT_EQ(desk.Saved().PokerDealCount, 3);
}

TEST(PokerReadCommand, AHundredAndOneDealsAreRefused) {
  Desk desk;
  EXPECT_EQ(desk.Run(PokerReadOptions{.Out = desk.Read, .Deals = 101, .Auto = true}), kFailed);
  EXPECT_THAT(desk.Screen.Errors, HasSubstr("Allowed values are 1 to 100."));
}

TEST(PokerReadCommand, OnAnotherMachineThePedalReadsTheFirstPackToo) {
  Desk desk;
  int pumps = 0;
  desk.Loop.OnPump = [&] {
    if (!desk.Machine.Busy() && ++pumps % 400 == 0) desk.Machine.PressPedal();
  };
  EXPECT_EQ(desk.RunOn(desk.Machine, PokerReadOptions{.Out = desk.Read, .Deals = 2, .Auto = true}),
            kDone);
  EXPECT_THAT(desk.Screen.Output, StartsWith("Press the pedal for the pack of deal 1.\n"));
  EXPECT_EQ(desk.Saved().PokerDeals[2], desk.Stacked());
}

}  // namespace
}  // namespace morvane::cli
