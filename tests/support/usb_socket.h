#pragma once

#include <umockdev.h>

#include <cstdint>
#include <string>
#include <vector>

namespace morvane::test {

/// What kind of device stands at a USB socket.
struct UsbKind {
  std::uint16_t Vendor = 0x10C4;
  std::uint16_t Product = 0xEA60;
  std::string Serial = "4711S";
  int Socket = 1;           ///< 1.. of bus 1
  bool MayBeOpened = true;  ///< by this user
  bool HasDriver = true;    ///< the system's own has it, as behind plugging in
  std::string Tty = {};     ///< the serial device "ttyUSB0" that this driver makes of it
  std::uint8_t PartNumber = 3;
  std::uint16_t PacketSize = 64;  ///< of what is fetched, as its descriptor has it
};

/// What the system shows of a device that is plugged in: its folders and its node. The node is a
/// pipe, which has room, as the system's own would have for a program that polls it, when there is
/// something to fetch.
class UsbSocket {
 public:
  /// `lastAddress` is the last that was given to a device at this bus.
  UsbSocket(UMockdevTestbed* testbed, int& lastAddress, UsbKind kind);
  ~UsbSocket();
  UsbSocket(const UsbSocket&) = delete;
  UsbSocket& operator=(const UsbSocket&) = delete;

  [[nodiscard]] const UsbKind& Kind() const { return kind_; }
  /// `calls` serves what programs ask of the node.
  void PlugIn(UMockdevIoctlBase* calls);
  /// Programs that have it open keep it so.
  void Pull();
  void ShowReady(bool ready);

 private:
  /// Adds to `folders_`.
  void MakeDevice();
  void MakeInterface();
  void MakeTty();
  void MakeNode();
  [[nodiscard]] std::string Name() const { return "1-" + std::to_string(kind_.Socket); }
  [[nodiscard]] std::string Node() const;

  UMockdevTestbed* testbed_;
  UsbKind kind_;
  std::string root_;
  int& lastAddress_;
  int address_ = 0;
  std::vector<std::string> folders_;  ///< as long as it is plugged in; one in the other
  int pipe_ = -1;
  bool ready_ = true;
};

}  // namespace morvane::test
