#include <filesystem>
#include <memory>

#include "files/csv_file.h"
#include "files/csv_lines.h"
#include "files/load_desk.h"
#include "files/log_records.h"
#include "files/parsed_text.h"
#include "support/fakes.h"

namespace morvane::files {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

std::unique_ptr<BoardSet> SetOf(const std::string& text) {
  return ParseWith(ParseCsv, text).Sound();
}

/// The fault of a file whose second line is `line`, the first being board 1.
std::string FaultOf(const std::string& line) {
  return ParseWith(ParseCsv, SuitLine("1") + "\r\n" + line + "\r\n").Error;
}

TEST(CsvReader, ReadsBoardsWithTheirNumbers) {
  const auto set = SetOf(SuitLine("1") + "\r\n" + kRoundFields + "2\",\"E/NS\"\r\n");
  EXPECT_EQ(set->FirstBoard, 1);
  EXPECT_EQ(set->LastBoard, 2);
  EXPECT_EQ(set->CurrentBoard, 1);
  EXPECT_EQ(set->At(1), test::SuitBoard(1));
  EXPECT_EQ(set->At(2), test::RoundBoard(2));
  EXPECT_EQ(set->EventName + set->EventSite + set->EventDate, "");
}

TEST(CsvReader, DealerAndVulnerabilityFollowTheNumberWhateverTheLineSays) {
  const auto set = SetOf(SuitLine("1") + "\n" + kSuitFields + "7\",\"W/EW\"\n");
  EXPECT_EQ(set->At(7).Dealer, kSouth);
  EXPECT_EQ(set->At(7).Vul, 4);
  EXPECT_EQ(set->At(7).Status, Board::kComplete);
}

TEST(CsvReader, AFileOfOneLineCountsAsEmpty) {
  EXPECT_EQ(ParseWith(ParseCsv, SuitLine("1")).Error, Told("File is empty"));
  EXPECT_EQ(ParseWith(ParseCsv, SuitLine("1") + "\r\n").Error, Told("File is empty"));
  EXPECT_EQ(ParseWith(ParseCsv, "").Error, Told("File is empty"));
  EXPECT_EQ(ParseWith(ParseCsv, "\r\n").Error, Told("File is empty"));
  EXPECT_EQ(ParseWith(ParseCsv, "not a board at all").Error, Told("File is empty"));
}

TEST(CsvReader, TheLastLineNeedsNoEnd) {
  EXPECT_EQ(SetOf(SuitLine("1") + "\r\n" + SuitLine("2"))->LastBoard, 2);
}

TEST(CsvReader, LinesComeInAnyOrderAndTheFirstBoardStaysOne) {
  const auto set = SetOf(SuitLine("9") + "\n" + kRoundFields + "5\"\n" + SuitLine("7") + "\n");
  EXPECT_EQ(set->FirstBoard, 1);
  EXPECT_EQ(set->LastBoard, 9);
  EXPECT_EQ(set->At(5), test::RoundBoard(5));
  EXPECT_EQ(set->At(7), test::SuitBoard(7));
  EXPECT_EQ(set->At(9), test::SuitBoard(9));
  for (int n : {1, 2, 3, 4, 6, 8}) EXPECT_EQ(set->At(n), Board{}) << n;
}

TEST(CsvReader, ANumberThatABoardHasAlreadyIsInvalid) {
  EXPECT_EQ(FaultOf(SuitLine("1")), Told("Invalid board number in line: 2"));
  EXPECT_EQ(
      ParseWith(ParseCsv, SuitLine("3") + "\n" + SuitLine("4") + "\n" + SuitLine("3") + "\n").Error,
      Told("Invalid board number in line: 3"));
}

TEST(CsvReader, ANumberLiesBetween1And640) {
  for (const char* number : {"700", "641", "0", "000", "", "65537", "4294967297",
                             "99999999999999999999999999999999999999"}) {
    EXPECT_EQ(FaultOf(SuitLine(number)), Told("Invalid board number in line: 2")) << number;
  }
  EXPECT_EQ(SetOf(SuitLine("640") + "\n" + SuitLine("1"))->LastBoard, 640);
  EXPECT_EQ(SetOf(SuitLine("0002") + "\n" + SuitLine("1"))->LastBoard, 2);
}

TEST(CsvReader, ANumberAbove640Becomes641) {
  Board board;
  EXPECT_EQ(ParseCsvLine(SuitLine("700"), board, InitMessages()), "");
  EXPECT_EQ(board.Number, 641);
  EXPECT_EQ(ParseCsvLine(SuitLine("640"), board, InitMessages()), "");
  EXPECT_EQ(board.Number, 640);
}

TEST(CsvReader, ANumberIsDigitsOnly) {
  EXPECT_EQ(FaultOf(SuitLine("1a")), Told("Invalid character: a  in line: 2"));
  EXPECT_EQ(FaultOf(SuitLine(" 2")), Told("Invalid character:    in line: 2"));
  EXPECT_EQ(FaultOf(SuitLine("-2")), Told("Invalid character: -  in line: 2"));
  EXPECT_EQ(FaultOf(SuitLine("9999999999x")), Told("Invalid character: x  in line: 2"));
}

TEST(CsvReader, ALineBeginsWithAQuote) {
  EXPECT_EQ(FaultOf("AKQ"), Told("Invalid character: A  in line: 2"));
  EXPECT_EQ(FaultOf(" " + SuitLine("2")), Told("Invalid character:    in line: 2"));
}

TEST(CsvReader, AnEmptyLineHasNothingInPlaceOfTheInvalidCharacter) {
  EXPECT_EQ(FaultOf(""), Told("Invalid character:   in line: 2"));
  EXPECT_EQ(ParseWith(ParseCsv, "\n" + SuitLine("1") + "\n").Error,
            Told("Invalid character:   in line: 1"));
}

TEST(CsvReader, ALowerCaseRankIsInvalid) {
  EXPECT_EQ(FaultOf("\"AKq\",\"\""), Told("Invalid character: q  in line: 2"));
}

TEST(CsvReader, WhatIsNoRankInASuitIsInvalid) {
  EXPECT_EQ(FaultOf("\"AK1\""), Told("Invalid character: 1  in line: 2"));
  EXPECT_EQ(FaultOf("\"10\""), Told("Invalid character: 1  in line: 2"));
  EXPECT_EQ(FaultOf("\"A,K\""), Told("Invalid character: ,  in line: 2"));
  EXPECT_EQ(FaultOf("\"A\";\"K\""), Told("Invalid character: \"  in line: 2"));
  EXPECT_EQ(FaultOf("\"A\", \"K\""), Told("Invalid character: \"  in line: 2"));
  EXPECT_EQ(FaultOf("\"A\""), Told("Invalid character: \"  in line: 2"));
}

TEST(CsvReader, AnInvalidCharacterIsNamedWhole) {
  EXPECT_EQ(FaultOf("\"A\xC3\xA9\""), Told("Invalid character: \xC3\xA9  in line: 2"));
  EXPECT_EQ(FaultOf("\xE2\x82\xAC"), Told("Invalid character: \xE2\x82\xAC  in line: 2"));
}

TEST(CsvReader, ALineThatEndsInsideASuitHasAnIncorrectLength) {
  EXPECT_EQ(FaultOf("\"AKQ"), Told("Incorrect length of line: 2"));
  EXPECT_EQ(FaultOf("\""), Told("Incorrect length of line: 2"));
  EXPECT_EQ(FaultOf("\"AKQ\",\""), Told("Incorrect length of line: 2"));
}

TEST(CsvReader, ALineThatEndsInsideItsNumberHasAnIncorrectLength) {
  EXPECT_EQ(FaultOf(kSuitFields), Told("Incorrect length of line: 2"));
  EXPECT_EQ(FaultOf(std::string(kSuitFields) + "2"), Told("Incorrect length of line: 2"));
}

TEST(CsvReader, ACardThatAHandHoldsAlreadyIsADuplicate) {
  EXPECT_EQ(FaultOf("\"AKA\""), Told("Duplicate card 'A' in line: 2"));
  // The Ten of Hearts of North and of East.
  EXPECT_EQ(FaultOf("\"A\",\"T\",\"\",\"\",\"K\",\"T\""), Told("Duplicate card 'T' in line: 2"));
}

TEST(CsvReader, WhatStandsBehindTheNumberIsNotRead) {
  const auto set = SetOf(std::string(kSuitFields) + "1\"\n" + kSuitFields + "2\" \xC3\xA9\"x\n" +
                         kSuitFields + "3\",\"Q/??");
  EXPECT_EQ(set->LastBoard, 3);
}

TEST(CsvReader, AHandNeedsNot13Cards) {
  const auto set = SetOf(SuitLine("1") +
                         "\n\"A\",\"\",\"\",\"\",\"K\",\"\",\"\",\"\","
                         "\"\",\"\",\"\",\"\",\"\",\"\",\"\",\"32\",\"2\",\"\"\n" +
                         "\"\",\"\",\"\",\"\",\"\",\"\",\"\",\"\","
                         "\"\",\"\",\"\",\"\",\"\",\"\",\"\",\"\",\"3\",\"\"\n");
  const Board& board = set->At(2);
  EXPECT_EQ(board.Status, Board::kIncomplete);
  EXPECT_EQ(board.Cards[1], kNorth);
  EXPECT_EQ(board.Cards[2], kEast);
  EXPECT_EQ(board.Cards[51], kWest);  // Three of Clubs
  EXPECT_EQ(board.Cards[52], kWest);
  EXPECT_EQ(board.HandCount, (std::array<std::uint8_t, 5>{0, 1, 1, 0, 2}));
  EXPECT_EQ(set->At(3), NumberedBoard(3));
}

TEST(CsvReader, RanksMayStandInAnyOrder) {
  const auto set = SetOf(SuitLine("1") + "\n\"2A\",\"\",\"\",\"\",\"\",\"\",\"\",\"\"," +
                         "\"\",\"\",\"\",\"\",\"\",\"\",\"\",\"\",\"2\"\n");
  EXPECT_EQ(set->At(2).Cards[1], kNorth);
  EXPECT_EQ(set->At(2).Cards[13], kNorth);
}

TEST(CsvReader, ALoneCrEndsNoLine) {
  EXPECT_EQ(ParseWith(ParseCsv, SuitLine("1") + "\r" + SuitLine("2") + "\r").Error,
            Told("File is empty"));
  EXPECT_EQ(FaultOf("\"AK\rQ\""), Told("Invalid character: \r  in line: 2"));
  EXPECT_EQ(SetOf(SuitLine("1") + "\r" + SuitLine("2") + "\n" + SuitLine("3"))->LastBoard, 3);
}

TEST(CsvReader, NulAndTheOldEndOfFileMarkAreOrdinaryCharacters) {
  EXPECT_EQ(FaultOf(std::string("\"A\0K\"", 5)),
            Told(std::string("Invalid character: \0  in line: 2", 32)));
  EXPECT_EQ(FaultOf("\x1A"), Told("Invalid character: \x1A  in line: 2"));
  EXPECT_EQ(SetOf(SuitLine("1") + "\x1A\n" + SuitLine("2"))->LastBoard, 2);
}

TEST(CsvReader, TheFirstFaultIsTold) {
  EXPECT_EQ(ParseWith(ParseCsv, "\"x\n\"y\n").Error, Told("Invalid character: x  in line: 1"));
}

// With the operator.

std::string FileOf(LoadDesk& desk, const std::string& content) {
  const std::string path = desk.Folder / "evening.csv";
  test::WriteContent(path, content);
  return path;
}

TEST(CsvLoad, TakesTheSetWithoutAQuestion) {
  LoadDesk desk;
  const std::string path = FileOf(desk, SuitLine("2") + "\r\n" + SuitLine("3") + "\r\n");
  desk.Ui.Files = {path};
  desk.Load();
  EXPECT_THAT(desk.Ui.Boxes, IsEmpty());
  EXPECT_EQ(desk.Prog.Set.FirstBoard, 1);
  EXPECT_EQ(desk.Prog.Set.LastBoard, 3);
  EXPECT_EQ(desk.Prog.Set.EventName, "");
  EXPECT_THAT(desk.Ui.Statuses, ElementsAre("Loading", "Boards loaded: 3"));
  EXPECT_EQ(desk.Store.Get(kInitFormat), "csv");
  EXPECT_THAT(desk.LogLines(),
              ElementsAre(" File-Load: 3:04:05 PM", "  Load: " + path,
                          Record("001", "... ... ... ... "), Record("002"), Record("003")));
}

TEST(CsvLoad, AFaultIsToldAndNothingSurvives) {
  LoadDesk desk;
  const std::string path = FileOf(desk, SuitLine("1") + "\r\n" + SuitLine("1") + "\r\n");
  EXPECT_FALSE(LoadFile(desk.Prog, desk.History, path));
  EXPECT_THAT(desk.Ui.Boxes, ElementsAre(LoadError(Told("Invalid board number in line: 2"))));
  EXPECT_THAT(desk.Ui.Statuses, ElementsAre("Load operation aborted", "Ready"));
  EXPECT_THAT(desk.LogLines(),
              ElementsAre("  Load: " + path,
                          "    Load Error: File format error: Invalid board number in line: 2 :  : "
                          "Load operation aborted!"));
  ExpectNoSet(desk.Prog.Set);
}

TEST(CsvLoad, AFileOfAnOlderProgramNamesItsCharactersToo) {
  LoadDesk desk;
  EXPECT_FALSE(LoadFile(desk.Prog, desk.History, FileOf(desk, SuitLine("1") + "\r\n\"\xE9\"\r\n")));
  EXPECT_THAT(desk.Ui.Boxes,
              ElementsAre(LoadError(Told("Invalid character: \xC3\xA9  in line: 2"))));
}

}  // namespace
}  // namespace morvane::files
