#include "shell/ui/statistics_panel.h"

#include <QApplication>
#include <QClipboard>
#include <QHeaderView>
#include <QStyle>
#include <QTreeWidget>
#include <utility>

#include "shell/ui/bar_chart.h"
#include "shell/ui/main_menu_desk.h"

namespace morvane::shell {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

class Statistics : public MainMenuTest {
 protected:
  Statistics() {
    desk.Store.Set(kDealShow, "1");
    for (int n = 1; n <= 3; ++n) desk.Prog.Set.At(n) = test::SuitBoard(n);
    desk.Prog.Set.FirstBoard = 1;
    desk.Prog.Set.LastBoard = 3;
  }
  /// The rows of a list, cell by cell as they stand there.
  [[nodiscard]] std::vector<std::string> Rows(const char* list) const {
    const auto& view = test::Find<QTreeWidget>(*menu, list);
    std::vector<std::string> rows;
    for (int row = 0; row < view.topLevelItemCount(); ++row) {
      QStringList cells;
      for (int i = 0; i < view.columnCount(); ++i) cells << view.topLevelItem(row)->text(i);
      rows.push_back(cells.join("|").toStdString());
    }
    return rows;
  }
};

TEST_F(Statistics, OfTheSetStandInListsAndBoxes) {
  Start();
  ShowFigures();
  EXPECT_THAT(Rows("HandStat"), ElementsAre("Average HCP:|10.00|10.00|10.00|10.00|20.00|20.00",
                                            "Balanced Hands:|   0|   0|   0|   0|   0|   0",
                                            "Voids:|   9|   9|   9|   9|  18|  18",
                                            "Singletons:|   0|   0|   0|   0|   0|   0",
                                            "Long suits (7+):|   3|   3|   3|   3|   6|   6"));
  // Of 12 hands: 2.59, 1.86, 1.55, 1.27, 1.26, 0.68, 0.56, and 0.41 of "6331".
  EXPECT_THAT(Rows("lbxShapes"),
              ElementsAre("4432|   0|   3| -3", "5332|   0|   2| -2", "5431|   0|   2| -2",
                          "5422|   0|   1| -1", "4333|   0|   1| -1", "6322|   0|   1| -1",
                          "6421|   0|   1| -1"));
  EXPECT_EQ(Text("txtMaxFreq"), "100% A♠ N");
  EXPECT_EQ(Text("txtMinFreq"), "0% A♥ N");
  EXPECT_EQ(Text("txtInDeals"), "13, 2N:1N");
}

TEST_F(Statistics, NumbersStandAtTheRightOfTheirColumns) {
  Start();
  ShowFigures();
  for (const char* list : {"HandStat", "lbxShapes"}) {
    const QTreeWidgetItem& row = *test::Find<QTreeWidget>(*menu, list).topLevelItem(0);
    EXPECT_FALSE(row.textAlignment(0) & Qt::AlignRight) << list;
    for (int i = 1; i < row.columnCount(); ++i) {
      EXPECT_TRUE(row.textAlignment(i) & Qt::AlignRight) << list << i;
    }
  }
}

TEST_F(Statistics, OfASetThatGoesGoToo) {
  Start();
  ShowFigures();
  desk.Prog.Set.Clear();
  desk.Prog.Operator.RefreshSet();
  EXPECT_THAT(Rows("HandStat"), IsEmpty());
  EXPECT_THAT(Rows("lbxShapes"), IsEmpty());
  EXPECT_EQ(Text("txtMaxFreq") + Text("txtInDeals") + Text("txtLastBoard"), "");
}

TEST_F(Statistics, AreCountedWhenTheyAreShown) {
  desk.Store.Set(kDealShow, "0");
  Start();
  test::Click(*menu, "ShowStat");
  EXPECT_THAT(Rows("HandStat"), SizeIs(5));
  EXPECT_EQ(Text("txtCompleted"), "3");
  test::Click(*menu, "ShowStat");
  EXPECT_THAT(Rows("HandStat"), IsEmpty());
  EXPECT_EQ(Text("txtCompleted"), "3");
}

TEST_F(Statistics, EnterAndTheSpaceKeyPressTheirButton) {
  Start();
  test::Find<QWidget>(*menu, "ShowStat").setFocus();
  for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Space}) {
    const bool before = desk.Prog.ShowStatistics;
    test::Press(*menu, key);
    EXPECT_NE(desk.Prog.ShowStatistics, before) << key;
  }
}

TEST_F(Statistics, TheTabKeyGoesOnBelowWhereTheListsStandBelowOneAnother) {
  Start();
  menu->resize(560, 700);
  desk.Loop.Pump();
  test::Find<QWidget>(*menu, "HandStat").setFocus();
  const auto& part = *test::Find<QWidget>(*menu, "HandStat").parentWidget()->parentWidget();
  int last = -1;
  for (const char* name : {"HandStat", "txtMaxFreq", "txtMinFreq", "txtInDeals", "lbxShapes"}) {
    EXPECT_EQ(menu->focusWidget()->objectName().toStdString(), name);
    const int y = menu->focusWidget()->mapTo(&part, QPoint()).y();
    EXPECT_GT(y, last) << name;
    last = y;
    test::Press(*menu, Qt::Key_Tab);
  }
}

TEST_F(Statistics, ASelectedRowIsCopiedWithTabs) {
  Start();
  ShowFigures();
  test::Click(test::Find<QWidget>(*menu, "HandStat"));
  auto& list = test::Find<QTreeWidget>(*menu, "HandStat");
  list.setFocus();
  test::Press(*menu, Qt::Key_Home);
  test::Press(*menu, Qt::Key_Down, Qt::ShiftModifier);
  test::Press(*menu, Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(QApplication::clipboard()->text().toStdString(),
            "Average HCP:\t10.00\t10.00\t10.00\t10.00\t20.00\t20.00\n"
            "Balanced Hands:\t0\t0\t0\t0\t0\t0\n");
}

TEST_F(Statistics, WithoutASelectionAllRowsAreCopied) {
  Start();
  ShowFigures();
  auto& list = test::Find<QTreeWidget>(*menu, "lbxShapes");
  list.setFocus();
  list.clearSelection();
  test::Press(*menu, Qt::Key_C, Qt::ControlModifier);
  EXPECT_THAT(QApplication::clipboard()->text().split('\n'), SizeIs(8));
  EXPECT_TRUE(QApplication::clipboard()->text().startsWith("4432\t0\t3\t-3\n"));
}

TEST_F(Statistics, CommandsDuringTheirPumpsDoNothingAndBreakNothing) {
  Start();
  const std::string path = desk.Folder / "other.pbn";
  std::vector<std::string> seen;
  desk.Loop.OnPump = [&, before = desk.Loop.OnPump] {
    before();
    if (!shell.FlowActive() || seen.size() == 2) return;
    seen.push_back(Text("txtFirstBoard"));
    EXPECT_NE(QApplication::overrideCursor(), nullptr);
    test::Press(*menu, Qt::Key_N, Qt::ControlModifier);
    test::Press(*menu, Qt::Key_O, Qt::ControlModifier);
    test::Press(*menu, Qt::Key_E, Qt::ControlModifier);
    test::Press(*menu, Qt::Key_S, Qt::ControlModifier);
    test::Press(*menu, Qt::Key_D, Qt::ControlModifier);
    test::Press(*menu, Qt::Key_Q, Qt::ControlModifier);
    Trigger("menuImport");
    test::Click(*menu, "ShowStat");
    test::Find<QWidget>(*menu, "ShowStat").setFocus();
    test::Press(*menu, Qt::Key_Space);
    EXPECT_FALSE(menu->close());
    shell.LinkExecute("1" + path);
  };
  test::Click(*menu, "ShowStat");
  EXPECT_THAT(seen, ElementsAre("", "1")) << "pumped with everything cleared, and with the lists";
  EXPECT_THAT(desk.Boxes, IsEmpty());
  EXPECT_FALSE(desk.Prog.ShowStatistics) << "pressed once";
  EXPECT_EQ(Text("txtCompleted"), "3");
  EXPECT_TRUE(menu->isVisible());
  EXPECT_EQ(QApplication::overrideCursor(), nullptr);
  EXPECT_EQ(desk.Prog.Link.File, path) << "the request waits for its timer";
}

TEST_F(Statistics, BarsStandBesideTheListsWhereThereIsRoomAndElseBelow) {
  Start();
  const auto place = [this](const char* name) {
    const auto& control = test::Find<QWidget>(*menu, name);
    return QRect(control.mapTo(menu.get(), QPoint()), control.size());
  };
  menu->resize(1100, 700);
  desk.Loop.Pump();
  EXPECT_GT(place("ShapeBars").left(), place("lbxShapes").right());
  EXPECT_GT(place("PointBars").top(), place("ShapeBars").bottom());
  menu->resize(720, 700);
  desk.Loop.Pump();
  EXPECT_GT(place("ShapeBars").top(), place("lbxShapes").bottom());
  EXPECT_GT(place("PointBars").left(), place("ShapeBars").right());
  menu->resize(560, 700);
  desk.Loop.Pump();
  EXPECT_GT(place("lbxShapes").top(), place("txtInDeals").bottom()) << "nor for both lists";
  menu->resize(1100, 700);
  desk.Loop.Pump();
  EXPECT_GT(place("ShapeBars").left(), place("lbxShapes").right());
}

TEST_F(Statistics, NoChartIsNarrowerThanItsHead) {
  Start();
  for (int width = 420; width <= 1300; width += 20) {
    menu->resize(width, 700);
    desk.Loop.Pump();
    for (const char* name : {"ShapeBars", "PointBars"}) {
      const auto& chart = test::Find<QWidget>(*menu, name);
      EXPECT_GE(chart.width(), chart.minimumSizeHint().width()) << name << " " << width;
    }
  }
}

TEST_F(Statistics, NoCellIsCutWhateverTheFont) {
  const QFont before = QApplication::font();
  for (const double scale : {1.0, 1.5, 2.0}) {
    QFont font = before;
    font.setPointSizeF(before.pointSizeF() * scale);
    QApplication::setFont(font);
    StatisticsPage page;
    page.Totals.CompletedBoards = 1;
    page.Totals.HcpTotal = {0, 37, 37, 37, 37};
    page.Hands = HandRows(page.Totals);
    page.Shapes = ShapeRows(page.Totals);
    StatisticsPanel panel(nullptr);
    panel.Show(page);
    for (const char* name : {"HandStat", "lbxShapes"}) {
      const auto& list = test::Find<QTreeWidget>(panel, name);
      const int margins = 2 * (list.style()->pixelMetric(QStyle::PM_FocusFrameHMargin) + 1);
      for (int row = 0; row < list.topLevelItemCount(); ++row) {
        for (int i = 0; i < list.columnCount(); ++i) {
          const QString cell = list.topLevelItem(row)->text(i);
          EXPECT_LE(list.fontMetrics().horizontalAdvance(cell) + margins, list.columnWidth(i))
              << cell.toStdString() << " at " << scale;
        }
      }
    }
  }
  QApplication::setFont(before);
}

TEST_F(Statistics, AFocusInThemGoesToTheirButtonWhenTheyAreHidden) {
  Start();
  ShowFigures();
  for (const auto& [from, to] : {std::pair("lbxShapes", "ShowStat"),
                                 {"txtInDeals", "ShowStat"},
                                 {"txtEventSite", "txtEventSite"}}) {
    test::Find<QWidget>(*menu, from).setFocus();
    shell.ShowStat();
    EXPECT_EQ(menu->focusWidget()->objectName(), to) << from;
    shell.ShowStat();
    EXPECT_EQ(menu->focusWidget()->objectName(), to) << from;
  }
}

TEST_F(Statistics, BarsAreOfTheListedShapesAndOfThePoints) {
  Start();
  ShowFigures();
  // 12 hands of one suit each, 10 points in each; 0.0940 + 0.0894 of all hands have 10 or 11.
  EXPECT_THAT(test::Find<BarChart>(*menu, "PointBars").SpokenText().split("; "), SizeIs(12));
  EXPECT_TRUE(test::Find<BarChart>(*menu, "PointBars")
                  .SpokenText()
                  .contains("; 10-11: 12, expected 2.2; "));
  // What the list has is not read twice.
  EXPECT_EQ(test::Find<BarChart>(*menu, "ShapeBars").SpokenText(),
            "The numbers stand in the list of hand shapes");
  desk.Prog.Set.Clear();
  desk.Prog.Operator.RefreshSet();
  EXPECT_EQ(test::Find<BarChart>(*menu, "PointBars").SpokenText(), "");
  EXPECT_EQ(test::Find<BarChart>(*menu, "ShapeBars").SpokenText(), "");
}

}  // namespace
}  // namespace morvane::shell
