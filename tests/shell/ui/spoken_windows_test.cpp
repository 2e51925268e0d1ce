#include <QAbstractButton>
#include <QAccessible>
#include <QFileDialog>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTreeWidget>

#include "platform/qt/spoken.h"
#include "shell/ui/every_window.h"
#include "support/qt_screen_reader.h"

namespace morvane::shell {
namespace {

using ::testing::Contains;
using ::testing::IsSupersetOf;
using ::testing::Not;

using Announcement = std::pair<std::string, std::string>;  ///< whose, and the new text

std::vector<Announcement>& Heard() {
  static std::vector<Announcement> heard;
  return heard;
}

void Hear(QAccessibleEvent* event) {
  if (event->object() == nullptr) return;
  const std::string name = event->object()->objectName().toStdString();
  if (event->type() == QAccessible::TextUpdated) {
    const auto& update = *static_cast<QAccessibleTextUpdateEvent*>(event);
    Heard().emplace_back(name, update.textInserted().toStdString());
  } else if (event->type() == QAccessible::TextInserted) {
    const auto& insert = *static_cast<QAccessibleTextInsertEvent*>(event);
    Heard().emplace_back(name, insert.textInserted().toStdString());
  } else if (event->type() == QAccessible::TableModelChanged) {
    const auto& change = *static_cast<QAccessibleTableModelChangeEvent*>(event);
    Heard().emplace_back(name, "cell " + std::to_string(change.firstRow()) + ", " +
                                   std::to_string(change.firstColumn()));
  }
}

QAccessibleInterface& InterfaceOf(QWidget& control) {
  QAccessibleInterface* found = QAccessible::queryAccessibleInterface(&control);
  if (found == nullptr) std::abort();
  return *found;
}

std::string Name(QWidget& control) {
  return InterfaceOf(control).text(QAccessible::Name).toStdString();
}
std::string Value(QWidget& control) {
  return InterfaceOf(control).text(QAccessible::Value).toStdString();
}

/// A screen reader is there.
class SpokenWindows : public EveryWindow {
 protected:
  SpokenWindows() {
    test::StartScreenReader(true);
    before_ = QAccessible::installUpdateHandler(Hear);
    Heard().clear();
  }
  ~SpokenWindows() override {
    QAccessible::installUpdateHandler(before_);
    test::StartScreenReader(false);
  }

 private:
  QAccessible::UpdateHandler before_;
};

/// What somebody can use or has to know.
bool SaysSomething(QWidget& control) {
  return qobject_cast<QAbstractButton*>(&control) != nullptr ||
         qobject_cast<QLineEdit*>(&control) != nullptr ||
         qobject_cast<QPlainTextEdit*>(&control) != nullptr ||
         qobject_cast<QTreeWidget*>(&control) != nullptr ||
         dynamic_cast<Spoken*>(&control) != nullptr;
}

TEST_F(SpokenWindows, EveryControlHasAName) {
  int controls = 0;
  LookAtAll([&](QWidget& window) {
    if (qobject_cast<QFileDialog*>(&window) != nullptr) return;  // is named by who made it
    for (auto* control : window.findChildren<QWidget*>()) {
      if (!control->isVisible() || !SaysSomething(*control)) continue;
      ++controls;
      EXPECT_NE(Name(*control), "")
          << window.objectName().toStdString() << " " << control->objectName().toStdString();
    }
  });
  EXPECT_GT(controls, 80);
}

TEST_F(SpokenWindows, AButtonOfOneSignSaysWhatItDoes) {
  LookAtRun([](QWidget& window) {
    if (window.objectName() != "DealinProg") return;
    EXPECT_EQ(Name(test::Find<QWidget>(window, "PrevCopy")), "One copy back");
    EXPECT_EQ(Name(test::Find<QWidget>(window, "NextCopy")), "One copy on");
  });
}

TEST_F(SpokenWindows, AReadOnlyBoxTellsItsValueAndItsChanges) {
  Start();
  ShowFigures();
  EXPECT_EQ(Name(test::Find<QWidget>(*menu, "txtLastBoard")), "Last Board:");
  EXPECT_EQ(Value(test::Find<QWidget>(*menu, "txtLastBoard")), "3");
  EXPECT_EQ(Name(test::Find<QWidget>(*menu, "txtCompleted")), "Completed Boards:");
  EXPECT_EQ(Name(test::Find<QWidget>(*menu, "txtFileName")), "File Name:");
  EXPECT_EQ(Name(test::Find<QWidget>(*menu, "HandStat")), "Hand Statistics");
  EXPECT_TRUE(InterfaceOf(test::Find<QWidget>(*menu, "txtLastBoard")).state().readOnly);
  Heard().clear();
  test::FillSet(desk.Prog.Set, 1, 5);
  ShowFigures();
  EXPECT_THAT(Heard(),
              IsSupersetOf({Announcement("txtLastBoard", "5"), Announcement("txtCount", "5")}));
}

TEST_F(SpokenWindows, TheStatisticsAreReadCellByCell) {
  desk.Store.Set(kDealShow, "1");
  Start();
  const std::vector<std::tuple<const char*, std::string, int, std::string>> lists{
      {"HandStat", "Hand Statistics", 7, "Hand:"}, {"lbxShapes", "Hand Shapes", 4, "Shape"}};
  for (const auto& [name, spoken, columns, caption] : lists) {
    auto& list = test::Find<QTreeWidget>(*menu, name);
    EXPECT_EQ(Name(list), spoken);
    QAccessibleTableInterface* table = InterfaceOf(list).tableInterface();
    ASSERT_NE(table, nullptr);
    EXPECT_EQ(table->columnCount(), columns);
    EXPECT_EQ(table->columnDescription(0).toStdString(), caption);
    auto* row = new QTreeWidgetItem(&list, {"4-3-3-3", "   7"});
    desk.Loop.Pump();
    ASSERT_EQ(table->rowCount(), 1);
    EXPECT_EQ(table->cellAt(0, 0)->text(QAccessible::Name), "4-3-3-3");
    EXPECT_EQ(table->cellAt(0, 1)->text(QAccessible::Name), "   7");
    Heard().clear();
    row->setText(1, "  12");
    EXPECT_THAT(Heard(), Contains(Announcement(name, "cell 0, 1")));
    EXPECT_EQ(table->cellAt(0, 1)->text(QAccessible::Name), "  12") << "read afresh";
  }
}

TEST_F(SpokenWindows, TheStatusIsAnnounced) {
  Start();
  menu->Status("      Boards imported: 1      ");
  EXPECT_THAT(Heard(), Contains(Announcement("Panel1", "Boards imported: 1")));
  EXPECT_EQ(Name(test::Find<QWidget>(*menu, "Panel1")), "Status");
  EXPECT_EQ(Value(test::Find<QWidget>(*menu, "Panel1")), "Boards imported: 1");
}

TEST_F(SpokenWindows, TheRunTellsItsStateAndItsCounts) {
  // The machine takes the cards in their order, ace of spades first: the hands get them in turn.
  LookAtRun([](QWidget& window) {
    if (window.objectName() != "DealinProg") return;
    EXPECT_EQ(Name(test::Find<QWidget>(window, "txtStatus")), "State of the machine");
    EXPECT_EQ(Value(test::Find<QWidget>(window, "txtStatus")), "Idle");
    EXPECT_EQ(Name(test::Find<QWidget>(window, "lblCnt_2")), "East cards");
    EXPECT_EQ(Name(test::Find<QWidget>(window, "lblHCP_2")), "East points");
    EXPECT_EQ(Value(test::Find<QWidget>(window, "Sublast")), "3");
    EXPECT_EQ(Name(test::Find<QWidget>(window, "Sublast")), "Last board of the set");
    Heard().clear();
  });
  EXPECT_THAT(Heard(), IsSupersetOf({Announcement("txtStatus", "Error"),
                                     Announcement("lblProgress", "Dealing ..."),
                                     Announcement("lblCnt_1", "0"), Announcement("lblCnt_1", "1"),
                                     Announcement("lblCnt_4", "2")}));
  EXPECT_THAT(Heard(), Contains(::testing::Pair("txtDealTime", Not(""))));
}

TEST_F(SpokenWindows, ATextThatStaysIsAnnouncedOnce) {
  Start();
  for (int i = 0; i < 3; ++i) menu->Status("Ready to go");
  EXPECT_EQ(std::count(Heard().begin(), Heard().end(), Announcement("Panel1", "Ready to go")), 1);
}

TEST_F(SpokenWindows, TheDiagramIsReadInWords) {
  desk.Prog.Set.At(1) = test::SuitBoard(1);
  LookAtRun([](QWidget& window) {
    if (window.objectName() != "DealinProg") return;
    auto& picture = test::Find<QWidget>(window, "Picture1");
    EXPECT_EQ(InterfaceOf(picture).role(), QAccessible::Graphic);
    EXPECT_EQ(Name(picture), "Board diagram");
    EXPECT_THAT(Value(picture),
                ::testing::StartsWith("Board: 1, Copy: 1/1, Vul: None, Dealer: North."
                                      " North: spades A K Q J T 9 8 7 6 5 4 3 2."));
    QAccessibleTextInterface* text = InterfaceOf(picture).textInterface();
    ASSERT_NE(text, nullptr);
    EXPECT_EQ(text->text(0, 8), "Board: 1");
    EXPECT_EQ(text->characterCount(), static_cast<int>(Value(picture).size()));
    Heard().clear();
    test::Click(window, "cmdNext");
    EXPECT_THAT(Heard(), Contains(::testing::Pair("Picture1", ::testing::HasSubstr("Board: 2"))));
    test::Click(window, "cmdPrev");
  });
}

TEST_F(SpokenWindows, ThePocketsOfTheSimulatedMachineAreReadWithoutMarkup) {
  LookAtPanel([](QWidget& panel) {
    EXPECT_EQ(Name(test::Find<QWidget>(panel, "lblPocket_3")), "South pocket");
    EXPECT_THAT(Value(test::Find<QWidget>(panel, "lblPocket_3")), ::testing::StartsWith("0"));
    EXPECT_THAT(Value(test::Find<QWidget>(panel, "lblPocket_3")), Not(::testing::HasSubstr("<")));
  });
}

}  // namespace
}  // namespace morvane::shell
