#include "bridges/usb/bridge_chip.h"

#include <gtest/gtest.h>

// The bytes of each request, from the chip's tables.

namespace morvane::bridges::chip {
namespace {

void Is(const ControlRequest& request, std::uint8_t type, std::uint8_t code, std::uint16_t value,
        std::uint16_t index, std::uint16_t length) {
  EXPECT_EQ(request.Type, type);
  EXPECT_EQ(request.Code, code);
  EXPECT_EQ(request.Value, value);
  EXPECT_EQ(request.Index, index);
  EXPECT_EQ(request.Length, length);
}

TEST(BridgeChip, TheSerialSideIsSwitchedOnAndOff) {
  Is(Enable(true), 0x41, 0x00, 1, 0, 0);
  Is(Enable(false), 0x41, 0x00, 0, 0, 0);
}

// 115200 is 0x0001C200.
TEST(BridgeChip, TheBaudRateHasFourBytesTheLowestFirst) {
  const ControlRequest request = BaudRate(115200);
  Is(request, 0x41, 0x1E, 0, 0, 4);
  EXPECT_EQ(request.Data, (std::array<std::uint8_t, 4>{0x00, 0xC2, 0x01, 0x00}));
}

// 3686400 / 115200 = 32, / 9600 = 384.
TEST(BridgeChip, TheDivisorIsOfTheChipsClock) {
  Is(BaudDivisor(115200), 0x41, 0x01, 0x20, 0, 0);
  Is(BaudDivisor(9600), 0x41, 0x01, 384, 0, 0);
}

// 3686400 / 56 = 65828 has no room in 16 bits, / 57 = 64673 has.
TEST(BridgeChip, ADivisorHasSixteenBits) {
  EXPECT_FALSE(HasDivisor(56));
  EXPECT_TRUE(HasDivisor(57));
  Is(BaudDivisor(57), 0x41, 0x01, 64673, 0, 0);
  EXPECT_TRUE(HasDivisor(3'686'400));
  EXPECT_FALSE(HasDivisor(3'686'401));
}

TEST(BridgeChip, EightBitsWithoutParityAreLineControl0800) {
  Is(LineControl(0x0800), 0x41, 0x03, 0x0800, 0, 0);
}

TEST(BridgeChip, EachDirectionIsPurgedByItself) {
  Is(Purge(true, false), 0x41, 0x12, 0x05, 0, 0);
  Is(Purge(false, true), 0x41, 0x12, 0x0A, 0, 0);
  Is(Purge(true, true), 0x41, 0x12, 0x0F, 0, 0);
}

TEST(BridgeChip, ThePartNumberIsOneByte) { Is(PartNumber(), 0xC0, 0xFF, 0x370B, 0, 1); }

TEST(BridgeChip, TheLatchTakesItsStateAboveItsMask) {
  Is(WriteLatch(1, 1), 0x40, 0xFF, 0x37E1, 0x0101, 0);
  Is(WriteLatch(1, 0), 0x40, 0xFF, 0x37E1, 0x0001, 0);
  Is(WriteLatch(0x0C, 0x84), 0x40, 0xFF, 0x37E1, 0x840C, 0);
}

}  // namespace
}  // namespace morvane::bridges::chip
