#include <gmock/gmock.h>

#include "cli/camera_desk.h"
#include "maintenance/paper_deck.h"
#include "platform/files.h"

// maintain test-deal.

namespace morvane::cli {
namespace {

using ::testing::ElementsAre;
using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;
using ::testing::SizeIs;
using ::testing::StartsWith;

struct Desk : CameraDesk {
  explicit Desk(bool yes = true, const std::string& more = "") : CameraDesk(yes, more), Yes(yes) {
    Bridge.Answer = [this, usual = Bridge.Answer](const test::Bytes& plain) {
      if (OnDeck) OnDeck(plain);
      if (IsSilent(plain)) return test::Bytes{};
      const bool deals = plain[0] == 0x9F || !Sent(0x9F).empty();
      const test::Bytes reply = deals ? Deck.ReplyTo(plain) : test::Bytes{};
      return reply.empty() ? usual(plain) : reply;
    };
  }
  maintenance::PaperDeck Deck;
  std::function<void(const test::Bytes& plain)> OnDeck;
  int Silent = -1;  ///< frames of that code are not answered
  const bool Yes;

  ExitStatus TestDeal(std::deque<maintenance::PaperDeck::Status> plan,
                      std::optional<int> index = {}) {
    Deck.Plan = std::move(plan);
    return RunOn(Bridge, MaintainTestDealOptions{.Index = index, .Yes = Yes});
  }
  /// Somebody at the terminal who types these lines.
  void Types(std::deque<std::string> lines) {
    Screen.Person = true;
    Screen.Lines = std::move(lines);
  }
  /// Does it when so many decks have been begun.
  void AtDeal(std::size_t number, const std::function<void()>& does) {
    OnDeck = [this, number, does](const test::Bytes& plain) {
      if (plain[0] == 0x98 && Sent(0x98).size() == number) does();
    };
  }
  [[nodiscard]] std::vector<std::string> TestLines() const {
    std::vector<std::string> lines;
    for (const std::string& line : LogLines()) {
      if (line.starts_with("   Test Deal")) lines.push_back(line);
    }
    return lines;
  }

 private:
  [[nodiscard]] bool IsSilent(const test::Bytes& plain) const { return plain[0] == Silent; }
};

TEST(MaintainTestDeal, DealsAgainUntilThereIsADifference) {
  Desk desk;
  desk.Deck.Verdict = {0x25, 0, 7, 11, 1, 46, 62};
  const std::string file = JoinPath(desk.Prog.Paths.Data, "Service_file_4711_2026_3_3__1.txt");
  EXPECT_EQ(desk.TestDeal({{255, 9}, {0, 52}, {0, 52}, {62, 8}}), kFailed);
  EXPECT_EQ(desk.Screen.Output,
            "Deal   1  0.2 s  OK, 52 cards\n"
            "Deal   2  0.1 s  OK, 52 cards\n"
            "Deal   3  0.1 s  Stopped at card 9, error 62: expected ST, seen JS\n"
            "Service_file: " +
                file + "\n");
  EXPECT_THAT(desk.Screen.Errors, StartsWith("Test Deal: You have entered Test Deal function."))
      << "how the deck is to lie is told";
  EXPECT_THAT(desk.Screen.Errors, HasSubstr("The JS was recognised but ST was expected."));
  EXPECT_THAT(desk.TestLines(),
              ElementsAre("   Test Deal  OK", "   Test Deal  OK", "   Test Deal  62 expected: ST"));
}

TEST(MaintainTestDeal, AnUnreadableCardIsADifferenceToo) {
  Desk desk;
  desk.Deck.Verdict = {0x25, 0, 7, 61, 0, 46, 30};
  EXPECT_EQ(desk.TestDeal({{30, 51}}), kFailed);
  EXPECT_THAT(desk.Screen.Output,
              StartsWith("Deal   1  0.1 s  Stopped at card 52, error 30: expected CA\n"));
}

TEST(MaintainTestDeal, WithoutYesItAsksWhatTheDesktopAsks) {
  Desk desk(/*yes=*/false);
  desk.Types({"o", "o", "c"});
  EXPECT_EQ(desk.TestDeal({{0, 52}}), kDone);
  EXPECT_THAT(desk.Screen.Errors, StartsWith("Test Deal: You have entered Test Deal function."));
  EXPECT_THAT(desk.Screen.Errors, EndsWith("Click OK to deal again.\n[o]k, [c]ancel? "));
  EXPECT_THAT(desk.Sent(0x98), ElementsAre(0, 0));
}

TEST(MaintainTestDeal, ADifferenceIsAFailureAlsoWithoutItsServiceFile) {
  Desk desk(/*yes=*/false);
  desk.Types({"o", "c"});
  EXPECT_EQ(desk.TestDeal({{62, 8}}), kFailed);
  EXPECT_THAT(desk.Screen.Errors, HasSubstr("The 9S was recognised but ST was expected."));
  EXPECT_THAT(desk.Screen.Output, EndsWith("expected ST, seen 9S\n"));
}

TEST(MaintainTestDeal, WithNobodyToAskNothingIsDealt) {
  Desk desk(/*yes=*/false);
  EXPECT_EQ(desk.TestDeal({{0, 52}}), kFailed);
  EXPECT_THAT(desk.Screen.Errors, EndsWith("Nothing is dealt.\n"));
  EXPECT_THAT(desk.Sent(0x9F), IsEmpty());
  EXPECT_THAT(desk.Sent(0x98), IsEmpty());
}

TEST(MaintainTestDeal, YesIsNotForAFault) {
  Desk desk;
  EXPECT_EQ(desk.TestDeal({{55, 16}, {0, 52}, {62, 0}}), kFailed);
  EXPECT_THAT(desk.Sent(0x98), ElementsAre(0)) << "an empty feeder would be asked for ever";
  EXPECT_THAT(desk.Screen.Errors, EndsWith("Card Feeding Error\nError Code: 55\nCard 17 of 52\n"));
  EXPECT_THAT(desk.TestLines(), ElementsAre("   Test Deal  55"));
}

TEST(MaintainTestDeal, ALinkLostBeforeAnotherDealIsAFailure) {
  Desk desk;
  desk.AtDeal(2, [&] { desk.Silent = 0x9F; });
  EXPECT_EQ(desk.TestDeal({{0, 52}, {0, 52}}), kFailed);
  EXPECT_THAT(desk.TestLines(), ElementsAre("   Test Deal  OK", "   Test Deal  OK"));
}

TEST(MaintainTestDeal, AnyOtherFaultEndsIt) {
  Desk desk;
  EXPECT_EQ(desk.TestDeal({{0, 52}, {9, 3}}), kFailed);
  EXPECT_THAT(desk.Screen.Output, EndsWith("Deal   2  0.1 s  Error 9 after 3 cards\n"));
  EXPECT_EQ(desk.Bridge.Sent.back()[0], 0x1A);
}

TEST(MaintainTestDeal, AFaultIsAnsweredAtTheTerminal) {
  Desk desk(/*yes=*/false);
  desk.Types({"o", "1", "c"});
  EXPECT_EQ(desk.TestDeal({{255, 1}, {55, 16}, {0, 52}}), kDone);
  EXPECT_THAT(desk.Screen.Errors, HasSubstr("1 Continue  2 Cancel  ? "));
  EXPECT_THAT(desk.Sent(0x98), ElementsAre(0, 1));
}

TEST(MaintainTestDeal, AnInterruptBreaksTheDeal) {
  for (const std::size_t deal : {1U, 3U}) {
    Desk desk;
    desk.AtDeal(deal, [&] {
      desk.Deck.Plan = {{255, 3}, {57, 3}};
      desk.Loop.Quit();
    });
    EXPECT_EQ(desk.TestDeal({{0, 52}}), kFailed);
    EXPECT_THAT(desk.Sent(0x98), SizeIs(deal));
    EXPECT_EQ(desk.TestLines().back(), "   Test Deal  57 Cancel");
    EXPECT_THAT(desk.Screen.Output, EndsWith("Cancelled after 3 cards\n"));
    EXPECT_THAT(desk.Screen.Errors, EndsWith("Broken off.\n"));
    EXPECT_EQ(desk.Sent(0x19).back() & 1, desk.Sent(0x19).size() == deal + 1 ? 0 : 1);
  }
}

TEST(MaintainTestDeal, AnInterruptInTheQuestionAboutAFaultEndsIt) {
  Desk desk(/*yes=*/false);
  desk.Types({"o"});
  desk.OnDeck = [&](const test::Bytes& plain) {
    if (plain[0] == 0x19 && desk.Sent(0x19).size() == 5) desk.Loop.Quit();
  };
  EXPECT_EQ(desk.TestDeal({{55, 16}}), kFailed);
  EXPECT_EQ(desk.TestLines().back(), "   Test Deal  55 Cancel");
  EXPECT_THAT(desk.Screen.Errors, EndsWith("Broken off.\n"));
}

TEST(MaintainTestDeal, ALinkLostIsToldOnce) {
  for (const int code : {0x9F, 0x98, 0x19, 0x25}) {
    Desk desk;
    desk.Silent = code;
    EXPECT_EQ(desk.TestDeal({{62, 8}}), kFailed);
    EXPECT_THAT(
        desk.Screen.Errors,
        EndsWith("Communication Error: Lost Communication with Morvane  -  Maintenance Aborted!\n"))
        << code;
  }
}

TEST(MaintainTestDeal, AnOlderFirmwareIsTold) {
  Desk desk(/*yes=*/true, ",firmware=2.82");
  EXPECT_EQ(desk.TestDeal({{0, 52}}), kFailed);
  EXPECT_THAT(desk.Screen.Errors, StartsWith("Auto Setup: Test Deal function requires"));
  EXPECT_THAT(desk.Screen.Errors, HasSubstr("Current Firmware version is 2.82"));
  EXPECT_THAT(desk.Screen.Errors, EndsWith("Nothing is dealt.\n"));
}

TEST(MaintainTestDeal, AMachineWithoutFirmwareHasNone) {
  Desk desk(/*yes=*/true, ",boot=0.00");
  EXPECT_EQ(desk.TestDeal({{0, 52}}), kFailed);
  EXPECT_THAT(desk.Screen.Errors, StartsWith("The machine holds no firmware"));
}

TEST(MaintainTestDeal, OfTheIndexAskedFor) {
  Desk desk;
  desk.TestDeal({{62, 0}}, /*index=*/2);
  EXPECT_EQ(desk.Sent(0x98, 2), std::vector<int>{6});
  EXPECT_EQ(desk.Sent(0x98, 6), std::vector<int>{4});
  EXPECT_FALSE(desk.Store.Has(kCardIndex));
}

TEST(MaintainTestDeal, ATerminalSeesHowFarTheDealIs) {
  Desk desk;
  desk.Screen.Progress = true;
  desk.TestDeal({{255, 17}, {62, 20}});
  EXPECT_THAT(desk.Screen.Output, HasSubstr("Deal   1  17 of 52 cards  0.1 s"));
  Desk quiet;
  quiet.TestDeal({{255, 17}, {62, 20}});
  EXPECT_THAT(quiet.Screen.Output, Not(HasSubstr("17 of 52 cards")));
}

}  // namespace
}  // namespace morvane::cli
