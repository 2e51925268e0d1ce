#include "generate/ui/test_frames.h"

#include <QCheckBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

#include "generate/generate_report.h"
#include "generate/ui/generate_parts.h"
#include "generate/ui/reject_count.h"
#include "platform/qt/qt_text.h"
#include "platform/qt/shown_text.h"

namespace morvane::generate {
namespace {

constexpr const char* kWidestCaption = "Inner Similarity Rejected:";

std::string HistoryText(const GenerateForm& form) {
  return std::string(kHistoryWords) +
         (form.HistoryIsOn() ? "" : std::string(" ") + kHistoryOffWords);
}

/// Nothing moves when it comes up or goes.
void KeepRoom(QWidget& part) {
  QSizePolicy policy = part.sizePolicy();
  policy.setRetainSizeWhenHidden(true);
  part.setSizePolicy(policy);
}

QFormLayout* NewResults(QWidget& results) {
  KeepRoom(results);
  const QFontMetrics metrics = results.fontMetrics();
  results.setFixedWidth(metrics.horizontalAdvance(kWidestCaption) + NumberWidth(results) +
                        metrics.horizontalAdvance(ToQt(SignOf({1, CounterColour::kRed}))) +
                        4 * kGap);
  auto* rows = new QFormLayout(&results);
  rows->setContentsMargins(0, 0, 0, 0);
  return rows;
}

}  // namespace

TestFrames::TestFrames(GenerateForm& form, QWidget* parent) : QWidget(parent), form_(form) {
  KeepRoom(*this);
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  shape_ = AddFrame("FrameShp", "Shape Reject ", "Reject_shape", "Reject Odd Shapes", kShapeWords);
  inner_ = AddFrame("FrameInn", "Inner Similarity Reject", "Reject_inner", "Check Inner Similarity",
                    kInnerWords);
  history_ = AddFrame("FrameHis", "History Reject", "Reject_history", "Check History File",
                      HistoryText(form));
  txtShpRejects_ = AddCount(shape_, "Shapes Rejected:", "txtShpRejects",
                            "Deals rejected for the shape of a hand; up to 5 are good");
  txtInnRejects_ = AddCount(inner_, "Inner Similarity Rejected:", "txtInnRejects",
                            "Deals rejected for their likeness to another board of the set");
  txtInnSim_ = AddText(inner_, "Inner Similarity:", "txtInnSim",
                       "Cards in common of the two most alike hands of the set");
  txtHisRejects_ = AddCount(history_, "History Rejected:", "txtHisRejects",
                            "Deals rejected for their likeness to a board of the history");
  txtOuSim_ = AddText(history_, "Historic Similarity:", "txtOuSim",
                      "Cards in common with the most alike hand of the history");
  txtOuDeals_ =
      AddText(history_, "Historic File:", "txtOuDeals", "Where that board of the history was");
}

TestFrames::Frame TestFrames::AddFrame(const char* name, const char* title, const char* checkName,
                                       const char* caption, const std::string& words) {
  auto* box = new QGroupBox(title, this);
  box->setObjectName(name);
  Frame frame{new QCheckBox(caption, box), new QWidget(box)};
  frame.Check->setObjectName(checkName);
  frame.Check->setAccessibleDescription(ToQt(words));
  connect(frame.Check, &QCheckBox::clicked, this, [this] { Changed(); });
  NewResults(*frame.Results);
  auto* left = new QVBoxLayout;
  left->setSpacing(kGap / 2);
  left->addWidget(frame.Check);
  left->addWidget(NewWords("", words, box), 1);
  auto* row = new QHBoxLayout(box);
  row->setSpacing(2 * kGap);
  row->addLayout(left, 1);
  row->addWidget(frame.Results, 0, Qt::AlignTop);
  layout()->addWidget(box);
  return frame;
}

RejectCount* TestFrames::AddCount(const Frame& frame, const char* caption, const char* name,
                                  const char* tip) {
  auto* count = new RejectCount(name, tip, frame.Results);
  auto* label = new QLabel(caption, frame.Results);
  count->Box()->setAccessibleName(caption);
  static_cast<QFormLayout*>(frame.Results->layout())->addRow(label, count);
  return count;
}

ShownText* TestFrames::AddText(const Frame& frame, const char* caption, const char* name,
                               const char* tip) {
  auto* box = new ShownText(name, tip, frame.Results);
  box->setFocusPolicy(Qt::ClickFocus);
  static_cast<QFormLayout*>(frame.Results->layout())->addRow(caption, box);
  return box;
}

void TestFrames::Changed() {
  form_.ChooseTests({.Shape = shape_.Check->isChecked(),
                     .Inner = inner_.Check->isChecked(),
                     .History = history_.Check->isChecked()});
}

void TestFrames::Show() {
  const GenerateFormState& now = form_.State();
  setVisible(now.generate_yes);
  const auto showFrame = [](const Frame& frame, bool on) {
    frame.Check->setChecked(on);
    frame.Results->setVisible(on);
  };
  showFrame(shape_, now.Reject.Shape);
  showFrame(inner_, now.Reject.Inner);
  showFrame(history_, now.Reject.History);
  txtShpRejects_->Show(now.txtShpRejects);
  txtInnRejects_->Show(now.txtInnRejects);
  txtHisRejects_->Show(now.txtHisRejects, !form_.HistoryIsOn());
  txtInnSim_->setText(ToQt(now.txtInnSim));
  txtOuSim_->setText(ToQt(now.txtOuSim));
  txtOuDeals_->setText(ToQt(now.txtOuDeals));
  txtOuDeals_->setCursorPosition(0);
}

}  // namespace morvane::generate
