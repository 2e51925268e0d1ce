#include "machine/read_and_sort_fixture.h"
#include "support/harm.h"

namespace morvane::machine {
namespace {

using test::Bytes;
using test::Harm;
using test::Harmed;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;

/// A run of cards with so many exchanges, whose log line ends so when all goes well.
struct Course {
  const char* Name;
  bool Sorts;
  bool Checked;
  std::uint8_t Code;  ///< of a fault that is continued; 0 = none
  int Exchanges;
  std::string LogEnd;
};

const std::vector<Course> kCourses{
    // The start, three polls, the board, the card log, the probe.
    {"read", false, false, 0, 7, "001 : 1,0 0,0,0,0 OK  " + kReadText},
    // A label before it, and all but the probe twice.
    {"continued_read", false, true, 25, 14, "001 : 1,1 0,0,0,0 25 OK  " + kReadText},
    {"sort", true, false, 0, 6, "Sort: 0,0,0,0 OK"},
    {"continued_sort", true, false, 55, 11, "Sort: 0,0,0,0 55 OK"}};

class ReadAndSortFaults : public ReadFixture, public ::testing::WithParamInterface<Course> {
 protected:
  /// Runs the course with replies `target` to `target + times - 1` harmed.
  void Run(int target, int times, Harm harm) {
    const Course& course = GetParam();
    desk.Store.Set(kCheckBoard, course.Checked ? "1" : "0");
    At(1) = NumberedBoard(1);
    paper.Damage = nullptr;
    paper.Label = 15;
    paper.Codes.clear();
    if (course.Code != 0) paper.Codes = {course.Code};
    view.Answers = {Continue};
    desk.Ui.Boxes.clear();
    machine.Link.UsbHandle = 7;
    SortingRun sorts(desk.Prog, machine, memory);
    ReadingRun reads(desk.Prog, machine, memory, nullptr);
    MachineRun& run = course.Sorts ? static_cast<MachineRun&>(sorts) : reads;
    Contact(run);
    paper.Exchanges = 0;
    paper.Damage = [=](int n, const Bytes&, const Bytes& wire) {
      return n >= target && n < target + times ? Harmed(harm, wire) : wire;
    };
    course.Sorts ? sorts.cmdSort() : reads.cmdDeal();
    outcome = run.LastOutcome();
    closed = run.Closed();
    if (!closed) run.Exit();
  }

  MachineRun::Outcome outcome{};
  bool closed = false;
};

TEST_P(ReadAndSortFaults, WithoutAnyItTakesSoManyExchanges) {
  Run(1000, 0, Harm::kLost);
  // Leaving sends nothing.
  EXPECT_EQ(paper.Exchanges, GetParam().Exchanges);
  EXPECT_EQ(LastLine(), "  " + GetParam().LogEnd);
}

TEST_P(ReadAndSortFaults, AReplySpoiledOnceDoesNoHarm) {
  for (const Harm harm : {Harm::kLost, Harm::kCorrupted, Harm::kCut}) {
    for (int target = 0; target < GetParam().Exchanges; ++target) {
      SCOPED_TRACE("harm " + std::to_string(static_cast<int>(harm)) + " at " +
                   std::to_string(target));
      Run(target, 1, harm);
      const auto at = static_cast<std::size_t>(target);
      EXPECT_EQ(LastLine(), "  " + GetParam().LogEnd);
      EXPECT_THAT(desk.Ui.Boxes, IsEmpty());
      EXPECT_EQ(bridge.Sent.at(at)[0], bridge.Sent.at(at + 1)[0]) << "the same once more";
    }
  }
}

TEST_P(ReadAndSortFaults, AReplySpoiledTwiceIsTheLostLink) {
  for (const Harm harm : {Harm::kLost, Harm::kCorrupted, Harm::kCut}) {
    for (int target = 0; target < GetParam().Exchanges; ++target) {
      SCOPED_TRACE("harm " + std::to_string(static_cast<int>(harm)) + " at " +
                   std::to_string(target));
      Run(target, 2, harm);
      EXPECT_EQ(LastBox(), desk.Prog.Texts.Msg048);
      EXPECT_EQ(outcome, MachineRun::Outcome::kLinkLost);
      EXPECT_TRUE(closed);
      EXPECT_THAT(LastLine(), Not(HasSubstr("OK")));
      EXPECT_EQ(bridge.Sent.size(), static_cast<std::size_t>(target) + 2) << "nothing behind it";
    }
  }
}

TEST_P(ReadAndSortFaults, ABoardThatDidNotArriveWholeIsNotInTheSet) {
  const int fetch = GetParam().Checked ? 5 : 4;
  if (GetParam().Sorts) return;
  for (const Harm harm : {Harm::kLost, Harm::kCorrupted, Harm::kCut}) {
    Run(fetch, 2, harm);
    EXPECT_EQ(bridge.Sent.back()[0], 0x1D);
    EXPECT_EQ(At(1), NumberedBoard(1));
  }
}

INSTANTIATE_TEST_SUITE_P(Every, ReadAndSortFaults, ::testing::ValuesIn(kCourses),
                         [](const auto& course) { return std::string(course.param.Name); });

// What can take the place of an answer.

class ReadGarbled : public ReadFixture {};

TEST_F(ReadGarbled, AnotherFrameInTheBoardsPlaceIsAskedForAgain) {
  Contact();
  bool once = true;
  paper.Damage = [&](int, const Bytes& plain, const Bytes& wire) {
    if (plain[0] != 0x1D || !std::exchange(once, false)) return wire;
    return test::OnTheWire(test::Long({0xA0}), 21);
  };
  reading.cmdDeal();
  EXPECT_EQ(SentOf(0x1D).size(), 2U);
  EXPECT_EQ(LastLine(), "  001 : 1,0 0,0,0,0 OK  " + kReadText);
}

TEST_F(ReadGarbled, ABoardThatNobodyAskedForIsDropped) {
  Contact();
  int polls = 0;
  paper.Damage = [&](int, const Bytes& plain, const Bytes& wire) {
    Bytes board = test::Long({0x9D});
    std::fill_n(board.begin() + 8, 52, std::uint8_t{3});
    return plain[0] == 0x19 && ++polls == 2 ? test::OnTheWire(board, 21) : wire;
  };
  reading.cmdDeal();
  EXPECT_EQ(LastLine(), "  001 : 1,0 0,0,0,0 OK  " + kReadText);
}

TEST_F(ReadGarbled, AHandThatIsLargerThanItsPocketIsNotOk) {
  Contact();
  paper.Damage = [&](int, const Bytes& plain, const Bytes& wire) {
    if (plain[0] != 0x1D) return wire;
    Bytes board = test::Long({0x9D});
    std::copy(paper.Read.begin(), paper.Read.end(), board.begin() + 8);
    board[8] = 2;  // the Two of Spades is said to lie in pocket 2, where 13 cards fell
    return test::OnTheWire(board, 21);
  };
  reading.cmdDeal();
  EXPECT_THAT(desk.LogLines(), ::testing::Contains("  001 : 1,0 0,0,0,0"));
  EXPECT_EQ(reading.LastOutcome(), MachineRun::Outcome::kStopped);
}

TEST_F(ReadGarbled, AMachineThatForgotItsBoardBehindTheLastReportIsNotOk) {
  paper.Read = {};
  Contact();
  reading.cmdDeal();
  EXPECT_THAT(desk.LogLines(), ::testing::Contains("  001 : 1,0 0,0,0,0"));
  EXPECT_EQ(reading.LastOutcome(), MachineRun::Outcome::kStopped);
  EXPECT_FALSE(reading.Window().Controls.Deal_next);
  EXPECT_EQ(At(1), NumberedBoard(1));
}

// The gates of the two kinds.

struct KindGate {
  bool Sorts;
  std::uint8_t Minor;
  const char* Text;
  const char* Title;
};

class KindGates : public ReadFixture {
 protected:
  void Open(bool sorts, std::uint8_t major, std::uint8_t minor) {
    paper.Major = major;
    paper.Minor = minor;
    machine.Link.UsbHandle = 7;
    desk.Ui.Boxes.clear();
    SortingRun sorting(desk.Prog, machine, memory);
    ReadingRun fresh(desk.Prog, machine, memory, nullptr);
    MachineRun& run = sorts ? static_cast<MachineRun&>(sorting) : fresh;
    run.Open(view);
    bridge.Calls.clear();
    desk.Loop.WaitMs(MachineRun::kFirstContactMs);
    closed = run.Closed();
    if (!closed) run.Exit();
  }
  bool closed = false;
};

TEST_F(KindGates, AWindowOpensFromItsByteOnAndOtherwiseGoesWithItsWords) {
  for (const KindGate& gate :
       {KindGate{false, 0x23, "Read function requires Firmware version 2.24 or later.",
                 "Reading Error"},
        KindGate{true, 0x69, "Sort function requires Firmware version 2.69 or later.",
                 "Sort Error"}}) {
    const auto below = static_cast<std::uint8_t>(gate.Minor - 1);
    for (const auto& [major, minor] : {std::pair<int, int>{1, 0x99}, {2, 0}, {2, below}}) {
      SCOPED_TRACE(std::to_string(major) + "." + std::to_string(minor) + " " + gate.Title);
      Open(gate.Sorts, static_cast<std::uint8_t>(major), static_cast<std::uint8_t>(minor));
      EXPECT_TRUE(closed);
      EXPECT_THAT(LastBox(), HasSubstr(gate.Text));
      EXPECT_EQ(desk.Ui.Boxes.back().Title, gate.Title);
      EXPECT_THAT(bridge.Calls,
                  ::testing::ElementsAre("FlushBuffers 1 1", "WriteLatch 1 0", "Close"));
    }
    for (const auto& [major, minor] : {std::pair<int, int>{2, gate.Minor}, {2, 0x99}, {3, 0}}) {
      SCOPED_TRACE(std::to_string(major) + "." + std::to_string(minor) + " " + gate.Title);
      Open(gate.Sorts, static_cast<std::uint8_t>(major), static_cast<std::uint8_t>(minor));
      EXPECT_FALSE(closed);
      EXPECT_THAT(desk.Ui.Boxes, IsEmpty());
    }
  }
}

}  // namespace
}  // namespace morvane::machine
