#include "support/scripted_bridge.h"

#include <algorithm>
#include <numeric>

namespace morvane::test {
namespace {

void ApplyKey(Bytes& bytes, int start, int step) {
  for (int i = 0; i < static_cast<int>(bytes.size()); ++i) {
    if (i == 7) continue;
    const int key = start + step * (i < 7 ? i : i - 1);
    auto& byte = bytes[static_cast<std::size_t>(i)];
    byte = static_cast<std::uint8_t>(byte ^ (key & 0xFF));
  }
}

Bytes Padded(Bytes bytes, std::size_t size) {
  bytes.resize(size);
  return bytes;
}

}  // namespace

Bytes OnTheWire(Bytes plain, int step) {
  plain[7] = 0;
  const int sum = std::accumulate(plain.begin(), plain.end(), 0) & 0xFF;
  ApplyKey(plain, sum, step);
  plain[7] = static_cast<std::uint8_t>(255 - sum);
  return plain;
}

Bytes OffTheWire(const Bytes& wire, int step) {
  Bytes plain = wire;
  ApplyKey(plain, 255 - wire[7], step);
  plain[7] = 0;
  return plain;
}

Bytes Short(Bytes bytes) { return Padded(std::move(bytes), 8); }
Bytes Long(Bytes bytes) { return Padded(std::move(bytes), 136); }

UsbXpress::Status ScriptedBridge::Note(const std::string& name, const std::string& arguments) {
  Calls.push_back(name + (arguments.empty() ? "" : " " + arguments));
  return name == FailingCall ? FailureStatus : kSuccess;
}

UsbXpress::Status ScriptedBridge::GetDllVersion(std::uint32_t& high, std::uint32_t& low) {
  high = 0x30002;
  low = 1;
  return Note("GetDllVersion");
}

UsbXpress::Status ScriptedBridge::GetDriverVersion(std::uint32_t& high, std::uint32_t& low) {
  high = DriverVersion;
  low = 0;
  return Note("GetDriverVersion");
}

UsbXpress::Status ScriptedBridge::GetNumDevices(std::uint32_t& count) {
  count = static_cast<std::uint32_t>(Devices.size());
  return Note("GetNumDevices");
}

UsbXpress::Status ScriptedBridge::GetProductString(std::uint32_t index, ProductString& text,
                                                   std::uint32_t option) {
  const std::string& name = Devices[index];
  std::copy(name.begin(), name.end(), text.begin());
  text[name.size()] = '\0';
  return Note("GetProductString", std::to_string(index) + " " + std::to_string(option));
}

UsbXpress::Status ScriptedBridge::Open(std::uint32_t index, Handle& handle) {
  const Status status = Note("Open", std::to_string(index));
  if (status == kSuccess) handle = 7;
  return status;
}

UsbXpress::Status ScriptedBridge::SetTimeouts(std::uint32_t readMs, std::uint32_t writeMs) {
  readMs_ = readMs;
  return Note("SetTimeouts", std::to_string(readMs) + " " + std::to_string(writeMs));
}

UsbXpress::Status ScriptedBridge::SetBaudRate(Handle, std::uint32_t rate) {
  return Note("SetBaudRate", std::to_string(rate));
}

UsbXpress::Status ScriptedBridge::SetLineControl(Handle, std::uint16_t control) {
  return Note("SetLineControl", std::to_string(control));
}

UsbXpress::Status ScriptedBridge::FlushBuffers(Handle, std::uint8_t transmit,
                                               std::uint8_t receive) {
  if (receive == 1) Unread.clear();
  return Note("FlushBuffers", std::to_string(transmit) + " " + std::to_string(receive));
}

void ScriptedBridge::CheckFrame(const Bytes& wire, const Bytes& plain) {
  if (awaited_) ++Overlaps;
  awaited_ = plain[0] != 0x13 && plain[0] != 0x24 && plain[0] != 0x34;  // those only write
  const std::size_t size = (plain[0] & 0x80) != 0 ? 136 : 8;
  if (wire.size() != size || wire != OnTheWire(plain, 23)) ++Malformed;
}

UsbXpress::Status ScriptedBridge::Write(Handle, std::span<const std::uint8_t> bytes,
                                        std::uint32_t& written) {
  written = static_cast<std::uint32_t>(bytes.size());
  const Bytes wire(bytes.begin(), bytes.end());
  const Bytes plain = OffTheWire(wire, 23);
  CheckFrame(wire, plain);
  Sent.push_back(plain);
  Bytes answer;
  if (Answer) {
    answer = Answer(plain);
  } else if (!Replies.empty()) {
    if (!Replies.front().empty()) answer = OnTheWire(Replies.front(), 21);
    Replies.pop_front();
  }
  Unread.insert(Unread.end(), answer.begin(), answer.end());
  return kSuccess;
}

UsbXpress::Status ScriptedBridge::Read(Handle, std::span<std::uint8_t> bytes, std::uint32_t& read) {
  awaited_ = false;
  const std::size_t count = std::min(bytes.size(), Unread.size());
  std::copy_n(Unread.begin(), count, bytes.begin());
  Unread.erase(Unread.begin(), Unread.begin() + static_cast<std::ptrdiff_t>(count));
  read = static_cast<std::uint32_t>(count);
  if (count == bytes.size()) return kSuccess;
  clock_.Spend(std::chrono::milliseconds(readMs_));
  return kReadTimedOut;
}

UsbXpress::Status ScriptedBridge::WriteLatch(Handle, std::uint8_t mask, std::uint8_t value) {
  if (OnLatch && (mask & 1U) != 0) OnLatch((value & 1U) != 0);
  return Note("WriteLatch", std::to_string(mask) + " " + std::to_string(value));
}

UsbXpress::Status ScriptedBridge::Close(Handle) { return Note("Close"); }

}  // namespace morvane::test
