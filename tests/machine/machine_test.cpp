#include "machine/machine.h"

#include "machine/card_run.h"
#include "machine/card_settings.h"
#include "machine/gates.h"
#include "machine/hand_list.h"
#include "support/fakes.h"
#include "support/scripted_bridge.h"
#include "wire/flash_commands.h"

namespace morvane::machine {
namespace {

using namespace wire;
using test::Bytes;
using test::Long;
using test::ScriptedBridge;
using test::Short;
using test::TestDesk;
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

class MachineTest : public ::testing::Test {
 protected:
  TestDesk desk;
  ScriptedBridge bridge{desk.Clock};
  Machine machine{desk.Random, bridge};

  /// Exchanges a poll that is answered by `reply`.
  bool Poll(const Bytes& reply) {
    bridge.Replies = {reply};
    machine.Exchange(StatusCommand{});
    return !machine.Lost();
  }
};

using Exchange = MachineTest;
using MachineReplies = MachineTest;
using Gates = MachineTest;

TEST_F(Exchange, OneGoodReplyIsOneTry) {
  EXPECT_TRUE(Poll(Short({0x19, 0})));
  EXPECT_THAT(bridge.Sent, SizeIs(1));
  EXPECT_FALSE(machine.Lost());
}

TEST_F(Exchange, ALostReplyIsRepeatedWithOtherFiller) {
  bridge.Replies = {{}, Short({0x19, 0})};
  EXPECT_TRUE(machine.Exchange(StatusCommand{6}));
  ASSERT_THAT(bridge.Sent, SizeIs(2));
  EXPECT_EQ(bridge.Sent[0][1], 6);
  EXPECT_EQ(bridge.Sent[1][1], 6);
  EXPECT_NE(Bytes(bridge.Sent[0].begin() + 2, bridge.Sent[0].begin() + 7),
            Bytes(bridge.Sent[1].begin() + 2, bridge.Sent[1].begin() + 7));
}

TEST_F(Exchange, TwoLostRepliesAreALostLink) {
  EXPECT_FALSE(machine.Exchange(StatusCommand{}));
  EXPECT_THAT(bridge.Sent, SizeIs(2));
  EXPECT_TRUE(machine.Lost());
}

TEST_F(Exchange, EachBadTryIsHeardOfWithWhatWasReceived) {
  Bytes spoilt = test::OnTheWire(Short({0x19, 0}), 21);
  spoilt[3] ^= 1U;
  std::deque<Bytes> answers{spoilt, {}, test::OnTheWire(Short({0x1A, 0}), 21)};
  bridge.Answer = [&](const Bytes&) {
    const Bytes answer = answers.front();
    answers.pop_front();
    return answer;
  };
  std::vector<int> heard;
  const auto note = [&](MachineLink::Receive received) { heard.push_back(received); };
  EXPECT_FALSE(machine.Exchange(
      StatusCommand{}, [] {}, note));
  EXPECT_THAT(heard, ElementsAre(MachineLink::kBadCheck, MachineLink::kTooShort));
  heard.clear();
  EXPECT_TRUE(machine.Exchange(
      wire::VersionCommand{}, [] {}, note));
  EXPECT_THAT(heard, IsEmpty());
}

TEST_F(Exchange, ACommandCanAskForARandomPayload) {
  bridge.Replies = {Short({0x2D, 0})};
  EXPECT_TRUE(machine.Exchange(wire::WriteRecordCommand{}));
  const Bytes& sent = bridge.Sent.at(0);
  EXPECT_EQ(Bytes(sent.begin() + 8, sent.begin() + 16), Bytes(8, 0)) << "the record";
  EXPECT_NE(Bytes(sent.begin() + 16, sent.begin() + 76), Bytes(sent.begin() + 76, sent.end()));
  EXPECT_NE(Bytes(sent.begin() + 16, sent.begin() + 76), Bytes(60, sent[16]));
}

TEST_F(Exchange, EachBeginsWithoutErrors) {
  machine.Link.CommErrorCount = 1;
  std::vector<int> counts;
  bridge.Answer = [&](const Bytes&) {
    counts.push_back(machine.Link.CommErrorCount);
    return Bytes{};
  };
  machine.Exchange(StatusCommand{});
  EXPECT_THAT(counts, ElementsAre(0, 1));
}

TEST_F(Exchange, AfterASecondTryTheLateReplyIsFlushedAway) {
  bridge.Replies = {{}, Short({0x19, 0})};
  machine.Exchange(StatusCommand{});
  const Bytes late = test::OnTheWire(Short({0x19, 57}), 21);
  bridge.Unread = late;  // the first try's reply, at last
  bridge.Replies = {Short({0x19, 0})};
  EXPECT_TRUE(machine.Exchange(StatusCommand{}));
  EXPECT_EQ(machine.MachineError, 0);
}

TEST_F(Exchange, AStartCountsAsAcceptedOnlyByItsOwnReply) {
  bridge.Replies = {Short({0x19, 0}), Short({0x18})};
  EXPECT_TRUE(machine.Exchange(StartCommand{}));
  EXPECT_EQ(machine.MachineState, Machine::kBusy);
  EXPECT_THAT(bridge.Sent, SizeIs(2));
  EXPECT_THAT(bridge.Calls, Contains("FlushBuffers 1 1")) << "more of the wrong reply may follow";

  machine.MachineState = Machine::kIdle;
  bridge.Replies = {Short({0x19, 57}), Short({0x19, 57})};
  EXPECT_FALSE(machine.Exchange(StartCommand{}));
  EXPECT_TRUE(machine.Lost());
  EXPECT_EQ(machine.MachineState, Machine::kIdle);
  EXPECT_EQ(machine.MachineError, 0);
}

TEST_F(Exchange, ABoardCountsAsReadOnlyByItsOwnReply) {
  machine.MachineState = Machine::kBusy;
  bridge.Replies = {Short({0x19, 0}), {}};
  EXPECT_FALSE(machine.Exchange(FetchBoardCommand{}));
  EXPECT_TRUE(machine.Lost());
  EXPECT_EQ(machine.MachineState, Machine::kBusy) << "the wrong reply says nothing either";
}

TEST_F(Exchange, APollAnsweredByAnotherGoodFrameIsOneTryAndChangesNothing) {
  machine.MachineState = Machine::kIdle;
  machine.Version.FirmwareMajor = 2;
  for (const Bytes& other :
       {Long({0x9D, 57}), Short({0x66, 57}), Short({0x18, 57}), Short({0x1A, 57, 57}),
        Short({0x12, 1, 57}), Long({0xA0, 57}), Long({0xB3, 57}), Short({0x1B, 4, 57})}) {
    bridge.Sent.clear();
    bridge.Calls.clear();
    bridge.Replies = {other};
    EXPECT_FALSE(machine.Exchange(machine.Poll())) << int{other[0]};
    EXPECT_FALSE(machine.Lost());
    EXPECT_THAT(bridge.Sent, SizeIs(1));
    EXPECT_THAT(bridge.Calls, IsEmpty());
    EXPECT_EQ(machine.MachineState, Machine::kIdle);
    EXPECT_EQ(machine.MachineError, 0);
    EXPECT_EQ(machine.Version.FirmwareMajor, 2);
    EXPECT_EQ(machine.SerialNumber, 0U);
  }
}

TEST_F(Exchange, FillerStaysBelow255) {
  for (int i = 0; i < 300; ++i) {
    Poll(Short({0x19}));
    EXPECT_LT(*std::max_element(bridge.Sent.back().begin() + 2, bridge.Sent.back().begin() + 7),
              255);
  }
}

TEST_F(MachineReplies, StatusOf0IsIdleF0IsAnErrorF1IsBusy) {
  Poll(Short({0x19, 0}));
  EXPECT_EQ(machine.MachineState, Machine::kIdle);
  Poll(Short({0x19, 0xF0}));
  EXPECT_EQ(machine.MachineState, Machine::kError);
  EXPECT_EQ(machine.MachineError, 240);
  Poll(Short({0x19, 0xF1}));
  EXPECT_EQ(machine.MachineState, Machine::kBusy);
}

TEST_F(MachineReplies, ALongStatusIsReadAlike) {
  EXPECT_TRUE(Poll(Long({0x9C, 57, 0, 0, 0, 0, 0x08})));
  EXPECT_EQ(machine.MachineError, 57);
  EXPECT_EQ(machine.PedalFlag, 1);
}

TEST_F(MachineReplies, CountsAreTakenOnlyWhileBusy) {
  Poll(Short({0x19, 0xFF, 5, 6, 7, 8}));  // was not busy before
  EXPECT_THAT(machine.CardCount, ElementsAre(0, 0, 0, 0, 0));
  Poll(Short({0x19, 0, 5, 6, 7, 0xC8}));  // was busy: the last counts come with the idle report
  EXPECT_THAT(machine.CardCount, ElementsAre(0, 5, 6, 7, 8));
}

TEST_F(MachineReplies, SlotTicksAreNotedAtTheInsertionAndRestartedByTheSlot) {
  machine.BoxOutTicks = 7;
  Poll(Short({0x19, 0, 0, 0, 0, 0, 0x14}));
  EXPECT_EQ(machine.BoxInTicks, 7);
  EXPECT_EQ(machine.BoxOutTicks, 0);
  EXPECT_EQ(machine.BoxFlag, 1);
}

TEST_F(MachineReplies, EventsAreAcknowledgedWithTheNextPoll) {
  EXPECT_EQ(machine.Poll().Flags, 0);
  machine.PedalFlag = 1;
  EXPECT_EQ(machine.Poll().Flags, 2);
  machine.BoxFlag = 2;
  EXPECT_EQ(machine.Poll().Flags, 6);
}

TEST_F(MachineReplies, VersionAndIdentityAndCounter) {
  bridge.Replies = {Short({0x1A, 2, 0x90, 1, 0x12, 5}), Short({0x12, 1, 0x12, 0x67, 0, 0x0C}),
                    Short({0x12, 2, 3, 4, 7, 0xEA}), Long({0xB3, 0, 0, 0, 0, 0, 0, 0, 0, 1, 0, 2}),
                    Long({0xB3, 0, 1, 0, 0, 0, 0, 0, 9, 9, 9, 9})};
  EXPECT_TRUE(machine.VersionProbe());
  EXPECT_EQ(machine.MachineState, Machine::kIdle);
  machine.Exchange(IdentityCommand{1});
  machine.Exchange(IdentityCommand{2});
  const auto boardsDealt = machine.Exchange(CounterCommand{0});
  const auto other = machine.Exchange(CounterCommand{1});
  EXPECT_EQ(machine.FirmwareVersion(), "2.90");
  EXPECT_EQ(machine.Version.BootMinor, 0x12);
  EXPECT_EQ(machine.Version.Flash, 5);
  EXPECT_EQ(machine.SerialNumber, 4711U);
  EXPECT_EQ(machine.HardwareId, 12U);
  ASSERT_TRUE(boardsDealt && other);
  EXPECT_EQ(boardsDealt->Value, 0x10002U);
  EXPECT_EQ(other->Counter, 1) << "another counter is not the one of boards dealt";
}

TEST_F(MachineReplies, AVersionThatDoesNotComeLeavesTheMachineDown) {
  EXPECT_FALSE(machine.VersionProbe());
  EXPECT_EQ(machine.MachineState, Machine::kNoVersion);
}

TEST_F(MachineReplies, ASensorEchoesItsSelectorInSixBits) {
  bridge.Replies = {Short({0x1B, 0xC4, 23}), Short({0x1B, 3, 15})};
  const auto label = machine.Exchange(SensorCommand{4});
  ASSERT_TRUE(label);
  EXPECT_EQ(label->Selector, 4);
  EXPECT_EQ(label->Value, 23);
  const auto other = machine.Exchange(SensorCommand{3});
  ASSERT_TRUE(other);
  EXPECT_EQ(other->Selector, 3);
}

TEST_F(MachineReplies, ABoardReadGoesToItsHandsByPocket) {
  Bytes board = Long({0x9D});
  std::fill_n(board.begin() + 8, 13, std::uint8_t{4});   // spades: North
  std::fill_n(board.begin() + 21, 13, std::uint8_t{3});  // hearts: East
  std::fill_n(board.begin() + 34, 13, std::uint8_t{1});  // diamonds: South
  std::fill_n(board.begin() + 47, 13, std::uint8_t{2});  // clubs: West
  board[8] = 0;                                          // the Two of Spades was not seen
  board[59] = 9;                                         // no pocket at all
  bridge.Replies = {board};
  const auto reply = machine.Exchange(FetchBoardCommand{});
  ASSERT_TRUE(reply);
  Board read = test::RoundBoard(1);
  TakeHandList(reply->Pockets, read);
  EXPECT_EQ(read.Cards[13], 0);
  EXPECT_EQ(read.Cards[1], kNorth);
  EXPECT_EQ(read.Cards[14], kEast);
  EXPECT_EQ(read.Cards[27], kSouth);
  EXPECT_EQ(read.Cards[52], kWest);
  EXPECT_EQ(read.Cards[40], 0);
  EXPECT_EQ(read.Status, Board::kIncomplete);
}

TEST_F(MachineReplies, AHandListHasNoPocketForACardThatNobodyHolds) {
  Board board = test::RoundBoard(1);
  board.Cards[13] = 0;  // the Two of Spades
  const CardBytes list = HandListOf(board);
  EXPECT_EQ(list[MachineCard(1)], 0);
  EXPECT_EQ(list[MachineCard(13)], 4) << "the Ace of Spades is North's";
  EXPECT_EQ(list[MachineCard(53)], 0);
  Board back;
  TakeHandList(list, back);
  EXPECT_EQ(back.Cards, board.Cards);
}

TEST_F(MachineReplies, CardLogStartsAtTheTwoOfSpades) {
  CardRun run(desk.Loop, desk.Clock, machine, [] {});
  run.ClearCardLog();
  EXPECT_EQ(run.CardLog[MachineCard(1)], 99);
  EXPECT_EQ(run.CardLog[MachineCard(52)], 99);
  EXPECT_EQ(run.CardLog[MachineCard(53)], 0);
  Bytes log = Long({0xA0});
  log[8] = 7;
  bridge.Replies = {log};
  EXPECT_TRUE(run.FetchCardLog());
  EXPECT_EQ(run.CardLog[MachineCard(1)], 7);
  EXPECT_EQ(run.CardLog[MachineCard(2)], 0);
  EXPECT_FALSE(run.FetchCardLog()) << "nobody answers any more";
  EXPECT_EQ(run.CardLog[MachineCard(1)], 7);
}

TEST_F(Gates, FirmwareThreePassesAll) {
  machine.Version.FirmwareMajor = 3;
  for (const VersionGate& gate : {kReadGate, kSortGate, kNationalGate, kDanishGate, kSwedishGate,
                                  kCheckBoardOpenGate, kCheckBoardClickGate, kLargeIndexOpenGate,
                                  kSmallIndexClickGate, kAutoSetupGate, kTestDealGate}) {
    EXPECT_TRUE(Passes(machine, gate));
  }
}

TEST_F(Gates, FirmwareOneFailsAllButThoseOfMajorTwo) {
  machine.Version.FirmwareMajor = 1;
  machine.Version.FirmwareMinor = 0x99;
  for (const VersionGate& gate :
       {kReadGate, kSortGate, kNationalGate, kDanishGate, kSwedishGate, kCheckBoardOpenGate,
        kCheckBoardClickGate, kAutoSetupGate, kTestDealGate}) {
    EXPECT_FALSE(Passes(machine, gate));
  }
  for (const VersionGate& gate :
       {kLargeIndexOpenGate, kLargeIndexClickGate, kSmallIndexClickGate}) {
    EXPECT_TRUE(Passes(machine, gate));
  }
}

TEST_F(Gates, EachPassesFromItsByteOn) {
  struct Row {
    VersionGate Gate;
    std::uint8_t Minor;
  };
  machine.Version.FirmwareMajor = 2;
  for (const Row& row : {Row{kReadGate, 0x23},
                         {kSortGate, 0x69},
                         {kNationalGate, 0x27},
                         {kDanishGate, 0x32},
                         {kSwedishGate, 0x90},
                         {kCheckBoardOpenGate, 0x40},
                         {kCheckBoardClickGate, 0x3A},
                         {kLargeIndexClickGate, 0x40},
                         {kLargeIndexOpenGate, 0x40},
                         {kSmallIndexClickGate, 0x66},
                         {kAutoSetupGate, 0x80},
                         {kTestDealGate, 0x83}}) {
    machine.Version.FirmwareMinor = row.Minor;
    EXPECT_TRUE(Passes(machine, row.Gate)) << int{row.Minor};
    --machine.Version.FirmwareMinor;
    EXPECT_FALSE(Passes(machine, row.Gate)) << int{row.Minor};
  }
}

TEST_F(Gates, EachHasItsOwnText) {
  const Messages& texts = desk.Prog.Texts;
  const auto names = [&](const VersionGate& gate, const char* feature) {
    return (texts.*gate.Text).find(feature) != std::string::npos;
  };
  EXPECT_TRUE(names(kReadGate, "Read function requires Firmware version 2.24"));
  EXPECT_TRUE(names(kSortGate, "Sort function requires Firmware version 2.69"));
  EXPECT_TRUE(names(kNationalGate, "other than the standard requires Firmware version 2.27"));
  EXPECT_TRUE(names(kDanishGate, "Using Danish cards requires Firmware version 2.32"));
  EXPECT_TRUE(names(kSwedishGate, "Using Swedish cards requires Firmware version 2.90"));
  EXPECT_TRUE(
      names(kCheckBoardClickGate, "Using Board Number Check requires Firmware version 2.70"));
  EXPECT_TRUE(names(kLargeIndexClickGate, "with Large Index requires Firmware version 2.40"));
  EXPECT_TRUE(names(kSmallIndexClickGate, "with Small Index requires Firmware version 2.66"));
  EXPECT_TRUE(names(kAutoSetupGate, "AutoSetup function requires Firmware version 2.80"));
  EXPECT_TRUE(names(kTestDealGate, "Test Deal function requires Firmware version 2.83"));
}

TEST_F(Gates, BytesStandAlsoWhereTheirTextsDiffer) {
  machine.Version.FirmwareMajor = 2;
  machine.Version.FirmwareMinor = 0x23;
  EXPECT_TRUE(Passes(machine, kReadGate));  // though its text asks for 2.24
  machine.Version.FirmwareMinor = 0x22;
  EXPECT_FALSE(Passes(machine, kReadGate));
  machine.Version.FirmwareMinor = 0x3A;
  EXPECT_TRUE(Passes(machine, kCheckBoardClickGate));  // though its text asks for 2.70
  machine.Version.FirmwareMinor = 0x39;
  EXPECT_FALSE(Passes(machine, kCheckBoardClickGate));
  EXPECT_EQ(GateText(machine, desk.Prog.Texts, kReadGate).substr(0, 111),
            "      Read function requires Firmware version 2.24 or later.      \r\n"
            "      Current Firmware version is 2.39     ");
}

TEST(CardSettings, ConfigByteWorkedOut) {
  CardSettings cards;
  EXPECT_EQ(cards.CardConfig(), 0);
  EXPECT_EQ(cards.CardConfigExtra(), 0);
  EXPECT_EQ(cards.LogText(), "0,0,0,0");
  cards = {CardSettings::kSwedish, 1, CardSettings::kBold, CardSettings::kLargeIndex};
  EXPECT_EQ(cards.CardConfig(), 0x6D);  // 0110 1 10 1: Bold is bit 2
  EXPECT_EQ(cards.CardConfigExtra(), 0);
  EXPECT_EQ(cards.LogText(), "6,1,2,1");
  cards = {CardSettings::kGerman, 0, CardSettings::kFine, CardSettings::kSmallIndex};
  EXPECT_EQ(cards.CardConfig(), 0x36);  // 0011 0 11 0
  EXPECT_EQ(cards.CardConfigExtra(), 5);
  EXPECT_EQ(cards.LogText(), "3,0,1,2");
}

TEST(CardSettings, AreReadFromTheStoreAndWrongOnesCountAsStandard) {
  TestDesk desk;
  desk.Store.Set(kNational, "5");
  desk.Store.Set(kCardType, "2");
  desk.Store.Set(kThreshold, "x");
  desk.Store.Set(kCardIndex, "1");
  const CardSettings cards = CardSettings::Load(desk.Store);
  EXPECT_EQ(cards.National, CardSettings::kDanish);
  EXPECT_EQ(cards.CardType, 0);
  EXPECT_EQ(cards.Threshold, CardSettings::kNormal);
  EXPECT_EQ(cards.CardIndex, CardSettings::kLargeIndex);
}

}  // namespace
}  // namespace morvane::machine
