#pragma once

#include "wire/service_replies.h"

// The replies to picture_commands.h, in the manner of replies.h.

namespace morvane::wire {

/// One line of the picture in the machine's buffer, or, with the other code, of the one that it
/// kept at its last error.
template <std::uint8_t kCode>
struct PictureLine {
  static constexpr std::uint8_t Code = kCode;
  static constexpr std::size_t kWidth = 128;
  std::uint8_t Line = 0;                      ///< 0..191
  std::array<std::uint8_t, kWidth> Pixels{};  ///< from the left

  static constexpr auto Fields =
      std::tuple(Byte(1, &PictureLine::Line), Array(8, &PictureLine::Pixels));
};
using PictureLineReply = PictureLine<0x81>;
using ErrorPictureLineReply = PictureLine<0x82>;

struct CaptureReply {
  static constexpr std::uint8_t Code = 0x0A;
  std::uint16_t Time = 0;  ///< that it took
  std::uint8_t Focus = 0;
  std::uint8_t Marker1 = 0;
  std::uint8_t Marker2 = 0;

  /// The machine has measured the focus.
  [[nodiscard]] bool IsMarked() const { return Marker1 == 23 && Marker2 == 11; }

  static constexpr auto Fields =
      std::tuple(Number(1, &CaptureReply::Time), Byte(3, &CaptureReply::Focus),
                 Byte(5, &CaptureReply::Marker1), Byte(6, &CaptureReply::Marker2));
};

/// Where the recogniser found a symbol, in the picture.
struct SymbolFrame {
  std::uint8_t XMin = 0;
  std::uint8_t XMax = 0;
  std::uint8_t YMin = 0;
  std::uint8_t YMax = 0;

  static constexpr auto Fields =
      std::tuple(Byte(3, &SymbolFrame::XMin), Byte(4, &SymbolFrame::XMax),
                 Byte(5, &SymbolFrame::YMin), Byte(6, &SymbolFrame::YMax));
  bool operator==(const SymbolFrame&) const = default;
};

struct SymbolMeasureReply {
  static constexpr std::uint8_t Code = 0x0F;
  std::uint8_t Param1 = 0;  ///< `Reco_param1`
  std::uint8_t Param2 = 0;
  SymbolFrame Box;

  static constexpr auto Fields =
      std::tuple(Byte(1, &SymbolMeasureReply::Param1), Byte(2, &SymbolMeasureReply::Param2),
                 Part(&SymbolMeasureReply::Box));
};

struct SuitMeasureReply {
  static constexpr std::uint8_t Code = 0x10;
  std::uint8_t Threshold = 0;  ///< with which it looked for the suit
  SymbolFrame Box;

  static constexpr auto Fields =
      std::tuple(Byte(1, &SuitMeasureReply::Threshold), Part(&SuitMeasureReply::Box));
};

/// The verdict of the last error of a run.
struct ErrorVerdictReply : VerdictReply {
  static constexpr std::uint8_t Code = 0x25;
  /// The rank of a card that the machine could not take.
  static constexpr std::uint8_t kNotTaken = 61;
};

}  // namespace morvane::wire
