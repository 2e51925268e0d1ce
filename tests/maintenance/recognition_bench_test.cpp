#include "maintenance/recognition_bench.h"

#include <map>

#include "maintenance/console_desk.h"
#include "support/frame_list.h"

namespace morvane::maintenance {
namespace {

using test::Bytes;
using test::FramesAre;

/// The bench at a machine on paper: each command has the reply that the test wrote for it.
class Bench : public ServiceDesk, public ConsoleHost {
 protected:
  NotedView view;
  bool leaves = false;
  std::unique_ptr<PictureStore> pictures = std::make_unique<PictureStore>();
  std::map<std::uint8_t, Bytes> replies;  ///< plain, by code; none: silence
  std::optional<ParameterBlock> parameters;
  std::unique_ptr<RecognitionBench> bench;

  void AtMachine(const std::function<void()>& work) override {
    work();
    view.ShowAll();
  }
  MaintenanceView& View() override { return view; }
  [[nodiscard]] bool Leaving() const override { return leaves; }

  void SetUp() override { UseFirmware(0x90); }
  void UseFirmware(std::uint8_t minor) {
    Damage = nullptr;
    Use(minor);
    parameters.emplace(desk.Prog, link, machine);
    bench =
        std::make_unique<RecognitionBench>(desk.Prog, link, machine, *parameters, *pictures, *this);
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
  [[nodiscard]] machine::CardSettings& Cards() { return parameters->CardSelection; }
  [[nodiscard]] const RecognitionBench::Texts& Shown() const { return bench->Shown(); }
  void Verdict(std::uint8_t rank, std::uint8_t suit, std::uint8_t error = 0) {
    replies[0x15] = test::Short({0x15, 0, 41, rank, suit, 46, error});
    bench->Capture();  // `Reco` may be off
    bench->Reco();
  }
};

TEST_F(Bench, ACaptureTellsItsTimeAndTheIndexOfTheCards) {
  Cards().CardIndex = 2;
  bench->Capture();
  EXPECT_TRUE(FramesAre(bridge.Sent, {"0A 02 00 00 .. .. .."}));
  EXPECT_EQ(Shown().Cap_time, "258");
}

TEST_F(Bench, TheFocusIsShownToTechniciansWhereItWasMeasured) {
  struct Row {
    std::uint8_t Minor;
    std::uint8_t Marker;
    std::uint8_t SecondMarker;
    const char* Focus;
  };
  desk.Prog.ServiceLevel = 1;
  for (const Row& row : {Row{0x71, 23, 11, "N/A"},
                         {0x72, 23, 11, "77"},
                         {0x72, 22, 11, "N/A"},
                         {0x72, 23, 12, "N/A"}}) {
    SCOPED_TRACE(row.Focus);
    UseFirmware(row.Minor);
    replies[0x0A][5] = row.Marker;
    replies[0x0A][6] = row.SecondMarker;
    bench->Capture();
    EXPECT_EQ(Shown().Focus, row.Focus);
  }
  machine.Version.FirmwareMajor = 3;
  bench->Capture();
  EXPECT_EQ(Shown().Focus, "77") << "whatever the marker says";
  desk.Prog.ServiceLevel = 0;
  replies[0x0A][3] = 78;
  bench->Capture();
  EXPECT_EQ(Shown().Focus, "77") << "it stays as it was";
}

TEST_F(Bench, ACaptureClearsWhatWasSeenBefore) {
  desk.Prog.ServiceLevel = 1;
  bench->Capture();
  bench->Reco();
  EXPECT_EQ(Shown().Cap_time, "") << "of the capture before";
  bench->Capture();
  EXPECT_EQ(Shown().Cap_time, "258");
  for (const std::string& text :
       {Shown().Verdict.Threshold, Shown().Verdict.Symbol, Shown().Verdict.Suit,
        Shown().Verdict.Reco_time, Shown().Verdict.Reco_error, Shown().Symbol_size_x,
        Shown().Symbol_size_y, Shown().Suit_size_x, Shown().Suit_size_y}) {
    EXPECT_EQ(text, "");
  }
  EXPECT_EQ(Shown().Reco_param1, "5") << "the last answer's";
  EXPECT_EQ(Shown().Focus, "77");
  EXPECT_EQ(bench->SymbolBox(), (wire::SymbolFrame{10, 20, 30, 50}));
}

TEST_F(Bench, ARecognitionClearsTheLastOne) {
  bench->Reco();
  std::string during = "never shown";
  view.OnShow = [&] {
    if (!bench->ButtonsOn()) during = Shown().Verdict.Symbol + Shown().Suit_size_y;
  };
  bench->Reco();
  EXPECT_EQ(during, "");
}

TEST_F(Bench, ARecognitionIsThreeFrames) {
  Cards() = {.National = 5, .CardType = 1, .Threshold = 2, .CardIndex = 1};
  bench->Reco();
  EXPECT_TRUE(FramesAre(bridge.Sent,
                        {"15 05 01 02 01 00 00", "0F .. .. .. .. .. ..", "10 .. .. .. .. .. .."}));
  EXPECT_EQ(Shown().Verdict.Symbol, "A");
  EXPECT_EQ(Shown().Verdict.Threshold, "46,47");
  EXPECT_EQ(Shown().Reco_param1, "5");
  EXPECT_EQ(Shown().Reco_param2, "6");
  EXPECT_EQ(Shown().Symbol_size_x, "9") << "20 - 10 - 1";
  EXPECT_EQ(Shown().Symbol_size_y, "19");
  EXPECT_EQ(Shown().Suit_size_x, "19");
  EXPECT_EQ(Shown().Suit_size_y, "29");
}

TEST_F(Bench, WithoutTheSuitThereIsOneThreshold) {
  replies.erase(0x10);
  bench->Reco();
  EXPECT_EQ(Shown().Verdict.Threshold, "46");
}

TEST_F(Bench, AnotherCardThanExpectedStopsTheBenchUntilThereIsANewPicture) {
  bench->HoldC = "S";
  Verdict(13, 1);
  EXPECT_TRUE(bench->RecoOn()) << "a king of spades";
  Verdict(13, 2);
  EXPECT_TRUE(bench->HoldStop());
  EXPECT_FALSE(bench->RecoOn()) << "a heart";
  bench->Showb();
  EXPECT_FALSE(bench->RecoOn()) << "looking at it is no way out";
  bench->Capture();
  EXPECT_TRUE(bench->RecoOn());
  EXPECT_TRUE(bench->HoldStop()) << "only a card that is right clears it";
  Verdict(2, 1);
  EXPECT_FALSE(bench->HoldStop());
  EXPECT_TRUE(bench->RecoOn());
}

TEST_F(Bench, WhatIsExpectedIsComparedAsText) {
  bench->HoldS = "10";
  Verdict(10, 1);
  EXPECT_FALSE(bench->HoldStop());
  bench->HoldS = "a";
  Verdict(14, 1);
  EXPECT_TRUE(bench->HoldStop());
}

TEST_F(Bench, AnErrorLeavesTheHoldAsItIs) {
  bench->HoldS = "K";
  Verdict(14, 1, 25);
  EXPECT_FALSE(bench->HoldStop());
  EXPECT_EQ(Shown().Verdict.Reco_error, "25");
  EXPECT_EQ(Shown().Symbol_size_x, "9") << "the measurements come all the same";
  Verdict(14, 1);
  EXPECT_TRUE(bench->HoldStop());
  Verdict(14, 1, 25);
  EXPECT_TRUE(bench->HoldStop());
}

TEST_F(Bench, ACardWithoutARankIsOkWithAnEmptySymbol) {
  Verdict(0, 1);
  EXPECT_EQ(Shown().Verdict.Symbol, "");
  EXPECT_EQ(Shown().Verdict.Reco_error, "OK");
}

TEST_F(Bench, ThePictureIsFetchedLineByLineAsWhatWasDoneLast) {
  bench->Capture();
  bridge.Sent.clear();
  replies[0x01][8] = 200;
  std::vector<int> lines;
  view.OnShow = [&] {
    EXPECT_EQ(bench->ButtonsOn(), !bench->LinesFetched());
    if (bench->LinesFetched()) lines.push_back(*bench->LinesFetched());
  };
  bench->Showb();
  view.OnShow = nullptr;
  ASSERT_EQ(lines.size(), 193U);
  EXPECT_EQ(lines[0], 0);
  EXPECT_EQ(lines.back(), 192);
  EXPECT_EQ(SubCodes(1).size(), 192U);
  EXPECT_EQ(SubCodes(1).front(), 0);
  EXPECT_EQ(SubCodes(1).back(), 191);
  EXPECT_EQ(pictures->Picture1.At(0, 191), Grey(200));
  EXPECT_EQ(pictures->Picture1.At(0, 192), kRed) << "the mark of the transfer stays below";
  EXPECT_TRUE(bench->ButtonsOn());
  bench->Reco();
  bench->Showb();
  EXPECT_EQ(pictures->Picture1.At(0, 191), kBlack) << "labels";
  EXPECT_EQ(pictures->Picture1.At(1, 191), kWhite);
}

TEST_F(Bench, TwoFetchesShowTheSamePicture) {
  replies[0x01][50] = 77;
  bench->Capture();
  bench->Showb();
  const auto first = std::make_unique<PaintedPicture>(pictures->Picture1);
  bench->Showb();
  for (int y = 0; y < PaintedPicture::kRows; ++y) {
    for (int x = 0; x < PaintedPicture::kColumns; ++x) {
      ASSERT_EQ(pictures->Picture1.At(x, y), first->At(x, y));
    }
  }
}

TEST_F(Bench, AFetchEndsWhenSomebodyLeaves) {
  bench->Capture();
  bridge.Sent.clear();
  view.OnShow = [&] { leaves = bench->LinesFetched() == 10; };
  bench->Showb();
  EXPECT_EQ(SubCodes(1).size(), 10U);
  EXPECT_TRUE(bench->ButtonsOn());
}

TEST_F(Bench, AFetchEndsWhereTheLinkIsLost) {
  bench->Capture();
  bridge.Sent.clear();
  replies.erase(0x01);
  bench->Showb();
  EXPECT_EQ(SubCodes(1), (std::vector<int>{0, 0})) << "both tries of the first line";
  EXPECT_EQ(recoveries, 1);
  EXPECT_TRUE(bench->ButtonsOn());
}

TEST_F(Bench, AnotherLineThanTheOneAskedForIsABadReceive) {
  bench->Capture();
  bridge.Sent.clear();
  const auto reply = Damage;
  Damage = [&](const Bytes& plain, const Bytes& wire) {
    return plain[0] == 0x01 && plain[1] == 5 ? test::OnTheWire(test::Long({0x81, 200}), 21)
                                             : reply(plain, wire);
  };
  bench->Showb();
  EXPECT_EQ(SubCodes(1), (std::vector<int>{0, 1, 2, 3, 4, 5, 5}));
  EXPECT_EQ(recoveries, 1);
}

TEST_F(Bench, OverlaysStayUntilTheNextPicture) {
  bench->Reco();
  bench->Frame_draw();
  EXPECT_EQ(pictures->Picture1.At(10, 30), kRed) << "the corners of both boxes";
  EXPECT_EQ(pictures->Picture1.At(20, 50), kRed);
  EXPECT_EQ(pictures->Picture1.At(11, 60), kRed);
  EXPECT_EQ(pictures->Picture1.At(31, 90), kRed);
  EXPECT_EQ(pictures->Picture1.At(15, 40), kWhite) << "outlines";
  parameters->Boxes.Box(Parameter::start_x).Put(66);
  parameters->Boxes.Box(Parameter::start_y).Put(60);
  bench->Start_draw();
  EXPECT_EQ(pictures->Picture1.At(36, 20), kYellow);
  EXPECT_EQ(pictures->Picture1.At(96, 190), kYellow);
  EXPECT_EQ(pictures->Picture1.At(61, 60), kBlue);
  EXPECT_EQ(view.Pictures, 2);
  bench->Capture();
  bench->Showb();
  EXPECT_EQ(pictures->Picture1.At(61, 60), kBlack);
}

TEST_F(Bench, ALinkLostAtAnyFrameOfARecognitionLeavesTheRest) {
  for (const std::uint8_t deaf : std::vector<std::uint8_t>{0x15, 0x0F, 0x10}) {
    SCOPED_TRACE(deaf);
    ServiceLink fresh(desk.Prog, machine, [] {});
    RecognitionBench lost(desk.Prog, fresh, machine, *parameters, *pictures, *this);
    bridge.Sent.clear();
    const auto reply = replies.extract(deaf);
    lost.Reco();
    replies.insert({reply.key(), reply.mapped()});
    EXPECT_EQ(bridge.Sent.back()[0], deaf) << "nothing behind it";
    EXPECT_TRUE(lost.ButtonsOn());
    EXPECT_TRUE(lost.RecoOn());
    EXPECT_EQ(desk.Ui.Boxes.back().Text, desk.Prog.Texts.Msg055);
  }
}

TEST_F(Bench, AnErrorOfRecognitionStillTellsTheMeasurements) {
  Verdict(0, 0, 25);
  EXPECT_EQ(Shown().Verdict.Reco_error, "25");
  EXPECT_EQ(Shown().Verdict.Symbol, "");
  EXPECT_EQ(bench->SuitBox(), (wire::SymbolFrame{11, 31, 60, 90}));
}

}  // namespace
}  // namespace morvane::maintenance
