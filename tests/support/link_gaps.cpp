#include "support/link_gaps.h"

#include <algorithm>

#include "wire/flash_commands.h"
#include "wire/picture_commands.h"
#include "wire/service_commands.h"

namespace morvane::test {
namespace {

constexpr int kLastLine = 191;

/// The first plain bytes of a frame as it goes to the machine, `at` 0 to 6: its key starts at the
/// sum, of which byte 7 carries the complement, and grows by 23 a byte.
std::uint8_t PlainByte(std::span<const std::uint8_t> bytes, std::size_t at) {
  if (bytes.size() < wire::kShortFrame) return 0;
  return static_cast<std::uint8_t>(bytes[at] ^ ((bytes[7] ^ 0xFFU) + 23 * at));
}
std::uint8_t CodeOnTheWire(std::span<const std::uint8_t> bytes) { return PlainByte(bytes, 0); }

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
  switch (of_) {
    case Of::kPolls:
      return code == wire::CmdOutputs;
    case Of::kPictures:
      return code == wire::CmdPictureLine;
    case Of::kDownloads:
      return code == wire::CmdStartDownload;
    default:
      return StartsRun(code);
  }
}

bool LinkGaps::Ends(std::span<const std::uint8_t> bytes) const {
  const std::uint8_t code = CodeOnTheWire(bytes);
  switch (of_) {
    case Of::kPictures:
      return code == wire::CmdPictureLine && PlainByte(bytes, 1) == kLastLine;
    case Of::kDownloads:
      return code == wire::CmdFlashBlock && PlainByte(bytes, 2) == 0 && PlainByte(bytes, 3) == 0;
    default:
      return code == wire::CmdVersion;
  }
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
  ending_ = Ends(bytes);
  ++figures_.Sends;
  figures_.Bytes += bytes.size();
}

UsbXpress::Status LinkGaps::Read(Handle handle, std::span<std::uint8_t> bytes,
                                 std::uint32_t& read) {
  const Status status = PassingBridge::Read(handle, bytes, read);
  if (!running_) return status;
  replied_ = time_.Elapsed();
  figures_.Bytes += read;
  if (ending_ && read == bytes.size()) EndRun();
  return status;
}

void LinkGaps::EndRun() {
  running_ = false;
  figures_.Taken += replied_ - start_;
}

}  // namespace morvane::test
