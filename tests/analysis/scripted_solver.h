#pragma once

#include <memory>
#include <string>
#include <vector>

#include "analysis/mailbox.h"
#include "platform/process_starter.h"
#include "program/setting_keys.h"
#include "support/fakes.h"

namespace morvane::analysis {

/// A solver that does what a test tells it: it is started, works for a time, leaves its answer in
/// the store and goes.
class ScriptedSolver final : public ProcessStarter {
 public:
  template <typename Desk>
  explicit ScriptedSolver(Desk& desk) : store_(desk.Store), loop_(desk.Loop) {}

  struct Board {
    std::string Code = "99";
    std::string Result = "43210432104321043210";
    std::string Error{};
    std::string Path{};
    int AfterMs = 1000;    ///< negative: it never answers
    int LingersMs = 0;     ///< behind its answer
    int DiesAfterMs = -1;  ///< it goes without one
  };
  /// By starts; the last one goes on for all further ones.
  std::vector<Board> Script{{}};
  std::optional<RuntimeError> Failure;  ///< of the next starts
  std::vector<ProcessOrder> Orders;
  std::vector<std::string> BreaksSeen;  ///< when a board's answer was due
  bool AnswersBreaks = false;           ///< with 90, when its answer is due

  [[nodiscard]] StartedProcess Start(const ProcessOrder& order) override {
    Orders.push_back(order);
    if (Failure) return {nullptr, Failure};
    DoneAtStart.push_back(store_.Get(kSolverDone));
    const Board board = Script[std::min(Orders.size() - 1, Script.size() - 1)];
    auto alive = std::make_shared<bool>(true);
    if (board.DiesAfterMs >= 0) loop_.After(board.DiesAfterMs, [alive] { *alive = false; });
    if (board.AfterMs >= 0) {
      loop_.After(board.AfterMs, [this, board] { Answer(board); });
      loop_.After(board.AfterMs + board.LingersMs + 1, [alive] { *alive = false; });
    }
    return {std::make_unique<Child>(std::move(alive)), std::nullopt};
  }
  std::vector<std::string> DoneAtStart;

 private:
  class Child final : public ChildProcess {
   public:
    explicit Child(std::shared_ptr<bool> alive) : alive_(std::move(alive)) {}
    [[nodiscard]] bool Lives() override { return *alive_; }

   private:
    std::shared_ptr<bool> alive_;
  };

  void Put(const SettingKey& key, const std::string& value) { EXPECT_TRUE(store_.Set(key, value)); }
  void Answer(const Board& board) {
    BreaksSeen.push_back(store_.Get(kSolverBreak));
    Put(kSolverVersion, "9.9");
    Put(kSolverError, board.Error);
    Put(kSolverPath, board.Path);
    Put(kSolverResult, board.Result);
    Put(kSolverDone, AnswersBreaks && BreaksSeen.back() == kBreak ? "90" : board.Code);
  }

  Settings& store_;
  test::VirtualEventLoop& loop_;
};

}  // namespace morvane::analysis
