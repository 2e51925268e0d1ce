#include "maintenance/auto_setup_command.h"

#include "maintenance/console_desk.h"
#include "maintenance/paper_camera.h"
#include "support/frame_list.h"
#include "wire/service_commands.h"

namespace morvane::maintenance {
namespace {

using test::Bytes;
using test::FakeUi;
using test::FramesAre;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

/// The whole flow of the button, at a machine whose camera is on paper.
class Command : public ConsoleDesk {
 protected:
  PaperCamera camera;

  /// The console of a machine whose standard record, or that of another `index`, has these limits.
  void StartWith(int symbol, int suit, wire::CardIndex index = wire::CardIndex::Standard,
                 const std::string& options = "") {
    Damage = nullptr;
    OnFrame = nullptr;
    Start(options);
    Damage = [this](const Bytes& plain, const Bytes& wire) {
      const Bytes reply = camera.ReplyTo(plain);
      return reply.empty() ? wire : reply;
    };
    console->SelectIndex(static_cast<int>(index));
    Type(Parameter::Sym_y_max, std::to_string(symbol));
    Type(Parameter::Suit_y_max, std::to_string(suit));
    desk.Ui.Answers = {kYes, kOk};
    console->save_param();
    ASSERT_EQ(Limits(index), std::pair(symbol, suit));
    bridge.Sent.clear();
    desk.Ui.Boxes.clear();
    desk.Ui.Answers.clear();
  }
  void Press(std::deque<int> answers) {
    desk.Ui.Answers = std::move(answers);
    console->AutoSetup_command();
  }
  /// `Sym_y_max`, `Suit_y_max` as the machine holds them.
  [[nodiscard]] std::pair<int, int> Limits(
      wire::CardIndex index = wire::CardIndex::Standard) const {
    const auto& record = sim->Parameters().Records[static_cast<std::size_t>(index)];
    return {record.Symbol.Limits.MaxY, record.Suit.Limits.MaxY};
  }
  [[nodiscard]] std::vector<std::string> Updates() const {
    std::vector<std::string> lines;
    for (const std::string& line : LinesWith("arameters")) {
      const bool box = line.starts_with("    ");
      if (!box) lines.push_back(line.substr(0, line.find(':')));
    }
    // The first is that of `StartWith`.
    return {lines.begin() + 1, lines.end()};
  }
  [[nodiscard]] std::vector<std::string> Texts() const {
    std::vector<std::string> texts;
    for (const FakeUi::Box& box : desk.Ui.Boxes) texts.push_back(box.Text);
    return texts;
  }
};

TEST_F(Command, AnOlderFirmwareIsToldAndNothingIsSent) {
  StartWith(90, 80, wire::CardIndex::Standard, "firmware=2.7F");
  Press({});
  ASSERT_EQ(desk.Ui.Boxes.size(), 1U);
  EXPECT_EQ(desk.Ui.Boxes[0],
            (FakeUi::Box{Fill(desk.Prog.Texts.Msg043, "***", "2.7F"), kOkCritical, "Auto Setup"}));
  EXPECT_THAT(bridge.Sent, IsEmpty());
  EXPECT_FALSE(machine.PollLock);
}

TEST_F(Command, WithoutACardNothingChangesButTheLightsStayOn) {
  StartWith(80, 70);
  Press({kCancel});
  EXPECT_EQ(desk.Ui.Boxes,
            (std::vector<FakeUi::Box>{{Fill(desk.Prog.Texts.Msg109, "***", "Standard"),
                                       kOkCancelInformation, "Auto Setup"}}));
  EXPECT_TRUE(FramesAre(bridge.Sent, {"17 30 00 .. .. .. .."}));
  EXPECT_EQ(console->Console().Outputs, 0x30);
  Poll();
  EXPECT_EQ(sim->Opened().Outputs(), 0x30);
}

TEST_F(Command, ThePromptNamesTheIndex) {
  for (const auto& [index, name] :
       {std::pair{wire::CardIndex::Jumbo, "Large"}, {wire::CardIndex::Small, "Small"}}) {
    StartWith(80, 70, index);
    Press({kCancel});
    EXPECT_THAT(Texts(), ElementsAre(Fill(desk.Prog.Texts.Msg109, "***", name)));
  }
}

TEST_F(Command, LimitsThatAreHighEnoughAreNotRaised) {
  StartWith(90, 80);
  Press({kOk, kYes, kOk});
  EXPECT_THAT(Updates(), ElementsAre("   Parameters update"));
  EXPECT_EQ(Limits(), std::pair(90, 80));
  EXPECT_THAT(Texts(),
              ElementsAre(HasSubstr("Standard"), desk.Prog.Texts.Msg116, desk.Prog.Texts.Msg056));
  EXPECT_EQ(Text(Parameter::pos_x), "20");
  EXPECT_EQ(Text(Parameter::pos_y), "110");
  EXPECT_EQ(Text(Parameter::start_x), "66");
  EXPECT_EQ(Text(Parameter::start_y), "60") << "2 x (80 - 20) / 3 + 20";
  EXPECT_EQ(sim->Parameters().Records[0].Positions.PosY, 110);
}

TEST_F(Command, OneLimitIsRaisedAndPutBackWhereTheSymbolsAreLow) {
  StartWith(80, 80);
  std::vector<std::pair<int, int>> during;
  view.OnSearch = [&] { during.push_back(Limits()); };
  Press({kOk, kYes, kOk});
  EXPECT_THAT(during, ::testing::Each(std::pair(86, 80)));
  EXPECT_THAT(Updates(),
              ElementsAre("   Autosetup temporary parameters update", "   Parameters update"));
  EXPECT_THAT(LinesWith("Autosetup temporary")[0], HasSubstr(",86,"));
  EXPECT_EQ(Limits(), std::pair(80, 80));
  EXPECT_EQ(Text(Parameter::Sym_y_max), "80");
}

TEST_F(Command, HighSymbolsKeepTheRaisedLimits) {
  StartWith(80, 70);
  camera.SymbolBottom = 92;
  Press({kOk, kYes, kOk});
  EXPECT_EQ(Limits(), std::pair(86, 76));
  EXPECT_EQ(Text(Parameter::Sym_y_max), "86");
}

TEST_F(Command, WithoutAYesTheMachineHoldsTheOldLimitsAgain) {
  StartWith(80, 70);
  const auto before = sim->Parameters();
  Press({kOk, kNo});
  EXPECT_EQ(sim->Parameters(), before);
  EXPECT_THAT(Updates(), ElementsAre("   Autosetup temporary parameters update",
                                     "   Autosetup revert parameters"));
  EXPECT_EQ(Text(Parameter::Sym_y_max), "80");
  EXPECT_EQ(Text(Parameter::Suit_y_max), "70");
  EXPECT_FALSE(console->Boxes().Edited()) << "nothing is asked when the console is left";
}

TEST_F(Command, ACardThatIsNotFoundLeavesTheOldLimits) {
  StartWith(80, 70);
  camera.SeenFrom = 256;
  Press({kOk});
  EXPECT_EQ(SubCodes(0x22).size(), 10U * 23) << "rows 110 to 20, columns 20 to 240";
  EXPECT_EQ(desk.Ui.Boxes.back(), (FakeUi::Box{desk.Prog.Texts.Msg117, kOkCritical, "Auto Setup"}));
  EXPECT_EQ(Limits(), std::pair(80, 70));
  EXPECT_THAT(desk.LogLines(), ::testing::Contains("   AutoSetup Failed for Standard"));
}

TEST_F(Command, CancelRevertsWithoutAWord) {
  StartWith(80, 70);
  view.OnSearch = [&] { view.Setup->Cancel(); };
  Press({kOk});
  EXPECT_THAT(Texts(), ElementsAre(HasSubstr("Standard")));
  EXPECT_EQ(SubCodes(0x22).size(), 1U);
  EXPECT_EQ(Limits(), std::pair(80, 70));
  EXPECT_THAT(Updates(), ElementsAre("   Autosetup temporary parameters update",
                                     "   Autosetup revert parameters"));
}

TEST_F(Command, AMissWritesTheOldValuesAlsoWhereNothingWasRaised) {
  StartWith(40, 30, wire::CardIndex::Small);
  Press({kOk, kNo});
  EXPECT_THAT(Updates(), ElementsAre("   Autosetup revert parameters"));
  EXPECT_EQ(Limits(wire::CardIndex::Small), std::pair(40, 30));
}

TEST_F(Command, NothingPollsMeanwhile) {
  StartWith(90, 80);
  Poll(3);
  bridge.Sent.clear();
  view.OnSearch = [&] {
    desk.Loop.WaitMs(5 * Maintenance::kPollMs);
    desk.Prog.Link = {LinkRequest::kDownload, "new.adc"};
  };
  Press({kOk, kNo});
  EXPECT_EQ(SubCodes(0x17).size(), 1U) << "the lights alone";
  EXPECT_THAT(LinesWith("Firmware file"), IsEmpty()) << "a firmware from outside waits";
  view.OnSearch = nullptr;
  desk.Loop.WaitMs(3 * Maintenance::kPollMs);
  EXPECT_THAT(LinesWith("Firmware file open"), ElementsAre("   Firmware file open: new.adc"));
}

TEST_F(Command, AProgramThatQuitsLeavesTheOldLimits) {
  StartWith(80, 70);
  view.OnSearch = [&] { desk.Loop.Quit(); };
  Press({kOk});
  EXPECT_EQ(SubCodes(0x22).size(), 1U);
  EXPECT_EQ(Limits(), std::pair(80, 70));
  desk.Loop.Restart();
}

TEST_F(Command, ALinkLostAtAnyExchangeEndsItBehindOneBox) {
  StartWith(80, 70);
  Press({kOk, kYes, kOk});
  const std::vector<Bytes> frames = bridge.Sent;
  for (std::size_t at = 1; at <= frames.size(); ++at) {
    if (frames[at - 1][0] == 0x13) continue;                  // nobody waits for an answer
    if (frames[at - 1][0] == 0x01 && at % 16 != 0) continue;  // one line in sixteen
    SCOPED_TRACE(at);
    StartWith(80, 70);
    Deaf = [&](const Bytes&) { return bridge.Sent.size() >= at; };
    Press({kOk, kYes, kOk});
    Deaf = nullptr;
    EXPECT_TRUE(console->Closed());
    EXPECT_EQ(bridge.Sent.size(), at + 1) << "the retry, and nothing behind it";
    EXPECT_EQ(desk.Ui.Boxes.back(),
              (FakeUi::Box{desk.Prog.Texts.Msg055, kOkCritical, "Communication Error"}));
    EXPECT_EQ(bridge.Overlaps, 0);
  }
}

}  // namespace
}  // namespace morvane::maintenance
