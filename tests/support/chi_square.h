#pragma once

namespace morvane::test {

/// The chance that a chi-square of `degrees` degrees of freedom (1 or more) is at least
/// `statistic`.
[[nodiscard]] double ChiSquareTail(double statistic, int degrees);

/// A chi-square statistic and what it is held against.
struct ChiSquare {
  double Statistic = 0;
  int Degrees = 1;
  /// The chance of a statistic at least this great when nothing is wrong.
  [[nodiscard]] double P() const { return ChiSquareTail(Statistic, Degrees); }
};

}  // namespace morvane::test
