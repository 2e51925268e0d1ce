#include "simulator/talk.h"

namespace morvane::simulator {
namespace {

using std::chrono::milliseconds;

TEST(LinkFault, ALostReplyCostsTheReadTimeOutAndTheCommandWasObeyed) {
  Talk talk;
  const Board board = RandomBoard(5);
  talk.Machine.Faults().AtExchange(1, LinkFault::LoseReply());
  EXPECT_FALSE(talk.Accepted(DealFrame(board)));
  EXPECT_EQ(talk.Clock.Elapsed(), milliseconds(200));
  EXPECT_TRUE(talk.Machine.Busy());
}

TEST(LinkFault, ALostCommandWasNeverHeard) {
  Talk talk;
  talk.Machine.Faults().AtExchange(1, LinkFault::LoseCommand());
  EXPECT_FALSE(talk.Accepted(DealFrame(RandomBoard(5))));
  EXPECT_FALSE(talk.Machine.Busy());
  EXPECT_TRUE(talk.Accepted(DealFrame(RandomBoard(5))));
}

TEST(LinkFault, ACorruptedCommandIsNotTaken) {
  for (int byte = 0; byte < 136; ++byte) {
    Talk talk;
    talk.Machine.Faults().AtExchange(
        1, LinkFault::CorruptCommand(static_cast<std::uint8_t>(byte), 0x40));
    EXPECT_FALSE(talk.Accepted(DealFrame(RandomBoard(5)))) << byte;
    EXPECT_FALSE(talk.Machine.Busy()) << byte;
    EXPECT_TRUE(talk.Accepted(DealFrame(RandomBoard(5)))) << byte;
  }
}

TEST(LinkFault, ACorruptedReplyFailsItsCheck) {
  Talk talk;
  talk.Machine.Faults().AtExchange(1, LinkFault::CorruptReply());
  talk.Write(ToWire({0x19}));
  const Bytes wire = talk.Read(8);
  ASSERT_EQ(wire.size(), 8U);
  EXPECT_EQ(wire, (Bytes{0x00, 0x2E, 0x43, 0x58 ^ 0x10, 0x6D, 0x82, 0x97, 0xE6}));
  EXPECT_EQ(talk.State(), 0);
}

TEST(LinkFault, ACorruptedFirstByteCanMakeAShortReplyLookLong) {
  Talk talk;
  talk.Machine.Faults().AtExchange(1, LinkFault::CorruptReply(0, 0x80));
  EXPECT_TRUE(talk.Ask({0x19}).empty());
  EXPECT_EQ(talk.Clock.Elapsed(), milliseconds(200));  // for the 128 bytes that never come
  EXPECT_EQ(talk.State(), 0);
}

TEST(LinkFault, ACutReplyIsShort) {
  Talk talk;
  talk.Machine.Faults().AtCommand(0x20, 1, LinkFault::CutReply(100));
  talk.Write(ToWire({0x20}));
  EXPECT_EQ(talk.Read(8).size(), 8U);
  EXPECT_EQ(talk.Read(128).size(), 92U);
  EXPECT_EQ(talk.Clock.Elapsed(), milliseconds(200));
  EXPECT_EQ(talk.Ask({0x20}).size(), 136U);
}

TEST(LinkFault, ALateReplyComesAheadOfTheNextOne) {
  Talk talk;
  talk.Machine.Faults().AtExchange(1, LinkFault::LateReply());
  EXPECT_TRUE(talk.Ask({0x1A}).empty());  // timed out, flushed: it is not there yet
  EXPECT_EQ(talk.Ask({0x19}).at(0), 0x1A);
  EXPECT_EQ(talk.Receive().at(0), 0x19);
}

TEST(LinkFault, ALateReplyIsClearedByAFlushAfterTheNextExchange) {
  Talk talk;
  talk.Machine.Faults().AtExchange(1, LinkFault::LateReply());
  EXPECT_TRUE(talk.Ask({0x1A}).empty());
  EXPECT_EQ(talk.Ask({0x1A}).at(0), 0x1A);  // the late one, as good as its own
  talk.Flush();
  EXPECT_EQ(talk.Ask({0x19}).at(0), 0x19);
}

TEST(LinkFault, ALateReplyCanAlsoBeReadWithoutAnotherCommand) {
  Talk talk;
  talk.Machine.Faults().AtExchange(1, LinkFault::LateReply());
  talk.Write(ToWire({0x1A}));
  EXPECT_TRUE(talk.Read(8).empty());
  EXPECT_EQ(talk.Read(8).size(), 8U);
}

TEST(LinkFault, AShiftedReplyRecoversWithAFlush) {
  Talk talk;
  talk.Machine.Faults().AtExchange(1, LinkFault::ShiftReply());
  talk.Write(ToWire({0x19}));
  // A stray byte, then 00 2E 43 58 6D 82 97 E6.
  EXPECT_EQ(talk.Read(8), (Bytes{0x55, 0x00, 0x2E, 0x43, 0x58, 0x6D, 0x82, 0x97}));
  EXPECT_EQ(talk.Read(1), (Bytes{0xE6}));
  EXPECT_EQ(talk.State(), 0);
}

TEST(LinkFault, AReplacedCodeIsAGoodFrameOfAnotherKind) {
  Talk talk;
  talk.Machine.Faults().AtExchange(1, LinkFault::ReplaceCode(0x19));
  EXPECT_EQ(talk.Ask(DealFrame(RandomBoard(5))).at(0), 0x19);
  EXPECT_TRUE(talk.Machine.Busy());
  talk.Machine.Faults().AtExchange(2, LinkFault::ReplaceCode(0x9C));
  EXPECT_EQ(talk.Ask({0x19}).size(), 136U);
}

TEST(LinkFault, OccurrencesOfACommandAreCountedFromTheRequest) {
  Talk talk;
  talk.Status();
  talk.Machine.Faults().AtCommand(0x19, 2, LinkFault::LoseReply());
  EXPECT_FALSE(talk.Status().empty());
  EXPECT_FALSE(talk.Ask({0x1A}).empty());
  EXPECT_TRUE(talk.Status().empty());
  EXPECT_FALSE(talk.Status().empty());
  EXPECT_EQ(talk.Machine.Faults().Exchanges(), 5);
}

TEST(LinkFault, SilenceLastsUntilItIsLifted) {
  Talk talk;
  talk.Machine.Faults().SilentFrom(2);
  EXPECT_FALSE(talk.Status().empty());
  for (int i = 0; i < 3; ++i) EXPECT_TRUE(talk.Status().empty());
  talk.Machine.Faults().Clear();
  EXPECT_FALSE(talk.Status().empty());
  talk.Machine.Faults().SilentFromNow();
  EXPECT_TRUE(talk.Status().empty());
}

/// An exchange with its second try. Empty when the link counts as lost.
Bytes TwoTries(Talk& talk, const Bytes& plain, std::uint8_t code) {
  for (int tries = 1; tries <= 2; ++tries) {
    const Bytes reply = talk.Ask(plain);
    if (!reply.empty() && reply[0] == code) return reply;
  }
  return {};
}

TEST(Noise, NeverDealsAnythingButTheBoardAskedFor) {
  int dealt = 0;
  int retried = 0;
  for (std::uint64_t seed = 1; seed <= 400; ++seed) {
    Options options = Talk::Fast(seed);
    options.Noise = 0.004;  // four long frames in ten arrive with a changed byte
    Talk talk(options);
    const Board board = RandomBoard(seed);
    const bool accepted = !TwoTries(talk, DealFrame(board), 0x18).empty();
    retried += talk.Clock.Elapsed().count() > 0 ? 1 : 0;
    if (!accepted) continue;
    for (int poll = 0; poll < 200 && talk.Machine.Busy(); ++poll) talk.Status();
    if (talk.Machine.BoardsDealt() == 0) continue;
    ++dealt;
    EXPECT_EQ(talk.Machine.DealtBoard().Cards, board.Cards) << seed;
  }
  EXPECT_GT(dealt, 200);
  EXPECT_GT(retried, 100);
}

TEST(Noise, IsTheSameForTheSameSeed) {
  const auto talkOn = [](std::uint64_t seed) {
    Options options = Talk::Fast(seed);
    options.Noise = 0.05;
    Talk talk(options);
    std::string heard;
    for (int i = 0; i < 200; ++i) heard += talk.Status().empty() ? '-' : '+';
    return heard;
  };
  EXPECT_EQ(talkOn(3), talkOn(3));
  EXPECT_NE(talkOn(3), talkOn(4));
  // 16 bytes both ways at 5%: fewer than half of the exchanges come through whole.
  const std::string heard = talkOn(3);
  const auto lost = std::count(heard.begin(), heard.end(), '-');
  EXPECT_GT(lost, 80);
  EXPECT_LT(lost, 150);
}

TEST(Noise, LeavesThePacksOfASeedAlone) {
  const auto log = [](double noise) {
    Options options = Talk::Fast(8);
    options.Noise = noise;
    Talk talk(options);
    while (!talk.Machine.Busy()) talk.Ask(DealFrame(RandomBoard(5)));
    while (talk.Machine.Busy()) talk.Status();
    return talk.Machine.CardsByPocket();
  };
  EXPECT_EQ(log(0.0), log(0.002));
}

TEST(Bridge, IsOneDeviceWithAMachinesSerialString) {
  Talk talk;
  std::uint32_t count = 0;
  EXPECT_EQ(talk.Machine.GetNumDevices(count), 0);
  EXPECT_EQ(count, 1U);
  UsbXpress::ProductString text;
  text.fill('x');
  EXPECT_EQ(talk.Machine.GetProductString(0, text, 0), 0);
  EXPECT_EQ(std::string(text.data(), 4), "4711");
  EXPECT_NE(text[4], '\0');
  EXPECT_EQ(text[5], '\0');
  EXPECT_NE(talk.Machine.GetProductString(1, text, 0), 0);
}

TEST(Bridge, IsNewEnough) {
  Talk talk;
  std::uint32_t high = 0;
  std::uint32_t low = 1;
  EXPECT_EQ(talk.Machine.GetDllVersion(high, low), 0);
  EXPECT_EQ(talk.Machine.GetDriverVersion(high, low), 0);
  EXPECT_GE(high, 0x30001U);
}

TEST(Bridge, TakesTheSpeedOfTheLineAndNoOther) {
  test::VirtualClock clock;
  SimulatedMachine machine(Talk::Fast(), clock);
  UsbXpress::Handle handle = -1;
  ASSERT_EQ(machine.Open(0, handle), 0);
  EXPECT_EQ(machine.SetBaudRate(handle, 115200), 0);
  EXPECT_EQ(machine.SetBaudRate(handle, 9600), UsbXpress::kInvalidParameter);
}

TEST(Bridge, UnreadRepliesBeyondItsBufferAreLost) {
  Talk talk;
  for (int i = 0; i < 40; ++i) talk.Write(ToWire({0x20}));  // 40 x 136 bytes
  EXPECT_EQ(talk.Read(6000).size(), 4096U);
  EXPECT_EQ(talk.State(), 0);
}

}  // namespace
}  // namespace morvane::simulator
