#include "maintenance/firmware_file.h"

#include <gmock/gmock.h>

#include "maintenance/paper_flash.h"

namespace morvane::maintenance {
namespace {

using ::testing::Each;
using ::testing::ElementsAre;

std::vector<int> Head(const FlashImage& image, std::size_t count = 8) {
  std::vector<int> bytes;
  for (std::size_t i = 0; i < count; ++i) bytes.push_back(image.At(i));
  return bytes;
}

// 20 bytes of 01 and the header make 36 = 0x24: the words are 0x0024 and ten times 0x0101.
TEST(FlashImage, TheCodesHeaderIsLengthAndSum) {
  const FlashImage code(FirmwarePiece::kCode, std::string(20, '\x01'));
  EXPECT_THAT(Head(code), ElementsAre(0, 0x24, 0, 0, 0, 0, 0x0A, 0x2E));
  EXPECT_EQ(code.Length(), 36);
  EXPECT_EQ(code.At(15), 0);
  EXPECT_EQ(code.At(16), 1);
  EXPECT_EQ(code.At(35), 1);
  EXPECT_EQ(code.At(36), 0);
}

// 300 bytes of FF make 316 = 0x13C: 150 words of 0xFFFF are 0x0095FF6A, with 0x013C 0x009600A6.
TEST(FlashImage, TheBitstreamsLengthStandsTwoBytesOnAndItsSumIsOf32Bits) {
  const FlashImage bits(FirmwarePiece::kBitstream, std::string(300, '\xFF'));
  EXPECT_THAT(Head(bits), ElementsAre(0, 0, 0x01, 0x3C, 0x00, 0x96, 0x00, 0xA6));
}

// 0x0013 + 0x0101 + 0x0100: the last word takes a zero.
TEST(FlashImage, AnOddLengthTakesAZeroForItsLastWord) {
  const FlashImage code(FirmwarePiece::kCode, std::string(3, '\x01'));
  EXPECT_THAT(Head(code), ElementsAre(0, 0x13, 0, 0, 0, 0, 0x02, 0x14));
}

TEST(FlashImage, WithoutContentItIsItsHeader) {
  const FlashImage bits(FirmwarePiece::kBitstream, "");
  EXPECT_THAT(Head(bits), ElementsAre(0, 0, 0, 16, 0, 0, 0, 16));
  EXPECT_EQ(bits.LastBlock(), 0);
}

TEST(FlashImage, BlocksEndWhere128OfThemExceedTheLength) {
  const auto lastOf = [](std::size_t length) {
    return FlashImage(FirmwarePiece::kCode, std::string(length - 16, 'x')).LastBlock();
  };
  EXPECT_EQ(lastOf(127), 0);
  EXPECT_EQ(lastOf(128), 1);
  EXPECT_EQ(lastOf(255), 1);
  EXPECT_EQ(lastOf(256), 2);
  EXPECT_EQ(lastOf(65535), 511);
}

TEST(FlashImage, TheBlockBehindAWholeNumberOfThemIsAllZero) {
  const FlashImage code(FirmwarePiece::kCode, std::string(240, 'x'));
  EXPECT_THAT(code.BlockAt(1), Each('x'));
  EXPECT_THAT(code.BlockAt(2), Each(0));
}

TEST(FlashImage, ABlockHasZerosBehindTheEnd) {
  const FlashImage::Block block =
      FlashImage(FirmwarePiece::kCode, std::string(113, 'x')).BlockAt(1);
  EXPECT_EQ(block[0], 'x');
  EXPECT_EQ(block[1], 0);
  EXPECT_EQ(block[127], 0);
}

TEST(FlashImage, TheBitstreamLiesFromBlock0x200On) {
  EXPECT_EQ(FlashImage(FirmwarePiece::kCode, "").NumberOnWire(511), 511);
  const FlashImage bits(FirmwarePiece::kBitstream, "");
  EXPECT_EQ(bits.NumberOnWire(0), 0x200);
  EXPECT_EQ(bits.NumberOnWire(511), 0x3FF);
}

TEST(FirmwareFile, HoldsCodeAndBitstreamBehindTheirLengths) {
  const auto firmware = FirmwareIn(FileOf(CodeOf(2, 0x90), "abc"), "/f/new.adc");
  ASSERT_TRUE(firmware);
  EXPECT_EQ(firmware->Path, "/f/new.adc");
  EXPECT_EQ(firmware->Size, 39U);
  EXPECT_EQ(firmware->DspImage.Length(), 36);
  EXPECT_EQ(firmware->DspImage.At(0x20), 2);
  EXPECT_EQ(firmware->Version(), (FirmwareVersion{2, 0x90}));
  EXPECT_EQ(firmware->BitImage.Length(), 19);
  EXPECT_EQ(firmware->BitImage.At(16), 'a');
  EXPECT_EQ(firmware->BitImage.At(18), 'c');
}

TEST(FirmwareFile, ACodeThatEndsBeforeItsVersionHasNone) {
  const auto firmware = FirmwareIn(FileOf("abc", ""), "");
  ASSERT_TRUE(firmware);
  EXPECT_EQ(firmware->Version(), (FirmwareVersion{0, 0}));
}

TEST(FirmwareFile, TheTopFourBitsOfTheLengthsDoNotCount) {
  std::string bytes = FileOf(CodeOf(2, 0x90), "abc");
  bytes[3] = '\xF0';
  bytes[7] = '\x10';
  EXPECT_TRUE(FirmwareIn(bytes, ""));
  bytes[3] = '\x08';
  EXPECT_FALSE(FirmwareIn(bytes, "")) << "the bit below them does";
}

TEST(FirmwareFile, LengthsThatAreOneOffAreRefused) {
  const std::string bytes = FileOf(CodeOf(2, 0x90), "abc");
  EXPECT_FALSE(FirmwareIn(bytes + "d", ""));
  EXPECT_FALSE(FirmwareIn(bytes.substr(0, bytes.size() - 1), ""));
}

TEST(FirmwareFile, LengthsWhoseSumWouldOnlyWrapToTheSizeAreRefused) {
  std::string bytes = FileOf(CodeOf(2, 0x90), "abc");
  for (const std::size_t at : {0U, 1U, 2U, 4U, 5U, 6U}) bytes[at] = '\xFF';
  EXPECT_FALSE(FirmwareIn(bytes, ""));
}

TEST(FirmwareFile, OneWithoutAWholeHeadIsRefused) {
  for (const std::size_t size : {0U, 8U, 9U, 15U}) {
    EXPECT_FALSE(FirmwareIn(std::string(size, '\0'), "")) << size;
  }
  EXPECT_TRUE(FirmwareIn(std::string(16, '\0'), ""));
}

// 131,050 = 16 + 65,517 + 65,517, and one more is too large whatever its lengths say.
TEST(FirmwareFile, TheLargestIs131050Bytes) {
  const std::string half(65517, 'x');
  EXPECT_TRUE(FirmwareIn(FileOf(half, half), ""));
  EXPECT_FALSE(FirmwareIn(FileOf(half + "x", half), ""));
}

TEST(FirmwareFile, APieceIs65519BytesAtMost) {
  const std::string most(65519, 'x');
  EXPECT_TRUE(FirmwareIn(FileOf(most, "abc"), ""));
  EXPECT_TRUE(FirmwareIn(FileOf("abc", most), ""));
  EXPECT_FALSE(FirmwareIn(FileOf(most + "x", "abc"), ""));
  EXPECT_FALSE(FirmwareIn(FileOf("abc", most + "x"), ""));
}

}  // namespace
}  // namespace morvane::maintenance
