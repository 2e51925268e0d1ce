#include "wire/frame.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <numeric>

#include "support/scripted_bridge.h"

namespace morvane::wire {
namespace {

using test::Bytes;
using ::testing::ElementsAre;

Bytes Wire(Bytes plain, std::uint8_t step) {
  Scramble(plain, step);
  return plain;
}

TEST(Frame, AllZerosShowTheBareKey) {
  EXPECT_THAT(Wire(Bytes(8, 0), kStepToMachine),
              ElementsAre(0x00, 0x17, 0x2E, 0x45, 0x5C, 0x73, 0x8A, 0xFF));
  EXPECT_THAT(Wire(Bytes(8, 0), kStepFromMachine),
              ElementsAre(0x00, 0x15, 0x2A, 0x3F, 0x54, 0x69, 0x7E, 0xFF));
}

TEST(Frame, AStatusCommandWorkedByHand) {
  // 19 02 10 20 30 40 50: the sum is 10B, S = 0B. Keys 0B 22 39 50 67 7E 95.
  EXPECT_THAT(Wire({0x19, 0x02, 0x10, 0x20, 0x30, 0x40, 0x50, 0xEE}, kStepToMachine),
              ElementsAre(0x12, 0x20, 0x29, 0x70, 0x57, 0x3E, 0xC5, 0xF4));
}

TEST(Frame, Byte8OfALongFrameTakesTheSeventhKeyStep) {
  Bytes plain(136, 0);
  plain[0] = 0x98;  // S = 98
  const Bytes wire = Wire(plain, kStepToMachine);
  EXPECT_EQ(wire[7], 0x67);
  EXPECT_EQ(wire[8], (0x98 + 161) & 0xFF);
  EXPECT_EQ(wire[135], (0x98 + 23 * 134) & 0xFF);
}

TEST(Frame, ScrambledFramesComeBackAndTheKeyWraps) {
  Bytes plain(136);
  std::iota(plain.begin(), plain.end(), std::uint8_t{0x80});
  Bytes wire = plain;
  Scramble(wire, kStepFromMachine);
  EXPECT_EQ(wire, test::OnTheWire(plain, 21));
  EXPECT_TRUE(Unscramble(wire, kStepFromMachine));
  wire[7] = plain[7];
  EXPECT_EQ(wire, plain);
}

TEST(Frame, EveryCorruptedByteOfAShortFrameButAPairBreaksTheCheck) {
  const Bytes good = test::OnTheWire(test::Short({0x19, 0xFF, 1, 2, 3, 4, 8}), 21);
  for (std::size_t i = 0; i < good.size(); ++i) {
    Bytes bad = good;
    bad[i] = static_cast<std::uint8_t>(bad[i] + 1);
    EXPECT_FALSE(Unscramble(bad, kStepFromMachine)) << i;
  }
}

TEST(Frame, TheHeadOnTheWireTellsTheSize) {
  for (int code = 0; code < 256; ++code) {
    Bytes wire(code < 0x80 ? 8 : 136);
    wire[0] = static_cast<std::uint8_t>(code);
    wire[3] = 0x42;
    Scramble(wire, kStepFromMachine);
    EXPECT_EQ(SizeOnTheWire(wire), wire.size()) << code;
  }
}

TEST(Frame, FillerIsBytes1To6) {
  Frame frame{};
  for (std::uint8_t& byte : Filler(frame)) byte = 0xEE;
  EXPECT_THAT(Bytes(frame.begin(), frame.begin() + 9),
              ElementsAre(0, 0xEE, 0xEE, 0xEE, 0xEE, 0xEE, 0xEE, 0, 0));
}

}  // namespace
}  // namespace morvane::wire
