#include "simulator/slot_organ.h"

#include "simulator/agrees.h"
#include "wire/service_commands.h"

namespace morvane::simulator {

using namespace wire;

namespace {

constexpr std::uint8_t kLabelsSince = 0x37;
constexpr std::uint8_t kSwitchSince = 0x80;

}  // namespace

void SlotOrgan::Insert(std::uint8_t label) {
  slot_.Insert(label);
  seen_ = false;
}

void SlotOrgan::Look(std::uint8_t sensitivity) {
  if (!slot_.Occupied() || sensitivity <= options_.BoardSwitch.Lost) {
    seen_ = false;
  } else if (sensitivity >= options_.BoardSwitch.Seen) {
    seen_ = true;
  }
}

void SlotOrgan::Forget() {
  slot_.Forget();
  seen_ = false;
}

bool SlotOrgan::Answer(const Frame& command, bool flipPlate, Frame& reply) const {
  const SensorHead head{Get<SensorCommand>(command).Selector, flipPlate};
  if (head.Selector == SensorCommand::kBoardLabel) return AnswerLabel(head, reply);
  return Agrees(BoardSensorCommand{}, command) && AnswerSwitch(head, reply);
}

bool SlotOrgan::AnswerLabel(const SensorHead& head, Frame& reply) const {
  if (!options_.FirmwareSince(kLabelsSince)) return false;
  const bool hasReader = (options_.Hardware & IdentityReply::kBoardNumberReader) != 0;
  Put(LabelReply{head, hasReader ? slot_.Label() : std::uint8_t{0}}, reply);
  return true;
}

bool SlotOrgan::AnswerSwitch(const SensorHead& head, Frame& reply) const {
  const bool hasSwitch = (options_.Hardware & IdentityReply::kOpticalBoardSwitch) != 0;
  if (!hasSwitch || !options_.FirmwareSince(kSwitchSince)) return false;
  Put(BoardSensorReply{head, seen_ ? std::uint8_t{1} : std::uint8_t{0}}, reply);
  return true;
}

}  // namespace morvane::simulator
