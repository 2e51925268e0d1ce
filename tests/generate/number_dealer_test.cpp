#include "generate/number_dealer.h"

#include <algorithm>

#include "generate/deal_number.h"
#include "generate/reference.h"
#include "model/tables.h"

namespace morvane::generate {
namespace {

using reference::EncodeDeal;
using reference::Wide;
using reference::WideOfBytes;

NumberDealer SomeDealer() {
  NumberDealer dealer;
  for (std::size_t i = 0; i < dealer.Seedr.size(); ++i) {
    dealer.Seedr[i] = static_cast<std::uint8_t>(200 + 3 * i);
  }
  dealer.Seedo = {0x01234567, 0x89ABCDEF, 0xFEDCBA98, 0x76543210, 0xDEADBEEF};
  return dealer;
}

void AppendWord(std::string& bytes, std::uint32_t word) {
  for (int i = 0; i < 4; ++i) bytes += static_cast<char>(word >> (8 * i));
}

/// The 44 bytes that block `counter` hashes.
std::string Message(const NumberDealer& dealer, std::uint32_t counter) {
  std::string bytes;
  AppendWord(bytes, counter);
  for (std::size_t i = 1; i <= 20; ++i) bytes += static_cast<char>(dealer.Seedr[i]);
  for (const std::uint32_t word : dealer.Seedo) AppendWord(bytes, word);
  return bytes;
}

/// The number of block `counter` from the whole hash of its message.
Wide NumberOfBlock(const NumberDealer& dealer, std::uint32_t counter) {
  const std::string message = Message(dealer, counter);
  EXPECT_EQ(message.size(), 44U);
  const Digest digest = reference::Ripemd160(message);
  Wide number = 0;
  for (std::size_t i = 0; i < 12; ++i)
    number = number * 256 + (digest[i / 4] >> (8 * (i % 4)) & 0xFF);
  return number;
}

TEST(NumberDealer, DrawsTheHashOfCounterAndSeedsAndSkipsWhatIsTooGreat) {
  NumberDealer dealer = SomeDealer();
  const Wide deals = WideOfBytes(MaxDealNumber.Bytes());
  std::uint32_t block = 0;
  int skipped = 0;
  for (int i = 0; i < 200; ++i) {
    Wide expected = NumberOfBlock(dealer, ++block);
    for (; expected >= deals; ++skipped) expected = NumberOfBlock(dealer, ++block);
    Board board;
    dealer.NextNumberDeal(board);
    EXPECT_TRUE(WideOfBytes(board.DealNumber) == expected);
    EXPECT_EQ(dealer.BlockCounter, static_cast<std::int32_t>(block));
    EXPECT_TRUE(EncodeDeal(board) == expected);
  }
  EXPECT_GT(skipped, 0);
}

TEST(NumberDealer, TheCounterOfADealIsWrittenMostSignificantByteFirst) {
  NumberDealer dealer = SomeDealer();
  dealer.BlockCounter = 0x01020380;
  Board board;
  dealer.NextNumberDeal(board);
  EXPECT_EQ(board.DealCounter[0], 1);
  EXPECT_EQ(board.DealCounter[1], 2);
  EXPECT_EQ(board.DealCounter[2], 3);
  EXPECT_EQ(board.DealCounter[3], dealer.BlockCounter - 0x01020300);
}

TEST(NumberDealer, ByteZeroOfSeedrIsNeverUsed) {
  NumberDealer dealer = SomeDealer();
  NumberDealer other = dealer;
  other.Seedr[0] = static_cast<std::uint8_t>(other.Seedr[0] + 1);
  NumberDealer third = dealer;
  third.Seedr[20] = static_cast<std::uint8_t>(third.Seedr[20] + 1);
  Board a;
  Board b;
  Board c;
  dealer.NextNumberDeal(a);
  other.NextNumberDeal(b);
  third.NextNumberDeal(c);
  EXPECT_EQ(a, b);
  EXPECT_NE(a.Cards, c.Cards);
}

TEST(NumberDealer, SeedsThatChangeBetweenTwoDealsCountFromTheNextOneOn) {
  const auto expectNext = [](NumberDealer& dealer) {
    Wide expected = NumberOfBlock(dealer, static_cast<std::uint32_t>(dealer.BlockCounter) + 1);
    const Wide deals = WideOfBytes(MaxDealNumber.Bytes());
    for (auto block = static_cast<std::uint32_t>(dealer.BlockCounter) + 2; expected >= deals;
         ++block) {
      expected = NumberOfBlock(dealer, block);
    }
    Board board;
    dealer.NextNumberDeal(board);
    EXPECT_TRUE(WideOfBytes(board.DealNumber) == expected);
  };
  NumberDealer dealer = SomeDealer();
  expectNext(dealer);
  for (std::size_t i = 1; i <= 20; ++i) {
    ++dealer.Seedr[i];
    expectNext(dealer);
  }
  for (std::uint32_t& word : dealer.Seedo) {
    ++word;
    expectNext(dealer);
  }
}

TEST(NumberDealer, ACounterThatIsSetGivesTheDealsFromThereOn) {
  NumberDealer dealer = SomeDealer();
  std::map<std::int32_t, Board> dealt;  // by the counter before
  for (int i = 0; i < 30; ++i) {
    const std::int32_t before = dealer.BlockCounter;
    dealer.NextNumberDeal(dealt[before]);
  }
  for (const int step : {1, -1}) {
    for (std::int32_t i = 0; i < 20; ++i) {
      const auto at = std::next(dealt.begin(), step > 0 ? i : 19 - i);
      dealer.BlockCounter = at->first;
      Board board;
      dealer.NextNumberDeal(board);
      EXPECT_EQ(board, at->second) << at->first;
    }
  }
}

TEST(NumberDealer, StartsEachCandidateFromAnEmptyRecord) {
  NumberDealer dealer = SomeDealer();
  Board board = NumberedBoard(7);
  board.Tricks[3] = 5;
  board.Cards.fill(kWest);
  dealer.NextNumberDeal(board);
  EXPECT_EQ(board.Number, 0);
  EXPECT_EQ(board.Dealer, 0);
  EXPECT_EQ(board.Tricks[3], 0);
  EXPECT_EQ(AnalyzeBoard(board), 4);
}

TEST(NumberDealer, EachHandGetsEachCardEquallyOften) {
  // 40,000 deals: a card comes to a hand 10,000 times, give or take five standard deviations (87).
  NumberDealer dealer = SomeDealer();
  std::array<std::array<int, 5>, 53> count{};
  Board board;
  for (int i = 0; i < 40'000; ++i) {
    dealer.NextNumberDeal(board);
    for (std::size_t card = 1; card <= kCards; ++card) ++count[card][board.Cards[card]];
  }
  for (std::size_t card = 1; card <= kCards; ++card) {
    for (std::size_t hand = 1; hand <= kHands; ++hand) {
      EXPECT_NEAR(count[card][hand], 10'000, 435) << card << " to " << hand;
    }
  }
}

}  // namespace
}  // namespace morvane::generate
