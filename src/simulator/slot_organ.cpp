#include "simulator/slot_organ.h"

#include "wire/service_commands.h"

namespace morvane::simulator {

using namespace wire;

namespace {

constexpr std::uint8_t kLabelsSince = 0x37;

}  // namespace

bool SlotOrgan::Answer(const Frame& command, bool flipPlate, Frame& reply) const {
  const std::uint8_t selector = Get<SensorCommand>(command).Selector;
  if (selector != SensorCommand::kBoardLabel || !options_.FirmwareSince(kLabelsSince)) return false;
  const bool hasReader = (options_.Hardware & IdentityReply::kBoardNumberReader) != 0;
  Put(LabelReply{{selector, flipPlate}, hasReader ? slot_.Label() : std::uint8_t{0}}, reply);
  return true;
}

}  // namespace morvane::simulator
