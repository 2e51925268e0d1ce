#pragma once

#include "program/program.h"

namespace morvane::maintenance {

// The factory's tools that need no machine: each asks for its files, reads, converts and writes. A
// file that is not what it should be, or that the system refuses, is told under the title of its
// dialog. What is written replaces an old file only once it is whole, and never one that it was
// made of.

inline constexpr const char* kBootCodeTitle = "Boot code";
inline constexpr const char* kBootSourceTitle = "boot.c";
inline constexpr const char* kCodeTitle = "DSP code";
inline constexpr const char* kBitstreamTitle = "Bitstream";
inline constexpr const char* kFirmwareTitle = "Morvane code";
inline constexpr const char* kTextHexTitle = "Text hex";
inline constexpr const char* kHexTitle = "Intel HEX";

/// "boot.adb -> boot.c". False: nothing was written, and the operator knows why.
bool Boot(Program& program);

/// "Code Prepare": code and bitstream into an `.adc` file. False as above.
bool Prepare(Program& program);

/// "txt -> hex", for a second file too. False: not even the first was written, and the operator
/// knows why.
bool txt_hex(Program& program);

}  // namespace morvane::maintenance
