#pragma once

#include <QWidget>
#include <string>

#include "platform/qt/spoken.h"

namespace morvane::machine {

/// The number of the board that is dealt, and of its copy, to be read across the room: as large as
/// its place allows.
class BoardNumber final : public QWidget, public Spoken {
 public:
  explicit BoardNumber(QWidget* parent);

  /// `copy`: "Copy: 1/2", empty where there are none.
  void Show(int board, const std::string& copy);

  [[nodiscard]] QSize sizeHint() const override;
  [[nodiscard]] QSize minimumSizeHint() const override;
  [[nodiscard]] QString SpokenText() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  [[nodiscard]] QString Caption() const;
  /// The height of a line of digits that fits, in pixels.
  [[nodiscard]] int Digits() const;
  [[nodiscard]] int HeightFor(int digits) const;
  [[nodiscard]] int WidthFor(const QString& number, int digits) const;
  [[nodiscard]] QFont DigitFont(int digits) const;

  QString number_;
  QString copy_;
};

}  // namespace morvane::machine
