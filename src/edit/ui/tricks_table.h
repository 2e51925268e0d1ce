#pragma once

#include <QWidget>
#include <array>

#include "edit/editor.h"

class QGridLayout;
class QLabel;

namespace morvane {
class ShownValue;
}

namespace morvane::edit {

/// `DF_NR` 0..19: what each hand can make in each denomination, where the board has been analysed.
class TricksTable final : public QWidget {
 public:
  TricksTable(Editor& editor, QWidget* parent);
  void Show();

 private:
  void AddHeadings(QGridLayout& grid);

  Editor& editor_;
  std::array<QLabel*, kDenominations> headings_{};
  std::array<ShownValue*, kResults> DF_NR_{};
};

}  // namespace morvane::edit
