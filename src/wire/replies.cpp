#include "wire/replies.h"

namespace morvane::wire {

std::string DiagnosisText(const TestReply& reply) {
  std::string text;
  std::size_t at = TestReply::kFirst;
  for (const std::uint8_t number : reply.Numbers) {
    text += std::to_string(at++) + " " + std::to_string(number) + "  ";
  }
  return text;
}

}  // namespace morvane::wire
