// Raw bytes in, raw bytes out, each worked by hand: with S the sum of the plain bytes, a short
// command's key runs S, S+17h, S+2Eh, S+45h, S+5Ch, S+73h, S+8Ah, a reply's S, S+15h, S+2Ah, S+3Fh,
// S+54h, S+69h, S+7Eh, and byte 7 is S xor FFh.

#include "simulator/talk.h"

namespace morvane::simulator {
namespace {

TEST(WireBytes, TheAllZeroFrameIsGoodButNoCommand) {
  Talk talk;
  EXPECT_EQ(ToWire(Bytes(8)), (Bytes{0x00, 0x17, 0x2E, 0x45, 0x5C, 0x73, 0x8A, 0xFF}));
  talk.Write({0x00, 0x17, 0x2E, 0x45, 0x5C, 0x73, 0x8A, 0xFF});
  EXPECT_TRUE(talk.Read(8).empty());
  talk.Write({0x00, 0x30, 0x47, 0x5E, 0x75, 0x8C, 0xA3, 0xE6});
  EXPECT_EQ(talk.Read(8).size(), 8U);
}

TEST(WireBytes, StatusOfAnIdleMachine) {
  Talk talk;
  talk.Write({0x00, 0x30, 0x47, 0x5E, 0x75, 0x8C, 0xA3, 0xE6});  // S = 19
  EXPECT_EQ(talk.Read(8), (Bytes{0x00, 0x2E, 0x43, 0x58, 0x6D, 0x82, 0x97, 0xE6}));
}

TEST(WireBytes, FillerOfACommandIsIgnored) {
  Talk talk;
  // 19 00 01 02 03 04 05: S = 28.
  talk.Write({0x31, 0x3F, 0x57, 0x6F, 0x87, 0x9F, 0xB7, 0xD7});
  EXPECT_EQ(talk.Read(8), (Bytes{0x00, 0x2E, 0x43, 0x58, 0x6D, 0x82, 0x97, 0xE6}));
}

TEST(WireBytes, Version) {
  Talk talk;
  talk.Write({0x00, 0x31, 0x48, 0x5F, 0x76, 0x8D, 0xA4, 0xE5});  // S = 1A
  // 1A 02 90 01 20 04 00: S = D1, keys D1 E6 FB 10 25 3A 4F.
  EXPECT_EQ(talk.Read(8), (Bytes{0xCB, 0xE4, 0x6B, 0x11, 0x05, 0x3E, 0x4F, 0x2E}));
}

TEST(WireBytes, IdentityPageOneIsSerialNumberAndHardware) {
  Talk talk;
  talk.Write({0x01, 0x2B, 0x41, 0x58, 0x6F, 0x86, 0x9D, 0xEC});  // 12 01: S = 13
  // 12 01 12 67 00 7F 00 (4711 = 1267h): S = 0B, keys 0B 20 35 4A 5F 74 89.
  EXPECT_EQ(talk.Read(8), (Bytes{0x19, 0x21, 0x27, 0x2D, 0x5F, 0x0B, 0x89, 0xF4}));
}

TEST(WireBytes, IdentityPageTwoIsTheDayItWasMade) {
  Talk talk;
  talk.Write({0x06, 0x29, 0x42, 0x59, 0x70, 0x87, 0x9E, 0xEB});  // 12 02: S = 14
  // 12 02 0E 06 07 E3 00, 14 June 2019: S = 12, keys 12 27 3C 51 66 7B 90.
  EXPECT_EQ(talk.Read(8), (Bytes{0x00, 0x25, 0x32, 0x57, 0x61, 0x98, 0x90, 0xED}));
}

TEST(WireBytes, IdentityHasTwoPages) {
  Talk talk;
  EXPECT_TRUE(talk.Ask({0x12, 3}).empty());
  EXPECT_TRUE(talk.Ask({0x12, 0}).empty());
}

TEST(WireBytes, CounterOfANewMachineIsALongFrame) {
  Talk talk;
  talk.Write({0x00, 0x4A, 0x61, 0x78, 0x8F, 0xA6, 0xBD, 0xCC});  // 33: S = 33
  // B3, all else zero: S = B3, keys B3 C8 DD F2 07 1C 31, and on from byte 8: 46 5B 70 85 ...
  const Bytes reply = talk.Read(136);
  ASSERT_EQ(reply.size(), 136U);
  EXPECT_EQ(Bytes(reply.begin(), reply.begin() + 12),
            (Bytes{0x00, 0xC8, 0xDD, 0xF2, 0x07, 0x1C, 0x31, 0x4C, 0x46, 0x5B, 0x70, 0x85}));
  EXPECT_EQ(reply[135], 0xB1);  // B3 + 134 x 15h: the 135th key
}

TEST(WireBytes, TheStartOfADownload) {
  Talk talk;
  // 29 5F: S = 88, keys 88 9F B6 CD E4 FB 12.
  talk.Write({0xA1, 0xC0, 0xB6, 0xCD, 0xE4, 0xFB, 0x12, 0x77});
  // 29 00: S = 29.
  EXPECT_EQ(talk.Read(8), (Bytes{0x00, 0x3E, 0x53, 0x68, 0x7D, 0x92, 0xA7, 0xD6}));
}

TEST(WireBytes, BoardLabel) {
  Talk talk;
  talk.Machine.InsertBoard(1);
  talk.Write({0x04, 0x32, 0x4D, 0x64, 0x7B, 0x92, 0xA9, 0xE0});  // 1B 04 00: S = 1F
  // 1B 04 0F: S = 2E, keys 2E 43 58 6D 82 97 AC.
  EXPECT_EQ(talk.Read(8), (Bytes{0x35, 0x47, 0x57, 0x6D, 0x82, 0x97, 0xAC, 0xD1}));
}

TEST(WireBytes, OtherSensorsAreNotAnsweredWithALabel) {
  Talk talk;
  EXPECT_TRUE(talk.Ask({0x1B, 6}).empty());
}

TEST(WireBytes, BoardSwitchOfAnEmptySlot) {
  Talk talk;
  talk.Write({0x3B, 0x32, 0x4E, 0x65, 0x7C, 0x93, 0xAA, 0xDF});  // 1B 05: S = 20
  // 1B 05 00: S = 20, keys 20 35 4A 5F 74 89 9E.
  EXPECT_EQ(talk.Read(8), (Bytes{0x3B, 0x30, 0x4A, 0x5F, 0x74, 0x89, 0x9E, 0xDF}));
}

TEST(WireBytes, DealIsAccepted) {
  Talk talk;
  Bytes plain(136);
  plain[0] = 0x98;
  plain[4] = 0x0B;
  plain[5] = 0x24;
  for (std::size_t i = 0; i < 52; ++i) plain[8 + i] = static_cast<std::uint8_t>(4 - i / 13);
  // 98 + 0B + 24 + 82 (13 x 10): S = 49; byte 8 goes with S + A1h = EA.
  const Bytes wire = ToWire(plain);
  ASSERT_EQ(Bytes(wire.begin(), wire.begin() + 9),
            (Bytes{0xD1, 0x60, 0x77, 0x8E, 0xAE, 0x98, 0xD3, 0xB6, 0xEE}));
  talk.Write(wire);
  EXPECT_EQ(talk.Read(8), (Bytes{0x00, 0x2D, 0x42, 0x57, 0x6C, 0x81, 0x96, 0xE7}));  // 18
}

TEST(WireBytes, RouteIsAccepted) {
  Talk talk;
  Bytes plain(136);
  plain[0] = 0x9F;
  plain[1] = 2;
  std::fill_n(plain.begin() + 8, 55, std::uint8_t{0x7F});
  plain[8] = 1;
  plain[9] = 2;
  // 9F + 02 + 01 + 02 + 53 x 7F: S = EF; bytes 8, 9, 10 go with 90, A7, BE.
  const Bytes wire = ToWire(plain);
  ASSERT_EQ(Bytes(wire.begin(), wire.begin() + 11),
            (Bytes{0x70, 0x04, 0x1D, 0x34, 0x4B, 0x62, 0x79, 0x10, 0x91, 0xA5, 0xC1}));
  talk.Write(wire);
  EXPECT_EQ(talk.Read(8), (Bytes{0x00, 0x2D, 0x42, 0x57, 0x6C, 0x81, 0x96, 0xE7}));  // 18
}

TEST(WireBytes, StatusOfABusyMachine) {
  Talk talk;
  std::array<int, 52> pack{};
  std::iota(pack.begin(), pack.end(), 1);  // the Ace of Spades first
  ASSERT_TRUE(talk.Machine.LoadPack(pack));
  Board board = RandomBoard(1);
  board.Cards[1] = kWest;
  ASSERT_TRUE(talk.Accepted(DealFrame(board)));
  talk.Write({0x00, 0x30, 0x47, 0x5E, 0x75, 0x8C, 0xA3, 0xE6});
  // 19 FF 00 01 00 00 00: S = 19, keys 19 2E 43 58 6D 82 97.
  EXPECT_EQ(talk.Read(8), (Bytes{0x00, 0xD1, 0x43, 0x59, 0x6D, 0x82, 0x97, 0xE6}));
}

TEST(WireBytes, SortIsAccepted) {
  Talk talk;
  // 35 00 00 00 0B 24 00: S = 64, keys 64 7B 92 A9 C0 D7 EE.
  talk.Write({0x51, 0x7B, 0x92, 0xA9, 0xCB, 0xF3, 0xEE, 0x9B});
  EXPECT_EQ(talk.Read(8), (Bytes{0x00, 0x2D, 0x42, 0x57, 0x6C, 0x81, 0x96, 0xE7}));
}

TEST(WireBytes, LogBoardAndTestAnswerInLongFramesOfTheirOwnCodes) {
  Talk talk;
  talk.Write({0x00, 0x37, 0x4E, 0x65, 0x7C, 0x93, 0xAA, 0xDF});  // 20
  EXPECT_EQ(talk.Receive().at(0), 0xA0);
  talk.Write({0x00, 0x34, 0x4B, 0x62, 0x79, 0x90, 0xA7, 0xE2});  // 1D
  EXPECT_EQ(talk.Receive().at(0), 0x9D);
  talk.Write({0x00, 0x35, 0x4C, 0x63, 0x7A, 0x91, 0xA8, 0xE1});  // 1E
  EXPECT_EQ(talk.Receive().at(0), 0x9E);
}

TEST(WireBytes, AReplyNeedsNoReadOfItsExactLength) {
  Talk talk;
  talk.Write(ToWire({0x19}));
  talk.Write(ToWire({0x1A}));  // a command while a reply is unread: both answers wait
  EXPECT_EQ(talk.Read(5).size(), 5U);
  EXPECT_EQ(talk.Read(11).size(), 11U);
}

TEST(WireBytes, AnUnknownCommandIsNotAnswered) {
  Talk talk;
  for (const std::uint8_t code : Bytes{0x00, 0x18, 0x7F, 0x80, 0xA0, 0xFF}) {
    EXPECT_TRUE(talk.Ask({code}).empty()) << int{code};
  }
  EXPECT_EQ(talk.State(), 0);
}

TEST(WireBytes, ACommandMayArriveInPieces) {
  Talk talk;
  const Bytes wire = ToWire(DealFrame(RandomBoard(1)));
  for (const std::uint8_t byte : wire) talk.Write({byte});
  EXPECT_EQ(talk.Receive().at(0), 0x18);
}

TEST(WireBytes, ABrokenOffCommandIsForgottenAfterASilence) {
  Talk talk;
  talk.Write({0x00, 0x30, 0x47});
  EXPECT_TRUE(talk.Receive().empty());
  EXPECT_EQ(talk.State(), 0);
}

TEST(WireBytes, TheRestOfABadLongFrameIsNotTakenForCommands) {
  Talk talk;
  Bytes wire = ToWire(DealFrame(RandomBoard(1)));
  wire[0] ^= 0x80;  // seems short now; good short commands follow in the same breath
  const Bytes status = ToWire({0x19});
  std::copy(status.begin(), status.end(), wire.begin() + 8);
  talk.Write(wire);
  EXPECT_TRUE(talk.Receive().empty());
  EXPECT_EQ(talk.State(), 0);
}

}  // namespace
}  // namespace morvane::simulator
