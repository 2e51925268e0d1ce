#include "shell/ui/set_header.h"

#include <QFormLayout>
#include <utility>

#include "platform/qt/filtered_edit.h"
#include "platform/qt/qt_text.h"
#include "platform/qt/shown_text.h"

namespace morvane::shell {
namespace {

constexpr int kWidestDate = 500;

}  // namespace

SetHeader::SetHeader(Shell& shell, std::function<void()> changed, QWidget* parent)
    : QWidget(parent), shell_(shell), changed_(std::move(changed)) {
  // In the order in which the tab key walks through them.
  txtEventName_ = AddEventText("txtEventName", "Enter Event Name here", Shell::EventText::kName);
  txtEventSite_ =
      AddEventText("txtEventSite", "Enter Event Site Name here", Shell::EventText::kSite);
  txtEventDate_ = AddEventText("txtEventDate", "Enter Event Date here", Shell::EventText::kDate);
  txtEventDate_->setMaximumWidth(kWidestDate);
  txtFileName_ = new ShownText("txtFileName", "File name of the current Board Set", this);
  PlaceBoxes();
}

FilteredEdit* SetHeader::AddEventText(const char* name, const char* tip, Shell::EventText which) {
  auto* box = new FilteredEdit(
      [this, which](FilteredBox typed) {
        FilteredBox shown = shell_.ChangeEvent(which, std::move(typed));
        changed_();
        return shown;
      },
      this);
  box->setObjectName(name);
  box->setToolTip(tip);
  box->setAcceptDrops(false);  // a file is for the window
  return box;
}

void SetHeader::PlaceBoxes() {
  auto* form = new QFormLayout(this);
  form->setContentsMargins(0, 0, 0, 0);
  form->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
  form->addRow("Event Name:", txtEventName_);
  form->addRow("Event Site:", txtEventSite_);
  form->addRow("Event Date:", txtEventDate_);
  form->addRow("File Name:", txtFileName_);
}

void SetHeader::Show(const BoardSet& set) {
  txtFileName_->setText(ToQt(set.BoardSetFile));
  txtEventName_->ShowText(set.EventName);
  txtEventSite_->ShowText(set.EventSite);
  txtEventDate_->ShowText(set.EventDate);
}

void SetHeader::FocusEventName() { txtEventName_->setFocus(); }

}  // namespace morvane::shell
