#include "simulator/identity_organ.h"

#include "simulator/agrees.h"
#include "wire/service_commands.h"

namespace morvane::simulator {
namespace {

using namespace wire;

constexpr std::uint8_t kLogicVersion = 37;
constexpr std::uint8_t kFlash = 4;
/// No byte of them is there twice, and a small one is among each four.
constexpr std::array<std::array<std::uint8_t, 4>, 2> kDie{
    {{0x8A, 0x41, 0x07, 0xD3}, {0x0C, 0x95, 0xE2, 0x36}}};
constexpr std::array<std::uint8_t, 8> kSet{0x4D, 0xB8, 0x01, 0x6F, 0xF0, 0x0A, 0x23, 0xC7};

bool AnswerDie(const Frame& command, Frame& reply) {
  const auto asked = Get<DieIdentityCommand>(command);
  if (!Agrees(asked, command) || asked.Half < 1 || asked.Half > kDie.size()) return false;
  Put(DieIdentityReply{asked.Half, kDie[asked.Half - 1U]}, reply);
  return true;
}

}  // namespace

bool IdentityOrgan::Answer(const Frame& command, Frame& reply) const {
  switch (CodeOf(command)) {
    case CmdVersion:
      return AnswerVersion(reply);
    case CmdIdentity:
      return AnswerPage(command, reply);
    case CmdStoredData:
      return AnswerStoredData(command, reply);
    case CmdDieIdentity:
      return AnswerDie(command, reply);
    case CmdLogicVersion:
      Put(LogicVersionReply{kLogicVersion}, reply);
      return Agrees(LogicVersionCommand{}, command);
    default:
      return false;
  }
}

bool IdentityOrgan::AnswerStoredData(const Frame& command, Frame& reply) const {
  if (Agrees(SetIdentityCommand{}, command)) {
    Put(SetIdentityReply{SetIdentityCommand::kArea, kSet}, reply);
    return true;
  }
  Put(BootAreaReply{0, options_.BootMajor, options_.BootMinor}, reply);
  return Agrees(BootAreaCommand{}, command);
}

bool IdentityOrgan::AnswerVersion(Frame& reply) const {
  Put(VersionReply{options_.FirmwareMajor, options_.FirmwareMinor, options_.BootMajor,
                   options_.BootMinor, kFlash},
      reply);
  return true;
}

std::uint16_t IdentityOrgan::DayAndMonth() const {
  return static_cast<std::uint16_t>(options_.Day << 8U | options_.Month);
}

bool IdentityOrgan::AnswerPage(const Frame& command, Frame& reply) const {
  switch (const std::uint8_t page = Get<IdentityCommand>(command).Page) {
    case 1:
      Put(IdentityReply{page, options_.Serial, options_.Hardware}, reply);
      return true;
    case 2:
      Put(IdentityReply{page, DayAndMonth(), options_.Year}, reply);
      return true;
    default:
      return false;
  }
}

}  // namespace morvane::simulator
