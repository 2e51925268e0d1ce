// The frames of what a service file has beyond the rest, against their tables on paper.

#include <gmock/gmock.h>

#include "support/scripted_bridge.h"
#include "wire/picture_commands.h"
#include "wire/service_commands.h"

namespace morvane::wire {
namespace {

using test::Bytes;
using ::testing::Each;
using ::testing::ElementsAre;

constexpr std::uint8_t kR = 0xEE;

/// Bytes 0 to 6 of the command; all else is left alone.
template <typename Command>
Bytes Plain(const Command& command) {
  Frame frame;
  frame.fill(kR);
  Put(command, frame);
  EXPECT_THAT(Bytes(frame.begin() + 7, frame.end()), Each(kR));
  return {frame.begin(), frame.begin() + 7};
}

TEST(ServiceFileCommands, IdentitiesAreAskedInFramesWithoutFiller) {
  EXPECT_THAT(Plain(DieIdentityCommand{1}), ElementsAre(20, 1, 0, 0, 0, 0, 0));
  EXPECT_THAT(Plain(DieIdentityCommand{2}), ElementsAre(20, 2, 0, 0, 0, 0, 0));
  EXPECT_THAT(Plain(SetIdentityCommand{}), ElementsAre(50, 0, 224, 0, 0, 0, 0));
}

TEST(ServiceFileCommands, CountersAreAskedPageByPage) {
  EXPECT_THAT(Plain(CounterPageCommand{0}), ElementsAre(51, 0, 0, kR, kR, kR, kR));
  EXPECT_THAT(Plain(CounterPageCommand{7}), ElementsAre(51, 0, 7, kR, kR, kR, kR));
}

TEST(ServiceFileCommands, TestDataAreAskedInFiller) {
  EXPECT_THAT(Plain(TestDataCommand{}), ElementsAre(30, kR, kR, kR, kR, kR, kR));
}

TEST(ServiceFileCommands, TheErrorsVerdictAndPicture) {
  EXPECT_THAT(Plain(ErrorVerdictCommand{}), ElementsAre(37, 0, kR, kR, kR, kR, kR));
  EXPECT_THAT(Plain(ErrorPictureLineCommand{191}), ElementsAre(2, 191, kR, kR, kR, kR, kR));
}

TEST(ServiceFileReplies, AHalfOfTheProcessorsIdentityIsFourBytes) {
  const auto half = Get<DieIdentityReply>({20, 2, 1, 0, 255, 127, 99});
  EXPECT_EQ(half.Half, 2);
  EXPECT_THAT(half.Identity, ElementsAre(1, 0, 255, 127));
}

TEST(ServiceFileReplies, TheSetsIdentityIsEveryTenthByte) {
  Frame frame;
  for (std::size_t at = 0; at < frame.size(); ++at) frame[at] = static_cast<std::uint8_t>(at);
  const auto set = Get<SetIdentityReply>(frame);
  EXPECT_EQ(set.Area, 2);
  EXPECT_THAT(set.Identity, ElementsAre(18, 28, 38, 48, 58, 68, 78, 88));
}

TEST(ServiceFileReplies, TestDataAreThe128BytesBehindTheHead) {
  Frame frame;
  for (std::size_t at = 0; at < frame.size(); ++at) frame[at] = static_cast<std::uint8_t>(at);
  const auto data = Get<TestDataReply>(frame);
  ASSERT_EQ(data.Bytes.size(), 128U);
  EXPECT_EQ(data.Bytes.front(), 8);
  EXPECT_EQ(data.Bytes.back(), 135);
}

TEST(ServiceFileReplies, AnErrorsVerdictIsLaidOutLikeAnyOther) {
  const auto verdict = Get<ErrorVerdictReply>({37, 1, 4, 61, 0, 255, 55});
  EXPECT_EQ(verdict.Time, 260);
  EXPECT_EQ(verdict.Rank, ErrorVerdictReply::kNotTaken);
  EXPECT_EQ(verdict.Suit, 0);
  EXPECT_EQ(verdict.Threshold, 255);
  EXPECT_EQ(verdict.Error, 55);
}

TEST(ServiceFileReplies, HaveTheCodesOfTheirFrames) {
  EXPECT_EQ(DieIdentityReply::Code, 20);
  EXPECT_EQ(SetIdentityReply::Code, 178);
  EXPECT_EQ(CounterPageReply::Code, 179);
  EXPECT_EQ(TestDataReply::Code, 158);
  EXPECT_EQ(ErrorVerdictReply::Code, 37);
  EXPECT_EQ(ErrorPictureLineReply::Code, 130);
}

TEST(ServiceFileReplies, OneOfOtherPlacesIsNotTheAnswer) {
  EXPECT_TRUE(DieIdentityCommand{2}.IsEchoedBy(Get<DieIdentityReply>({20, 2})));
  EXPECT_FALSE(DieIdentityCommand{2}.IsEchoedBy(Get<DieIdentityReply>({20, 1})));
  EXPECT_TRUE(SetIdentityCommand{}.IsEchoedBy(Get<SetIdentityReply>({178, 0, 224})));
  EXPECT_FALSE(SetIdentityCommand{}.IsEchoedBy(Get<SetIdentityReply>({178, 0, 0})))
      << "the boot area";
  EXPECT_FALSE(CounterPageCommand{7}.IsEchoedBy(Get<CounterPageReply>({179, 0, 6})));
}

template <typename F>
Frame PutBack(const Frame& frame) {
  Frame copy{};
  Put(Get<F>(frame), copy);
  return copy;
}

TEST(ServiceFileReplies, PutGivesBackWhatGetTook) {
  const Frame die{20, 1, 2, 3, 4, 5};
  EXPECT_EQ(PutBack<DieIdentityReply>(die), die);
  Frame set{178, 0, 224};
  for (std::size_t at = 18; at <= 88; at += 10) set[at] = static_cast<std::uint8_t>(at);
  EXPECT_EQ(PutBack<SetIdentityReply>(set), set);
  Frame data{158};
  for (std::size_t at = 8; at < 136; ++at) data[at] = static_cast<std::uint8_t>(200 - at);
  EXPECT_EQ(PutBack<TestDataReply>(data), data);
  const Frame verdict{37, 1, 2, 14, 3, 4, 62};
  EXPECT_EQ(PutBack<ErrorVerdictReply>(verdict), verdict);
}

}  // namespace
}  // namespace morvane::wire
