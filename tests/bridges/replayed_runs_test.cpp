#include "bridges/replayed_runs.h"

namespace morvane::bridges {
namespace {

using simulator::LinkFault;
using ::testing::Contains;
using ::testing::HasSubstr;
using ::testing::Not;

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
  starts = Start::kPedal;
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
  std::size_t evenings = 0;
  ASSERT_EQ(Replay([&](LinkSession& at) {
              for (; playback->Trace().Next() != nullptr && evenings < 20; ++evenings) deal(at);
            }),
            "");
  EXPECT_GE(evenings, 1U);
  EXPECT_LT(evenings, 20U);
  EXPECT_THAT(second.LogLines(), Contains(HasSubstr("  001 : 1,0 0,0,0,0 OK")).Times(evenings));
}

}  // namespace
}  // namespace morvane::bridges
