#include "bridges/contract/contract.h"

namespace morvane::bridges {

void ContractClient::FindDevice() {
  std::uint32_t count = 99;
  ASSERT_EQ(Usb.GetNumDevices(count), UsbXpress::kSuccess);
  ASSERT_EQ(count, 1U);
}

void ContractClient::Open(std::uint32_t readMs) {
  FindDevice();
  ASSERT_EQ(Usb.Open(0, Handle), UsbXpress::kSuccess);
  ASSERT_NE(Handle, kNone);
  ASSERT_EQ(Usb.SetTimeouts(readMs, kLongMs), UsbXpress::kSuccess);
  ASSERT_EQ(Usb.SetBaudRate(Handle, UsbXpress::kBaudRate), UsbXpress::kSuccess);
  ASSERT_EQ(Usb.SetLineControl(Handle, UsbXpress::kEightDataBitsNoParity), UsbXpress::kSuccess);
  Flush(1, 1);
}

void ContractClient::SetReadTime(std::uint32_t ms) {
  ASSERT_EQ(Usb.SetTimeouts(ms, kLongMs), UsbXpress::kSuccess);
}

void ContractClient::Send(const Bytes& plain) {
  const Bytes wire = simulator::ToWire(plain);
  EXPECT_EQ(Write(wire), wire.size());
  EXPECT_EQ(Status, UsbXpress::kSuccess);
  Desk.Carry();
}

std::uint32_t ContractClient::Write(const Bytes& bytes) {
  std::uint32_t written = 99;
  Status = Usb.Write(Handle, bytes, written);
  return written;
}

Bytes ContractClient::Read(std::size_t count) {
  Bytes bytes(count, 0xEE);
  std::uint32_t read = 99;
  Status = Usb.Read(Handle, bytes, read);
  EXPECT_LE(read, count);
  bytes.resize(read);
  return bytes;
}

double ContractClient::MsOfShortRead(std::size_t count) {
  const auto start = Desk.Now();
  EXPECT_LT(Read(count).size(), count);
  EXPECT_EQ(Status, UsbXpress::kReadTimedOut);
  return std::chrono::duration<double, std::milli>(Desk.Now() - start).count();
}

void ContractClient::Flush(std::uint8_t transmit, std::uint8_t receive) {
  EXPECT_EQ(Usb.FlushBuffers(Handle, transmit, receive), UsbXpress::kSuccess);
}

}  // namespace morvane::bridges
