#include <string>

#include "files/load_desk.h"
#include "program/log_record.h"

namespace morvane::files {
namespace {

using test::TestDesk;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

// Files as other programs write them, and what becomes of them. The hands are those of each file's
// own Deal values, turned so that North stands first.

std::string Corpus(const std::string& name) {
  return std::string(MORVANE_TEST_DATA) + "/pbn/" + name;
}

struct Loaded : TestDesk {
  explicit Loaded(const std::string& name) : Ok(LoadFile(Prog, History, Corpus(name))) {}
  [[nodiscard]] std::string Cards(int n) const { return FormatBoardForLog(Prog.Set.At(n), false); }
  /// The one line of the box that says what is wrong.
  [[nodiscard]] std::string Fault() const {
    if (Ui.Boxes.size() != 1) return "no box";
    const std::string line = OneLine(Ui.Boxes[0].Text);
    const std::size_t start = std::string("File format error: ").size();
    return line.substr(start, line.find(" : ") - start);
  }
  bool Ok;
};

TEST(PbnCorpus, AScoringProgramsExportWithAuctionPlayAndTables) {
  const Loaded file("club_night.pbn");
  ASSERT_TRUE(file.Ok);
  const BoardSet& set = file.Prog.Set;
  EXPECT_EQ(set.EventName, "Club Night");
  EXPECT_EQ(set.EventSite, "Village Hall");
  EXPECT_EQ(set.EventDate, "2026.02.10");
  EXPECT_EQ(set.FirstBoard, 1);
  EXPECT_EQ(set.LastBoard, 2);
  EXPECT_EQ(file.Cards(1), "Q953.85.J532.T42 2.Q7642.A8.AK763 AKJ4.KT9.K76.J98 T876.AJ3.QT94.Q5 ");
  EXPECT_EQ(file.Cards(2), "T865.Q653.AJ64.2 72.K97.T9.KQ9874 AK3.T2.KQ875.A65 QJ94.AJ84.32.JT3 ");
  EXPECT_EQ(set.At(1).Dealer, kNorth);
  EXPECT_EQ(set.At(2).Dealer, kEast);
  EXPECT_EQ(set.At(1).Vul, 1);
  EXPECT_EQ(set.At(2).Vul, 2);
  EXPECT_EQ(set.At(1).Status, Board::kComplete);
  EXPECT_EQ(set.At(2).Status, Board::kComplete);
}

TEST(PbnCorpus, SeveralTagsALineInAnyOrderWithSmallLettersAndUnixLines) {
  const Loaded file("tags_in_a_row.pbn");
  ASSERT_TRUE(file.Ok);
  const BoardSet& set = file.Prog.Set;
  EXPECT_EQ(set.EventName, "Spring Pairs");
  EXPECT_EQ(set.EventSite, "");
  EXPECT_EQ(set.EventDate, "????.??.\?\?");
  EXPECT_EQ(set.FirstBoard, 17);
  EXPECT_EQ(set.LastBoard, 19);
  EXPECT_EQ(set.At(18), Board{});
  EXPECT_EQ(file.Cards(19), "J843.A85.AQJ84.2 KQ9.T963.97.T965 752.KJ72.K5.AQJ4 AT6.Q4.T632.K873 ");
  EXPECT_EQ(file.Cards(17), "7.AJ65.Q43.AJT32 Q42.3.KJ82.KQ985 AJ63.KT74.A976.4 KT985.Q982.T5.76 ");
  EXPECT_EQ(set.At(19).Dealer, kSouth);
  EXPECT_EQ(set.At(19).Vul, 3);
  EXPECT_EQ(set.At(17).Dealer, kNorth);
  EXPECT_EQ(set.At(17).Vul, 1);
}

TEST(PbnCorpus, DoubleDummyTricksOfAnAnalysisProgram) {
  const Loaded file("double_dummy.pbn");
  ASSERT_TRUE(file.Ok);
  EXPECT_EQ(file.Cards(5), "53.92.K42.KT5432 QT2.KT876.AQ986. A9876.A43.T53.J8 KJ4.QJ5.J7.AQ976 ");
  EXPECT_EQ(file.Prog.Set.At(5).Vul, 4);
  EXPECT_EQ(file.Prog.Set.At(5).Tricks,
            (std::array<std::uint8_t, 21>{1, 2, 3, 4, 5, 0, 0, 0, 0, 0, 1,
                                          1, 2, 3, 4, 0, 0, 7, 6, 5, 0}));
}

TEST(PbnCorpus, PartialDealsAreIncompleteBoards) {
  const Loaded file("partial_deal.pbn");
  ASSERT_TRUE(file.Ok);
  EXPECT_EQ(file.Cards(10), "AKQ... ... ... ... ");
  EXPECT_EQ(file.Cards(11), "... ... AKQJT98765432... ... ");
  EXPECT_EQ(file.Cards(12), "... ... .AK..QJ ..T9. ");
  for (const int n : {10, 11, 12}) EXPECT_EQ(file.Prog.Set.At(n).Status, Board::kIncomplete);
}

TEST(PbnCorpus, AccentsInEachEncoding) {
  for (const char* name : {"accents_1252.pbn", "accents_utf8.pbn", "accents_utf8_mark.pbn"}) {
    const Loaded file(name);
    ASSERT_TRUE(file.Ok);
    EXPECT_EQ(file.Prog.Set.EventName,
              "Caf\xC3\xA9 \xC2\xAB B\xC3\xBC"
              "cher \xC2\xBB")
        << name;
    EXPECT_EQ(file.Prog.Set.EventSite,
              "5 \xE2\x82\xAC Stra\xC3\x9F"
              "e")
        << name;
    EXPECT_EQ(file.Prog.Set.EventDate, "f\xC3\xA9vrier") << name;
    EXPECT_EQ(file.Prog.Set.Count(), 1);
  }
}

TEST(PbnCorpus, TagsThatBeginLikeEventCountAsEvent) {
  const Loaded file("event_sponsor.pbn");
  ASSERT_TRUE(file.Ok);
  EXPECT_EQ(file.Prog.Set.EventName, "The Bank");
  EXPECT_EQ(file.Cards(1), "T7.Q53.KQ82.AKT4 J643.AK9.J76.982 K82.T862.A5.Q765 AQ95.J74.T943.J3 ");
}

TEST(PbnCorpus, ATagOnTwoLinesIsRefused) {
  EXPECT_EQ(Loaded("split_tag.pbn").Fault(), "Expected character '\"' not found in line: 2");
}

TEST(PbnCorpus, ABoardWithoutANumberIsRefused) {
  EXPECT_EQ(Loaded("no_board_number.pbn").Fault(), "Invalid board number in line: 4");
}

TEST(PbnCorpus, ATagInsideACommentIsRead) {
  EXPECT_EQ(Loaded("tag_in_a_comment.pbn").Fault(), "Expected character '\"' not found in line: 2");
}

TEST(PbnCorpus, AnUnknownDealerIsRefused) {
  const Loaded file("unknown_dealer.pbn");
  EXPECT_EQ(file.Fault(), "Invalid string \"\" in line: 2");
  EXPECT_FALSE(file.Ok);
  EXPECT_FALSE(file.Prog.Set.Exists());
}

TEST(PbnCorpus, EveryFileThatLoadsIsLoggedBoardByBoard) {
  const Loaded file("partial_deal.pbn");
  EXPECT_THAT(
      file.LogLines(),
      ElementsAre("  Load: " + Corpus("partial_deal.pbn"), "   010 : AKQ... ... ... ... ",
                  "   011 : ... ... AKQJT98765432... ... ", "   012 : ... ... .AK..QJ ..T9. "));
  EXPECT_THAT(file.Ui.Boxes, IsEmpty());
}

}  // namespace
}  // namespace morvane::files
