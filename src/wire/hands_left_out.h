#pragma once

#include "wire/frame.h"

namespace morvane::wire {

// A frame without what says who has which card, for a trace that is handed on. What a run goes by
// stays true, so that the trace can be played back: how many cards each pocket has, and how many
// were dealt.
//
// Commands: what tells the machine nothing is cleared. It is random, and may tell where a program
// stood in the numbers that it deals by. So are the payloads of CmdDeal, CmdRead and CmdRoute.
//
// Replies: only what their tables name stays; nobody knows what a machine leaves in the rest. The
// board's pockets and the card log are sorted, the largest first, and so belong to no card any
// more. Cleared are the payload of a long status, the lines of both pictures and the test text,
// whose bytes may be anything; of both verdicts all but the error; the counters behind the first,
// where that is what a run asks for; and what was measured of a symbol, which is wider for a Ten.
//
// Of a frame without a name only the code stays. All others tell settings, counters, versions and
// sensors; of the status, how many cards each pocket has: whoever knows in which order the cards
// lay in the feeder, and has every poll, can follow the deal.

/// Of the plain frame that the program sends.
void LeaveOutHandsOfCommand(Frame& command);
/// Of the plain frame that the machine sends.
void LeaveOutHandsOfReply(Frame& reply);

/// Leaves what is random out of the plain commands of a link, which it is given in turn: in a test
/// deal a poll may look by chance like any other one, and that it does would tell something too.
class RandomLeftOut {
 public:
  void LeaveOut(Frame& command);

 private:
  bool inTestDeal_ = false;
};

}  // namespace morvane::wire
