#include <QAbstractButton>
#include <QTest>

#include "machine/reading_run.h"
#include "machine/ui/run_window.h"
#include "platform/qt/spoken.h"

namespace morvane::machine {
namespace {

using ::testing::HasSubstr;
using ::testing::IsEmpty;

constexpr int kMidBoard = 5000;  // milliseconds

/// `DealinProg` of a reading run over the empty boards 1 to 3.
class ReadWindow : public RunDesk {
 protected:
  ReadingRun run{desk.Prog, machine, memory, [this] { ++saves; }};
  int saves = 0;

  void SetUp() override {
    RunDesk::SetUp();
    for (int n = 1; n <= 3; ++n) desk.Prog.Set.At(n) = NumberedBoard(n);
    desk.Store.Set(kDealShow, "1");
    simulated.LayBoard(test::SuitBoard(1));
  }
  ~ReadWindow() override { window.reset(); }
  void Contact() {
    OpenWindow<DealinProg>(run);
    WaitForContact();
  }
  [[nodiscard]] std::string Said(const char* name) const {
    const auto& spoken = dynamic_cast<Spoken&>(test::Find<QWidget>(*window, name));
    return spoken.SpokenText().toStdString();
  }
  [[nodiscard]] bool Checked(const char* name) const {
    return test::Find<QAbstractButton>(*window, name).isChecked();
  }
};

TEST_F(ReadWindow, HasTheCaptionsOfReading) {
  desk.Store.Set(kDealCopy, "1");
  Contact();
  EXPECT_EQ(window->windowTitle(), "Morvane - Reading - Simulated machine");
  EXPECT_EQ(Text("cmdDeal") + "|" + Text("Deal_next") + "|" + Text("cmdClear"),
            "&Read|Read ne&xt|&Clear");
  EXPECT_EQ(Text("lblRun"), " Reading Boards ");
  EXPECT_FALSE(Visible("NumberCopies") || Visible("NextCopy")) << "a read run has no copies";
  EXPECT_TRUE(Visible("read_mode1") && Visible("read_mode2"));
  EXPECT_EQ(Text("read_mode1"), "Simulate hand dealing (single card to every hand)");
  EXPECT_EQ(Text("read_mode2"),
            "Read already played boards (cards sort in top-N-E-W-S-bottom order) ");
}

TEST_F(ReadWindow, AClickOnAReadModeIsWrittenAtOnce) {
  Contact();
  EXPECT_TRUE(Checked("read_mode1"));
  Click("read_mode2");
  EXPECT_EQ(desk.Store.Get(kInitReadMode), "1");
  EXPECT_TRUE(Checked("read_mode2"));
  Click("read_mode1");
  EXPECT_EQ(desk.Store.Get(kInitReadMode), "0");
}

TEST_F(ReadWindow, FaceDownCardsComeFirstAndThenTheBoard) {
  Contact();
  EXPECT_THAT(Said("Picture1"), HasSubstr("North: no cards."));
  MeanwhileAt(kMidBoard, [this] {
    EXPECT_THAT(Said("Picture1"), HasSubstr("The cards are under way, face down."));
    EXPECT_EQ(Text("lblProgress"), "Reading ...");
  });
  Click("cmdDeal");
  EXPECT_THAT(Said("Picture1"), HasSubstr("North: spades A K Q J T 9 8 7 6 5 4 3 2."));
  EXPECT_EQ(Counts(), "13 13 13 13");
  EXPECT_EQ(Text("lblProgress"), "Last board read");
  EXPECT_TRUE(Enabled("cmdClear"));
  EXPECT_EQ(FocusName(), "Deal_next");
}

TEST_F(ReadWindow, ItsLettersAreKeys) {
  Contact();
  PressLetter(Qt::Key_R, "cmdDeal");
  EXPECT_EQ(desk.Prog.Set.At(1).Status, Board::kComplete);
  desk.AnswerBox(QMessageBox::Yes);
  PressLetter(Qt::Key_C, "cmdClear");
  EXPECT_EQ(desk.Boxes.at(0).Title, "Clear Board");
  EXPECT_EQ(desk.Prog.Set.At(1).Status, Board::kEmpty);
  EXPECT_FALSE(Enabled("cmdClear"));
}

TEST_F(ReadWindow, ReturnReadsAndThenReadsTheNext) {
  Contact();
  test::Press(*window, Qt::Key_Return);
  EXPECT_EQ(desk.Prog.Set.At(1).Status, Board::kComplete);
  test::Press(*window, Qt::Key_Return);
  EXPECT_EQ(desk.Prog.Set.At(2).Status, Board::kComplete);
}

TEST_F(ReadWindow, ABoardThatIsThereAlreadyIsRefused) {
  desk.Prog.Set.At(1) = test::SuitBoard(1);
  Contact();
  EXPECT_TRUE(Enabled("cmdClear"));
  desk.AnswerBox(QMessageBox::Ok);
  Click("cmdDeal");
  EXPECT_EQ(desk.Boxes.at(0).Title, "Reading Error");
  EXPECT_EQ(desk.Boxes.at(0).Text,
            "Board not empty - cannot read this board.\n"
            "Please clear this board or generate an empty board set.");
}

TEST_F(ReadWindow, ItsOptionsStandStillWhileCardsRun) {
  Contact();
  MeanwhileAt(kMidBoard, [this] {
    for (const char* name : {"read_mode1", "read_mode2", "cmdClear", "cmdDeal", "Deal_next"}) {
      EXPECT_FALSE(Enabled(name)) << name;
    }
    Click("read_mode2");
    EXPECT_TRUE(Enabled("cmdBreak"));
  });
  Click("cmdDeal");
  EXPECT_TRUE(Checked("read_mode1"));
  EXPECT_EQ(desk.Store.Get(kInitReadMode), "0");
}

TEST_F(ReadWindow, TheHistoryTellsWhatWasRead) {
  Contact();
  EXPECT_EQ(Text("lblLeft"), "3 boards left");
  Click("cmdDeal");
  EXPECT_EQ(Text("lblLeft"), "2 boards left, less than a minute");
  EXPECT_THAT(desk.Boxes, IsEmpty());
}

}  // namespace
}  // namespace morvane::machine
