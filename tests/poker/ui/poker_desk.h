#pragma once

#include <QProgressBar>
#include <memory>
#include <string>

#include "machine/ui/run_window.h"
#include "poker/poker.h"
#include "poker/ui/poker_window.h"

namespace morvane::poker {

/// The window `Poker` on a simulated machine that takes its real time: a run of 52 cards takes
/// about 15 s.
class PokerDesk : public machine::RunDesk {
 protected:
  using RunDesk::RunDesk;
  Poker poker{desk.Prog, machine, memory};
  ~PokerDesk() override { window.reset(); }  // before the logic that it shows

  void Contact() {
    OpenWindow<PokerWindow>(poker);
    WaitForContact();
    ASSERT_TRUE(poker.Options().MachineKnown);
  }
  /// With an order of so many random deals.
  void Order(const std::string& deals = "3") {
    Contact();
    poker.Number_deals = deals;
    Click("Generate");
    ASSERT_TRUE(poker.Order().PokerOrderExists);
  }
  void Press(Qt::Key key) { test::Press(*window, key); }
  void Focus(const char* name) { test::Find<QWidget>(*window, name).setFocus(); }
  [[nodiscard]] int Bar() const { return test::Find<QProgressBar>(*window, "RunProgress").value(); }

  /// Those of the buttons that are on, by commas.
  [[nodiscard]] std::string On() const {
    std::string on;
    for (const char* name :
         {"Generate", "Poker_Load", "Poker_Save", "Poker_Print", "Poker_print_setup", "First",
          "Prevoius", "Nextd", "Last", "FirstDeal", "SecondDeal", "ThirdDeal", "FourthDeal",
          "NextDeal", "CancelDeal", "Read", "ReadNext", "cmdExit"}) {
      if (Enabled(name)) on += (on.empty() ? "" : ",") + std::string(name);
    }
    return on;
  }
};

constexpr int kMidRun = 5000;  // milliseconds

}  // namespace morvane::poker
