#include "files/bre_file.h"
#include "files/bri_records.h"
#include "files/capability_checks.h"
#include "files/csv_file.h"
#include "files/deal305_records.h"
#include "files/dge_records.h"
#include "files/dup_records.h"
#include "files/fixed_records.h"
#include "files/format_contract.h"
#include "files/number_allocation.h"
#include "files/pbn_reader.h"
#include "files/pbn_writer.h"
#include "text/text.h"
#include "text/text_encoding.h"

namespace morvane::files {
namespace {

using ::testing::SizeIs;

constexpr int kSetsPerFormat = 100;

bool IsComplete(const BoardSet& set) {
  const auto first = set.Boards.begin() + set.FirstBoard;
  return std::all_of(first, first + set.Count(),
                     [](const Board& board) { return board.Status == Board::kComplete; });
}

/// Whether a file of `set` that was loaded makes the same file again, to the byte.
bool MakesTheSameFileAgain(const FormatCase& format, const BoardSet& set) {
  const BoardSet back = Back(format, set);
  if (Is(format, "DUP")) return set.FirstBoard == back.FirstBoard;
  if (Is(format, "CSV")) {
    // The dealer and the vulnerability are in the file, but are not read.
    return std::all_of(set.Boards.begin() + set.FirstBoard, set.Boards.begin() + set.LastBoard + 1,
                       [](const Board& board) {
                         return board.Dealer == DealerOfNumber(board.Number) &&
                                board.Vul == VulOfNumber(board.Number);
                       });
  }
  return !format.Events || (back.EventName == set.EventName && back.EventSite == set.EventSite &&
                            back.EventDate == set.EventDate);
}

std::string RandomText(std::mt19937& random) {
  const std::vector<std::string> texts = {"",
                                          "Evening",
                                          "Caf\xC3\xA9",
                                          "\xC3\x83\xC2\xA9",
                                          "\xE2\x82\xAC 5",
                                          "\xC5\x81\xC3\xB3"
                                          "d\xC5\xBA",
                                          " a  b ",
                                          "#",
                                          "##",
                                          "###3",
                                          "#7",
                                          "a#",
                                          "(\\/)'",
                                          std::string(40, 'd'),
                                          std::string(41, 'e'),
                                          std::string(200, 'n'),
                                          std::string(201, 'o')};
  return texts[random() % texts.size()];
}

/// A set with some of what a set can have: any first board, boards of one's own dealer, holes.
BoardSet AnySet(std::mt19937& random) {
  const int count = random() % 4 == 0 ? 1 : static_cast<int>(random() % 6) + 2;
  const int first = random() % 2 == 0 ? 1 : static_cast<int>(random() % 20) + 2;
  BoardSet set = RandomSet(random, first, first + count - 1);
  const bool incomplete = random() % 3 == 0;
  const bool rich = random() % 2 == 0;
  for (int n = set.FirstBoard; n <= set.LastBoard; ++n) {
    if (incomplete && random() % 2 == 0) {
      set.At(n) = RandomBoard(random, n, static_cast<unsigned>(random() % 9));
    }
    if (rich && random() % 2 == 0) Enrich(random, set.At(n));
  }
  set.EventName = RandomText(random);
  set.EventSite = RandomText(random);
  set.EventDate = RandomText(random);
  return set;
}

/// The bytes that `format` makes of a set.
std::string Compose(const FormatCase& format, const Program& program) {
  const BoardSet& set = program.Set;
  if (Is(format, "BRI")) return BriBytes(set);
  if (Is(format, "DGE")) return DgeBytes(set);
  if (Is(format, "DUP")) return DupBytes(set);
  if (Is(format, "DEAL305")) return Deal305Bytes(set);
  if (Is(format, "BRE")) return BreBytes(set);
  if (Is(format, "CSV")) return CsvText(set);
  return EncodeText(PbnText(set, "1.0", true));
}

std::optional<FormatFault> Parse(const FormatCase& format, const std::string& bytes,
                                 Program& program, FileNumbers& numbers) {
  BoardSet& set = program.Set;
  if (Is(format, "BRE")) return ParseBre(bytes, set, program.Texts);
  if (Is(format, "CSV")) return ParseCsv(DecodeText(bytes), set, program.Texts);
  if (Is(format, "PBN")) return ParsePbn(DecodeText(bytes), set, program.Texts);
  return ParseFixedRecords(bytes, format.Name, set, numbers, program.Texts);
}

/// A set goes through one format, then through each of them, then into the same file again. The
/// files stay in memory: thousands on a disk, each safe from a power cut, would take minutes.
class FormatPairs : public ::testing::TestWithParam<FormatCase> {
 protected:
  /// The file of the set; none where the format can't hold it.
  std::optional<std::string> Save(const FormatCase& format) {
    Desk.Ui.Boxes.clear();
    const Format& own = Own(format);
    const bool may = MaySave(Desk.Prog, Desk.Prog.Set, own, IncompleteBoardList(Desk.Prog.Set));
    EXPECT_EQ(may, format.Incomplete || IsComplete(Desk.Prog.Set));
    EXPECT_THAT(Desk.Ui.Boxes, SizeIs(may ? 0 : 1));
    if (!may) return std::nullopt;
    return Compose(format, Desk.Prog);
  }
  /// Loads a file of `set` and holds what comes back against what the format promises.
  bool Load(const FormatCase& format, const std::string& bytes, const BoardSet& set) {
    Desk.Prog.Set.Clear();
    FileNumbers numbers;
    const auto fault = Parse(format, bytes, Desk.Prog, numbers);
    EXPECT_EQ(fault.has_value(), !ComesBack(format, set));
    if (fault) {
      EXPECT_NE(fault->Text, "");
      return false;
    }
    FakeNumbers dialog;
    EXPECT_TRUE(AllocateNumbers(Desk.Prog, dialog, Own(format), numbers));
    EXPECT_EQ(dialog.Shown, 0);
    ExpectSameSet(Desk.Prog.Set, Back(format, set));
    return true;
  }
  /// The file of `set`, which was loaded again; none where that can't be done.
  std::optional<std::string> Through(const FormatCase& format, const BoardSet& set) {
    Desk.Prog.Set = set;
    auto bytes = Save(format);
    if (bytes && !Load(format, *bytes, set)) bytes.reset();
    return bytes;
  }
  bool ThroughAndAgain(const FormatCase& format, const BoardSet& set) {
    const auto bytes = Through(format, set);
    if (!bytes) return false;
    const auto again = Save(format);
    // The empty boards in front of a set from CSV are what that format refuses.
    EXPECT_EQ(again.has_value(), !Is(format, "CSV") || set.FirstBoard == 1);
    if (again) {
      EXPECT_EQ(*again == *bytes, MakesTheSameFileAgain(format, set));
    }
    return true;
  }

  RecordDesk Desk;

 private:
  static const Format& Own(const FormatCase& format) {
    return *FindFormat(UpperCase(format.Extension));
  }
};

INSTANTIATE_TEST_SUITE_P(From, FormatPairs, ::testing::ValuesIn(kFormatCases),
                         [](const auto& info) { return std::string(info.param.Name); });

TEST_P(FormatPairs, WhatOneFormatGivesGoesIntoEveryOtherAsFarAsThatOneHoldsIt) {
  std::mt19937 random(20260402);
  std::array<int, kFormatCases.size()> loaded{};
  for (int made = 0; made < kSetsPerFormat && !HasFailure();) {
    if (!Through(GetParam(), AnySet(random))) continue;
    SCOPED_TRACE(++made);
    const BoardSet middle = Desk.Prog.Set;
    for (std::size_t to = 0; to < kFormatCases.size(); ++to) {
      SCOPED_TRACE(kFormatCases[to].Name);
      if (ThroughAndAgain(kFormatCases[to], middle)) ++loaded[to];
    }
  }
  EXPECT_THAT(loaded, ::testing::Each(::testing::Ge(kSetsPerFormat / 10)));
}

}  // namespace
}  // namespace morvane::files
