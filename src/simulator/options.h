#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "model/tables.h"
#include "simulator/carry.h"
#include "wire/parameters.h"

namespace morvane::simulator {

/// The machine stops with `Code` (1..240) before card `Card` (1..208, which only a sort has) of
/// board `Board` falls: the n-th that it deals or reads to the end, pile that it sorts or stacking
/// run that it carries out, however often that one is begun. It happens once.
struct CardFault {
  int Board = 1;
  int Card = 1;
  std::uint8_t Code = 1;
  bool operator==(const CardFault&) const = default;
};

/// The answer to one step of programming has `Status` in place of a good one: a block of the
/// firmware by its number on the wire, or one of those below. It happens once.
struct FlashFault {
  static constexpr int kStart = -1;  ///< of a download
  static constexpr int kEraseRecord = -2;
  static constexpr int kWriteRecord = -3;
  int Step = kStart;
  std::uint8_t Status = 1;
  bool operator==(const FlashFault&) const = default;
};

/// Where the camera's field of view is, as `pos_x` and `pos_y` of a record.
struct CameraPlace {
  int X = 0;
  int Y = 0;
  bool operator==(const CameraPlace&) const = default;
};

/// In pixels of the camera's picture.
struct PrintSize {
  int Width = 0;
  int Height = 0;
  bool operator==(const PrintSize&) const = default;
};

/// Between which sensitivities the optical board switch changes its mind on a board in the slot.
struct SwitchLevels {
  int Lost = 101;  ///< and below it no board is seen
  int Seen = 120;  ///< and above it, each is; between the two it stays as it was
  bool operator==(const SwitchLevels&) const = default;
};

/// Two places 1..52 of a pack whose cards have changed places.
struct CardSwap {
  int First = 1;
  int Second = 2;
  bool operator==(const CardSwap&) const = default;
};

/// What kind of machine it is.
struct Options {
  double Speed = 1.0;  ///< 1 the pace of a real machine, 0 one card a status poll
  std::uint8_t FirmwareMajor = 2;
  std::uint8_t FirmwareMinor = 0x90;  ///< packed decimal
  std::uint16_t Hardware = 0x7F;      ///< capability bits
  std::uint16_t Serial = 4711;
  std::uint8_t Day = 14;  ///< of manufacture, as the next two; no key sets them
  std::uint8_t Month = 6;
  std::uint16_t Year = 2019;
  double Noise = 0.0;                 ///< the chance of each byte on the wire to be corrupted, 0..1
  std::optional<std::uint64_t> Seed;  ///< of packs and noise; without one they differ every time
  std::vector<CardFault> Faults;
  bool Flashed = false;              ///< each pack lies suit by suit, the Two of Spades first
  std::vector<CardSwap> Swaps;       ///< of such a pack, one after the other
  int Packs = 4;                     ///< 1..4, how many a sort finds
  Carry FirstCarry = Carry::kRight;  ///< of the piles of a stacking run; the later ones are right
  std::uint8_t BootMajor = 1;        ///< of the boot code; both 0 = no firmware has been loaded
  std::uint8_t BootMinor = 0x20;
  bool AnswersWrites = false;  ///< also the frames that nobody waits for an answer to
  std::vector<FlashFault> FlashFaults;
  std::uint8_t EraseStatus = 0;  ///< of the answer when the error counters are to be erased
  std::string Store;             ///< file of its memory; empty: it is lost at the end
  std::string Pack;  ///< board file whose boards are read; who makes the machine loads it. Or empty
  // The card in front of the camera, and how the pack is printed; what is empty goes by the index.
  static constexpr int kTenOfSpades = 9;
  wire::CardIndex Index = wire::CardIndex::Standard;
  int Letters = 0;  ///< of the honours, 0..6 as the program counts the countries
  std::optional<CameraPlace> Ideal;
  std::optional<PrintSize> Symbol;
  std::optional<PrintSize> Suit;
  int Card = kTenOfSpades;  ///< machine card 1..52 in front of the camera, 0 for none
  int Misread = 0;          ///< machine card that it takes every card for, 0 for none
  bool MarksFocus = true;   ///< it says that it has measured the focus
  static constexpr int kLabels = 70;
  int Board = 0;  ///< 1..70 in the slot from the start, 0 for none
  SwitchLevels BoardSwitch;
  bool operator==(const Options&) const = default;

  [[nodiscard]] bool FirmwareSince(std::uint8_t minor) const {
    return FirmwareMajor > 2 || (FirmwareMajor == 2 && FirmwareMinor >= minor);
  }
  [[nodiscard]] bool HasFirmware() const { return (BootMajor | BootMinor) != 0; }
  /// The machine card for which it takes this one; a joker, or none, is never mistaken.
  [[nodiscard]] int TakenFor(int machineCard) const {
    const bool isCard = machineCard >= 1 && machineCard <= kCards;
    return isCard && Misread != 0 ? Misread : machineCard;
  }
};

/// Reads "simulated[,key=value...]" into `options`. What is wrong with it, in words for the person
/// who wrote it; `options` is then as it was.
[[nodiscard]] std::optional<std::string> ParseOptions(std::string_view text, Options& options);

/// A key of `ParseOptions`, and what its value is, in words.
struct KeyWords {
  std::string_view Name;
  std::string_view Takes;
};
[[nodiscard]] std::vector<KeyWords> Keys();

/// What `ParseOptions` takes, with its defaults, for the person who has to write it: seven lines,
/// all but the first behind `indent` blanks.
[[nodiscard]] std::string OptionsUsage(std::size_t indent);

}  // namespace morvane::simulator
