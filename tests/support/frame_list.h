#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/scripted_bridge.h"

namespace morvane::test {

/// Whether `sent` are the frames that `lines` tell, one after the other. A line has bytes 0 to 6 in
/// hexadecimal, as the byte tables have them:
///   "19 02 .. .. .. .. .."                    .. is random: any byte below 255
///   "19 00 == 00 00 00 00"                    == is what stood there in the frame before
///   "98 00 00 00 0B 24 00 | 4444 3 3 21 ..."  a long frame: its payload from byte 8, a digit each
///   "19 00 .. .. .. .. .. x3"                 three of them
/// What a payload holds behind the digits is not told.
[[nodiscard]] ::testing::AssertionResult FramesAre(const std::vector<Bytes>& sent,
                                                   const std::vector<std::string>& lines);

}  // namespace morvane::test
