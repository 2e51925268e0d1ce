#pragma once

#include <array>

#include "wire/parameters.h"

namespace morvane::simulator {

/// One of the three records, for one size of index.
struct IndexRecord {
  std::uint16_t ParamId = 0;  ///< never written
  wire::PositionBlock Positions;
  wire::SymbolBlock Symbol;
  wire::SuitBlock Suit;
  wire::SwitchBlock Switches;
  bool operator==(const IndexRecord&) const = default;
};

/// What the machine keeps without power. A new one has these numbers.
struct StoredParameters {
  static constexpr wire::SizeLimits kSymbol{.MaxX = 34, .MaxY = 48, .MinX = 12, .MinY = 28};
  static constexpr wire::SizeLimits kSuit{.MaxX = 32, .MaxY = 40, .MinX = 14, .MinY = 20};
  static constexpr wire::SizeLimits kLarge{.MaxX = 60, .MaxY = 90, .MinX = 24, .MinY = 50};
  static constexpr wire::SizeLimits kSmall{.MaxX = 24, .MaxY = 34, .MinX = 8, .MinY = 18};

  std::array<IndexRecord, 3> Records{{
      {1001, {60, 80, 64, 20}, {kSymbol}, {kSuit}, {}},
      {1002, {62, 22, 64, 24}, {kLarge}, {kLarge}, {}},
      {1003, {58, 78, 64, 18}, {kSmall}, {kSmall}, {}},
  }};  ///< [index]
  wire::ThresholdBlock Thresholds{
      .BoldSymbol = 50, .BoldSuit = 50, .FineSymbol = 40, .FineSuit = 40, .RecoOption = 0};
  wire::VideoBlock Video{.Brightness = 128, .Contrast = 128, .BoardSen = 180};

  static constexpr std::uint8_t kFirstSubCode = 1;
  static constexpr std::uint8_t kLastSubCode = 14;

  bool operator==(const StoredParameters&) const = default;
};

/// `visit` gets the block of `subCode` and the record that it stands in, null for one that stands
/// once; what it returns, false where no block has this sub-code.
template <typename Parameters, typename Visit>
bool VisitBlock(Parameters& all, std::uint8_t subCode, Visit visit) {
  for (std::size_t i = 0; i < all.Records.size(); ++i) {
    auto& record = all.Records[i];
    switch (static_cast<int>(subCode) - wire::kFirstSubCode[i]) {
      case wire::PositionBlock::kPlace:
        return visit(record.Positions, &record);
      case wire::SymbolBlock::kPlace:
        return visit(record.Symbol, &record);
      case wire::SuitBlock::kPlace:
        return visit(record.Suit, &record);
      case wire::SwitchBlock::kPlace:
        return visit(record.Switches, &record);
      default:
        break;
    }
  }
  decltype(&all.Records[0]) none = nullptr;
  if (subCode == wire::ThresholdBlock::kSubCode) return visit(all.Thresholds, none);
  return subCode == wire::VideoBlock::kSubCode && visit(all.Video, none);
}

/// Takes what the plain write frame says; false, and nothing changes, where it can be none.
bool TakeBlock(const wire::Frame& command, StoredParameters& parameters);
/// The write frame of the block, with byte 6 clear where the block has none.
[[nodiscard]] wire::Frame WriteFrame(std::uint8_t subCode, const StoredParameters& parameters);

}  // namespace morvane::simulator
