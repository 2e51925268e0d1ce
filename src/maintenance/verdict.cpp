#include "maintenance/verdict.h"

#include <array>
#include <string_view>

namespace morvane::maintenance {
namespace {

/// By the rank on the wire: the ace is 14.
constexpr std::array<std::string_view, 15> kSymbols{"",  "",  "2",  "3", "4", "5", "6", "7",
                                                    "8", "9", "10", "J", "Q", "K", "A"};
constexpr std::array<std::string_view, 5> kSuits{"", "S", "H", "D", "C"};

template <std::size_t N>
std::string At(const std::array<std::string_view, N>& table, std::size_t index) {
  return index < N ? std::string(table[index]) : "";
}

}  // namespace

void Verdict::Take(const wire::VerdictReply& reply) {
  TakeError(reply);
  if (reply.Error == 0) return;
  Symbol.clear();
  Suit.clear();
}

void Verdict::TakeError(const wire::VerdictReply& reply) {
  Reco_time = std::to_string(reply.Time);
  Threshold = std::to_string(reply.Threshold);
  Symbol = At(kSymbols, reply.Rank);
  Suit = At(kSuits, reply.Suit);
  Reco_error = reply.Error == 0 ? "OK" : std::to_string(reply.Error);
}

}  // namespace morvane::maintenance
