#pragma once

#include <array>
#include <cstdint>

#include "platform/ui.h"
#include "program/program.h"

namespace morvane::generate {

/// The pool of random bytes, fed by the operator's mouse and moments of action and kept in the
/// settings from one run to the next.
class RandomPool {
 public:
  static constexpr std::size_t kSize = 64;
  static constexpr int kMostBits = 512;

  explicit RandomPool(Program& program) : program_(program) {}

  /// At start-up: takes the pool from the settings, or makes and stores a first one.
  void InitPool(Point mouse);
  /// One tick of a mouse feeder; the coordinates are those of the window that feeds.
  void SampleMouse(int x, int y);
  /// The operator did something: shifts the moment into the pool.
  void AddTimeEntropy();
  /// Writes pool and counter to the settings.
  void SavePool() const;

  std::array<std::uint8_t, kSize + 1> Seedm{};  ///< [1..64], the newest byte at 64
  std::int16_t SeedmCounter = 0;  ///< estimate of new random bits since the last generation, 0..512
  std::int32_t LastMouseX = 0;
  std::int32_t LastMouseY = 0;
  std::int32_t StartParamDays = 0;  ///< whole days from 1 January 2008 to the start of the program
  std::uint32_t StartParamMouse = 0;  ///< odd, 16 bits; state of the editor's small generator

  /// The 128 upper-case digits of bytes 1..64.
  [[nodiscard]] std::string HexText() const;

 private:
  void MakePool();
  void Decode(std::string_view text);
  void Shift(std::size_t places);
  void AddBits(int bits);

  Program& program_;
};

}  // namespace morvane::generate
