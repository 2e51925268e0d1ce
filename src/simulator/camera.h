#pragma once

#include <random>

#include "simulator/card_print.h"
#include "simulator/picture.h"

namespace morvane::simulator {

/// The camera, and the card in front of it, of which it sees the upper left corner: the rank above
/// the suit. With the camera at the card's ideal position the frame of the rank, which runs round
/// its ink one pixel outside, has its top in row 20 and a quarter of its width in column 64; a
/// position that is greater by 1 shifts all by a pixel to the right, or down.
class Camera {
 public:
  static constexpr int kFrameTop = 20;
  static constexpr int kFrameQuarter = 64;
  static constexpr int kGap = 8;  ///< rows between rank and suit
  static constexpr std::uint8_t kInk = 40;
  static constexpr std::uint8_t kPaper = 220;
  static constexpr std::uint8_t kBare = 150;  ///< what it sees of the machine without a card
  static constexpr std::uint8_t kDark = 8;    ///< all that it sees without light or power
  static constexpr int kNoise = 4;            ///< each pixel differs by so much at most

  explicit Camera(const Options& options);

  /// Machine card 1..55, or 0 for none; any other changes nothing.
  void Show(int machineCard);
  [[nodiscard]] int Card() const { return card_; }
  /// Goes up with every other card.
  [[nodiscard]] std::uint64_t Changes() const { return changes_; }

  /// Takes the picture, with the noise of the next moment.
  void Take(CameraPlace at, bool lit, Picture& picture) { Take(card_, at, lit, picture); }
  /// The same of another card.
  void Take(int machineCard, CameraPlace at, bool lit, Picture& picture);

 private:
  void Draw(int machineCard, CameraPlace at, Picture& picture) const;
  void AddNoise(Picture& picture);

  CardPrint print_;
  int card_;
  std::uint64_t changes_ = 0;
  std::mt19937_64 engine_;
};

/// The brightest less the darkest pixel.
[[nodiscard]] std::uint8_t SharpnessOf(const Picture& picture);

}  // namespace morvane::simulator
