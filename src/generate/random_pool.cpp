#include "generate/random_pool.h"

#include <algorithm>
#include <span>

#include "text/text.h"

namespace morvane::generate {
namespace {

constexpr int kStartBits = 16;
constexpr int kMouseBits = 8;
constexpr int kTimeBits = 16;
constexpr std::size_t kDecoded = 62;
constexpr int kNoErrorNumber = 999;

/// The value of the digit at `at`; what lies beyond the end of a text that is too short counts 0.
std::uint8_t DigitAt(std::string_view text, std::size_t at) {
  int value = at < text.size() ? static_cast<unsigned char>(text[at]) : 0;
  if (value >= '0') value -= '0';
  if (value > 9) value -= 7;
  return static_cast<std::uint8_t>(value & 15);
}

}  // namespace

void RandomPool::InitPool(Point mouse) {
  const LocalTime now = program_.Time.Now();
  StartParamDays = now.DaysFrom2008();
  program_.Random.Seed(static_cast<std::uint64_t>(StartParamDays) * 86'400'000U +
                       static_cast<std::uint64_t>(now.MillisecondsOfDay()));
  StartParamMouse = static_cast<std::uint16_t>(mouse.X * 256 + mouse.Y) | 1U;
  const std::string stored = program_.Store.Get(kSeedm);
  SeedmCounter =
      static_cast<std::int16_t>(std::min(Val(program_.Store.Get(kSeedmCounter)), kMostBits));
  if (stored.empty()) {
    MakePool();
    program_.StoreSetting(kSeedm, HexText());
  } else {
    Decode(stored);
  }
  Seedm[64] = static_cast<std::uint8_t>(mouse.X & 255);
  Seedm[63] = static_cast<std::uint8_t>(mouse.Y & 255);
  AddBits(kStartBits);
}

void RandomPool::SampleMouse(int x, int y) {
  if (x == LastMouseX || y == LastMouseY) return;
  LastMouseX = x;
  LastMouseY = y;
  Shift(1);
  Seedm[64] = static_cast<std::uint8_t>((x & 15) * 16 + (y & 15));
  AddBits(kMouseBits);
}

void RandomPool::AddTimeEntropy() {
  const auto t =
      static_cast<std::uint16_t>(program_.Time.Now().MillisecondsOfDay() - program_.ActivateTime);
  Shift(2);
  Seedm[63] = static_cast<std::uint8_t>(t >> 8U);
  Seedm[64] = static_cast<std::uint8_t>(t & 255U);
  AddBits(kTimeBits);
}

void RandomPool::SavePool() const {
  program_.StoreSetting(kSeedm, HexText());
  program_.StoreSetting(kSeedmCounter, std::to_string(SeedmCounter));
}

std::string RandomPool::HexText() const { return HexBytes(std::span(Seedm).subspan<1>()); }

void RandomPool::MakePool() {
  const Entropy::Answer answer = program_.Random.SystemRandom(std::span(Seedm).subspan<1>());
  if (answer.Ok) return;
  // Better than nothing, and never zeros: the mouse and the moments of action come on top.
  for (std::size_t i = 1; i <= kSize; ++i) {
    Seedm[i] = static_cast<std::uint8_t>(program_.Random.Random() * 256);
  }
  const RuntimeError error = answer.Error.value_or(RuntimeError{kNoErrorNumber, ""});
  program_.ShowMessage("      Error: " + std::to_string(error.Number) +
                           " in the system's random source      \r\n      " + error.Description +
                           "     \r\n      The random pool begins with the clock alone      ",
                       kOkExclamation, "Random Pool Error");
}

void RandomPool::Decode(std::string_view text) {
  // One digit late, so that a pool read back is never the pool that was stored: required.
  for (std::size_t i = 0; i < kDecoded; ++i) {
    Seedm[i + 1] =
        static_cast<std::uint8_t>(DigitAt(text, 2 * i + 1) * 16 + DigitAt(text, 2 * i + 2));
  }
}

void RandomPool::Shift(std::size_t places) {
  std::copy(Seedm.begin() + 1 + static_cast<std::ptrdiff_t>(places), Seedm.end(),
            Seedm.begin() + 1);
}

void RandomPool::AddBits(int bits) {
  SeedmCounter = static_cast<std::int16_t>(std::min(SeedmCounter + bits, kMostBits));
}

}  // namespace morvane::generate
