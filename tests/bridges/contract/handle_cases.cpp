#include <array>

#include "bridges/contract/contract.h"

namespace morvane::bridges {
namespace {

/// A status poll of a machine that rests, and its plain reply, with the check byte of that: 19 xor
/// FF.
const Bytes kPoll{0x19, 0, 0, 0, 0, 0, 0, 0};

bool Answers(ContractClient& client) {
  client.Send(kPoll);
  return client.Read(8).size() == 8;
}

void ExpectNoHandle(UsbXpress& usb, UsbXpress::Handle handle) {
  constexpr UsbXpress::Status kInvalid = UsbXpress::kInvalidHandle;
  Bytes bytes(8);
  std::uint32_t count = 99;
  EXPECT_EQ(usb.SetBaudRate(handle, UsbXpress::kBaudRate), kInvalid);
  EXPECT_EQ(usb.SetLineControl(handle, UsbXpress::kEightDataBitsNoParity), kInvalid);
  EXPECT_EQ(usb.FlushBuffers(handle, 1, 1), kInvalid);
  EXPECT_EQ(usb.Write(handle, bytes, count), kInvalid);
  EXPECT_EQ(count, 0U);
  count = 99;
  EXPECT_EQ(usb.Read(handle, bytes, count), kInvalid);
  EXPECT_EQ(count, 0U);
  EXPECT_EQ(usb.WriteLatch(handle, 1, 1), kInvalid);
  EXPECT_EQ(usb.Close(handle), kInvalid);
}

void NothingIsDoneBeforeTheOpening(ContractDesk& desk) {
  for (const UsbXpress::Handle handle : {ContractClient::kNone, 0, 1}) {
    ExpectNoHandle(desk.Bridge(), handle);
  }
}

void AnotherHandleIsNoneAndDisturbsNobody(ContractDesk& desk) {
  ContractClient client(desk);
  client.Open();
  for (const UsbXpress::Handle handle : {ContractClient::kNone, client.Handle + 1}) {
    const auto start = desk.Now();
    ExpectNoHandle(desk.Bridge(), handle);
    EXPECT_LT(desk.Now() - start, std::chrono::seconds(1)) << "no time-out";
  }
  EXPECT_TRUE(Answers(client));
}

void ASecondOpeningIsRefusedAndTheFirstGoesOn(ContractDesk& desk) {
  ContractClient client(desk);
  client.Open();
  UsbXpress::Handle second = ContractClient::kNone;
  EXPECT_EQ(desk.Bridge().Open(0, second), UsbXpress::kInvalidParameter);
  EXPECT_EQ(second, ContractClient::kNone);
  EXPECT_TRUE(Answers(client));
}

void ItIsClosedOnceAndOpenedAgain(ContractDesk& desk) {
  ContractClient client(desk);
  for (int time = 0; time < 3; ++time) {
    client.Open();
    EXPECT_TRUE(Answers(client));
    EXPECT_EQ(desk.Bridge().Close(client.Handle), UsbXpress::kSuccess);
    desk.Carry();
    ExpectNoHandle(desk.Bridge(), client.Handle);
  }
}

void TheSpeedAndTheFormOfBytesAreTheMachines(ContractDesk& desk) {
  ContractClient client(desk);
  client.Open();
  UsbXpress& usb = desk.Bridge();
  EXPECT_EQ(usb.SetBaudRate(client.Handle, 0), UsbXpress::kInvalidParameter);
  EXPECT_EQ(usb.SetLineControl(client.Handle, 0x0801), UsbXpress::kInvalidParameter);
  EXPECT_EQ(usb.SetLineControl(client.Handle, 0x0700), UsbXpress::kInvalidParameter);
  EXPECT_TRUE(Answers(client)) << "what was refused has changed nothing";
}

void TheLatchReachesTheMachine(ContractDesk& desk) {
  ContractClient client(desk);
  client.Open();
  const auto latch = [&](std::uint8_t mask, std::uint8_t value, bool on) {
    EXPECT_EQ(desk.Bridge().WriteLatch(client.Handle, mask, value), UsbXpress::kSuccess);
    desk.Carry();
    desk.ExpectLatch(on);
  };
  latch(1, 0, false);
  latch(1, 1, true);
  latch(0, 0, true);
  latch(2, 0, true);
  latch(1, 0xFE, false);
  EXPECT_TRUE(Answers(client)) << "bytes pass with the line down";
  latch(0xFF, 1, true);
}

constexpr std::array<ContractCase, 6> kCases{{
    {"NothingIsDoneBeforeTheOpening", NothingIsDoneBeforeTheOpening},
    {"AnotherHandleIsNoneAndDisturbsNobody", AnotherHandleIsNoneAndDisturbsNobody},
    {"ASecondOpeningIsRefusedAndTheFirstGoesOn", ASecondOpeningIsRefusedAndTheFirstGoesOn},
    {"ItIsClosedOnceAndOpenedAgain", ItIsClosedOnceAndOpenedAgain},
    {"TheSpeedAndTheFormOfBytesAreTheMachines", TheSpeedAndTheFormOfBytesAreTheMachines},
    {"TheLatchReachesTheMachine", TheLatchReachesTheMachine},
}};

}  // namespace

std::span<const ContractCase> HandleCases() { return kCases; }

}  // namespace morvane::bridges
