#include "machine/idle_poll.h"

#include <algorithm>

namespace morvane::machine {

IdlePoll PollBetweenRuns(Machine& machine, bool autoStart) {
  if (machine.PollLock) return IdlePoll::kNothing;
  machine.PollLock = true;
  machine.Exchange(machine.Poll());
  if (machine.Lost()) return IdlePoll::kLinkLost;
  machine.BoxOutTicks = std::min<std::int16_t>(static_cast<std::int16_t>(machine.BoxOutTicks + 1),
                                               Machine::kMostTicks);
  machine.PollLock = false;
  const bool boardIn =
      machine.BoxFlag == 1 && autoStart && machine.BoxInTicks == Machine::kMostTicks;
  return machine.PedalFlag == 1 || boardIn ? IdlePoll::kStart : IdlePoll::kNothing;
}

}  // namespace morvane::machine
