#include "bridges/link_session.h"
#include "machine/dealing_run.h"
#include "machine/reading_run.h"
#include "machine/sorting_run.h"

namespace morvane::bridges {
namespace {

using machine::MachineRun;
using simulator::LinkFault;
using ::testing::Contains;
using ::testing::HasSubstr;
using ::testing::Not;

class ReplayedRuns : public LinkSessions {
 protected:
  int boards = 2;
  int pauseMs = 430;    ///< from board to board
  int hand = kNorth;    ///< of the first card of board 1
  bool presses = true;  ///< the operator presses the button, not the pedal

  void Deal(LinkSession& at) {
    test::FillSet(at.Desk.Prog.Set, 1, boards);
    at.Desk.Prog.Set.At(1) = test::RoundBoard(1, hand);
    if (!at.Open()) return;
    machine::RunMemory memory;
    machine::DealingRun run(at.Desk.Prog, at.TheMachine(), memory);
    Do(at, run, [&](int board) { board == 1 ? run.cmdDeal() : run.Deal_next(); });
  }
  void Read(LinkSession& at) {
    for (int n = 1; n <= boards; ++n) at.Desk.Prog.Set.At(n) = NumberedBoard(n);
    at.Desk.Prog.Set.FirstBoard = 1;
    at.Desk.Prog.Set.LastBoard = static_cast<std::int16_t>(boards);
    if (!at.Open()) return;
    machine::RunMemory memory;
    machine::ReadingRun run(at.Desk.Prog, at.TheMachine(), memory, [] {});
    Do(at, run, [&](int board) { board == 1 ? run.cmdDeal() : run.Deal_next(); });
  }
  void Sort(LinkSession& at) {
    if (!at.Open()) return;
    machine::RunMemory memory;
    machine::SortingRun run(at.Desk.Prog, at.TheMachine(), memory);
    Do(at, run, [&](int) { run.cmdSort(); });
  }

  void ExpectALogOf(const std::string& words) {
    EXPECT_THAT(first.LogLines(), Contains(HasSubstr(words)));
  }

 private:
  void Do(LinkSession& at, MachineRun& run, const std::function<void(int)>& press) {
    run.Open(at);
    at.Desk.Loop.WaitMs(MachineRun::kFirstContactMs);
    for (int board = 1; board <= boards && !run.Closed(); ++board) {
      at.Desk.Loop.WaitMs(pauseMs);
      if (run.Closed()) return;
      if (presses) {
        press(board);
      } else {
        if (simulated != nullptr) simulated->PressPedal();
        at.Desk.Loop.WaitMs(2 * MachineRun::kPollMs);
      }
    }
    if (!run.Closed()) run.Exit();
  }
};

TEST_F(ReplayedRuns, BoardsThatWereDealtWithFaultsOnABadLine) {
  const Script deal = [this](LinkSession& at) { Deal(at); };
  Trace(",seed=5,fault=1:20:25,fault=2:3:57", deal, [this] {
    simulated->Faults().AtCommand(wire::CmdDeal, 1, LinkFault::LoseReply());
    simulated->Faults().AtCommand(wire::CmdStatus, 7, LinkFault::CorruptReply());
    simulated->Faults().AtCommand(wire::CmdStatus, 40, LinkFault::CutReply(5));
    simulated->Faults().AtCommand(wire::CmdFetchLog, 1, LinkFault::LateReply());
  });
  ExpectALogOf("  001 : 1,0 0,0,0,0 25 OK");
  ASSERT_EQ(first.Errors.size(), 2U);
  const std::string text = test::Content(path);
  for (const char* words : {" ; nothing\n", " ; bad check\n", " ; half a frame\n"}) {
    EXPECT_THAT(text, HasSubstr(words));
  }
  ASSERT_EQ(Replay(deal), "");
  ExpectTheSame();
}

TEST_F(ReplayedRuns, ARunWhoseLinkWasLost) {
  const Script deal = [this](LinkSession& at) { Deal(at); };
  Trace("", deal, [this] {
    simulated->Faults().AtCommand(wire::CmdStatus, 30, LinkFault::LoseReply());
    simulated->Faults().AtCommand(wire::CmdStatus, 31, LinkFault::LoseReply());
  });
  ASSERT_FALSE(first.Desk.Ui.Boxes.empty());
  ASSERT_EQ(Replay(deal), "");
  ExpectTheSame();
}

TEST_F(ReplayedRuns, BoardsOnALineThatChangesBytes) {
  boards = 4;
  const Script deal = [this](LinkSession& at) { Deal(at); };
  Trace(",speed=0,seed=3,noise=0.004", deal);
  EXPECT_THAT(test::Content(path), HasSubstr(" ; bad check\n"));
  ASSERT_EQ(Replay(deal), "");
  ExpectTheSame();
}

TEST_F(ReplayedRuns, BoardsThatWereRead) {
  const Script read = [this](LinkSession& at) { Read(at); };
  Trace(",seed=5,fault=2:10:34", read);
  ExpectALogOf(" OK  ");
  ASSERT_EQ(first.Errors.size(), 1U);
  ASSERT_EQ(Replay(read), "");
  ExpectTheSame();
}

TEST_F(ReplayedRuns, APileThatWasSorted) {
  const Script sort = [this](LinkSession& at) { Sort(at); };
  Trace(",speed=20,seed=5,fault=1:100:30", sort);
  ExpectALogOf("Sort: ");
  ASSERT_EQ(Replay(sort), "");
  ExpectTheSame();
}

TEST_F(ReplayedRuns, ThePedalPressesItself) {
  presses = false;
  const Script deal = [this](LinkSession& at) { Deal(at); };
  Trace(",speed=0,seed=5", deal);
  ExpectALogOf("  002 : 1,0 0,0,0,0 OK");
  ASSERT_EQ(Replay(deal), "");
  ExpectTheSame();
}

TEST_F(ReplayedRuns, AnOperatorWhoIsQuickerOrSlower) {
  const Script deal = [this](LinkSession& at) { Deal(at); };
  Trace(",speed=0,seed=5,fault=1:20:25", deal);
  for (const int ms : {110, 5000}) {
    pauseMs = second.ThinkingMs = ms;
    ASSERT_EQ(Replay(deal), "") << ms;
    EXPECT_EQ(playback->Trace().Next(), nullptr) << ms;
    EXPECT_THAT(second.LogLines(), Contains(HasSubstr("  001 : 1,0 0,0,0,0 25 OK"))) << ms;
    EXPECT_THAT(second.LogLines(), Contains(HasSubstr("  002 : 1,0 0,0,0,0 OK"))) << ms;
    second.Disconnect();
  }
}

TEST_F(ReplayedRuns, AnotherBoardIsADifferenceThatNamesBothFrames) {
  const Script deal = [this](LinkSession& at) { Deal(at); };
  Trace(",speed=0,seed=5", deal);
  hand = kEast;
  const std::string trouble = Replay(deal);
  EXPECT_THAT(trouble, HasSubstr("The trace: CmdDeal begin: 98 00"));
  EXPECT_THAT(trouble, HasSubstr("The program: CmdDeal begin: 98 00"));
  EXPECT_THAT(trouble, HasSubstr("They differ at byte 8."));
  EXPECT_THAT(second.LogLines(), Not(Contains(HasSubstr(" OK"))));
  EXPECT_FALSE(second.Desk.Ui.Boxes.empty()) << "the link is lost";
}

TEST_F(ReplayedRuns, WithoutTheHandsAnyBoardsWillDo) {
  handsLeftOut = true;
  const Script deal = [this](LinkSession& at) { Deal(at); };
  Trace(",seed=5,fault=1:20:25,fault=2:3:57", deal,
        [this] { simulated->Faults().AtCommand(wire::CmdStatus, 7, LinkFault::CorruptReply()); });
  hand = kEast;
  ASSERT_EQ(Replay(deal), "");
  ExpectTheSame();
}

TEST_F(ReplayedRuns, WithoutTheHandsARunThatReadGoesItsCourseToo) {
  handsLeftOut = true;
  const Script read = [this](LinkSession& at) { Read(at); };
  Trace(",seed=5,fault=2:10:34", read);
  ASSERT_EQ(Replay(read), "");
  EXPECT_EQ(playback->Trace().Next(), nullptr);
  EXPECT_EQ(first.Desk.Ui.Boxes, second.Desk.Ui.Boxes);
}

TEST_F(ReplayedRuns, AnotherCourseIsADifference) {
  Trace(",speed=0,seed=5", [this](LinkSession& at) { Deal(at); });
  EXPECT_THAT(Replay([this](LinkSession& at) { Read(at); }),
              HasSubstr("The program: CmdRead begin: 9C 00"));
}

TEST_F(ReplayedRuns, ATraceInSeveralPartsIsPlayedAsOne) {
  largestPart = 300000;
  const Script deal = [this](LinkSession& at) { Deal(at); };
  Trace(",seed=5,fault=1:20:25", deal);
  ASSERT_TRUE(std::filesystem::exists(path + ".1"));
  ASSERT_EQ(Replay(deal), "");
  ExpectTheSame();
}

TEST_F(ReplayedRuns, OfATraceWithoutItsBeginningTheNextOpeningIsTheFirst) {
  boards = 1;
  const Script deal = [this](LinkSession& at) { Deal(at); };
  largestPart = 12000;
  Trace(",speed=0,seed=5", [&](LinkSession& at) {
    for (int evening = 0; evening < 20; ++evening) deal(at);
  });
  int evenings = 0;
  ASSERT_EQ(Replay([&](LinkSession& at) {
              for (; playback->Trace().Next() != nullptr && evenings < 20; ++evenings) deal(at);
            }),
            "");
  EXPECT_GE(evenings, 1);
  EXPECT_LT(evenings, 20);
  EXPECT_THAT(second.LogLines(), Contains(HasSubstr("  001 : 1,0 0,0,0,0 OK")).Times(evenings));
}

}  // namespace
}  // namespace morvane::bridges
