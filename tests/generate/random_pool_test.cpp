#include "generate/random_pool.h"

#include <cerrno>
#include <numeric>

#include "support/fakes.h"

namespace morvane::generate {
namespace {

using test::TestDesk;

/// A system source that counts up from 1 and goes on where it stopped, or fails; a pseudo-random
/// one that runs through eighths.
class CountingSource final : public Entropy {
 public:
  Answer SystemRandom(std::span<std::uint8_t> bytes) override {
    if (Failure) return *Failure;
    for (std::uint8_t& byte : bytes) byte = ++Last;
    return {true, std::nullopt};
  }
  void Seed(std::uint64_t seed) override { LastSeed = seed; }
  double Random() override { return (Drawn++ % 8) / 8.0; }
  std::optional<Answer> Failure;
  std::uint8_t Last = 0;
  int Drawn = 0;
  std::uint64_t LastSeed = 0;
};

/// A desk with that source in a program of its own.
struct SourceDesk : TestDesk {
  CountingSource Source;
  Program Sourced{{Ui, Loop, Clock, Store, Source, Speaker, ThePrinter},
                  {Folder.Path(), Prog.Paths.Data}};
  RandomPool Pool{Sourced};
};

/// Bytes 1..64 hold 1..64.
void CountUp(RandomPool& pool) { std::iota(pool.Seedm.begin(), pool.Seedm.end(), std::uint8_t{0}); }

std::string Repeated(const std::string& text, int times) {
  std::string result;
  for (int i = 0; i < times; ++i) result += text;
  return result;
}

TEST(InitPool, AFirstStartFillsThePoolFromTheSystemsSourceAndStoresItAtOnce) {
  SourceDesk desk;
  desk.Pool.InitPool({0x1234, 0x5678});
  std::string counted;  // 01 to 40
  for (int byte = 1; byte <= 64; ++byte) {
    counted += "0123456789ABCDEF"[byte / 16];
    counted += "0123456789ABCDEF"[byte % 16];
  }
  EXPECT_EQ(desk.Store.Get(kSeedm), counted);
  EXPECT_EQ(desk.Pool.HexText(), counted.substr(0, 124) + "7834");
  EXPECT_FALSE(desk.Store.Has(kSeedmCounter));
  EXPECT_TRUE(desk.Ui.Boxes.empty());
}

TEST(InitPool, ASystemsSourceThatFailsIsToldAndLeavesNoZeros) {
  SourceDesk desk;
  desk.Source.Failure = Entropy::Answer{false, RuntimeError::OfNumber(ENOSYS)};
  desk.Pool.InitPool({0x1234, 0x5678});
  EXPECT_THAT(desk.Ui.Boxes, ::testing::ElementsAre(test::FakeUi::Box{
                                 "      Error: " + std::to_string(ENOSYS) +
                                     " in the system's random source      \r\n"
                                     "      Function not implemented     \r\n"
                                     "      The random pool begins with the clock alone      ",
                                 48, "Random Pool Error"}));
  EXPECT_EQ(desk.Source.Drawn, 64);
  EXPECT_NE(desk.Source.LastSeed, 0U);
  EXPECT_EQ(desk.Store.Get(kSeedm), Repeated("0020406080A0C0E0", 8));
}

TEST(InitPool, ThePseudoRandomSourceIsSeededFromTheClock) {
  SourceDesk desk;
  desk.Pool.InitPool({});
  const std::uint64_t first = desk.Source.LastSeed;
  desk.Clock.Spend(std::chrono::milliseconds(1));
  desk.Pool.InitPool({});
  EXPECT_NE(desk.Source.LastSeed, first);
}

TEST(InitPool, TheStoredTextIsReadOneDigitLate) {
  TestDesk desk;
  desk.Store.Set(kSeedm, Repeated("0123456789ABCDEF", 8));
  RandomPool pool(desk.Prog);
  pool.InitPool({300, 77});
  // From the second digit on; the last two bytes are the mouse's 77 and 300 modulo 256.
  EXPECT_EQ(pool.HexText(), Repeated("123456789ABCDEF0", 7) + "123456789ABC" + "4D2C");
}

TEST(InitPool, LowerCaseDigitsCountTheSame) {
  TestDesk desk;
  desk.Store.Set(kSeedm, Repeated("0123456789abcdef", 8));
  RandomPool pool(desk.Prog);
  pool.InitPool({});
  EXPECT_EQ(pool.HexText(), Repeated("123456789ABCDEF0", 7) + "123456789ABC" + "0000");
}

TEST(InitPool, AShortTextLeavesZerosWithoutAMessage) {
  TestDesk desk;
  desk.Store.Set(kSeedm, "ABCDE8");
  RandomPool pool(desk.Prog);
  CountUp(pool);
  pool.InitPool({1, 2});
  EXPECT_EQ(pool.HexText(), "BCDE80" + std::string(118, '0') + "0201");
  EXPECT_TRUE(desk.Ui.Boxes.empty());
}

TEST(InitPool, AfterSaveAndReloadThePoolIsNotWhatItWas) {
  TestDesk desk;
  RandomPool pool(desk.Prog);
  CountUp(pool);
  pool.SavePool();
  RandomPool reloaded(desk.Prog);
  reloaded.InitPool({});
  EXPECT_NE(reloaded.Seedm, pool.Seedm);
  for (std::size_t i = 1; i <= 62; ++i) {
    // The low digit of one byte and the high digit of the next.
    EXPECT_EQ(reloaded.Seedm[i], pool.Seedm[i] % 16 * 16 + pool.Seedm[i + 1] / 16) << i;
  }
}

TEST(InitPool, CountsSixteenNewBitsOnTopOfTheStoredUpTo512) {
  TestDesk desk;
  RandomPool pool(desk.Prog);
  pool.InitPool({});
  EXPECT_EQ(pool.SeedmCounter, 16);
  desk.Store.Set(kSeedmCounter, "100");
  pool.InitPool({});
  EXPECT_EQ(pool.SeedmCounter, 116);
  desk.Store.Set(kSeedmCounter, "500");
  pool.InitPool({});
  EXPECT_EQ(pool.SeedmCounter, 512);
  desk.Store.Set(kSeedmCounter, "99999");
  pool.InitPool({});
  EXPECT_EQ(pool.SeedmCounter, 512);
}

TEST(InitPool, TakesDaysAndMouseAsStartParameters) {
  TestDesk desk;
  RandomPool pool(desk.Prog);
  pool.InitPool({300, 76});
  // 18 years with five leap days, then January, February and two days of March.
  EXPECT_EQ(pool.StartParamDays, 18 * 365 + 5 + 31 + 28 + 2);
  EXPECT_EQ(pool.StartParamMouse, ((300U * 256 + 76) - 65536) + 1);
  pool.InitPool({300, 77});
  EXPECT_EQ(pool.StartParamMouse, 300U * 256 + 77 - 65536);
}

TEST(InitPool, AMouseLeftOfAndAboveTheWindowIsTakenToo) {
  TestDesk desk;
  RandomPool pool(desk.Prog);
  pool.InitPool({-1, -2});
  EXPECT_EQ(pool.StartParamMouse, 0xFEFFU);  // -258 is FEFE in 16 bits
  EXPECT_EQ(pool.Seedm[64], 0xFF);
  EXPECT_EQ(pool.Seedm[63], 0xFE);
}

TEST(SampleMouse, ShiftsOneByteOfBothCoordinatesIn) {
  TestDesk desk;
  RandomPool pool(desk.Prog);
  CountUp(pool);
  pool.SampleMouse(0x12A, 0x345);
  EXPECT_EQ(pool.Seedm[1], 2);
  EXPECT_EQ(pool.Seedm[63], 64);
  EXPECT_EQ(pool.Seedm[64], 0xA5);
  EXPECT_EQ(pool.SeedmCounter, 8);
  EXPECT_EQ(pool.LastMouseX, 0x12A);
  EXPECT_EQ(pool.LastMouseY, 0x345);
}

TEST(SampleMouse, AMouseThatMovesOnlyHorizontallyOrVerticallyFeedsNothing) {
  TestDesk desk;
  RandomPool pool(desk.Prog);
  pool.SampleMouse(10, 20);
  const auto before = pool.Seedm;
  pool.SampleMouse(11, 20);
  pool.SampleMouse(10, 21);
  pool.SampleMouse(10, 20);
  EXPECT_EQ(pool.Seedm, before);
  EXPECT_EQ(pool.SeedmCounter, 8);
  EXPECT_EQ(pool.LastMouseX, 10);  // nor is the place remembered
  pool.SampleMouse(11, 21);
  EXPECT_NE(pool.Seedm, before);
}

TEST(SampleMouse, NegativeCoordinatesGiveTheirLowFourBits) {
  TestDesk desk;
  RandomPool pool(desk.Prog);
  pool.SampleMouse(-1, -3);
  EXPECT_EQ(pool.Seedm[64], 0xFD);
}

TEST(SampleMouse, NeverCountsMoreThan512BitsHoweverLongTheMouseMoves) {
  TestDesk desk;
  RandomPool pool(desk.Prog);
  for (int i = 1; i <= 63; ++i) pool.SampleMouse(i, i);
  EXPECT_EQ(pool.SeedmCounter, 504);
  for (int i = 64; i <= 1000; ++i) pool.SampleMouse(i, i);
  EXPECT_EQ(pool.SeedmCounter, 512);
  pool.AddTimeEntropy();
  EXPECT_EQ(pool.SeedmCounter, 512);
}

TEST(AddTimeEntropy, ShiftsTheTimeSinceActivationInAsTwoBytes) {
  TestDesk desk;  // 15:04:05 is 54,245,000 ms after midnight
  RandomPool pool(desk.Prog);
  CountUp(pool);
  desk.Prog.ActivateTime = 54'000'000;
  pool.AddTimeEntropy();
  EXPECT_EQ(pool.Seedm[1], 3);
  EXPECT_EQ(pool.Seedm[62], 64);
  EXPECT_EQ(pool.Seedm[63], 0xBD);  // 245,000 modulo 65,536 is 48,392
  EXPECT_EQ(pool.Seedm[64], 0x08);
  EXPECT_EQ(pool.SeedmCounter, 16);
}

TEST(AddTimeEntropy, PastMidnightTheDifferenceWraps) {
  TestDesk desk;
  desk.Clock.SetStart({2026, 3, 4, 0, 0, 1, 0});
  desk.Prog.ActivateTime = 86'399'000;
  RandomPool pool(desk.Prog);
  pool.AddTimeEntropy();
  EXPECT_EQ(pool.Seedm[63] * 256 + pool.Seedm[64], 1319 * 65536 - 86'398'000);
}

TEST(SavePool, WritesTheBytesInOrderAndTheCounter) {
  TestDesk desk;
  RandomPool pool(desk.Prog);
  pool.Seedm[1] = 0xAB;
  pool.Seedm[64] = 0x0F;
  pool.SeedmCounter = 24;
  pool.SavePool();
  EXPECT_EQ(desk.Store.Get(kSeedm), "AB" + std::string(124, '0') + "0F");
  EXPECT_EQ(desk.Store.Get(kSeedmCounter), "24");
}

TEST(SavePool, AStoreThatCannotBeWrittenIsToldOnceInARunOfTheProgram) {
  TestDesk desk;
  desk.Store.Writable = false;
  RandomPool pool(desk.Prog);
  pool.InitPool({});  // the first pool cannot be kept
  ASSERT_EQ(desk.Ui.Boxes.size(), 1U);
  pool.SavePool();
  EXPECT_EQ(desk.Ui.Boxes.size(), 1U);
  EXPECT_EQ(desk.Ui.Boxes[0].Title, "Settings Error");
  EXPECT_EQ(pool.SeedmCounter, 16) << "the pool works all the same";
}

}  // namespace
}  // namespace morvane::generate
