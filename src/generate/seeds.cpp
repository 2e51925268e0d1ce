#include "generate/seeds.h"

#include <algorithm>
#include <optional>
#include <span>
#include <vector>

#include "text/text.h"

namespace morvane::generate {
namespace {

constexpr std::size_t kSeedrBytes = 20;
constexpr std::size_t kSeedoBytes = 20;
constexpr std::size_t kLfsrBytes = 16;
constexpr int kNoErrorNumber = 999;

/// One bare compression of pool bytes 1..60 behind a word of zero. The newest four bytes, 61..64,
/// do not enter: required.
Digest DigestOfPool(const RandomPool& pool) {
  std::array<std::uint32_t, 16> block{};
  for (std::size_t i = 1; i < block.size(); ++i) {
    block[i] = LittleEndianWord(std::span<const std::uint8_t, 4>(&pool.Seedm[4 * i - 3], 4));
  }
  Digest digest = kRipemdInitial;
  Compress(digest, block);
  return digest;
}

std::uint32_t BigEndianWord(std::span<const std::uint8_t, 4> bytes) {
  return std::uint32_t{bytes[0]} << 24U | std::uint32_t{bytes[1]} << 16U |
         std::uint32_t{bytes[2]} << 8U | std::uint32_t{bytes[3]};
}

std::string BitsLine(const RandomPool& pool) {
  return "  New random bits collected: " + std::to_string(pool.SeedmCounter);
}

std::string SeedrLine(const NumberDealer& dealer) {
  return std::string(kSeedrStart) + HexBytes(std::span(dealer.Seedr).subspan<1>());
}

std::string SeedoLine(const NumberDealer& dealer) {
  std::array<std::uint8_t, kSeedoBytes> bytes{};
  for (std::size_t i = 0; i < bytes.size(); ++i) bytes[i] = DigestByte(dealer.Seedo, i);
  return std::string(kSeedoStart) + HexBytes(bytes);
}

/// Together, so that no other process's seeds come between them.
void LogSeeds(Program& program, const NumberDealer& dealer) {
  program.Log.Lines(std::array{SeedrLine(dealer), SeedoLine(dealer)});
}

std::string LfsrLine(const ShufflingDealer& dealer) {
  const auto& state = dealer.LfsrState;
  return std::string(kLfsrStart) + Hex8(state[0]) + " " + Hex8(state[1]) + " " + Hex8(state[2]) +
         " " + Hex8(state[3]);
}

void ShowSourceError(Program& program, const RuntimeError& error) {
  const std::string text = Fill(program.Texts.Msg119, "***", std::to_string(error.Number));
  program.ShowMessage(Fill(text, "###", error.Description), kOkCritical, kGenerateCaption);
}

/// Bytes 1..20 of `Seedr` from the system, logged, with `Seedo` behind them if they can be used.
bool FillSeedr(Program& program, NumberDealer& dealer) {
  const Entropy::Answer answer = program.Random.SystemRandom(dealer.Seedr);
  if (answer.Error) {
    ShowSourceError(program, *answer.Error);
    return false;
  }
  const bool anyBit = std::any_of(dealer.Seedr.begin() + 1, dealer.Seedr.end(),
                                  [](std::uint8_t byte) { return byte != 0; });
  if (answer.Ok && anyBit) {
    LogSeeds(program, dealer);
    return true;
  }
  program.Log.WriteLine(SeedrLine(dealer));
  ShowSourceError(program, {kNoErrorNumber, ""});
  return false;
}

std::optional<std::vector<std::uint8_t>> SeedBytes(std::string_view text, std::size_t size) {
  auto bytes = BytesOfHex(text);
  if (bytes && bytes->size() != size) return std::nullopt;
  return bytes;
}

}  // namespace

bool PrepareNumberSeeds(Program& program, Generator& generator) {
  NumberDealer& dealer = generator.Number;
  dealer.BlockCounter = 0;
  generator.Pool.AddTimeEntropy();
  generator.Pool.SavePool();
  program.Log.Lines(std::array{BitsLine(generator.Pool), "  Seedm: " + generator.Pool.HexText()});
  dealer.Seedo = DigestOfPool(generator.Pool);
  if (!FillSeedr(program, dealer)) return false;
  generator.Pool.SeedmCounter = 0;
  return true;
}

void PrepareLfsrSeed(Program& program, Generator& generator) {
  RandomPool& pool = generator.Pool;
  pool.AddTimeEntropy();
  pool.SavePool();
  const LocalTime now = program.Time.Now();
  const auto days = static_cast<std::uint32_t>(now.DaysFrom2008()) % 8192U;
  const auto ticks = static_cast<std::uint32_t>(now.MillisecondsOfDay() / 10);
  auto& state = generator.Shuffling.LfsrState;
  state[3] = (days << 18U) ^ ticks;
  for (std::size_t i = 0; i < 3; ++i) {
    state[i] = BigEndianWord(std::span<const std::uint8_t, 4>(&pool.Seedm[53 + 4 * i], 4));
  }
  program.Log.Lines(std::array{BitsLine(pool), LfsrLine(generator.Shuffling)});
  pool.SeedmCounter = 0;
}

bool SetNumberSeeds(NumberDealer& dealer, std::string_view seedr, std::string_view seedo) {
  const auto seedrBytes = SeedBytes(seedr, kSeedrBytes);
  const auto seedoBytes = SeedBytes(seedo, kSeedoBytes);
  if (!seedrBytes || !seedoBytes) return false;
  dealer.BlockCounter = 0;
  dealer.Seedo = {};
  for (std::size_t i = 0; i < kSeedrBytes; ++i) {
    dealer.Seedr[i + 1] = (*seedrBytes)[i];
    dealer.Seedo[i / 4] |= std::uint32_t{(*seedoBytes)[i]} << (i % 4 * 8);
  }
  return true;
}

bool UseNumberSeeds(Program& program, NumberDealer& dealer, std::string_view seedr,
                    std::string_view seedo) {
  if (!SetNumberSeeds(dealer, seedr, seedo)) return false;
  LogSeeds(program, dealer);
  return true;
}

bool UseLfsrSeed(Program& program, ShufflingDealer& dealer, std::string_view seed) {
  const auto bytes = SeedBytes(seed, kLfsrBytes);
  if (!bytes) return false;
  for (std::size_t i = 0; i < kLfsrBytes; ++i) {
    dealer.LfsrState[i / 4] = dealer.LfsrState[i / 4] << 8U | (*bytes)[i];
  }
  dealer.NewDeck();
  program.Log.WriteLine(LfsrLine(dealer));
  return true;
}

}  // namespace morvane::generate
