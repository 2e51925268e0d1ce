#include "maintenance/factory_files.h"

#include <gmock/gmock.h>

#include <string>
#include <vector>

namespace morvane::maintenance {
namespace {

using ::testing::Each;
using ::testing::StartsWith;

/// The text's lines, each of which must end in CR LF.
std::vector<std::string> LinesOf(const std::string& text) {
  std::vector<std::string> lines;
  std::size_t at = 0;
  for (std::size_t end = 0; (end = text.find("\r\n", at)) != std::string::npos; at = end + 2) {
    lines.push_back(text.substr(at, end - at));
  }
  EXPECT_EQ(at, text.size()) << "the last line has no end";
  return lines;
}

/// "0xFF," so often.
std::string Padding(std::size_t count) {
  std::string text;
  while (count-- > 0) text += "0xFF,";
  return text;
}

TEST(FactoryFileSizes, ACodeHas9To65519BytesSoThatItsLengthWithTheHeaderFits16Bits) {
  for (const std::uint64_t size : {9U, 10U, 65519U}) EXPECT_TRUE(kCodeSizes.Hold(size)) << size;
  for (const std::uint64_t size : {0U, 8U, 65520U, 65536U, 65537U}) {
    EXPECT_FALSE(kCodeSizes.Hold(size)) << size;
  }
}

TEST(FactoryFileSizes, ABitstreamHas54981Bytes) {
  EXPECT_TRUE(kBitstreamSizes.Hold(54981));
  for (const std::uint64_t size : {0U, 54980U, 54982U}) EXPECT_FALSE(kBitstreamSizes.Hold(size));
}

TEST(FactoryFileSizes, ABootCodeHas8192BytesAtMost) {
  for (const std::uint64_t size : {0U, 1U, 8191U, 8192U})
    EXPECT_TRUE(kBootSizes.Hold(size)) << size;
  for (const std::uint64_t size : {8193U, 16000U, 16001U}) EXPECT_FALSE(kBootSizes.Hold(size));
}

TEST(FirmwareFile, HasFourLittleEndianSizesThenTheCodeThenTheBitstream) {
  const std::string bits(54981, 'B');  // 0xD6C5
  const std::string size("\xC5\xD6\0\0", 4);
  EXPECT_EQ(FirmwareBytes("code 9 by", bits),
            std::string("\x09\0\0\0", 4) + size + size + size + "code 9 by" + bits);
}

TEST(FirmwareFile, TheLargestCodeHasItsSizeAndAllItsBytes) {
  const std::string code(65519, '\xFE');  // 0xFFEF
  const std::string file = FirmwareBytes(code, std::string(54981, '\0'));
  EXPECT_EQ(file.size(), 16U + 65519U + 54981U);
  EXPECT_EQ(file.substr(0, 4), std::string("\xEF\xFF\0\0", 4));
  EXPECT_EQ(file.substr(16, 65519), code);
}

TEST(BootSource, HasSixteenEntriesALineBetweenItsFirstAndItsLastLine) {
  std::string boot;
  for (int byte = 0; byte < 8192; ++byte) boot += static_cast<char>(byte);
  const auto lines = LinesOf(BootSource(boot));
  ASSERT_EQ(lines.size(), 514U);
  EXPECT_EQ(lines[0], "const unsigned char boot[] = {");
  EXPECT_EQ(lines[1],
            "0x00,0x01,0x02,0x03,0x04,0x05,0x06,0x07,0x08,0x09,0x0A,0x0B,0x0C,0x0D,0x0E,0x0F,");
  EXPECT_EQ(lines[9],
            "0x80,0x81,0x82,0x83,0x84,0x85,0x86,0x87,0x88,0x89,0x8A,0x8B,0x8C,0x8D,0x8E,0x8F,");
  EXPECT_EQ(lines[512],
            "0xF0,0xF1,0xF2,0xF3,0xF4,0xF5,0xF6,0xF7,0xF8,0xF9,0xFA,0xFB,0xFC,0xFD,0xFE,0xFF,");
  EXPECT_EQ(lines[513], "};");
}

TEST(BootSource, AnyShorterCodeIsPaddedTo8192Entries) {
  for (const std::size_t size : {0U, 1U, 15U, 16U, 17U, 8191U, 8192U}) {
    auto lines = LinesOf(BootSource(std::string(size, 'A')));
    ASSERT_EQ(lines.size(), 514U) << size;
    std::size_t code = 0;
    for (std::size_t n = 1; n <= 512; ++n) {
      ASSERT_EQ(lines[n].size(), 80U) << "16 entries of five characters";
      for (std::size_t at = 0; at < 80; at += 5) code += lines[n].substr(at, 5) == "0x41," ? 1 : 0;
    }
    EXPECT_EQ(code, size);
  }
}

TEST(BootSource, ThePaddingStandsBehindTheCode) {
  const auto lines = LinesOf(BootSource("0123456789abcdefg"));
  EXPECT_EQ(lines[2], "0x67," + Padding(15));
  const std::vector<std::string> rest(lines.begin() + 3, lines.end() - 1);
  EXPECT_THAT(rest, Each(Padding(16)));
}

std::string HexOf(const std::string& text) {
  std::string hex;
  const auto fault = TextToHex(text, hex);
  EXPECT_FALSE(fault) << fault->Line << ": " << fault->What;
  return hex;
}

/// The fault of a text, which must leave what was there.
TextHexFault FaultOf(const std::string& text) {
  std::string hex = "as it was";
  const auto fault = TextToHex(text, hex);
  EXPECT_EQ(hex, "as it was");
  return fault.value_or(TextHexFault{});
}

const std::string kLine = "21 46 01 36 01 21 47 01 36 00 7E FE 09 D2 19 01\r\n";

TEST(TextToHex, ALineOf16BytesIsARecordWithItsAddressAndItsCheck) {
  EXPECT_EQ(HexOf("@0100\r\n" + kLine + "q\r\n"),
            ":10010000214601360121470136007EFE09D2190140\r\n:00000001FF\r\n");
}

TEST(TextToHex, TheAddressGoesUpBy16) {
  const std::string zeros = "00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00\r\n";
  // 16 + 240, + 1 at address 0100: sums 0x100, 0x11, 0x21.
  EXPECT_EQ(HexOf("@F0\r\n" + zeros + zeros + zeros + "q\r\n"),
            ":1000F0000000000000000000000000000000000000\r\n"
            ":1001000000000000000000000000000000000000EF\r\n"
            ":1001100000000000000000000000000000000000DF\r\n"
            ":00000001FF\r\n");
}

TEST(TextToHex, AShortLastLineHasItsTrueLength) {
  // 3 + 0x10 + 0x10 + 1 + 2 + 3 = 0x29
  EXPECT_EQ(HexOf("@1000\n" + kLine + "01 02 03\nq\n").substr(45),
            ":03101000010203D7\r\n:00000001FF\r\n");
}

TEST(TextToHex, LowerCaseDigitsOtherBlanksAndLinesWithLfAloneAreNoHarm) {
  EXPECT_EQ(HexOf("@ 0aBc \nab  cd\tef\n"
                  "q"),
            HexOf("@0ABC\r\nAB CD EF\r\nq\r\n"));
  EXPECT_EQ(HexOf("@0ABC\nABCDEF\nq"), HexOf("@0ABC\r\nAB CD EF\r\nq\r\n"));
}

TEST(TextToHex, WhatStandsBehindTheLineWithQIsNotRead) {
  EXPECT_EQ(HexOf("@0\nquit\nno bytes"), ":00000001FF\r\n");
}

TEST(TextToHex, TheLastAddressIsFFFF) {
  EXPECT_THAT(HexOf("@FFF0\n" + kLine + "q\n"), StartsWith(":10FFF000"));
  EXPECT_THAT(HexOf("@FFFF\nAB\nq\n"), StartsWith(":01FFFF00AB"));
  EXPECT_EQ(FaultOf("@FFF1\n" + kLine + "q\n"),
            (TextHexFault{2, "there is no address beyond FFFF"}));
  EXPECT_EQ(FaultOf("@FFF0\n" + kLine + "00\nq\n"),
            (TextHexFault{3, "there is no address beyond FFFF"}));
}

TEST(TextToHex, TheFirstLineIsTheAddress) {
  for (const char* text : {"", "\n", "@", "@\nq\n", "0100\nq\n", " @0100\nq\n", "@10000\nq\n",
                           "@-1\nq\n", "@0x10\nq\n", "@100 00\nq\n", "@123456789\nq\n", "q\n"}) {
    EXPECT_EQ(FaultOf(text),
              (TextHexFault{1, "\"@\" and a hexadecimal address up to FFFF are missing"}))
        << text;
  }
}

TEST(TextToHex, ALineWithoutBytesIsToldWithItsNumber) {
  for (const char* line :
       {"", "  ", "0", "0G", "1 23", "00 -1", "00 0", "@0200", "Q", " q", "\x80"}) {
    EXPECT_EQ(FaultOf("@0100\r\n" + kLine + line + "\r\nq\r\n"),
              (TextHexFault{3, "these are no hexadecimal bytes"}))
        << line;
  }
}

TEST(TextToHex, ALineHas16BytesAtMostAndOnlyTheLastHasLess) {
  const std::string seventeen = kLine.substr(0, kLine.size() - 2) + " 00\r\n";
  EXPECT_EQ(FaultOf("@0100\r\n" + seventeen + "q\r\n"),
            (TextHexFault{2, "these are more than 16 bytes"}));
  EXPECT_EQ(FaultOf("@0100\r\n00\r\n" + kLine + "q\r\n"),
            (TextHexFault{3, "the line before has fewer than 16 bytes and is not the last"}));
}

TEST(TextToHex, AFileThatWasCutOffIsFound) {
  const std::string_view missing = "the line with \"q\" behind the data is missing";
  EXPECT_EQ(FaultOf("@0100\r\n"), (TextHexFault{2, missing}));
  EXPECT_EQ(FaultOf("@0100\r\n" + kLine + kLine), (TextHexFault{4, missing}));
  EXPECT_EQ(FaultOf("@0100\r\n" + kLine + kLine.substr(0, 20)), (TextHexFault{4, missing}));
}

TEST(HexFileOf, HexStandsInPlaceOfTheLastThreeLetters) {
  EXPECT_EQ(HexFileOf("/images/main.txt"), "/images/main.hex");
  EXPECT_EQ(HexFileOf("x.TXT"), "x.hex");
  EXPECT_EQ(HexFileOf("/images.d/.txt"), "/images.d/.hex");
  EXPECT_EQ(HexFileOf("/images/abc"), "/images/hex");
  EXPECT_EQ(HexFileOf("/images/a\u00F6\u00FC\u00E4"), "/images/ahex") << "letters, not bytes";
}

TEST(HexFileOf, ANameOfLessLettersKeepsItsFolderAndGetsAnExtension) {
  EXPECT_EQ(HexFileOf("/images/ab"), "/images/ab.hex");
  EXPECT_EQ(HexFileOf("a"), "a.hex");
}

}  // namespace
}  // namespace morvane::maintenance
