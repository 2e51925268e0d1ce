#include "audit/log_audit.h"

#include <numeric>

#include "audit/audit_desk.h"
#include "audit/fingerprint.h"
#include "model/shapes.h"
#include "text/text.h"

namespace morvane::audit {
namespace {

using generate::GenerateEnd;
using generate::GenerateLine;
using generate::RejectCounts;
using generate::RejectionSwitches;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

TEST(LogAudit, ASetIsTheSameAsItsSeedsMakeIt) {
  AuditDesk desk;
  ASSERT_EQ(desk.Make(1, 32, {false, true, true}), GenerateEnd::kDone);
  const SetAudit set = OnlySet(desk.Log());
  EXPECT_EQ(set.Is, SetAudit::kNumber);
  EXPECT_EQ(set.Line, 3U);
  EXPECT_EQ(set.What.First, 1);
  EXPECT_EQ(set.What.Last, 32);
  ASSERT_TRUE(set.Seeds);
  EXPECT_EQ(set.Seeds->Line, 2U);
  EXPECT_EQ(set.Seeds->Seedr, kSeedr);
  EXPECT_EQ(set.Seeds->Seedo, kSeedo);
  EXPECT_EQ(set.SameBoards, 32);
  EXPECT_THAT(set.Findings, IsEmpty());
  EXPECT_EQ(set.Rejected, RejectCounts{});
  EXPECT_EQ(set.Fingerprint.size(), 64U);
  EXPECT_TRUE(set.IsSame());
}

TEST(LogAudit, EverySetThatTheProgramMakesIsTheSameWhateverWasRejected) {
  int withRejections = 0;
  for (int i = 0; i < 60; ++i) {
    AuditDesk desk;
    const int first = 1 + i % 7;
    const int last = first + 4 + i % 36;  // 5 to 40 boards
    const RejectionSwitches reject{i % 4 != 0, i % 3 != 0, i % 2 != 0};
    const std::string seedr = ThreeDigits(i) + kSeedr.substr(3);
    ASSERT_EQ(desk.Make(first, last, reject, seedr), GenerateEnd::kDone);
    const Audited audited = Audit(desk.Log());
    ASSERT_EQ(audited.Sets.size(), 1U);
    const SetAudit& set = audited.Sets[0];
    EXPECT_TRUE(set.IsSame()) << i;
    EXPECT_EQ(set.SameBoards, last - first + 1);
    EXPECT_EQ(set.Rejected, set.What.Dealt->Rejected);
    EXPECT_EQ(audited.Checked, 1);
    EXPECT_EQ(audited.Same, 1);
    EXPECT_THAT(audited.UnusedSeeds, IsEmpty());
    if (set.What.Dealt->Rejected.Shape > 0) ++withRejections;
  }
  EXPECT_GE(withRejections, 20);
}

TEST(LogAudit, TheGreatestSetIsTheSame) {
  AuditDesk desk;
  ASSERT_EQ(desk.Make(1, 640, {true, true, true}), GenerateEnd::kDone);
  const SetAudit set = OnlySet(desk.Log());
  EXPECT_TRUE(set.IsSame());
  EXPECT_GT(set.Rejected->Shape, 0);
}

TEST(LogAudit, ASetWithSeedsOfPoolAndSystemIsTheSame) {
  AuditDesk desk;
  class NoView final : public generate::GenerateView {
    void RunStarts() override {}
    void BoardsGen(int /*count*/) override {}
  } view;
  for (int i = 1; i <= 3; ++i) {
    generate::OpenGenerate(desk.Prog, desk.Gen);
    desk.Gen.Pool.SampleMouse(7 * i, 9 * i);
    ASSERT_EQ(generate::PressBigDeal(desk.Prog, desk.Gen, desk.History,
                                     {"1", "16", true, {}, {true, true, true}}, view)
                  .End,
              GenerateEnd::kDone);
  }
  const Audited audited = Audit(desk.Log());
  EXPECT_EQ(audited.Checked, 3);
  EXPECT_EQ(audited.Same, 3);
  EXPECT_THAT(audited.UnusedSeeds, IsEmpty());
}

/// A log as the program writes it when the history refuses some deals. It is told by their numbers
/// which, in place of a history.
class HistoryLog {
 public:
  HistoryLog(int first, int last, bool shape, const std::function<bool(const Board&)>& inHistory) {
    EXPECT_TRUE(generate::SetNumberSeeds(dealer_, kSeedr, kSeedo));
    generate::RejectionTests tests(*set_, noHistory_, first, {shape, true, false}, {});
    for (int k = first; k <= last; ++k) {
      Board board;
      do {
        dealer_.NextNumberDeal(board);
        AnalyzeBoard(board);
      } while (tests.Rejects(board, k) || (inHistory(board) && ++Rejected.History > 0));
      set_->At(k) = board;
      for (int hand = kNorth; hand <= kWest; ++hand) {
        ++set_->ShapeCount[static_cast<std::size_t>(ShapeIndex(GetHandShape(board, hand)))];
      }
    }
    Rejected.Shape = tests.ShapeRejects;
    Rejected.Inner = tests.InnerRejects;
    Text = "  Seedr: " + kSeedr + "\r\n  Seedo: " + kSeedo + "\r\n" +
           GenerateLine{first, last, GenerateLine::Tests{{shape, true, true}, Rejected}}.Text() +
           "\r\n";
    for (int k = first; k <= last; ++k) Text += LogRecord(k, set_->At(k), true) + "\r\n";
  }
  std::string Text;
  RejectCounts Rejected;

 private:
  generate::NumberDealer dealer_;
  std::unique_ptr<BoardSet> set_ = std::make_unique<BoardSet>();
  history::HistoryRing noHistory_;
};

bool AFifthIsInHistory(const Board& board) { return board.DealNumber[11] % 5 == 0; }

TEST(LogAudit, WhatTheHistoryRefusedIsPassedOverAsOftenAsTheLogSays) {
  for (const bool shape : {false, true}) {
    const HistoryLog log(1, 40, shape, AFifthIsInHistory);
    ASSERT_GT(log.Rejected.History, 3);
    const SetAudit set = OnlySet(log.Text);
    EXPECT_TRUE(set.IsSame());
    EXPECT_EQ(set.Rejected, log.Rejected);
  }
}

TEST(LogAudit, SeveralDealsInTurnMayBeRefusedByTheHistory) {
  const HistoryLog log(1, 3, false, [](const Board& board) { return board.DealNumber[11] < 200; });
  ASSERT_GT(log.Rejected.History, 4);
  EXPECT_TRUE(OnlySet(log.Text).IsSame());
}

TEST(LogAudit, ADealPassedOverThatTheLogDoesNotCountIsFound) {
  const HistoryLog log(1, 40, false, AFifthIsInHistory);
  for (const int change : {-1, 1}) {
    LogText text(log.Text);
    RejectCounts counts = log.Rejected;
    counts.History += change;
    text.At("  Generate") =
        GenerateLine{1, 40, GenerateLine::Tests{{false, true, true}, counts}}.Text();
    const SetAudit set = OnlySet(text.Text());
    EXPECT_FALSE(set.IsSame());
    // Without the one that is not counted, a board cannot be reached.
    EXPECT_EQ(set.SameBoards == 40, change == 1);
    EXPECT_EQ(set.CountsAreSame(), change == -1);
  }
}

TEST(LogAudit, AMissingBoardOfASetWithHistoryRejectionsDoesNotSpoilTheOthers) {
  const HistoryLog log(1, 20, false, AFifthIsInHistory);
  ASSERT_GT(log.Rejected.History, 1);
  for (int board = 1; board < 20; ++board) {
    LogText text(log.Text);
    text.Remove(text.Find("   " + ThreeDigits(board)));
    const SetAudit set = OnlySet(text.Text());
    EXPECT_THAT(Told(set), ElementsAre(std::to_string(board) + " missing"));
    EXPECT_TRUE(set.CountsAreSame());
  }
}

TEST(LogAudit, DealsArePassedOverForTheHistoryOnlyWhereItsTestWasOn) {
  const HistoryLog log(1, 10, false, AFifthIsInHistory);
  LogText text(log.Text);
  text.At("  Generate") =
      GenerateLine{1, 10, GenerateLine::Tests{{false, true, false}, log.Rejected}}.Text();
  const SetAudit set = OnlySet(text.Text());
  EXPECT_FALSE(set.IsSame());
  EXPECT_LT(set.SameBoards, 10);
}

TEST(LogAudit, ABoardChangedInASetWithHistoryRejectionsIsFoundAlone) {
  const HistoryLog log(1, 30, true, AFifthIsInHistory);
  for (const auto& [column, told] :
       {std::pair{std::size_t{111}, "9 counter"}, std::pair{std::size_t{80}, "9 number"},
        std::pair{std::size_t{10}, "9 hands"}}) {
    LogText text(log.Text);
    std::string& record = text.At("   009");
    record[column] = record[column] == '2' ? '3' : '2';
    const SetAudit set = OnlySet(text.Text());
    EXPECT_THAT(Told(set), ElementsAre(told));
    EXPECT_TRUE(set.CountsAreSame());
    EXPECT_EQ(set.SameBoards, 29);
  }
}

TEST(LogAudit, ShufflingAndEmptySetsAreNotChecked) {
  AuditDesk desk;
  desk.Shuffle(1, 4);
  desk.LeaveEmpty(5, 6);
  const Audited audited = Audit(desk.Log());
  ASSERT_EQ(audited.Sets.size(), 2U);
  EXPECT_EQ(audited.Checked, 0);
  EXPECT_EQ(audited.Same, 0);
  EXPECT_EQ(audited.Sets[0].Is, SetAudit::kShuffling);
  EXPECT_EQ(audited.Sets[0].What.Last, 4);
  EXPECT_FALSE(audited.Sets[0].IsSame());
  EXPECT_EQ(audited.Sets[0].Fingerprint.size(), 64U);
  EXPECT_EQ(audited.Sets[1].Is, SetAudit::kEmpty);
  EXPECT_EQ(audited.Sets[1].What.First, 5);
  EXPECT_FALSE(audited.Sets[1].IsSame());
  EXPECT_EQ(audited.Sets[1].Fingerprint, "");
}

TEST(LogAudit, ASetWithoutNumbersAndWithoutSeedOfTheShufflingGeneratorHasLostThem) {
  AuditDesk desk;
  desk.Make(1, 3);
  LogText text(desk.Log());
  for (std::size_t i = 3; i < 6; ++i) {
    text[i].replace(78, 34, std::string(24, '0') + "  " + std::string(8, '0'));
  }
  const SetAudit set = OnlySet(text.Text());
  EXPECT_EQ(set.Is, SetAudit::kNumber);
  EXPECT_THAT(Told(set), ElementsAre("1 number counter", "2 number counter", "3 number counter"));
  EXPECT_FALSE(set.IsSame());
}

TEST(LogAudit, SeedsOfARunThatMadeNoSetAreTold) {
  AuditDesk desk;
  desk.Gen.Limits.HistoryLimit = 0;
  ASSERT_EQ(desk.Make(1, 2, {false, false, true}), GenerateEnd::kCannotGenerate);
  desk.Gen.Limits = {};
  desk.Make(1, 2, {}, kSeedo);
  const Audited audited = Audit(desk.Log());
  EXPECT_EQ(audited.Same, 1);
  EXPECT_THAT(audited.UnusedSeeds, ElementsAre(2U));
}

TEST(LogAudit, ALogWithoutSetsHasNothingChecked) {
  EXPECT_EQ(Audit("").Checked, 0);
  EXPECT_EQ(Audit("---\r\nStart\r\n Exit: 3:04:05 PM\r\n").Checked, 0);
}

}  // namespace
}  // namespace morvane::audit
