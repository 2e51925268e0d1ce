#include "simulator/slot_organ.h"

#include "wire/commands.h"

namespace morvane::simulator {

using namespace wire;

SlotOrgan::SlotOrgan(const Options& options)
    : hasReader_((options.Hardware & IdentityReply::kBoardNumberReader) != 0) {}

bool SlotOrgan::Answer(const Frame& command, Frame& reply) const {
  const std::uint8_t selector = Get<SensorCommand>(command).Selector;
  if (selector != SensorCommand::kBoardLabel) return false;
  Put(SensorReply{selector, hasReader_ ? slot_.Label() : std::uint8_t{0}}, reply);
  return true;
}

}  // namespace morvane::simulator
