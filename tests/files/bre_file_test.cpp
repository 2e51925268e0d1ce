#include "files/bre_file.h"

#include <memory>

#include "files/dge_records.h"
#include "files/parsed_text.h"
#include "files/record_desk.h"

namespace morvane::files {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

const std::string kEvent = "Evening\r\nHall\r\n2026.03.03\r\n";

std::string FaultOf(const std::string& bytes) { return ParseWith(ParseBre, bytes).Error; }

std::unique_ptr<BoardSet> SetOf(const std::string& bytes) {
  return ParseWith(ParseBre, bytes).Sound();
}

TEST(BreFile, GivesTheEventTextsAndABoardALine) {
  RecordDesk desk;
  EXPECT_TRUE(desk.Load("set.bre", kEvent + kSuitsDge + "\r\n" + kRoundDge + "\r\n"));
  const BoardSet& set = desk.Prog.Set;
  EXPECT_EQ(set.EventName, "Evening");
  EXPECT_EQ(set.EventSite, "Hall");
  EXPECT_EQ(set.EventDate, "2026.03.03");
  EXPECT_EQ(set.FirstBoard, 1);
  EXPECT_EQ(set.LastBoard, 2);
  EXPECT_EQ(set.At(1), test::SuitBoard(1));
  EXPECT_EQ(set.At(2), test::RoundBoard(2));
  EXPECT_EQ(set.At(3), Board{});
  EXPECT_THAT(desk.Ui.Boxes, IsEmpty());
  EXPECT_EQ(desk.Ui.Statuses.back(), "Boards loaded: 2");
}

TEST(BreFile, LinesMayEndInLfAloneAndTheLastNeedNoEnd) {
  const auto set = SetOf("Evening\n\n2026\n" + kSuitsDge + "\n" + kRoundDge);
  EXPECT_EQ(set->EventName, "Evening");
  EXPECT_EQ(set->EventSite, "");
  EXPECT_EQ(set->EventDate, "2026");
  EXPECT_EQ(set->LastBoard, 2);
  EXPECT_EQ(set->At(2), test::RoundBoard(2));
}

TEST(BreFile, EventTextsMayBeEmpty) {
  const auto set = SetOf("\r\n\r\n\r\n" + kSuitsDge);
  EXPECT_EQ(set->EventName + set->EventSite + set->EventDate, "");
  EXPECT_EQ(set->LastBoard, 1);
}

TEST(BreFile, EventTextsAreCutTo200And40Characters) {
  const auto set = SetOf(std::string(200, 'n') + "x\r\n" + std::string(200, 's') + "x\r\n" +
                         std::string(40, 'd') + "x\r\n" + kSuitsDge);
  EXPECT_EQ(set->EventName, std::string(200, 'n'));
  EXPECT_EQ(set->EventSite, std::string(200, 's'));
  EXPECT_EQ(set->EventDate, std::string(40, 'd'));
}

TEST(BreFile, TheLimitsCountCharactersInEitherEncoding) {
  std::string expected;
  std::string bytes1252;
  for (int i = 0; i < 40; ++i) {
    expected += "\xC3\xA9";
    bytes1252 += '\xE9';
  }
  EXPECT_EQ(SetOf("a\nb\n" + bytes1252 + "\xE9\n" + kSuitsDge)->EventDate, expected);
  EXPECT_EQ(SetOf("a\nb\n" + expected + "\xC3\xA9\n" + kSuitsDge)->EventDate, expected);
}

TEST(BreFile, TheThreeEventTextsHaveOneEncoding) {
  // Alone, the second would be UTF-8.
  const auto set = SetOf("Caf\xE9\r\n\xC3\xA9\r\n\r\n" + kSuitsDge);
  EXPECT_EQ(set->EventName, "Caf\xC3\xA9");
  EXPECT_EQ(set->EventSite, "\xC3\x83\xC2\xA9");
}

TEST(BreFile, AByteOrderMarkIsSkipped) {
  EXPECT_EQ(SetOf("\xEF\xBB\xBF" + kEvent + kSuitsDge)->EventName, "Evening");
}

TEST(BreFile, ALoneCrAndANulBelongToTheirLine) {
  const auto set = SetOf("a\rb\r\n" + Zeros(1) + "c\x1A\r\n\r\n" + kSuitsDge);
  EXPECT_EQ(set->EventName, "a\rb");
  EXPECT_EQ(set->EventSite, Zeros(1) + "c\x1A");
}

TEST(BreFile, UpToThreeLinesAreAnEmptyFile) {
  for (const std::string bytes : {"", "a", "a\r\n", "a\r\nb", "a\r\nb\r\n", "a\r\nb\r\nc",
                                  "a\r\nb\r\nc\r\n", "\xEF\xBB\xBF"}) {
    RecordDesk desk;
    EXPECT_FALSE(desk.Load("set.bre", bytes));
    EXPECT_THAT(desk.Ui.Boxes, ElementsAre(LoadError(kFileIsEmpty))) << bytes;
    EXPECT_THAT(desk.Ui.Statuses, ElementsAre("Load operation aborted", "Ready"));
  }
}

TEST(BreFile, ABlankFourthLineFailsWithoutAWord) {
  for (const std::string& rest : {std::string("\r\n"), "\r\n" + kSuitsDge + "\r\n"}) {
    RecordDesk desk;
    EXPECT_FALSE(desk.Load("set.bre", kEvent + rest));
    EXPECT_THAT(desk.Ui.Boxes, IsEmpty());
    EXPECT_THAT(desk.Ui.Statuses, ElementsAre("Ready"));
    EXPECT_THAT(desk.LogLines(), ElementsAre("  Load: " + (desk.Folder / "set.bre")));
    ExpectNoSet(desk.Prog.Set);
  }
}

TEST(BreFile, ABlankLineBehindABoardIsSkipped) {
  const auto set = SetOf(kEvent + kSuitsDge + "\r\n\r\n\r\n" + kRoundDge + "\r\n\r\n");
  EXPECT_EQ(set->LastBoard, 2);
  EXPECT_EQ(set->At(2), test::RoundBoard(2));
}

TEST(BreFile, SpacesBehindTheHandsAreCut) {
  EXPECT_EQ(SetOf(kEvent + kRoundDge + "     \r\n")->At(1), test::RoundBoard(1));
}

TEST(BreFile, OtherBlanksAreIllegal) {
  EXPECT_EQ(FaultOf(kEvent + " \006A\r\n"), Told("Illegal card code at position: 1  in line: 4"));
  EXPECT_EQ(FaultOf(kEvent + "\006A\t\r\n"), Told("Illegal card code at position: 3  in line: 4"));
  EXPECT_EQ(FaultOf(kEvent + "\006A\r\r\n"), Told("Illegal card code at position: 3  in line: 4"));
}

TEST(BreFile, ALineOfSpacesIsAnEmptyBoard) {
  const auto set = SetOf(kEvent + "   \r\n" + kRoundDge);
  EXPECT_EQ(set->LastBoard, 2);
  EXPECT_EQ(set->At(1).Status, Board::kEmpty);
  EXPECT_EQ(set->At(1).Number, 1);
}

TEST(BreFile, AHandWithoutThirteenCardsMakesAnIncompleteBoard) {
  const auto set = SetOf(kEvent +
                         "\006AK\003\004\005\006\003\004\005\006\003\004\005\006\003\004\005"
                         "2");
  const Board& board = set->At(1);
  EXPECT_EQ(board.Status, Board::kIncomplete);
  EXPECT_EQ(board.Cards[1], kNorth);
  EXPECT_EQ(board.Cards[2], kNorth);
  EXPECT_EQ(board.Cards[52], kWest);
  EXPECT_EQ(board.HandCount[kNorth], 2);
  EXPECT_EQ(board.Dealer, kNorth);
  EXPECT_EQ(board.Vul, 1);
}

TEST(BreFile, AFaultInTheFourthLineIsToldForLine4) {
  RecordDesk desk;
  EXPECT_FALSE(desk.Load("set.bre", kEvent + "\003\r\n" + kSuitsDge));
  EXPECT_THAT(desk.Ui.Boxes,
              ElementsAre(LoadError(Told("Unexpected charater at position:  1  in line: 4"))));
  EXPECT_THAT(desk.Ui.Statuses, ElementsAre("Load operation aborted", "Ready"));
  EXPECT_THAT(desk.LogLines(),
              ElementsAre("  Load: " + (desk.Folder / "set.bre"),
                          "    Load Error: File format error: Unexpected charater at position:  1  "
                          "in line: 4 :  : Load operation aborted!"));
  ExpectNoSet(desk.Prog.Set);
}

TEST(BreFile, BlankLinesCountInTheNumberOfALine) {
  EXPECT_EQ(FaultOf(kEvent + kSuitsDge + "\r\n\r\n\006AA\r\n"),
            Told("Duplicate card at position: 3  in line: 6"));
}

TEST(BreFile, PositionsInALineAreBytes) {
  EXPECT_EQ(FaultOf("a\nb\nc\n\xC3\xA9\006A"),
            Told("Illegal card code at position: 1  in line: 4"));
  // From byte 69 on the last fault counts: e acute and 67 bytes fill the first 68.
  EXPECT_EQ(FaultOf("a\nb\nc\n\xC3\xA9" + std::string(66, '?') + "x"),
            Told("Illegal card code at position: 69  in line: 4"));
}

TEST(BreFile, ALineLongerThan68BytesIsAFault) {
  EXPECT_EQ(FaultOf(kEvent + kSuitsDge + "A"), Told("Duplicate card at position: 69  in line: 4"));
}

std::string LinesOf(int boards) {
  std::string bytes = kEvent;
  for (int i = 0; i < boards; ++i) bytes += kRoundDge + "\r\n";
  return bytes;
}

TEST(BreFile, MoreThan640BoardsAreTooManyRecords) {
  const auto set = SetOf(LinesOf(640));
  EXPECT_EQ(set->LastBoard, 640);
  EXPECT_EQ(set->At(640), test::RoundBoard(640));
  EXPECT_EQ(FaultOf(LinesOf(641)), kTooMany);
}

TEST(BreWriter, WritesTheFileByteForByte) {
  RecordDesk desk;
  desk.TwoBoards(1);
  desk.Prog.Set.EventName = "Evening";
  desk.Prog.Set.EventDate = "2026.03.03";
  desk.Prog.Set.At(2).Cards[52] = 0;  // West's Two of Clubs
  AnalyzeBoard(desk.Prog.Set.At(2));
  EXPECT_EQ(desk.Saved("set.bre"),
            "Evening\r\n\r\n2026.03.03\r\n"
            "\006AKQJT98765432\003\004\005\006\003AKQJT98765432\004\005"
            "\006\003\004AKQJT98765432\005\006\003\004\005AKQJT98765432\r\n"
            "\006AT62\003J73\004Q84\005K95\006K95\003AT62\004J73\005Q84"
            "\006Q84\003K95\004AT62\005J73\006J73\003Q84\004K95\005AT6\r\n");
}

TEST(BreWriter, AnEmptyBoardIsSixteenMarks) {
  RecordDesk desk;
  desk.TwoBoards(1);
  desk.Prog.Set.LastBoard = 1;
  desk.Prog.Set.At(1) = Board{};
  EXPECT_EQ(desk.Saved("set.bre"),
            "\r\n\r\n\r\n"
            "\006\003\004\005\006\003\004\005\006\003\004\005\006\003\004\005\r\n");
}

TEST(BreWriter, EventTextsAreNotCut) {
  RecordDesk desk;
  desk.TwoBoards(1);
  desk.Prog.Set.EventName = std::string(201, 'n');
  desk.Prog.Set.EventDate = std::string(41, 'd');
  EXPECT_TRUE(desk.Saved("set.bre").starts_with(std::string(201, 'n') + "\r\n\r\n" +
                                                std::string(41, 'd') + "\r\n\006AKQ"));
}

TEST(BreWriter, EventTextsAreWindows1252WherePossibleAndElseUtf8) {
  RecordDesk desk;
  desk.TwoBoards(1);
  desk.Prog.Set.EventName = "Caf\xC3\xA9";
  EXPECT_TRUE(desk.Saved("set.bre").starts_with("Caf\xE9\r\n\r\n\r\n\006AKQ"));
  desk.Prog.Set.EventSite = "\xC5\x81";
  EXPECT_TRUE(desk.Saved("set.bre").starts_with("Caf\xC3\xA9\r\n\xC5\x81\r\n\r\n\006AKQ"));
}

TEST(BreRoundTrip, TheThreeEventTextsComeBackWhateverTheirCharacters) {
  // Together they have one encoding, so that what one of them holds decides for all.
  const std::vector<std::string> texts = {"",
                                          "Evening",
                                          "Caf\xC3\xA9",
                                          "\xC3\x83\xC2\xA9",
                                          "\xE2\x82\xAC",
                                          "\xC5\x81",
                                          "\xEF\xBB\xBFx",
                                          "a\rb",
                                          "\"#%"};
  BoardSet set = EmptySet(1, 1);
  set.At(1) = test::SuitBoard(1);
  for (const std::string& name : texts) {
    for (const std::string& site : texts) {
      for (const std::string& date : texts) {
        set.EventName = name;
        set.EventSite = site;
        set.EventDate = date;
        const auto back = SetOf(BreBytes(set));
        EXPECT_EQ(back->EventName, name);
        EXPECT_EQ(back->EventSite, site);
        EXPECT_EQ(back->EventDate, date);
        EXPECT_EQ(back->At(1), set.At(1));
      }
    }
  }
}

}  // namespace
}  // namespace morvane::files
