// Every frame of the service, with every fault of the line.

#include <gmock/gmock.h>

#include "simulator/talk.h"

namespace morvane::simulator {
namespace {

/// Everything that the service asks, and the first byte of the answer.
struct Asked {
  Bytes Plain;
  int Answer;
};

std::vector<Asked> AllAsked() {
  std::vector<Asked> all{{{26}, 26},
                         {{18, 1, 0}, 18},
                         {{18, 2, 0}, 18},
                         {{50}, 178},
                         {{35}, 35},
                         {{30}, 158},
                         {{23, 0x11, 0}, 23},
                         {{23, 0, 1}, 23},
                         {{41, 95}, 41},
                         {{170, 98}, 42},
                         {{44, 93, 0, 192, 0, 0, 0}, 44},
                         {{173, 92, 0, 192, 0, 0, 0}, 45},
                         {{43, 90, 0, 99, 99, 99, 99}, 43}};
  for (std::uint8_t subCode = 1; subCode <= 14; ++subCode) all.push_back({{17, subCode}, 17});
  for (std::uint8_t selector = 0; selector <= 4; ++selector) all.push_back({{27, selector, 0}, 27});
  for (std::uint8_t page = 0; page <= 7; ++page) all.push_back({{51, 0, page}, 179});
  return all;
}

/// Everything that it writes.
std::vector<Bytes> AllWritten() {
  std::vector<Bytes> all{{36, 12, 200, 0, 0, 0, 0},
                         {52, 0, 0, 0, 1, 44, 99},
                         {19, 9, 10, 90, 50, 60, 70},
                         {19, 14, 100, 110, 120, 0, 0}};
  for (const std::uint8_t first : Bytes{1, 5, 10}) {
    for (std::uint8_t place = 0; place < 3; ++place) {
      all.push_back({19, static_cast<std::uint8_t>(first + place), 41, 61, 21, 31, 0});
    }
    all.push_back({19, static_cast<std::uint8_t>(first + 3), 1, 0, 1, 0, 0});
  }
  return all;
}

std::string Name(const Bytes& plain) {
  return testing::PrintToString(std::vector<int>(plain.begin(), plain.end()));
}

Bytes Undisturbed(const Bytes& plain) { return Talk().Ask(plain); }

/// What is written, as the machine tells it afterwards.
std::vector<Bytes> Memory(Talk& talk) {
  std::vector<Bytes> memory{talk.Ask({30}), talk.Ask({51, 0, 0})};
  for (std::uint8_t subCode = 1; subCode <= 14; ++subCode)
    memory.push_back(talk.Ask({17, subCode}));
  return memory;
}

Options ThatAnswersWrites() {
  Options options = Talk::Fast();
  options.AnswersWrites = true;
  return options;
}

TEST(ServiceFaults, EveryFrameIsAnsweredWithItsCode) {
  for (const Asked& asked : AllAsked()) {
    const Bytes reply = Undisturbed(asked.Plain);
    ASSERT_FALSE(reply.empty()) << Name(asked.Plain);
    EXPECT_EQ(reply[0], asked.Answer) << Name(asked.Plain);
  }
}

TEST(ServiceFaults, AReplyThatIsLostOnceOrTwiceIsTheSameAfterwards) {
  for (const Asked& asked : AllAsked()) {
    for (int lost = 1; lost <= 2; ++lost) {
      Talk talk;
      for (int i = 1; i <= lost; ++i) talk.Machine.Faults().AtExchange(i, LinkFault::LoseReply());
      for (int i = 1; i <= lost; ++i) EXPECT_TRUE(talk.Ask(asked.Plain).empty());
      EXPECT_EQ(talk.Ask(asked.Plain), Undisturbed(asked.Plain)) << Name(asked.Plain);
    }
  }
}

TEST(ServiceFaults, AReplyWithACorruptedByteIsNotTaken) {
  for (const Asked& asked : AllAsked()) {
    const Bytes whole = Undisturbed(asked.Plain);
    for (std::size_t byte = 0; byte < whole.size(); ++byte) {
      if (byte == 7) continue;  // it turns the key of all others: the check can hold by chance
      Talk talk;
      talk.Machine.Faults().AtExchange(
          1, LinkFault::CorruptReply(static_cast<std::uint8_t>(byte), 0x08));
      EXPECT_TRUE(talk.Ask(asked.Plain).empty()) << Name(asked.Plain) << " byte " << byte;
      EXPECT_EQ(talk.Ask(asked.Plain), whole) << Name(asked.Plain) << " byte " << byte;
    }
  }
}

TEST(ServiceFaults, ACommandThatIsLostOrCorruptedSwitchesAndFeedsNothing) {
  const Bytes plain{23, 0xFF, 1};
  for (std::uint8_t byte = 0; byte < 8; ++byte) {
    Talk talk;
    talk.Machine.Faults().AtExchange(1, LinkFault::CorruptCommand(byte, 0x40));
    EXPECT_TRUE(talk.Ask(plain).empty()) << int{byte};
    EXPECT_EQ(talk.Machine.Opened().Outputs(), 0) << int{byte};
    EXPECT_EQ(talk.Machine.CardsInFeeder(), 0U) << int{byte};
  }
  Talk talk;
  talk.Machine.Faults().AtExchange(1, LinkFault::LoseCommand());
  EXPECT_TRUE(talk.Ask(plain).empty());
  EXPECT_EQ(talk.Machine.Opened().Outputs(), 0);
  EXPECT_EQ(talk.Ask(plain).size(), 8U);
  EXPECT_EQ(talk.Machine.Opened().Outputs(), 0xFF);
}

TEST(ServiceFaults, AWriteThatIsLostOrCorruptedChangesNothingAndAnotherDoes) {
  for (const Bytes& plain : AllWritten()) {
    Talk untouched;
    const std::vector<Bytes> before = Memory(untouched);
    for (std::uint8_t byte = 0; byte <= 8; ++byte) {
      Talk talk;
      talk.Machine.Faults().AtExchange(
          1, byte == 8 ? LinkFault::LoseCommand() : LinkFault::CorruptCommand(byte, 0x40));
      EXPECT_TRUE(talk.Ask(plain).empty());
      EXPECT_EQ(Memory(talk), before) << Name(plain) << " byte " << int{byte};
      talk.Write(ToWire(plain));
      EXPECT_NE(Memory(talk), before) << Name(plain);
    }
  }
}

TEST(ServiceFaults, AWriteWhoseAnswerIsLostWasObeyed) {
  for (const Bytes& plain : AllWritten()) {
    Talk talk(ThatAnswersWrites());
    const std::vector<Bytes> before = Memory(talk);
    talk.Machine.Faults().AtCommand(plain[0], 1, LinkFault::LoseReply());
    EXPECT_TRUE(talk.Ask(plain).empty());
    EXPECT_NE(Memory(talk), before) << Name(plain);
    EXPECT_EQ(talk.Ask(plain).at(0), plain[0]);
  }
}

TEST(ServiceFaults, ALateOrShiftedReplyIsOverAfterAFlush) {
  for (const Asked& asked : AllAsked()) {
    for (const LinkFault& fault : {LinkFault::LateReply(), LinkFault::ShiftReply()}) {
      Talk talk;
      talk.Machine.Faults().AtExchange(1, fault);
      talk.Ask(asked.Plain);
      talk.Ask(asked.Plain);
      talk.Flush();
      EXPECT_EQ(talk.Ask(asked.Plain), Undisturbed(asked.Plain)) << Name(asked.Plain);
    }
  }
}

}  // namespace
}  // namespace morvane::simulator
