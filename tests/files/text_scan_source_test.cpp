#include <filesystem>

#include "files/scanned.h"
#include "files/text_scan.h"
#include "support/fakes.h"

namespace morvane::files {
namespace {

using ::testing::ElementsAre;

/// A scanner with the tables of a PBN file, and a file of this content for it.
struct ScanOfFile : TextScan {
  explicit ScanOfFile(const std::string& content) : Path(Folder / "x.pbn") {
    InitPbnScan();
    test::WriteContent(Path, content);
    SetInputFileName(Path);
  }
  test::TempFolder Folder;
  const std::string Path;
};

Token Word(const char* text) { return {kTokIdentifier, text, 0, text}; }

TEST(TextScanFile, IsScannedLineByLine) {
  ScanOfFile scan("a b\r\n\r\nc\nd");
  EXPECT_THAT(TokensOf(scan), ElementsAre(Word("a"), Word("b"), kPendingLineEnd, kPendingLineEnd,
                                          Word("c"), kPendingLineEnd, Word("d"), kPendingLineEnd));
  EXPECT_EQ(scan.GetToken().Kind, kTokEof);
  EXPECT_FALSE(scan.FileFailure());
}

TEST(TextScanFile, AnEmptyOneHasNoLine) {
  ScanOfFile scan("");
  EXPECT_EQ(scan.GetToken(), (Token{kTokEof, "", -1, ""}));
}

TEST(TextScanFile, ALoneCrEndsNoLineAndNulIsACharacter) {
  ScanOfFile scan(std::string("a\rb\0c\x1A", 6));
  EXPECT_THAT(TokensOf(scan),
              ElementsAre(Word("a"), Token{kTokBad, "\r", -1, "\r"}, Word("b"),
                          Token{kTokBad, std::string(1, '\0'), -1, std::string(1, '\0')}, Word("c"),
                          Token{kTokBad, "\x1A", -1, "\x1A"}, kPendingLineEnd));
}

TEST(TextScanFile, IsDecodedLikeEveryOther) {
  ScanOfFile scan("\"Caf\xE9\"");
  EXPECT_EQ(scan.GetToken().Text, "Caf\xC3\xA9");
  ScanOfFile marked("\xEF\xBB\xBFz");
  EXPECT_EQ(marked.GetToken(), Word("z"));
}

TEST(TextScanFile, ACommentGoesOnOverItsLines) {
  ScanOfFile scan("a {b\r\n\r\n[Deal \"N:\"]\r\n} c");
  EXPECT_THAT(
      TokensOf(scan),
      ElementsAre(Word("a"), Token{kTokComment, "{b", 0, "{b"}, kPendingLineEnd, kPendingLineEnd,
                  Token{kTokComment, "[Deal \"N:\"]", 0, "[Deal \"N:\"]"}, kPendingLineEnd,
                  Token{kTokComment, "}", 0, "}"}, Word("c"), kPendingLineEnd));
}

TEST(TextScanFile, AStringEndsWithItsLine) {
  ScanOfFile scan("\"a\r\nb\"c");
  EXPECT_THAT(TokensOf(scan),
              ElementsAre(Token{kTokString, "a", 0, "\"a"}, kPendingLineEnd, Word("b"),
                          Token{kTokString, "c", 0, "\"c"}, kPendingLineEnd));
}

TEST(TextScanFile, FollowsTheTextThatIsThereBefore) {
  ScanOfFile scan("b");
  scan.SetCurrentText("a");
  EXPECT_THAT(TokensOf(scan), ElementsAre(Word("a"), kPendingLineEnd, Word("b"), kPendingLineEnd));
}

TEST(TextScanFile, IsOpenedWhenTheTextRunsOut) {
  ScanOfFile scan("old");
  scan.SetCurrentText("a");
  EXPECT_EQ(scan.GetToken(), Word("a"));
  test::WriteContent(scan.Path, "new");
  EXPECT_THAT(TokensOf(scan), ElementsAre(kPendingLineEnd, Word("new"), kPendingLineEnd));
}

TEST(TextScanFile, IsReadOnceForEachTimeItIsNamed) {
  ScanOfFile scan("a");
  EXPECT_EQ(TokensOf(scan).size(), 2U);
  EXPECT_EQ(TokensOf(scan).size(), 0U);
  scan.SetInputFileName(scan.Path);
  EXPECT_EQ(TokensOf(scan).size(), 2U);
  scan.SetInputFileName("");
  EXPECT_EQ(TokensOf(scan).size(), 0U);
}

TEST(TextScanFile, AnotherFileFollowsTheOpenOne) {
  ScanOfFile scan("a\nb");
  const std::string other = scan.Folder / "y.pbn";
  test::WriteContent(other, "c");
  EXPECT_EQ(scan.GetToken(), Word("a"));
  scan.SetInputFileName(other);
  EXPECT_THAT(TokensOf(scan),
              ElementsAre(kPendingLineEnd, Word("b"), kPendingLineEnd, Word("c"), kPendingLineEnd));
}

TEST(TextScanFile, OneThatCannotBeOpenedIsTheEndAndTheSystemsError) {
  TextScan scan;
  scan.InitPbnScan();
  scan.SetInputFileName("/nowhere/x.pbn");
  EXPECT_FALSE(scan.FileFailure()) << "not asked for yet";
  EXPECT_EQ(scan.GetToken(), (Token{kTokEof, "", -1, ""}));
  ASSERT_TRUE(scan.FileFailure());
  EXPECT_EQ(scan.FileFailure()->Number, 2);
  EXPECT_EQ(scan.FileFailure()->Description, "No such file or directory");
}

TEST(TextScanFile, TheErrorStaysUntilAFileIsNamedAndTheScannerWorksOn) {
  test::TempFolder folder;
  TextScan scan;
  scan.InitPbnScan();
  scan.SetInputFileName(folder.Path());
  EXPECT_EQ(scan.GetToken().Kind, kTokEof);
  EXPECT_EQ(scan.GetToken().Kind, kTokEof);
  ASSERT_TRUE(scan.FileFailure());
  EXPECT_EQ(scan.FileFailure()->Description, "Is a directory");
  scan.SetCurrentText("a");
  EXPECT_EQ(scan.GetToken(), Word("a"));
  EXPECT_TRUE(scan.FileFailure());
  scan.SetInputFileName("");
  EXPECT_FALSE(scan.FileFailure());
  EXPECT_THAT(TokensOf(scan), ElementsAre(kPendingLineEnd));
  EXPECT_FALSE(scan.FileFailure()) << "there is none to open";
}

TEST(TextScanFile, AtItsEndLeavesNoText) {
  ScanOfFile scan("a\nb");
  EXPECT_EQ(TokensOf(scan).size(), 4U);
  scan.InitPbnScan();  // goes back to the start of the text
  EXPECT_EQ(scan.GetToken(), (Token{kTokEof, "", -1, ""}));
}

TEST(TextScanFile, ACopyGoesOnByItself) {
  ScanOfFile scan("a\nb");
  EXPECT_EQ(scan.GetToken(), Word("a"));
  TextScan copy = scan;
  TokensOf(scan);
  EXPECT_THAT(TokensOf(copy), ElementsAre(kPendingLineEnd, Word("b"), kPendingLineEnd));
}

}  // namespace
}  // namespace morvane::files
