// Deals of the number generator held against what equally likely deals would show: the cards that
// each hand gets, and the shapes of each hand against their exact probabilities.
//   --deals=N                      1,000,000 unless told otherwise
//   --seedr=HEX --seedo=HEX        40 digits each; the system's unless given

#include <cstdio>
#include <span>
#include <string>

#include "bench/options.h"
#include "generate/number_dealer.h"
#include "model/tables.h"
#include "platform/system_entropy.h"
#include "support/deal_statistics.h"
#include "text/text.h"

namespace morvane::bench {
namespace {

using generate::NumberDealer;

constexpr std::size_t kSeedBytes = 20;
constexpr std::uint64_t kFewest = 1000;
/// Chance alone fails a fair generator once in a hundred thousand runs of five statistics: each has
/// two ends, since deals more even than chance are no fair ones either.
constexpr double kLeastLikely = 1e-6;

/// The 20 bytes of an option, or the system's. Empty when there are none to be had.
std::vector<std::uint8_t> SeedOf(const Options& options, std::string_view name) {
  if (const auto text = options.Text(name)) {
    auto bytes = BytesOfHex(*text);
    return bytes && bytes->size() == kSeedBytes ? *bytes : std::vector<std::uint8_t>();
  }
  std::vector<std::uint8_t> bytes(kSeedBytes);
  SystemEntropy system;
  return system.SystemRandom(bytes).Ok ? bytes : std::vector<std::uint8_t>();
}

NumberDealer DealerOf(std::span<const std::uint8_t> seedr, std::span<const std::uint8_t> seedo) {
  NumberDealer dealer;
  for (std::size_t i = 0; i < kSeedBytes; ++i) {
    dealer.Seedr[i + 1] = seedr[i];
    dealer.Seedo[i / 4] |= std::uint32_t{seedo[i]} << (i % 4 * 8);
  }
  return dealer;
}

/// One row of the table; whether the statistic is one that chance may give.
bool Show(const std::string& what, const test::ChiSquare& result) {
  const double p = result.P();
  const bool fair = p >= kLeastLikely && 1 - p >= kLeastLikely;
  std::printf("  %-18s %10.2f %8d %12.6f   %s\n", what.c_str(), result.Statistic, result.Degrees, p,
              fair ? "fair" : "NOT FAIR");
  return fair;
}

int Run(const Options& options) {
  const auto seedr = SeedOf(options, "seedr");
  const auto seedo = SeedOf(options, "seedo");
  const std::uint64_t deals = options.Whole("deals").value_or(1'000'000);
  if (seedr.empty() || seedo.empty() || deals < kFewest || deals > 1'000'000'000) {
    std::fprintf(stderr,
                 "fairness: a seed has 40 hexadecimal digits, and %d deals are the fewest\n",
                 static_cast<int>(kFewest));
    return 2;
  }
  NumberDealer dealer = DealerOf(seedr, seedo);
  test::DealStatistics statistics;
  Board board;
  for (std::uint64_t i = 0; i < deals; ++i) {
    dealer.NextNumberDeal(board);
    statistics.Add(board);
  }
  std::printf("Fairness of the number generator, %s deals\n", Grouped(statistics.Deals()).c_str());
  std::printf("  again with --seedr=%s --seedo=%s\n", HexBytes(seedr).c_str(),
              HexBytes(seedo).c_str());
  std::printf("  %-18s %10s %8s %12s   p within %g of 0 or 1 is not fair\n", "", "chi-square",
              "degrees", "p", kLeastLikely);
  bool fair = Show("cards to hands", statistics.CardsToHands());
  for (std::size_t hand = kNorth; hand <= kWest; ++hand) {
    const auto shapes = statistics.ShapesOf(static_cast<int>(hand));
    fair = Show("shapes of " + std::string(HandName[hand]), shapes) && fair;
  }
  return fair ? 0 : 1;
}

}  // namespace
}  // namespace morvane::bench

int main(int argc, char** argv) {
  return morvane::bench::Run(morvane::bench::Options(argc, argv, {"deals", "seedr", "seedo"}));
}
