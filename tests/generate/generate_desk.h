#pragma once

#include <string>
#include <vector>

#include "generate/generate_set.h"
#include "generate/seeds.h"
#include "support/fakes.h"

namespace morvane::generate {

inline constexpr RejectionSwitches kNoTests{};
inline constexpr RejectionSwitches kUsualTests{.Shape = false, .Inner = true, .History = true};
inline constexpr RejectionSwitches kAllTests{true, true, true};
inline const std::string kSeedr = "000102030405060708090A0B0C0D0E0F10111213";
inline const std::string kSeedo = "A0A1A2A3A4A5A6A7A8A9AAABACADAEAFB0B1B2B3";
inline const std::string kLfsr = "0123456789ABCDEFFEDCBA9876543210";

/// Notes what a run shows while it goes on.
class RecordingView final : public GenerateView {
 public:
  void RunStarts() override { ++Starts; }
  void BoardsGen(int count) override { Progress.push_back(count); }
  int Starts = 0;
  std::vector<int> Progress;
};

/// A desk with an empty history and both generators.
struct GenerateDesk : test::TestDesk {
  GenerateDesk() { History.LoadHistory(Prog); }

  GenerateResult Run(const GenerateRequest& request) {
    return GenerateSet(Prog, Gen, History.Ring(), request, View);
  }
  GenerateResult RunSeeded(int first, int last, RejectionSwitches reject) {
    EXPECT_TRUE(UseNumberSeeds(Prog, Gen.Number, kSeedr, kSeedo));
    return Run({std::to_string(first), std::to_string(last), true, DealGenerator::kNumber, reject});
  }

  Generator Gen{Prog};
  RecordingView View;
};

/// A request for random boards without tests.
inline GenerateRequest Plain(const std::string& first, const std::string& last) {
  return {first, last, true, DealGenerator::kNumber, kNoTests};
}

}  // namespace morvane::generate
