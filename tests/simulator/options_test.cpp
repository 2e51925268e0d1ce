#include "simulator/options.h"

#include <gmock/gmock.h>

namespace morvane::simulator {
namespace {

Options Parsed(std::string_view text) {
  Options options;
  const auto error = ParseOptions(text, options);
  EXPECT_FALSE(error) << *error;
  return options;
}

TEST(Options, WithoutKeysIsARealMachine) {
  EXPECT_EQ(Parsed("simulated"), Options{});
  EXPECT_EQ(Options{}.Speed, 1.0);
  EXPECT_EQ(Options{}.FirmwareMajor, 2);
  EXPECT_EQ(Options{}.FirmwareMinor, 0x90);
  EXPECT_EQ(Options{}.BootMajor, 1);
  EXPECT_EQ(Options{}.BootMinor, 0x20);
  EXPECT_FALSE(Options{}.AnswersWrites);
  EXPECT_TRUE(Options{}.FlashFaults.empty());
  EXPECT_EQ(Options{}.EraseStatus, 0);
  EXPECT_EQ(Options{}.Store, "");
  EXPECT_FALSE(Options{}.Flashed);
  EXPECT_TRUE(Options{}.Swaps.empty());
  EXPECT_EQ(Options{}.BoardSwitch, (SwitchLevels{101, 120}));
  EXPECT_EQ(Options{}.Index, wire::CardIndex::Standard);
  EXPECT_EQ(Options{}.Letters, 0);
  EXPECT_EQ(Options{}.Card, 9) << "the Ten of Spades";
  EXPECT_EQ(Options{}.Misread, 0);
  EXPECT_TRUE(Options{}.MarksFocus);
  EXPECT_EQ(Options{}.Hardware, 0x7F);
  EXPECT_EQ(Options{}.Serial, 4711);
}

TEST(Options, EveryKeyIsTaken) {
  const Options options = Parsed(
      "simulated,speed=0.5,firmware=3.07,hardware=0x1f,serial=123,noise=0.001,seed=99,"
      "fault=3:20:30,fault=4:208:240,packs=3,carry=north,boot=2.01,answers-writes=1,"
      "index=small,letters=6,ideal=240/113,symbol=30x78,suit=29x70,card=D2,misread=CK,"
      "focus-marker=0,flash=0x201:3,flash=start:255,flash=1023:0,flash=erase-record:1,"
      "flash=write-record:2,erase=7,deck=flashed,swap=9:10,swap=52:1,board-switch=20/200,"
      "store=/tmp/a b.txt");
  EXPECT_TRUE(options.Flashed);
  EXPECT_EQ(options.Swaps, (std::vector<CardSwap>{{9, 10}, {52, 1}}));
  EXPECT_EQ(options.BoardSwitch, (SwitchLevels{20, 200}));
  EXPECT_EQ(options.Index, wire::CardIndex::Small);
  EXPECT_EQ(options.Letters, 6);
  EXPECT_EQ(options.Ideal, (CameraPlace{240, 113}));
  EXPECT_EQ(options.Symbol, (PrintSize{30, 78}));
  EXPECT_EQ(options.Suit, (PrintSize{29, 70}));
  EXPECT_EQ(options.Card, 27);  // the Two of Diamonds: 2 x 13 before it
  EXPECT_EQ(options.Misread, 51);
  EXPECT_FALSE(options.MarksFocus);
  EXPECT_EQ(options.FlashFaults, (std::vector<FlashFault>{{513, 3},
                                                          {FlashFault::kStart, 255},
                                                          {1023, 0},
                                                          {FlashFault::kEraseRecord, 1},
                                                          {FlashFault::kWriteRecord, 2}}));
  EXPECT_EQ(options.EraseStatus, 7);
  EXPECT_EQ(options.BootMajor, 2);
  EXPECT_EQ(options.BootMinor, 0x01);
  EXPECT_TRUE(options.AnswersWrites);
  EXPECT_EQ(options.Store, "/tmp/a b.txt");
  EXPECT_EQ(options.FirstCarry, Carry::kNorthToo);
  EXPECT_EQ(Options{}.FirstCarry, Carry::kRight);
  EXPECT_EQ(options.Packs, 3);
  EXPECT_EQ(Options{}.Packs, 4);
  EXPECT_EQ(options.Speed, 0.5);
  EXPECT_EQ(options.FirmwareMajor, 3);
  EXPECT_EQ(options.FirmwareMinor, 0x07);
  EXPECT_EQ(options.Hardware, 0x1F);
  EXPECT_EQ(options.Serial, 123);
  EXPECT_EQ(options.Noise, 0.001);
  EXPECT_EQ(options.Seed, 99U);
  EXPECT_EQ(options.Faults, (std::vector<CardFault>{{3, 20, 30}, {4, 208, 240}}));
}

TEST(Options, APackTakesTheRestOfTheTextForItsPath) {
  const Options options = Parsed("simulated,speed=0,pack=/home/a, b/x=1,seed=7.pbn");
  EXPECT_EQ(options.Speed, 0.0);
  EXPECT_EQ(options.Pack, "/home/a, b/x=1,seed=7.pbn");
  EXPECT_FALSE(options.Seed);
  EXPECT_EQ(Parsed("simulated").Pack, "");
}

TEST(Options, VersionsHaveTheHexadecimalDigitsThatTheyAreShownWith) {
  EXPECT_EQ(Parsed("simulated,firmware=2.1F").FirmwareMinor, 0x1F);
  EXPECT_EQ(Parsed("simulated,firmware=2.7f").FirmwareMinor, 0x7F);
}

TEST(Options, ABootCodeOfZerosIsAMachineWithoutFirmware) {
  EXPECT_TRUE(Parsed("simulated").HasFirmware());
  EXPECT_TRUE(Parsed("simulated,boot=0.01").HasFirmware());
  EXPECT_TRUE(Parsed("simulated,boot=1.00").HasFirmware());
  EXPECT_FALSE(Parsed("simulated,boot=0.00").HasFirmware());
}

TEST(Options, AVersionIsHeldAgainstBothItsNumbers) {
  const auto since = [](std::string_view version) {
    return Parsed("simulated,firmware=" + std::string(version)).FirmwareSince(0x40);
  };
  EXPECT_FALSE(since("1.99"));
  EXPECT_FALSE(since("2.3F"));
  EXPECT_TRUE(since("2.40"));
  EXPECT_TRUE(since("3.00"));
}

TEST(Options, EachWayToCarryHasItsWord) {
  for (const CarryWords& words : kCarries) {
    EXPECT_EQ(Parsed("simulated,carry=" + std::string(words.Word)).FirstCarry, words.Way);
    EXPECT_EQ(WordsOf(words.Way).Word, words.Word);
  }
}

TEST(Options, ThePrintOfTheCards) {
  EXPECT_EQ(Parsed("simulated,index=jumbo").Index, wire::CardIndex::Jumbo);
  EXPECT_EQ(Parsed("simulated,index=standard").Index, wire::CardIndex::Standard);
  EXPECT_EQ(Parsed("simulated,card=none").Card, 0);
  EXPECT_EQ(Parsed("simulated,card=SA").Card, 13);
  EXPECT_EQ(Parsed("simulated,card=HT").Card, 22);
  EXPECT_EQ(Parsed("simulated,ideal=1/255").Ideal, (CameraPlace{1, 255}));
  EXPECT_EQ(Parsed("simulated,symbol=8x10,suit=100x150").Suit, (PrintSize{100, 150}));
}

TEST(Options, NumbersReachTheirEnds) {
  EXPECT_EQ(Parsed("simulated,speed=0").Speed, 0.0);
  EXPECT_EQ(Parsed("simulated,speed=1000").Speed, 1000.0);
  EXPECT_EQ(Parsed("simulated,noise=1").Noise, 1.0);
  EXPECT_EQ(Parsed("simulated,board-switch=0/1").BoardSwitch, (SwitchLevels{0, 1}));
  EXPECT_EQ(Parsed("simulated,board-switch=254/255").BoardSwitch, (SwitchLevels{254, 255}));
  EXPECT_EQ(Parsed("simulated,hardware=65535").Hardware, 65535);
  EXPECT_EQ(Parsed("simulated,seed=0xFFFFFFFFFFFFFFFF").Seed, UINT64_MAX);
  EXPECT_EQ(Parsed("simulated,firmware=255.99").FirmwareMinor, 0x99);
}

TEST(Options, WhatIsWrongIsToldAndNothingIsTaken) {
  for (const std::string_view text : {"",
                                      "simulate",
                                      "simulatedx",
                                      "serial:/dev/ttyS0",
                                      "simulated,",
                                      "simulated,speed",
                                      "simulated,speed=",
                                      "simulated,speed=-1",
                                      "simulated,speed=1001",
                                      "simulated,speed=fast",
                                      "simulated,speed=1x",
                                      "simulated,speed=nan",
                                      "simulated,speed=inf",
                                      "simulated,firmware=2",
                                      "simulated,firmware=2.9",
                                      "simulated,firmware=2.900",
                                      "simulated,firmware=2.9g",
                                      "simulated,firmware=.90",
                                      "simulated,firmware=256.00",
                                      "simulated,firmware=2.+9",
                                      "simulated,boot=1",
                                      "simulated,answers-writes",
                                      "simulated,answers-writes=",
                                      "simulated,answers-writes=2",
                                      "simulated,store",
                                      "simulated,store=",
                                      "simulated,hardware=0x",
                                      "simulated,hardware=0x10000",
                                      "simulated,hardware=7F",
                                      "simulated,serial=65536",
                                      "simulated,serial=-1",
                                      "simulated,noise=1.1",
                                      "simulated,noise=-0.1",
                                      "simulated,seed=18446744073709551616",
                                      "simulated,seed=abc",
                                      "simulated,fault=1:1",
                                      "simulated,fault=1:1:",
                                      "simulated,fault=0:1:1",
                                      "simulated,fault=1:0:1",
                                      "simulated,fault=1:209:1",
                                      "simulated,fault=1:1:0",
                                      "simulated,fault=1:1:241",
                                      "simulated,fault=1:1:1:1",
                                      "simulated,fault=",
                                      "simulated,pack",
                                      "simulated,pack=",
                                      "simulated,deck",
                                      "simulated,deck=",
                                      "simulated,deck=Flashed",
                                      "simulated,deck=ordered",
                                      "simulated,swap",
                                      "simulated,swap=",
                                      "simulated,swap=9",
                                      "simulated,swap=9:",
                                      "simulated,swap=9:9",
                                      "simulated,swap=0:9",
                                      "simulated,swap=9:53",
                                      "simulated,swap=9/10",
                                      "simulated,swap=9:10:11",
                                      "simulated,board=0",
                                      "simulated,board=71",
                                      "simulated,board=",
                                      "simulated,board-switch",
                                      "simulated,board-switch=",
                                      "simulated,board-switch=100",
                                      "simulated,board-switch=100/100",
                                      "simulated,board-switch=101/100",
                                      "simulated,board-switch=-1/100",
                                      "simulated,board-switch=100/256",
                                      "simulated,board-switch=100:120",
                                      "simulated,packs=a.pbn",
                                      "simulated,packs=0",
                                      "simulated,packs=5",
                                      "simulated,carry",
                                      "simulated,carry=",
                                      "simulated,carry=Right",
                                      "simulated,carry=wrong",
                                      "simulated,index=large",
                                      "simulated,letters=7",
                                      "simulated,ideal=60",
                                      "simulated,ideal=0/80",
                                      "simulated,ideal=60/256",
                                      "simulated,symbol=24",
                                      "simulated,symbol=7x40",
                                      "simulated,symbol=24x151",
                                      "simulated,suit=101x20",
                                      "simulated,suit=20x9",
                                      "simulated,card=",
                                      "simulated,card=S",
                                      "simulated,card=10S",
                                      "simulated,card=S1",
                                      "simulated,card=XA",
                                      "simulated,misread=st",
                                      "simulated,focus-marker=2",
                                      "simulated,flash",
                                      "simulated,flash=",
                                      "simulated,flash=1",
                                      "simulated,flash=1:",
                                      "simulated,flash=:1",
                                      "simulated,flash=1:256",
                                      "simulated,flash=1:-1",
                                      "simulated,flash=1:0x1",
                                      "simulated,flash=1024:1",
                                      "simulated,flash=0x400:1",
                                      "simulated,flash=-1:1",
                                      "simulated,flash=Start:1",
                                      "simulated,flash=record:1",
                                      "simulated,flash=1:2:3",
                                      "simulated,erase",
                                      "simulated,erase=",
                                      "simulated,erase=256",
                                      "simulated,erase=good",
                                      "simulated,colour=red",
                                      "simulated,,speed=1",
                                      "simulated,speed=1,",
                                      "simulated,Speed=1"}) {
    Options options;
    options.Serial = 9;
    const auto error = ParseOptions(text, options);
    ASSERT_TRUE(error) << text;
    EXPECT_FALSE(error->empty());
    EXPECT_EQ(options.Serial, 9) << text;
    EXPECT_EQ(options.Speed, 1.0) << text;
  }
}

TEST(Options, TheErrorNamesThePairAndWhatItTakes) {
  Options options;
  EXPECT_EQ(ParseOptions("simulated,seed=1,fault=1:209:1", options),
            "simulated machine: \"fault=1:209:1\": fault= takes BOARD:CARD:CODE with board from 1, "
            "card 1 to 208 and code 1 to 240");
  EXPECT_EQ(ParseOptions("simulated,sped=1", options),
            "simulated machine: unknown key in \"sped=1\"; the keys are speed, firmware, boot, "
            "hardware, serial, noise, seed, fault, deck, swap, packs, carry, answers-writes, "
            "index, letters, ideal, symbol, suit, card, misread, focus-marker, board, "
            "board-switch, "
            "flash, erase, store, pack");
  EXPECT_EQ(ParseOptions("simulated,flash=1024:1", options),
            "simulated machine: \"flash=1024:1\": flash= takes BLOCK:STATUS with block 0 to 1023, "
            "start, erase-record or write-record, and status 0 to 255");
  EXPECT_EQ(ParseOptions("simulated,carry=left", options),
            "simulated machine: \"carry=left\": carry= takes right, swapped, dropped, exchanged, "
            "turned, north or nothing");
  EXPECT_EQ(
      ParseOptions("simulated,swap=9:9", options),
      "simulated machine: \"swap=9:9\": swap= takes A:B, two places from 1 to 52 that differ");
  EXPECT_EQ(
      ParseOptions("simulated,board-switch=120/120", options),
      "simulated machine: \"board-switch=120/120\": board-switch= takes LOST/SEEN, both from 0 "
      "to 255 and the first one below");
  EXPECT_EQ(ParseOptions("usb", options), "\"usb\" is no simulated machine");
}

TEST(Options, TheUsageHasEveryKeyWithItsDefault) {
  std::string usage = OptionsUsage(4);
  EXPECT_EQ(usage.find("\n    serial="), usage.find('\n'));
  std::erase_if(usage, [](char c) { return c == '[' || c == ']' || c == '\n' || c == ' '; });
  const auto give = [&usage](const std::string& word, const std::string& value) {
    ASSERT_NE(usage.find(word), std::string::npos);
    usage.replace(usage.find(word), word.size(), value);
  };
  give("seed=N", "seed=7");
  give("BOARD:CARD:CODE", "1:2:3");
  give("swap=A:B", "swap=5:6");
  give("ideal=X/Y", "ideal=3/4");
  give("symbol=WxH", "symbol=20x30");
  give("suit=WxH", "suit=21x31");
  give("board=N", "board=70");
  give("flash=BLOCK:STATUS", "flash=3:1");
  give("store=FILE", "store=kept.txt");
  give("pack=FILE", "pack=set.pbn");
  Options expected;
  expected.Seed = 7;
  expected.Faults = {{1, 2, 3}};
  expected.Swaps = {{5, 6}};
  expected.Ideal = CameraPlace{3, 4};
  expected.Symbol = PrintSize{20, 30};
  expected.Suit = PrintSize{21, 31};
  expected.Board = 70;
  expected.FlashFaults = {{3, 1}};
  expected.Store = "kept.txt";
  expected.Pack = "set.pbn";
  EXPECT_EQ(Parsed(usage), expected);
}

}  // namespace
}  // namespace morvane::simulator
