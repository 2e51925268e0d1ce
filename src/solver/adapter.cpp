#include "solver/adapter.h"

#include <chrono>
#include <future>
#include <thread>

#include "analysis/deal_tokens.h"
#include "program/setting_keys.h"

namespace morvane::solver {
namespace {

constexpr int kDone = 0;
constexpr int kNotWritten = 1;

/// The last thing that is written: whoever reads it reads the rest.
int Finish(Settings& store, analysis::Answer answer) {
  return store.Set(kSolverDone, analysis::CodeOf(answer)) ? kDone : kNotWritten;
}

bool IsBreakAsked(const Settings& store) { return store.Get(kSolverBreak) == analysis::kBreak; }

int Tell(Settings& store, const Table& table) {
  if (!table.Error.empty()) {
    if (!store.Set(kSolverError, table.Error)) return kNotWritten;
    return Finish(store, analysis::Answer::kAnalysis);
  }
  if (!store.Set(kSolverResult, analysis::ResultOf(table.Levels))) return kNotWritten;
  return Finish(store, analysis::Answer::kFinished);
}

}  // namespace

int Answer(Settings& store, const std::vector<std::string>& tokens, const std::string& version,
           const std::function<Table(const Board&)>& calc) {
  if (!store.Set(kSolverVersion, version)) return kNotWritten;
  Board board;
  if (!analysis::ReadTokens(tokens, board)) return Finish(store, analysis::Answer::kWrongBoard);
  if (IsBreakAsked(store)) return Finish(store, analysis::Answer::kStopped);
  std::promise<Table> promise;
  std::future<Table> table = promise.get_future();
  std::thread([calc, board, promise = std::move(promise)]() mutable {
    promise.set_value(calc(board));
  }).detach();
  while (table.wait_for(std::chrono::milliseconds(kLookMs)) != std::future_status::ready) {
    if (IsBreakAsked(store)) return Finish(store, analysis::Answer::kStopped);
  }
  return Tell(store, table.get());
}

}  // namespace morvane::solver
