#include "edit/ui/suit_box.h"

#include <QFocusEvent>
#include <QKeyEvent>
#include <array>

#include "edit/board_text.h"
#include "platform/qt/qt_text.h"
#include "text/text.h"

namespace morvane::edit {
namespace {

constexpr std::array<const char*, kSuits + 1> kSuitNames{"", "spades", "hearts", "diamonds",
                                                         "clubs"};
constexpr int kAround = 14;  // pixels beside a whole suit

QString SpokenName(int index) {
  return ToQt(HandName[static_cast<std::size_t>(HandOfBox(index))]) + " " +
         kSuitNames[static_cast<std::size_t>(SuitOfBox(index))];
}

/// A plain text box has uses of its own for these keys of the window.
bool IsForTheWindow(QKeyEvent& key) {
  const bool farAway = key.key() == Qt::Key_Home || key.key() == Qt::Key_End;
  return key.matches(QKeySequence::Undo) || key.matches(QKeySequence::Redo) ||
         (farAway && key.modifiers().testFlag(Qt::ControlModifier));
}

/// Behind the card that stands before the caret in `typed`.
int CaretIn(const std::string& shown, const FilteredBox& typed) {
  const auto caret = static_cast<std::size_t>(typed.Caret);
  if (caret >= typed.Text.size()) return static_cast<int>(shown.size());
  if (caret == 0) return 0;
  const std::size_t place = shown.find(UpperLetter(typed.Text[caret - 1]));
  return static_cast<int>(place == std::string::npos ? caret - 1 : place + 1);
}

}  // namespace

SuitBox::SuitBox(Editor& editor, int index, QWidget* parent)
    : FilteredEdit([this](const FilteredBox& box) { return Typed(box); }, parent),
      editor_(editor),
      index_(index) {
  setObjectName("txtSuit" + QString::number(index));
  setAccessibleName(SpokenName(index));
  setToolTip(SpokenName(index) + ": A K Q J T 9 8 7 6 5 4 3 2");
  setMinimumWidth(fontMetrics().horizontalAdvance(ToQt(CardLetters)) + kAround);
  SelectWholeOnFocus();
}

void SuitBox::Show() {
  if (typing_) return;
  const std::string shown = SuitText(editor_.EditBoard(), index_);
  if (shown == FromQt(text())) return;
  ShowText(shown);
  end(false);
}

FilteredBox SuitBox::Typed(const FilteredBox& box) {
  typing_ = true;
  editor_.ChangeSuit(index_, box.Text);
  typing_ = false;
  const std::string shown = SuitText(editor_.EditBoard(), index_);
  return {shown, CaretIn(shown, box)};
}

bool SuitBox::event(QEvent* event) {
  if (event->type() == QEvent::ShortcutOverride &&
      IsForTheWindow(static_cast<QKeyEvent&>(*event))) {
    event->ignore();
    return true;
  }
  return FilteredEdit::event(event);
}

void SuitBox::focusInEvent(QFocusEvent* event) {
  FilteredEdit::focusInEvent(event);
  editor_.EnterSuit(index_);
}

}  // namespace morvane::edit
