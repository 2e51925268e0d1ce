// The statistics of the largest set: how long the whole of RefreshStatistics takes, and how fast
// the most alike pair is found beside the loop over all pairs and cards.

#include <gmock/gmock.h>

#include <QApplication>
#include <cstdio>

#include "bench/dealt_set.h"
#include "bench/timing.h"
#include "shell/refresh_statistics.h"
#include "shell/ui/main_menu.h"
#include "shell/ui/qt_windows.h"
#include "simulator/simulated_machine.h"
#include "support/counted_similarity.h"
#include "support/fake_desktop.h"
#include "support/qt_desk.h"

namespace {

using namespace morvane;
using bench::Milliseconds;

constexpr double kWantedMs = 10;
constexpr double kWantedFactor = 5;
constexpr int kRuns = 15;

AlikePair PairByCounting(const BoardSet& set) {
  AlikePair best;
  for (int i = set.FirstBoard + 1; i <= set.LastBoard; ++i) {
    for (int j = set.FirstBoard; j < i; ++j) {
      const Similarity pair = test::CountedSimilarity(set.At(i), set.At(j));
      if (pair.Cards > best.Cards) best = {pair.Cards, i, pair.HandA, j, pair.HandB};
    }
  }
  return best;
}

/// The desktop but for its `main`, on no display.
struct MainWindow {
  MainWindow() {
    Windows.SetMainMenu(Menu);
    Desk.Ui.SetMainWindow(Menu.ForUi());
    static_cast<void>(Main.StartUp(""));
    bench::DealSet(Desk.Prog.Set, kMaxBoards);
    Desk.Prog.ShowStatistics = true;
    Menu.RefreshSet();
  }
  test::QtDesk Desk;
  simulator::SimulatedMachine Machine{simulator::Options(), Desk.Clock};
  shell::QtWindows Windows{Desk.Prog};
  LoneInstance Alone;
  test::FakeProcesses None;
  shell::Shell Main{Desk.Prog, Machine, None, Windows, Alone};
  test::FakeDesktop Around;
  shell::Help Guide{Desk.Prog, Main.TheMachine(), Around, {}};
  shell::MainMenu Menu{Desk.Prog, Main, Guide};
};

/// From the first step to the last figure painted.
bool RefreshIsQuick(MainWindow& window) {
  const double taken = Milliseconds(kRuns, [&] {
    shell::RefreshStatistics(window.Desk.Prog, window.Windows);
    window.Desk.Loop.Pump();
  });
  std::printf("RefreshStatistics of %s boards, in the main window, most alike %s:\n",
              test::TextOf(window.Menu, "txtCompleted").c_str(),
              test::TextOf(window.Menu, "txtInDeals").c_str());
  std::printf("  %8.3f ms (wanted: under %.0f ms)\n", taken, kWantedMs);
  return taken < kWantedMs;
}

bool PairIsFoundFaster(const BoardSet& set) {
  AlikePair counted;
  AlikePair found;
  const double counting = Milliseconds(3, [&] { counted = PairByCounting(set); });
  const double taken = Milliseconds(kRuns, [&] { found = InnerSimilarity(set); });
  const bool right = counted == found;
  std::printf("The most alike pair of hands:\n  %-24s %8.3f ms\n", "counting, 52 steps", counting);
  std::printf("  %-24s %8.3f ms  %6.1f times faster%s (wanted: at least %.0f times)\n",
              "InnerSimilarity", taken, counting / taken, right ? "" : "  WRONG", kWantedFactor);
  return right && counting >= kWantedFactor * taken;
}

}  // namespace

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QApplication application(argc, argv);
  MainWindow window;
  std::printf("Number dealer, block 01 02 03 04 05\n");
  const bool quick = RefreshIsQuick(window);
  const bool faster = PairIsFoundFaster(window.Desk.Prog.Set);
  return quick && faster ? 0 : 1;
}
