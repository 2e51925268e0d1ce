#pragma once

#include <array>
#include <string_view>

namespace morvane {

/// The hand shapes in order of falling frequency. A name lists the four suit lengths in descending
/// order, A..D standing for 10..13; the frequency is that of the shape in one hand. Index 0 is no
/// shape and has frequency 0; index 1 is "4432", index 39 "D000".
class ShapeTable {
 public:
  struct Shape {
    std::string_view Name;
    float Frequency = 0;
  };
  static constexpr int kCapacity = 40;

  constexpr void AddShape(std::string_view name, float frequency) {
    shapes_[static_cast<std::size_t>(++count_)] = {name, frequency};
  }
  [[nodiscard]] constexpr int Count() const { return count_; }
  [[nodiscard]] constexpr const Shape& operator[](int index) const {
    return shapes_[static_cast<std::size_t>(index)];
  }
  /// The index of the shape `name`, 0 when there is none.
  [[nodiscard]] constexpr int IndexOf(std::string_view name) const {
    int index = count_;
    while (index > 0 && shapes_[static_cast<std::size_t>(index)].Name != name) --index;
    return index;
  }

 private:
  std::array<Shape, kCapacity + 1> shapes_{};
  int count_ = 0;
};

extern const ShapeTable Shapes;

/// `Shapes.IndexOf(name)`.
[[nodiscard]] int ShapeIndex(std::string_view name);

}  // namespace morvane
