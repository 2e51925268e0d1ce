// Deals a second of both generators, and of Debian's `dealer` (package dealer) beside them. All in
// seconds of the processor, so that whatever else runs on the machine weighs on none of them.

#include <benchmark/benchmark.h>
#include <sys/resource.h>

#include <cstdio>
#include <cstdlib>
#include <map>
#include <memory>
#include <optional>
#include <string>

#include "generate/number_dealer.h"
#include "generate/shuffling_dealer.h"

namespace morvane::bench {
namespace {

constexpr const char* kNumber = "number generator";
constexpr const char* kDealer = "dealer";
constexpr const char* kShuffling = "shuffling generator";
constexpr int kRepetitions = 7;

constexpr int kDealerDeals = 2'000'000;
/// Its cheapest output: every deal fulfils the condition and is counted, none is printed.
constexpr const char* kDealerInput = "condition 1\naction average 1\n";

std::string DealerCommand(int deals) {
  const std::string count = std::to_string(deals);
  return "exec dealer -s 1 -g " + count + " -p " + count;
}

double ChildSeconds() {
  rusage usage{};
  getrusage(RUSAGE_CHILDREN, &usage);
  const auto seconds = [](const timeval& time) {
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) * 1e-6;
  };
  return seconds(usage.ru_utime) + seconds(usage.ru_stime);
}

/// The processor time of a whole run of `dealer`; nothing unless it says that it produced them all.
std::optional<double> DealerSeconds(int deals) {
  const double before = ChildSeconds();
  const std::string command = DealerCommand(deals) + " 2>&1 <<'END'\n" + kDealerInput + "END\n";
  FILE* const output = popen(command.c_str(), "r");
  if (output == nullptr) return std::nullopt;
  std::string text;
  for (int c = std::fgetc(output); c != EOF; c = std::fgetc(output)) text += static_cast<char>(c);
  const bool ended = pclose(output) == 0;
  const std::string produced = "Produced " + std::to_string(deals) + " hands";
  if (!ended || text.find(produced) == std::string::npos) return std::nullopt;
  return ChildSeconds() - before;
}

void RunNumber(benchmark::State& state) {
  generate::NumberDealer dealer;
  Board board;
  for (auto _ : state) {
    dealer.NextNumberDeal(board);
    benchmark::DoNotOptimize(board);
  }
  state.SetItemsProcessed(state.iterations());
}

void RunDealer(benchmark::State& state) {
  for (auto _ : state) {
    const auto seconds = DealerSeconds(kDealerDeals);
    if (!seconds) {
      state.SkipWithError("dealer did not produce its deals");
      break;
    }
    state.SetIterationTime(*seconds);
  }
  state.SetItemsProcessed(state.iterations() * kDealerDeals);
}

void RunShuffling(benchmark::State& state) {
  generate::ShufflingDealer dealer;
  Board board;
  for (auto _ : state) {
    dealer.NextShuffledDeal(board);
    benchmark::DoNotOptimize(board);
  }
  state.SetItemsProcessed(state.iterations());
}

/// Keeps the median of each figure.
class Medians final : public benchmark::ConsoleReporter {
 public:
  Medians() : ConsoleReporter(OO_Tabular) {}
  void ReportRuns(const std::vector<Run>& runs) override {
    for (const Run& run : runs) {
      const auto rate = run.counters.find("items_per_second");
      if (run.aggregate_name == "median" && rate != run.counters.end()) {
        PerSecond[run.run_name.function_name] = rate->second;
      }
    }
    ConsoleReporter::ReportRuns(runs);
  }
  std::map<std::string, double> PerSecond;
};

void Row(const Medians& medians, const char* name) {
  const auto at = medians.PerSecond.find(name);
  if (at == medians.PerSecond.end()) return;
  std::printf("  %-20s %12.0f deals a second\n", name, at->second);
}

int Compare(const Medians& medians) {
  std::printf("\nMedians of %d, per second of processor time\n", kRepetitions);
  for (const char* name : {kNumber, kDealer, kShuffling}) Row(medians, name);
  const auto ours = medians.PerSecond.find(kNumber);
  const auto theirs = medians.PerSecond.find(kDealer);
  if (ours == medians.PerSecond.end() || theirs == medians.PerSecond.end()) {
    std::printf(
        "  Nothing to compare with: dealer (package dealer) is not there or does not run.\n");
    return 1;
  }
  std::printf(
      "  dealer was run as: %s\n  with the input: condition 1, action average 1 "
      "(every deal counted, none printed)\n",
      DealerCommand(kDealerDeals).c_str());
  const double ratio = ours->second / theirs->second;
  std::printf("  number generator / dealer = %.2f, which must not be below 1\n", ratio);
  return ratio >= 1 ? 0 : 1;
}

int Run(int argc, char** argv) {
  // Debian keeps it among the games, which root's path leaves out.
  const char* const path = std::getenv("PATH");
  setenv("PATH", (std::string(path == nullptr ? "" : path) + ":/usr/games").c_str(), 1);
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 2;
  const auto add = [](const char* name, void (*run)(benchmark::State&)) {
    return benchmark::RegisterBenchmark(name, run)
        ->Repetitions(kRepetitions)
        ->ReportAggregatesOnly(true);
  };
  add(kNumber, RunNumber);
  if (DealerSeconds(1)) add(kDealer, RunDealer)->UseManualTime()->Iterations(1);
  add(kShuffling, RunShuffling);
  Medians medians;
  benchmark::RunSpecifiedBenchmarks(&medians);
  return Compare(medians);
}

}  // namespace
}  // namespace morvane::bench

int main(int argc, char** argv) { return morvane::bench::Run(argc, argv); }
