#include <filesystem>

#include "audit/fingerprint.h"
#include "cli/generate_requests.h"

namespace morvane::cli {
namespace {

using ::testing::Contains;
using ::testing::HasSubstr;
using ::testing::StartsWith;

std::string FileOfSeeds(const std::string& seedr, const std::string& seedo) {
  CliDesk desk;
  EXPECT_EQ(desk.Run(Seeded(desk, seedr, seedo)), kDone) << desk.Screen.Errors;
  return test::Content(desk.Out);
}

std::string FileOfState(const std::string& state) {
  CliDesk desk;
  EXPECT_EQ(desk.Run(FromState(desk, state)), kDone) << desk.Screen.Errors;
  return test::Content(desk.Out);
}

TEST(GenerateCommand, TheSameSeedsMakeTheSameFile) {
  const std::string file = FileOfSeeds(kSeedr, kSeedo);
  EXPECT_THAT(file, HasSubstr("[Board \"8\"]"));
  EXPECT_EQ(FileOfSeeds(kSeedr, kSeedo), file);
  EXPECT_NE(FileOfSeeds(kSeedr, kSeedr), file);
  EXPECT_NE(FileOfSeeds(kSeedo, kSeedo), file);
}

TEST(GenerateCommand, TheSameStateOfTheRegisterMakesTheSameFile) {
  const std::string file = FileOfState(kLfsr);
  EXPECT_THAT(file, HasSubstr("[Board \"8\"]"));
  EXPECT_EQ(FileOfState(kLfsr), file);
  EXPECT_NE(FileOfState(kLfsr.substr(0, 31) + "E"), file);
}

TEST(GenerateCommand, SeedsMayBeWrittenInSmallLetters) {
  EXPECT_EQ(FileOfSeeds("00112233445566778899aabbccddeeff01234567", kSeedo),
            FileOfSeeds(kSeedr, kSeedo));
}

TEST(GenerateCommand, TheSeedsGivenStandInTheLogAsTheyWereGiven) {
  CliDesk desk;
  ASSERT_EQ(desk.Run(Seeded(desk, kSeedr, kSeedo)), kDone);
  EXPECT_EQ(Logged(desk, "  Seedr: "), kSeedr);
  EXPECT_EQ(Logged(desk, "  Seedo: "), kSeedo);
  EXPECT_THAT(desk.LogLines(), Contains(" File-New: 3:04:05 PM"));
  EXPECT_THAT(desk.LogLines(), Contains("  Generate: 1,8 : 0,0,0 : 0,0,0"));
}

TEST(GenerateCommand, ALoggedSetOfTheNumberGeneratorCanBeMadeAgainFromItsLoggedSeeds) {
  CliDesk first;
  GenerateOptions request = Fresh(first);
  request.Generator = "bigdeal";
  ASSERT_EQ(first.Run(request), kDone);
  CliDesk again;
  again.Clock.Spend(std::chrono::hours(5));
  ASSERT_EQ(again.Run(Seeded(again, Logged(first, "  Seedr: "), Logged(first, "  Seedo: "))),
            kDone);
  EXPECT_EQ(test::Content(again.Out), test::Content(first.Out));
}

TEST(GenerateCommand, ALoggedSetOfTheShufflingGeneratorCanBeMadeAgainFromItsLoggedState) {
  CliDesk first;
  GenerateOptions request = Fresh(first);
  request.Generator = "morvane";
  ASSERT_EQ(first.Run(request), kDone);
  std::string state = Logged(first, "  Seed: ");
  ASSERT_EQ(state.size(), 35U);  // four words and the blanks between them
  std::erase(state, ' ');
  CliDesk again;
  ASSERT_EQ(again.Run(FromState(again, state)), kDone);
  EXPECT_EQ(test::Content(again.Out), test::Content(first.Out));
}

TEST(GenerateCommand, WithoutSeedsTheyAreFresh) {
  CliDesk first;
  CliDesk second;
  second.Random.First = 77;
  ASSERT_EQ(first.Run(Fresh(first)), kDone);
  ASSERT_EQ(second.Run(Fresh(second)), kDone);
  EXPECT_NE(test::Content(first.Out), test::Content(second.Out));
}

TEST(GenerateCommand, WithoutOptionsTheSettingsDecide) {
  CliDesk desk;
  desk.Store.Set(kNewFirstBoard, "5");
  desk.Store.Set(kNewLastBoard, "6");
  desk.Store.Set(kNewShapes, "1");
  desk.Store.Set(kNewInner, "0");
  desk.Store.Set(kNewHistory, "1");
  desk.Store.Set(kGenerator, "1");
  GenerateOptions request;
  request.Out = desk.Out;
  ASSERT_EQ(desk.Run(request), kDone);
  EXPECT_EQ(Logged(desk, "  Generate: ").substr(0, 12), "5,6 : 1,0,1 ");
  EXPECT_NE(Logged(desk, "  Seed: "), "");
  EXPECT_EQ(Logged(desk, "  Seedr: "), "");
}

TEST(GenerateCommand, WithoutSettingsEitherItIs32BoardsOfTheNumberGenerator) {
  CliDesk desk;
  GenerateOptions request;
  request.Out = desk.Out;
  ASSERT_EQ(desk.Run(request), kDone);
  EXPECT_EQ(Logged(desk, "  Generate: ").substr(0, 13), "1,32 : 0,1,1 ");
  EXPECT_NE(Logged(desk, "  Seedr: "), "");
}

TEST(GenerateCommand, OptionsGoBeforeTheSettings) {
  CliDesk desk;
  desk.Store.Set(kNewFirstBoard, "5");
  desk.Store.Set(kNewShapes, "1");
  desk.Store.Set(kGenerator, "1");
  GenerateOptions request = Fresh(desk);
  request.Generator = "bigdeal";
  ASSERT_EQ(desk.Run(request), kDone);
  EXPECT_EQ(Logged(desk, "  Generate: "), "1,8 : 0,0,0 : 0,0,0");
  EXPECT_NE(Logged(desk, "  Seedr: "), "");
}

TEST(GenerateCommand, SaysWhatItHasMade) {
  CliDesk desk;
  GenerateOptions request = Seeded(desk, kSeedr, kSeedo);
  request.First = "5";
  ASSERT_EQ(desk.Run(request), kDone);
  EXPECT_THAT(desk.Screen.Output, StartsWith("Boards 5 to 8: 4\nSHA-256: "));
  EXPECT_EQ(desk.Screen.Errors, "");
}

TEST(GenerateCommand, ShowsTheFingerprintOfTheSet) {
  CliDesk desk;
  ASSERT_EQ(desk.Run(Seeded(desk, kSeedr, kSeedo)), kDone);
  EXPECT_EQ(desk.Screen.Output,
            "Boards 1 to 8: 8\nSHA-256: " + audit::SetFingerprint(desk.Prog.Set) + "\n");
  CliDesk shuffled;
  ASSERT_EQ(shuffled.Run(FromState(shuffled, kLfsr)), kDone);
  EXPECT_EQ(shuffled.Screen.Output,
            "Boards 1 to 8: 8\nSHA-256: " + audit::SetFingerprint(shuffled.Prog.Set) + "\n");
  EXPECT_NE(shuffled.Screen.Output, desk.Screen.Output);
}

TEST(GenerateCommand, SaysWhatTheTestsHaveRejected) {
  CliDesk desk;
  GenerateOptions request = Seeded(desk, kSeedr, kSeedo);
  request.Last = "1";
  request.Shapes = request.Inner = request.History = true;
  ASSERT_EQ(desk.Run(request), kDone);
  // One board is like no other, so the shape alone can have rejected any.
  EXPECT_THAT(desk.Screen.Output, StartsWith("Boards 1 to 1: 1  shapes rejected: "));
  EXPECT_THAT(desk.Screen.Output,
              HasSubstr("  inner similarity rejected: 0  history rejected: 0\nSHA-256: "));
}

TEST(GenerateCommand, CountsTheBoardsOnATerminal) {
  CliDesk desk;
  desk.Screen.Progress = true;
  GenerateOptions request = Seeded(desk, kSeedr, kSeedo);
  request.Last = "2";
  ASSERT_EQ(desk.Run(request), kDone);
  EXPECT_THAT(desk.Screen.Output, StartsWith("\rBoards generated: 1\rBoards generated: 2\n"
                                             "Boards 1 to 2: 2\nSHA-256: "));
}

TEST(GenerateCommand, ARangeThatCannotBeIsRefusedInTheWordsOfTheWindow) {
  CliDesk desk;
  GenerateOptions request = Fresh(desk);
  request.First = "9";
  EXPECT_EQ(desk.Run(request), kFailed);
  EXPECT_EQ(desk.Screen.Errors,
            "Generate New Board Set: Last Board Number must be greater or equal to the First Board "
            "Number.\n");
  EXPECT_FALSE(std::filesystem::exists(desk.Out));
  EXPECT_EQ(desk.Screen.Output, "");
}

TEST(GenerateCommand, AFailedSystemSourceMakesNoFile) {
  CliDesk desk;
  desk.Random.AllZero = true;
  GenerateOptions request = Fresh(desk);
  request.Generator = "bigdeal";
  EXPECT_EQ(desk.Run(request), kFailed);
  EXPECT_EQ(desk.Screen.Errors,
            "Generate New Board Set: Error: 999 in RtlGenRandom procedure\n\n"
            "Board Set cannot be generated\n");
  EXPECT_FALSE(std::filesystem::exists(desk.Out));
}

TEST(GenerateCommand, SeedsThatAreNoneAreWrongUsage) {
  CliDesk desk;
  EXPECT_EQ(desk.Run(Seeded(desk, "12", kSeedo)), kWrongUsage);
  EXPECT_EQ(desk.Screen.Errors, "The seeds are not hexadecimal numbers of the length asked for.\n");
  EXPECT_FALSE(std::filesystem::exists(desk.Out));
}

TEST(GenerateCommand, AFileThatCannotBeWrittenIsTold) {
  CliDesk desk;
  GenerateOptions request = Seeded(desk, kSeedr, kSeedo);
  request.Out = desk.Folder / "no/such.pbn";
  EXPECT_EQ(desk.Run(request), kFailed);
  EXPECT_EQ(desk.Screen.Errors, "Save Error: " + request.Out +
                                    ": Error: 2 during save operation - No such file or directory\n"
                                    "Save operation aborted!\n");
  EXPECT_EQ(desk.Screen.Output, "");
}

TEST(GenerateCommand, EmptyBoardsAreSavedOnlyWhenSomebodySaysSo) {
  for (const bool yes : {false, true}) {
    CliDesk desk(yes);
    GenerateOptions request = Fresh(desk);
    request.Empty = true;
    request.Last = "2";
    EXPECT_EQ(desk.Run(request), yes ? kDone : kFailed);
    EXPECT_EQ(desk.Screen.Errors,
              "Save Board Set: " + desk.Out +
                  ": Boards number: 1, 2 are incomplete.\n"
                  "Incomplete boards can be saved in PBN format.\n\nDo you want to proceed?\n" +
                  (yes ? "" : "There is nobody to ask; --yes would answer Yes.\n"));
    EXPECT_EQ(std::filesystem::exists(desk.Out), yes);
    EXPECT_EQ(desk.Screen.Output, yes ? "Boards 1 to 2: 2\n" : "");
  }
}

TEST(GenerateCommand, EndsAsTheDesktopDoes) {
  CliDesk desk;
  ASSERT_EQ(desk.Run(Fresh(desk)), kDone);
  const auto lines = desk.LogLines();
  EXPECT_EQ(lines.front(), "History records: 0");
  EXPECT_EQ(lines.end()[-3], " File-Save: 3:04:05: PM");
  EXPECT_EQ(lines.end()[-2], "  Save: " + desk.Out);
  EXPECT_EQ(lines.end()[-1], " Exit: 3:04:05 PM");
  EXPECT_TRUE(desk.Store.Has(kSeedmCounter));
}

TEST(GenerateCommand, WithoutADataFolderTheSetIsMadeAllTheSame) {
  CliDesk desk;
  test::WriteContent(desk.Folder / "Morvane_Data", "a file in its place");
  EXPECT_EQ(desk.Run(Seeded(desk, kSeedr, kSeedo)), kPartly);
  EXPECT_EQ(desk.Screen.Output,
            "Boards 1 to 8: 8\nThis set is not on record: do not publish its SHA-256.\n");
  EXPECT_EQ(desk.Screen.Errors,
            "History Error: Cannot access or create Morvane_Data directory\n"
            "Application Path: " +
                desk.Folder.Path() +
                "\nNot a directory\n"
                "Application will continue but logging and history functions will be disabled\n"
                "Log Error: Cannot access or create Morvane_Data directory\n"
                "Application Path: " +
                desk.Folder.Path() +
                "\nError: 20, Not a directory\n"
                "Application will continue but logging and history functions will be disabled\n");
  EXPECT_THAT(test::Content(desk.Out), HasSubstr("[Board \"8\"]"));
}

}  // namespace
}  // namespace morvane::cli
