#include "analysis/mailbox.h"

#include <algorithm>

namespace morvane::analysis {
namespace {

/// By the number of the answer.
constexpr std::array<std::string_view, 10> kCodes{"00", "99", "90", "91", "92",
                                                  "93", "94", "95", "96", "97"};

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

}  // namespace

Answer AnswerOf(std::string_view done) {
  const auto* const found = std::find(kCodes.begin() + 1, kCodes.end(), done);
  return found == kCodes.end() ? Answer::kAtWork : static_cast<Answer>(found - kCodes.begin());
}

std::string_view CodeOf(Answer answer) { return kCodes[static_cast<std::size_t>(answer)]; }

std::optional<int> ProgressOf(std::string_view done) {
  constexpr int kSteps = 5;
  constexpr int kPercentOfStep = 5;
  if (done.size() != 2 || !IsDigit(done[0]) || !IsDigit(done[1])) return std::nullopt;
  return ((done[0] - '0') * kSteps + (done[1] - '0')) * kPercentOfStep;
}

std::optional<Levels> LevelsOf(std::string_view result) {
  Levels levels{};
  if (result.size() != levels.size()) return std::nullopt;
  for (std::size_t i = 0; i < levels.size(); ++i) {
    if (result[i] < '0' || result[i] > '7') return std::nullopt;
    levels[i] = static_cast<std::uint8_t>(result[i] - '0');
  }
  return levels;
}

std::string ResultOf(const Levels& levels) {
  std::string result;
  for (const std::uint8_t level : levels) result += static_cast<char>('0' + level);
  return result;
}

}  // namespace morvane::analysis
