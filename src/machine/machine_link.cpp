#include "machine/machine_link.h"

#include <algorithm>

namespace morvane::machine {

void MachineLink::SendShortFrame() { Send(wire::kShortFrame); }

void MachineLink::SendLongFrame() {
  wire::ClearCheckByte(TxFrame);
  Send(wire::kLongFrame);
}

void MachineLink::SendFrame() {
  if (wire::FrameSize(wire::CodeOf(TxFrame)) == wire::kLongFrame) {
    SendLongFrame();
  } else {
    SendShortFrame();
  }
}

void MachineLink::Send(std::size_t size) {
  RxStatus = kGood;
  const auto image = std::span(txWire_).first(size);
  std::copy_n(TxFrame.begin(), size, image.begin());
  wire::Scramble(image, wire::kStepToMachine);
  std::uint32_t written = 0;
  Usb.Write(UsbHandle, image, written);
  ReadFailed = false;
}

bool MachineLink::Read(std::span<std::uint8_t> bytes) {
  std::uint32_t read = 0;
  Usb.Read(UsbHandle, bytes, read);
  if (read != bytes.size()) ReadFailed = true;
  return read == bytes.size();
}

void MachineLink::ReceiveFrame() {
  const auto head = std::span(RxFrame).first(wire::kShortFrame);
  std::size_t size = wire::kShortFrame;
  if (Read(head)) {
    size = wire::SizeOnTheWire(head);
    if (size == wire::kLongFrame) Read(wire::Payload(RxFrame));
  }
  const bool checkHolds = wire::Unscramble(std::span(RxFrame).first(size), wire::kStepFromMachine);
  RxStatus = ReadFailed ? kTooShort : checkHolds ? kGood : kBadCheck;
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

void MachineLink::DrainLink() { Usb.FlushBuffers(UsbHandle, 0, 1); }

}  // namespace morvane::machine
