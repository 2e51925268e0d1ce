#pragma once

#include <cstdint>
#include <functional>

#include "machine/run_parts.h"

namespace morvane::machine {

/// What dealing and reading a board differ in.
struct HandJob {
  wire::StartCommand Start;     ///< but for continuation and settings, which are every board's
  std::function<bool()> Fetch;  ///< after every stretch, as `CardRun::Plan`
  std::function<RunEnd()>
      Judge;  ///< of a run that ended without a fault; writes its part of the log line
};

/// Runs the current board, from its first frame to the end of its log line, in the order of things
/// on the wire. `rotation` is 0..3. The machine is idle again unless the run was given up or the
/// link was lost; who walks on, writes the line and tells of the end is the caller.
RunEnd RunHand(RunParts& run, std::uint8_t rotation, const HandJob& job);

}  // namespace morvane::machine
