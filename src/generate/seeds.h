#pragma once

#include <string_view>

#include "generate/generator.h"

namespace morvane::generate {

inline constexpr const char* kGenerateCaption = "Generate New Board Set";

/// How the log's lines of seeds begin: those of the number generator, and of the shuffling
/// generator.
inline constexpr std::string_view kSeedrStart = "  Seedr: ";
inline constexpr std::string_view kSeedoStart = "  Seedo: ";
inline constexpr std::string_view kLfsrStart = "  Seed: ";

/// Makes new seeds for the number generator of pool and system, and logs them. False when the
/// system's random source failed, which has been shown.
[[nodiscard]] bool PrepareNumberSeeds(Program& program, Generator& generator);

/// Makes a new state for the shuffling generator's register of pool and time, and logs it. The deck
/// stays.
void PrepareLfsrSeed(Program& program, Generator& generator);

/// Gives the number generator seeds written as the log shows them (40 digits each), so that a set
/// can be made again. False, with nothing changed, when a text is not that.
[[nodiscard]] bool SetNumberSeeds(NumberDealer& dealer, std::string_view seedr,
                                  std::string_view seedo);

/// The same, and logs them.
[[nodiscard]] bool UseNumberSeeds(Program& program, NumberDealer& dealer, std::string_view seedr,
                                  std::string_view seedo);

/// The same for the shuffling generator, with a fresh deck: the 32 digits of the four words.
[[nodiscard]] bool UseLfsrSeed(Program& program, ShufflingDealer& dealer, std::string_view seed);

}  // namespace morvane::generate
