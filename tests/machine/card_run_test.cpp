// The run of cards by itself, on another plan than the dealing run's: a sort that fetches nothing.

#include "machine/card_run.h"

#include "support/fakes.h"
#include "support/scripted_bridge.h"

namespace morvane::machine {
namespace {

using test::Bytes;
using test::Short;
using ::testing::ElementsAre;
using End = CardRun::End;

class CardRunTest : public ::testing::Test {
 protected:
  test::TestDesk desk;
  test::ScriptedBridge bridge{desk.Clock};
  Machine machine{desk.Random, bridge};
  CardRun run{desk.Loop, desk.Clock, machine, [this] {
                if (OnChange) OnChange();
              }};
  std::function<void()> OnChange;
  std::vector<int> faults;
  std::deque<DialogAnswer> answers;

  End Run() {
    run.Prepare();
    return run.Run({[this](bool goOn) {
                      machine.Exchange(wire::SortCommand{goOn, {}});
                      return run.Step();
                    },
                    [] { return true; }, [this] { return Answer(); }});
  }
  DialogAnswer Answer() {
    faults.push_back(machine.MachineError);
    if (answers.empty()) return kStop;
    const DialogAnswer answer = answers.front();
    answers.pop_front();
    return answer;
  }
  static Bytes Busy() { return Short({0x19, 0xFF}); }
  static Bytes Accepted() { return Short({0x18}); }
  /// Code and byte 1 of each frame sent.
  [[nodiscard]] std::vector<std::string> Sent() const {
    std::vector<std::string> frames;
    for (const Bytes& frame : bridge.Sent) {
      frames.push_back(std::to_string(frame[0]) + ":" + std::to_string(frame[1]));
    }
    return frames;
  }
};

TEST_F(CardRunTest, StartsAndPollsUntilTheMachineIsNoLongerBusy) {
  bridge.Replies = {Accepted(), Busy(), Busy(), Short({0x19, 0, 52, 52, 52, 52})};
  EXPECT_EQ(Run(), End::kStopped);
  EXPECT_THAT(Sent(), ElementsAre("53:0", "25:0", "25:0", "25:0"));
  EXPECT_EQ(machine.MachineError, 0);
  EXPECT_THAT(machine.CardCount, ElementsAre(0, 52, 52, 52, 52));
  EXPECT_TRUE(run.CountsShown);
  EXPECT_EQ(run.RunLogLine, "");
}

TEST_F(CardRunTest, GoesOnAfterAFaultAsOftenAsItIsToldTo) {
  answers = {kGoOn, kGoOn, kStop};
  bridge.Replies = {Accepted(),        Short({0x19, 30}), Accepted(),
                    Short({0x19, 54}), Accepted(),        Short({0x19, 57})};
  EXPECT_EQ(Run(), End::kStopped);
  EXPECT_THAT(Sent(), ElementsAre("53:0", "25:0", "53:1", "25:0", "53:1", "25:0"));
  EXPECT_THAT(faults, ElementsAre(30, 54, 57));
  EXPECT_EQ(run.RunLogLine, " 30 54 57");
  EXPECT_EQ(machine.MachineError, 57);
}

TEST_F(CardRunTest, TheBreakTakesThePlaceOfTheNextPollAndLeavesOutTheAcknowledgements) {
  machine.PedalFlag = 1;
  desk.Loop.OnPump = [this] {
    if (bridge.Sent.size() == 2) run.Break();
  };
  bridge.Replies = {Accepted(), Short({0x19, 0xFF, 0, 0, 0, 0, 8}), Short({0x19, 57})};
  EXPECT_EQ(Run(), End::kStopped);
  EXPECT_THAT(Sent(), ElementsAre("53:0", "25:2", "25:1"));
}

TEST_F(CardRunTest, ABreakAskedForWhileItStoodIsNotSentAfterGoingOn) {
  answers = {kGoOn};
  desk.Loop.OnPump = [this] {
    if (machine.MachineState == Machine::kError) run.Break();
  };
  bridge.Replies = {Accepted(), Short({0x19, 30}), Accepted(), Short({0x19, 0})};
  EXPECT_EQ(Run(), End::kStopped);
  EXPECT_THAT(Sent(), ElementsAre("53:0", "25:0", "53:1", "25:0"));
}

TEST_F(CardRunTest, LeavingWaitsForTheMachineAndDoesNotGoOn) {
  answers = {kGoOn};
  desk.Loop.OnPump = [this] {
    if (bridge.Sent.size() == 2 && !run.Leaving()) run.Leave();
  };
  bridge.Replies = {Accepted(), Busy(), Short({0x19, 57})};
  EXPECT_EQ(Run(), End::kStopped);
  EXPECT_TRUE(run.Leaving());
  EXPECT_THAT(Sent(), ElementsAre("53:0", "25:0", "25:1"));
}

TEST_F(CardRunTest, LeavingTwiceWaitsForNothing) {
  desk.Loop.OnPump = [this] {
    if (bridge.Sent.size() == 2) run.Leave();
    if (bridge.Sent.size() == 2) run.Leave();
  };
  bridge.Replies = {Accepted(), Busy(), Busy(), Busy()};
  EXPECT_EQ(Run(), End::kGivenUp);
  EXPECT_THAT(Sent(), ElementsAre("53:0", "25:0", "25:1"));
}

TEST_F(CardRunTest, AProgramThatQuitsHasTheMachineBreakAndAsksNobody) {
  desk.Loop.OnPump = [this] {
    if (bridge.Sent.size() == 2) desk.Loop.Quit();
  };
  bridge.Replies = {Accepted(), Busy(), Busy(), Busy(), Short({0x19, 57})};
  answers = {kGoOn};
  EXPECT_EQ(Run(), End::kStopped);
  EXPECT_THAT(Sent(), ElementsAre("53:0", "25:0", "25:1", "25:0", "25:0"));
  EXPECT_EQ(run.RunLogLine, " 57");
}

TEST_F(CardRunTest, AProgramThatQuitsWaitsASecondForAMachineThatOverhearsTheBreak) {
  // Each poll takes 0.3 s: the fourth one behind the quit is the first that comes too late.
  desk.Loop.OnPump = [this] {
    if (bridge.Sent.size() < 2) return;
    desk.Loop.Quit();
    desk.Clock.Spend(std::chrono::milliseconds(300));
  };
  bridge.Replies.assign(20, Busy());
  bridge.Replies[0] = Accepted();
  EXPECT_EQ(Run(), End::kGivenUp);
  EXPECT_THAT(Sent(), ElementsAre("53:0", "25:0", "25:1", "25:0", "25:0", "25:0", "25:1"));
}

TEST_F(CardRunTest, AProgramThatQuitsWaitsNoLongerForOneThatIsBeingLeft) {
  desk.Loop.OnPump = [this] {
    if (bridge.Sent.size() == 2) run.Leave();
    if (bridge.Sent.size() == 3) desk.Loop.Quit();
    if (bridge.Sent.size() >= 3) desk.Clock.Spend(std::chrono::milliseconds(600));
  };
  bridge.Replies.assign(20, Busy());
  bridge.Replies[0] = Accepted();
  EXPECT_EQ(Run(), End::kGivenUp);
  EXPECT_THAT(Sent(), ElementsAre("53:0", "25:0", "25:1", "25:0", "25:0", "25:1"));
}

TEST_F(CardRunTest, TheLinkCanBeLostAtEveryExchange) {
  const std::vector<Bytes> good{Accepted(), Short({0x19, 30}), Accepted(), Short({0x19, 0})};
  for (std::size_t lost = 0; lost < good.size(); ++lost) {
    bridge.Sent.clear();
    bridge.Replies.assign(good.begin(), good.begin() + static_cast<std::ptrdiff_t>(lost));
    answers = {kGoOn};
    EXPECT_EQ(Run(), End::kLinkLost) << lost;
    EXPECT_EQ(bridge.Sent.size(), lost + 2) << "two tries";
  }
}

TEST_F(CardRunTest, AFetchThatLosesTheLinkEndsTheRun) {
  bridge.Replies = {Accepted(), Short({0x19, 0})};
  run.Prepare();
  EXPECT_EQ(run.Run({[this](bool goOn) {
                       machine.Exchange(wire::SortCommand{goOn, {}});
                       return run.Step();
                     },
                     [this] { return run.FetchCardLog(); }, [this] { return Answer(); }}),
            End::kLinkLost);
  EXPECT_EQ(bridge.Sent.back()[0], 0x20);
}

TEST_F(CardRunTest, ItsTimeIsThatSinceTheStart) {
  desk.Clock.Spend(std::chrono::seconds(100));
  int poll = 0;
  bridge.Answer = [&](const Bytes& plain) {
    desk.Clock.Spend(std::chrono::milliseconds(1500));
    if (plain[0] == 0x35) return test::OnTheWire(Accepted(), 21);
    return test::OnTheWire(++poll == 2 ? Short({0x19, 0}) : Busy(), 21);
  };
  EXPECT_EQ(Run(), End::kStopped);
  EXPECT_EQ(run.txtDealTime, "3.0") << "the last that was shown while it was busy";
  EXPECT_DOUBLE_EQ(run.Seconds(), 4.5);
}

TEST_F(CardRunTest, ItBeginsWithNothingOfTheRunBefore) {
  bridge.Replies = {Accepted(), Busy(), Short({0x19, 57, 9, 9, 9, 9})};
  Run();
  bool first = true;
  OnChange = [&] {
    if (!std::exchange(first, false)) return;
    EXPECT_FALSE(run.CountsShown);
    EXPECT_EQ(run.txtDealTime, "");
    EXPECT_EQ(machine.MachineError, 0);
    EXPECT_THAT(machine.CardCount, ElementsAre(0, 0, 0, 0, 0));
  };
  bridge.Replies = {Accepted(), Short({0x19, 0})};
  EXPECT_EQ(Run(), End::kStopped);
  EXPECT_FALSE(first);
}

TEST_F(CardRunTest, WhatAPollToldIsShownWhileTheNextIsOnItsWay) {
  std::vector<std::string> shown;
  OnChange = [&] {
    shown.push_back(std::to_string(bridge.Sent.size()) + " sent, " +
                    (bridge.Unread.empty() ? "" : "one on its way, ") +
                    std::to_string(machine.CardCount[1]) + " cards");
  };
  bridge.Replies = {Accepted(), Short({0x19, 0xFF, 1}), Short({0x19, 0xFF, 1}),
                    Short({0x19, 0xFF, 2}), Short({0x19, 0, 3})};
  EXPECT_EQ(Run(), End::kStopped);
  EXPECT_THAT(shown,
              ElementsAre("0 sent, 0 cards", "1 sent, 0 cards", "3 sent, one on its way, 1 cards",
                          "5 sent, one on its way, 2 cards", "5 sent, 3 cards"))
      << "a poll that told nothing new is not shown";
}

TEST_F(CardRunTest, WhoLeavesWhileItAsksDoesNotGoOn) {
  answers = {kGoOn};
  desk.Loop.OnPump = [this] {
    if (machine.MachineState == Machine::kError) run.Leave();
  };
  bridge.Replies = {Accepted(), Short({0x19, 30})};
  EXPECT_EQ(Run(), End::kStopped);
  EXPECT_THAT(Sent(), ElementsAre("53:0", "25:0"));
}

TEST_F(CardRunTest, TheProbeMakesTheMachineIdleOrTellsThatItIsLost) {
  machine.MachineState = Machine::kError;
  bridge.Replies = {Short({0x1A, 2, 0x90})};
  EXPECT_TRUE(run.Probe());
  EXPECT_EQ(machine.MachineState, Machine::kIdle);
  EXPECT_FALSE(run.Probe());
  EXPECT_TRUE(machine.Lost());
}

TEST_F(CardRunTest, APlanMayFetchNothing) {
  bridge.Replies = {Accepted(), Short({0x19, 0})};
  run.Prepare();
  EXPECT_EQ(run.Run({[this](bool goOn) {
                       machine.Exchange(wire::SortCommand{goOn, {}});
                       return run.Step();
                     },
                     nullptr, [this] { return Answer(); }}),
            End::kStopped);
}

TEST_F(CardRunTest, PreparingForgetsTheRunBefore) {
  run.Leave();
  run.RunLogLine = "old";
  run.Prepare();
  EXPECT_FALSE(run.Leaving());
  EXPECT_EQ(run.RunLogLine, "");
  EXPECT_EQ(run.Seconds(), 0);
}

}  // namespace
}  // namespace morvane::machine
