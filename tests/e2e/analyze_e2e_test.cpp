#include <sys/stat.h>

#include <atomic>
#include <chrono>
#include <csignal>
#include <filesystem>
#include <thread>

#include "analysis/asymmetric_board.h"
#include "analysis/deal_tokens.h"
#include "e2e/e2e_fixture.h"
#include "model/board_set.h"
#include "platform/ini_settings.h"
#include "program/setting_keys.h"

// The analyze command with the real solver, each a process of its own.

namespace morvane::e2e {
namespace {

using ::testing::HasSubstr;
using ::testing::Not;

class AnalyzeEndToEnd : public EndToEnd {
 protected:
  /// The command line in a folder of its own, where the solver is this shell script; with none
  /// there is no solver.
  Surroundings WithSolver(const std::string& script) {
    const std::string own = folder / "own";
    std::filesystem::create_directories(own);
    std::filesystem::copy_file(ProgramNamed("morvane-cli"), own + "/morvane-cli",
                               std::filesystem::copy_options::overwrite_existing);
    if (!script.empty()) {
      test::WriteContent(own + "/DDS_1", "#!/bin/sh\n" + script + "\n");
      chmod((own + "/DDS_1").c_str(), 0755);
    }
    return {.Folder = folder.Path(), .Program = own + "/morvane-cli"};
  }
  [[nodiscard]] std::vector<std::string> Analyze() const {
    return Whole({"--yes", "analyze", "evening.pbn", "analysed.pbn"});
  }
  Outcome RunSolver(const std::vector<std::string>& tokens, const std::string& store) {
    return Process(tokens, {.Folder = folder.Path(),
                            .Program = ProgramNamed("DDS_1"),
                            .Variables = {"MORVANE_SETTINGS=" + store}})
        .Finish();
  }
  [[nodiscard]] std::string Store() const { return test::Content(settings); }

  // Each hand has a suit, North the spades: that side makes all tricks with it as trumps.
  const std::string set_ = SetFile("evening.pbn", 1, 3);
  const std::string out_ = folder / "analysed.pbn";
};

TEST_F(AnalyzeEndToEnd, AWholeSetIsSavedWithItsResults) {
  const Outcome outcome = Process(Analyze(), Around()).Finish();
  EXPECT_EQ(outcome.Status, 0) << outcome.Err;
  const std::string text = test::Content(out_);
  std::size_t tables = 0;
  for (std::size_t at = 0;
       (at = text.find("[DoubleDummyTricks \"1d1d11d1d111d1d11d1d\"]", at)) != std::string::npos;
       ++at) {
    ++tables;
  }
  EXPECT_EQ(tables, 3U);
  EXPECT_EQ(CountLines(" Analyze: "), 1);
  EXPECT_EQ(CountLines("    DDS: 1,3 ver: DDS 2.", "s"), 1);
}

/// The asymmetric board through each place in which its results stand.
TEST_F(AnalyzeEndToEnd, OneBoardAloneComesThroughFileAndPage) {
  // N "70077", S "00077", E and W "05700", as tricks.
  test::WriteContent(set_,
                     "[Board \"1\"]\r\n[Deal \"N:A..AKQJT9876543. KQJT98765432..2. "
                     "...AKQJT98765432 .AKQJT98765432..\"]\r\n[Board \"2\"]\r\n[Deal "
                     "\"N:AKQJT98765432... .AKQJT98765432.. ..AKQJT98765432. "
                     "...AKQJT98765432\"]\r\n");
  const Outcome outcome = Run({"analyze", set_, out_, "--board", "1"});
  EXPECT_EQ(outcome.Status, 0) << outcome.Err;
  const std::string text = test::Content(out_);
  EXPECT_THAT(text, HasSubstr("[DoubleDummyTricks \"d11dd111dd1bd111bd11\"]"));
  EXPECT_EQ(text.find("DoubleDummyTricks", text.find("[Board \"2\"]")), std::string::npos);
  EXPECT_THAT(text, HasSubstr("N NT 13\r\n"));
  EXPECT_THAT(text, HasSubstr("S NT  1\r\n"));
  EXPECT_THAT(text, HasSubstr("E  S 11\r\n"));
  EXPECT_EQ(CountLines("    DDS: 1 ver: DDS 2.", "s"), 1);
}

TEST_F(AnalyzeEndToEnd, FourAtOnceWithStoresOfTheirOwn) {
  std::vector<std::unique_ptr<Process>> programs;
  for (const char* name : {"a", "b", "c", "d"}) {
    const std::string own = folder / name;
    programs.push_back(std::make_unique<Process>(
        std::vector<std::string>{"--data", data, "--settings", own + ".ini", "--yes", "analyze",
                                 set_, own + ".pbn"},
        Around()));
  }
  for (const auto& program : programs) EXPECT_EQ(program->Finish().Status, 0);
  for (const char* name : {"a", "b", "c", "d"}) {
    EXPECT_THAT(test::Content(folder / name + std::string(".pbn")),
                HasSubstr("[DoubleDummyTricks \"1d1d11d1d111d1d11d1d\"]"));
  }
  EXPECT_EQ(CountLines("    DDS: 1,3 ver: DDS 2."), 4);
}

TEST_F(AnalyzeEndToEnd, AMailboxOfAnEarlierRunIsEmptied) {
  test::WriteContent(settings,
                     "[Deep_Finesse]\r\nDone=99\r\nResult=99x\r\nBreak=98\r\nError=old\r\n");
  EXPECT_EQ(Process(Analyze(), Around()).Finish().Status, 0);
  EXPECT_THAT(test::Content(out_), HasSubstr("1d1d11d1d111d1d11d1d"));
}

TEST_F(AnalyzeEndToEnd, AStoreThatIsNoTextIsNoCrash) {
  test::WriteContent(settings, std::string("[Deep_Finesse]\0\x01\x02", 17));
  EXPECT_EQ(Process(Analyze(), Around()).Finish().Status, 0);
  EXPECT_THAT(test::Content(out_), HasSubstr("1d1d11d1d111d1d11d1d"));
}

TEST_F(AnalyzeEndToEnd, ThroughALinkTheSolverBesideTheProgramIsFound) {
  std::filesystem::create_symlink(ProgramNamed("morvane-cli"), folder / "link");
  const Outcome outcome =
      Process(Analyze(), {.Folder = folder.Path(), .Program = folder / "link"}).Finish();
  EXPECT_EQ(outcome.Status, 0) << outcome.Err;
  EXPECT_THAT(test::Content(out_), HasSubstr("1d1d11d1d111d1d11d1d"));
}

TEST_F(AnalyzeEndToEnd, DeepFinesseIsStartedWhereItsProgramIs) {
  const Surroundings around = WithSolver("");
  test::WriteContent(folder / "own/df1",
                     "#!/bin/sh\nexec '" + ProgramNamed("DDS_1") + "' \"$@\"\n");
  chmod((folder / "own/df1").c_str(), 0755);
  const Outcome outcome =
      Process(Whole({"--yes", "analyze", "evening.pbn", "analysed.pbn", "--solver", "df"}), around)
          .Finish();
  EXPECT_EQ(outcome.Status, 0) << outcome.Err;
  EXPECT_EQ(CountLines("    Deep_Finesse: 1,3 ver: DDS 2.", "s"), 1);
  EXPECT_THAT(test::Content(out_), HasSubstr("1d1d11d1d111d1d11d1d"));
}

/// Nothing is lost of what two write at once.
TEST_F(AnalyzeEndToEnd, AnotherProgramMayWriteTheStoreMeanwhile) {
  constexpr int kMost = 300;
  std::atomic<bool> ended = false;
  int written = 0;
  std::thread other([&] {
    IniSettings store(settings);
    for (; written < kMost && !ended; ++written) {
      const std::string name = "Key_" + std::to_string(written);
      EXPECT_TRUE(store.Set({"Other", name, ""}, std::to_string(written)));
    }
  });
  const Outcome outcome = Process(Analyze(), Around()).Finish();
  ended = true;
  other.join();
  EXPECT_EQ(outcome.Status, 0) << outcome.Err;
  EXPECT_THAT(test::Content(out_), HasSubstr("1d1d11d1d111d1d11d1d"));
  EXPECT_GT(written, 10);
  const IniSettings store(settings);
  EXPECT_EQ(store.Get(kSolverDone), "99");
  for (int n = 0; n < written; ++n) {
    const std::string name = "Key_" + std::to_string(n);
    EXPECT_EQ(store.Get({"Other", name, ""}), std::to_string(n));
  }
}

/// The solver is at work when the break comes.
TEST_F(AnalyzeEndToEnd, AnInterruptBreaksTheSolver) {
  const Surroundings around =
      WithSolver("while ! grep -q 'Break = 98' \"$MORVANE_SETTINGS\"; do sleep 0.01; done\nexec '" +
                 ProgramNamed("DDS_1") + "' \"$@\"");
  Process process(Analyze(), around);
  ASSERT_TRUE(process.Until([&] {
    return std::filesystem::exists(settings) && Store().find("Done = 00") != std::string::npos;
  }));
  process.Signal(SIGINT);
  EXPECT_EQ(process.Finish().Status, 1);
  EXPECT_EQ(CountLines("    DDS: 1,3 ver: ", "s Cancel Board: 1"), 1);
  EXPECT_FALSE(std::filesystem::exists(out_));
  EXPECT_THAT(Store(), HasSubstr("Break = 98"));
  EXPECT_THAT(Store(), HasSubstr("Done = 90"));
}

TEST_F(AnalyzeEndToEnd, ASolverThatIsKilledEndsItAfterTwoSeconds) {
  const auto start = std::chrono::steady_clock::now();
  const Outcome outcome = Process(Analyze(), WithSolver("kill -9 $$")).Finish();
  const auto taken = std::chrono::steady_clock::now() - start;
  EXPECT_EQ(outcome.Status, 1);
  EXPECT_THAT(outcome.Err, HasSubstr("The solver has ended without an answer."));
  EXPECT_GT(taken, std::chrono::seconds(2));
  EXPECT_LT(taken, std::chrono::seconds(10));
  EXPECT_FALSE(std::filesystem::exists(out_));
}

TEST_F(AnalyzeEndToEnd, ASolverThatIsNotThereIsTold) {
  const Outcome outcome = Process(Analyze(), WithSolver("")).Finish();
  EXPECT_EQ(outcome.Status, 1);
  EXPECT_THAT(outcome.Err, HasSubstr("Bo Haglund DDS Error: "));
  EXPECT_THAT(outcome.Err, HasSubstr("No such file or directory"));
  EXPECT_EQ(CountLines("    DDS: 1,3 .0s Error Board: 1"), 1);
  EXPECT_FALSE(std::filesystem::exists(out_));
}

TEST_F(AnalyzeEndToEnd, ACodeOfTheSolversIsTold) {
  EXPECT_EQ(RunSolver({"NSA", "ESK"}, settings).Status, 0);
  EXPECT_THAT(Store(), HasSubstr("Done = 91"));
}

TEST_F(AnalyzeEndToEnd, TheSolverAnswersABreakThatIsThereAlready) {
  test::WriteContent(settings, "[Deep_Finesse]\r\nBreak=98\r\n");
  EXPECT_EQ(RunSolver(analysis::DealTokens(test::AsymmetricBoard(kNorth)), settings).Status, 0);
  EXPECT_THAT(Store(), HasSubstr("Done = 90"));
  EXPECT_THAT(Store(), Not(HasSubstr("Result = ")));
}

TEST_F(AnalyzeEndToEnd, TheSolverLeavesLevelsAndVersion) {
  EXPECT_EQ(RunSolver(analysis::DealTokens(test::AsymmetricBoard(kNorth)), settings).Status, 0);
  EXPECT_THAT(Store(), HasSubstr("Done = 99"));
  EXPECT_THAT(Store(), HasSubstr(std::string("Result = ") + test::kAsymmetricResult));
  EXPECT_THAT(Store(), HasSubstr("df1_version = DDS 2."));
}

TEST_F(AnalyzeEndToEnd, AStoreThatTheSolverCannotWriteIsAnExitStatus) {
  EXPECT_GT(
      RunSolver(analysis::DealTokens(test::AsymmetricBoard(kNorth)), "/proc/none/store.ini").Status,
      0);
}

}  // namespace
}  // namespace morvane::e2e
