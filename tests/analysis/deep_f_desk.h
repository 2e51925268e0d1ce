#pragma once

#include <gmock/gmock.h>

#include <algorithm>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "analysis/deep_f.h"
#include "analysis/scripted_solver.h"

namespace morvane::analysis {

/// A window that notes its labels.
class RecordingView final : public DeepFView {
 public:
  explicit RecordingView(const DeepF& run) : run_(run) {}
  void Show() override {
    if (Labels.empty() || Labels.back() != run_.Label()) Labels.push_back(run_.Label());
  }
  void Close() override { ++Closes; }
  std::vector<std::string> Labels;
  int Closes = 0;

 private:
  const DeepF& run_;
};

/// A run over boards 1 to 3 with a solver that follows a script.
class DeepFTest : public ::testing::Test {
 protected:
  DeepFTest() {
    test::FillSet(desk.Prog.Set, 1, 3);
    RuntimeError error;
    std::filesystem::create_directory(desk.Prog.Paths.Data);
    EXPECT_TRUE(desk.Prog.Log.Start(desk.Prog.Paths.Data, error));
  }
  void Open(Solver which = Solver::kDds, int target = 0) {
    run.emplace(desk.Prog, process, which, target);
    view.emplace(*run);
    run->Open(*view);
  }
  void RunAll(Solver which = Solver::kDds, int target = 0) {
    Open(which, target);
    desk.Loop.RunUntil([&] { return run->Closed(); });
  }
  [[nodiscard]] std::string LastLine() const { return desk.LogLines().back(); }
  [[nodiscard]] std::string LevelsOfBoard(int n) const {
    Levels levels{};
    std::copy_n(desk.Prog.Set.At(n).Tricks.begin(), levels.size(), levels.begin());
    return ResultOf(levels);
  }

  test::TestDesk desk;
  ScriptedSolver solver{desk};
  SolverProcess process{solver, "/opt/morvane", "/home/me/settings.ini"};
  std::optional<DeepF> run;
  std::optional<RecordingView> view;
};

}  // namespace morvane::analysis
