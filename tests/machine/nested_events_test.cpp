#include "machine/evening.h"

namespace morvane::machine {
namespace {

enum class Effect {
  kNone,   ///< none at all while cards run
  kPolls,  ///< only as many more polls as there is time for
  kEnds,   ///< the window goes
  kSome,   ///< as it may be
};

struct NestedEvent {
  const char* Name;
  Effect What;
  Evening::Event Do;
  int MostBreaks = 1;
};

/// Where there are boards.
Evening::Event OnBoards(const std::function<void(BoardRun&)>& event) {
  return [=](Evening& e) {
    if (e.Boards != nullptr) event(*e.Boards);
  };
}

template <typename Value>
Evening::Event Changes(void (RunOptions::*set)(Value), Value value) {
  return [=](Evening& e) { e.Run->Change(set, value); };
}

Evening::Event Walks(BoardWalk::Step step) {
  return OnBoards([=](BoardRun& run) { run.Walk(step); });
}

const std::vector<NestedEvent> kEvents{
    {"cmdDeal", Effect::kNone, OnBoards([](BoardRun& run) { run.cmdDeal(); })},
    {"Deal_next", Effect::kNone, OnBoards([](BoardRun& run) { run.Deal_next(); })},
    {"cmdFirst", Effect::kNone, Walks(BoardWalk::Step::kFirst)},
    {"cmdPrev", Effect::kNone, Walks(BoardWalk::Step::kPrev)},
    {"cmdNext", Effect::kNone, Walks(BoardWalk::Step::kNext)},
    {"cmdLast", Effect::kNone, Walks(BoardWalk::Step::kLast)},
    {"PrevCopy", Effect::kNone, Walks(BoardWalk::Step::kPrevCopy)},
    {"NextCopy", Effect::kNone, Walks(BoardWalk::Step::kNextCopy)},
    {"cmdClear", Effect::kNone, OnBoards([](BoardRun& run) { run.cmdClear(); })},
    {"cmdSort", Effect::kNone,
     [](Evening& e) {
       if (e.Sorts != nullptr) e.Sorts->cmdSort();
     }},
    {"read_mode", Effect::kNone, Changes(&RunOptions::SetReadMode, 1)},
    {"Disp_boards", Effect::kNone, OnBoards([](BoardRun& run) { run.Disp_boards(); })},
    {"Command1", Effect::kNone, [](Evening& e) { e.Run->Command1(); }},
    {"NumberCopies", Effect::kNone, OnBoards([](BoardRun& run) { run.SetNumberCopies("2"); })},
    {"Subfrom", Effect::kNone, OnBoards([](BoardRun& run) { run.LeaveSubfrom("1"); })},
    {"Subto", Effect::kNone, OnBoards([](BoardRun& run) { run.LeaveSubto("1"); })},
    {"National", Effect::kNone, Changes(&RunOptions::SetNational, 5)},
    {"CardType", Effect::kNone, Changes(&RunOptions::SetCardType, 1)},
    {"Threshold", Effect::kNone, Changes(&RunOptions::SetThreshold, 2)},
    {"CardIndex", Effect::kNone, Changes(&RunOptions::SetCardIndex, 2)},
    {"Check_board", Effect::kNone, Changes(&RunOptions::SetCheck_board, false)},
    {"Start_from_box", Effect::kNone, Changes(&RunOptions::SetStart_from_box, false)},
    {"load_request", Effect::kNone,
     [](Evening& e) {
       e.Desk.Prog.Link = {LinkRequest::kLoad, "set.bri"};
     }},
    {"download_request", Effect::kNone,
     [](Evening& e) {
       e.Desk.Prog.Link = {LinkRequest::kDownload, "new.adc"};
     }},
    {"time_in_a_loop_of_its_own", Effect::kPolls, [](Evening& e) { e.Desk.Loop.WaitMs(230); }},
    {"box_reported", Effect::kNone, [](Evening& e) { e.Paper.Events |= 16; }},
    {"slot_active", Effect::kNone, [](Evening& e) { e.Paper.Events |= 4; }},
    {"pedal", Effect::kSome, [](Evening& e) { e.Paper.Events |= 8; }},
    {"cmdBreak", Effect::kSome, [](Evening& e) { e.Run->cmdBreak(); }},
    {"cmdBreak_twice", Effect::kSome,
     [](Evening& e) {
       e.Run->cmdBreak();
       e.Run->cmdBreak();
     }},
    {"restart", Effect::kSome, [](Evening& e) { e.Paper.Restart(); }},
    {"power_off", Effect::kEnds, [](Evening& e) { e.Paper.Powered = false; }},
    {"cmdExit", Effect::kEnds, [](Evening& e) { e.Run->Exit(); }},
    {"cmdExit_twice", Effect::kEnds,
     [](Evening& e) {
       e.Run->Exit();
       e.Run->Exit();
     },
     2},  // who does not wait for the machine leaves it with another one
    {"exit_behind_a_break", Effect::kEnds,
     [](Evening& e) {
       e.Run->cmdBreak();
       e.Run->Exit();
     }},
    {"exit_and_quit", Effect::kEnds,
     [](Evening& e) {
       e.Run->Exit();
       e.Desk.Loop.Quit();
     }},
};

/// A kind of run, how its log line ends where nothing comes in, and how often events can.
struct KindOfEvening {
  RunKind Kind;
  const char* LogEnd;
  int MomentsInARun;  ///< at least
};

const std::vector<KindOfEvening> kKinds{
    {RunKind::kDeal, "  001 : 1,1 64,2,1 0,0,0,0 30 OK", 30},
    {RunKind::kRead,
     "  001 : 1,1 64,2,1 0,0,0,0 30 OK  ...AKQJT98765432 ..AKQJT98765432. AKQJT98765432... "
     ".AKQJT98765432.. ",
     30},
    {RunKind::kSort, "  Sort: 0,0,0,0 30 OK", 12}};

class NestedEvents : public ::testing::TestWithParam<NestedEvent> {
 protected:
  void ExpectInOrder(Evening& evening) {
    EXPECT_EQ(evening.Bridge.Overlaps, 0);
    EXPECT_EQ(evening.Bridge.Malformed, 0);
    EXPECT_LE(evening.Breaks(), GetParam().MostBreaks);
    EXPECT_FALSE(evening.Run->Running());
    const bool closed = evening.Run->Closed();
    EXPECT_EQ(evening.View.Closings, closed ? 1 : 0);
    const auto& calls = evening.Bridge.Calls;
    EXPECT_EQ(std::count(calls.begin(), calls.end(), "Close"), closed ? 1 : 0);
    // Alive, or at rest for good.
    EXPECT_EQ(evening.SentWithin(300), closed ? 0U : 3U);
  }

  void ExpectEffect(Evening& evening, const Evening& quiet) {
    const Effect what = GetParam().What;
    if (what == Effect::kEnds) {
      EXPECT_TRUE(evening.Run->Closed());
    } else if (what != Effect::kSome && evening.CameInARun) {
      const bool polls = what == Effect::kNone;
      EXPECT_EQ(evening.Codes(polls), quiet.Codes(polls));
      EXPECT_EQ(evening.Desk.LogLines(), LinesWithBoxes(evening, quiet));
    }
  }

  /// Those of the quiet evening; the box of a download request, which waits for the polls behind
  /// the board, adds its own.
  static std::vector<std::string> LinesWithBoxes(const Evening& evening, const Evening& quiet) {
    std::vector<std::string> lines = quiet.Desk.LogLines();
    const auto all = evening.Desk.LogLines();
    if (all.size() == lines.size() + 1 && all.back().find("Download New Firmware") < 6) {
      lines.push_back(all.back());
    }
    return lines;
  }

  /// Whether all went well, with the event at each moment of an evening.
  void PlayAll(const KindOfEvening& kind) {
    Evening quiet(kind.Kind, Evening::kNever, nullptr);
    quiet.Play();
    ASSERT_THAT(quiet.Desk.LogLines(), ::testing::Contains(kind.LogEnd));
    int inARun = 0;
    for (int moment = 0; moment < quiet.Moments && !HasFailure(); ++moment) {
      SCOPED_TRACE("moment " + std::to_string(moment) + " of " + std::to_string(quiet.Moments));
      Evening evening(kind.Kind, moment, GetParam().Do);
      evening.Play();
      inARun += evening.CameInARun ? 1 : 0;
      ExpectInOrder(evening);
      ExpectEffect(evening, quiet);
    }
    EXPECT_GE(inARun, kind.MomentsInARun);
  }
};

TEST_P(NestedEvents, AtEveryMomentLeaveOneExchangeOnTheWire) {
  for (const KindOfEvening& kind : kKinds) {
    SCOPED_TRACE(kind.LogEnd);
    PlayAll(kind);
  }
}

INSTANTIATE_TEST_SUITE_P(Every, NestedEvents, ::testing::ValuesIn(kEvents),
                         [](const auto& event) { return std::string(event.param.Name); });

/// The program quits: whoever waits returns, and nobody sends any more.
TEST(NestedQuit, AtEveryMomentEndsTheRunWithAtMostOneBreak) {
  for (const KindOfEvening& kind : kKinds) {
    Evening quiet(kind.Kind, Evening::kNever, nullptr);
    quiet.Play();
    for (int moment = 0; moment < quiet.Moments; ++moment) {
      SCOPED_TRACE(std::string(kind.LogEnd) + " moment " + std::to_string(moment));
      Evening evening(kind.Kind, moment, [](Evening& e) { e.Desk.Loop.Quit(); });
      evening.Play();
      EXPECT_EQ(evening.Bridge.Overlaps, 0);
      EXPECT_LE(evening.Breaks(), 1);
      EXPECT_FALSE(evening.Run->Running());
      evening.Run->Exit();  // what its flow does behind the loop
      EXPECT_TRUE(evening.Run->Closed());
      EXPECT_EQ(evening.SentWithin(300), 0U);
    }
  }
}

}  // namespace
}  // namespace morvane::machine
