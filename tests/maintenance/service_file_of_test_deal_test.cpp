#include "maintenance/service_file_desk.h"
#include "maintenance/service_gathering.h"
#include "support/frame_list.h"

// The service file behind a test deal that has failed.

namespace morvane::maintenance {
namespace {

using test::FakeUi;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

class ServiceFileOfTestDeal : public ServiceFileDesk {
 protected:
  /// The machine stops at the ninth card with 62; what it then says of it is the paper's.
  void DealAndFail() {
    Begin();
    Damage = [this](const test::Bytes& plain, const test::Bytes&) {
      if (OnAsked) OnAsked(plain);
      if (plain[0] == 0x9F || plain[0] == 0x98) return test::OnTheWire(test::Short({0x18}), 21);
      if (plain[0] == 0x19) return test::OnTheWire(test::Short({0x19, 62, 0, 0, 0, 8}), 21);
      return paper.ReplyTo(plain);
    };
    console->DealTest();
  }
  [[nodiscard]] std::size_t Sent(int code) const { return SubCodes(code).size(); }
};

TEST_F(ServiceFileOfTestDeal, HasThePictureAndTheVerdictOfTheMachinesError) {
  DealAndFail();
  const auto line = Lines();
  ASSERT_EQ(line.size(), 415U);
  EXPECT_EQ(line[10].substr(0, 8), "00030609") << "3 x of the error's picture";
  EXPECT_EQ(line[11].substr(0, 8), "0104070A");
  EXPECT_EQ(line[203].substr(0, 8), "00010203") << "the buffer, of which there are no labels";
  EXPECT_EQ(line[396], "62,44,47,10,S,9,19,20,32") << "the card is named beside the error";
  EXPECT_EQ(line[410], "01.20,3.7,0,177") << "no focus";
  EXPECT_EQ(line[411].substr(0, 9), "5,6,0,99,") << "nothing was captured";
}

TEST_F(ServiceFileOfTestDeal, IsMadeWithoutAPrompt) {
  DealAndFail();
  ASSERT_THAT(desk.Ui.Boxes, SizeIs(3));
  EXPECT_EQ(desk.Ui.Boxes[0], (FakeUi::Box{desk.Prog.Texts.Msg120, 1, "Test Deal"}));
  EXPECT_EQ(desk.Ui.Boxes[1],
            (FakeUi::Box{"     The 10S was recognised but ST was expected.    \r\n\r\n"
                         "     Click OK to generate Service File.       ",
                         1, "Test Deal"}));
  EXPECT_EQ(desk.Ui.Boxes[2].Text, Fill(desk.Prog.Texts.Msg089, "***", Path()));
}

TEST_F(ServiceFileOfTestDeal, AsksForTheErrorsPictureAndTheBuffer) {
  DealAndFail();
  EXPECT_THAT(SubCodes(0x0A), IsEmpty());
  EXPECT_THAT(SubCodes(0x15), IsEmpty());
  ASSERT_THAT(SubCodes(0x02), SizeIs(192));
  ASSERT_THAT(SubCodes(0x01), SizeIs(192));
  std::vector<int> order;
  for (const auto& frame : bridge.Sent) {
    const int code = frame[0];
    if (code != 0x25 && code != 0x01 && code != 0x02) continue;
    if (order.empty() || order.back() != code) order.push_back(code);
  }
  EXPECT_THAT(order, ElementsAre(0x25, 0x02, 0x01)) << "the question's verdict and the file's";
  EXPECT_EQ(Sent(0x25), 2U);
}

TEST_F(ServiceFileOfTestDeal, ACardThatWasNotTakenIsError61) {
  paper.ErrorVerdict = {99, 61, 0, 44, 55};
  DealAndFail();
  EXPECT_EQ(Lines()[396].substr(0, 11), "61,44,47,,,");
}

TEST_F(ServiceFileOfTestDeal, AnUnreadableCardIsToldByItsError) {
  paper.ErrorVerdict = {99, 0, 0, 44, 30};
  DealAndFail();
  EXPECT_EQ(desk.Ui.Boxes[1].Text, Fill(desk.Prog.Texts.Msg121, "***", "30"));
  EXPECT_EQ(Lines()[396].substr(0, 8), "30,44,47");
}

TEST_F(ServiceFileOfTestDeal, TheConsoleShowsTheVerdict) {
  desk.Ui.Answers = {kOk, kCancel};  // no file
  DealAndFail();
  EXPECT_THAT(Files(), IsEmpty());
  const auto& shown = console->Bench().Shown().Verdict;
  EXPECT_EQ(shown.Symbol + shown.Suit + shown.Reco_error, "10S62");
}

TEST_F(ServiceFileOfTestDeal, TheNextFilePromptsAgainAndTakesANewPicture) {
  DealAndFail();
  Forget();
  console->Email();
  EXPECT_THAT(desk.Ui.Boxes, SizeIs(2));
  EXPECT_EQ(Sent(0x0A), 1U);
  EXPECT_THAT(SubCodes(0x02), IsEmpty());
}

TEST_F(ServiceFileOfTestDeal, ACancelOrALostLinkLeavesNone) {
  for (const bool lost : {false, true}) {
    bool silent = false;
    OnAsked = [&](const test::Bytes& plain) {
      if (plain[0] != 0x02 || plain[1] != 100) return;
      if (lost) silent = true;
      if (!lost) view.Gathering->Cancel();
    };
    Begin();
    Damage = [&](const test::Bytes& plain, const test::Bytes&) {
      OnAsked(plain);
      if (silent) return test::Bytes{};
      if (plain[0] == 0x9F || plain[0] == 0x98) return test::OnTheWire(test::Short({0x18}), 21);
      if (plain[0] == 0x19) return test::OnTheWire(test::Short({0x19, 62, 0, 0, 0, 8}), 21);
      return paper.ReplyTo(plain);
    };
    console->DealTest();
    EXPECT_THAT(Files(), IsEmpty());
    EXPECT_FALSE(console->ServiceFiles().TestDealError);
    EXPECT_FALSE(machine.PollLock);
    EXPECT_EQ(console->Closed(), lost);
    console.reset();
  }
}

TEST_F(ServiceFileOfTestDeal, AFirmwareFileFromOutsideWaitsUntilItIsOver) {
  desk.Ui.Answers = {kOk, kOk, kOk, kOk};
  OnAsked = [&](const test::Bytes& plain) {
    if (plain[0] == 0x02 && plain[1] == 5) desk.Prog.Link = {LinkRequest::kDownload, "/none.adc"};
  };
  DealAndFail();
  EXPECT_EQ(desk.Prog.Link.Pending, LinkRequest::kDownload);
  EXPECT_EQ(Lines().size(), 415U);
  Forget();
  desk.Loop.WaitMs(Maintenance::kPollMs);
  EXPECT_EQ(desk.Prog.Link.Pending, LinkRequest::kNone);
  ASSERT_THAT(desk.Ui.Boxes, SizeIs(1));
  EXPECT_EQ(desk.Ui.Boxes[0].Title, "Download Error");
}

}  // namespace
}  // namespace morvane::maintenance
