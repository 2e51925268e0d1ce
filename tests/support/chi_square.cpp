#include "support/chi_square.h"

#include <cmath>
#include <numbers>

namespace morvane::test {

double ChiSquareTail(double statistic, int degrees) {
  // Partial integration takes two degrees away at a time: with h = statistic / 2,
  // Q(k + 2) = Q(k) + h^(k/2) e^-h / (k/2)!, down to Q(1) = erfc(sqrt h) and Q(2) = e^-h.
  if (statistic <= 0) return 1.0;
  const double half = statistic / 2;
  const bool odd = degrees % 2 != 0;
  double tail = odd ? std::erfc(std::sqrt(half)) : std::exp(-half);
  double term =
      odd ? 2 * std::sqrt(half / std::numbers::pi) * std::exp(-half) : half * std::exp(-half);
  for (int k = odd ? 1 : 2; k < degrees; k += 2) {
    tail += term;
    term *= statistic / (k + 2);
  }
  return tail;
}

}  // namespace morvane::test
