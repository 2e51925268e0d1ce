#include "shell/shell_desk.h"
#include "simulator/simulated_machine.h"

namespace morvane::shell {
namespace {

using machine::BoardRun;
using test::FakeUi;
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Not;

constexpr int kAfterContact = BoardRun::kFirstContactMs + 100;

/// A running program with boards 1 to 3, and the machine on paper.
struct DealDesk : ShellDesk {
  DealDesk() {
    Start();
    test::FillSet(Prog.Set, 1, 3);
  }
  /// Does `action` with the run window this long after it has been opened.
  void InTheWindow(int ms, std::function<void(BoardRun&)> action) {
    Desktop.OnRun = [this, ms, action = std::move(action)](BoardRun& run) {
      Loop.After(ms, [&run, action] { action(run); });
    };
  }
  void ExpectBack() {
    EXPECT_EQ(Desktop.Run.Opened, 1);
    EXPECT_EQ(Desktop.Run.Closed, 1);
    EXPECT_EQ(Desktop.Run.Gone, 1);
    EXPECT_FALSE(Main.TheMachine().Link.IsOpen());
    ASSERT_GE(Bridge.Calls.size(), 2U);
    EXPECT_EQ(Bridge.Calls.end()[-2], "WriteLatch 1 0");
    EXPECT_EQ(Bridge.Calls.back(), "Close");
    EXPECT_FALSE(Main.FlowActive());
    EXPECT_THAT(Ui.Statuses, ElementsAre("Dealing", "Ready"));
  }
};

TEST(MenuDeal, WithoutASetIsRefused) {
  ShellDesk desk;
  desk.Start();
  desk.Main.MenuDeal();
  const std::string text = "      Board Set does not exist. Request ignored!      ";
  EXPECT_THAT(desk.Ui.Statuses, ElementsAre("Dealing", text, "Ready"));
  EXPECT_THAT(desk.Ui.Boxes, ElementsAre(FakeUi::Box{text, 16, "Dealing Error"}));
  EXPECT_EQ(desk.LastLine(), "    Dealing Error: Board Set does not exist. Request ignored!");
  EXPECT_THAT(desk.Bridge.Calls, IsEmpty());
  EXPECT_EQ(desk.Desktop.Run.Opened, 0);
  EXPECT_FALSE(desk.Main.FlowActive());
}

TEST(MenuDeal, AProgramWithoutTheWindowSaysSoAndLetsGoOfTheMachine) {
  DealDesk desk;
  desk.Desktop.HasWindows = false;
  desk.Main.MenuDeal();
  EXPECT_THAT(desk.Ui.Boxes,
              ElementsAre(FakeUi::Box{"      This program has no window for a run.      ", 16,
                                      "Dealing Error"}));
  EXPECT_THAT(desk.Ui.Statuses, ElementsAre("Dealing", "Ready"));
  EXPECT_FALSE(desk.Main.TheMachine().Link.IsOpen());
  EXPECT_THAT(desk.Bridge.Sent, IsEmpty());
  EXPECT_EQ(desk.Bridge.Calls.back(), "Close");
  EXPECT_THAT(desk.Bridge.Calls, Not(Contains("WriteLatch 1 1")));
  EXPECT_FALSE(desk.Main.FlowActive());
}

TEST(MenuDeal, WithoutALinkOpensNoWindow) {
  DealDesk desk;
  desk.Bridge.FailingCall = "GetNumDevices";
  desk.Bridge.FailureStatus = UsbXpress::kDeviceNotFound;
  desk.Ui.Answers = {kCancel};
  desk.Main.MenuDeal();
  EXPECT_THAT(desk.Ui.Boxes,
              ElementsAre(FakeUi::Box{
                  "      Cannot communicate with Morvane      (Error: 255.1)      \r\n"
                  "      Please check if USB cable is connected to the PC and Morvane.\r\n"
                  "      If connection is OK please disconnect USB cable momentarily and reconnect."
                  "      \r\n \r\n"
                  "      Click OK to retry communication.    ",
                  17, "USB Initialization Error"}));
  EXPECT_EQ(desk.LastLine(), " USB Initialization Error: 255:1");
  EXPECT_EQ(desk.Desktop.Run.Opened, 0);
  EXPECT_THAT(desk.Ui.Statuses, ElementsAre("Dealing", "Ready"));
}

TEST(MenuDeal, OpensTheLinkWith200MillisecondsAndReturnsWhenTheWindowIsLeft) {
  DealDesk desk;
  desk.InTheWindow(kAfterContact, [](BoardRun& run) { run.Exit(); });
  desk.Main.MenuDeal();
  desk.ExpectBack();
  EXPECT_THAT(desk.Bridge.Calls, Contains("SetTimeouts 200 200"));
  EXPECT_EQ(desk.Clock.Elapsed(), std::chrono::milliseconds(kAfterContact));
  EXPECT_THAT(desk.Ui.Boxes, IsEmpty());
}

TEST(MenuDeal, DealsABoard) {
  DealDesk desk;
  desk.InTheWindow(kAfterContact, [](BoardRun& run) {
    run.cmdDeal();
    run.Exit();
  });
  desk.Main.MenuDeal();
  desk.ExpectBack();
  const auto lines = desk.LogLines();
  ASSERT_EQ(lines.size(), 4U + 3U);
  EXPECT_EQ(lines[4], " Deal: 3:04:05 PM");
  EXPECT_EQ(lines[5], "  S/N:4711 Dealt:258 Firmware:2.90");
  EXPECT_EQ(lines[6], "  001 : 1,0 0,0,0,0 OK");
  EXPECT_EQ(desk.Prog.Set.BoardSetChanged, "0");
}

TEST(MenuDeal, ThePoolIsNotFedDuringTheRunAndIsAgainAfterIt) {
  DealDesk desk;
  desk.InTheWindow(kAfterContact, [&](BoardRun& run) {
    desk.MoveMouse();
    EXPECT_EQ(desk.Bits(), 16);
    run.cmdDeal();
    desk.MoveMouse();
    EXPECT_EQ(desk.Bits(), 16);
    run.Exit();
  });
  desk.Main.MenuDeal();
  EXPECT_EQ(desk.Desktop.Run.Gone, 1);
  desk.MoveMouse();
  EXPECT_EQ(desk.Bits(), 24);
}

TEST(MenuDeal, TheWindowIsLeftInTheMiddleOfABoard) {
  DealDesk desk;
  desk.Paper.BusyPolls = 1'000'000;
  desk.InTheWindow(kAfterContact, [&](BoardRun& run) {
    desk.Loop.Post([&run] { run.Exit(); });
    run.cmdDeal();
  });
  desk.Main.MenuDeal();
  desk.ExpectBack();
  EXPECT_EQ(desk.LastLine(), "  001 : 1,0 0,0,0,0 57");
}

TEST(MenuDeal, ALostLinkBringsTheOperatorBack) {
  DealDesk desk;
  desk.InTheWindow(kAfterContact, [&](BoardRun& run) {
    desk.Paper.Powered = false;
    run.cmdDeal();
  });
  desk.Main.MenuDeal();
  EXPECT_EQ(desk.Desktop.Run.Gone, 1);
  EXPECT_FALSE(desk.Main.TheMachine().Link.IsOpen());
  EXPECT_THAT(desk.Ui.Boxes, ElementsAre(FakeUi::Box{
                                 "      Lost Communication with Morvane  -  Dealing Aborted!      ",
                                 16, "Dealing Error"}));
  EXPECT_THAT(desk.Ui.Statuses, ElementsAre("Dealing", "Ready"));
  desk.MoveMouse();
  EXPECT_EQ(desk.Bits(), 24);
}

TEST(MenuDeal, CanBeChosenAgain) {
  DealDesk desk;
  desk.InTheWindow(kAfterContact, [](BoardRun& run) { run.Exit(); });
  desk.Main.MenuDeal();
  desk.Main.MenuDeal();
  EXPECT_EQ(desk.Desktop.Run.Opened, 2);
  EXPECT_EQ(desk.Desktop.Run.Gone, 2);
  EXPECT_EQ(std::count(desk.Bridge.Calls.begin(), desk.Bridge.Calls.end(), "Close"), 2);
}

TEST(MenuDeal, WhatWasSetInTheWindowStaysForTheNextOne) {
  DealDesk desk;
  desk.Store.Set(kDealCopy, "1");
  desk.Store.Set(kDealSub, "1");
  desk.InTheWindow(kAfterContact, [](BoardRun& run) {
    run.SetNumberCopies("4");
    run.LeaveSubfrom("2");
    run.Exit();
  });
  desk.Main.MenuDeal();
  desk.InTheWindow(kAfterContact, [](BoardRun& run) {
    EXPECT_EQ(run.Place().Range().NumberOfCopies, 4);
    EXPECT_EQ(run.Place().Range().RunFirst, 2);
    EXPECT_EQ(run.Place().Range().RunLast, 3);
    run.Exit();
  });
  desk.Main.MenuDeal();
  EXPECT_EQ(desk.Desktop.Run.Opened, 2);
}

TEST(MenuDeal, AnalysisDoesNotStandInItsWay) {
  DealDesk desk;
  desk.Prog.AnalysisRunning = true;
  desk.InTheWindow(kAfterContact, [](BoardRun& run) { run.Exit(); });
  desk.Main.MenuDeal();
  desk.ExpectBack();
  EXPECT_THAT(desk.Ui.Boxes, IsEmpty());
}

TEST(MenuDeal, AProgramThatQuitsBetweenTwoBoardsLeavesTheWindow) {
  DealDesk desk;
  desk.InTheWindow(kAfterContact, [&](BoardRun&) { desk.Loop.Quit(); });
  desk.Main.MenuDeal();
  desk.ExpectBack();
}

TEST(MenuDeal, AProgramThatQuitsBeforeTheFirstContactLeavesTheWindow) {
  DealDesk desk;
  desk.InTheWindow(500, [&](BoardRun&) { desk.Loop.Quit(); });
  desk.Main.MenuDeal();
  desk.ExpectBack();
  EXPECT_THAT(desk.Bridge.Sent, IsEmpty());
}

TEST(MenuDeal, AProgramThatQuitsInTheMiddleOfABoardBreaksItAndLeaves) {
  DealDesk desk;
  desk.Paper.BusyPolls = 1'000'000;
  desk.InTheWindow(kAfterContact, [&](BoardRun& run) {
    desk.Loop.Post([&] { desk.Loop.Quit(); });
    run.cmdDeal();
    EXPECT_TRUE(run.Closed());
  });
  desk.Main.MenuDeal();
  desk.ExpectBack();
  // The machine is given the moment that it takes to stop, and its answer is logged.
  EXPECT_EQ(desk.LastLine(), "  001 : 1,0 0,0,0,0 57");
}

TEST(MenuDeal, AProgramThatQuitsLeavesASimulatedMachineBroken) {
  ShellDesk desk;
  simulator::Options fast;
  fast.Speed = 0;
  simulator::SimulatedMachine machine(fast, desk.Clock);
  Shell main(desk.Prog, machine, desk.Processes, desk.Desktop, desk.Programs);
  main.StartUp("");
  test::FillSet(desk.Prog.Set, 1, 3);
  desk.Desktop.OnRun = [&](BoardRun& run) {
    desk.Loop.After(kAfterContact, [&] {
      int pumps = 0;
      desk.Loop.OnPump = [&] {
        if (++pumps == 20) desk.Loop.Quit();
      };
      run.cmdDeal();
      desk.Loop.OnPump = nullptr;
    });
  };
  main.MenuDeal();
  EXPECT_EQ(desk.Desktop.Run.Gone, 1);
  EXPECT_FALSE(machine.Busy());
  EXPECT_EQ(machine.BoardsDealt(), 0);
  EXPECT_FALSE(machine.LatchOn());
  EXPECT_FALSE(main.FlowActive());
  // The first pump follows the start, every other one a poll, and at this speed each poll is a
  // card; the break falls no card.
  const auto piles = machine.CardsByPocket();
  EXPECT_EQ(piles[1].size() + piles[2].size() + piles[3].size() + piles[4].size(), 19U);
  EXPECT_EQ(machine.StateText(), "idle");
}

}  // namespace
}  // namespace morvane::shell
