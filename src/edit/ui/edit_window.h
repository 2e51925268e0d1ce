#pragma once

#include <QDialog>
#include <array>

#include "edit/editor.h"

class QBoxLayout;
class QGroupBox;
class QLayout;

namespace morvane {
class ShownText;
class ShownValue;
}  // namespace morvane

namespace morvane::edit {

class CommandButtons;
class HandBox;
class RankButtons;
class TableMiddle;
class TricksTable;

/// The window `Edit`, put together from its parts. It hides when the editor is closed.
class EditWindow final : public QDialog, public EditView {
 public:
  EditWindow(Editor& editor, QWidget* parent);
  EditWindow(const EditWindow&) = delete;
  EditWindow& operator=(const EditWindow&) = delete;
  ~EditWindow() override;

  void Show() override;
  void FocusSuitBox() override;

  /// Escape asks as the close box does.
  void reject() override;

 protected:
  void closeEvent(QCloseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  void MakeParts();
  QWidget* PlaceBody();
  QLayout* PlaceTable();
  QLayout* PlaceSides();
  QGroupBox* PlaceCurrentBoard();
  QWidget* PlaceCommands();
  ShownValue* AddFrame(QBoxLayout& row, const char* frame, const char* caption, const char* value);
  void ShowBoard();
  void ShowClip();

  Editor& editor_;
  std::array<HandBox*, kHands + 1> hands_{};
  TableMiddle* middle_ = nullptr;
  RankButtons* ranks_ = nullptr;
  CommandButtons* commands_ = nullptr;
  TricksTable* tricks_ = nullptr;
  ShownText* txtFileName_ = nullptr;
  ShownValue* lblBoard_ = nullptr;
  ShownValue* lblVul_ = nullptr;
  ShownValue* lblDeal_ = nullptr;
  ShownValue* lblClip_ = nullptr;
};

}  // namespace morvane::edit
