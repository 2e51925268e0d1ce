#pragma once

#include <QFrame>
#include <array>

#include "edit/editor.h"

class QGridLayout;
class QLabel;

namespace morvane {
class ShownValue;
}

namespace morvane::edit {

class SuitBox;

/// One hand at the table: its boxes `txtSuit`, how many cards it has (`lblCnt`) and its points.
class HandBox final : public QFrame {
 public:
  HandBox(Editor& editor, int hand, QWidget* parent);
  void Show();
  /// `suit` 1..4.
  [[nodiscard]] SuitBox& BoxOf(int suit) { return *boxes_[static_cast<std::size_t>(suit)]; }

 private:
  void PlaceHeading(QGridLayout& grid);
  void PlaceSuits(QGridLayout& grid);

  Editor& editor_;
  int hand_;
  ShownValue* lblCnt_ = nullptr;
  ShownValue* lblHCP_ = nullptr;
  std::array<QLabel*, kSuits + 1> signs_{};
  std::array<SuitBox*, kSuits + 1> boxes_{};
};

}  // namespace morvane::edit
