#include "poker/ui/poker_buttons.h"

#include <QPushButton>

#include "machine/ui/run_widgets.h"
#include "poker/poker.h"

namespace morvane::poker {
namespace {

struct Look {
  const char* Name;
  const char* Caption;  ///< the blanks of the wide ones are required
  const char* Tip;
};
constexpr std::array<Look, kPokerButtons> kLooks{{
    {"Generate", "Create ne&w deals set", "A new order in place of the current one"},
    {"Poker_Load", "L&oad", "An order from a file"},
    {"Poker_Save", "&Save", "The order into a file"},
    {"Poker_Print", "&Print", "The deals of the order as a list"},
    {"Poker_print_setup", "Pr&inter Setup", "The printer and its paper"},
    {"First", "&First", "First deal of the order"},
    {"Prevoius", "Pre&vious", "One deal back"},
    {"Nextd", "&Next", "One deal on"},
    {"Last", "&Last", "Last deal of the order"},
    {"FirstDeal", "First Run  &Current Deal", "A whole pack through the machine"},
    {"SecondDeal", "Secon&d Run", "The piles of the first run, carried back"},
    {"ThirdDeal", "&Third Run", "The piles of the second run, carried back"},
    {"FourthDeal", "Fourt&h Run", "The piles of the third run, carried back"},
    {"NextDeal", "    First Run      Next De&al", "The next deal, with a new pack"},
    {"CancelDeal", "Cancel &Runs", "Back to the first run of this deal"},
    {"Read", "Read C&urrent Deal", "The first 28 cards of a pack into this deal"},
    {"ReadNext", "Read Ne&xt   Deal", "The same into the next deal"},
}};

}  // namespace

QPushButton* PokerButtons::MakeHigh(PokerButton button, QWidget* parent) {
  const auto index = static_cast<std::size_t>(button);
  const Look& look = kLooks[index];
  buttons_[index] = machine::NewButton(
      look.Name, look.Caption, [this, button] { poker_.Press(button); }, parent);
  buttons_[index]->setToolTip(look.Tip);
  return buttons_[index];
}

QPushButton* PokerButtons::Make(PokerButton button, QWidget* parent) {
  QPushButton* made = MakeHigh(button, parent);
  made->setMinimumHeight(0);
  return made;
}

void PokerButtons::Show() {
  for (std::size_t index = 0; index < kPokerButtons; ++index) {
    buttons_[index]->setEnabled(poker_.IsOn(static_cast<PokerButton>(index)));
  }
  Of(poker_.NextButton())->setDefault(true);
}

void PokerButtons::FocusNext() { Of(poker_.NextButton())->setFocus(); }

}  // namespace morvane::poker
