#pragma once

#include <string>

namespace morvane::machine {

// The boards 1 to 3 of `test::FillSet`, as a start frame has them. Their cards go round, the Ace of
// Spades of board 1 to East, of board 2 to South, of board 3 to West. On the wire stand the spades,
// hearts, diamonds and clubs from the Two up: 12, 25, 38 and 51 hands behind that Ace down to 0,
// 13, 26 and 39, so counted by fours a suit begins one hand further than the one before and ends
// where it begins. Backwards round the table go East 3, North 4, West 2, South 1.
inline const std::string kBoard1 = " | 3421342134213 1342134213421 2134213421342 4213421342134";
inline const std::string kBoard2 = " | 1342134213421 2134213421342 4213421342134 3421342134213";
inline const std::string kBoard3 = " | 2134213421342 4213421342134 3421342134213 1342134213421";

// What every run consists of.
inline const std::string kPoll = "19 00 .. .. .. .. ..";
inline const std::string kThreePolls = kPoll + " x3";
inline const std::string kCardLog = "20 00 .. .. .. .. ..";
inline const std::string kProbe = "1A 00 .. .. .. .. ..";
inline const std::string kLabel = "1B 04 00 .. .. .. ..";
/// The poll of the error dialog: byte 2 stays, the others are 0.
inline const std::string kDialogPoll = "19 00 == 00 00 00 00";

}  // namespace morvane::machine
