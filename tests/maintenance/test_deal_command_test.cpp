#include "maintenance/test_deal_command.h"

#include "maintenance/console_desk.h"
#include "maintenance/paper_deck.h"
#include "support/frame_list.h"
#include "text/box_text.h"

namespace morvane::maintenance {
namespace {

using test::Bytes;
using test::FakeUi;
using test::FramesAre;
using ::testing::Each;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;
using End = TestDeal::End;

/// The button, at a machine on paper.
class TestCommand : public ServiceDesk, protected ConsoleHost {
 protected:
  NotedView view;
  PaperDeck deck;
  bool leaving = false;
  ConsolePoll poll{link, machine, [] {}};
  ParameterBlock parameters{desk.Prog, link, machine};
  PictureStore pictures;
  RecognitionBench bench{desk.Prog, link, machine, parameters, pictures, *this};
  ServiceFileRun run;
  std::vector<bool> files;  ///< `TestDealError`, of each service file that was made
  /// Frames of that code are not answered.
  int silentCode = -1;

  void SetUp() override {
    ServiceDesk::SetUp();
    Wire();
    desk.Ui.Default = kCancel;
  }
  void Wire() {
    RuntimeError error;
    ASSERT_TRUE(desk.Prog.Log.Start(desk.Folder.Path(), error));
    machine.PollLock = true;
    Damage = [this](const Bytes& plain, const Bytes& wire) {
      if (plain[0] == silentCode) return Bytes{};
      const Bytes reply = deck.ReplyTo(plain);
      return reply.empty() ? wire : reply;
    };
  }
  void Press(std::deque<int> answers, std::deque<PaperDeck::Status> plan) {
    desk.Ui.Answers = std::move(answers);
    deck.Plan = std::move(plan);
    TestDealCommand(desk.Prog, link, machine, poll, parameters, bench, run, *this, [this] {
      files.push_back(run.TestDealError);
    }).Run();
    EXPECT_FALSE(run.TestDealError) << "the next service file asks again";
  }
  [[nodiscard]] std::vector<std::string> Texts() const {
    std::vector<std::string> texts;
    for (const FakeUi::Box& box : desk.Ui.Boxes) texts.push_back(box.Text);
    return texts;
  }
  [[nodiscard]] const Messages& Words() const { return desk.Prog.Texts; }

  void AtMachine(const std::function<void()>& work) override { work(); }
  [[nodiscard]] MaintenanceView& View() override { return view; }
  [[nodiscard]] bool Leaving() const override { return leaving || desk.Loop.Quitting(); }
};

TEST_F(TestCommand, AnOlderFirmwareIsRefusedUnderAnotherCaption) {
  machine.Version.FirmwareMinor = 0x82;
  Press({}, {{0, 52}});
  EXPECT_EQ(
      desk.Ui.Boxes,
      (std::vector<FakeUi::Box>{{Fill(Words().Msg044, "***", "2.82"), kOkCritical, "Auto Setup"}}));
  EXPECT_THAT(bridge.Sent, IsEmpty());
}

TEST_F(TestCommand, TheFirstFirmwareThatCanIsAskedFor) {
  machine.Version.FirmwareMinor = 0x83;
  Press({kCancel}, {{0, 52}});
  EXPECT_EQ(desk.Ui.Boxes, (std::vector<FakeUi::Box>{{Words().Msg120, kOkCancel, "Test Deal"}}));
  EXPECT_THAT(bridge.Sent, IsEmpty());
}

TEST_F(TestCommand, TheVersionIsToldInHexadecimal) {
  machine.Version.FirmwareMinor = 0x7F;
  Press({}, {{0, 52}});
  EXPECT_THAT(Texts(), ElementsAre(Fill(Words().Msg044, "***", "2.7F")));
}

TEST_F(TestCommand, TellsTheMachineWhatToExpect) {
  Press({kOk, kCancel}, {{0, 52}});
  ASSERT_THAT(bridge.Sent, SizeIs(3));
  const Bytes& route = bridge.Sent[0];
  EXPECT_EQ((Bytes{route.begin(), route.begin() + 6}), (Bytes{159, 52, 1, 0, 0, 0}));
  for (int card = 1; card <= 52; ++card) EXPECT_EQ(route[static_cast<std::size_t>(card) + 7], card);
  EXPECT_EQ((Bytes{route.begin() + 60, route.begin() + 63}), (Bytes{0, 0, 0}));
  EXPECT_EQ(bridge.Sent[1][0], 0x98);
  EXPECT_EQ(bridge.Sent[2][0], 0x19);
}

TEST_F(TestCommand, DealsTheCardsThatAreSelected) {
  parameters.CardSelection = {.National = 1, .CardType = 0, .Threshold = 2, .CardIndex = 1};
  Press({kOk, kCancel}, {{0, 52}});
  EXPECT_EQ(bridge.Sent[1][2], 0x1C);
}

TEST_F(TestCommand, TheConsoleForgetsTheBoardAndSwitchesOff) {
  ASSERT_TRUE(poll.Poll(false));
  ASSERT_NE(poll.Now().Board_no_txt, "");
  const std::string raw = poll.Now().Board_no_test_txt;
  poll.Outputs = 0xFF;
  bool cleared = false;
  view.OnShow = [&] { cleared = poll.Now().Board_no_txt.empty() && poll.Outputs == 0xCE; };
  Press({kOk, kCancel}, {{0, 52}});
  EXPECT_TRUE(cleared);
  EXPECT_EQ(poll.Now().Board_no_test_txt, raw);
}

TEST_F(TestCommand, ACleanDeckIsDealtUntilTheOperatorHasEnough) {
  std::vector<std::pair<int, int>> totals;
  view.OnDeal = [&] {
    if (view.Deal->Result() == End::kRanOut) {
      totals.emplace_back(view.Deal->Totals().Finished, view.Deal->Totals().Cards);
      deck.Plan = {{255, 7}, {0, 52}};
    }
  };
  Press({kOk, kOk, kOk, kCancel}, {{0, 52}});
  EXPECT_THAT(Texts(), ElementsAre(Words().Msg120, Words().Msg123, Words().Msg123, Words().Msg123));
  for (const FakeUi::Box& box : desk.Ui.Boxes) {
    EXPECT_EQ(box.Flags, kOkCancel);
    EXPECT_EQ(box.Title, "Test Deal");
  }
  EXPECT_THAT(totals, ElementsAre(std::pair(1, 52), std::pair(2, 104), std::pair(3, 156)));
  EXPECT_THAT(SubCodes(0x9F), ElementsAre(52, 52, 52));
  EXPECT_THAT(SubCodes(0x98), ElementsAre(0, 0, 0));
  EXPECT_THAT(files, IsEmpty());
}

TEST_F(TestCommand, AWrongCardIsNamedAndMakesAServiceFile) {
  deck.Verdict = {0x25, 0, 7, 11, 1, 46, 62};
  Press({kOk, kOk}, {{255, 2}, {62, 8}});
  EXPECT_THAT(Texts(), ElementsAre(Words().Msg120,
                                   "     The JS was recognised but ST was expected.    \r\n\r\n"
                                   "     Click OK to generate Service File.       "));
  EXPECT_EQ(desk.Ui.Boxes[1].Flags, kOkCancel);
  EXPECT_EQ(desk.Ui.Boxes[1].Title, "Test Deal");
  EXPECT_TRUE(FramesAre({bridge.Sent.back()}, {"25 .. .. .. .. .. .."}));
  EXPECT_THAT(files, ElementsAre(true));
}

TEST_F(TestCommand, AnUnreadableCardIsToldByItsCode) {
  deck.Verdict = {0x25, 0, 7, 61, 0, 46, 30};
  Press({kOk, kOk}, {{30, 8}});
  EXPECT_THAT(Texts(), ElementsAre(Words().Msg120,
                                   "     Error 30 was encountered during Test Deal.    \r\n\r\n"
                                   "     Click OK to generate Service File.       "));
  EXPECT_THAT(files, ElementsAre(true));
}

TEST_F(TestCommand, TheVerdictsCodeIsToldAlsoWhereThePollHadAnother) {
  deck.Verdict = {0x25, 0, 7, 11, 1, 46, 54};
  Press({kOk, kCancel}, {{62, 8}});
  EXPECT_EQ(Texts()[1], Fill(Words().Msg121, "***", "54"));
  deck.Verdict = {0x25, 0, 7, 11, 1, 46, 0};
  desk.Ui.Boxes.clear();
  Press({kOk, kCancel}, {{62, 8}});
  EXPECT_EQ(Texts()[1], Fill(Words().Msg121, "***", "0"));
}

TEST_F(TestCommand, WithoutAnOkThereIsNoServiceFile) {
  Press({kOk, kCancel}, {{62, 8}});
  EXPECT_THAT(files, IsEmpty());
}

TEST_F(TestCommand, WhatWasSeenIsShownBesideTheQuestion) {
  std::vector<std::string> seen;
  view.OnDeal = [&] { seen.push_back(view.Deal->SeenCard()); };
  desk.Ui.OnBox = [&] { seen.emplace_back("box"); };
  Press({kOk, kCancel}, {{62, 8}});
  EXPECT_THAT(seen, ElementsAre("box", "", "", "", "9S", "box"));
}

TEST_F(TestCommand, ADeclinedFaultAsksNothingMore) {
  view.OnError = [](machine::ErrorDialog& dialog) { dialog.PressCancel(); };
  Press({kOk}, {{55, 8}});
  EXPECT_THAT(Texts(), ElementsAre(Words().Msg120));
  EXPECT_EQ(bridge.Sent.back()[0], 0x1A);
  EXPECT_THAT(files, IsEmpty());
}

TEST_F(TestCommand, ACancelAsksNothingMore) {
  for (const std::uint8_t code : {std::uint8_t{57}, std::uint8_t{0}}) {
    desk.Ui.Boxes.clear();
    bool once = true;
    view.OnDeal = [&] {
      if (std::exchange(once, false)) view.Deal->TestDealCancel();
    };
    Press({kOk}, {{255, 8}, {code, 8}});
    EXPECT_THAT(Texts(), ElementsAre(Words().Msg120)) << int{code};
  }
}

TEST_F(TestCommand, ALostLinkEndsItWithoutAnotherWord) {
  const std::vector<std::pair<int, std::uint8_t>> places{
      {0x9F, 62}, {0x98, 62}, {0x19, 62}, {0x25, 62}};
  for (const auto& [code, status] : places) {
    ServiceLink fresh(desk.Prog, machine, [this] { ++recoveries; });
    desk.Ui.Boxes.clear();
    bridge.Sent.clear();
    recoveries = 0;
    silentCode = code;
    desk.Ui.Answers = {kOk};
    deck.Plan = {{status, 8}};
    TestDealCommand(desk.Prog, fresh, machine, poll, parameters, bench, run, *this, [this] {
      files.push_back(true);
    }).Run();
    EXPECT_THAT(Texts(), ElementsAre(Words().Msg120, Words().Msg055)) << code;
    EXPECT_EQ(bridge.Sent.back()[0], code);
    EXPECT_EQ(recoveries, 1);
    EXPECT_FALSE(run.TestDealError);
  }
  EXPECT_THAT(files, IsEmpty());
}

TEST_F(TestCommand, WhoLeavesAtThePromptSendsNothing) {
  desk.Ui.OnBox = [this] { leaving = true; };
  Press({kOk}, {{0, 52}});
  EXPECT_THAT(bridge.Sent, IsEmpty());
}

TEST_F(TestCommand, WhoLeavesMeanwhileIsNotAsked) {
  for (const std::uint8_t code : {std::uint8_t{62}, std::uint8_t{0}}) {
    leaving = false;
    desk.Ui.Boxes.clear();
    view.OnDeal = [this] { leaving = true; };
    Press({kOk}, {{255, 3}, {code, 8}});
    EXPECT_THAT(Texts(), ElementsAre(Words().Msg120)) << int{code};
  }
  EXPECT_THAT(SubCodes(0x25), IsEmpty());
}

TEST_F(TestCommand, WhoLeavesAtAQuestionEndsIt) {
  int boxes = 0;
  desk.Ui.OnBox = [&] { leaving = ++boxes == 2; };
  Press({kOk, kOk}, {{0, 52}});
  EXPECT_THAT(SubCodes(0x9F), SizeIs(1));
}

}  // namespace
}  // namespace morvane::maintenance
