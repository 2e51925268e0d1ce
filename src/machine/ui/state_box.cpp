#include "machine/ui/state_box.h"

#include <algorithm>

#include "machine/machine.h"
#include "machine/ui/run_colours.h"
#include "machine/ui/run_widgets.h"
#include "platform/qt/qt_text.h"

namespace morvane::machine {
namespace {

constexpr int kMostLetters = 56;  // in pixels
constexpr int kBeside = 16;       // what stays free of its width

QColor ColourOf(int state) {
  switch (state) {
    case Machine::kIdle:
      return kGreenGround;
    case Machine::kBusy:
      return kBlueGround;
    case Machine::kError:
      return kRedGround;
    default:
      return kGreyGround;
  }
}

}  // namespace

StateBox::StateBox(QWidget* parent) : ShownValue("txtStatus", "State of the machine", parent) {
  setAlignment(Qt::AlignCenter);
  setFont(Enlarged(font(), 2));
  setMinimumWidth(fontMetrics().horizontalAdvance("Illegal (0)") + kBeside);
  // The letters follow the box and not the other way round.
  leastLetters_ = fontInfo().pixelSize();
  setMinimumHeight(sizeHint().height());
  setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Ignored);
}

/// Smaller than the board's number.
int StateBox::LetterPixels() const {
  const int wide = leastLetters_ * (width() - kBeside) / std::max(1, minimumWidth() - kBeside);
  return std::clamp(std::min(wide, height() / 2), leastLetters_, kMostLetters);
}

void StateBox::resizeEvent(QResizeEvent* event) {
  ShownValue::resizeEvent(event);
  if (letters_ == LetterPixels()) return;
  letters_ = LetterPixels();
  ShowGround();
}

void StateBox::ShowState(int state) {
  const QString text = ToQt(StatusText(state));
  if (this->text() == text) return;
  ground_ = ColourOf(state);
  ShowGround();
  Show(text);
  repaint();
}

void StateBox::ShowGround() {
  setStyleSheet(QString("background:%1; color:white; border-radius:4px; padding:0px;"
                        "font-weight:bold; font-size:%2px;")
                    .arg(ground_.name())
                    .arg(std::max(letters_, leastLetters_)));
}

}  // namespace morvane::machine
