#include <QAbstractButton>
#include <QListWidget>
#include <QTest>

#include "machine/sorting_run.h"
#include "machine/ui/run_window.h"
#include "machine/ui/sort_prog.h"

namespace morvane::machine {
namespace {

using ::testing::HasSubstr;
using ::testing::IsEmpty;

constexpr int kMidPile = 5000;  // milliseconds

/// `SortProg`, with no set.
class SortWindow : public RunDesk {
 protected:
  using RunDesk::RunDesk;
  SortingRun run{desk.Prog, machine, memory};

  void SetUp() override {
    RunDesk::SetUp();
    desk.Prog.Set.Clear();
  }
  ~SortWindow() override { window.reset(); }
  void Contact() {
    OpenWindow<SortProg>(run);
    WaitForContact();
  }
  [[nodiscard]] std::string Ground(const char* name) const {
    const QString style = test::Find<QWidget>(*window, name).styleSheet();
    return style.section(':', 1).left(7).toStdString();
  }
};

const std::string kRed = "#c0392b";
const std::string kGreen = "#278045";
const std::string kGrey = "#6f6f6f";

TEST_F(SortWindow, ShowsTheSortBoxesAndNothingOfABoard) {
  Contact();
  EXPECT_EQ(window->objectName(), "DealinProg");
  EXPECT_EQ(window->windowTitle(), "Morvane - Sorting - Simulated machine");
  EXPECT_EQ(Text("LsortN") + Text("LsortE") + Text("LsortS") + Text("LsortW"),
            "NorthEastSouthWest");
  for (const char* box : {"SortN", "SortE", "SortS", "SortW"}) {
    EXPECT_TRUE(Visible(box)) << box;
    EXPECT_EQ(Ground(box), kGrey) << box;
  }
  EXPECT_EQ(Text("cmdSort") + "|" + Text("cmdSortBreak"), "Sort|&Break");
  EXPECT_TRUE(Enabled("cmdSort") && Enabled("cmdExit"));
  EXPECT_FALSE(Enabled("cmdSortBreak"));
  for (const char* name :
       {"Picture1", "cmdFirst", "cmdLast", "NumberCopies", "cmdDeal", "Deal_next", "cmdBreak",
        "txtFile", "Disp_boards", "lblCnt_1", "Start_from_box", "Check_board"}) {
    const auto* control = window->findChild<QWidget*>(name);
    EXPECT_TRUE(control == nullptr || !control->isVisible()) << name;
  }
  EXPECT_TRUE(Visible("National_1") && Visible("Card_Index_sm"));
}

TEST_F(SortWindow, TheCountsRiseInTheirBoxes) {
  Contact();
  MeanwhileAt(kMidPile, [this] {
    EXPECT_EQ(Text("txtStatus"), "Busy");
    EXPECT_EQ(Text("lblProgress"), "Sorting ...");
    int cards = 0;
    for (const char* box : {"SortN", "SortE", "SortS", "SortW"}) {
      cards += std::stoi(Text(box));
      EXPECT_EQ(Ground(box), kRed) << box;
    }
    EXPECT_TRUE(cards > 10 && cards < 25) << cards << ": a card falls every 0.28 s";
    EXPECT_EQ(Text("SortN_word"), "filling");
    EXPECT_TRUE(Enabled("cmdSortBreak"));
    EXPECT_FALSE(Enabled("cmdSort") || Enabled("cmdExit"));
  });
  Click("cmdSort");
  EXPECT_EQ(Text("SortN") + Text("SortE") + Text("SortS") + Text("SortW"), "52525252");
  EXPECT_EQ(Ground("SortN"), kGreen);
  EXPECT_EQ(Text("SortN_word"), "full");
  EXPECT_EQ(LastLine(), "  Sort: 0,0,0,0 OK");
  EXPECT_EQ(FocusName(), "cmdSort");
  const auto& history = test::Find<QListWidget>(*window, "lstHistory");
  ASSERT_EQ(history.count(), 1);
  EXPECT_THAT(history.item(0)->text().toStdString(),
              ::testing::MatchesRegex("Sort 1   5[0-9]\\.[0-9] s   done"));
}

TEST_F(SortWindow, ASortBeginsAtNoughtInRed) {
  Contact();
  for (int sort = 0; sort < 2; ++sort) {
    MeanwhileAt(1, [this] {
      for (const char* box : {"SortN", "SortE", "SortS", "SortW"}) {
        EXPECT_EQ(Text(box), "0") << box;
        EXPECT_EQ(Ground(box), kRed) << box;
        EXPECT_EQ(Text((std::string(box) + "_word").c_str()), "filling");
      }
    });
    Click("cmdSort");
  }
}

TEST_F(SortWindow, AMachineThatIsSwitchedOffHasStoppedShort) {
  Contact();
  MeanwhileAt(kMidPile, [this] { simulated.PowerOff(); });
  desk.When("MessageBox", [this](QWidget& box) {
    EXPECT_EQ(Text("txtStatus"), "Down");
    EXPECT_EQ(Text("lblProgress"), "Lost communication with the machine");
    EXPECT_EQ(Text("SortN_word"), "stopped short") << "the pile has not gone through";
    box.close();
  });
  Click("cmdSort");
  EXPECT_TRUE(run.Closed());
}

class SortOfOnePack : public SortWindow {
 protected:
  SortOfOnePack() : SortWindow(OnePack()) {}
  static simulator::Options OnePack() {
    simulator::Options options = Options();
    options.Packs = 1;
    return options;
  }
};

TEST_F(SortOfOnePack, APileThatFillsNoPocketHasNotStoppedShort) {
  Contact();
  Click("cmdSort");
  int cards = 0;
  for (const char* box : {"SortN", "SortE", "SortS", "SortW"}) {
    cards += std::stoi(Text(box));
    EXPECT_EQ(Ground(box), kRed) << "only 52 are green";
    EXPECT_EQ(Text((std::string(box) + "_word").c_str()), "not full");
  }
  EXPECT_EQ(cards, 52);
  EXPECT_EQ(Text("lblProgress"), "Last sort done");
}

TEST_F(SortWindow, ABoxIsPaintedOnlyWhenItsNumberHasChanged) {
  class Watch final : public QObject {
   public:
    bool eventFilter(QObject* /*watched*/, QEvent* event) override {
      Paints += event->type() == QEvent::Paint ? 1 : 0;
      return false;
    }
    int Paints = 0;
  } watch;
  Contact();
  auto& box = test::Find<QWidget>(*window, "SortN");
  MeanwhileAt(kMidPile, [&] { box.installEventFilter(&watch); });
  int before = 0;
  MeanwhileAt(kMidPile + 1, [&] { before = std::stoi(Text("SortN")); });
  Click("cmdSort");
  box.removeEventFilter(&watch);
  const int changes = std::stoi(Text("SortN")) - before;
  EXPECT_GE(watch.Paints, changes);
  EXPECT_LE(watch.Paints, changes + 4) << "of several hundred polls; its ground turns green, too";
}

TEST_F(SortWindow, KeysAndThePedalSort) {
  Contact();
  PressLetter(Qt::Key_S, "cmdSort");
  test::Press(*window, Qt::Key_Return);
  test::Press(*window, Qt::Key_Space);
  simulated.PressPedal();
  desk.Loop.WaitMs(200);
  EXPECT_EQ(run.History().Count(), 4U);
}

TEST_F(SortWindow, TheKeyThatStartedItDoesNotBreakItWhenPressedAgain) {
  Contact();
  for (int ms = 500; ms < 10000; ms += 500) {
    MeanwhileAt(ms, [this] {
      test::Press(*window, Qt::Key_Space);
      test::Press(*window, Qt::Key_Return);
      test::Press(*window, Qt::Key_Tab);
      test::Press(*window, Qt::Key_Escape);
    });
  }
  test::Press(*window, Qt::Key_Space);
  EXPECT_EQ(LastLine(), "  Sort: 0,0,0,0 OK");
  EXPECT_TRUE(window->isVisible());
}

TEST_F(SortWindow, BreakStopsItShort) {
  Contact();
  MeanwhileAt(kMidPile, [this] { test::Press(*window, Qt::Key_B, Qt::AltModifier); });
  desk.When("Error_disp", [this](QWidget& error) {
    EXPECT_EQ(test::TextOf(error, "Error_label"), "Break Dealing");
    EXPECT_EQ(Text("SortN_word"), "stopped short");
    test::Click(error, "Cancel_button");
  });
  Click("cmdSort");
  EXPECT_EQ(LastLine(), "  Sort: 0,0,0,0 57");
  EXPECT_EQ(Text("SortN_word"), "stopped short");
  EXPECT_EQ(test::Find<QListWidget>(*window, "lstHistory").item(0)->text(),
            "Sort 1   stopped: Break Dealing");
}

TEST_F(SortWindow, TheCloseBoxInTheMiddleBreaksItAndClosesAfterIt) {
  Contact();
  MeanwhileAt(kMidPile, [this] {
    window->close();
    EXPECT_TRUE(window->isVisible());
  });
  Click("cmdSort");
  EXPECT_TRUE(run.Closed());
  EXPECT_FALSE(window->isVisible());
  EXPECT_FALSE(simulated.Busy());
  EXPECT_THAT(desk.Boxes, IsEmpty());
}

}  // namespace
}  // namespace morvane::machine
