#include "audit/fingerprint.h"

#include <sodium/crypto_hash_sha256.h>

#include <algorithm>
#include <array>
#include <vector>

#include "program/log_record.h"
#include "text/text.h"

namespace morvane::audit {
namespace {

/// "7 AT62.J73.Q84.K95 ...": a board in the text that is hashed. `hands` are as in the log, a blank
/// behind each.
std::string BoardLine(int number, std::string_view hands) {
  std::string line = std::to_string(number) + " " + std::string(hands);
  line.back() = '\n';
  return line;
}

std::string Sha256(const std::string& text) {
  std::array<std::uint8_t, crypto_hash_sha256_BYTES> hash{};
  // Never fails, and needs no initialisation of the library.
  crypto_hash_sha256(hash.data(), reinterpret_cast<const unsigned char*>(text.data()), text.size());
  return LowerCase(HexBytes(hash));
}

}  // namespace

std::string SetFingerprint(const BoardSet& set) {
  std::string text;
  for (int n = set.FirstBoard; n <= set.LastBoard; ++n) {
    text += BoardLine(n, FormatBoardForLog(set.At(n), false));
  }
  return Sha256(text);
}

std::string SetFingerprint(std::span<const LoggedRecord> records) {
  std::vector<const LoggedRecord*> rising;
  for (const LoggedRecord& record : records) rising.push_back(&record);
  std::sort(rising.begin(), rising.end(),
            [](const LoggedRecord* a, const LoggedRecord* b) { return a->Number < b->Number; });
  std::string text;
  for (const LoggedRecord* record : rising) text += BoardLine(record->Number, record->Hands());
  return Sha256(text);
}

}  // namespace morvane::audit
