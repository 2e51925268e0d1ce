#include "bridges/trace/playback.h"

#include <filesystem>

#include "bridges/replay_desk.h"
#include "wire/service_commands.h"

namespace morvane::bridges {
namespace {

using test::Long;
using test::Short;
using ::testing::HasSubstr;
using ::testing::StartsWith;
using wire::StatusCommand;

using PlaybackTest = ReplayDesk;

const test::Bytes kAskVersion = Short({0x1A});
const test::Bytes kVersion290 = Short({0x1A, 2, 0x90});

TraceLine Written(const test::Bytes& bytes) {
  TraceLine line;
  line.What = Operation::kWrite;
  line.Numbers = {7};
  line.Bytes = bytes;
  return line;
}

TEST_F(PlaybackTest, ACommandIsAnsweredAsInTheTraceWhateverItsFiller) {
  Play(WrittenTrace().Exchange(Short({0x1A, 0, 9, 9, 9, 9, 9}), kVersion290).End());
  const auto reply = machine->Exchange(wire::VersionCommand{});
  ASSERT_TRUE(reply);
  EXPECT_EQ(reply->FirmwareMinor, 0x90);
  EXPECT_EQ(Played(), 2U);
  EXPECT_EQ(Trouble(), "");
}

TEST_F(PlaybackTest, AReplyThatWasLostIsLostAgain) {
  Play(WrittenTrace().Send(kAskVersion).Silence().Exchange(kAskVersion, kVersion290).End());
  EXPECT_TRUE(machine->Exchange(wire::VersionCommand{}));
  EXPECT_EQ(Played(), 5U);
}

TEST_F(PlaybackTest, PollsMoreThanTheTraceHasAreAnsweredAsTheLastOne) {
  Play(WrittenTrace().Poll().Exchange(kAskVersion, kVersion290).End());
  for (int poll = 0; poll < 100; ++poll) ASSERT_EQ(Polled(), 0);
  EXPECT_EQ(Played(), 2U);
  EXPECT_TRUE(machine->Exchange(wire::VersionCommand{}));
  EXPECT_EQ(Trouble(), "");
}

TEST_F(PlaybackTest, BeforeTheFirstPollOfTheTraceTheMachineIsIdle) {
  Play(WrittenTrace().Exchange(kAskVersion, kVersion290).BusyPoll().End());
  EXPECT_EQ(Polled(), 0);
  EXPECT_EQ(Polled(StatusCommand::kPedalAck), 0);
  EXPECT_EQ(Played(), 0U);
  EXPECT_TRUE(machine->Exchange(wire::VersionCommand{}));
  EXPECT_EQ(Polled(), 255);
}

TEST_F(PlaybackTest, PollsThatTheProgramDoesNotSendArePassedOver) {
  WrittenTrace trace;
  for (int poll = 0; poll < 100; ++poll) trace.Poll();
  Play(trace.Exchange(kAskVersion, kVersion290).End());
  EXPECT_EQ(Polled(), 0);
  EXPECT_TRUE(machine->Exchange(wire::VersionCommand{}));
  EXPECT_EQ(Played(), 202U);
}

TEST_F(PlaybackTest, TheLinkMayBeLeftSoonerOrLaterToo) {
  Play(WrittenTrace().Poll().Poll().Poll().Leaving().End());
  EXPECT_EQ(Polled(), 0);
  machine->Link.MachineLatchOff();
  machine->Link.CloseLink();
  EXPECT_EQ(Played(), 8U);
  EXPECT_EQ(Trouble(), "");
}

TEST_F(PlaybackTest, APressOfThePedalIsToldOnce) {
  Play(WrittenTrace().Poll().Poll(0, 8).Exchange(kAskVersion, kVersion290).End());
  EXPECT_EQ(Polled(), 0);
  EXPECT_EQ(Polled(), 0);
  EXPECT_EQ(machine->PedalFlag, 1);
  EXPECT_EQ(Polled(), 0);
  EXPECT_EQ(machine->PedalFlag, 0);
}

TEST_F(PlaybackTest, APollWithOtherFlagsIsAnsweredAsWell) {
  Play(WrittenTrace().Poll().Exchange(kAskVersion, kVersion290).End());
  EXPECT_EQ(Polled(), 0);
  EXPECT_EQ(Polled(StatusCommand::kPedalAck | StatusCommand::kBoxAck), 0);
  EXPECT_EQ(Trouble(), "");
}

/// A run that begins, is busy for a poll, and is over at the next.
WrittenTrace WithARun(WrittenTrace trace, std::uint8_t acknowledged) {
  const test::Bytes deal = Long({0x98, 0, 0, 0, 11, 36, 0, 0});
  trace.Exchange(deal, Short({0x18})).BusyPoll(acknowledged).BusyPoll().Poll();
  return trace.Exchange(kAskVersion, kVersion290).End();
}

TEST_F(PlaybackTest, APedalThatStartedTheRunThenMayBeAButtonNow) {
  Play(WithARun(WrittenTrace().Poll().Poll(0, 8), StatusCommand::kPedalAck));
  EXPECT_EQ(Polled(), 0);
  EXPECT_TRUE(machine->Exchange(wire::StartCommand{}));
  EXPECT_EQ(Polled(), 255) << "not idle as before the run, which would be its end";
  EXPECT_EQ(Polled(), 255);
  EXPECT_EQ(Polled(), 0);
  EXPECT_TRUE(machine->Exchange(wire::VersionCommand{}));
  EXPECT_EQ(Trouble(), "");
}

TEST_F(PlaybackTest, APressMayBeAcknowledgedThatTheTraceHasNot) {
  Play(WithARun(WrittenTrace().Poll(), 0));
  EXPECT_EQ(Polled(), 0);
  EXPECT_TRUE(machine->Exchange(wire::StartCommand{}));
  EXPECT_EQ(Polled(StatusCommand::kPedalAck | StatusCommand::kBoxAck), 255);
  EXPECT_EQ(Polled(), 255);
  EXPECT_EQ(Polled(), 0);
  EXPECT_EQ(Trouble(), "");
}

TEST_F(PlaybackTest, BehindARunTheMachineIsIdle) {
  WrittenTrace trace;
  trace.BusyPoll().Exchange(kAskVersion, kVersion290).Exchange(kAskVersion, kVersion290);
  Play(trace.End());
  EXPECT_EQ(Polled(), 255);
  EXPECT_TRUE(machine->Exchange(wire::VersionCommand{}));
  EXPECT_EQ(Polled(), 0) << "the trace has none here";
  EXPECT_TRUE(machine->Exchange(wire::VersionCommand{}));
  EXPECT_EQ(Trouble(), "");
}

TEST_F(PlaybackTest, WhatTheMachineWasAtBeforeItWasOpenedAgainIsForgotten) {
  Play(WrittenTrace().BusyPoll().Add(Operation::kOpen, {0, 7}).Flush().Leaving().End());
  EXPECT_EQ(Polled(), 255);
  UsbXpress::Handle handle = 0;
  EXPECT_EQ(bridge->Open(0, handle), UsbXpress::kSuccess);
  EXPECT_EQ(Polled(), 0);
  EXPECT_EQ(Trouble(), "");
}

TEST_F(PlaybackTest, ABreakComesWhereTheTraceHasIt) {
  WrittenTrace trace;
  trace.BusyPoll().BusyPoll().BusyPoll();
  Play(trace.BusyPoll(StatusCommand::kBreak).Poll().Exchange(kAskVersion, kVersion290).End());
  EXPECT_EQ(Polled(), 255);
  EXPECT_EQ(Polled(StatusCommand::kBreak), 255) << "sooner than then";
  EXPECT_EQ(Played(), 8U);
  EXPECT_EQ(Polled(), 0);
}

TEST_F(PlaybackTest, AMachineThatIsBusyForEverIsADifference) {
  Play(WrittenTrace().BusyPoll().BusyPoll(StatusCommand::kBreak).Poll().End());
  int polls = 0;
  while (Polled() == 255 && polls < 100000) ++polls;
  EXPECT_LT(polls, 100000);
  EXPECT_THAT(Trouble(), HasSubstr("The trace: CmdStatus break: 19 01"));
  EXPECT_THAT(Trouble(), HasSubstr("The program: CmdStatus: 19 00"));
}

TEST_F(PlaybackTest, ThePollsOfTheConsoleMayComeMoreOrLessOftenToo) {
  const test::Bytes outputs = Short({0x17, 0x31, 0});
  const test::Bytes photos = Short({0x17, 1, 2, 3, 4, 5, 6});
  const test::Bytes motors = Short({0x1B, 0, 0});
  const test::Bytes motorReply = Short({0x1B, 0, 100, 101});
  WrittenTrace trace;
  for (int round = 0; round < 3; ++round)
    trace.Exchange(outputs, photos).Exchange(motors, motorReply);
  Play(trace.Exchange(kAskVersion, kVersion290).End());
  for (int round = 0; round < 5; ++round) {
    const auto reply = machine->Exchange(wire::OutputsCommand{0x31, false});
    ASSERT_TRUE(reply);
    EXPECT_EQ(reply->Photo[1], 1);
    ASSERT_TRUE(machine->Exchange(wire::kMotors1And2));
  }
  EXPECT_EQ(Played(), 12U);
  EXPECT_TRUE(machine->Exchange(wire::VersionCommand{}));
}

/// A console polls: `outputs` are switched, and what the photo sensor says tells when.
WrittenTrace& Round(WrittenTrace& trace, std::uint8_t outputs, std::uint8_t photo) {
  trace.Exchange(Short({0x17, outputs, 0}), Short({0x17, photo}));
  return trace.Exchange(Short({0x1B, 0, 0}), Short({0x1B, 0, photo}));
}

class PlayedConsole : public PlaybackTest {
 protected:
  /// Three rounds with other outputs in the middle one.
  PlayedConsole() {
    WrittenTrace trace;
    Round(trace, 0x31, 1);
    Round(trace, 0x33, 2);
    Round(trace, 0x31, 3);
    Play(trace.Exchange(kAskVersion, kVersion290).End());
  }
  /// What the photo sensor says to who switches `outputs`.
  [[nodiscard]] int Photo(std::uint8_t outputs) {
    const auto reply = machine->Exchange(wire::OutputsCommand{outputs, false});
    const bool alsoMotors = machine->Exchange(wire::kMotors1And2).has_value();
    return reply && alsoMotors ? reply->Photo[1] : -1;
  }
};

TEST_F(PlayedConsole, WhoSwitchesBackSoonerCatchesUp) {
  EXPECT_EQ(Photo(0x31), 1);
  EXPECT_EQ(Photo(0x31), 3) << "the round between is passed over";
  EXPECT_EQ(Played(), 12U);
  EXPECT_EQ(Photo(0x31), 3);
  EXPECT_EQ(Trouble(), "");
}

TEST_F(PlayedConsole, WhoSwitchesLaterIsWaitedFor) {
  EXPECT_EQ(Photo(0x31), 1);
  EXPECT_EQ(Photo(0x33), 2);
  for (int round = 0; round < 5; ++round) EXPECT_EQ(Photo(0x33), 2);
  EXPECT_EQ(Played(), 8U);
  EXPECT_EQ(Photo(0x31), 3);
  EXPECT_EQ(Played(), 12U);
}

TEST_F(PlayedConsole, WhoOnlyPollsForAWhileIsToldWhatTheTraceWaitsFor) {
  EXPECT_EQ(Photo(0x31), 1);
  EXPECT_EQ(Photo(0x31), 3);
  for (int round = 1; round < 25; ++round) EXPECT_EQ(Photo(0x31), 3);
  EXPECT_EQ(bridge->Play().Waiting(), "") << "48 polls";
  EXPECT_EQ(Photo(0x31), 3);
  EXPECT_EQ(bridge->Play().Waiting(), "The trace waits for CmdVersion.");
  EXPECT_TRUE(machine->Exchange(wire::VersionCommand{}));
  EXPECT_EQ(bridge->Play().Waiting(), "");
}

TEST_F(PlaybackTest, ACardThatIsFedIsNoPoll) {
  const test::Bytes photos = Short({0x17, 1, 2, 3, 4, 5, 6});
  Play(WrittenTrace()
           .Exchange(Short({0x17, 0x31, 1}), photos)
           .Exchange(kAskVersion, kVersion290)
           .End());
  EXPECT_TRUE(machine->Exchange(wire::OutputsCommand{0x31, true}));
  machine->Exchange(wire::OutputsCommand{0x31, true});
  EXPECT_THAT(Trouble(), HasSubstr("The program: CmdOutputs 0x31 feed"));
}

TEST_F(PlaybackTest, APollWithMoreReadsThanAreKeptIsNotGivenAgain) {
  WrittenTrace trace;
  trace.Send(Short({0x17, 0x31, 0}));
  for (int read = 0; read < 8; ++read) trace.Add(Operation::kRead, {7, 8}, {1});
  Play(trace.Reply(Short({0x17, 1})).Exchange(kAskVersion, kVersion290).End());
  std::uint32_t number = 0;
  const test::Bytes ask = test::OnTheWire(Short({0x17, 0x31, 0}), 23);
  EXPECT_EQ(bridge->Write(7, ask, number), UsbXpress::kSuccess);
  test::Bytes bytes(8);
  for (int read = 0; read < 9; ++read) bridge->Read(7, bytes, number);
  EXPECT_EQ(number, 8U) << "the reply, at last";
  EXPECT_EQ(bridge->Write(7, ask, number), UsbXpress::kInvalidHandle);
  EXPECT_THAT(Trouble(), HasSubstr("The program: CmdOutputs 0x31"));
}

TEST_F(PlaybackTest, WhatWasLeftOutIsCounted) {
  Play(WrittenTrace().Poll().Exchange(kAskVersion, kVersion290).Poll().Leaving().End());
  EXPECT_EQ(bridge->Play().LeftOver(), "1 of 9 operations were played.");
  EXPECT_EQ(Polled(), 0);
  EXPECT_EQ(bridge->Play().LeftOver(), "3 of 9 operations were played.");
  EXPECT_TRUE(machine->Exchange(wire::VersionCommand{}));
  EXPECT_EQ(bridge->Play().LeftOver(), "") << "only polls and the leaving are left";
}

TEST_F(PlaybackTest, AFlushMoreOrLessIsNoDifference) {
  Play(WrittenTrace().Flush().Exchange(kAskVersion, kVersion290).Flush().Flush().Poll().End());
  EXPECT_TRUE(machine->Exchange(wire::VersionCommand{}));
  for (int flush = 0; flush < 5; ++flush) machine->Link.FlushLink();
  EXPECT_EQ(Polled(), 0);
  EXPECT_EQ(Trouble(), "");
}

TEST_F(PlaybackTest, AnotherCommandIsADifferenceThatShowsBothFrames) {
  Play(WrittenTrace().Poll().Exchange(kAskVersion, kVersion290).End());
  TraceReader reader;
  ASSERT_EQ(reader.Open(path), std::nullopt);
  Playback playback(std::move(reader));
  EXPECT_FALSE(playback.Answer(Written(test::OnTheWire(Short({0x12, 1, 2, 3, 4, 5, 6}), 23))));
  EXPECT_EQ(playback.Trouble(), path +
                                    ", line 8\n"
                                    "The program does something else than the trace has.\n"
                                    "The trace: CmdVersion: 1A 00 00 00 00 00 00 00\n"
                                    "The program: CmdIdentity page 1: 12 01 02 03 04 05 06 00\n"
                                    "They differ at byte 0.");
  EXPECT_EQ(playback.Advice(),
            path + ", line 8\nThe program does something else than the trace has.");
}

TEST_F(PlaybackTest, AnotherHandListIsADifferenceAtItsFirstCard) {
  test::Bytes deal = Long({0x98, 0, 0, 0, 11, 36, 0, 0});
  std::fill(deal.begin() + 8, deal.begin() + 60, std::uint8_t{1});
  Play(WrittenTrace().Exchange(deal, Short({0x18})).End());
  wire::StartCommand start;
  start.Pockets.Bytes.fill(1);
  start.Pockets.Bytes[12] = 2;
  EXPECT_FALSE(machine->Exchange(start));
  EXPECT_THAT(Trouble(), StartsWith(path + ", line 6\n"));
  EXPECT_THAT(Trouble(), HasSubstr("They differ at byte 20."));
}

TEST_F(PlaybackTest, WhereTheTraceHasNoHandsTheyDoNotCount) {
  WrittenTrace trace({"2026-03-03 15:04:05.123", "usb", 1, true});
  const test::Bytes blank = Long({0x98, 0, 0, 0, 11, 36, 0, 0});
  Play(trace.Exchange(blank, Short({0x18})).Exchange(blank, Short({0x18})).End());
  wire::StartCommand start;
  start.Pockets.Bytes.fill(3);
  EXPECT_TRUE(machine->Exchange(start));
  start.Continue = true;
  EXPECT_FALSE(machine->Exchange(start)) << "all else does";
  EXPECT_THAT(Trouble(), HasSubstr("They differ at byte 1."));
}

TEST_F(PlaybackTest, AnotherOperationIsADifferenceInWords) {
  Play(WrittenTrace().Add(Operation::kSetTimeouts, {200, 200}).End());
  machine->Link.SetLinkTimeouts(400);
  EXPECT_THAT(Trouble(), HasSubstr("The trace: SetTimeouts 200 200\n"
                                   "The program: SetTimeouts 400 400"));
}

TEST_F(PlaybackTest, BehindADifferenceNothingIsAnswered) {
  Play(WrittenTrace().Exchange(kAskVersion, kVersion290).Poll().End());
  EXPECT_FALSE(machine->Exchange(wire::IdentityCommand{}));
  const std::string first = Trouble();
  EXPECT_FALSE(machine->Exchange(wire::VersionCommand{})) << "which the trace would have";
  EXPECT_TRUE(machine->Lost());
  EXPECT_EQ(Trouble(), first);
}

TEST_F(PlaybackTest, BehindTheEndItSaysThatTheTraceEndsHere) {
  Play(WrittenTrace().Poll().End());
  EXPECT_EQ(Polled(), 0);
  EXPECT_EQ(Trouble(), "") << "it has only just been reached";
  EXPECT_EQ(Polled(), -1);
  EXPECT_EQ(Trouble(), "The trace ends here, at " + path +
                           ", line 7.\nWhat the program does from here on is not in it.");
}

TEST_F(PlaybackTest, WhereItsWriterWasKilledItSaysSo) {
  Play(WrittenTrace().Poll());
  EXPECT_EQ(Polled(), 0);
  EXPECT_EQ(Polled(), -1);
  EXPECT_EQ(
      Trouble(),
      "The trace ends here, at " + path +
          ", line 7.\nThe program that wrote it did not come to its end, or could write no more.");
}

TEST_F(PlaybackTest, WhereTheFileIsCutMeanwhileItSaysSo) {
  WrittenTrace trace;
  for (int poll = 0; poll < 1000; ++poll) trace.Poll();
  Play(trace);
  std::filesystem::resize_file(path, trace.Text().size() / 2);
  while (Polled() == 0) {
  }
  EXPECT_THAT(Trouble(), StartsWith("The trace cannot be read on.\n" + path + ", line "));
}

TEST_F(PlaybackTest, WhatPassesIsNotedInWords) {
  Play(WrittenTrace()
           .Exchange(kAskVersion, kVersion290)
           .Poll()
           .Exchange(kAskVersion, kVersion290)
           .End());
  machine->Exchange(wire::VersionCommand{});
  for (int poll = 0; poll < 3; ++poll) static_cast<void>(Polled());
  const auto& frames = bridge->Play().Frames();
  ASSERT_EQ(frames.Count(), 2U);
  EXPECT_EQ(frames.Text(0), "CmdVersion -> version: 2.90");
  EXPECT_EQ(frames.Text(1), "3 x CmdStatus -> status: idle, 0 0 0 0");
}

TEST_F(PlaybackTest, BytesThatAreNoFrameAreHeldAgainstEachOtherAsTheyAre) {
  Play(WrittenTrace().Add(Operation::kWrite, {7, 3}, {1, 2, 3}).End());
  TraceReader reader;
  ASSERT_EQ(reader.Open(path), std::nullopt);
  Playback playback(std::move(reader));
  EXPECT_FALSE(playback.Answer(Written({1, 2, 4})));
  EXPECT_THAT(playback.Trouble(), HasSubstr("The trace: bytes that are no frame: 01 02 03\n"
                                            "The program: bytes that are no frame: 01 02 04"));
}

}  // namespace
}  // namespace morvane::bridges
