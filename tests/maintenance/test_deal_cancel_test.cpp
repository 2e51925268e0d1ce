#include "maintenance/test_deal_desk.h"
#include "support/frame_list.h"
#include "text/box_text.h"

namespace morvane::maintenance {
namespace {

using test::Bytes;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;
using End = TestDeal::End;

/// Who ends a test deal before its time: the operator, the program, or the cable.
class ADealCutShort : public TestDealDesk {
 protected:
  void CancelAtPoll(int polls) {
    AtPoll(polls, [this] { deal->TestDealCancel(); });
  }
  [[nodiscard]] bool LossIsTold() const {
    return desk.Ui.Boxes.size() == 1 && desk.Ui.Boxes[0].Text == desk.Prog.Texts.Msg055 &&
           desk.Ui.Boxes[0].Flags == kOkCritical && recoveries == 1;
  }
};

TEST_F(ADealCutShort, TheBreakGoesOutOnceWithTheNextPoll) {
  CancelAtPoll(2);
  EXPECT_EQ(Run({{255, 3}, {255, 6}, {255, 7}, {255, 7}, {57, 7}}), End::kCancelled);
  EXPECT_THAT(Breaks(), ElementsAre(0, 0, 1, 0, 0));
  EXPECT_TRUE(deal->TestDealCancelled());
  EXPECT_FALSE(deal->TestDealFailed());
  EXPECT_THAT(LogTexts(), ElementsAre("   Test Deal  57 Cancel"));
  EXPECT_EQ(view.Errors, 0);
  EXPECT_EQ(bridge.Sent.back()[0], 0x1A) << "the machine is idle again";
  EXPECT_THAT(desk.Ui.Boxes, IsEmpty());
}

TEST_F(ADealCutShort, CancelledAgainItSendsNoOtherBreak) {
  view.OnShow = [this] { deal->TestDealCancel(); };  // as a key that is held down
  EXPECT_EQ(Run({{255, 3}, {255, 6}, {255, 7}, {57, 7}}), End::kCancelled);
  EXPECT_THAT(Breaks(), ElementsAre(1, 0, 0, 0));
}

TEST_F(ADealCutShort, ACancelBeforeTheFirstPollGoesWithIt) {
  CancelAtPoll(0);
  EXPECT_EQ(Run({{57, 0}}), End::kCancelled);
  EXPECT_THAT(Breaks(), ElementsAre(1));
}

TEST_F(ADealCutShort, ADeckThatIsThroughBeforeTheBreakIsCancelledToo) {
  CancelAtPoll(1);
  EXPECT_EQ(Run({{255, 51}, {0, 52}}), End::kCancelled);
  EXPECT_THAT(LogTexts(), ElementsAre("   Test Deal  Cancel"));
  EXPECT_EQ(deal->TestStatusByte(), 0);
  EXPECT_EQ(deal->Totals().Finished, 0);
  EXPECT_EQ(Heard(0x1A), 0);
}

TEST_F(ADealCutShort, ABreakThatNobodyAskedForIsAFault) {
  EXPECT_EQ(Run({{57, 7}}), End::kDeclined);
  EXPECT_EQ(view.Errors, 1);
  EXPECT_THAT(LogTexts(), ElementsAre("   Test Deal  57"));
}

TEST_F(ADealCutShort, AWrongCardBehindACancelIsAFailure) {
  CancelAtPoll(1);
  EXPECT_EQ(Run({{255, 3}, {62, 4}}), End::kFailed);
  EXPECT_THAT(LogTexts(), ElementsAre("   Test Deal  62 expected: S6"));
}

TEST_F(ADealCutShort, WhoGoesOnBehindACancelIsNotCancelled) {
  CancelAtPoll(1);
  view.OnError = [](machine::ErrorDialog& dialog) { dialog.PressContinue(); };
  EXPECT_EQ(Run({{255, 3}, {55, 4}, {255, 9}, {0, 52}}), End::kRanOut);
  EXPECT_THAT(Breaks(), ElementsAre(0, 1, 0, 0));
  EXPECT_THAT(LogTexts(), ElementsAre("   Test Deal  55 OK"));
}

TEST_F(ADealCutShort, ACancelBehindItsEndChangesNothing) {
  Run({{0, 52}});
  deal->TestDealCancel();
  EXPECT_FALSE(deal->TestDealCancelled());
}

TEST_F(ADealCutShort, WhoeverLeavesBreaksIt) {
  AtPoll(2, [this] { leaving = true; });
  EXPECT_EQ(Run({{255, 3}, {255, 6}, {255, 7}, {57, 7}}), End::kCancelled);
  EXPECT_THAT(Breaks(), ElementsAre(0, 0, 1, 0));
  EXPECT_THAT(LogTexts(), ElementsAre("   Test Deal  57 Cancel"));
}

TEST_F(ADealCutShort, WhoeverLeavesWaitsAMomentForTheMachine) {
  AtPoll(2, [this] { leaving = true; });
  EXPECT_EQ(Run({{255, 3}}), End::kCancelled);
  // Seen at 300 ms, and 1000 ms later nothing more is asked: polls at 100, 200, ... 1200.
  EXPECT_EQ(Heard(0x19), 12);
  EXPECT_THAT(LogTexts(), ElementsAre("   Test Deal  Cancel"));
}

TEST_F(ADealCutShort, AProgramThatQuitsWaitsAMomentToo) {
  AtPoll(2, [this] {
    desk.Loop.Quit();
    leaving = true;
  });
  OnFrame = [this](const Bytes& /*plain*/) { desk.Clock.Spend(std::chrono::milliseconds(5)); };
  EXPECT_EQ(Run({{255, 3}}), End::kCancelled);
  EXPECT_EQ(Heard(0x19), 2 + 200);
  EXPECT_THAT(LogTexts(), SizeIs(1));
}

TEST_F(ADealCutShort, NobodyIsAskedWhoIsLeaving) {
  AtPoll(1, [this] { leaving = true; });
  EXPECT_EQ(Run({{255, 3}, {55, 4}}), End::kCancelled);
  EXPECT_EQ(view.Errors, 0);
  EXPECT_THAT(LogTexts(), ElementsAre("   Test Deal  55 Cancel"));
}

TEST_F(ADealCutShort, WhoLeavesInTheErrorDialogDoesNotGoOn) {
  view.OnError = [this](machine::ErrorDialog& dialog) {
    leaving = true;
    dialog.PressContinue();
  };
  EXPECT_EQ(Run({{255, 3}, {55, 4}}), End::kCancelled);
  EXPECT_EQ(Heard(0x98), 1);
  EXPECT_EQ(bridge.Sent.back()[0], 0x1A);
}

// The link.

TEST_F(ADealCutShort, AReplyThatIsBadOnceIsAskedForAgain) {
  for (const int code : {0x98, 0x19, 0x1A}) {
    Silent = [code](int sent, int nth) { return sent == code && nth == 1; };
    EXPECT_EQ(Run({{255, 1}, {1, 2}}), End::kDeclined) << code;
    EXPECT_EQ(Heard(code), code == 0x19 ? 3 : 2);
  }
  EXPECT_THAT(desk.Ui.Boxes, IsEmpty());
}

TEST_F(ADealCutShort, AnotherFrameInAPollsPlaceIsNoStatus) {
  int polls = 0;
  const auto usual = Damage;
  Damage = [&](const Bytes& plain, const Bytes& wire) {
    const bool stray = plain[0] == 0x19 && ++polls == 1;
    return stray ? test::OnTheWire(test::Short({0x1B, 4, 62}), 21) : usual(plain, wire);
  };
  EXPECT_EQ(Run({{0, 52}}), End::kRanOut);
  EXPECT_EQ(Heard(0x19), 2);
}

TEST_F(ADealCutShort, LostAtTheStart) {
  Silent = [](int code, int /*nth*/) { return code == 0x98; };
  EXPECT_EQ(Run({{255, 0}}), End::kLinkLost);
  EXPECT_TRUE(LossIsTold());
  EXPECT_THAT(bridge.Sent, SizeIs(2));
  EXPECT_THAT(LogTexts(), IsEmpty());
}

TEST_F(ADealCutShort, LostAtAPoll) {
  Silent = [](int code, int nth) { return code == 0x19 && nth >= 3; };
  EXPECT_EQ(Run({{255, 0}, {255, 1}}), End::kLinkLost);
  EXPECT_TRUE(LossIsTold());
  EXPECT_EQ(Heard(0x19), 4);
}

TEST_F(ADealCutShort, LostWhenItGoesOn) {
  Silent = [](int code, int nth) { return code == 0x98 && nth >= 2; };
  view.OnError = [](machine::ErrorDialog& dialog) { dialog.PressContinue(); };
  EXPECT_EQ(Run({{55, 3}}), End::kLinkLost);
  EXPECT_TRUE(LossIsTold());
}

TEST_F(ADealCutShort, LostAtTheVersion) {
  Silent = [](int code, int /*nth*/) { return code == 0x1A; };
  EXPECT_EQ(Run({{55, 3}}), End::kLinkLost);
  EXPECT_TRUE(LossIsTold());
  EXPECT_THAT(LogTexts(), ElementsAre("   Test Deal  55"));
}

TEST_F(ADealCutShort, LostInTheErrorDialogIsToldByBothWindows) {
  Silent = [](int /*code*/, int nth) { return nth > 1; };
  view.OnError = [this](machine::ErrorDialog& dialog) {
    Silent = [](int /*code*/, int /*nth*/) { return true; };
    desk.Loop.RunUntil([&] { return dialog.Closed(); });
  };
  EXPECT_EQ(Run({{55, 3}}), End::kLinkLost);
  ASSERT_THAT(desk.Ui.Boxes, SizeIs(2));
  EXPECT_EQ(desk.Ui.Boxes[0].Text,
            "            Lost Communication with Dealer  -  Dealing Aborted             ");
  EXPECT_EQ(desk.Ui.Boxes[1].Text, desk.Prog.Texts.Msg055);
  EXPECT_EQ(recoveries, 1);
}

}  // namespace
}  // namespace morvane::maintenance
