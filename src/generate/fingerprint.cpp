#include "generate/fingerprint.h"

#include <sodium/crypto_hash_sha256.h>

#include <array>
#include <cstdint>

#include "program/log_record.h"
#include "text/text.h"

namespace morvane::generate {

void FingerprintText::Add(int number, std::string_view hands) {
  text_ += std::to_string(number) + " " + std::string(hands);
  text_.back() = '\n';
}

std::string FingerprintText::Sha256() const {
  std::array<std::uint8_t, crypto_hash_sha256_BYTES> hash{};
  // Never fails, and needs no initialisation of the library.
  crypto_hash_sha256(hash.data(), reinterpret_cast<const unsigned char*>(text_.data()),
                     text_.size());
  return LowerCase(HexBytes(hash));
}

std::string SetFingerprint(const BoardSet& set) {
  FingerprintText text;
  for (int n = set.FirstBoard; n <= set.LastBoard; ++n) {
    text.Add(n, FormatBoardForLog(set.At(n), false));
  }
  return text.Sha256();
}

std::string FingerprintLine(const Program& program) {
  if (!program.Log.On()) return "This set is not on record: do not publish its SHA-256.";
  return "SHA-256: " + SetFingerprint(program.Set);
}

}  // namespace morvane::generate
