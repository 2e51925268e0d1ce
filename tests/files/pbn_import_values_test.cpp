#include "files/pbn_import_values.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "program/log_record.h"

namespace morvane::files {
namespace {

TEST(ImportedNumber, IsOneTo640) {
  EXPECT_EQ(ImportedNumber("1"), 1);
  EXPECT_EQ(ImportedNumber("007"), 7);
  EXPECT_EQ(ImportedNumber("640"), 640);
  for (const char* text : {"", "0", "641", "-1", "1a", "A1", "1 2", "99999999999999999999"}) {
    EXPECT_EQ(ImportedNumber(text), std::nullopt) << text;
  }
}

TEST(ImportedDealer, IsALetterOrAWordInAnyCase) {
  for (const char* text : {"N", "n", "North", "NORTH", "north"}) {
    EXPECT_EQ(ImportedDealer(text), 1) << text;
  }
  EXPECT_EQ(ImportedDealer("east"), 2);
  EXPECT_EQ(ImportedDealer("S"), 3);
  EXPECT_EQ(ImportedDealer("wEST"), 4);
  for (const char* text : {"", "No", "X", "NE", "Northe"}) {
    EXPECT_EQ(ImportedDealer(text), std::nullopt) << text;
  }
}

TEST(ImportedVul, TakesEverySpelling) {
  for (const char* text : {"None", "NONE", "none", "Love", "love", "-"}) {
    EXPECT_EQ(ImportedVul(text), 1) << text;
  }
  for (const char* text : {"NS", "ns", "N-S", "n-s", "N/S", "N S"}) {
    EXPECT_EQ(ImportedVul(text), 2) << text;
  }
  for (const char* text : {"EW", "E-W", "e/w"}) EXPECT_EQ(ImportedVul(text), 3) << text;
  for (const char* text : {"All", "ALL", "Both", "both"}) EXPECT_EQ(ImportedVul(text), 4) << text;
  for (const char* text : {"", "N", "SN", "Nobody", "--"}) {
    EXPECT_EQ(ImportedVul(text), std::nullopt) << text;
  }
}

/// The deal as the log has it, or its fault.
std::string Read(const std::string& text) {
  const ImportedDeal deal = ReadImportedDeal(text);
  if (!deal.Fault.empty()) return deal.Fault;
  Board board;
  board.Cards = deal.Cards;
  return FormatBoardForLog(board, false);
}

/// The letters of the hands that are given.
std::string Given(const std::string& text) {
  const ImportedDeal deal = ReadImportedDeal(text);
  std::string hands;
  for (std::size_t hand = 1; hand <= 4; ++hand) {
    if (deal.Given[hand]) hands += HandLetter(static_cast<int>(hand));
  }
  return hands;
}

TEST(ImportedDealValue, MayBeginWithAnyHand) {
  EXPECT_EQ(Read("N:A... K... Q... J..."), "A... K... Q... J... ");
  EXPECT_EQ(Read("e:A... K... Q... J..."), "J... A... K... Q... ");
  EXPECT_EQ(Read("S:A... K... Q... J..."), "Q... J... A... K... ");
  EXPECT_EQ(Read("w:A... K... Q... J..."), "K... Q... J... A... ");
}

TEST(ImportedDealValue, TakesSmallLettersAndTheTenAsTwoDigits) {
  EXPECT_EQ(Read("N:akqjt98.10.109.a10 - - -"), "AKQJT98.T.T9.AT ... ... ... ");
}

TEST(ImportedDealValue, MayHaveAnyNumberOfBlanks) {
  EXPECT_EQ(Read("N  :   A...    K...  Q...   J...  "), "A... K... Q... J... ");
}

TEST(ImportedDealValue, AHandMayLackItsLastSuitsAndMarkItsVoids) {
  EXPECT_EQ(Read("N:AK.Q J -.-.K.- .."), "AK.Q.. J... ..K. ... ");
}

TEST(ImportedDealValue, AVoidHandIsGivenADashIsNot) {
  EXPECT_EQ(Given("N:A... ... - -.-.-.-"), "NEW");
  EXPECT_EQ(Given("E:A..."), "E");
  EXPECT_EQ(Given("N:"), "");
  EXPECT_EQ(Read("N:A... ... - ..."), "A... ... ... ... ");
}

TEST(ImportedDealValue, FaultsAreToldInPlainWords) {
  EXPECT_EQ(Read("N:A... A... - -"), "the A of Spades stands twice");
  EXPECT_EQ(Read("N:...1010 - - -"), "the T of Clubs stands twice");
  EXPECT_EQ(Read("N:.1.. - - -"), "\"1\" is no card");
  EXPECT_EQ(Read("N:A\xC3\xA9.. - - -"), "\"\xC3\xA9\" is no card");
  EXPECT_EQ(Read("N:.... - - -"), "a hand has more than four suits");
  EXPECT_EQ(Read("N:A... - - - -"), "the deal has more than four hands");
  EXPECT_EQ(Read("X:A..."), "the deal does not begin with N, E, S or W");
  EXPECT_EQ(Read(":A..."), "the deal does not begin with N, E, S or W");
  EXPECT_EQ(Read("N A..."), "no \":\" stands behind the first letter of the deal");
  EXPECT_EQ(Read("N"), "no \":\" stands behind the first letter of the deal");
  EXPECT_EQ(Read("N:A..." + std::string(2000, ' ') + "-"), "the deal is too long");
}

// North makes 7 to 11 tricks in no-trump to clubs, South 13 and East and West none that count.
constexpr ImportedTricks kLevels{1, 2, 3, 4, 5, 0, 0, 0, 0, 0, 7, 7, 7, 7, 7, 0, 0, 0, 0, 0, 0};

TEST(ImportedTricks, AreTwentyHexadecimalDigitsNorthSouthEastWest) {
  EXPECT_EQ(TricksOfDigits("789abddddd0123456789").value(),
            (ImportedTricks{1, 2, 3, 4, 5, 0, 0, 0, 0, 0, 7, 7, 7, 7, 7, 0, 0, 1, 2, 3, 0}));
}

TEST(ImportedTricks, BelowSevenAreNoLevelWhicheverWayTheyAreWritten) {
  for (const char* text : {"789abddddd0000000000", "789ABDDDDD6666666666", "789abDdDdD1111111111",
                           "789ab ddddd 01234 56543"}) {
    EXPECT_EQ(TricksOfDigits(text), kLevels) << text;
  }
}

TEST(ImportedTricks, AreLeftOutWhenOneIsUnknownOrWrong) {
  for (const char* text :
       {"", "789abddddd000000000", "789abddddd00000000000", "789abddddd000000000*",
        "-89abddddd0000000000", "789abddddd000000000e", "789abddddd000000000?"}) {
    EXPECT_EQ(TricksOfDigits(text), std::nullopt) << text;
  }
}

constexpr const char* kRows =
    "\nN NT 7\nN S 8\nN H 9\nN D 10\nN C 11\nS NT 13\nS S 13\nS H 13\nS D 13\nS C 13\n"
    "E NT 0\nE S 1\nE H 2\nE D 3\nE C 4\nW NT 5\nW S 6\nW H 0\nW D 0\n";

TEST(TricksTable, HasOneRowForEachDeclarerAndDenomination) {
  EXPECT_EQ(TricksOfTable("Declarer;Denomination\\2R;Result\\2R", std::string(kRows) + "W C 6"),
            kLevels);
  EXPECT_EQ(TricksOfTable("Declarer;Denomination\\2R;Result\\2R", kRows), std::nullopt);
}

TEST(TricksTable, ItsColumnsStandInAnyOrderWithOthersBetween) {
  std::string rows;
  const std::array<const char*, 4> hands{"w", "E", "S", "n"};
  const std::array<const char*, 5> names{"c", "D", "H", "S", "N"};
  for (const char* hand : hands) {
    for (const char* name : names) rows += std::string(" 08 x ") + hand + "  " + name + "\n";
  }
  ImportedTricks twos{};
  std::fill(twos.begin(), twos.end() - 1, std::uint8_t{2});
  EXPECT_EQ(TricksOfTable("-Result\\2L;Note;+declarer; DENOMINATION \\3R", rows), twos);
}

TEST(TricksTable, ARowMayStandTwiceButNotWithAnotherResult) {
  const std::string rows = std::string(kRows) + "W C 6\n";
  EXPECT_EQ(TricksOfTable("Declarer;Denomination;Result", rows + "N NT 7"), kLevels);
  EXPECT_EQ(TricksOfTable("Declarer;Denomination;Result", rows + "N NT 8"), std::nullopt);
}

TEST(TricksTable, IsLeftOutWithAResultThatIsNoNumberOfTricks) {
  for (const char* last : {"W C *", "W C 14", "W C", "W C -1", "X C 6", "W X 6"}) {
    EXPECT_EQ(TricksOfTable("Declarer;Denomination;Result", std::string(kRows) + last),
              std::nullopt)
        << last;
  }
}

TEST(TricksTable, IsLeftOutWithoutOneOfItsColumns) {
  const std::string rows = std::string(kRows) + "W C 6\n";
  for (const char* header : {"", "Declarer;Denomination", "Declarer;Suit;Result", ";;", "#"}) {
    EXPECT_EQ(TricksOfTable(header, rows), std::nullopt) << header;
  }
}

TEST(Ability, HasFiveDigitsForEachDeclarer) {
  EXPECT_EQ(TricksOfAbility("N:789AB E:01234 S:ddddd W:56000"), kLevels);
  EXPECT_EQ(TricksOfAbility("ew:66666  s:D-DDDD n:7-89ab"), kLevels);
}

TEST(Ability, IsLeftOutUnlessItIsWhole) {
  for (const char* text : {"", "N:789AB E:01234 S:ddddd", "N:789AB E:01234 S:ddddd W:5600",
                           "N:789AB E:01234 S:ddddd W:560000", "N:789AB E:01234 S:ddddd W:5-000",
                           "N:789AB E:01234 S:ddddd X:56000", "N:789AB E:01234 S:ddddd 56000",
                           "N:789AB NS:789AC E:01234 S:ddddd W:56000"}) {
    EXPECT_EQ(TricksOfAbility(text), std::nullopt) << text;
  }
}

}  // namespace
}  // namespace morvane::files
