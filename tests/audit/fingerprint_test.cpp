#include "audit/fingerprint.h"

#include "audit/audit_desk.h"

namespace morvane::audit {
namespace {

// The expected values are what `sha256sum` says of the lines in the comments, each ended with LF;
// `openssl dgst -sha256` says the same.

// 1 AKQJT98765432... .AKQJT98765432.. ..AKQJT98765432. ...AKQJT98765432
// 2 AT62.J73.Q84.K95 K95.AT62.J73.Q84 Q84.K95.AT62.J73 J73.Q84.K95.AT62
constexpr const char* kTwoBoards =
    "8d5417bc01e60c7a2bebba4ee30545013b5345823cb85b1d0cd50920f27573e3";

BoardSet TwoBoards() {
  BoardSet set;
  set.FirstBoard = 1;
  set.LastBoard = 2;
  set.At(1) = test::SuitBoard(1);
  set.At(2) = test::RoundBoard(2);
  return set;
}

TEST(SetFingerprint, OfRecordsIsThatOfTheirSetInWhateverOrderTheyStand) {
  const BoardSet set = TwoBoards();
  std::vector<LoggedRecord> records{{10, 1, FormatBoardForLog(set.At(1), true)},
                                    {11, 2, FormatBoardForLog(set.At(2), true)}};
  EXPECT_EQ(SetFingerprint(records), kTwoBoards);
  std::swap(records[0], records[1]);
  EXPECT_EQ(SetFingerprint(records), kTwoBoards);
  std::swap(records[0].Text, records[1].Text);
  EXPECT_NE(SetFingerprint(records), kTwoBoards);
}

TEST(SetFingerprint, OfRecordsDoesNotDependOnTheirIdentity) {
  const BoardSet set = TwoBoards();
  const std::string other = "  FFFFFFFFFFFFFFFFFFFFFFFF  0000000A";
  std::vector<LoggedRecord> records{
      {1, 1, FormatBoardForLog(set.At(1), true).substr(0, 67) + other},
      {2, 2, FormatBoardForLog(set.At(2), true)}};
  EXPECT_EQ(SetFingerprint(records), kTwoBoards);
}

TEST(SetFingerprint, OfTheLoggedSetIsThatOfTheSetMade) {
  AuditDesk desk;
  ASSERT_EQ(desk.Make(7, 21), generate::GenerateEnd::kDone);
  EXPECT_EQ(OnlySet(desk.Log()).Fingerprint, SetFingerprint(desk.Prog.Set));
}

}  // namespace
}  // namespace morvane::audit
