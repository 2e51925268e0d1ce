#include "poker/poker_list.h"

#include <algorithm>
#include <string>
#include <string_view>

#include "poker/card_text.h"
#include "poker/slot_names.h"
#include "print/board_parts.h"
#include "print/shrunk_canvas.h"
#include "text/text.h"

namespace morvane::poker {
namespace {

using print::Align;
using print::DrawWithin;
using print::kBlack;
using print::kRed;

constexpr double kMargin = 10;
constexpr double kHeaderTop = 6;
constexpr double kLabels = 86;      // the width of "Deal  :" and its number
constexpr double kBetween = 12;     // from the players' cards to the shared ones
constexpr double kApart = 5;        // from one name of shared cards to the next
constexpr double kBlankLine = 4;    // above and below a rule
constexpr double kNarrower = 0.85;  // the cards without heads, of a column and of the letters
constexpr double kLetterGap = 1;    // from a sign to its rank
constexpr int kSharedColumns = 8;
constexpr int kColumns = kPlayers + kSharedColumns;
constexpr Colour kPale{0xB0, 0xB0, 0xB0};

constexpr Font kEvent{Typeface::kTimes, 18, true};
constexpr Font kText{Typeface::kTimes, 12};
constexpr Font kHead{Typeface::kTimes, 12, true};
constexpr double kCardSize = 15;

constexpr double kLine = LineHeight({Typeface::kTimes, kCardSize});
constexpr double kBlock = 2 * kLine + 2 * kBlankLine;
constexpr double kFoot = LineHeight(kText) + 2 * kBlankLine;

/// How many names of shared cards end before a column 0..13.
int NamesBefore(int column) {
  const int slot = kFirstSharedSlot + column - kPlayers;
  return static_cast<int>(std::count_if(SharedCards.begin(), SharedCards.end(),
                                        [slot](const auto& group) { return group.Last < slot; }));
}

/// A place of a card: the left end of its column, and how large the card is beside the others.
struct Place {
  double X = 0;
  double Y = 0;
  double Size = 1;
};

/// The pages of one list.
class List {
 public:
  List(Canvas& canvas, const PokerOrder& order) : canvas_(canvas), order_(order) {}

  bool Draw(const std::function<bool()>& dealDone);

 private:
  void StartPage();
  void DrawHeader();
  void DrawHeads();
  void DrawBlock(int number);
  void DrawCard(const Place& place, const CardText& card);
  void DrawOver(int column, int columns, std::string_view text);
  void RuleAcross(Colour colour) {
    canvas_.Rule(kMargin, y_, canvas_.Width() - kMargin, y_, colour);
  }

  [[nodiscard]] double Column() const {
    constexpr double kApartInAll = kBetween + (SharedCards.size() - 1) * kApart;
    return (canvas_.Width() - 2 * kMargin - kLabels - kApartInAll) / kColumns;
  }
  /// The left end of column 0..13: the six players, then the shared cards.
  [[nodiscard]] double ColumnX(int column) const {
    return kMargin + kLabels + column * Column() +
           (column < kPlayers ? 0 : kBetween + NamesBefore(column) * kApart);
  }
  [[nodiscard]] Place PlaceOf(int slot) const;

  Canvas& canvas_;
  const PokerOrder& order_;
  int pages_ = 0;
  double y_ = 0;  ///< where the next thing goes
};

bool List::Draw(const std::function<bool()>& dealDone) {
  StartPage();
  for (int number = 1; number <= order_.PokerDealCount; ++number) {
    if (y_ + kBlock > canvas_.Height() - kFoot) {
      if (!canvas_.NewPage()) return false;
      StartPage();
    }
    DrawBlock(number);
    if (!dealDone()) return false;
  }
  return true;
}

void List::StartPage() {
  ++pages_;
  y_ = kHeaderTop;
  DrawHeader();
  DrawHeads();
  const double foot = canvas_.Height() - LineHeight(kText) - kBlankLine;
  DrawWithin(canvas_, kMargin, foot, canvas_.Width() - 2 * kMargin, Align::kRight,
             "Page: " + std::to_string(pages_), kText, kBlack);
}

/// A text that is empty takes no line.
void List::DrawHeader() {
  const auto line = [this](const std::string& text, const Font& font) {
    if (text.empty()) return;
    DrawWithin(canvas_, kMargin, y_, canvas_.Width() - 2 * kMargin, Align::kLeft,
               WithoutControls(text), font, kBlack);
    y_ += LineHeight(font);
  };
  line(order_.Poker_Event, kEvent);
  line(order_.Poker_Site, kText);
  line(order_.Poker_Date, kText);
}

void List::DrawHeads() {
  y_ += kBlankLine;
  canvas_.Text(kMargin, y_, "      Player: ", kHead, kBlack);
  for (int player = 1; player <= kPlayers; ++player) {
    DrawOver(player - 1, 1, std::to_string(player));
  }
  for (const SlotGroup& group : SharedCards) {
    DrawOver(kPlayers + group.First - kFirstSharedSlot, group.Last - group.First + 1, group.Name);
  }
  y_ += LineHeight(kHead) + kBlankLine;
  RuleAcross(kBlack);
}

void List::DrawOver(int column, int columns, std::string_view text) {
  DrawWithin(canvas_, ColumnX(column), y_, columns * Column(), Align::kCentre, text, kHead, kBlack);
}

/// Its first line ends with the shared cards, its second with those that have no heads, which
/// therefore stand closer than any column.
Place List::PlaceOf(int slot) const {
  const double first = y_ + kBlankLine;
  if (slot <= kPlayers) return {ColumnX(slot - 1), first};
  if (slot < kFirstSharedSlot) return {ColumnX(slot - 1 - kPlayers), first + kLine};
  if (slot < kFirstUnnamedSlot) return {ColumnX(kPlayers + slot - kFirstSharedSlot), first};
  const double end = ColumnX(kPlayers + kSharedColumns - 1) + Column();
  return {end - (kSlots + 1 - slot) * kNarrower * Column(), first + kLine, kNarrower};
}

void List::DrawBlock(int number) {
  const Font numbers{Typeface::kTimes, kCardSize, true};
  const double baseline = y_ + kBlankLine + Ascent(numbers);
  const std::string_view label = "      Deal  :";
  canvas_.Text(kMargin, baseline - Ascent(kText), label, kText, kBlack);
  const double from = kMargin + canvas_.WidthOf(label, kText) + kBlankLine;
  DrawWithin(canvas_, from, baseline - Ascent(numbers), kMargin + kLabels - kBlankLine - from,
             Align::kLeft, std::to_string(number), numbers, kBlack);
  const PokerDeal& deal = order_.PokerDeals[static_cast<std::size_t>(number)];
  for (int slot = 1; slot <= kSlots; ++slot) {
    DrawCard(PlaceOf(slot), CardTextOf(deal[static_cast<std::size_t>(slot)]));
  }
  y_ += kBlock;
  RuleAcross(kPale);
}

/// In the middle of its column, on the baseline of the line.
void List::DrawCard(const Place& place, const CardText& card) {
  if (card.Rank.empty()) return;
  const Font sign{Typeface::kSymbol, place.Size * kCardSize};
  const Font rank{Typeface::kTimes, place.Size * kCardSize, true};
  const Colour colour = card.Red ? kRed : kBlack;
  const double signWidth = card.Sign.empty() ? 0 : canvas_.WidthOf(card.Sign, sign) + kLetterGap;
  const double width = signWidth + canvas_.WidthOf(card.Rank, rank);
  const double x = place.X + (place.Size * Column() - width) / 2;
  const double y = place.Y + (1 - place.Size) * Ascent({Typeface::kTimes, kCardSize});
  if (!card.Sign.empty()) canvas_.Text(x, y, card.Sign, sign, colour);
  canvas_.Text(x + signWidth, y, card.Rank, rank, colour);
}

}  // namespace

bool DrawPokerList(Canvas& page, const PokerOrder& order, const std::function<bool()>& dealDone) {
  constexpr double kWidth = 555;
  constexpr double kHeight = 350;
  print::ShrunkCanvas canvas(page, kWidth, kHeight);
  return List(canvas, order).Draw(dealDone);
}

}  // namespace morvane::poker
