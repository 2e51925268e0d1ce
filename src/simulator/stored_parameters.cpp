#include "simulator/stored_parameters.h"

#include "simulator/agrees.h"
#include "wire/service_commands.h"

namespace morvane::simulator {
namespace {

using namespace wire;

template <typename Block>
void Keep(const Block& values, Block& block) {
  block = values;
}
/// A trial is not kept.
void Keep(const VideoBlock& values, VideoBlock& block) {
  if (!values.Trial) block = values;
}

}  // namespace

bool TakeBlock(const Frame& command, StoredParameters& parameters) {
  return VisitBlock(parameters, SubCodeIn(command), [&](auto& block, auto* /*record*/) {
    using Block = std::remove_reference_t<decltype(block)>;
    const auto write = Get<WriteParametersCommand<Block>>(command);
    if (!Agrees(write, command)) return false;
    Keep(write.Values, block);
    return true;
  });
}

Frame WriteFrame(std::uint8_t subCode, const StoredParameters& parameters) {
  Frame frame{};
  VisitBlock(parameters, subCode, [&](const auto& block, const auto* /*record*/) {
    using Block = std::remove_cvref_t<decltype(block)>;
    Put(WriteParametersCommand<Block>{subCode, block}, frame);
    return true;
  });
  return frame;
}

}  // namespace morvane::simulator
