#include "generate/seeds.h"

#include <algorithm>
#include <numeric>

#include "generate/reference.h"
#include "support/append_count.h"
#include "support/fakes.h"
#include "text/text.h"

namespace morvane::generate {
namespace {

using test::TestDesk;
using ::testing::ElementsAre;
using Words = std::array<std::uint32_t, 4>;

/// A desk whose pool holds 1..64 and whose next moment of action is 12 34 hexadecimal, so that the
/// pool then reads 3..64, 12, 34.
struct SeedDesk : TestDesk {
  SeedDesk() {
    std::iota(Gen.Pool.Seedm.begin(), Gen.Pool.Seedm.end(), std::uint8_t{0});
    Gen.Pool.SeedmCounter = 100;
    Prog.ActivateTime = 54'245'000 - 0x1234;
  }
  Generator Gen{Prog};
};

const std::string kSeedmText =
    "030405060708090A0B0C0D0E0F10"
    "1112131415161718191A1B1C1D1E1F20"
    "2122232425262728292A2B2C2D2E2F30"
    "3132333435363738393A3B3C3D3E3F40"
    "1234";
const std::string kSeedrText = "02030405060708090A0B0C0D0E0F101112131415";

/// The digest of 64 bytes without padding.
std::string BareDigestText(std::string_view bytes) {
  std::array<std::uint32_t, 16> words{};
  for (std::size_t i = 0; i < 64; ++i) {
    words[i / 4] += static_cast<std::uint32_t>(static_cast<unsigned char>(bytes[i]))
                    << (8 * (i % 4));
  }
  Digest digest = kRipemdInitial;
  Compress(digest, words);
  return UpperCase(reference::DigestText(digest));
}

/// Four zero bytes, then pool bytes 1..60 of `kSeedmText`.
std::string SeedoText() {
  const auto pool = BytesOfHex(kSeedmText);
  return BareDigestText(std::string(4, '\0') + std::string(pool->begin(), pool->begin() + 60));
}

/// A system source that fills as it is told.
class ScriptedSource final : public Entropy {
 public:
  Answer SystemRandom(std::span<std::uint8_t> bytes) override {
    Asked = bytes.size();
    std::copy_n(Bytes.begin(), bytes.size(), bytes.begin());
    return Reply;
  }
  void Seed(std::uint64_t /*seed*/) override {}
  double Random() override { return 0; }
  std::array<std::uint8_t, 64> Bytes{};
  Answer Reply{true, std::nullopt};
  std::size_t Asked = 0;
};

TEST(PrepareNumberSeeds, LogsBitsPoolAndBothSeeds) {
  SeedDesk desk;
  EXPECT_TRUE(PrepareNumberSeeds(desk.Prog, desk.Gen));
  EXPECT_THAT(desk.LogLines(),
              ElementsAre("  New random bits collected: 116", "  Seedm: " + kSeedmText,
                          "  Seedr: " + kSeedrText, "  Seedo: " + SeedoText()));
}

#ifndef _WIN32  // no count of what is opened
TEST(PrepareNumberSeeds, BothSeedsAreOneAppendSoThatNoOtherSeedComesBetween) {
  SeedDesk desk;
  desk.Prog.Log.WriteLine("---");
  test::AppendCount appends(desk.Prog.Log.Path());
  EXPECT_TRUE(PrepareNumberSeeds(desk.Prog, desk.Gen));
  EXPECT_EQ(appends.Get(), 2);  // bits and pool, then the seeds
  EXPECT_TRUE(
      UseNumberSeeds(desk.Prog, desk.Gen.Number, std::string(40, '1'), std::string(40, '2')));
  EXPECT_EQ(appends.Get(), 1);
}
#endif

TEST(PrepareNumberSeeds, StartsTheCountersAnew) {
  SeedDesk desk;
  desk.Gen.Number.BlockCounter = 77;
  EXPECT_TRUE(PrepareNumberSeeds(desk.Prog, desk.Gen));
  EXPECT_EQ(desk.Gen.Number.BlockCounter, 0);
  EXPECT_EQ(desk.Gen.Pool.SeedmCounter, 0);
}

TEST(PrepareNumberSeeds, SavesThePoolBeforeTheCounterIsCleared) {
  SeedDesk desk;
  EXPECT_TRUE(PrepareNumberSeeds(desk.Prog, desk.Gen));
  EXPECT_EQ(desk.Store.Get(kSeedm), kSeedmText);
  EXPECT_EQ(desk.Store.Get(kSeedmCounter), "116");
}

TEST(PrepareNumberSeeds, AFullCounterIsLoggedAs512) {
  SeedDesk desk;
  for (int i = 1; i <= 100; ++i) desk.Gen.Pool.SampleMouse(i, i);
  EXPECT_TRUE(PrepareNumberSeeds(desk.Prog, desk.Gen));
  EXPECT_EQ(desk.LogLines()[0], "  New random bits collected: 512");
}

TEST(PrepareNumberSeeds, TheNewestFourBytesOfThePoolDoNotEnterTheDigest) {
  // The moment of action takes bytes 63 and 64; what stands there before moves to 61 and 62.
  const auto seedo = [](std::size_t changed, int moment) {
    SeedDesk desk;
    if (changed > 0) desk.Gen.Pool.Seedm[changed] = 0xEE;
    desk.Prog.ActivateTime -= moment;
    EXPECT_TRUE(PrepareNumberSeeds(desk.Prog, desk.Gen));
    return desk.Gen.Number.Seedo;
  };
  const Digest plain = seedo(0, 0);
  EXPECT_EQ(seedo(64, 0), plain);
  EXPECT_EQ(seedo(63, 0), plain);
  EXPECT_EQ(seedo(0, 1), plain);
  EXPECT_EQ(seedo(0, 0x4321), plain);
  for (std::size_t i = 3; i <= 62; ++i) EXPECT_NE(seedo(i, 0), plain) << i;
}

TEST(PrepareNumberSeeds, AsksTheSystemForOneByteMoreThanItUses) {
  TestDesk desk;
  ScriptedSource source;
  Program program(
      {desk.Ui, desk.Loop, desk.Clock, desk.Store, source, desk.Speaker, desk.ThePrinter},
      desk.Prog.Paths);
  Generator generator(program);
  source.Bytes[20] = 9;
  EXPECT_TRUE(PrepareNumberSeeds(program, generator));
  EXPECT_EQ(source.Asked, 21U);
  EXPECT_EQ(generator.Number.Seedr[20], 9);
}

TEST(PrepareNumberSeeds, AByteOutsideTheTwentyDoesNotCountAsRandom) {
  TestDesk desk;
  ScriptedSource source;
  Program program(
      {desk.Ui, desk.Loop, desk.Clock, desk.Store, source, desk.Speaker, desk.ThePrinter},
      desk.Prog.Paths);
  Generator generator(program);
  source.Bytes[0] = 255;
  EXPECT_FALSE(PrepareNumberSeeds(program, generator));
  EXPECT_EQ(desk.Ui.Boxes.size(), 1U);
}

TEST(PrepareNumberSeeds, AllZeroFromTheSystemIsAnError) {
  SeedDesk desk;
  desk.Random.AllZero = true;
  EXPECT_FALSE(PrepareNumberSeeds(desk.Prog, desk.Gen));
  ASSERT_EQ(desk.Ui.Boxes.size(), 1U);
  EXPECT_EQ(desk.Ui.Boxes[0],
            (test::FakeUi::Box{"      Error: 999 in RtlGenRandom procedure      \r\n"
                               "           \r\n"
                               "      Board Set cannot be generated      ",
                               kOkCritical, "Generate New Board Set"}));
  EXPECT_EQ(desk.Gen.Pool.SeedmCounter, 116);
  const std::vector<std::string> lines = desk.LogLines();
  ASSERT_EQ(lines.size(), 4U);
  EXPECT_EQ(lines[2], "  Seedr: " + std::string(40, '0'));
  EXPECT_EQ(lines[3],
            "    Generate New Board Set: Error: 999 in RtlGenRandom procedure : : "
            "Board Set cannot be generated");
}

TEST(PrepareNumberSeeds, ACallThatAnswersFalseIsAnErrorWhateverItFilledIn) {
  SeedDesk desk;
  ScriptedSource source;
  source.Bytes.fill(7);
  source.Reply = {false, std::nullopt};
  Program program(
      {desk.Ui, desk.Loop, desk.Clock, desk.Store, source, desk.Speaker, desk.ThePrinter},
      desk.Prog.Paths);
  Generator generator(program);
  EXPECT_FALSE(PrepareNumberSeeds(program, generator));
  ASSERT_EQ(desk.Ui.Boxes.size(), 1U);
  EXPECT_NE(desk.Ui.Boxes[0].Text.find("Error: 999 in"), std::string::npos);
}

TEST(PrepareNumberSeeds, ACallThatFailsIsShownWithItsNumberAndDescription) {
  SeedDesk desk;
  desk.Random.Failure = Entropy::Answer{false, RuntimeError{453, "Can't find the entry point"}};
  EXPECT_FALSE(PrepareNumberSeeds(desk.Prog, desk.Gen));
  ASSERT_EQ(desk.Ui.Boxes.size(), 1U);
  EXPECT_EQ(desk.Ui.Boxes[0].Text,
            "      Error: 453 in RtlGenRandom procedure      \r\n"
            "      Can't find the entry point     \r\n"
            "      Board Set cannot be generated      ");
  EXPECT_EQ(desk.LogLines().size(), 3U);  // bits, pool and the box: there is no Seedr to log
}

TEST(PrepareLfsrSeed, TakesTheNewestTwelveBytesDaysAndTicks) {
  SeedDesk desk;
  PrepareLfsrSeed(desk.Prog, desk.Gen);
  // Days 6636 shifted by 18 is 67B00000, 5,424,500 hundredths of a second are 52C574.
  EXPECT_EQ(desk.Gen.Shuffling.LfsrState, (Words{0x3738393A, 0x3B3C3D3E, 0x3F401234, 0x67E2C574}));
  EXPECT_THAT(desk.LogLines(), ElementsAre("  New random bits collected: 116",
                                           "  Seed: 3738393A 3B3C3D3E 3F401234 67E2C574"));
  EXPECT_EQ(desk.Gen.Pool.SeedmCounter, 0);
  EXPECT_EQ(desk.Store.Get(kSeedm), kSeedmText);
  EXPECT_EQ(desk.Store.Get(kSeedmCounter), "116");
}

TEST(PrepareLfsrSeed, DaysCountModulo8192) {
  SeedDesk desk;
  desk.Clock.SetStart({2030, 6, 6, 0, 0, 0, 0});  // 8192 days after 1 January 2008
  PrepareLfsrSeed(desk.Prog, desk.Gen);
  EXPECT_EQ(desk.Gen.Shuffling.LfsrState[3], 0U);
  desk.Clock.SetStart({2030, 6, 5, 0, 0, 0, 30});
  PrepareLfsrSeed(desk.Prog, desk.Gen);
  EXPECT_EQ(desk.Gen.Shuffling.LfsrState[3], (8191U << 18U) + 3);
}

TEST(PrepareLfsrSeed, LeavesTheDeckAsItIs) {
  SeedDesk desk;
  Board board;
  desk.Gen.Shuffling.NextShuffledDeal(board);
  const auto deck = desk.Gen.Shuffling.Deck;
  PrepareLfsrSeed(desk.Prog, desk.Gen);
  EXPECT_EQ(desk.Gen.Shuffling.Deck, deck);
}

TEST(UseNumberSeeds, TakesThemInTheByteOrderOfTheLogAndLogsThem) {
  SeedDesk desk;
  desk.Gen.Number.BlockCounter = 5;
  const std::string seedr = "0102030405060708090a0b0c0d0e0f1011121314";
  const std::string seedo = "0123456789ABCDEFFEDCBA9876543210DEADBEEF";
  EXPECT_TRUE(UseNumberSeeds(desk.Prog, desk.Gen.Number, seedr, seedo));
  EXPECT_EQ(desk.Gen.Number.Seedr[1], 1);
  EXPECT_EQ(desk.Gen.Number.Seedr[20], 0x14);
  EXPECT_EQ(desk.Gen.Number.Seedo,
            (Digest{0x67452301, 0xEFCDAB89, 0x98BADCFE, 0x10325476, 0xEFBEADDE}));
  EXPECT_EQ(desk.Gen.Number.BlockCounter, 0);
  EXPECT_THAT(desk.LogLines(), ElementsAre("  Seedr: 0102030405060708090A0B0C0D0E0F1011121314",
                                           "  Seedo: " + seedo));
}

TEST(UseNumberSeeds, TheLoggedSeedsOfAPressGiveItsDealsAgain) {
  SeedDesk desk;
  EXPECT_TRUE(PrepareNumberSeeds(desk.Prog, desk.Gen));
  NumberDealer again;
  const std::vector<std::string> lines = desk.LogLines();
  EXPECT_TRUE(UseNumberSeeds(desk.Prog, again, lines[2].substr(9), lines[3].substr(9)));
  for (int i = 0; i < 10; ++i) {
    Board first;
    Board second;
    desk.Gen.Number.NextNumberDeal(first);
    again.NextNumberDeal(second);
    EXPECT_EQ(first, second);
  }
}

TEST(UseNumberSeeds, AnythingButFortyDigitsIsRefusedAndChangesNothing) {
  SeedDesk desk;
  const std::string good(40, 'A');
  NumberDealer& dealer = desk.Gen.Number;
  dealer.BlockCounter = 5;
  for (const std::string& bad :
       {std::string(), std::string(38, 'A'), std::string(39, 'A'), std::string(42, 'A'),
        std::string(39, 'A') + "G", std::string(39, 'A') + " "}) {
    EXPECT_FALSE(UseNumberSeeds(desk.Prog, dealer, bad, good)) << bad;
    EXPECT_FALSE(UseNumberSeeds(desk.Prog, dealer, good, bad)) << bad;
  }
  EXPECT_EQ(dealer.Seedr, NumberDealer().Seedr);
  EXPECT_EQ(dealer.Seedo, NumberDealer().Seedo);
  EXPECT_EQ(dealer.BlockCounter, 5);
  EXPECT_TRUE(desk.LogLines().empty());
}

TEST(SetNumberSeeds, GivesTheSameSeedsAndLogsNothing) {
  SeedDesk desk;
  NumberDealer dealer;
  dealer.BlockCounter = 5;
  EXPECT_TRUE(SetNumberSeeds(dealer, kSeedrText, std::string(40, '7')));
  EXPECT_TRUE(desk.LogLines().empty());
  EXPECT_TRUE(UseNumberSeeds(desk.Prog, desk.Gen.Number, kSeedrText, std::string(40, '7')));
  EXPECT_EQ(dealer.Seedr, desk.Gen.Number.Seedr);
  EXPECT_EQ(dealer.Seedo, desk.Gen.Number.Seedo);
  EXPECT_EQ(dealer.BlockCounter, 0);
  EXPECT_FALSE(SetNumberSeeds(dealer, kSeedrText, ""));
}

TEST(UseLfsrSeed, TakesFourWordsAndAFreshDeck) {
  SeedDesk desk;
  Board board;
  desk.Gen.Shuffling.NextShuffledDeal(board);
  EXPECT_TRUE(UseLfsrSeed(desk.Prog, desk.Gen.Shuffling, "0123456789abcdefFEDCBA9876543210"));
  EXPECT_EQ(desk.Gen.Shuffling.LfsrState, (Words{0x01234567, 0x89ABCDEF, 0xFEDCBA98, 0x76543210}));
  EXPECT_EQ(desk.Gen.Shuffling.Deck, ShufflingDealer().Deck);
  EXPECT_THAT(desk.LogLines(), ElementsAre("  Seed: 01234567 89ABCDEF FEDCBA98 76543210"));
}

TEST(UseLfsrSeed, AnythingButThirtyTwoDigitsIsRefusedAndChangesNothing) {
  SeedDesk desk;
  ShufflingDealer& dealer = desk.Gen.Shuffling;
  Board board;
  dealer.NextShuffledDeal(board);
  const ShufflingDealer before = dealer;
  for (const std::string& bad :
       {std::string(), std::string(31, '1'), std::string(34, '1'), std::string(31, '1') + "x"}) {
    EXPECT_FALSE(UseLfsrSeed(desk.Prog, dealer, bad)) << bad;
  }
  EXPECT_EQ(dealer.LfsrState, before.LfsrState);
  EXPECT_EQ(dealer.Deck, before.Deck);
  EXPECT_TRUE(desk.LogLines().empty());
}

}  // namespace
}  // namespace morvane::generate
