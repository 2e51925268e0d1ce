#pragma once

#include <cstdint>
#include <string>

#include "machine/machine.h"
#include "model/messages.h"

namespace morvane::machine {

/// A feature that needs a firmware: fails below major 2, or at major 2 below `Minor` (packed
/// decimal). Where the byte and its message differ, both stand: required.
struct VersionGate {
  std::uint8_t Minor;
  std::string Messages::*Text;  ///< null: the feature is switched off silently
  bool MajorTwoOnly = false;    ///< fails only when the major is exactly 2
};

inline constexpr VersionGate kReadGate{0x23, &Messages::Msg035};
inline constexpr VersionGate kSortGate{0x69, &Messages::Msg036};
inline constexpr VersionGate kNationalGate{0x27, &Messages::Msg037};
inline constexpr VersionGate kDanishGate{0x32, &Messages::Msg038};
inline constexpr VersionGate kSwedishGate{0x90, &Messages::Msg039};
inline constexpr VersionGate kCheckBoardOpenGate{0x40, nullptr};
inline constexpr VersionGate kCheckBoardClickGate{0x3A, &Messages::Msg041};
inline constexpr VersionGate kLargeIndexOpenGate{0x40, nullptr, true};
inline constexpr VersionGate kLargeIndexClickGate{0x40, &Messages::Msg040, true};
inline constexpr VersionGate kSmallIndexClickGate{0x66, &Messages::Msg042, true};
inline constexpr VersionGate kAutoSetupGate{0x80, &Messages::Msg043};
inline constexpr VersionGate kTestDealGate{0x83, &Messages::Msg044};

[[nodiscard]] bool Passes(const Machine& machine, const VersionGate& gate);

/// The gate's text with the present version in it.
[[nodiscard]] std::string GateText(const Machine& machine, const Messages& texts,
                                   const VersionGate& gate);
/// Why cards with this index (`CardSettings::Index`) cannot be chosen, with `version` for the
/// present one; empty: they can.
[[nodiscard]] std::string WhyNotIndex(const Machine& machine, const Messages& texts, int cardIndex,
                                      const std::string& version);

}  // namespace morvane::machine
