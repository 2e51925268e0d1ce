#include "simulator/line/line_server.h"

#include <gmock/gmock.h>

#include <array>
#include <sstream>

#include "platform/system_clock.h"
#include "simulator/line/terminal_client.h"
#include "support/fakes.h"

namespace morvane::simulator {
namespace {

/// Two machines, and a person who has typed before the serving begins.
class LineServerTest : public testing::Test {
 protected:
  LineServerTest() {
    for (int at = 0; at < 2; ++at) {
      machines_.emplace_back(Talk::Fast(), Pace::kFast, clock_);
      EXPECT_FALSE(machines_.back().Terminal().Open());
    }
    EXPECT_EQ(pipe(words_.data()), 0);
    EXPECT_EQ(pipe(endWish_.data()), 0);
  }
  ~LineServerTest() override {
    for (const int file : {words_[0], words_[1], endWish_[0], endWish_[1]}) close(file);
  }
  void Type(const std::string& words) {
    EXPECT_EQ(write(words_[1], words.data(), words.size()), static_cast<ssize_t>(words.size()));
  }
  void Serve() { LineServer(machines_, answers_, troubles_).Run({words_[0], endWish_[0]}); }

  SystemClock clock_;
  std::deque<ServedMachine> machines_;
  std::array<int, 2> words_{};
  std::array<int, 2> endWish_{};
  std::ostringstream answers_;
  std::ostringstream troubles_;
};

TEST_F(LineServerTest, WordsGoToTheMachineThatTheyNameUntilTheEnd) {
  Type("2 board 5\n1 off\nstate\nquit\n");
  Serve();
  EXPECT_EQ(answers_.str(), "Board 5 is in the slot.\nThe power is off.\n1: off\n2: idle\n");
  EXPECT_FALSE(machines_[0].Machine().PowerIsOn());
  EXPECT_TRUE(machines_[1].Machine().PowerIsOn());
}

TEST_F(LineServerTest, WhatIsTypedBehindTheEndIsNotDone) {
  Type("quit\n1 off\n");
  Serve();
  EXPECT_TRUE(machines_[0].Machine().PowerIsOn());
}

TEST_F(LineServerTest, OfALineThatIsTooLongTheRestIsForgotten) {
  for (int part = 0; part < 6; ++part) Type(std::string(1000, 'x'));
  Type("\nquit\n");
  Serve();
  EXPECT_EQ(answers_.str(), "No such command; help lists them.\n");
}

TEST_F(LineServerTest, BothAreServedInOneTurn) {
  const TerminalClient first(machines_[0].Terminal().Path());
  const TerminalClient second(machines_[1].Terminal().Path());
  const Bytes poll = ToWire({0x19, 0, 0, 0, 0, 0, 0, 0});
  first.Send(poll);
  second.Send(poll);
  for (const ServedMachine& machine : machines_) WaitForBytes(machine.Files()[0].fd);
  Type("quit\n");
  Serve();
  EXPECT_EQ(first.Take(8).size(), 8U);
  EXPECT_EQ(second.Take(8).size(), 8U);
}

TEST_F(LineServerTest, TheEndWishEndsIt) {
  EXPECT_EQ(write(endWish_[1], "", 1), 1);
  Serve();
  EXPECT_EQ(answers_.str(), "");
}

TEST_F(LineServerTest, TheTroublesOfEachAreTold) {
  const test::TempFolder folder;
  Options options = Talk::Fast();
  options.Store = folder.Path();
  machines_.emplace_back(options, Pace::kFast, clock_);
  EXPECT_FALSE(machines_.back().Terminal().Open());
  Type("quit\n");
  Serve();
  EXPECT_EQ(troubles_.str(),
            "morvane-machine: store=" + folder.Path() + " keeps nothing: Is a directory\n");
}

}  // namespace
}  // namespace morvane::simulator
