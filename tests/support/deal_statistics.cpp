#include "support/deal_statistics.h"

#include <algorithm>
#include <functional>

namespace morvane::test {
namespace {

constexpr double kLeastExpected = 5;

std::uint64_t Choose13(int k) {
  std::uint64_t ways = 1;
  for (int i = 1; i <= k; ++i)
    ways = ways * static_cast<std::uint64_t>(14 - i) / static_cast<std::uint64_t>(i);
  return ways;
}

/// The hands with these lengths, whichever suit has which.
std::uint64_t HandsOf(std::array<int, 4> lengths) {
  std::uint64_t one = 1;
  for (const int length : lengths) one *= Choose13(length);
  std::uint64_t orders = 0;
  std::sort(lengths.begin(), lengths.end());
  do {
    ++orders;
  } while (std::next_permutation(lengths.begin(), lengths.end()));
  return one * orders;
}

std::vector<ExactShape> CountShapes() {
  std::vector<ExactShape> shapes;
  for (int a = 13; a >= 0; --a) {
    for (int b = std::min(a, 13 - a); b >= 0; --b) {
      for (int c = std::min(b, 13 - a - b); c >= 0; --c) {
        const int d = 13 - a - b - c;
        if (d <= c) shapes.push_back({{a, b, c, d}, HandsOf({a, b, c, d})});
      }
    }
  }
  std::stable_sort(shapes.begin(), shapes.end(),
                   [](const ExactShape& a, const ExactShape& b) { return a.Hands > b.Hands; });
  return shapes;
}

/// Places in `ExactShapes` by the three greatest lengths.
using ShapePlaces = std::array<std::array<std::array<std::size_t, 14>, 14>, 14>;

const ShapePlaces& PlacesOfShapes() {
  static const ShapePlaces places = [] {
    ShapePlaces made{};
    const auto& shapes = ExactShapes();
    for (std::size_t i = 0; i < shapes.size(); ++i) {
      const auto& lengths = shapes[i].Lengths;
      made[static_cast<std::size_t>(lengths[0])][static_cast<std::size_t>(lengths[1])]
          [static_cast<std::size_t>(lengths[2])] = i;
    }
    return made;
  }();
  return places;
}

double Term(double seen, double expected) {
  return (seen - expected) * (seen - expected) / expected;
}

}  // namespace

const std::vector<ExactShape>& ExactShapes() {
  static const std::vector<ExactShape> shapes = CountShapes();
  return shapes;
}

DealStatistics::DealStatistics() {
  for (auto& counts : shapes_) counts.resize(ExactShapes().size());
}

void DealStatistics::Add(const Board& board) {
  ++deals_;
  std::array<std::array<std::size_t, 4>, 5> lengths{};
  for (std::size_t card = 1; card <= kCards; ++card) {
    const std::size_t hand = board.Cards[card];
    ++cards_[card][hand];
    ++lengths[hand][(card - 1) / 13];
  }
  for (std::size_t hand = 1; hand <= kHands; ++hand) {
    auto& of = lengths[hand];
    std::sort(of.begin(), of.end(), std::greater<>());
    ++shapes_[hand][PlacesOfShapes()[of[0]][of[1]][of[2]]];
  }
}

// In one deal let X(c, h) be 1 when card c comes to hand h. Its mean is 1/4. A card comes to one
// hand and a hand gets 13 cards, so the X are not independent; their covariances are
//   the same card, the same hand     1/4 x 3/4                 =  3/16
//   the same card, two hands        -1/4 x 1/4                 = -1/16
//   two cards, the same hand         1/4 x 12/51 - 1/4 x 1/4   = -3/16 / 51
//   two cards, two hands             1/4 x 13/51 - 1/4 x 1/4   =  1/16 / 51
// which is A(c, c') x B(h, h') with A = 52/51 (I - J/52), B = 1/4 (I - J/4), I the unit matrix and
// J all ones. The brackets are projections of rank 51 and 3, and so their product is one of rank
// 153. With N the counts of n deals, (N - n/4) / sqrt(n/4) therefore tends to a normal vector whose
// covariance is 52/51 times that projection, and 51/52 of its square to chi-square with 153 degrees
// of freedom. (Its mean is 153 for every n; a single deal gives 153 exactly.)
ChiSquare DealStatistics::CardsToHands() const {
  const double expected = deals_ / 4.0;
  double sum = 0;
  for (std::size_t card = 1; card <= kCards; ++card) {
    for (std::size_t hand = 1; hand <= kHands; ++hand) {
      sum += Term(static_cast<double>(cards_[card][hand]), expected);
    }
  }
  return {sum * 51 / 52, 51 * 3};
}

// One hand of each deal: its shapes in different deals are independent of each other, and this is
// the plain chi-square of a multinomial. The four hands of one deal are not, so each has its own.
ChiSquare DealStatistics::ShapesOf(int hand) const {
  const auto& shapes = ExactShapes();
  const auto& seen = shapes_[static_cast<std::size_t>(hand)];
  const auto expected = [&](std::size_t i) {
    return deals_ * (static_cast<double>(shapes[i].Hands) / static_cast<double>(kAllHands));
  };
  double restSeen = 0;
  double restExpected = 0;
  std::size_t apart = shapes.size();
  while (apart > 0 && (restExpected < kLeastExpected || expected(apart - 1) < kLeastExpected)) {
    --apart;
    restSeen += static_cast<double>(seen[apart]);
    restExpected += expected(apart);
  }
  double sum = Term(restSeen, restExpected);
  for (std::size_t i = 0; i < apart; ++i) sum += Term(static_cast<double>(seen[i]), expected(i));
  return {sum, static_cast<int>(apart)};
}

}  // namespace morvane::test
