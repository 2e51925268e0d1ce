#pragma once

#include <QWidget>
#include <array>

#include "edit/editor.h"

namespace morvane {
class Compass;
class ShownValue;
}  // namespace morvane

namespace morvane::edit {

/// The middle of the table: the compass of the board, and the cards that nobody holds.
class TableMiddle final : public QWidget {
 public:
  TableMiddle(Editor& editor, QWidget* parent);
  void Show();

 private:
  Editor& editor_;
  Compass* compass_;
  std::array<ShownValue*, kSuits + 1> missing_{};
};

}  // namespace morvane::edit
