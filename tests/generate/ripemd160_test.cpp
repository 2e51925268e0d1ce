#include "generate/ripemd160.h"

#include "generate/reference.h"

namespace morvane::generate {
namespace {

using reference::DigestText;
using reference::Ripemd160;

std::string HashText(std::string_view message) { return DigestText(Ripemd160(message)); }

// The vectors that its authors published.
TEST(Ripemd160, GivesThePublishedDigests) {
  EXPECT_EQ(HashText(""), "9c1185a5c5e9fc54612808977ee8f548b2258d31");
  EXPECT_EQ(HashText("a"), "0bdc9d2d256b3ee9daae347be6f4dc835a467ffe");
  EXPECT_EQ(HashText("abc"), "8eb208f7e05d987a9b044a8e98c6b087f15a0bfc");
  EXPECT_EQ(HashText("message digest"), "5d0689ef49d2fae572b881b123a85ffa21595f36");
  EXPECT_EQ(HashText("abcdefghijklmnopqrstuvwxyz"), "f71c27109c692c1b56bbdceb5b9d2865b3708dbc");
  EXPECT_EQ(HashText("abcdbcdecdefdefgefghfghighijhijkijkljklmklmnlmnomnopnopq"),
            "12a053384a9c0c88e405a06c27dcf49ada62eb2b");
  EXPECT_EQ(HashText("ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789"),
            "b0e20b6e3116640286ed3a87a5713079b21f5189");
}

TEST(Ripemd160, GivesThePublishedDigestsOfLongMessages) {
  std::string digits;
  for (int i = 0; i < 8; ++i) digits += "1234567890";
  EXPECT_EQ(HashText(digits), "9b752e45573d4b39f4dbd3323cab82bf63326bfb");
  EXPECT_EQ(HashText(std::string(1'000'000, 'a')), "52783243c1697bdbe16d37f97f68f08325dc1528");
}

TEST(Ripemd160, ARowHasTheDigestOfEachOfItsBlocks) {
  // A message of 44 bytes whose first four, low byte first, count up; also over the end of 32 bits.
  std::string message = "....and forty bytes that are always the same";
  ASSERT_EQ(message.size(), 44U);
  for (const std::uint32_t start : {0x00000001U, 0x000000FEU, 0x7FFFFFFFU, 0xFFFFFFFEU}) {
    std::array<std::uint32_t, 16> block{};
    for (std::size_t i = 4; i < message.size(); ++i) {
      block[i / 4] |= std::uint32_t{static_cast<std::uint8_t>(message[i])} << (i % 4 * 8);
    }
    block[0] = start;
    block[11] = 0x80;
    block[14] = 44 * 8;
    const auto row = DigestRow(block);
    for (std::uint32_t n = 0; n < kBlockRow; ++n) {
      for (unsigned i = 0; i < 4; ++i) message[i] = static_cast<char>((start + n) >> (8 * i));
      EXPECT_EQ(DigestText(row[n]), HashText(message)) << start << " + " << n;
    }
  }
}

TEST(Ripemd160, ReadsItsMessageLowByteFirst) {
  const std::array<std::uint8_t, 4> bytes{0x01, 0x02, 0x03, 0xF4};
  EXPECT_EQ(LittleEndianWord(bytes), 0xF4030201U);
  const Digest digest{0x04030201, 0, 0, 0, 0x14131211};
  EXPECT_EQ(DigestByte(digest, 0), 0x01);
  EXPECT_EQ(DigestByte(digest, 3), 0x04);
  EXPECT_EQ(DigestByte(digest, 19), 0x14);
}

}  // namespace
}  // namespace morvane::generate
