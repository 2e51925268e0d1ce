#include "files/format_contract.h"

#include <filesystem>
#include <optional>

#include "platform/files.h"
#include "program/setting_keys.h"
#include "support/file_size_limit.h"

namespace morvane::files {
namespace {

using test::FakeUi;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

/// One format, and a desk on which the file's place is empty.
class FormatContract : public ::testing::TestWithParam<FormatCase> {
 protected:
  FormatContract() {
    Desk.Prog.VersionText = "1.0";
    Set() = RandomSet(Random, 1, 3);
  }
  [[nodiscard]] static const FormatCase& Format() { return GetParam(); }
  BoardSet& Set() { return Desk.Prog.Set; }
  bool Save() { return SaveFile(Desk.Prog, Desk.History, File); }
  bool Load() { return LoadFile(Desk.Prog, Desk.History, Numbers, File); }
  void TurnOn(const SettingKey& key) { EXPECT_TRUE(Desk.Store.Set(key, "1")); }
  /// Takes a card from a board.
  void Break(int n, std::size_t card) {
    Set().At(n).Cards[card] = 0;
    AnalyzeBoard(Set().At(n));
  }
  /// Puts another file there, and changes into the set, which a save that fails leaves alone.
  void PutOld() {
    test::WriteContent(File, kOld);
    Set().BoardSetFile = "/old.pbn";
    Set().BoardSetChanged = "1";
  }
  void ExpectOld() {
    EXPECT_EQ(test::Content(File), kOld);
    EXPECT_EQ(Set().BoardSetFile, "/old.pbn");
    EXPECT_EQ(Set().BoardSetChanged, "1");
    const std::filesystem::directory_iterator folder(Desk.Folder.Path());
    EXPECT_EQ(std::distance(begin(folder), end(folder)), 2) << "the file and the data folder";
  }
  /// The set goes into its file and comes back as the format promises, if at all.
  void ExpectContract() {
    const BoardSet before = Set();
    EXPECT_TRUE(Save());
    EXPECT_THAT(Desk.Ui.Boxes, IsEmpty());
    ASSERT_TRUE(Load());
    EXPECT_THAT(Desk.Ui.Boxes, IsEmpty());
    ExpectSameSet(Set(), Back(Format(), before));
    EXPECT_EQ(Set().BoardSetFile, File);
    EXPECT_EQ(Set().BoardSetChanged, "0");
  }
  /// Nothing can be read; the operator is told `box`.
  void ExpectNotLoaded(const FakeUi::Box& box) {
    EXPECT_FALSE(Load());
    EXPECT_THAT(Desk.Ui.Boxes, ElementsAre(box));
    ExpectNoSet(Set());
  }

  static constexpr const char* kOld = "the old file\r\n";
  std::mt19937 Random{20260401};
  RecordDesk Desk;
  FakeNumbers Numbers;
  const std::string File = Desk.Folder / (std::string("set.") + Format().Extension);
};

INSTANTIATE_TEST_SUITE_P(Every, FormatContract, ::testing::ValuesIn(kFormatCases),
                         [](const auto& info) { return std::string(info.param.Name); });

// What comes back.

TEST_P(FormatContract, ACompleteSetComesBack) { ExpectContract(); }

TEST_P(FormatContract, ASetComesBackFromAPathOfAnyAlphabet) {
  const std::string folder = Desk.Folder / "\u00E4 \u6F22 \U0001F0CF";
  std::filesystem::create_directory(PathOfUtf8(folder));
  const std::string path =
      JoinPath(folder, "\u017C\u00F3\u0142\u0107 \U0001F600." + std::string(Format().Extension));
  const BoardSet before = Set();
  EXPECT_TRUE(SaveFile(Desk.Prog, Desk.History, path));
  ASSERT_TRUE(LoadFile(Desk.Prog, Desk.History, Numbers, path));
  EXPECT_THAT(Desk.Ui.Boxes, IsEmpty());
  ExpectSameSet(Set(), Back(Format(), before));
  EXPECT_EQ(Set().BoardSetFile, path);
}

TEST_P(FormatContract, AllThatASetHoldsComesBackAsFarAsTheFormatHoldsIt) {
  for (int n = 1; n <= 3; ++n) Enrich(Random, Set().At(n));
  Set().At(2).Tricks = {};
  Set().EventName = "Evening";
  Set().EventSite = "Caf\xC3\xA9";
  Set().EventDate = "2026.04.01";
  ExpectContract();
  EXPECT_EQ(Set().EventSite, Format().Events ? "Caf\xC3\xA9" : "");
}

TEST_P(FormatContract, AnalysisResultsAreLeftOutWhereTheSettingsSaySo) {
  EXPECT_TRUE(Desk.Store.Set(kSaveAnalyze, "0"));
  Set().At(1).Tricks[3] = 7;
  EXPECT_TRUE(Save());
  EXPECT_TRUE(Load());
  EXPECT_EQ(Set().At(1).Tricks, (std::array<std::uint8_t, 21>{}));
  TurnOn(kSaveAnalyze);
  Set().At(1).Tricks[3] = 7;
  EXPECT_TRUE(Save());
  EXPECT_TRUE(Load());
  EXPECT_EQ(Set().At(1).Tricks[3], Format().Analysis ? 7 : 0);
}

TEST_P(FormatContract, ASetThatDoesNotStartAt1HasTheNumbersThatTheFormatHolds) {
  Set() = RandomSet(Random, 5, 7);
  if (ComesBack(Format(), Set())) {
    ExpectContract();
    return;
  }
  // The records in front of board 5 are zero bytes.
  EXPECT_TRUE(Save());
  ExpectNotLoaded(LoadError(Told("Invalid character: " + Zeros(2) + "  in record: 1")));
}

TEST_P(FormatContract, TheLastBoardsOf640HaveTheNumbersThatTheFormatHolds) {
  Set() = RandomSet(Random, 638, 640);
  if (ComesBack(Format(), Set())) {
    ExpectContract();
  } else {
    EXPECT_TRUE(Save());
    EXPECT_FALSE(Load());
  }
}

TEST_P(FormatContract, ASingleBoardComesBackUnlessItIsALineOfCsv) {
  Set() = RandomSet(Random, 1, 1);
  if (ComesBack(Format(), Set())) {
    ExpectContract();
    return;
  }
  EXPECT_TRUE(Save());
  ExpectNotLoaded(LoadError(kFileIsEmpty));
}

TEST_P(FormatContract, A640BoardSetComesBack) {
  Set() = RandomSet(Random, 1, kMaxBoards);
  ExpectContract();
}

TEST_P(FormatContract, TheOperatorIsAskedForTheNumbersThatTheFileLacks) {
  const bool numbered = Format().Kept != FormatCase::Numbers::kNone;
  TurnOn(kLoadAllocation);
  Numbers.Answer = [](LoadNumber& dialog) {
    dialog.txtFirstBoard = "638";
    EXPECT_TRUE(dialog.Command1());
  };
  EXPECT_TRUE(Save());
  EXPECT_TRUE(Load());
  EXPECT_EQ(Numbers.Shown, numbered ? 0 : 1);
  EXPECT_EQ(Set().FirstBoard, numbered ? 1 : 638);
  EXPECT_EQ(Set().LastBoard, numbered ? 3 : 640);
  EXPECT_EQ(Set().At(Set().LastBoard).Number, Set().LastBoard);
}

TEST_P(FormatContract, OfASingleBoardPbnAloneKeepsTheNumber) {
  TurnOn(kLoadAllocation);
  Set() = RandomSet(Random, 1, 1);
  EXPECT_TRUE(Save());
  EXPECT_EQ(Load(), !Is(Format(), "CSV"));
  EXPECT_EQ(Numbers.Shown, Is(Format(), "CSV") || Is(Format(), "PBN") ? 0 : 1);
}

// What the format can't hold.

TEST_P(FormatContract, IncompleteBoardsComeBackOrAreRefused) {
  Set().At(1) = NumberedBoard(1);
  Break(3, 52);
  if (Format().Incomplete) {
    ExpectContract();
    EXPECT_EQ(Set().At(1).Status, Board::kEmpty);
    EXPECT_EQ(Set().At(3).Status, Board::kIncomplete);
    return;
  }
  EXPECT_FALSE(Save());
  EXPECT_THAT(Desk.Ui.Boxes, ElementsAre(Refusal("Boards number: 1, 3 are", Format().Name)));
  EXPECT_FALSE(std::filesystem::exists(File));
  PutOld();
  EXPECT_FALSE(Save());
  ExpectOld();
}

TEST_P(FormatContract, IncompleteBoardsAreAQuestionOnlyWhereTheFormatHoldsThem) {
  TurnOn(kSaveIncomplete);
  Break(2, 1);
  PutOld();
  Desk.Ui.Answers = {kNo, kYes};
  EXPECT_FALSE(Save());
  const auto box = Format().Incomplete ? IncompleteQuestion("Board number: 2 is", Format().Name)
                                       : Refusal("Board number: 2 is", Format().Name);
  EXPECT_THAT(Desk.Ui.Boxes, ElementsAre(box));
  ExpectOld();
  EXPECT_EQ(Save(), Format().Incomplete);
  EXPECT_THAT(Desk.Ui.Boxes, ElementsAre(box, box));
  EXPECT_EQ(test::Content(File) == kOld, !Format().Incomplete);
}

TEST_P(FormatContract, TheLossOfEventTextsIsAskedWhetherOrNotThereAreAny) {
  TurnOn(kSaveEvent);
  for (const char* name : {"", "Evening"}) {
    Set().EventName = name;
    for (const int answer : {int{kNo}, int{kCancel}, 0}) {
      PutOld();
      Desk.Ui.Boxes.clear();
      Desk.Ui.Answers = {answer};
      EXPECT_EQ(Save(), Format().Events);
      if (Format().Events) {
        EXPECT_THAT(Desk.Ui.Boxes, IsEmpty());
      } else {
        EXPECT_THAT(Desk.Ui.Boxes, ElementsAre(EventWarning(Format().Name)));
        ExpectOld();
      }
    }
  }
  Desk.Ui.Answers = {kYes};
  EXPECT_TRUE(Save());
  EXPECT_NE(test::Content(File), kOld);
}

TEST_P(FormatContract, TheLossOfNumbersIsAskedForASetThatDoesNotStartAt1) {
  TurnOn(kSaveNumbers);
  Set() = RandomSet(Random, 2, 4);
  const bool asks = Format().Kept == FormatCase::Numbers::kNone;
  PutOld();
  Desk.Ui.Answers = {kNo};
  EXPECT_EQ(Save(), !asks);
  if (asks) {
    EXPECT_THAT(Desk.Ui.Boxes, ElementsAre(NumbersWarning(Format().Name)));
    ExpectOld();
  } else {
    EXPECT_THAT(Desk.Ui.Boxes, IsEmpty());
  }
  Desk.Ui.Answers = {kYes};
  EXPECT_TRUE(Save());
  EXPECT_NE(test::Content(File), kOld);
  Desk.Ui.Boxes.clear();
  Set() = RandomSet(Random, 1, 3);
  EXPECT_TRUE(Save());
  EXPECT_THAT(Desk.Ui.Boxes, IsEmpty());
}

TEST_P(FormatContract, TheQuestionsComeInOrderAndTheFirstRefusalEndsThem) {
  for (const SettingKey& key : {kSaveIncomplete, kSaveEvent, kSaveNumbers}) TurnOn(key);
  Set() = RandomSet(Random, 2, 4);
  if (Format().Incomplete) Break(4, 7);
  std::vector<FakeUi::Box> questions;
  if (Format().Incomplete) {
    questions.push_back(IncompleteQuestion("Board number: 4 is", Format().Name));
  }
  if (!Format().Events) questions.push_back(EventWarning(Format().Name));
  if (Format().Kept == FormatCase::Numbers::kNone) {
    questions.push_back(NumbersWarning(Format().Name));
  }
  for (std::size_t yes = 0; yes <= questions.size(); ++yes) {
    PutOld();
    Desk.Ui.Boxes.clear();
    Desk.Ui.Answers.assign(yes, kYes);
    Desk.Ui.Answers.push_back(kNo);
    const bool saved = yes == questions.size();
    EXPECT_EQ(Save(), saved) << yes;
    EXPECT_EQ(Desk.Ui.Boxes, std::vector(questions.begin(),
                                         questions.begin() + static_cast<std::ptrdiff_t>(std::min(
                                                                 yes + 1, questions.size()))));
    if (!saved) ExpectOld();
  }
}

TEST_P(FormatContract, IncompleteBoardsAreRefusedBeforeAnyQuestion) {
  for (const SettingKey& key : {kSaveIncomplete, kSaveEvent, kSaveNumbers}) TurnOn(key);
  Set() = RandomSet(Random, 2, 4);
  Break(3, 7);
  Desk.Ui.Answers = {kNo};
  EXPECT_FALSE(Save());
  EXPECT_THAT(
      Desk.Ui.Boxes,
      ElementsAre(Format().Incomplete ? IncompleteQuestion("Board number: 3 is", Format().Name)
                                      : Refusal("Board number: 3 is", Format().Name)));
  EXPECT_FALSE(std::filesystem::exists(File));
}

TEST_P(FormatContract, CharactersThatEndAPbnTextAreRefusedThereOnly) {
  for (const char c : std::string("[]{}%;\"")) {
    Set() = RandomSet(Random, 1, 3);
    Set().EventSite = std::string("a") + c;
    Desk.Ui.Boxes.clear();
    if (!Is(Format(), "PBN")) {
      ExpectContract();
      continue;
    }
    EXPECT_FALSE(Save());
    EXPECT_THAT(Desk.Ui.Boxes, ElementsAre(ForbiddenCharacters()));
    EXPECT_FALSE(std::filesystem::exists(File));
  }
}

// The system fails.

#ifndef _WIN32  // no limit for files, no device that is full
TEST_P(FormatContract, AWriteThatFailsAnywhereLeavesTheOldFileByteForByte) {
  EXPECT_TRUE(Save());
  const std::string bytes = test::Content(File);
  {
    // Off, or it would need its own bytes.
    const test::FileSizeLimit limit(0);
    Desk.Prog.Log.WriteLine("off");
  }
  for (std::size_t written = 0; written < bytes.size(); written += 1 + bytes.size() / 20) {
    PutOld();
    Desk.Ui.Boxes.clear();
    {
      const test::FileSizeLimit limit(written);
      EXPECT_FALSE(Save());
    }
    EXPECT_THAT(Desk.Ui.Boxes, ElementsAre(SaveFailure("27", "File too large")));
    EXPECT_EQ(Desk.Ui.Statuses.back(), "Ready");
    ExpectOld();
  }
  const test::FileSizeLimit limit(bytes.size());
  EXPECT_TRUE(Save());
  EXPECT_EQ(test::Content(File), bytes);
}

TEST_P(FormatContract, AFullDeviceIsTheSystemsError) {
  std::filesystem::create_symlink("/dev/full", File);
  Set().BoardSetChanged = "1";
  EXPECT_FALSE(Save());
  EXPECT_THAT(Desk.Ui.Boxes, ElementsAre(SaveFailure("28", "No space left on device")));
  EXPECT_EQ(Set().BoardSetChanged, "1");
  EXPECT_TRUE(std::filesystem::is_symlink(File));
}
#endif

TEST_P(FormatContract, AFolderThatIsMissingIsTheSystemsErrorOfASave) {
  EXPECT_FALSE(SaveFile(Desk.Prog, Desk.History,
                        Desk.Folder / (std::string("none/x.") + Format().Extension)));
  EXPECT_THAT(Desk.Ui.Boxes, ElementsAre(SaveFailure("2", "No such file or directory")));
}

TEST_P(FormatContract, AMissingFileIsTheSystemsErrorOfALoad) {
  ExpectNotLoaded(LoadFailure("2", "No such file or directory"));
}

TEST_P(FormatContract, ADirectoryIsTheSystemsErrorOfALoad) {
  std::filesystem::create_directory(File);
  ExpectNotLoaded(LoadFailure("21", "Is a directory"));
}

#ifndef _WIN32  // no folder of processes
TEST_P(FormatContract, AReadThatFailsIsTheSystemsErrorOfALoad) {
  std::filesystem::create_symlink("/proc/self/mem", File);
  ExpectNotLoaded(LoadFailure("5", "Input/output error"));
}

TEST_P(FormatContract, ADeviceIsTheSystemsErrorOfALoad) {
  std::filesystem::create_symlink("/dev/zero", File);
  ExpectNotLoaded(LoadFailure("95", "Operation not supported"));
}
#endif

// Files that are cut short.

TEST_P(FormatContract, AFileWithoutBytesIsEmpty) {
  test::WriteContent(File, "");
  ExpectNotLoaded(LoadError(kFileIsEmpty));
}

/// What a part of a file gave stands in the whole: no other board, no other card.
void ExpectPartOf(const BoardSet& part, const BoardSet& whole) {
  EXPECT_EQ(part.FirstBoard, 1);
  ASSERT_GE(part.LastBoard, 1);
  ASSERT_LE(part.LastBoard, whole.LastBoard);
  for (int n = 1; n <= part.LastBoard; ++n) {
    const Board& board = part.At(n);
    EXPECT_EQ(board.Number, n);
    for (std::size_t card = 1; card <= kCards; ++card) {
      if (board.Cards[card] != 0) {
        EXPECT_EQ(board.Cards[card], whole.At(n).Cards[card]) << n << " " << card;
      }
    }
    if (n < part.LastBoard) {
      EXPECT_EQ(board, whole.At(n));
    }
  }
}

/// Whether a file cut to `size` bytes is still one of whole records; nothing is said of lines.
std::optional<bool> HasWholeRecords(const FormatCase& format, std::size_t size) {
  if (Is(format, "BRI") || Is(format, "DGE")) return size > 0 && size % 128 == 0;
  // Of DUP the numbers of the set, behind the hands, may be missing.
  if (Is(format, "DUP")) return size > 0 && (size % 156 == 0 || size % 156 >= 146);
  if (Is(format, "DEAL305")) return size > 0 && size % 54 == 0;
  return std::nullopt;
}

TEST_P(FormatContract, AFileCutAnywhereIsRefusedWithAWordOrIsPartOfTheSet) {
  Set().EventName = "Evening";
  Set().At(2).Tricks[5] = 3;
  EXPECT_TRUE(Save());
  EXPECT_TRUE(Load());
  const BoardSet whole = Set();
  int taken = 0;
  int refused = 0;
  for (std::size_t size = std::filesystem::file_size(File); size-- > 0;) {
    SCOPED_TRACE(size);
    std::filesystem::resize_file(File, size);
    Desk.Ui.Boxes.clear();
    const bool loaded = Load();
    ++(loaded ? taken : refused);
    if (loaded) {
      EXPECT_THAT(Desk.Ui.Boxes, IsEmpty());
      ExpectPartOf(Set(), whole);
    } else {
      ASSERT_THAT(Desk.Ui.Boxes, SizeIs(1));
      EXPECT_EQ(Desk.Ui.Boxes[0].Title, "Load Error");
      EXPECT_TRUE(Desk.Ui.Boxes[0].Text.starts_with("      File format error     \r\n      "));
      ExpectNoSet(Set());
    }
    EXPECT_EQ(loaded, HasWholeRecords(Format(), size).value_or(loaded));
  }
  EXPECT_GE(taken, 2);
  EXPECT_GE(refused, 3);
}

}  // namespace
}  // namespace morvane::files
