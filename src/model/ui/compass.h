#pragma once

#include <QColor>
#include <QRectF>
#include <QWidget>

#include "model/tables.h"

class QPainter;

namespace morvane {

// Under the compass' white letters.
inline constexpr QColor kSafe{46, 125, 75};
inline constexpr QColor kVulnerable{192, 57, 43};

/// The four sides of the table in the square `place`, each in the colour of its vulnerability, with
/// the dealer's letter underlined. The letters have the painter's font.
void DrawCompass(QPainter& painter, const QRectF& place, int vul, int dealer);

/// The compass as a picture beside the words that say the same.
class Compass final : public QWidget {
 public:
  explicit Compass(QWidget* parent);
  void Show(int vul, int dealer);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  int vul_ = 1;
  int dealer_ = kNorth;
};

}  // namespace morvane
