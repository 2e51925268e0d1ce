#include "maintenance/console_desk.h"
#include "maintenance/paper_deck.h"
#include "maintenance/test_deal.h"
#include "text/box_text.h"

namespace morvane::maintenance {
namespace {

using test::Bytes;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// A test deal within the console: who has the link, and who leaves.
class TestDealInConsole : public ConsoleDesk {
 protected:
  PaperDeck deck;

  void StartAtDeck(std::deque<PaperDeck::Status> plan) {
    Start();
    Poll();
    deck.Plan = std::move(plan);
    Damage = [this](const Bytes& plain, const Bytes& wire) {
      const Bytes reply = deck.ReplyTo(plain);
      return reply.empty() ? wire : reply;
    };
    bridge.Sent.clear();
    desk.Ui.Default = kCancel;
    desk.Ui.Answers = {kOk};
  }
  /// The codes of all that was sent.
  [[nodiscard]] std::vector<int> Codes() const {
    std::vector<int> codes;
    for (const Bytes& frame : bridge.Sent) codes.push_back(frame[0]);
    return codes;
  }
};

TEST_F(TestDealInConsole, NothingElseHasTheLinkMeanwhile) {
  StartAtDeck({{255, 5}, {255, 9}, {0, 52}});
  view.OnDeal = [this] {
    desk.Loop.WaitMs(500);
    console->Get_param();
    console->DealTest();
  };
  desk.Ui.OnBox = [this] { desk.Loop.WaitMs(500); };
  console->DealTest();
  EXPECT_THAT(Codes(), ElementsAre(0x9F, 0x98, 0x19, 0x19, 0x19));
  EXPECT_FALSE(machine.PollLock);
  Poll();
  EXPECT_EQ(bridge.Sent[5][0], 0x17) << "the poll goes on";
}

TEST_F(TestDealInConsole, ThePedalLetsNothingInEither) {
  StartAtDeck({{57, 5}, {57, 5, true}, {255, 9}, {0, 52}});
  view.OnError = [this](machine::ErrorDialog& dialog) {
    dialog.Open([] {});
    desk.Loop.RunUntil([&] { return dialog.Closed(); });
  };
  view.OnDeal = [this] { desk.Loop.WaitMs(500); };
  console->DealTest();
  EXPECT_THAT(Codes(), ElementsAre(0x9F, 0x98, 0x19, 0x19, 0x98, 0x19, 0x19));
}

TEST_F(TestDealInConsole, BeforeTheMachineIsKnownThereIsNone) {
  Open();
  console->DealTest();
  EXPECT_THAT(desk.Ui.Boxes, IsEmpty());
}

TEST_F(TestDealInConsole, LeavingTheConsoleBreaksItAndThenLeaves) {
  StartAtDeck({{255, 5}, {255, 6}, {57, 6}});
  bool once = true;
  view.OnDeal = [&] {
    if (view.Deal->CardsDealt() == 6 && std::exchange(once, false)) console->Exit();
  };
  console->DealTest();
  EXPECT_THAT(Codes(), ElementsAre(0x9F, 0x98, 0x19, 0x19, 0x19, 0x1A));
  EXPECT_EQ(bridge.Sent[4][1] & 1, 1);
  EXPECT_TRUE(console->Closed());
  EXPECT_EQ(view.Closes, 1);
}

TEST_F(TestDealInConsole, ALostLinkClosesTheConsole) {
  StartAtDeck({{255, 5}});
  const auto usual = Damage;
  Damage = [&](const Bytes& plain, const Bytes& wire) {
    return plain[0] == 0x19 ? Bytes{} : usual(plain, wire);
  };
  console->DealTest();
  EXPECT_THAT(Codes(), ElementsAre(0x9F, 0x98, 0x19, 0x19));
  EXPECT_TRUE(console->Closed());
  EXPECT_EQ(desk.Ui.Boxes.back().Text, desk.Prog.Texts.Msg055);
}

TEST_F(TestDealInConsole, AVerdictThatComesUnaskedIsNoAnswer) {
  StartAtDeck({{255, 5}, {62, 8}});
  const auto usual = Damage;
  Damage = [&](const Bytes& plain, const Bytes& wire) {
    Bytes reply = usual(plain, wire);
    if (plain[0] != 0x19) return reply;
    Bytes both = test::OnTheWire(test::Short({0x15, 0, 7, 4, 3, 46, 0}), 21);
    both.insert(both.end(), reply.begin(), reply.end());
    return both;
  };
  console->DealTest();
  EXPECT_THAT(Codes(), ElementsAre(0x9F, 0x98, 0x19, 0x19, 0x25));
  EXPECT_EQ(console->Bench().Shown().Verdict.Symbol, "9") << "what it stopped at";
  EXPECT_THAT(LinesWith("   Test Deal"), ElementsAre("   Test Deal  62 expected: ST"));
}

}  // namespace
}  // namespace morvane::maintenance
