#include "maintenance/recognition_bench.h"

#include "maintenance/service_desk.h"
#include "support/frame_list.h"

namespace morvane::maintenance {
namespace {

using test::Bytes;
using test::FramesAre;
using ::testing::ElementsAre;

/// The bench at a machine on paper: each command has the reply that the test wrote for it.
class Bench : public ServiceDesk {
 protected:
  std::unique_ptr<PictureStore> pictures = std::make_unique<PictureStore>();
  std::map<std::uint8_t, Bytes> replies;  ///< plain, by code; none: silence
  machine::CardSettings cards;
  std::unique_ptr<RecognitionBench> bench;

  void SetUp() override { UseFirmware(0x90); }
  void UseFirmware(std::uint8_t minor) {
    Damage = nullptr;
    Use(minor);
    bench = std::make_unique<RecognitionBench>(desk.Prog, link, machine, *pictures);
    Damage = [this](const Bytes& plain, const Bytes&) {
      const auto reply = replies.find(plain[0]);
      if (reply == replies.end()) return Bytes{};
      Bytes answer = reply->second;
      if (plain[0] == 0x01) answer[1] = plain[1];
      return test::OnTheWire(answer, 21);
    };
    replies[0x0A] = test::Short({0x0A, 1, 2, 77, 0, 23, 11});
    replies[0x15] = test::Short({0x15, 0, 41, 14, 1, 46, 0});
    replies[0x0F] = test::Short({0x0F, 5, 6, 10, 20, 30, 50});
    replies[0x10] = test::Short({0x10, 47, 0, 11, 31, 60, 90});
    replies[0x01] = test::Long({0x81});
  }
  void Verdict(std::uint8_t rank, std::uint8_t suit, std::uint8_t error = 0) {
    replies[0x15] = test::Short({0x15, 0, 41, rank, suit, 46, error});
    ASSERT_TRUE(bench->Reco(cards));
  }
};

TEST_F(Bench, ACaptureTellsItsTimeAndTheIndexOfTheCards) {
  cards.CardIndex = 2;
  EXPECT_TRUE(bench->Capture(cards));
  EXPECT_TRUE(FramesAre(bridge.Sent, {"0A 02 00 00 .. .. .."}));
  EXPECT_EQ(bench->Cap_time, "258");
}

TEST_F(Bench, TheFocusIsShownToTechniciansWhereItWasMeasured) {
  struct Row {
    std::uint8_t Minor;
    std::uint8_t Marker;
    const char* Focus;
  };
  desk.Prog.ServiceLevel = 1;
  for (const Row& row : {Row{0x71, 23, "N/A"}, {0x72, 23, "77"}, {0x72, 22, "N/A"}}) {
    SCOPED_TRACE(row.Focus);
    UseFirmware(row.Minor);
    replies[0x0A][5] = row.Marker;
    bench->Capture(cards);
    EXPECT_EQ(bench->Focus, row.Focus);
  }
  machine.Version.FirmwareMajor = 3;
  bench->Capture(cards);
  EXPECT_EQ(bench->Focus, "77") << "whatever the marker says";
  desk.Prog.ServiceLevel = 0;
  replies[0x0A][3] = 78;
  bench->Capture(cards);
  EXPECT_EQ(bench->Focus, "77") << "it stays as it was";
}

TEST_F(Bench, ARecognitionIsThreeFrames) {
  cards = {.National = 5, .CardType = 1, .Threshold = 2, .CardIndex = 1};
  EXPECT_TRUE(bench->Reco(cards));
  EXPECT_TRUE(FramesAre(bridge.Sent,
                        {"15 05 01 02 01 00 00", "0F .. .. .. .. .. ..", "10 .. .. .. .. .. .."}));
  EXPECT_EQ(bench->Verdict.Symbol, "A");
  EXPECT_EQ(bench->Verdict.Threshold, "46,47");
  EXPECT_EQ(bench->Reco_param1, "5");
  EXPECT_EQ(bench->Reco_param2, "6");
  EXPECT_EQ(bench->Symbol_size_x, "9") << "20 - 10 - 1";
  EXPECT_EQ(bench->Symbol_size_y, "19");
  EXPECT_EQ(bench->Suit_size_x, "19");
  EXPECT_EQ(bench->Suit_size_y, "29");
}

TEST_F(Bench, WithoutTheSuitThereIsOneThreshold) {
  replies.erase(0x10);
  EXPECT_FALSE(bench->Reco(cards));
  EXPECT_EQ(bench->Verdict.Threshold, "46");
}

TEST_F(Bench, AnotherCardThanExpectedStopsTheBenchUntilThereIsANewPicture) {
  bench->HoldC = "S";
  Verdict(13, 1);
  EXPECT_TRUE(bench->RecoOn) << "a king of spades";
  Verdict(13, 2);
  EXPECT_TRUE(bench->HoldStop);
  EXPECT_FALSE(bench->RecoOn) << "a heart";
  EXPECT_TRUE(bench->Capture(cards));
  EXPECT_TRUE(bench->RecoOn);
  EXPECT_TRUE(bench->HoldStop) << "only a card that is right clears it";
  Verdict(2, 1);
  EXPECT_FALSE(bench->HoldStop);
  EXPECT_TRUE(bench->RecoOn);
}

TEST_F(Bench, WhatIsExpectedIsComparedAsText) {
  bench->HoldS = "10";
  Verdict(10, 1);
  EXPECT_FALSE(bench->HoldStop);
  bench->HoldS = "a";
  Verdict(14, 1);
  EXPECT_TRUE(bench->HoldStop);
}

TEST_F(Bench, AnErrorLeavesTheHoldAsItIs) {
  bench->HoldS = "K";
  Verdict(14, 1, 25);
  EXPECT_FALSE(bench->HoldStop);
  EXPECT_EQ(bench->Verdict.Reco_error, "25");
  EXPECT_EQ(bench->Symbol_size_x, "9") << "the measurements come all the same";
  Verdict(14, 1);
  EXPECT_TRUE(bench->HoldStop);
  Verdict(14, 1, 25);
  EXPECT_TRUE(bench->HoldStop);
}

TEST_F(Bench, ACardWithoutARankIsOkWithAnEmptySymbol) {
  Verdict(0, 1);
  EXPECT_EQ(bench->Verdict.Symbol, "");
  EXPECT_EQ(bench->Verdict.Reco_error, "OK");
}

TEST_F(Bench, ThePictureIsFetchedLineByLineAsWhatWasDoneLast) {
  bench->Capture(cards);
  bridge.Sent.clear();
  replies[0x01][8] = 200;
  std::vector<int> lines;
  EXPECT_TRUE(bench->Showb([&](int line) {
    lines.push_back(line);
    return true;
  }));
  EXPECT_EQ(lines.size(), 192U);
  EXPECT_EQ(SubCodes(1).back(), 191);
  EXPECT_EQ(pictures->Picture1.At(0, 191), Grey(200));
  bench->Reco(cards);
  EXPECT_TRUE(bench->Showb([](int) { return true; }));
  EXPECT_EQ(pictures->Picture1.At(0, 191), kBlack) << "labels";
  EXPECT_EQ(pictures->Picture1.At(1, 191), kWhite);
}

TEST_F(Bench, AFetchEndsWhereItIsNotWantedAnyMoreOrTheLinkIsLost) {
  bench->Capture(cards);
  bridge.Sent.clear();
  EXPECT_TRUE(bench->Showb([](int line) { return line < 9; }));
  EXPECT_EQ(SubCodes(1).size(), 10U);
  replies.erase(0x01);
  EXPECT_FALSE(bench->Showb([](int) { return true; }));
  EXPECT_EQ(SubCodes(1).size(), 12U) << "both tries of the first line";
  EXPECT_EQ(recoveries, 1);
}

}  // namespace
}  // namespace morvane::maintenance
