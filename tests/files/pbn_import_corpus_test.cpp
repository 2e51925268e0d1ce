#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "files/pbn_import_desk.h"
#include "files/pbn_reader.h"
#include "model/text_encoding.h"
#include "support/fakes.h"

namespace morvane::files {
namespace {

using ::testing::ElementsAre;

// Files as other programs of the field write them, the faulty ones included: what the strict reader
// makes of each, and what Import makes of it.

struct Row {
  const char* File;
  /// The numbers of the set that Load reads, or what it tells instead.
  const char* Load;
  /// The numbers of the set that Import takes, then boards taken, repeated, passed over, and notes.
  const char* Import;
};

constexpr std::array<Row, 29> kRows{{
    // An export with all its tags, auction, play and notes, and with repeat marks.
    {"export_format.pbn", "1-2", "1-2: 2 0 0 0"},
    // Both tables of a match, the second with repeat marks; a table of results with names.
    {"tables_of_a_board.pbn", "Unexpected character '#' in line: 17", "1-2: 2 2 0 0"},
    // Tags and a deal over several lines, with comments between their parts.
    {"tags_over_lines.pbn", "Expected character '\"' not found in line: 1", "3-3: 1 0 0 0"},
    // Line ends of a CR, and none behind the last line.
    {"classic_mac_lines.pbn", "1-2", "1-2: 2 0 0 0"},
    // Every line end written through a text file once more.
    {"line_ends_doubled.pbn", "1-2", "1-2: 2 0 0 0"},
    {"utf16_little.pbn", "File is empty", "1-1: 1 0 0 0"},
    {"utf16_big.pbn", "File is empty", "1-1: 1 0 0 0"},
    {"accents_1252.pbn", "1-1", "1-1: 1 0 0 0"},
    {"accents_utf8_mark.pbn", "1-1", "1-1: 1 0 0 0"},
    // Nothing but deals, one a line.
    {"deals_without_numbers.pbn", "Incorrect order of tokens in line: 1", "1-3: 3 0 0 0"},
    // Problems to solve: every tag there, nothing known but the deal.
    {"problem_collection.pbn", "Invalid board number in line: 5", "1-2: 2 0 0 0"},
    // Tag names and values in every case and spelling, the ten in two digits.
    {"loose_spellings.pbn", "Invalid string \" both \" in line: 8", "5-7: 3 0 0 0"},
    // Boards of which some hands are told.
    {"partial_hands.pbn", "Unexpected character '-' in line: 10", "10-14: 5 0 0 5"},
    // Values that last for the games behind.
    {"lasting_values.pbn", "1-3", "1-3: 3 0 0 0"},
    // Double-dummy tricks as they are, also below seven.
    {"true_tricks.pbn", "Incorrect length of string in line: 5", "1-2: 2 0 0 0"},
    // Double-dummy results as a table, or as abilities, and nothing else.
    {"result_table_only.pbn", "1-1", "1-1: 1 0 0 0"},
    {"ability_only.pbn", "1-1", "1-1: 1 0 0 0"},
    // An analysis that was not finished.
    {"unknown_tricks.pbn", "Unexpected character '*' in line: 3", "1-3: 3 0 0 3"},
    // Quotes, backslashes and brackets in event texts, by the rules and against them.
    {"quotes_in_values.pbn", "Expected character '\"' not found in line: 3", "1-1: 1 0 0 3"},
    {"quotes_not_escaped.pbn", "1-1", "1-1: 1 0 0 3"},
    // Edited by hand.
    {"quote_missing.pbn", "Expected character '\"' not found in line: 1", "1-2: 2 0 0 5"},
    {"bracket_missing.pbn", "Expected character ']' not found in line: 1", "1-2: 2 0 0 6"},
    {"values_without_quotes.pbn", "Expected character '\"' not found in line: 1", "1-1: 1 0 0 5"},
    {"games_in_comments.pbn", "1-9", "1-2: 2 0 0 2"},
    // Two sessions put together.
    {"two_sessions.pbn", "1-2", "1-2: 2 0 1 0"},
    {"numbers_out_of_range.pbn", "Invalid board number in line: 1", "640-640: 1 0 4 0"},
    {"faulty_deals.pbn", "Duplicate card 'A' in line: 2", "none: 0 0 6 0"},
    // Not what the name says.
    {"web_page.pbn", "File is empty", "none: 0 0 0 0"},
    {"comments_only.pbn", "1-1", "none: 0 0 0 0"},
}};

std::string Bytes(const std::string& name) {
  return test::Content(std::string(MORVANE_TEST_DATA) + "/pbn_import/" + name);
}

Imported Import(const std::string& name) { return Imported(DecodeAnyText(Bytes(name))); }

std::string NumbersOf(const BoardSet& set) {
  if (!set.Exists()) return "none";
  return std::to_string(set.FirstBoard) + "-" + std::to_string(set.LastBoard);
}

std::string Loaded(const std::string& name) {
  static const Messages texts = InitMessages();
  auto set = std::make_unique<BoardSet>();
  set->Clear();
  const auto fault = ParsePbn(DecodeText(Bytes(name)), *set, texts);
  if (!fault) return NumbersOf(*set);
  const std::string line = OneLine(FaultText(*fault));
  const std::size_t start = std::string("File format error: ").size();
  return line.substr(start, line.find(" : ") - start);
}

class ImportCorpusTest : public ::testing::TestWithParam<Row> {};

TEST_P(ImportCorpusTest, LoadMakesThisOfIt) { EXPECT_EQ(Loaded(GetParam().File), GetParam().Load); }

TEST_P(ImportCorpusTest, ImportMakesThisOfIt) {
  const Imported file = Import(GetParam().File);
  const ImportReport& report = file.Report;
  std::string made = NumbersOf(*file.Set) + ":";
  for (const int count :
       {report.Taken, report.Repeated, report.PassedOver.Count, report.Notes.Count}) {
    made += " " + std::to_string(count);
  }
  EXPECT_EQ(made, GetParam().Import) << ReportText(report);
}

INSTANTIATE_TEST_SUITE_P(Each, ImportCorpusTest, ::testing::ValuesIn(kRows), [](const auto& row) {
  const std::string file = row.param.File;
  return file.substr(0, file.find('.'));
});

constexpr const char* kFirst =
    "Q953.85.J532.T42 2.Q7642.A8.AK763 AKJ4.KT9.K76.J98 T876.AJ3.QT94.Q5 ";
constexpr const char* kSecond =
    "T865.Q653.AJ64.2 72.K97.T9.KQ9874 AK3.T2.KQ875.A65 QJ94.AJ84.32.JT3 ";
constexpr const char* kThird =
    "J843.A85.AQJ84.2 KQ9.T963.97.T965 752.KJ72.K5.AQJ4 AT6.Q4.T632.K873 ";

TEST(ImportCorpus, TheDealsAreThoseOfTheFile) {
  for (const char* name : {"export_format.pbn", "tables_of_a_board.pbn", "classic_mac_lines.pbn",
                           "line_ends_doubled.pbn", "problem_collection.pbn", "true_tricks.pbn",
                           "quote_missing.pbn", "bracket_missing.pbn", "games_in_comments.pbn",
                           "lasting_values.pbn", "deals_without_numbers.pbn"}) {
    const Imported file = Import(name);
    EXPECT_EQ(file.Cards(1), kFirst) << name;
    EXPECT_EQ(file.Cards(2), kSecond) << name;
  }
  EXPECT_EQ(Import("tags_over_lines.pbn").Cards(3), kThird);
  const Imported loose = Import("loose_spellings.pbn");
  EXPECT_EQ(loose.Cards(5), kFirst);
  EXPECT_EQ(loose.Cards(6), kSecond);
  EXPECT_EQ(loose.Cards(7), kThird);
}

TEST(ImportCorpus, DealerAndVulnerabilityInEverySpelling) {
  const Imported file = Import("loose_spellings.pbn");
  EXPECT_EQ(file.At(5).Dealer, kNorth);
  EXPECT_EQ(file.At(5).Vul, 2);
  EXPECT_EQ(file.At(6).Dealer, kEast);
  EXPECT_EQ(file.At(6).Vul, 4);
  EXPECT_EQ(file.At(7).Dealer, kWest);
  EXPECT_EQ(file.At(7).Vul, 3);
}

TEST(ImportCorpus, TheSameResultsInThreeForms) {
  for (const char* name : {"true_tricks.pbn", "result_table_only.pbn", "ability_only.pbn"}) {
    EXPECT_EQ(Import(name).At(1).Tricks,
              (std::array<std::uint8_t, 21>{1, 2, 0, 3, 0, 0, 0, 0, 0, 0, 1,
                                            2, 0, 3, 0, 7, 0, 0, 0, 3, 0}))
        << name;
  }
  EXPECT_EQ(Import("true_tricks.pbn").At(2).Tricks,
            (std::array<std::uint8_t, 21>{3, 4, 5, 6, 7, 0, 0, 1, 2, 3, 0,
                                          0, 0, 0, 0, 4, 5, 6, 7, 0, 0}));
}

TEST(ImportCorpus, EventTextsInEveryEncoding) {
  for (const char* name : {"utf16_little.pbn", "utf16_big.pbn"}) {
    const Imported file = Import(name);
    EXPECT_EQ(file.Set->EventName, "\xC5\x81\xC3\xB3\x64\xC5\xBA \xC7\xBA Open") << name;
    EXPECT_EQ(file.Set->EventSite, "\xE6\x9D\xB1\xE4\xBA\xAC") << name;
  }
  for (const char* name : {"accents_1252.pbn", "accents_utf8_mark.pbn"}) {
    EXPECT_EQ(Import(name).Set->EventName,
              "Caf\xC3\xA9 \xE2\x80\x93 B\xC3\xBC"
              "cher")
        << name;
  }
}

TEST(ImportCorpus, EventTextsByTheRulesAndAgainstThem) {
  const Imported escaped = Import("quotes_in_values.pbn");
  EXPECT_EQ(escaped.Set->EventName, "The 'Big' Game");
  EXPECT_EQ(escaped.Set->EventSite, "C:/Bridge/Sets");
  EXPECT_EQ(escaped.Set->EventDate, "(2026)");
  const Imported bare = Import("quotes_not_escaped.pbn");
  EXPECT_EQ(bare.Set->EventName, "The 'Big' Game");
  EXPECT_EQ(bare.Set->EventSite, "C:/Sets/");
  const Imported lasting = Import("lasting_values.pbn");
  EXPECT_EQ(lasting.Set->EventName, "Winter Series");
  EXPECT_EQ(lasting.Set->EventSite, "Hall 2");
  EXPECT_EQ(lasting.Set->EventDate, "2026.01.15");
  EXPECT_EQ(Import("problem_collection.pbn").Set->EventDate, "2025.11.\?\?");
}

TEST(ImportCorpus, ReasonsNameTheirLines) {
  EXPECT_THAT(Import("two_sessions.pbn").Report.PassedOver.First,
              ElementsAre("Line 5: board 1 has another deal than in line 1"));
  EXPECT_THAT(Import("faulty_deals.pbn").Report.PassedOver.First,
              ElementsAre("Line 2: board 1: the A of Spades stands twice",
                          "Line 4: board 2: the deal does not begin with N, E, S or W",
                          "Line 6: board 3: no \":\" stands behind the first letter of the deal",
                          "Line 8: board 4: a hand has more than four suits",
                          "Line 10: board 5: \"X\" is no card",
                          "Line 12: board 6: the deal has more than four hands"));
  EXPECT_THAT(
      Import("bracket_missing.pbn").Report.Notes.First,
      ElementsAre("Line 1: a closing bracket is missing", "Line 2: a closing bracket is missing",
                  "Line 2: a closing bracket is missing", "Line 3: a closing bracket is missing",
                  "Line 4: a closing bracket is missing", "Line 6: a closing bracket is missing"));
  EXPECT_THAT(
      Import("partial_hands.pbn").Report.Notes.First,
      ElementsAre("Line 1: board 10 is incomplete: North has 3 cards, East is not given, South has "
                  "0 cards, West is not given",
                  "Line 3: board 11 is incomplete: North is not given, East is not given, West is "
                  "not given",
                  "Line 5: board 12 is incomplete: West is not given",
                  "Line 7: board 13 is incomplete: no hand is given",
                  "Line 9: board 14 is incomplete: East is not given, South is not given, West is "
                  "not given"));
}

}  // namespace
}  // namespace morvane::files
