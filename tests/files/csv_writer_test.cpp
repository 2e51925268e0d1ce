#include "files/csv_file.h"
#include "files/csv_lines.h"
#include "files/save_set.h"
#include "files/sets.h"
#include "support/fakes.h"

namespace morvane::files {
namespace {

using test::FakeUi;
using ::testing::ElementsAre;

TEST(CsvWriter, WritesTheFileByteForByte) {
  BoardSet set = EmptySet(1, 2);
  set.At(1) = test::SuitBoard(1);
  set.At(2) = test::RoundBoard(2);
  EXPECT_EQ(CsvText(set),
            "\"AKQJT98765432\",\"\",\"\",\"\","
            "\"\",\"AKQJT98765432\",\"\",\"\","
            "\"\",\"\",\"AKQJT98765432\",\"\","
            "\"\",\"\",\"\",\"AKQJT98765432\",\"1\",\"N/-\"\r\n"
            "\"AT62\",\"J73\",\"Q84\",\"K95\","
            "\"K95\",\"AT62\",\"J73\",\"Q84\","
            "\"Q84\",\"K95\",\"AT62\",\"J73\","
            "\"J73\",\"Q84\",\"K95\",\"AT62\",\"2\",\"E/NS\"\r\n");
}

TEST(CsvWriter, KeepsTheNumbersOfTheSet) {
  BoardSet set = EmptySet(639, 640);
  // 639 and 640 stand at places 15 and 16 of the cycle: South with North and South, West with East
  // and West vulnerable.
  set.At(639) = test::SuitBoard(639);
  set.At(640) = test::SuitBoard(640);
  EXPECT_EQ(CsvText(set),
            std::string(kSuitFields) + "639\",\"S/NS\"\r\n" + kSuitFields + "640\",\"W/EW\"\r\n");
}

/// The line of board 1 behind its number, with this dealer and vulnerability.
std::string EndOfLine(std::uint8_t dealer, std::uint8_t vul) {
  BoardSet set = EmptySet(1, 1);
  set.At(1) = test::SuitBoard(1);
  set.At(1).Dealer = dealer;
  set.At(1).Vul = vul;
  const std::string text = CsvText(set);
  const std::string start = std::string(kSuitFields) + "1\",\"";
  EXPECT_TRUE(text.starts_with(start));
  return text.substr(start.size());
}

TEST(CsvWriter, NamesDealerAndVulnerabilityOfTheBoard) {
  EXPECT_EQ(EndOfLine(kNorth, 1), "N/-\"\r\n");
  EXPECT_EQ(EndOfLine(kEast, 2), "E/NS\"\r\n");
  EXPECT_EQ(EndOfLine(kSouth, 3), "S/EW\"\r\n");
  EXPECT_EQ(EndOfLine(kWest, 4), "W/All\"\r\n");
}

TEST(CsvWriter, WithoutAVulnerabilityTheLineHasNoClosingQuote) {
  EXPECT_EQ(EndOfLine(0, 0), "\r\n");
  EXPECT_EQ(EndOfLine(kEast, 0), "E/\r\n");
  EXPECT_EQ(EndOfLine(0, 4), "All\"\r\n");
}

TEST(CsvRoundTrip, TheBoardsComeBackAndTheSetBeginsAtOne) {
  std::mt19937 random(20260303);
  for (int i = 0; i < 100; ++i) {
    const int first = static_cast<int>(random() % 600) + 1;
    const int last = first + 1 + static_cast<int>(random() % 39);
    const BoardSet set = RandomSet(random, first, last);
    BoardSet back = EmptySet(1, 0);
    ASSERT_FALSE(ParseCsv(CsvText(set), back, InitMessages()));
    EXPECT_EQ(back.FirstBoard, 1);
    EXPECT_EQ(back.LastBoard, last);
    EXPECT_TRUE(back.Boards == set.Boards);
  }
}

TEST(CsvRoundTrip, LinesWithoutTheirClosingQuoteComeBack) {
  BoardSet set = EmptySet(1, 2);
  for (int n = 1; n <= 2; ++n) {
    set.At(n) = test::SuitBoard(n);
    set.At(n).Vul = 0;
    set.At(n).Dealer = 0;
  }
  BoardSet back = EmptySet(1, 0);
  ASSERT_FALSE(ParseCsv(CsvText(set), back, InitMessages()));
  EXPECT_EQ(back.At(2), test::SuitBoard(2));
}

TEST(CsvRoundTrip, ASetOfOneBoardIsWrittenAndNotReadAgain) {
  BoardSet set = EmptySet(1, 1);
  set.At(1) = test::SuitBoard(1);
  BoardSet back = EmptySet(1, 0);
  EXPECT_TRUE(ParseCsv(CsvText(set), back, InitMessages()));
}

// With the operator.

/// A desk with one complete board, number 5.
struct CsvDesk : test::TestDesk {
  CsvDesk() {
    Prog.Set = EmptySet(5, 5);
    Prog.Set.At(5) = test::SuitBoard(5);
    Prog.Set.BoardSetChanged = "1";
  }
  const std::string Path = Folder / "evening.csv";
};

TEST(CsvSave, AsksAboutTheEventTextsAndNotAboutTheNumbers) {
  CsvDesk desk;
  desk.Ui.Answers = {kYes};
  EXPECT_TRUE(SaveFile(desk.Prog, desk.History, desk.Path));
  EXPECT_THAT(
      desk.Ui.Boxes,
      ElementsAre(FakeUi::Box{
          "      CSV format does not support Event Name, Event Site and Event Date Information.    "
          " "
          " \r\n      This information will not be saved.      \r\n      If you need to save this "
          "information please use PBN or BRE formats.      \r\n\r\n      Do you want to save "
          "current Board Set in CSV format anyway?      \r\n",
          68, "Save Boards Set"}));
  // Board 5: North, NS.
  EXPECT_EQ(test::Content(desk.Path), std::string(kSuitFields) + "5\",\"N/NS\"\r\n");
  EXPECT_EQ(desk.Ui.Statuses.back(), "Boards Saved: 1");
  EXPECT_EQ(desk.Prog.Set.BoardSetChanged, "0");
}

TEST(CsvSave, ANoLeavesNoFile) {
  CsvDesk desk;
  desk.Ui.Answers = {kNo};
  EXPECT_FALSE(SaveFile(desk.Prog, desk.History, desk.Path));
  EXPECT_FALSE(std::filesystem::exists(desk.Path));
  EXPECT_EQ(desk.Prog.Set.BoardSetChanged, "1");
}

TEST(CsvSave, AnIncompleteBoardIsAnErrorAndNothingIsAsked) {
  CsvDesk desk;
  desk.Prog.Set.At(5).Cards[52] = 0;
  AnalyzeBoard(desk.Prog.Set.At(5));
  EXPECT_FALSE(SaveFile(desk.Prog, desk.History, desk.Path));
  EXPECT_THAT(desk.Ui.Boxes,
              ElementsAre(FakeUi::Box{
                  "      Board number: 5 is incomplete.      \r\n      This Board Set cannot be "
                  "saved in CSV format.      \r\n      If you need to save this Board Set please "
                  "use PBN or BRE format.      \r\n",
                  16, "Save Error"}));
  EXPECT_FALSE(std::filesystem::exists(desk.Path));
}

TEST(CsvSave, AFullDiskIsTheSystemsError) {
  CsvDesk desk;
  desk.Store.Set(kSaveEvent, "0");
  std::filesystem::create_symlink("/dev/full", desk.Path);
  EXPECT_FALSE(SaveFile(desk.Prog, desk.History, desk.Path));
  EXPECT_THAT(desk.Ui.Boxes,
              ElementsAre(FakeUi::Box{"      Error: 28 during save operation - No space left on "
                                      "device      \r\n      Save operation aborted!      ",
                                      16, "Save Error"}));
  EXPECT_EQ(desk.Prog.Set.BoardSetChanged, "1");
}

}  // namespace
}  // namespace morvane::files
