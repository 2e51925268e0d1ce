#include <gmock/gmock.h>

#include "edit/edit_desk.h"

namespace morvane::edit {
namespace {

using test::FakeUi;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

TEST(EditorAnalysis, TheCurrentBoardIsAnalysedAndShownAnew) {
  EditDesk desk;
  desk.Open(1, 3, 2);
  desk.OnAnalyze = [&](int board) { desk.Prog.Set.At(board).Tricks[0] = 3; };
  EXPECT_FALSE(desk.Edit.Analyzed());
  desk.Edit.Analyze();
  EXPECT_THAT(desk.Analyzed, ElementsAre(2));
  EXPECT_TRUE(desk.Edit.Analyzed());
  EXPECT_EQ(desk.Edit.EditBoard().Tricks[0], 3);
  EXPECT_THAT(desk.Ui.Boxes, IsEmpty());
}

TEST(EditorAnalysis, ChangesMustBeAcceptedFirst) {
  EditDesk desk;
  desk.Open();
  desk.Type(0, "");
  desk.Edit.Analyze();
  EXPECT_THAT(desk.Analyzed, IsEmpty());
  EXPECT_THAT(desk.Ui.Boxes,
              ElementsAre(FakeUi::Box{"      Please accept changes before analysis     \r\n",
                                      kOkCritical, "Analyze Error"}));
}

TEST(EditorAnalysis, OneThatRunsIsEnough) {
  EditDesk desk;
  desk.Open();
  desk.Prog.AnalysisRunning = true;
  desk.Edit.Analyze();
  EXPECT_THAT(desk.Analyzed, IsEmpty());
  EXPECT_THAT(desk.Ui.Boxes, ElementsAre(FakeUi::Box{"      Analysis is already running.      \r\n",
                                                     kOkCritical, "Analyze Error"}));
}

}  // namespace
}  // namespace morvane::edit
