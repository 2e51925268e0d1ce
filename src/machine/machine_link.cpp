#include "machine/machine_link.h"

#include <algorithm>

namespace morvane::machine {

void MachineLink::SendShortFrame() { Send(kShortFrame); }

void MachineLink::SendLongFrame() {
  TxFrame[kCheckByte] = 0;
  Send(kLongFrame);
}

void MachineLink::SendFrame() {
  if (FrameSize(TxFrame[0]) == kLongFrame) {
    SendLongFrame();
  } else {
    SendShortFrame();
  }
}

void MachineLink::Send(std::size_t size) {
  RxStatus = kGood;
  const auto wire = std::span(txWire_).first(size);
  std::copy_n(TxFrame.begin(), size, wire.begin());
  Scramble(wire, kStepToMachine);
  std::uint32_t written = 0;
  Usb.Write(UsbHandle, wire, written);
  ReadFailed = false;
}

bool MachineLink::Read(std::span<std::uint8_t> bytes) {
  std::uint32_t read = 0;
  Usb.Read(UsbHandle, bytes, read);
  if (read != bytes.size()) ReadFailed = true;
  return read == bytes.size();
}

void MachineLink::ReceiveFrame() {
  const auto bytes = std::span(RxFrame);
  std::size_t size = kShortFrame;
  if (Read(bytes.first(kShortFrame))) {
    KeyStream key(static_cast<std::uint8_t>(RxFrame[kCheckByte] ^ 0xFFU), kStepFromMachine);
    key.Apply(bytes.first(kCheckByte));
    size = FrameSize(RxFrame[0]);
    if (size == kLongFrame && Read(bytes.subspan(kPayload))) key.Apply(bytes.subspan(kPayload));
  }
  if (ReadFailed) {
    RxStatus = kTooShort;
  } else {
    RxStatus = CheckHolds(bytes.first(size)) ? kGood : kBadCheck;
  }
  if (RxStatus == kGood) {
    CommErrorCount = 0;
    return;
  }
  FlushLink();
  ++CommErrorCount;
}

void MachineLink::SetLinkTimeouts(std::int16_t ms) {
  const auto time = static_cast<std::uint32_t>(ms);
  Usb.SetTimeouts(time, time);
}

void MachineLink::CloseLink() {
  if (IsOpen()) Usb.Close(UsbHandle);
  UsbHandle = kClosed;
}

void MachineLink::MachineLatchOn() { Usb.WriteLatch(UsbHandle, 1, 1); }
void MachineLink::MachineLatchOff() { Usb.WriteLatch(UsbHandle, 1, 0); }
void MachineLink::FlushLink() { Usb.FlushBuffers(UsbHandle, 1, 1); }

}  // namespace morvane::machine
