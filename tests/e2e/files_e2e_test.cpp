#include <memory>

#include "e2e/e2e_fixture.h"
#include "files/pbn_reader.h"

// The commands that need no machine, as processes.

namespace morvane::e2e {
namespace {

using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::StartsWith;

class FilesEndToEnd : public EndToEnd {};

std::string LoadError(const std::string& path, int number, const std::string& description) {
  return "Load Error: " + path + ": Error: " + std::to_string(number) +
         " during load operation - " + description + "\nLoad operation aborted!\n";
}

/// What stands behind the name of the file.
std::string SaveError(int number, const std::string& description) {
  return ": Error: " + std::to_string(number) + " during save operation - " + description +
         "\nSave operation aborted!\n";
}

/// The set of a PBN file; fails the test when it is none.
std::unique_ptr<BoardSet> SetOf(const std::string& path) {
  auto set = std::make_unique<BoardSet>();
  const auto fault = files::ParsePbn(test::Content(path), *set, InitMessages());
  EXPECT_FALSE(fault) << fault->Text << fault->At;
  return set;
}

TEST_F(FilesEndToEnd, GenerateWrites32CompleteBoards) {
  const Outcome outcome = Run({"generate", "evening.pbn"});
  EXPECT_EQ(outcome.Status, 0);
  EXPECT_EQ(outcome.Err, "");
  EXPECT_THAT(outcome.Out, StartsWith("Boards 1 to 32: 32  inner similarity rejected: "));
  const auto set = SetOf(folder / "evening.pbn");
  EXPECT_EQ(set->FirstBoard, 1);
  ASSERT_EQ(set->LastBoard, 32);
  for (int n = 1; n <= 32; ++n) EXPECT_EQ(set->At(n).Status, Board::kComplete) << n;
  EXPECT_THAT(LogLines().front(), "History records: 0");
  EXPECT_THAT(LogLines().back(), StartsWith(" Exit: "));
}

TEST_F(FilesEndToEnd, GenerateTakesItsRange) {
  EXPECT_EQ(Run({"generate", "evening.pbn", "--first", "638", "--last", "640"}).Status, 0);
  const auto set = SetOf(folder / "evening.pbn");
  EXPECT_EQ(set->FirstBoard, 638);
  EXPECT_EQ(set->LastBoard, 640);
}

TEST_F(FilesEndToEnd, TheSameSeedsMakeTheSameBytesInAnotherProcess) {
  const std::string seedr(40, '3');
  const std::string seedo(40, '7');
  for (const char* name : {"a.pbn", "b.pbn"}) {
    ASSERT_EQ(
        Run({"generate", name, "--seedr", seedr, "--seedo", seedo, "--history", "off"}).Status, 0);
  }
  EXPECT_EQ(test::Content(folder / "a.pbn"), test::Content(folder / "b.pbn"));
  for (const char* name : {"c.pbn", "d.pbn"}) {
    ASSERT_EQ(Run({"generate", name, "--lfsr", std::string(32, '5'), "--history", "off"}).Status,
              0);
  }
  EXPECT_EQ(test::Content(folder / "c.pbn"), test::Content(folder / "d.pbn"));
  EXPECT_NE(test::Content(folder / "a.pbn"), test::Content(folder / "c.pbn"));
}

TEST_F(FilesEndToEnd, ADealThatWasSavedDoesNotComeAgainEvenFromItsOwnSeeds) {
  const std::string seedr(40, '3');
  const std::string seedo(40, '7');
  for (const char* name : {"a.pbn", "b.pbn"}) {
    ASSERT_EQ(Run({"generate", name, "--seedr", seedr, "--seedo", seedo}).Status, 0);
  }
  const auto first = SetOf(folder / "a.pbn");
  const auto second = SetOf(folder / "b.pbn");
  for (int i = first->FirstBoard; i <= first->LastBoard; ++i) {
    for (int j = second->FirstBoard; j <= second->LastBoard; ++j) {
      EXPECT_NE(first->At(i).Cards, second->At(j).Cards) << i << " " << j;
    }
  }
  // An audit knows that the history has rejected the deals of the first set.
  const Outcome audited = Run({"audit", LogPath()});
  EXPECT_EQ(audited.Status, 0) << audited.Out;
  EXPECT_THAT(audited.Out, HasSubstr("history 32\n"));
  EXPECT_THAT(audited.Out, ::testing::EndsWith("\n2 of 2 sets are the same.\n"));
}

TEST_F(FilesEndToEnd, WithoutSeedsNoSetIsLikeAnother) {
  for (const char* generator : {"bigdeal", "morvane"}) {
    ASSERT_EQ(Run({"--overwrite", "generate", "a.pbn", "--generator", generator}).Status, 0);
    ASSERT_EQ(Run({"--overwrite", "generate", "b.pbn", "--generator", generator}).Status, 0);
    EXPECT_NE(test::Content(folder / "a.pbn"), test::Content(folder / "b.pbn"));
  }
}

TEST_F(FilesEndToEnd, AFileThatIsThereIsReplacedOnlyWhenThatIsAskedFor) {
  ASSERT_EQ(Run({"generate", "a.pbn"}).Status, 0);
  const std::string first = test::Content(folder / "a.pbn");
  const Outcome refused = Run({"generate", "a.pbn"});
  EXPECT_EQ(refused.Status, 1);
  EXPECT_EQ(refused.Err,
            "Save Board Set: " + (folder / "a.pbn") +
                " exists already. Replace it?\nThere is nobody to ask; --overwrite would "
                "replace it.\nNot replaced.\n");
  EXPECT_EQ(test::Content(folder / "a.pbn"), first);
  EXPECT_EQ(Run({"--yes", "generate", "a.pbn"}).Status, 1) << "that is no answer to this one";
  EXPECT_EQ(test::Content(folder / "a.pbn"), first);
  EXPECT_EQ(CountLines("  Generate: "), 1) << "nothing was made that could not be saved";
  EXPECT_EQ(Run({"--overwrite", "generate", "a.pbn"}).Status, 0);
  EXPECT_NE(test::Content(folder / "a.pbn"), first);
}

TEST_F(FilesEndToEnd, WithoutFoldersNamedTheUsersOwnAreTaken) {
  EXPECT_EQ(Process({"generate", "evening.pbn"}, Around()).Finish().Status, 0);
  EXPECT_TRUE(std::filesystem::is_directory(folder / ".local/share/Morvane_Data"));
  EXPECT_THAT(test::Content(folder / ".config/morvane.exe.ini"), HasSubstr("Seedm_counter"));
  EXPECT_FALSE(std::filesystem::exists(data));
}

TEST_F(FilesEndToEnd, ConvertKeepsTheBoards) {
  ASSERT_EQ(Run({"generate", "a.pbn"}).Status, 0);
  ASSERT_EQ(Run({"convert", "a.pbn", "b.pbn"}).Status, 0);
  EXPECT_EQ(test::Content(folder / "a.pbn"), test::Content(folder / "b.pbn"));
}

TEST_F(FilesEndToEnd, ConvertNumbersTheBoardsOfAFileThatHasNoNumbers) {
  std::string record;
  for (int round = 1; round <= 13; ++round) record += "0123";
  test::WriteContent(folder / "two.all", record + "\r\n" + record + "\r\n");
  const Outcome numbered = Run({"convert", "two.all", "two.pbn", "--first", "33"});
  EXPECT_EQ(numbered.Status, 0);
  EXPECT_EQ(numbered.Out + numbered.Err, "");
  EXPECT_EQ(SetOf(folder / "two.pbn")->FirstBoard, 33);
  EXPECT_EQ(SetOf(folder / "two.pbn")->LastBoard, 34);
  const Outcome refused = Run({"convert", "two.all", "none.pbn", "--first", "640"});
  EXPECT_EQ(refused.Status, 1);
  EXPECT_EQ(refused.Err,
            "Incorrect value entered: " + (folder / "two.all") +
                ": Incorrect value for First Board number\n"
                "First Board numbers must be between 1 and 639\n\nPlease enter correct value.\n");
  EXPECT_FALSE(std::filesystem::exists(folder / "none.pbn"));
}

TEST_F(FilesEndToEnd, ALoadThatFailsWithoutAMessageOfItsOwnSaysSo) {
  test::WriteContent(folder / "blank.bre", "Evening\r\nHall\r\nToday\r\n\r\n");
  const Outcome outcome = Run({"show", "blank.bre"});
  EXPECT_EQ(outcome.Status, 1);
  EXPECT_EQ(outcome.Err, "Load Error: " + (folder / "blank.bre") + ": Load operation aborted!\n");
  EXPECT_EQ(outcome.Out, "");
}

TEST_F(FilesEndToEnd, ShowPrintsTheDiagram) {
  SetFile("set.pbn", 3, 4);
  const Outcome outcome = Run({"show", "set.pbn", "--board", "4"});
  EXPECT_EQ(outcome.Status, 0);
  EXPECT_THAT(outcome.Out, StartsWith("Board 4   Dealer: West   Vul: All\n"
                                      "                  North (10)\n"
                                      "                  ♠ AKQJT98765432\n"));
  EXPECT_EQ(outcome.Err, "");
}

TEST_F(FilesEndToEnd, ALogThatNobodyTouchedAuditsAsTheSame) {
  ASSERT_EQ(Run({"generate", "a.pbn", "--shapes", "on"}).Status, 0);
  const Outcome made = Run({"generate", "b.pbn", "--last", "16", "--shapes", "on"});
  ASSERT_EQ(Run({"generate", "c.pbn", "--generator", "morvane"}).Status, 0);
  const std::string log = LogPath();
  const Outcome audited = Run({"audit", log});
  EXPECT_EQ(audited.Status, 0);
  EXPECT_EQ(audited.Err, "");
  EXPECT_THAT(audited.Out, HasSubstr("  32 of 32 boards are the same.\n"));
  EXPECT_THAT(audited.Out, HasSubstr("  16 of 16 boards are the same.\n"));
  EXPECT_THAT(audited.Out, HasSubstr("Not a set of the number generator, not checked."));
  EXPECT_THAT(audited.Out, HasSubstr(made.Out.substr(made.Out.find("SHA-256: "))));
  EXPECT_THAT(audited.Out, ::testing::EndsWith("\n2 of 2 sets are the same.\n"));

  std::string text = test::Content(log);
  std::swap(text[text.find("   007 : ") + 9], text[text.find("   007 : ") + 26]);
  test::WriteContent(folder / "changed.txt", text);
  const Outcome changed = Run({"audit", "changed.txt"});
  EXPECT_EQ(changed.Status, 1);
  EXPECT_THAT(changed.Out, HasSubstr("\n1 of 2 sets are the same.\n"));
}

TEST_F(FilesEndToEnd, WrongUsageEndsWith2AndTouchesNothing) {
  struct Wrong {
    std::vector<std::string> Words;
    std::string Error;
  };
  for (const auto& [words, error] :
       {Wrong{{}, "no command"}, Wrong{{"make"}, "unknown command: make"},
        Wrong{{"generate"}, "generate: wrong number of files"},
        Wrong{{"help", "make"}, "unknown command: make"},
        Wrong{{"show", "a.pbn", "--board", "x"}, "--board x: wanted a number above 0"},
        Wrong{{"generate", "a.pbn", "--fast"}, "Unknown option 'fast'."}}) {
    const Outcome outcome = Run(words);
    EXPECT_EQ(outcome.Status, 2);
    EXPECT_EQ(outcome.Err, "morvane-cli: " + error + "\nTry 'morvane-cli --help'.\n");
    EXPECT_EQ(outcome.Out, "");
  }
  const Outcome machine = Run({"--machine", "toaster", "generate", "a.pbn"});
  EXPECT_EQ(machine.Status, 2);
  EXPECT_EQ(machine.Err,
            "morvane-cli: unknown machine \"toaster\": "
            "usb, " +
                std::string(ForWindows() ? "" : "usb:SERIAL, usb:VVVV:PPPP, serial:PATH, ") +
                "simulated[,key=value...] or replay:FILE\n");
  EXPECT_TRUE(std::filesystem::is_empty(folder.Path()));
}

TEST_F(FilesEndToEnd, HelpEndsWith0) {
  const Outcome outcome = Run({"--help"});
  EXPECT_EQ(outcome.Status, 0);
  EXPECT_THAT(outcome.Out, StartsWith("Usage: morvane-cli "));
  EXPECT_EQ(outcome.Err, "");
  EXPECT_TRUE(std::filesystem::is_empty(folder.Path()));
}

TEST_F(FilesEndToEnd, TheVersionOfEitherProgramEndsWith0) {
  for (const auto& [program, text] : {std::pair{ProgramNamed("morvane-cli"), "morvane-cli 1.0\n"},
                                      std::pair{ProgramNamed("morvane"), "morvane 1.0\n"}}) {
    Surroundings around = Around();
    around.Program = program;
    const Outcome outcome = Process({"--version"}, around).Finish();
    EXPECT_EQ(outcome.Status, 0);
    EXPECT_EQ(outcome.Out, text);
    EXPECT_EQ(outcome.Err, "");
  }
  EXPECT_TRUE(std::filesystem::is_empty(folder.Path()));
}

TEST_F(FilesEndToEnd, ConvertTakesSeveralFilesIntoAFolder) {
  SetFile("a.pbn", 1, 2);
  SetFile("b.pbn", 3, 4);
  std::filesystem::create_directory(folder / "sets");
  const Outcome outcome =
      Run({"--yes", "convert", "a.pbn", "none.pbn", "b.pbn", "sets", "--to", "csv"});
  EXPECT_EQ(outcome.Status, 1);
  EXPECT_EQ(outcome.Out, "2 of 3 files converted.\n");
  EXPECT_THAT(outcome.Err,
              HasSubstr(LoadError(folder / "none.pbn", 2, "No such file or directory")));
  EXPECT_TRUE(std::filesystem::exists(folder / "sets/a.csv"));
  EXPECT_TRUE(std::filesystem::exists(folder / "sets/b.csv"));
}

TEST_F(FilesEndToEnd, AnImportThatPassesBoardsOverEndsWith3) {
  const std::string path = SetFile("set.pbn", 1, 2);
  test::WriteContent(path, test::Content(path) + "[Board \"0\"]\r\n");
  EXPECT_EQ(Run({"show", "set.pbn", "--import"}).Status, 3);
  EXPECT_EQ(Run({"show", "set.pbn"}).Status, 1);
}

TEST_F(FilesEndToEnd, HelpOfACommandTouchesNothing) {
  const Outcome outcome = Run({"--machine", "toaster", "help", "deal"});
  EXPECT_EQ(outcome.Status, 0);
  EXPECT_THAT(outcome.Out, StartsWith("Usage: morvane-cli deal IN "));
  EXPECT_EQ(outcome.Err, "");
  EXPECT_TRUE(std::filesystem::is_empty(folder.Path()));
}

TEST_F(FilesEndToEnd, AMissingFileIsTold) {
  for (const std::vector<std::string>& words : {std::vector<std::string>{"show", "missing.pbn"},
                                                {"convert", "missing.pbn", "out.pbn"},
                                                {"deal", "missing.pbn", "--auto"}}) {
    const Outcome outcome = Run(words);
    EXPECT_EQ(outcome.Status, 1);
    EXPECT_EQ(outcome.Err, LoadError(folder / "missing.pbn", 2, "No such file or directory"));
    EXPECT_EQ(outcome.Out, "");
  }
  EXPECT_FALSE(std::filesystem::exists(folder / "out.pbn"));
}

TEST_F(FilesEndToEnd, AFileThatCannotBeReadIsTold) {
  std::filesystem::create_directory(folder / "folder.pbn");
  std::filesystem::create_symlink("/proc/self/mem", folder / "broken.pbn");
  const Outcome directory = Run({"show", "folder.pbn"});
  EXPECT_EQ(directory.Status, 1);
  EXPECT_EQ(directory.Err, LoadError(folder / "folder.pbn", 21, "Is a directory"));
  const Outcome broken = Run({"show", "broken.pbn"});
  EXPECT_EQ(broken.Status, 1);
  EXPECT_EQ(broken.Err, LoadError(folder / "broken.pbn", 5, "Input/output error"));
}

TEST_F(FilesEndToEnd, AFileThatIsNoSetIsTold) {
  test::WriteContent(folder / "letter.pbn", "Dear Sir,\r\n");
  const Outcome outcome = Run({"show", "letter.pbn"});
  EXPECT_EQ(outcome.Status, 1);
  EXPECT_EQ(outcome.Err, "Load Error: " + (folder / "letter.pbn") +
                             ": File format error\nFile is empty\n\nLoad operation aborted!\n" +
                             (folder / "letter.pbn") + " is no PBN file.\n");
}

TEST_F(FilesEndToEnd, AFileThatCannotBeWrittenIsTold) {
  struct Target {
    std::string Name;
    std::string Error;
  };
  std::filesystem::create_directory(folder / "folder.pbn");
  std::filesystem::create_symlink("/proc/self/mem", folder / "broken.pbn");
  std::filesystem::create_symlink("/dev/full", folder / "full.pbn");
  for (const auto& [name, error] :
       {Target{"folder.pbn", SaveError(21, "Is a directory")},
        Target{"broken.pbn", SaveError(2, "No such file or directory")},
        Target{"full.pbn", SaveError(28, "No space left on device")},
        Target{"no/such.pbn", SaveError(2, "No such file or directory")},
        Target{"/proc/self/set.pbn", SaveError(2, "No such file or directory")},
        Target{"set.doc", ": Unknow file format: DOC\nSave operation aborted!\n"},
        Target{"set", ": Unknow file format:\nSave operation aborted!\n"}}) {
    const Outcome outcome = Run({"--yes", "generate", name});
    EXPECT_EQ(outcome.Status, 1) << name;
    EXPECT_THAT(outcome.Err, ::testing::EndsWith(name + error));
    EXPECT_THAT(outcome.Err, HasSubstr("Save Error: "));
    EXPECT_EQ(outcome.Out, "");
  }
  EXPECT_TRUE(std::filesystem::is_empty(folder / "folder.pbn"));
  EXPECT_EQ(std::filesystem::read_symlink(folder / "full.pbn"), "/dev/full");
  EXPECT_EQ(std::filesystem::read_symlink(folder / "broken.pbn"), "/proc/self/mem");
}

TEST_F(FilesEndToEnd, AFailedLoadLeavesTheOtherFileAlone) {
  test::WriteContent(folder / "out.pbn", "as it was");
  EXPECT_EQ(Run({"convert", "missing.pbn", "out.pbn"}).Status, 1);
  EXPECT_EQ(test::Content(folder / "out.pbn"), "as it was");
}

TEST_F(FilesEndToEnd, WithoutADataFolderTheSetIsMadeAllTheSame) {
  const Outcome outcome = Process({"--data", "/proc/self/x", "--settings", settings, "generate",
                                   "evening.pbn", "--last", "4"},
                                  Around())
                              .Finish();
  EXPECT_EQ(outcome.Status, 3);
  EXPECT_THAT(outcome.Out, HasSubstr("\nThis set is not on record: do not publish its SHA-256.\n"));
  const std::string place = "Application Path: /proc/self\n";
  const std::string ending =
      "Application will continue but logging and history functions will be disabled\n";
  EXPECT_EQ(outcome.Err, "History Error: Cannot access or create Morvane_Data directory\n" + place +
                             "No such file or directory\n" + ending +
                             "Log Error: Cannot access or create Morvane_Data directory\n" + place +
                             "Error: 2, No such file or directory\n" + ending);
  EXPECT_EQ(SetOf(folder / "evening.pbn")->Count(), 4);
}

TEST_F(FilesEndToEnd, ADataFolderMayBeNamedWithASeparatorAtItsEnd) {
  const Outcome outcome =
      Process({"--data", "new/", "--settings", settings, "generate", "a.pbn"}, Around()).Finish();
  EXPECT_EQ(outcome.Status, 0);
  EXPECT_EQ(outcome.Err, "");
  if (!ForWindows()) {  // there it is an access list
    EXPECT_EQ(std::filesystem::status(folder / "new").permissions(),
              std::filesystem::perms::owner_all);
  }
  EXPECT_TRUE(std::filesystem::exists(folder / "new/history1.dat"));
}

TEST_F(FilesEndToEnd, ASettingsStoreThatCannotBeWrittenStopsNothing) {
  const Outcome outcome =
      Process({"--data", data, "--settings", "/proc/self/x.ini", "generate", "evening.pbn"},
              Around())
          .Finish();
  EXPECT_EQ(outcome.Status, 0);
  EXPECT_EQ(outcome.Err,
            "Settings Error: Settings cannot be saved\n"
            "Changes of settings will be lost when the program ends\n");
  EXPECT_EQ(SetOf(folder / "evening.pbn")->Count(), 32);
}

TEST_F(FilesEndToEnd, SeveralProcessesShareALogLineByLine) {
  constexpr int kProcesses = 4;
  std::vector<std::unique_ptr<Process>> processes;
  for (int i = 0; i < kProcesses; ++i) {
    const std::string name = std::to_string(i) + ".pbn";
    processes.push_back(std::make_unique<Process>(Whole({"generate", name}), Around()));
  }
  for (const auto& process : processes) EXPECT_EQ(process->Finish().Status, 0);
  EXPECT_EQ(CountLines("---"), kProcesses);
  EXPECT_EQ(CountLines(" Exit: "), kProcesses);
  int boards = 0;
  for (const auto& line : LogLines()) {
    const bool board = line.starts_with("   0") && line.size() == 112;
    if (board) ++boards;
  }
  EXPECT_EQ(boards, kProcesses * 32);
}

}  // namespace
}  // namespace morvane::e2e
