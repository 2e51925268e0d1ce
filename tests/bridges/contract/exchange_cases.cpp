#include <array>

#include "bridges/contract/contract.h"

namespace morvane::bridges {
namespace {

/// So long a read waits that is to find nothing. Clocks of real devices are a millisecond coarse.
constexpr std::uint32_t kShortMs = 20;
constexpr double kCost = kShortMs - 1;
/// And so long one that is to find a part, however busy the system is.
constexpr std::uint32_t kPartMs = 200;

/// A status poll of a machine that rests, and a fetch of its card log, whose reply is long.
const Bytes kPoll{0x19, 0, 0, 0, 0, 0, 0, 0};
const Bytes kFetchLog{0x20, 0, 0, 0, 0, 0, 0, 0};
/// The poll's reply on the wire: 19 0 0 0 0 0 0 with the key 19, which moves on by 15, and the
/// check byte 19 xor FF.
const Bytes kRests{0x00, 0x2E, 0x43, 0x58, 0x6D, 0x82, 0x97, 0xE6};

Bytes Cut(const Bytes& bytes, std::size_t from, std::size_t to) {
  return {bytes.begin() + static_cast<std::ptrdiff_t>(from),
          bytes.begin() + static_cast<std::ptrdiff_t>(to)};
}

void AShortExchange(ContractDesk& desk) {
  ContractClient client(desk);
  client.Open();
  for (int time = 0; time < 3; ++time) {
    client.Send(kPoll);
    EXPECT_EQ(client.Read(8), kRests);
    EXPECT_EQ(client.Status, UsbXpress::kSuccess);
  }
}

void ALongReplyIsReadInItsTwoParts(ContractDesk& desk) {
  ContractClient client(desk);
  client.Open();
  client.Send(kFetchLog);
  Bytes wire = client.Read(8);
  const Bytes rest = client.Read(128);
  ASSERT_EQ(wire.size() + rest.size(), 136U);
  wire.insert(wire.end(), rest.begin(), rest.end());
  const Bytes plain = simulator::Keyed(wire, wire[7] ^ 255U, 21);
  EXPECT_EQ(plain[0], 0xA0);
  EXPECT_EQ(simulator::SumOf(plain), 255U);
}

void ALongCommandArrivesWhole(ContractDesk& desk) {
  ContractClient client(desk);
  client.Open();
  client.Send(simulator::DealFrame(simulator::RandomBoard(1)));
  const Bytes wire = client.Read(8);
  ASSERT_EQ(wire.size(), 8U);
  EXPECT_EQ(simulator::Keyed(wire, wire[7] ^ 255U, 21)[0], 0x18) << "it deals";
}

void ACommandMayBeWrittenInPieces(ContractDesk& desk) {
  ContractClient client(desk);
  client.Open();
  const Bytes wire = simulator::ToWire(kPoll);
  EXPECT_EQ(client.Write(Cut(wire, 0, 3)), 3U);
  EXPECT_EQ(client.Write({}), 0U);
  EXPECT_EQ(client.Write(Cut(wire, 3, 8)), 5U);
  desk.Carry();
  EXPECT_EQ(client.Read(8), kRests);
}

void AReplyMayBeReadInPieces(ContractDesk& desk) {
  ContractClient client(desk);
  client.Open();
  client.Send(kPoll);
  EXPECT_EQ(client.Read(1), Cut(kRests, 0, 1));
  EXPECT_EQ(client.Read(0), Bytes());
  EXPECT_EQ(client.Status, UsbXpress::kSuccess) << "nothing is there at once";
  EXPECT_EQ(client.Read(7), Cut(kRests, 1, 8));
}

void SilenceCostsTheReadTime(ContractDesk& desk) {
  ContractClient client(desk);
  client.Open(kShortMs);
  EXPECT_GE(client.MsOfShortRead(8), kCost);
  EXPECT_GE(client.MsOfShortRead(128), kCost) << "and each read anew";
}

void WithoutAReadTimeAReadTakesWhatIsThere(ContractDesk& desk) {
  ContractClient client(desk);
  client.Open(0);
  const auto start = desk.Now();
  EXPECT_EQ(client.Read(8), Bytes());
  EXPECT_EQ(client.Status, UsbXpress::kReadTimedOut);
  EXPECT_LT(desk.Now() - start, std::chrono::seconds(1));
}

void HalfAReplyIsAShortCount(ContractDesk& desk) {
  ContractClient client(desk);
  client.Open(kPartMs);
  desk.CutNextReply(5);
  client.Send(kPoll);
  const auto start = desk.Now();
  EXPECT_EQ(client.Read(8), Cut(kRests, 0, 5));
  EXPECT_EQ(client.Status, UsbXpress::kReadTimedOut);
  EXPECT_GE(desk.Now() - start, std::chrono::milliseconds(kPartMs - 1));
  client.SetReadTime(kShortMs);
  EXPECT_EQ(client.Read(3), Bytes()) << "nothing of it is left";
}

void AReadOfMoreThanComesTakesAll(ContractDesk& desk) {
  ContractClient client(desk);
  client.Open(kPartMs);
  client.Send(kPoll);
  EXPECT_EQ(client.Read(136), kRests);
  EXPECT_EQ(client.Status, UsbXpress::kReadTimedOut);
}

void ALateReplyIsThereForTheNextRead(ContractDesk& desk) {
  ContractClient client(desk);
  client.Open(kShortMs);
  desk.DelayNextReply();
  client.Send(kPoll);
  EXPECT_EQ(client.Read(8), Bytes());
  EXPECT_EQ(client.Status, UsbXpress::kReadTimedOut);
  desk.LetLateReplyCome();
  client.SetReadTime(ContractClient::kLongMs);
  EXPECT_EQ(client.Read(8), kRests);
}

void AFlushForgetsWhatCame(ContractDesk& desk) {
  ContractClient client(desk);
  client.Open();
  client.Send(kPoll);
  EXPECT_EQ(client.Read(3), Cut(kRests, 0, 3)) << "all has come";
  client.Flush(1, 1);
  client.SetReadTime(kShortMs);
  EXPECT_EQ(client.Read(5), Bytes());
  client.Send(kPoll);
  client.SetReadTime(ContractClient::kLongMs);
  EXPECT_EQ(client.Read(8), kRests) << "the next reply begins where it begins";
}

void AFlushOfOneDirectionLeavesTheOther(ContractDesk& desk) {
  ContractClient client(desk);
  client.Open();
  client.Send(kPoll);
  client.Flush(1, 0);
  client.Flush(0, 0);
  EXPECT_EQ(client.Read(8), kRests);
  client.Send(kPoll);
  EXPECT_EQ(client.Read(1), Cut(kRests, 0, 1));
  client.Flush(0, 1);
  client.SetReadTime(kShortMs);
  EXPECT_EQ(client.Read(7), Bytes());
}

void TheTimesHoldFromBeforeTheOpening(ContractDesk& desk) {
  ContractClient client(desk);
  client.SetReadTime(kShortMs);
  client.FindDevice();
  ASSERT_EQ(desk.Bridge().Open(0, client.Handle), UsbXpress::kSuccess);
  EXPECT_GE(client.MsOfShortRead(8), kCost);
  EXPECT_LT(client.MsOfShortRead(8), ContractClient::kLongMs);
}

void TheTimesHoldFromOneOpeningToTheNext(ContractDesk& desk) {
  ContractClient client(desk);
  client.Open(kShortMs);
  EXPECT_EQ(desk.Bridge().Close(client.Handle), UsbXpress::kSuccess);
  desk.Carry();
  client.FindDevice();
  ASSERT_EQ(desk.Bridge().Open(0, client.Handle), UsbXpress::kSuccess);
  EXPECT_GE(client.MsOfShortRead(8), kCost);
}

constexpr std::array<ContractCase, 14> kCases{{
    {"AShortExchange", AShortExchange},
    {"ALongReplyIsReadInItsTwoParts", ALongReplyIsReadInItsTwoParts},
    {"ALongCommandArrivesWhole", ALongCommandArrivesWhole},
    {"ACommandMayBeWrittenInPieces", ACommandMayBeWrittenInPieces},
    {"AReplyMayBeReadInPieces", AReplyMayBeReadInPieces},
    {"SilenceCostsTheReadTime", SilenceCostsTheReadTime},
    {"WithoutAReadTimeAReadTakesWhatIsThere", WithoutAReadTimeAReadTakesWhatIsThere},
    {"HalfAReplyIsAShortCount", HalfAReplyIsAShortCount},
    {"AReadOfMoreThanComesTakesAll", AReadOfMoreThanComesTakesAll},
    {"ALateReplyIsThereForTheNextRead", ALateReplyIsThereForTheNextRead},
    {"AFlushForgetsWhatCame", AFlushForgetsWhatCame},
    {"AFlushOfOneDirectionLeavesTheOther", AFlushOfOneDirectionLeavesTheOther},
    {"TheTimesHoldFromBeforeTheOpening", TheTimesHoldFromBeforeTheOpening},
    {"TheTimesHoldFromOneOpeningToTheNext", TheTimesHoldFromOneOpeningToTheNext},
}};

}  // namespace

std::span<const ContractCase> ExchangeCases() { return kCases; }

}  // namespace morvane::bridges
