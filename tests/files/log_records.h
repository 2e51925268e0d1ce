#pragma once

#include <string>

#include "files/sets.h"

namespace morvane::files {

inline const std::string kSuitHands = std::string(kSuitsPbn) + " ";
inline constexpr const char* kRoundHands =
    "AT62.J73.Q84.K95 K95.AT62.J73.Q84 Q84.K95.AT62.J73 J73.Q84.K95.AT62 ";
inline constexpr const char* kIdentity = " 0102030405060708090A0B0C  00000007";

/// The record of a board, without its line end.
inline std::string Record(const std::string& number, const std::string& hands = kSuitHands) {
  return "   " + number + " : " + hands;
}

}  // namespace morvane::files
