#include "support/link_gaps.h"

#include <algorithm>

#include "wire/service_commands.h"

namespace morvane::test {
namespace {

/// The plain code of a frame as it goes to the machine: its key starts at the sum, of which byte 7
/// carries the complement.
std::uint8_t CodeOnTheWire(std::span<const std::uint8_t> bytes) {
  return bytes.size() < wire::kShortFrame ? 0
                                          : static_cast<std::uint8_t>(bytes[0] ^ bytes[7] ^ 0xFFU);
}

bool StartsRun(std::uint8_t code) {
  return code == wire::CmdDeal || code == wire::CmdRead || code == wire::CmdSort;
}

}  // namespace

UsbXpress::Status LinkGaps::Write(Handle handle, std::span<const std::uint8_t> bytes,
                                  std::uint32_t& written) {
  const Time now = time_.Elapsed();
  NoteSend(bytes, now);
  const Status status = PassingBridge::Write(handle, bytes, written);
  if (running_) figures_.Writes += time_.Elapsed() - now;
  return status;
}

bool LinkGaps::Starts(std::uint8_t code) const {
  return of_ == Of::kPolls ? code == wire::CmdOutputs : StartsRun(code);
}

void LinkGaps::NoteSend(std::span<const std::uint8_t> bytes, Time now) {
  const std::uint8_t code = CodeOnTheWire(bytes);
  if (running_ && of_ == Of::kPolls && Starts(code)) EndRun();
  if (!running_ && Starts(code)) {
    running_ = true;
    ++figures_.Runs;
    start_ = now;
  } else if (running_) {
    const Time gap = now - replied_;
    figures_.Gaps += gap;
    figures_.Worst = std::max(figures_.Worst, gap);
  }
  if (!running_) return;
  probing_ = code == wire::CmdVersion;
  ++figures_.Sends;
  figures_.Bytes += bytes.size();
}

UsbXpress::Status LinkGaps::Read(Handle handle, std::span<std::uint8_t> bytes,
                                 std::uint32_t& read) {
  const Status status = PassingBridge::Read(handle, bytes, read);
  if (!running_) return status;
  replied_ = time_.Elapsed();
  figures_.Bytes += read;
  if (probing_ && read == bytes.size()) EndRun();
  return status;
}

void LinkGaps::EndRun() {
  running_ = false;
  figures_.Taken += replied_ - start_;
}

}  // namespace morvane::test
