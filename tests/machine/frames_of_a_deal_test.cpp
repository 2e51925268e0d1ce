#include "machine/known_boards.h"
#include "machine/run_fixture.h"
#include "support/frame_list.h"

namespace morvane::machine {
namespace {

using test::Bytes;
using test::FramesAre;

using FramesOfADeal = RunFixture;

TEST_F(FramesOfADeal, TheFirstContactAndThePollsBehindIt) {
  Open();
  desk.Loop.WaitMs(2250);
  EXPECT_TRUE(
      FramesAre(bridge.Sent, {kProbe, kProbe, "12 01 .. .. .. .. ..", "12 02 .. .. .. .. ..",
                              "33 00 00 .. .. .. ..", kPoll + " x2"}));
}

TEST_F(FramesOfADeal, ABoardIsFilledInByHand) {
  Contact();
  run.cmdDeal();
  EXPECT_TRUE(
      FramesAre(bridge.Sent, {"98 00 00 00 0B 24 00" + kBoard1, kThreePolls, kCardLog, kProbe}));
}

TEST_F(FramesOfADeal, TheWholeSetWithItsRotationsAndTheQuestionBehindIt) {
  desk.Ui.Answers = {kYes, kNo};
  Contact();
  run.cmdDeal();
  run.Deal_next();
  run.Deal_next();  // yes: back to board 1
  desk.Loop.WaitMs(250);
  run.cmdDeal();
  run.Deal_next();
  const std::vector<std::string> rest{kThreePolls, kCardLog, kProbe};
  std::vector<std::string> all;
  const auto board = [&](const std::string& start) {
    all.push_back(start);
    all.insert(all.end(), rest.begin(), rest.end());
  };
  board("98 00 00 00 0B 24 00" + kBoard1);
  board("98 00 00 01 3D 56 00" + kBoard2);
  board("98 00 00 02 6F 88 00" + kBoard3);
  all.push_back("19 06 .. .. .. .. ..");  // what came while it asked is acknowledged
  all.push_back(kPoll);
  board("98 00 00 03 A1 BA 00" + kBoard1);
  board("98 00 00 00 0B 24 00" + kBoard2);
  EXPECT_TRUE(FramesAre(bridge.Sent, all));
}

TEST_F(FramesOfADeal, AllCopiesOfABoardBeforeTheNextEachWithARotationOfItsOwn) {
  desk.Store.Set(kDealCopy, "1");
  test::FillSet(desk.Prog.Set, 1, 2);
  desk.Ui.Default = kNo;
  Contact();
  run.SetNumberCopies("2");
  run.cmdDeal();
  for (int i = 0; i < 3; ++i) run.Deal_next();
  EXPECT_TRUE(FramesAre(SentOf(0x98),
                        {"98 00 00 00 0B 24 00" + kBoard1, "98 00 00 01 3D 56 00" + kBoard1,
                         "98 00 00 02 6F 88 00" + kBoard2, "98 00 00 03 A1 BA 00" + kBoard2}));
}

TEST_F(FramesOfADeal, ASubRangeIsDealtAndNothingBesideIt) {
  desk.Store.Set(kDealSub, "1");
  test::FillSet(desk.Prog.Set, 1, 4);
  desk.Ui.Default = kYes;
  Contact();
  run.LeaveSubfrom("2");
  run.LeaveSubto("3");
  run.cmdDeal();
  run.Deal_next();
  run.cmdDeal();
  EXPECT_TRUE(
      FramesAre(SentOf(0x98), {"98 00 00 00 0B 24 00" + kBoard2, "98 00 00 01 3D 56 00" + kBoard3,
                               "98 00 00 02 6F 88 00" + kBoard2}));
}

TEST_F(FramesOfADeal, TheCardsStandInBytes2And6) {
  struct Row {
    int National;
    int CardType;
    int Threshold;
    int CardIndex;
    const char* Frame;
  };
  // Bits 7 to 4 national, 3 large index, 2 Bold, 1 Fine, 0 frame. A small index sets both font bits
  // and tells the font in byte 6: bit 2 small, bit 1 Bold, bit 0 Fine.
  const std::vector<Row> rows{{0, 1, 0, 0, "98 00 01 00 0B 24 00"},   // 0000 0 00 1
                              {1, 0, 1, 0, "98 00 12 01 3D 56 00"},   // 0001 0 01 0
                              {2, 0, 2, 0, "98 00 24 02 6F 88 00"},   // 0010 0 10 0
                              {3, 1, 2, 1, "98 00 3D 03 A1 BA 00"},   // 0011 1 10 1
                              {4, 0, 1, 1, "98 00 4A 00 0B 24 00"},   // 0100 1 01 0
                              {5, 0, 0, 2, "98 00 56 01 3D 56 04"},   // 0101 0 11 0, 1 0 0
                              {6, 1, 1, 2, "98 00 67 02 6F 88 05"},   // 0110 0 11 1, 1 0 1
                              {0, 0, 2, 2, "98 00 06 03 A1 BA 06"}};  // 0000 0 11 0, 1 1 0
  Contact();
  std::vector<std::string> starts;
  for (const Row& row : rows) {
    run.Change(&RunOptions::SetNational, row.National);
    run.Change(&RunOptions::SetCardType, row.CardType);
    run.Change(&RunOptions::SetThreshold, row.Threshold);
    run.Change(&RunOptions::SetCardIndex, row.CardIndex);
    run.cmdDeal();
    starts.push_back(row.Frame + kBoard1);
    const std::string settings = std::to_string(row.National) + "," + std::to_string(row.CardType) +
                                 "," + std::to_string(row.Threshold) + "," +
                                 std::to_string(row.CardIndex);
    EXPECT_EQ(LastLine(), "  001 : 1,0 " + settings + " OK");
  }
  EXPECT_TRUE(FramesAre(SentOf(0x98), starts));
}

TEST_F(FramesOfADeal, AStartThatIsNotAnsweredGoesOutOnceMoreAsItWas) {
  Contact();
  paper.Damage = [first = true](int, const Bytes&, const Bytes& wire) mutable {
    return std::exchange(first, false) ? Bytes{} : wire;
  };
  run.cmdDeal();
  const std::string start = "98 00 00 00 0B 24 00" + kBoard1;
  EXPECT_TRUE(FramesAre(bridge.Sent, {start, start, kThreePolls, kCardLog, kProbe}));
  EXPECT_EQ(bridge.Sent[0], bridge.Sent[1]);
}

TEST_F(FramesOfADeal, TheTestButtonsQuestionIsAllFiller) {
  desk.Prog.ServiceLevel = 2;
  Contact();
  paper.Damage = [](int, const Bytes&, const Bytes&) {
    return test::OnTheWire(test::Long({0x9E}), 21);
  };
  run.Command1();
  EXPECT_TRUE(FramesAre(bridge.Sent, {"1E .. .. .. .. .. .."}));
}

}  // namespace
}  // namespace morvane::machine
