#include "simulator/parameter_organ.h"

#include "wire/service_commands.h"

namespace morvane::simulator {
namespace {

using namespace wire;

constexpr std::uint8_t kJumboSince = 0x40;
constexpr std::uint8_t kThresholdsSince = 0x44;
constexpr std::uint8_t kSmallSince = 0x66;
constexpr std::uint8_t kVideoSince = 0x80;

template <typename Block>
const Block& AnswerOf(const Block& block, const IndexRecord* /*record*/) {
  return block;
}
SwitchAnswer AnswerOf(const SwitchBlock& block, const IndexRecord* record) {
  return {record->ParamId, block.IgnoreFlip, block.IgnoreBox, block.UseBoard};
}

bool IsOf(CardIndex index, std::uint8_t subCode) {
  return subCode >= SubCodeOf<PositionBlock>(index) && subCode <= SubCodeOf<SwitchBlock>(index);
}

}  // namespace

bool ParameterOrgan::Answer(const Frame& command, Frame& reply) const {
  const std::uint8_t subCode = SubCodeIn(command);
  if (!Has(subCode)) return false;
  return VisitBlock(parameters_, subCode, [&](const auto& block, const IndexRecord* record) {
    using Answer = std::remove_cvref_t<decltype(AnswerOf(block, record))>;
    Put(ParametersReply<Answer>{subCode, AnswerOf(block, record)}, reply);
    return true;
  });
}

bool ParameterOrgan::Write(const Frame& command) {
  const std::uint8_t subCode = SubCodeIn(command);
  if (!Has(subCode) || !TakeBlock(command, parameters_)) return false;
  if (subCode != VideoBlock::kSubCode) return true;
  const VideoBlock values = Get<WriteParametersCommand<VideoBlock>>(command).Values;
  trial_ = values.Trial ? std::optional(values.BoardSen) : std::nullopt;
  return true;
}

// The records of the other indexes are denied by firmware 2.x alone.
bool ParameterOrgan::Has(std::uint8_t subCode) const {
  const bool isTwo = options_.FirmwareMajor == 2;
  if (IsOf(CardIndex::Jumbo, subCode)) {
    const bool reads = (options_.Hardware & IdentityReply::kLargeIndexCards) != 0;
    return !isTwo || (reads && options_.FirmwareSince(kJumboSince));
  }
  if (IsOf(CardIndex::Small, subCode)) return !isTwo || options_.FirmwareSince(kSmallSince);
  if (subCode == ThresholdBlock::kSubCode) return options_.FirmwareSince(kThresholdsSince);
  return subCode != VideoBlock::kSubCode || options_.FirmwareSince(kVideoSince);
}

}  // namespace morvane::simulator
