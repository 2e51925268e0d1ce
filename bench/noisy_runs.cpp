// Boards dealt and read by the real runs on the simulated machine over a bad line, on virtual time:
// what became of them, and whether each one that the log calls OK is what lies in the pockets.
//   --boards=N    to deal, 10,000 unless told otherwise
//   --read=N      to read, 1,000
//   --noise=P     the chance of each byte to be changed; 0.0005
//   --seed=N      of packs, deals and noise; another one each time

#include "support/noisy_runs.h"

#include <algorithm>
#include <cinttypes>
#include <cstdio>
#include <random>

#include "bench/options.h"

namespace morvane::bench {
namespace {

constexpr std::uint64_t kMost = 10'000'000;

void Row(const char* what, std::int64_t count) {
  std::printf("  %-52s %9s\n", what, Grouped(count).c_str());
}

void Show(const test::RunTally& tally) {
  Row("boards that the log calls OK", tally.Ok);
  Row("  nothing happened on the way", tally.AtOnce);
  Row("  frames were repeated", tally.AfterRepeats);
  Row("  a fault was shown and continued", tally.AfterFaults);
  Row("attempts that were stopped", tally.Stopped);
  Row("attempts that lost the link", tally.LinkLost);
  Row("links lost between boards or at the first contact", tally.LostBetween);
  Row("frames sent", tally.Frames);
  Row("  of them for the second time", tally.Repeats);
  std::printf("  what the operator was shown:\n");
  for (const auto& [text, count] : tally.Shown) Row(("  " + text).c_str(), count);
}

/// A start frame of which two bytes change so that its one check byte still holds, and its list
/// still names pockets only, is a good frame of another board; the machine deals that one, and only
/// the pocket counts tell, red in the run window. Of the 52 bytes of the list, each with 3 other
/// pockets among 255 changes, one goes together with one of the 78 bytes that mean nothing to the
/// deal, or two together (of two random ones 7 in 12 can), the second change being one of 255.
double Unnoticed(double noise) {
  constexpr double kOneOfTheList = 52.0 * 78.0 * (3.0 / 255.0) / 255.0;
  constexpr double kTwoOfTheList = 52.0 * 51.0 / 2.0 * (3.0 / 255.0) * (7.0 / 12.0) / 255.0;
  return noise * noise * (kOneOfTheList + kTwoOfTheList);
}

/// A board that was read comes in one long frame. Its check and the pockets' counts hold when two
/// cards of the list change places: of 52 x 51 / 2 pairs three in four lie in different pockets.
double UnnoticedReading(double noise) {
  return noise * noise * (52.0 * 51.0 / 2.0) * 0.75 / (255.0 * 255.0);
}

struct Series {
  machine::RunKind Kind;
  const char* Name;
  int Boards;
  double (*Unnoticed)(double noise);  ///< of one board
};

/// True when all boards came through and none of them is wrong.
bool RunSeries(const Series& series, double noise, std::uint64_t seed) {
  if (series.Boards == 0) return true;
  const std::string boards = Grouped(series.Boards);
  std::printf("\n%s boards %s at noise %g\n", boards.c_str(), series.Name, noise);
  test::NoisyRuns runs(series.Kind, noise, seed);
  const bool finished = runs.Run(series.Boards);
  const test::RunTally& tally = runs.Tally();
  Show(tally);
  if (series.Kind == machine::RunKind::kRead) {
    Row("OK with cards that were not recognised, as was told", tally.Unknown);
  }
  Row("OK in the log and wrong in the pockets (must be 0)", tally.Wrong);
  std::printf("    frames garbled past their check byte alone let %.2g of %s boards through\n",
              series.Unnoticed(noise) * series.Boards, boards.c_str());
  if (!finished) std::printf("  The line is too bad: given up.\n");
  // A line without a fault has tested nothing.
  const bool noisy = noise == 0 || tally.Repeats > 0;
  return finished && noisy && tally.Ok > 0 && tally.Wrong == 0;
}

int Run(const Options& options) {
  const auto boards = [&](const char* name, std::uint64_t standard) {
    return static_cast<int>(std::min(options.Whole(name).value_or(standard), kMost));
  };
  const double noise = std::clamp(options.Real("noise").value_or(0.0005), 0.0, 1.0);
  std::random_device source;
  const std::uint64_t seed =
      options.Whole("seed").value_or(std::uint64_t{source()} << 32U | source());
  const Series dealt{machine::RunKind::kDeal, "dealt", boards("boards", 10'000), Unnoticed};
  const Series read{machine::RunKind::kRead, "read", boards("read", 1'000), UnnoticedReading};
  std::printf("again with --boards=%d --read=%d --noise=%g --seed=%" PRIu64 "\n", dealt.Boards,
              read.Boards, noise, seed);
  const bool dealtWell = RunSeries(dealt, noise, seed);
  const bool readWell = RunSeries(read, noise, seed);
  return dealtWell && readWell ? 0 : 1;
}

}  // namespace
}  // namespace morvane::bench

int main(int argc, char** argv) {
  return morvane::bench::Run(
      morvane::bench::Options(argc, argv, {"boards", "noise", "read", "seed"}));
}
