#include "bridges/usb_desk.h"
#include "machine/dealing_run.h"
#include "machine/open_link.h"
#include "support/fakes.h"
#include "support/usb_machine.h"

// Four boards over the emulated bus, to the end and unplugged on the way.

namespace morvane::machine {
namespace {

constexpr int kBoards = 4;
/// The probe, the version, both pages of the identity, the counter.
constexpr int kFramesOfContact = 5;
/// The start, a poll for each card and one behind the last, the card log, the probe.
constexpr int kFramesABoard = 55;

class UsbDealTest : public testing::Test, public RunView {
 protected:
  void SetUp() override {
    test::FillSet(desk_.Prog.Set, 1, kBoards);
    desk_.Ui.Default = kNo;
  }

  static simulator::Options Fast() {
    simulator::Options options;
    options.Speed = 0;
    options.Seed = 7;
    return options;
  }

  /// Opens the link and the run window, at `board`.
  void Contact(int board) {
    ASSERT_TRUE(OpenLink(desk_.Prog, machine_.Link, 200));
    run_ = std::make_unique<DealingRun>(desk_.Prog, machine_, memory_);
    run_->Open(*this);
    desk_.Loop.WaitMs(MachineRun::kFirstContactMs);
    ASSERT_FALSE(run_->Closed());
    run_->LeaveSubfrom(std::to_string(board));
  }
  /// Opens the link and the run window, and waits for the box of a contact that is lost.
  void ExpectLostContact(const std::string& text) {
    desk_.Ui.Boxes.clear();
    const auto start = bridges::steady_clock::now();
    run_ = std::make_unique<DealingRun>(desk_.Prog, machine_, memory_);
    run_->Open(*this);
    desk_.Loop.WaitMs(MachineRun::kFirstContactMs);
    EXPECT_TRUE(run_->Closed());
    ASSERT_EQ(desk_.Ui.Boxes.size(), 1U);
    EXPECT_EQ(desk_.Ui.Boxes.front().Text, text);
    EXPECT_FALSE(machine_.Link.IsOpen());
    EXPECT_LT(bridges::MsSince(start), 2000.0);
  }
  /// Whoever pulls the cable switches the machine off, too: it has forgotten the board.
  void PlugInAgain() {
    behind_.Machine.PowerOff();
    behind_.Machine.PowerOn();
    chip_.PlugIn();
  }
  void ExpectDealt(int board) {
    EXPECT_EQ(run_->LastOutcome(), MachineRun::Outcome::kDone);
    EXPECT_EQ(behind_.Machine.DealtBoard().Cards, desk_.Prog.Set.At(board).Cards);
    EXPECT_EQ(desk_.LogLines().back(), "  00" + std::to_string(board) + " : 1,0 0,0,0,0 OK");
  }

  void ShowState() override {}
  void ShowBoard() override {}
  void ShowControls() override {}
  void FocusNext() override {}
  void Close() override {}
  void ShowError(ErrorDialog& dialog) override { ADD_FAILURE() << dialog.Error_code; }

  test::TestDesk desk_;
  test::EmulatedBus bus_;
  test::EmulatedUsb& chip_ = bus_.Attach();
  test::UsbMachine behind_{chip_, Fast()};
  bridges::UsbDirect usb_{{}};
  Machine machine_{desk_.Random, usb_};
  RunMemory memory_;
  std::unique_ptr<DealingRun> run_;
};

TEST_F(UsbDealTest, FourBoardsAreDealtRight) {
  Contact(1);
  for (int board = 1; board <= kBoards; ++board) {
    SCOPED_TRACE(board);
    const int before = chip_.TransfersHeard();
    board == 1 ? run_->cmdDeal() : run_->Deal_next();
    ExpectDealt(board);
    EXPECT_EQ(chip_.TransfersHeard() - before, kFramesABoard);
  }
  EXPECT_EQ(behind_.Machine.BoardsDealt(), kBoards);
}

TEST_F(UsbDealTest, UnpluggedDuringTheFirstContactItIsLostAndTheNextOneWorks) {
  const auto& texts = desk_.Prog.Texts;
  for (int at = 1; at <= kFramesOfContact; ++at) {
    SCOPED_TRACE(at);
    ASSERT_TRUE(OpenLink(desk_.Prog, machine_.Link, 200));
    chip_.PullAt(at);
    ExpectLostContact(at <= 2 ? texts.Msg047 : texts.Msg048);
    PlugInAgain();
  }
  constexpr std::uint8_t kPurgeCode = 0x12;
  ASSERT_TRUE(OpenLink(desk_.Prog, machine_.Link, 200));
  chip_.PullAtRequest(kPurgeCode);
  ExpectLostContact(texts.Msg047);
  PlugInAgain();
  Contact(1);
}

TEST_F(UsbDealTest, ADisturbedBusDoesNotDisturbTheDeal) {
  Contact(1);
  chip_.FailNext(EPROTO, 3);
  run_->cmdDeal();
  ExpectDealt(1);
}

class UnpluggedDeal : public UsbDealTest, public testing::WithParamInterface<int> {};

TEST_P(UnpluggedDeal, AtEachExchangeTheLinkIsLostSoonAndTheNextOpeningWorks) {
  using Pulled = test::EmulatedUsb::Pulled;
  const int board = GetParam();
  const auto when = board % 2 == 1 ? Pulled::kBeforeItHears : Pulled::kBeforeItAnswers;
  for (int at = 1; at <= kFramesABoard; ++at) {
    SCOPED_TRACE(at);
    Contact(board);
    chip_.PullAt(at, when);
    const auto start = bridges::steady_clock::now();
    run_->cmdDeal();
    EXPECT_LT(bridges::MsSince(start), 2000.0);
    EXPECT_EQ(run_->LastOutcome(), MachineRun::Outcome::kLinkLost);
    EXPECT_EQ(desk_.Ui.Boxes.back().Text, desk_.Prog.Texts.Msg048);
    EXPECT_TRUE(run_->Closed());
    PlugInAgain();
  }
  EXPECT_EQ(desk_.Ui.Boxes.size(), std::size_t{kFramesABoard}) << "no other box";
  Contact(board);
  run_->cmdDeal();
  ExpectDealt(board);
}

INSTANTIATE_TEST_SUITE_P(Boards, UnpluggedDeal, testing::Range(1, kBoards + 1));

}  // namespace
}  // namespace morvane::machine
