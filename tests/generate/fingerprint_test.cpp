#include "generate/fingerprint.h"

#include "generate/generate_desk.h"
#include "support/two_boards.h"

namespace morvane::generate {
namespace {

using test::kTwoBoards;
using test::TwoBoards;

// The expected values are what `sha256sum` says of the lines in the comments, each ended with LF;
// `openssl dgst -sha256` says the same.

// 99 ... ... ... ...
// 100 AKQJT98765432... .AKQJT98765432.. ..AKQJT98765432. ...AKQJT98765432
constexpr const char* kEmptyAndSuits =
    "91ce7d7c8535c663a9392295b356b56ed8991313b0a82ceb691f6899222ae1dc";

TEST(SetFingerprint, IsTheSumOfItsBoardsAsLines) {
  EXPECT_EQ(SetFingerprint(TwoBoards()), kTwoBoards);
}

TEST(SetFingerprint, NumbersAreWrittenPlainAndAHandWithoutCardsIsThreeDots) {
  BoardSet set;
  set.FirstBoard = 99;
  set.LastBoard = 100;
  set.At(100) = test::SuitBoard(100);
  EXPECT_EQ(SetFingerprint(set), kEmptyAndSuits);
}

TEST(SetFingerprint, DependsOnDealsAndNumbersOnly) {
  BoardSet set = TwoBoards();
  set.At(1).Dealer = kWest;
  set.At(1).Vul = 4;
  set.At(2).Tricks[3] = 7;
  set.At(2).DealNumber[5] = 1;
  set.At(2).DealCounter[3] = 1;
  set.EventName = "Evening";
  set.BoardSetFile = "/evening.pbn";
  set.CurrentBoard = 2;
  EXPECT_EQ(SetFingerprint(set), kTwoBoards);
}

TEST(SetFingerprint, TwoCardsThatChangeHandsChangeIt) {
  BoardSet set = TwoBoards();
  std::swap(set.At(2).Cards[1], set.At(2).Cards[2]);
  EXPECT_NE(SetFingerprint(set), kTwoBoards);
}

TEST(SetFingerprint, BoardsThatChangePlacesChangeIt) {
  BoardSet set = TwoBoards();
  std::swap(set.At(1), set.At(2));
  EXPECT_NE(SetFingerprint(set), kTwoBoards);
}

TEST(SetFingerprint, TheSameBoardsUnderOtherNumbersHaveAnother) {
  BoardSet set = TwoBoards();
  set.FirstBoard = 2;
  set.LastBoard = 3;
  set.At(3) = set.At(2);
  set.At(2) = set.At(1);
  EXPECT_NE(SetFingerprint(set), kTwoBoards);
}

TEST(FingerprintLine, ShowsTheFingerprintOfASetOnRecord) {
  GenerateDesk desk;
  desk.Prog.Set = TwoBoards();
  EXPECT_EQ(FingerprintLine(desk.Prog), "SHA-256: " + std::string(kTwoBoards));
}

TEST(FingerprintLine, KeepsItBackWhereTheLogIsOff) {
  GenerateDesk desk;
  RuntimeError noFolder;
  ASSERT_FALSE(desk.Prog.Log.Start("", noFolder));
  desk.Prog.Set = TwoBoards();
  EXPECT_EQ(FingerprintLine(desk.Prog), "This set is not on record: do not publish its SHA-256.");
}

}  // namespace
}  // namespace morvane::generate
