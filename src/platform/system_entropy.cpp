#include "platform/system_entropy.h"

#include <algorithm>

#ifdef _WIN32
#include <windows.h>
// It needs the types of the first, and names SystemFunction036 as the system's documents do.
#include <ntsecapi.h>
#elif defined(__APPLE__)
#include <sys/random.h>
#else
#include <unistd.h>
#endif

namespace morvane {
namespace {

constexpr std::size_t kBlock = 256;  // getentropy gives no more at a time

Entropy::Answer FillBlock(std::span<std::uint8_t> block) {
#ifdef _WIN32
  return {RtlGenRandom(block.data(), static_cast<ULONG>(block.size())) != FALSE, std::nullopt};
#else
  if (getentropy(block.data(), block.size()) != 0) return {false, RuntimeError::Last()};
  return {true, std::nullopt};
#endif
}

}  // namespace

Entropy::Answer SystemEntropy::SystemRandom(std::span<std::uint8_t> bytes) {
  while (!bytes.empty()) {
    const std::size_t size = std::min(bytes.size(), kBlock);
    Answer answer = FillBlock(bytes.first(size));
    if (!answer.Ok) return answer;
    bytes = bytes.subspan(size);
  }
  return {true, std::nullopt};
}

double SystemEntropy::Random() {
  // The upper 53 bits, so that 1 itself never comes by rounding.
  return static_cast<double>(engine_() >> 11) * 0x1p-53;
}

}  // namespace morvane
