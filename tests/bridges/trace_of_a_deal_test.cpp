// Whether a trace that is handed on tells who has which card.

#include <algorithm>
#include <array>
#include <numeric>
#include <random>

#include "bridges/trace_desk.h"
#include "machine/hand_list.h"
#include "machine/machine_link.h"
#include "simulator/simulated_machine.h"
#include "wire/commands.h"
#include "wire/picture_commands.h"
#include "wire/service_commands.h"

namespace morvane::bridges {
namespace {

/// Cards by what a set calls them: element 0 stands for card 1.
using Cards = std::array<int, kCards>;

Cards Shuffled(unsigned seed) {
  Cards cards{};
  std::iota(cards.begin(), cards.end(), 1);
  std::mt19937 random(seed);
  std::shuffle(cards.begin(), cards.end(), random);
  return cards;
}

/// A machine that deals and reads, and the program's end of its link.
class TracedTable {
 public:
  TracedTable(const TraceOrder& order, test::VirtualClock& clock, unsigned seed)
      : usb_(Simulated(clock), order, clock), link_(usb_), filler_(seed) {
    usb_.Open(0, link_.UsbHandle);
    usb_.SetTimeouts(200, 200);
  }

  simulator::SimulatedMachine& Machine() { return *machine_; }

  template <typename C>
  void Ask(const C& command) {
    link_.TxFrame = {};
    for (std::uint8_t& byte : wire::Filler(link_.TxFrame)) {
      byte = static_cast<std::uint8_t>(filler_());
    }
    wire::Put(command, link_.TxFrame);
    link_.SendFrame();
    link_.ReceiveFrame();
    ASSERT_EQ(link_.RxStatus, machine::MachineLink::kGood);
  }
  void RunToTheEnd() {
    do {
      Ask(wire::StatusCommand{});
    } while (wire::Get<wire::StatusReply>(link_.RxFrame).State > wire::StatusReply::kLastError);
    EXPECT_EQ(wire::Get<wire::StatusReply>(link_.RxFrame).State, wire::StatusReply::kIdle);
    Ask(wire::FetchLogCommand{});
  }

 private:
  std::unique_ptr<UsbXpress> Simulated(test::VirtualClock& clock) {
    simulator::Options options;
    options.Speed = 0;
    options.Seed = 1;
    auto machine = std::make_unique<simulator::SimulatedMachine>(options, clock);
    machine_ = machine.get();
    return machine;
  }

  simulator::SimulatedMachine* machine_ = nullptr;
  TracedBridge usb_;
  machine::MachineLink link_;
  std::mt19937 filler_;
};

class TraceOfADeal : public test::TraceDesk {
 protected:
  /// The whole trace of a program whose filler begins with `seed`: of a deal in which the n-th card
  /// of `pack` goes to the same hand whichever card it is, of its reading, of a card that the
  /// machine stops at, and of pictures and verdicts.
  std::string Trace(const Cards& pack, bool handsLeftOut, unsigned seed = 1) {
    test::VirtualClock clock;
    auto order = Order();
    order.Path = Folder / ("trace" + std::to_string(++traces_));
    order.HandsLeftOut = handsLeftOut;
    {
      TracedTable table(order, clock, seed);
      DealAndRead(table, pack);
      TestDeal(table);
    }
    return test::Content(order.Path);
  }

 private:
  static void DealAndRead(TracedTable& table, const Cards& pack) {
    const Board board = BoardOf(pack);
    EXPECT_TRUE(table.Machine().LoadPack(pack));
    wire::StartCommand start;
    start.Pockets = machine::HandListOf(board);
    table.Ask(start);
    table.RunToTheEnd();
    table.Machine().LayBoard(board);
    start.Code = wire::CmdRead;
    start.Pockets = machine::PocketsOfPlayedBoard();
    start.Places = machine::kPlayedPlaces;
    table.Ask(start);
    table.RunToTheEnd();
    table.Ask(wire::FetchBoardCommand{});
    table.Ask(wire::ErrorVerdictCommand{});
    table.Ask(wire::ErrorPictureLineCommand{.Line = 96});
    table.Ask(wire::TestCommand{});
  }
  /// Of a hundred polls some look by chance like another one.
  static void TestDeal(TracedTable& table) {
    wire::RouteCommand route{.Count = kCards, .TestDeal = true, .Order = {}};
    std::iota(route.Order.Bytes.begin(), route.Order.Bytes.begin() + kCards, std::uint8_t{1});
    table.Ask(route);
    for (int i = 0; i < 100; ++i) table.Ask(wire::TestPollCommand{});
  }
  static Board BoardOf(const Cards& pack) {
    Board board;
    for (std::size_t i = 0; i < pack.size(); ++i) {
      board.Cards.at(static_cast<std::size_t>(pack[i])) = static_cast<std::uint8_t>(i % 4 + 1);
    }
    AnalyzeBoard(board);
    return board;
  }

  int traces_ = 0;
};

TEST_F(TraceOfADeal, WithoutHandsIsTheSameWhateverTheCards) {
  const std::string first = Trace(Shuffled(1), true);
  EXPECT_TRUE(first == Trace(Shuffled(2), true));
  EXPECT_TRUE(first == Trace(Shuffled(3), true));
}

TEST_F(TraceOfADeal, WithHandsIsNot) {
  EXPECT_FALSE(Trace(Shuffled(1), false) == Trace(Shuffled(2), false));
}

// The program's numbers for filler are those that poker deals come from.
TEST_F(TraceOfADeal, WithoutHandsIsTheSameWhateverTheFiller) {
  EXPECT_TRUE(Trace(Shuffled(1), true, 1) == Trace(Shuffled(1), true, 2));
}

TEST_F(TraceOfADeal, WithHandsTheFillerIsThere) {
  EXPECT_FALSE(Trace(Shuffled(1), false, 1) == Trace(Shuffled(1), false, 2));
}

}  // namespace
}  // namespace morvane::bridges
