// Boards dealt by the real run on the simulated machine over a bad line, on virtual time: what
// became of them, and whether each one that the log calls OK lies right in the pockets.
//   --boards=N    10,000 unless told otherwise
//   --noise=P     the chance of each byte to be changed; 0.0005
//   --seed=N      of packs, deals and noise; another one each time

#include <algorithm>
#include <cinttypes>
#include <cstdio>
#include <random>

#include "bench/options.h"
#include "support/noisy_dealing.h"

namespace morvane::bench {
namespace {

constexpr std::uint64_t kMost = 10'000'000;

void Row(const char* what, std::int64_t count) {
  std::printf("  %-52s %9s\n", what, Grouped(count).c_str());
}

void Show(const test::DealingTally& tally) {
  Row("boards that the log calls OK", tally.Ok);
  Row("  nothing happened on the way", tally.AtOnce);
  Row("  frames were repeated", tally.AfterRepeats);
  Row("  a fault was shown and continued", tally.AfterFaults);
  Row("attempts cancelled after a fault", tally.Cancelled);
  Row("attempts that lost the link", tally.LinkLost);
  Row("links lost between boards or at the first contact", tally.LostBetween);
  Row("frames sent", tally.Frames);
  Row("  of them for the second time", tally.Repeats);
  std::printf("  what the operator was shown:\n");
  for (const auto& [text, count] : tally.Shown) Row(("  " + text).c_str(), count);
  Row("OK in the log and wrong in the pockets (must be 0)", tally.Wrong);
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

int Run(const Options& options) {
  const auto boards =
      static_cast<int>(std::min<std::uint64_t>(options.Whole("boards").value_or(10'000), kMost));
  const double noise = std::clamp(options.Real("noise").value_or(0.0005), 0.0, 1.0);
  std::random_device source;
  const std::uint64_t seed =
      options.Whole("seed").value_or(std::uint64_t{source()} << 32U | source());
  std::printf("%s boards at noise %g\n  again with --boards=%d --noise=%g --seed=%" PRIu64 "\n",
              Grouped(boards).c_str(), noise, boards, noise, seed);
  test::NoisyDealing dealing(noise, seed);
  const bool finished = dealing.Deal(boards);
  Show(dealing.Tally());
  std::printf(
      "    start frames garbled past their check byte alone let %.2g of %s boards through\n",
      Unnoticed(noise) * boards, Grouped(boards).c_str());
  if (!finished) std::printf("  The line is too bad: given up.\n");
  // A line without a fault has tested nothing.
  const bool noisy = noise == 0 || dealing.Tally().Repeats > 0;
  return finished && noisy && dealing.Tally().Ok > 0 && dealing.Tally().Wrong == 0 ? 0 : 1;
}

}  // namespace
}  // namespace morvane::bench

int main(int argc, char** argv) {
  return morvane::bench::Run(morvane::bench::Options(argc, argv, {"boards", "noise", "seed"}));
}
