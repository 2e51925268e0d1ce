#include "simulator/identity_organ.h"

#include "simulator/agrees.h"
#include "wire/service_commands.h"

namespace morvane::simulator {
namespace {

using namespace wire;

constexpr std::uint8_t kLogicVersion = 37;
constexpr std::uint8_t kFlash = 4;

}  // namespace

bool IdentityOrgan::Answer(const Frame& command, Frame& reply) const {
  switch (CodeOf(command)) {
    case CmdVersion:
      return AnswerVersion(reply);
    case CmdIdentity:
      return AnswerPage(command, reply);
    case CmdStoredData:
      return AnswerBootArea(command, reply);
    case CmdLogicVersion:
      Put(LogicVersionReply{kLogicVersion}, reply);
      return Agrees(LogicVersionCommand{}, command);
    default:
      return false;
  }
}

bool IdentityOrgan::AnswerBootArea(const Frame& command, Frame& reply) const {
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
