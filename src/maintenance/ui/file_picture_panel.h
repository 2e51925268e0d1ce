#pragma once

#include <QWidget>
#include <array>
#include <optional>

namespace morvane {
class ShownValue;
}

namespace morvane::maintenance {

class PaintedPicture;
class PixelReadOut;
class PixelView;
class ReadService;

/// Both pictures of a service file beside each other.
class FilePicturePanel final : public QWidget {
 public:
  FilePicturePanel(ReadService& viewer, QWidget* parent);
  void Show();

 private:
  /// One of the two.
  struct Side {
    PixelView* View = nullptr;
    ShownValue* Kind = nullptr;
    std::optional<QPoint> Point;
  };
  QWidget* MakeButtons();
  QWidget* MakeViews();
  void MakeSide(std::size_t side, const char* name, const char* spoken);
  void PointAt(std::size_t side, std::optional<QPoint> pixel);
  void ShowPoint();
  [[nodiscard]] const PaintedPicture& PictureOf(std::size_t side) const;

  ReadService& viewer_;
  std::array<Side, 2> sides_;
  std::size_t pointed_ = 0;  ///< at which of them the operator was last
  PixelReadOut* readOut_ = nullptr;
};

}  // namespace morvane::maintenance
