#pragma once

#include <array>
#include <cstddef>
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
  /// The row behind the last shape has a name too and is no shape.
  constexpr void NameRowBehind(std::string_view name) {
    shapes_[static_cast<std::size_t>(count_) + 1].Name = name;
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

[[nodiscard]] constexpr ShapeTable FillShapes() {
  ShapeTable table;
  table.AddShape("4432", 0.215512F);
  table.AddShape("5332", 0.155168F);
  table.AddShape("5431", 0.129307F);
  table.AddShape("5422", 0.105797F);
  table.AddShape("4333", 0.105361F);
  table.AddShape("6322", 0.0564249F);
  table.AddShape("6421", 0.0470207F);
  table.AddShape("6331", 0.0344819F);
  table.AddShape("5521", 0.031739F);
  table.AddShape("4441", 0.0299322F);
  table.AddShape("7321", 0.0188083F);
  table.AddShape("6430", 0.0132623F);
  table.AddShape("5440", 0.0124334F);
  table.AddShape("5530", 0.00895203F);
  table.AddShape("6511", 0.00705311F);
  table.AddShape("6520", 0.00651056F);
  table.AddShape("7222", 0.00512954F);
  table.AddShape("7411", 0.0039184F);
  table.AddShape("7420", 0.00361698F);
  table.AddShape("7330", 0.00265245F);
  table.AddShape("8221", 0.00192358F);
  table.AddShape("8311", 0.00117552F);
  table.AddShape("7510", 0.00108509F);
  table.AddShape("8320", 0.00108509F);
  table.AddShape("6610", 0.000723396F);
  table.AddShape("8410", 0.000452123F);
  table.AddShape("9211", 0.000178109F);
  table.AddShape("9310", 0.000100472F);
  table.AddShape("9220", 0.0000822041F);
  table.AddShape("7600", 0.0000556459F);
  table.AddShape("8500", 0.000031F);
  table.AddShape("A210", 0.000011F);
  table.AddShape("9400", 0.00001F);
  table.AddShape("A111", 0.000004F);
  table.AddShape("A300", 0.0000015F);
  table.AddShape("B110", 0.0000002F);
  table.AddShape("B200", 0.0000001F);
  table.AddShape("C100", 0.000000003F);
  table.AddShape("D000", 0.000000000006F);
  table.NameRowBehind("****");
  return table;
}

inline constexpr ShapeTable Shapes = FillShapes();

/// `Shapes.IndexOf(name)`.
[[nodiscard]] constexpr int ShapeIndex(std::string_view name) { return Shapes.IndexOf(name); }

/// How many of `hands` hands are expected to have the shape: the product in 32 bits, rounded half
/// to even.
[[nodiscard]] int ExpectedHands(int shape, int hands);

}  // namespace morvane
