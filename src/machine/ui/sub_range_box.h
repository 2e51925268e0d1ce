#pragma once

#include <QWidget>
#include <optional>

#include "machine/run_view.h"
#include "model/board_set.h"

namespace morvane {
class NumberEdit;
class ShownValue;
}  // namespace morvane

namespace morvane::machine {

class BoardRun;

/// Which boards of the set are dealt, `Subfrom` and `Subto`, and which there are: `Subfirst` and
/// `Sublast`.
class SubRangeBox final : public QWidget {
 public:
  SubRangeBox(BoardRun& run, QWidget* parent);
  void Show(const BoardSet& set);
  /// As they stand; nothing where the boxes are hidden.
  [[nodiscard]] std::optional<RangeTexts> Texts() const;

 private:
  void PlaceControls();
  void ShowNumbers(const BoardSet& set);

  BoardRun& run_;
  NumberEdit* Subfrom_;
  NumberEdit* Subto_;
  ShownValue* Subfirst_;
  ShownValue* Sublast_;
};

}  // namespace morvane::machine
