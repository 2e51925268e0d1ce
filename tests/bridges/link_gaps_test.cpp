#include "support/link_gaps.h"

#include <gtest/gtest.h>

#include "support/scripted_bridge.h"
#include "support/virtual_time.h"

// The instrument by which bench/link_gaps measures.

namespace morvane::test {
namespace {

using std::chrono::microseconds;

class LinkGapsTest : public ::testing::Test {
 protected:
  VirtualClock clock;
  ScriptedBridge bridge{clock};
  LinkGaps gaps{bridge, clock};

  /// One exchange of a short reply, `idle` after the one before.
  void Exchange(int idle, const Bytes& frame) {
    bridge.Replies.push_back(Short({0x19}));
    clock.Spend(microseconds(idle));
    const Bytes wire = OnTheWire(frame, 23);
    std::uint32_t count = 0;
    gaps.Write(1, wire, count);
    Bytes reply(8);
    gaps.Read(1, reply, count);
  }
};

TEST_F(LinkGapsTest, CountsWhatLiesInsideTheRunsAndNothingBetweenThem) {
  Exchange(1000, Short({0x1A}));  // the first contact
  for (int board = 1; board <= 2; ++board) {
    Exchange(50'000, Long({0x98}));
    Exchange(10, Short({0x19}));
    Exchange(30, Short({0x19}));
    Exchange(20, Short({0x1A}));    // the probe
    Exchange(7000, Short({0x19}));  // a poll between two boards
  }
  const LinkGaps::Figures& noted = gaps.Noted();
  EXPECT_EQ(noted.Runs, 2);
  EXPECT_EQ(noted.Sends, 2U * 4U);
  EXPECT_EQ(noted.Bytes, 2U * (136 + 3 * 8 + 4 * 8));
  EXPECT_EQ(noted.Gaps.count(), 2 * (10 + 30 + 20));
  EXPECT_EQ(noted.Worst.count(), 30);
  EXPECT_EQ(noted.Taken.count(), 2 * 60) << "the bridge itself takes no time";
  // 384 bytes of 10 bits at 115200 baud are 1/30 s.
  EXPECT_EQ(noted.OnTheWire().count(), 33'333);
  EXPECT_NEAR(noted.PerCent(), 0.36, 1e-4);
}

TEST_F(LinkGapsTest, APollOfTheConsoleGoesFromOneFrameOfTheOutputsToTheNext) {
  LinkGaps polls(bridge, clock, LinkGaps::Of::kPolls);
  const auto exchange = [&](int idle, std::uint8_t code) {
    bridge.Replies.push_back(Short({code}));
    clock.Spend(microseconds(idle));
    std::uint32_t count = 0;
    polls.Write(1, OnTheWire(Short({code}), 23), count);
    Bytes reply(8);
    polls.Read(1, reply, count);
  };
  exchange(5, 0x1A);  // the window start
  for (int poll = 1; poll <= 3; ++poll) {
    exchange(50'000, 0x17);
    exchange(20, 0x1B);
    exchange(40, 0x1B);
  }
  EXPECT_EQ(polls.Noted().Runs, 3);
  EXPECT_EQ(polls.Noted().Sends, 9U);
  EXPECT_EQ(polls.Noted().Gaps.count(), 3 * (20 + 40));
  EXPECT_EQ(polls.Noted().Worst.count(), 40);
  EXPECT_EQ(polls.Noted().Taken.count(), 2 * 60) << "the last one has not ended";
}

TEST(LinkGapsOfPictures, APictureGoesFromItsFirstLineToTheReplyWithItsLast) {
  VirtualClock clock;
  ScriptedBridge bridge(clock);
  LinkGaps gaps(bridge, clock, LinkGaps::Of::kPictures);
  const auto exchange = [&](int idle, std::uint8_t code, std::uint8_t line) {
    bridge.Replies.push_back(Short({0x0A}));
    clock.Spend(microseconds(idle));
    std::uint32_t count = 0;
    gaps.Write(1, OnTheWire(Short({code, line}), 23), count);
    Bytes reply(8);
    gaps.Read(1, reply, count);
  };
  exchange(0, 0x0A, 0);
  exchange(5000, 0x01, 0);
  exchange(10, 0x01, 1);
  exchange(30, 0x01, 191);
  exchange(7000, 0x17, 0);  // a poll
  EXPECT_EQ(gaps.Noted().Runs, 1);
  EXPECT_EQ(gaps.Noted().Sends, 3U);
  EXPECT_EQ(gaps.Noted().Gaps, microseconds(40));
  EXPECT_EQ(gaps.Noted().Worst, microseconds(30));
  EXPECT_EQ(gaps.Noted().Taken, microseconds(40));
}

TEST(LinkGapsOfDownloads, ADownloadGoesFromItsStartToTheReplyToTheCodesFirstBlock) {
  VirtualClock clock;
  ScriptedBridge bridge(clock);
  LinkGaps gaps(bridge, clock, LinkGaps::Of::kDownloads);
  const auto exchange = [&](int idle, const Bytes& frame) {
    bridge.Replies.push_back(Short({0x2A}));
    clock.Spend(microseconds(idle));
    std::uint32_t count = 0;
    gaps.Write(1, OnTheWire(frame, 23), count);
    Bytes reply(8);
    gaps.Read(1, reply, count);
  };
  exchange(5000, Short({0x17}));
  exchange(5000, Short({0x29, 95}));
  exchange(10, Long({0xAA, 98, 0, 1}));
  exchange(20, Long({0xAA, 98, 2, 0}));
  exchange(30, Long({0xAA, 98, 0, 0}));
  exchange(7000, Short({0x1A}));
  EXPECT_EQ(gaps.Noted().Runs, 1);
  EXPECT_EQ(gaps.Noted().Sends, 4U);
  EXPECT_EQ(gaps.Noted().Bytes, 8U + 3 * 136 + 4 * 8);
  EXPECT_EQ(gaps.Noted().Gaps, microseconds(60));
}

TEST_F(LinkGapsTest, AReadingRunAndASortAreRunsToo) {
  for (const Bytes& start : {Long({0x9C}), Short({0x35})}) {
    Exchange(0, start);
    Exchange(5, Short({0x1A}));
  }
  EXPECT_EQ(gaps.Noted().Runs, 2);
  EXPECT_EQ(gaps.Noted().Gaps.count(), 10);
}

TEST_F(LinkGapsTest, APartOfAReplyDoesNotEndTheRun) {
  Exchange(0, Long({0x98}));
  bridge.Replies.push_back({});
  std::uint32_t count = 0;
  gaps.Write(1, OnTheWire(Short({0x1A}), 23), count);
  Bytes reply(8);
  gaps.Read(1, reply, count);
  EXPECT_EQ(count, 0U);
  Exchange(40, Short({0x1A}));  // once more
  Exchange(9000, Short({0x19}));
  EXPECT_EQ(gaps.Noted().Gaps.count(), 40);
}

}  // namespace
}  // namespace morvane::test
