#include "audit/fingerprint.h"

#include "audit/audit_desk.h"
#include "support/two_boards.h"

namespace morvane::audit {
namespace {

using test::kTwoBoards;
using test::TwoBoards;

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
