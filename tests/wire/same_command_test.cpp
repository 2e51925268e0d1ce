#include "wire/same_command.h"

#include <gtest/gtest.h>

#include <initializer_list>
#include <ostream>
#include <vector>

namespace morvane::wire {
namespace {

/// A plain frame that begins with these bytes.
Frame Of(std::initializer_list<std::uint8_t> bytes) {
  Frame frame{};
  std::copy(bytes.begin(), bytes.end(), frame.begin());
  return frame;
}

/// A command and which of its bytes behind the code tell the machine something, as the protocol's
/// tables have it. `Payload` says up to which byte a long one's does.
struct Case {
  const char* Name;
  Frame Command;
  std::vector<std::size_t> Named;
  std::size_t Payload = 0;
};

void PrintTo(const Case& one, std::ostream* out) { *out << one.Name; }

const std::vector<Case>& Cases() {
  static const std::vector<Case> cases{
      {"picture line", Of({0x01, 80}), {1}},
      {"error's picture line", Of({0x02, 80}), {1}},
      {"capture", Of({0x0A, 1, 0, 0, 7, 7, 7}), {1, 2, 3}},
      {"positioned capture", Of({0x0A, 1, 0, 0x17, 40, 60, 7}), {1, 2, 3, 4, 5}},
      {"symbol", Of({0x0F}), {}},
      {"suit", Of({0x10}), {}},
      {"read parameters", Of({0x11, 9}), {1}},
      {"identity", Of({0x12, 1, 0}), {1}},
      {"write position", Of({0x13, 5, 1, 2, 3, 4}), {1, 2, 3, 4, 5}},
      {"write switches", Of({0x13, 8, 1, 0, 1, 0}), {1, 2, 3, 4, 5}},
      {"write thresholds", Of({0x13, 9, 1, 2, 3, 4, 5}), {1, 2, 3, 4, 5, 6}},
      {"write video", Of({0x13, 14, 1, 2, 3, 0, 0}), {1, 2, 3, 4, 5, 6}},
      {"die identity", Of({0x14, 1}), {1, 2, 3, 4, 5, 6}},
      {"recognise", Of({0x15, 1, 0, 2, 1, 0, 0}), {1, 2, 3, 4, 5, 6}},
      {"outputs", Of({0x17, 0x31, 0}), {1, 2}},
      {"status", Of({0x19, 2}), {1}},
      {"version", Of({0x1A, 0}), {}},
      {"sensor", Of({0x1B, 4, 0}), {1, 2}},
      {"fetch board", Of({0x1D, 0}), {1}},
      {"test", Of({0x1E}), {}},
      {"fetch log", Of({0x20, 0}), {1}},
      {"trial", Of({0x22, 1, 2, 3, 1, 5, 6}), {1, 2, 3, 4, 5, 6}},
      {"logic version", Of({0x23}), {1, 2, 3, 4, 5, 6}},
      {"test write", Of({0x24, 1, 2}), {1, 2, 3, 4, 5, 6}},
      {"error's verdict", Of({0x25, 0}), {}},
      {"start download", Of({0x29, 0x5F}), {1}},
      {"erase errors", Of({0x2B, 0x5A, 0, 0x63, 0x63, 0x63, 0x63}), {1, 2, 3, 4, 5, 6}},
      {"erase record", Of({0x2C, 0x5D, 0, 0xC0, 0, 0, 0}), {1, 2, 3, 4, 5, 6}},
      {"boot area", Of({0x32}), {1, 2, 3, 4, 5, 6}},
      {"set's identity", Of({0x32, 0, 0xE0}), {1, 2, 3, 4, 5, 6}},
      {"counter", Of({0x33, 0, 3}), {1, 2}},
      {"set counter", Of({0x34, 0, 0, 0, 1, 2, 0x63}), {1, 2, 3, 4, 5, 6}},
      {"sort", Of({0x35, 0, 0x10, 1, 61, 86, 0}), {1, 2, 3, 4, 5, 6}},
      {"deal", Of({0x98, 0, 0x10, 1, 61, 86, 0}), {1, 2, 3, 4, 5}, 59},
      {"deal, small index", Of({0x98, 0, 0x06, 1, 61, 86, 5}), {1, 2, 3, 4, 5, 6}, 59},
      {"read", Of({0x9C, 1, 0x08, 0, 11, 36, 0}), {1, 2, 3, 4, 5}, 59},
      {"route", Of({0x9F, 52, 0}), {1, 2, 3, 4, 5}, 62},
      {"flash block", Of({0xAA, 0x62, 1, 4}), {1, 2, 3}, 135},
      {"write record", Of({0xAD, 0x5C, 0, 0xC0}), {1, 2, 3, 4, 5, 6}, 15},
  };
  return cases;
}

class SameCommandOf : public ::testing::TestWithParam<Case> {
 protected:
  [[nodiscard]] bool IsNamed(std::size_t at) const {
    const Case& one = GetParam();
    const auto& named = one.Named;
    return std::find(named.begin(), named.end(), at) != named.end() ||
           (at >= kShortFrame && at <= one.Payload);
  }
};

TEST_P(SameCommandOf, FillerMayDiffer) {
  const Frame& command = GetParam().Command;
  Frame other = command;
  for (std::size_t at = 1; at < FrameSize(CodeOf(command)); ++at) {
    if (!IsNamed(at)) other[at] ^= 0xFF;
  }
  EXPECT_TRUE(SameCommand(command, other));
  EXPECT_TRUE(SameCommand(other, command));
}

TEST_P(SameCommandOf, EachByteThatIsNamedCounts) {
  const Frame& command = GetParam().Command;
  for (std::size_t at = 0; at < FrameSize(CodeOf(command)); ++at) {
    if (at != 0 && !IsNamed(at)) continue;
    Frame other = command;
    other[at] ^= 1;
    EXPECT_EQ(FirstDifference(command, other), at);
    EXPECT_EQ(FirstDifference(other, command), at);
  }
}

TEST_P(SameCommandOf, OnlyWhatIsNamedIsTold) {
  const Frame& command = GetParam().Command;
  Frame filled = command;
  Frame plain = command;
  for (std::size_t at = 1; at < FrameSize(CodeOf(command)); ++at) {
    if (!IsNamed(at)) plain[at] = 0;
    if (!IsNamed(at)) filled[at] = 0xA5;
  }
  KeepTold(filled);
  EXPECT_EQ(filled, plain);
}

INSTANTIATE_TEST_SUITE_P(Commands, SameCommandOf, ::testing::ValuesIn(Cases()));

TEST(SameCommand, OfATestDealsPollOnlyTheBreakCounts) {
  EXPECT_TRUE(SameCommand(Of({0x19, 0x40}), Of({0x19, 0xF6})));
  EXPECT_FALSE(SameCommand(Of({0x19, 0x40}), Of({0x19, 0xF7})));
  EXPECT_TRUE(SameCommand(Of({0x19, 0x40}), Of({0x19, 0x02}))) << "which may be random too";
}

TEST(KeepTold, ATestDealsPollStaysOne) {
  for (const int flags : {0x40, 0x41, 0xF6, 0xF7}) {
    const Frame poll = Of({0x19, static_cast<std::uint8_t>(flags), 1, 2, 3, 4, 5});
    Frame told = poll;
    KeepTold(told);
    EXPECT_EQ(told, Of({0x19, static_cast<std::uint8_t>(0x80 + flags % 2)}));
    EXPECT_TRUE(SameCommand(told, poll));
  }
}

TEST(SameCommand, TheDialogsPollIsAPollLikeTheOthers) {
  EXPECT_TRUE(SameCommand(Of({0x19, 2, 9, 9, 9, 9, 9}), Of({0x19, 2, 5, 0, 0, 0, 0})));
}

TEST(SameCommand, ACaptureAtAPositionIsAnotherThanOneWithout) {
  EXPECT_EQ(FirstDifference(Of({0x0A, 1, 0, 0x17, 40, 60}), Of({0x0A, 1, 0, 0, 40, 60})), 3U);
}

TEST(SameCommand, OfAnUnknownCodeEveryByteCounts) {
  EXPECT_TRUE(SameCommand(Of({0x77, 1, 2, 3, 4, 5, 6, 100}), Of({0x77, 1, 2, 3, 4, 5, 6, 200})));
  EXPECT_EQ(FirstDifference(Of({0x77, 1, 2, 3, 4, 5, 6}), Of({0x77, 1, 2, 3, 4, 5, 7})), 6U);
  Frame one = Of({0xF7});
  one[135] = 1;
  EXPECT_EQ(FirstDifference(one, Of({0xF7})), 135U);
}

}  // namespace
}  // namespace morvane::wire
