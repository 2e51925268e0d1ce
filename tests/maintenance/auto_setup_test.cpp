#include "maintenance/auto_setup.h"

#include "maintenance/paper_camera.h"
#include "maintenance/service_desk.h"
#include "support/frame_list.h"

namespace morvane::maintenance {
namespace {

using test::Bytes;
using test::FramesAre;
using ::testing::Contains;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;

struct NotedSearch final : AutoSetupView {
  int Searches = 0;
  int Lines = 0;
  std::function<void()> OnSearch;
  void ShowSearch() override {
    ++Searches;
    if (OnSearch) OnSearch();
  }
  void ShowPicture() override { ++Lines; }
};

class SetupDesk : public ServiceDesk {
 protected:
  std::unique_ptr<PictureStore> pictures = std::make_unique<PictureStore>();
  machine::CardSettings cards;
  HeightLimits old{90, 80};
  PaperCamera camera;
  NotedSearch view;
  std::unique_ptr<AutoSetup> setup;

  void SetUp() override {
    RuntimeError error;
    ASSERT_TRUE(desk.Prog.Log.Start(desk.Folder.Path(), error));
    Use(0x90);
    Damage = [this](const Bytes& plain, const Bytes&) { return camera.ReplyTo(plain); };
  }
  void Run() {
    setup = std::make_unique<AutoSetup>(desk.Prog, link, *pictures, cards, old);
    setup->Run(view);
  }
};

TEST_F(SetupDesk, ThreeTrialsThePictureAndTheQuestion) {
  desk.Ui.Answers = {kYes};
  Run();
  ASSERT_EQ(bridge.Sent.size(), 9U + 1 + 192);
  EXPECT_TRUE(FramesAre({bridge.Sent.begin(), bridge.Sent.begin() + 3},
                        {"22 14 6E 00 00 42 3C", "0F .. .. .. .. .. ..", "10 .. .. .. .. .. .."}));
  EXPECT_TRUE(FramesAre({bridge.Sent[9]}, {"0A 00 00 17 14 6E .."}));
  EXPECT_EQ(setup->Found(), (SearchPosition{20, 110, 66, 60}));
  EXPECT_EQ(desk.Ui.Boxes.back(),
            (test::FakeUi::Box{desk.Prog.Texts.Msg116, kYesNoInformation, "Auto Setup"}));
  EXPECT_EQ(desk.LogLines().back(), "   AutoSetup OK for Standard 20,110,66,60");
  EXPECT_EQ(pictures->Picture1.At(61, 60), kBlue) << "the start point is drawn";
}

TEST_F(SetupDesk, TheFramesCarryFontAndIndex) {
  cards.Threshold = 1;
  cards.CardIndex = machine::CardSettings::kSmallIndex;
  Run();
  EXPECT_TRUE(FramesAre({bridge.Sent[0], bridge.Sent[9]},
                        {"22 14 82 01 02 42 3C", "0A 02 00 17 14 82 .."}));
}

TEST_F(SetupDesk, TheFinalPictureIsGreyWhateverWasFetchedBefore) {
  pictures->ImageMode = PictureStore::Kind::kLabels;
  Run();
  EXPECT_EQ(pictures->ImageMode, PictureStore::Kind::kGrey);
  EXPECT_EQ(pictures->Picture1.At(0, 0), kBlack) << "as a label it were paper";
}

TEST_F(SetupDesk, WithoutAYesNothingIsKept) {
  desk.Ui.Answers = {kNo};
  Run();
  EXPECT_EQ(setup->Found(), std::nullopt);
}

TEST_F(SetupDesk, ThreeColumnsAwayItTakesThreeMoreTrials) {
  camera.SeenFrom = 50;
  Run();
  EXPECT_EQ(SubCodes(0x22), (std::vector<int>{20, 30, 40, 50, 50, 50}));
}

TEST_F(SetupDesk, ACardThatIsNotThereIsTold) {
  camera.SeenFrom = 256;
  cards.CardIndex = machine::CardSettings::kLargeIndex;
  Run();
  EXPECT_EQ(SubCodes(0x22).size(), 23U);
  EXPECT_EQ(setup->Found(), std::nullopt);
  EXPECT_EQ(desk.Ui.Boxes,
            (std::vector<test::FakeUi::Box>{{desk.Prog.Texts.Msg117, kOkCritical, "Auto Setup"}}));
  EXPECT_EQ(desk.LogLines().back(), "   AutoSetup Failed for Large");
}

TEST_F(SetupDesk, CancelEndsItAtAnyTrialWithoutAWord) {
  for (int at = 1; at <= 5; ++at) {
    SCOPED_TRACE(at);
    camera.SeenFrom = 60;
    view.Searches = 0;
    bridge.Sent.clear();
    view.OnSearch = [&] {
      if (view.Searches == at) setup->Cancel();
    };
    Run();
    EXPECT_EQ(SubCodes(0x22).size(), static_cast<std::size_t>(at));
    EXPECT_EQ(setup->Found(), std::nullopt);
    EXPECT_THAT(desk.Ui.Boxes, IsEmpty());
  }
}

TEST_F(SetupDesk, CancelAtTheLastTrialIsNoMissingCard) {
  camera.SeenFrom = 256;
  cards.CardIndex = machine::CardSettings::kLargeIndex;
  view.OnSearch = [&] {
    if (view.Searches == 23) setup->Cancel();
  };
  Run();
  EXPECT_EQ(SubCodes(0x22).size(), 23U);
  EXPECT_THAT(desk.Ui.Boxes, IsEmpty());
}

TEST_F(SetupDesk, AProgramThatQuitsInThePictureAsksNothingAndKeepsNothing) {
  desk.Ui.Answers = {kYes};
  OnFrame = [&](const Bytes& plain) {
    if (plain[0] == 0x01 && plain[1] == 50) desk.Loop.Quit();
  };
  Run();
  EXPECT_EQ(SubCodes(0x01).size(), 51U);
  EXPECT_EQ(setup->Found(), std::nullopt);
  EXPECT_THAT(desk.Ui.Boxes, IsEmpty());
  EXPECT_THAT(desk.LogLines(), Not(Contains(HasSubstr("AutoSetup OK"))));
  desk.Loop.Restart();
}

// 240 + 64 - (4 + 40 / 4) = 290, and 50 more with each round.
TEST_F(SetupDesk, APositionBeyondTheByteGoesOutAsTheHighest) {
  camera.SeenFrom = 240;
  camera.SymbolLeft = 4;
  Run();
  const std::vector<int> columns = SubCodes(0x22);
  ASSERT_EQ(columns.size(), 23U + 2);
  EXPECT_EQ((std::vector<int>{columns.end() - 3, columns.end()}), (std::vector{240, 255, 255}));
  EXPECT_EQ(setup->Search().At().pos_x, 390);
  EXPECT_EQ(desk.Ui.Boxes.back().Text, desk.Prog.Texts.Msg117) << "so far right is not found";
}

TEST_F(SetupDesk, HighSymbolsKeepTheRaisedLimits) {
  struct Row {
    int Symbol;
    int Suit;
    std::uint8_t SymbolBottom;
    std::uint8_t SuitBottom;
    const char* SymY;
    const char* SuitY;
    int KeptSymbol;
    int KeptSuit;
  };
  for (const Row& row : {Row{80, 80, 92, 20, "Max Symbol Y:86", "Max Suit Y:80", 86, 0},
                         {80, 70, 92, 20, "Max Symbol Y:86", "Max Suit Y:76", 86, 76},
                         {80, 80, 91, 75, "", "", 0, 0},
                         {80, 80, 91, 76, "Max Symbol Y:86", "Max Suit Y:80", 86, 0},
                         {90, 70, 92, 20, "Max Symbol Y:90", "Max Suit Y:76", 0, 76},
                         {90, 80, 99, 99, "", "", 0, 0},
                         {86, 70, 99, 99, "Max Symbol Y:86", "Max Suit Y:76", 86, 76}}) {
    SCOPED_TRACE(std::to_string(row.Symbol) + "/" + std::to_string(row.Suit) + " " +
                 std::to_string(row.SymbolBottom) + "/" + std::to_string(row.SuitBottom));
    old = {row.Symbol, row.Suit};
    camera.SymbolBottom = row.SymbolBottom;
    camera.SuitBottom = row.SuitBottom;
    Run();
    EXPECT_EQ(setup->symy(), row.SymY);
    EXPECT_EQ(setup->suity(), row.SuitY);
    EXPECT_EQ(setup->Kept().Sym_y_max, row.KeptSymbol);
    EXPECT_EQ(setup->Kept().Suit_y_max, row.KeptSuit);
  }
}

TEST_F(SetupDesk, OtherIndexesHaveNoRaisedLimits) {
  cards.CardIndex = machine::CardSettings::kSmallIndex;
  old = {80, 70};
  camera.SymbolBottom = 99;
  Run();
  EXPECT_EQ(setup->symy(), "");
  EXPECT_EQ(setup->Kept().Sym_y_max, 0);
}

TEST_F(SetupDesk, ALinkLostAtAnyExchangeEndsItWithoutAFind) {
  const auto reply = Damage;
  for (std::size_t target : {0U, 1U, 2U, 5U, 8U, 9U, 10U, 100U, 201U}) {
    SCOPED_TRACE(target);
    desk.Ui.Boxes.clear();
    bridge.Sent.clear();
    ServiceLink fresh(desk.Prog, machine, [this] { ++recoveries; });
    Damage = [&](const Bytes& plain, const Bytes& wire) {
      return bridge.Sent.size() > target ? Bytes{} : reply(plain, wire);
    };
    AutoSetup lost(desk.Prog, fresh, *pictures, cards, old);
    lost.Run(view);
    EXPECT_EQ(bridge.Sent.size(), target + 2) << "a retry and no more";
    EXPECT_EQ(lost.Found(), std::nullopt);
    ASSERT_EQ(desk.Ui.Boxes.size(), 1U);
    EXPECT_EQ(desk.Ui.Boxes[0].Text, desk.Prog.Texts.Msg055);
  }
}

}  // namespace
}  // namespace morvane::maintenance
