#include "cli/analyze_command.h"

#include <gmock/gmock.h>

#include "cli/cli_desk.h"
#include "platform/files.h"
#include "program/setting_keys.h"
#include "support/program_in.h"

namespace morvane::cli {
namespace {

using test::Content;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::SizeIs;

/// What the solver does with a board.
struct Reply {
  std::string Done = "99";
  bool Dies = false;
};

class AnalyzeCommandTest : public ::testing::Test {
 protected:
  AnalyzeCommandTest() {
    test::WriteContent(desk.In, SuitDeals(1, 3));
    desk.Processes.OnStart = [this](const ProcessOrder& order) {
      Orders.push_back(order);
      auto alive = std::make_shared<bool>(true);
      desk.Loop.After(300, [this, alive] {
        *alive = false;
        if (reply.Dies) return;
        EXPECT_TRUE(desk.Store.Set(kSolverVersion, "DDS 9"));
        EXPECT_TRUE(desk.Store.Set(kSolverResult, "43210432104321043210"));
        EXPECT_TRUE(desk.Store.Set(kSolverDone, reply.Done));
      });
      struct Child final : ChildProcess {
        explicit Child(std::shared_ptr<bool> lives) : Alive(std::move(lives)) {}
        [[nodiscard]] bool Lives() override { return *Alive; }
        std::shared_ptr<bool> Alive;
      };
      return StartedProcess{std::make_unique<Child>(alive), std::nullopt};
    };
  }
  [[nodiscard]] AnalyzeOptions Options() const { return {.In = desk.In, .Out = desk.Out}; }

  CliDesk desk{true};
  Reply reply;
  std::vector<ProcessOrder> Orders;
};

TEST_F(AnalyzeCommandTest, AWholeSetIsSavedWithItsResults) {
  EXPECT_EQ(desk.Run(Options()), kDone);
  EXPECT_THAT(Orders, SizeIs(3));
  // Levels 4 3 2 1 0 of each declarer are tricks 10 9 8 7 and none.
  EXPECT_THAT(Content(desk.Out), HasSubstr("[DoubleDummyTricks \"a9871a9871a9871a9871\"]"));
  EXPECT_THAT(desk.LogLines(), ::testing::Contains("    DDS: 1,3 ver: DDS 9  1.1s"));
}

TEST_F(AnalyzeCommandTest, ATerminalShowsHowFarItHasGot) {
  desk.Screen.Progress = true;
  EXPECT_EQ(desk.Run(Options()), kDone);
  EXPECT_THAT(desk.Screen.Output, ::testing::StartsWith("\rPreparing for analize....  0 %"));
  // The first look of a board comes 93 ms behind its start, behind one tick of 50 ms of 5 s.
  EXPECT_THAT(desk.Screen.Output, HasSubstr("\rAnalyzing board: 1  out from: 1 to: 3  1 %"));
  EXPECT_THAT(desk.Screen.Output, HasSubstr("\rAnalyzing board: 3  out from: 1 to: 3  "));
  EXPECT_TRUE(desk.Screen.Output.ends_with(" \r")) << "the line is free again";
}

TEST_F(AnalyzeCommandTest, WithoutAYesNothingIsStarted) {
  CliDesk cautious;
  cautious.Processes = desk.Processes;
  test::WriteContent(cautious.In, SuitDeals(1, 3));
  EXPECT_EQ(cautious.Run(AnalyzeOptions{.In = cautious.In, .Out = cautious.Out}), kFailed);
  EXPECT_THAT(Orders, IsEmpty());
  EXPECT_FALSE(std::filesystem::exists(cautious.Out));
}

TEST_F(AnalyzeCommandTest, OneBoardIsNoQuestion) {
  CliDesk cautious;
  test::WriteContent(cautious.In, SuitDeals(1, 3));
  AnalyzeOptions options{.In = cautious.In, .Out = cautious.Out, .Board = 2};
  cautious.Processes.OnStart = [&](const ProcessOrder& order) {
    Orders.push_back(order);
    return StartedProcess{nullptr, RuntimeError{2, "No such file"}};
  };
  EXPECT_EQ(cautious.Run(options), kFailed);
  EXPECT_THAT(Orders, SizeIs(1));
  EXPECT_THAT(cautious.Screen.Errors, HasSubstr("No such file"));
  EXPECT_FALSE(std::filesystem::exists(cautious.Out));
}

TEST_F(AnalyzeCommandTest, ASetThatIsAllAnalysedIsSavedAsItIs) {
  EXPECT_EQ(desk.Run(Options()), kDone);
  Orders.clear();
  EXPECT_EQ(desk.Run(AnalyzeOptions{.In = desk.Out, .Out = desk.Folder / "again.pbn"}), kDone);
  EXPECT_THAT(Orders, IsEmpty());
  EXPECT_THAT(desk.Screen.Errors, HasSubstr("All boards have already been analyzed."));
  EXPECT_THAT(Content(desk.Folder / "again.pbn"), HasSubstr("DoubleDummyTricks"));
}

TEST_F(AnalyzeCommandTest, AfterAnErrorNothingIsWritten) {
  reply.Done = "92";
  EXPECT_EQ(desk.Run(Options()), kFailed);
  EXPECT_THAT(desk.Screen.Errors, HasSubstr("DLL not found"));
  EXPECT_FALSE(std::filesystem::exists(desk.Out));
}

TEST_F(AnalyzeCommandTest, ASolverThatDiesWithoutAWordEndsIt) {
  reply.Dies = true;
  EXPECT_EQ(desk.Run(Options()), kFailed);
  EXPECT_THAT(desk.Screen.Errors, HasSubstr("The solver has ended without an answer.\n"));
  EXPECT_FALSE(std::filesystem::exists(desk.Out));
  EXPECT_THAT(desk.LogLines(), ::testing::Contains(HasSubstr(" Cancel Board: 1")));
}

TEST_F(AnalyzeCommandTest, AnInterruptBreaksTheSolver) {
  desk.Loop.After(200, [&] { desk.Loop.Quit(); });
  EXPECT_EQ(desk.Run(Options()), kFailed);
  EXPECT_EQ(desk.Store.Get(kSolverBreak), "98");
  EXPECT_FALSE(std::filesystem::exists(desk.Out));
  EXPECT_THAT(desk.LogLines(), ::testing::Contains(HasSubstr(" Cancel Board: ")));
}

TEST_F(AnalyzeCommandTest, SettingsThatLeaveResultsOutOfFilesAreTold) {
  EXPECT_TRUE(desk.Store.Set(kSaveAnalyze, "0"));
  EXPECT_EQ(desk.Run(Options()), kFailed);
  EXPECT_THAT(Orders, IsEmpty());
  EXPECT_EQ(desk.Screen.Errors,
            "The settings leave results out of files (Save_Analyze); nothing was analysed.\n");
  EXPECT_FALSE(std::filesystem::exists(desk.Out));
}

TEST(AnalyzeOptionsTest, OnlyAPbnFileHoldsResults) {
  const auto errorOf = [](const std::string& out) {
    const std::vector<std::string> operands{"/in.dup", out};
    OptionReader given(operands, {});
    static_cast<void>(ReadAnalyzeOptions(given));
    return given.Error();
  };
  EXPECT_EQ(errorOf("/out.pbn"), "");
  EXPECT_EQ(errorOf("/out.PBN"), "");
  EXPECT_EQ(errorOf("/out.txt"), "") << "the save tells that there is no such format";
  for (const char* out : {"/out.dup", "/out.bri", "/out.dge", "/out.all", "/out.bre", "/out.csv"}) {
    EXPECT_EQ(errorOf(out), AbsolutePath(out) + " cannot hold results; a .pbn file can");
  }
}

TEST_F(AnalyzeCommandTest, TheOptionNamesTheSolver) {
  AnalyzeOptions options = Options();
  options.With = analysis::Solver::kDeepFinesse;
  EXPECT_EQ(desk.Run(options), kDone);
  EXPECT_THAT(Orders.at(0).Path, ::testing::EndsWith(test::ProgramIn("", "df1")));
}

TEST_F(AnalyzeCommandTest, ABoardThatIsNotThereIsTold) {
  AnalyzeOptions options = Options();
  options.Board = 4;
  EXPECT_EQ(desk.Run(options), kFailed);
  EXPECT_THAT(Orders, IsEmpty());
}

}  // namespace
}  // namespace morvane::cli
