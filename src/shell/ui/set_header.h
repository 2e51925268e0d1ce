#pragma once

#include <QWidget>
#include <functional>

#include "shell/shell.h"

namespace morvane {
class FilteredEdit;
class ShownText;
}  // namespace morvane

namespace morvane::shell {

/// What the set is called: `txtEventName`, `txtEventSite`, `txtEventDate` and its `txtFileName`.
class SetHeader final : public QWidget {
 public:
  /// `changed` is called after every change that the operator makes.
  SetHeader(Shell& shell, std::function<void()> changed, QWidget* parent);

  void Show(const BoardSet& set);
  void FocusEventName();

 private:
  FilteredEdit* AddEventText(const char* name, const char* tip, Shell::EventText which);
  void PlaceBoxes();

  Shell& shell_;
  std::function<void()> changed_;

  FilteredEdit* txtEventName_ = nullptr;
  FilteredEdit* txtEventSite_ = nullptr;
  FilteredEdit* txtEventDate_ = nullptr;
  ShownText* txtFileName_ = nullptr;
};

}  // namespace morvane::shell
