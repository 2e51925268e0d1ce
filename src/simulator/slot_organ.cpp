#include "simulator/slot_organ.h"

#include "wire/service_commands.h"

namespace morvane::simulator {

using namespace wire;

namespace {

constexpr std::uint8_t kLabelsSince = 0x37;

}  // namespace

SlotOrgan::SlotOrgan(const Options& options)
    : hasReader_((options.Hardware & IdentityReply::kBoardNumberReader) != 0),
      knowsLabels_(options.FirmwareSince(kLabelsSince)) {}

bool SlotOrgan::Answer(const Frame& command, bool flipPlate, Frame& reply) const {
  const std::uint8_t selector = Get<SensorCommand>(command).Selector;
  if (selector != SensorCommand::kBoardLabel || !knowsLabels_) return false;
  Put(LabelReply{{selector, flipPlate}, hasReader_ ? slot_.Label() : std::uint8_t{0}}, reply);
  return true;
}

}  // namespace morvane::simulator
