#pragma once

#include "wire/fields.h"

// The numbers by which the machine's camera finds and judges a card. They travel in blocks of up to
// five bytes behind a sub-code, read and written alike; only the switches are answered in another
// form than they are written in.

namespace morvane::wire {

/// The size of the index in the card's corner: each has a record of its own in the machine.
enum class CardIndex : std::uint8_t { Standard, Jumbo, Small };

/// The sub-code of a record's first block. Those of the other blocks follow it.
inline constexpr std::array<std::uint8_t, 3> kFirstSubCode{1, 5, 10};

/// A block of a record, the `kPlace`-th of it.
struct PositionBlock {
  static constexpr std::uint8_t kPlace = 0;
  std::uint8_t PosX = 0;  ///< of the camera's field of view
  std::uint8_t PosY = 0;
  std::uint8_t StartX = 0;  ///< from where the index is looked for, in the picture of 128 x 192
  std::uint8_t StartY = 0;

  static constexpr auto Fields =
      std::tuple(Byte(2, &PositionBlock::PosX), Byte(3, &PositionBlock::PosY),
                 Byte(4, &PositionBlock::StartX), Byte(5, &PositionBlock::StartY));
  bool operator==(const PositionBlock&) const = default;
};

/// The sizes that a rank or suit symbol may have.
struct SizeLimits {
  std::uint8_t MaxX = 0;
  std::uint8_t MaxY = 0;
  std::uint8_t MinX = 0;
  std::uint8_t MinY = 0;

  static constexpr auto Fields = std::tuple(Byte(2, &SizeLimits::MaxX), Byte(3, &SizeLimits::MaxY),
                                            Byte(4, &SizeLimits::MinX), Byte(5, &SizeLimits::MinY));
  bool operator==(const SizeLimits&) const = default;
};

struct SymbolBlock {
  static constexpr std::uint8_t kPlace = 1;
  SizeLimits Limits;

  static constexpr auto Fields = std::tuple(Part(&SymbolBlock::Limits));
  bool operator==(const SymbolBlock&) const = default;
};

struct SuitBlock {
  static constexpr std::uint8_t kPlace = 2;
  SizeLimits Limits;

  static constexpr auto Fields = std::tuple(Part(&SuitBlock::Limits));
  bool operator==(const SuitBlock&) const = default;
};

/// Which switches the machine goes by, as it is told.
struct SwitchBlock {
  static constexpr std::uint8_t kPlace = 3;
  bool IgnoreFlip = false;
  bool IgnoreBox = false;
  bool UseBoard = false;  ///< the label reader stands in for the board switch

  static constexpr auto Fields =
      std::tuple(Flag(2, &SwitchBlock::IgnoreFlip), Flag(3, &SwitchBlock::IgnoreBox),
                 Flag(4, &SwitchBlock::UseBoard), Zeros(5));
  bool operator==(const SwitchBlock&) const = default;
};

/// The same as the machine tells it: with the number of its record, and in bits.
struct SwitchAnswer {
  static constexpr std::uint8_t kPlace = SwitchBlock::kPlace;
  std::uint16_t ParamId = 0;
  bool IgnoreFlip = false;
  bool IgnoreBox = false;
  bool UseBoard = false;

  static constexpr auto Fields =
      std::tuple(Number(2, &SwitchAnswer::ParamId), Bit(4, 0, &SwitchAnswer::IgnoreFlip),
                 Bit(4, 1, &SwitchAnswer::IgnoreBox), Bit(4, 2, &SwitchAnswer::UseBoard));
};

/// How dark a pixel has to be, for bold and for fine print. It stands once in a machine, as what
/// follows does: such a block has a sub-code of its own.
struct ThresholdBlock {
  static constexpr std::uint8_t kSubCode = 9;
  std::uint8_t BoldSymbol = 0;
  std::uint8_t BoldSuit = 0;
  std::uint8_t FineSymbol = 0;
  std::uint8_t FineSuit = 0;
  std::uint8_t RecoOption = 0;  ///< what it selects is the machine's affair

  static constexpr auto Fields =
      std::tuple(Byte(2, &ThresholdBlock::BoldSymbol), Byte(3, &ThresholdBlock::BoldSuit),
                 Byte(4, &ThresholdBlock::FineSymbol), Byte(5, &ThresholdBlock::FineSuit),
                 Byte(6, &ThresholdBlock::RecoOption));
  bool operator==(const ThresholdBlock&) const = default;
};

struct VideoBlock {
  static constexpr std::uint8_t kSubCode = 14;
  std::uint8_t Brightness = 0;
  std::uint8_t Contrast = 0;
  std::uint8_t BoardSen = 0;  ///< sensitivity of the optical board switch
  bool Trial = false;         ///< written to try the sensitivity out; nothing is kept

  static constexpr auto Fields =
      std::tuple(Byte(2, &VideoBlock::Brightness), Byte(3, &VideoBlock::Contrast),
                 Byte(4, &VideoBlock::BoardSen), Flag(5, &VideoBlock::Trial), Zeros(6));
  bool operator==(const VideoBlock&) const = default;
};

/// The sub-code of `Block` in the record of `index`; that of a block that stands once is the same
/// in all.
template <typename Block>
[[nodiscard]] constexpr std::uint8_t SubCodeOf(CardIndex index) {
  if constexpr (requires { Block::kSubCode; }) {
    return Block::kSubCode;
  } else {
    return static_cast<std::uint8_t>(kFirstSubCode[static_cast<std::size_t>(index)] +
                                     Block::kPlace);
  }
}

}  // namespace morvane::wire
