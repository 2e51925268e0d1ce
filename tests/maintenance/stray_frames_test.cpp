#include <utility>

#include "maintenance/console_desk.h"
#include "support/frame_list.h"

// Frames that come where another was waited for.

namespace morvane::maintenance {
namespace {

using test::Bytes;
using test::FramesAre;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// The ace of hearts, after 300 and with threshold 45.
Bytes VerdictOnTheWire() { return test::OnTheWire({0x15, 0x01, 0x2C, 14, 2, 45, 0, 0}, 21); }

class Strays : public ConsoleDesk {
 protected:
  /// The reply to frame `slow` comes only when that has been asked again; the one to the question's
  /// repetition comes then in front of the reply to the next question.
  void ReplySlowlyTo(int slow) {
    Damage = [slow, frame = 0, second = Bytes{}](const Bytes&, Bytes wire) mutable {
      const int number = frame++;
      if (number == slow) return Bytes{};
      if (number == slow + 1) second = wire;
      if (number != slow + 2) return wire;
      second.insert(second.end(), wire.begin(), wire.end());
      return std::exchange(second, {});
    };
  }
};

TEST_F(Strays, TheSecondReplyToARepeatedQuestionIsNotTakenForTheNextReply) {
  constexpr int kStart = 12;
  for (int slow = 0; slow < kStart; ++slow) {
    SCOPED_TRACE(slow);
    ReplySlowlyTo(slow);
    Start("firmware=2.90,serial=4711,hardware=0x7F");
    EXPECT_EQ(ParametersText(console->Boxes(), wire::CardIndex::Standard),
              "060,80,64,20,34,48,12,28,32,40,14,20,0,0,0,50,40,50,40,128,128,180");
    const Identity& id = console->TheIdentity();
    EXPECT_EQ(id.Serial_number + " " + id.Hardware_ID + " " + id.Manuf_date + " " +
                  id.Boards_dealed + " " + id.Boot_ver + " " + id.FPGA_ver,
              "4711 127 14.6.2019 0 01.20 3.7");
    EXPECT_THAT(desk.Ui.Boxes, IsEmpty());
    EXPECT_EQ(bridge.Overlaps, 0);
  }
}

TEST_F(Strays, OneThatComesToASubCodeBeforeIsSkippedAndTheQuestionStands) {
  Start();
  bridge.Sent.clear();
  ReplySlowlyTo(0);
  console->Get_param();
  EXPECT_THAT(SubCodes(0x11), ElementsAre(1, 1, 2, 3, 4, 9, 14));
}

TEST_F(Strays, AMachineThatAnswersAnotherSubCodeForEverIsLost) {
  Start();
  Damage = [](const Bytes& plain, Bytes wire) {
    return plain[0] == 0x11 ? test::OnTheWire({0x11, 99, 1, 2, 3, 4, 5, 0}, 21) : wire;
  };
  console->Get_param();
  ASSERT_EQ(desk.Ui.Boxes.size(), 1U);
  EXPECT_EQ(desk.Ui.Boxes[0].Text, desk.Prog.Texts.Msg055);
  EXPECT_TRUE(console->Closed());
}

TEST_F(Strays, AVerdictInThePlaceOfTheAnswerToTheFeedFeedsNoOtherCard) {
  Start("firmware=2.1F");
  bridge.Sent.clear();
  Damage = [](const Bytes& plain, Bytes wire) {
    return plain[0] == 0x17 && plain[2] == 1 ? VerdictOnTheWire() : wire;
  };
  console->Feed_card();
  Poll();
  EXPECT_TRUE(FramesAre(bridge.Sent, {"17 00 01 .. .. .. ..", "17 00 00 .. .. .. .."}));
  EXPECT_EQ(console->Bench().Shown().Verdict.Symbol + console->Bench().Shown().Verdict.Suit, "AH");
  EXPECT_THAT(desk.Ui.Boxes, IsEmpty());
  EXPECT_FALSE(console->Closed());
}

TEST_F(Strays, AVerdictInThePlaceOfAnyOtherAnswerIsShownAndTheQuestionRepeated) {
  Start();
  bridge.Sent.clear();
  Damage = [first = true](const Bytes& plain, Bytes wire) mutable {
    return plain[0] == 0x11 && std::exchange(first, false) ? VerdictOnTheWire() : wire;
  };
  console->Get_param();
  EXPECT_THAT(SubCodes(0x11), ElementsAre(1, 1, 2, 3, 4, 9, 14));
  EXPECT_EQ(console->Bench().Shown().Verdict.Symbol, "A");
  EXPECT_THAT(desk.Ui.Boxes, IsEmpty());
}

}  // namespace
}  // namespace morvane::maintenance
