#include "platform/qt/filtered_edit.h"

#include <QTest>

#include "platform/qt/number_edit.h"
#include "platform/qt/qt_text.h"
#include "support/qt_desk.h"

namespace morvane {
namespace {

TEST(FilteredEdit, GivesTheFilterTheTextAndTheCaretInCharacters) {
  FilteredBox seen;
  FilteredEdit box([&](FilteredBox typed) { return seen = typed; });
  box.ShowText("\xF0\x9D\x84\x9E\xF0\x9D\x84\x9E");  // two clefs, each two units of UTF-16
  box.setCursorPosition(4);
  QTest::keyClick(&box, 'a');
  EXPECT_EQ(seen.Text,
            "\xF0\x9D\x84\x9E\xF0\x9D\x84\x9E"
            "a");
  EXPECT_EQ(seen.Caret, 3);
}

TEST(FilteredEdit, ShowsWhatTheFilterGivesBack) {
  FilteredEdit box([](const FilteredBox&) { return FilteredBox{"\xF0\x9D\x84\x9E\xC3\xA9x", 2}; });
  QTest::keyClick(&box, 'a');
  EXPECT_EQ(FromQt(box.text()), "\xF0\x9D\x84\x9E\xC3\xA9x");
  EXPECT_EQ(box.cursorPosition(), 3) << "behind the clef and the e";
}

TEST(FilteredEdit, ATextThatIsOnlyShownIsNotFiltered) {
  int calls = 0;
  FilteredEdit box([&](FilteredBox typed) {
    ++calls;
    return typed;
  });
  box.ShowText("abc");
  EXPECT_EQ(calls, 0);
}

TEST(FilteredEdit, APastedTextIsFilteredAsAWhole) {
  NumberEdit box(99);
  box.ShowNumber(7);
  box.selectAll();
  box.insert("12");
  EXPECT_EQ(box.text(), "12");
  box.selectAll();
  box.insert("1x");
  EXPECT_EQ(box.text(), "12");
}

TEST(NumberEdit, RefusesAZeroInFrontALetterAndMoreThanTheLimit) {
  NumberEdit box(640);
  QTest::keyClicks(&box, "0x64");
  EXPECT_EQ(box.text(), "64");
  QTest::keyClicks(&box, "1");
  EXPECT_EQ(box.text(), "64") << "641 is one too many";
  EXPECT_EQ(box.cursorPosition(), 2) << "one left of where the 1 had put it";
  QTest::keyClicks(&box, "0");
  EXPECT_EQ(box.text(), "640");
}

TEST(NumberEdit, TellsOnlyOfTextsThatStand) {
  NumberEdit box(9);
  std::vector<std::string> changes;
  box.OnChange = [&](const std::string& text) { changes.push_back(text); };
  QTest::keyClicks(&box, "a5x");
  QTest::keyClick(&box, Qt::Key_Backspace);
  EXPECT_THAT(changes, ::testing::ElementsAre("5", ""));
}

}  // namespace
}  // namespace morvane
