#pragma once

#include <QAbstractButton>
#include <QApplication>
#include <functional>
#include <memory>
#include <numeric>
#include <string>
#include <utility>

#include "bridges/trace/replay_bridge.h"
#include "bridges/ui/replay_panel.h"
#include "bridges/written_trace.h"
#include "files/format_table.h"
#include "files/load_number.h"
#include "generate/generate_form.h"
#include "machine/dealing_run.h"
#include "machine/error_dialog.h"
#include "machine/open_link.h"
#include "machine/reading_run.h"
#include "machine/sorting_run.h"
#include "machine/ui/dealin_prog.h"
#include "machine/ui/sort_prog.h"
#include "platform/qt/qt_printer.h"
#include "platform/qt/window_place.h"
#include "poker/poker.h"
#include "poker/ui/poker_window.h"
#include "print/document.h"
#include "shell/ui/about.h"
#include "shell/ui/service_windows.h"
#include "simulator/ui/fake_packs.h"
#include "simulator/ui/machine_panel.h"
#include "support/no_printers.h"

namespace morvane::shell {

/// Brings up every window and box of the desktop, one after the other, over a set of three boards
/// and with all their controls shown.
class EveryWindow : public ServiceWindows {
 protected:
  EveryWindow() {
    test::FillSet(desk.Prog.Set, 1, 3);
    desk.Prog.ServiceLevel = 2;
    desk.Store.Set(kDealCopy, "1");
    desk.Store.Set(kDealSub, "1");
  }

  void LookAtAll(const Look& look) {
    LookAtMainMenu(look);
    LookAtAbout(look);
    LookAtPanel([&look](QWidget& panel) { LookAtPages(panel, look); });
    LookAtReplay(look);
    LookAtLoadNumber(look);
    LookAtEdit(look);
    LookAtBoxes(look);
    LookAtFileDialogs(look);
    LookAtPreferences(look);
    LookAtPreview(look);
    LookAtGenerate(look);
    LookAtHandRecord(look);
    LookAtDeepF(look);
    LookAtRuns(look);
    LookAtMaintenance(look);
    LookAtReadService(look);
  }

  /// Without a set, then with one, without its statistics and with them.
  void LookAtMainMenu(const Look& look) {
    Start();
    const auto before = std::make_unique<BoardSet>(desk.Prog.Set);
    desk.Prog.Set.Clear();
    menu->RefreshSet();
    desk.Loop.Pump();
    look(*menu);
    desk.Prog.Set = *before;
    for (const bool statistics : {false, true}) {
      desk.Prog.ShowStatistics = statistics;
      menu->RefreshSet();
      ShowFigures();
      desk.Loop.Pump();
      look(*menu);
    }
  }

  void LookAtAbout(const Look& look) {
    ShowAbout(help, *menu);
    QWidget* window = test::TopWindow("About");
    ASSERT_NE(window, nullptr);
    desk.Loop.Pump();
    look(*window);
    window->close();
    desk.Loop.Pump();
  }

  void LookAtPanel(const Look& look) {
    test::FakePacks packs;
    simulator::MachinePanel panel(desk.Loop, simulated, packs);
    Dock(panel, *menu);
    panel.show();
    desk.Loop.Pump();
    look(panel);
  }

  /// Stopped by a difference.
  void LookAtReplay(const Look& look) {
    const std::string path = desk.Folder / "evening.trace";
    bridges::WrittenTrace trace;
    test::WriteContent(path, trace.Opening().Poll().Send(test::Long({0x98})).End().Text());
    bridges::TraceReader reader;
    ASSERT_EQ(reader.Open(path), std::nullopt);
    bridges::ReplayBridge bridge(std::move(reader), desk.Clock);
    machine::Machine replayed(desk.Random, bridge, machine::MachineKind::kReplayed);
    ASSERT_TRUE(machine::OpenLink(desk.Prog, replayed.Link, 200));
    replayed.Exchange(replayed.Poll());
    replayed.VersionProbe();
    bridges::ReplayPanel panel(desk.Loop, bridge.Play());
    Dock(panel, *menu);
    panel.show();
    desk.Loop.Pump();
    look(panel);
  }

  void LookAtLoadNumber(const Look& look) {
    files::LoadNumber dialog(desk.Prog, *files::FindFormat("BRI"));
    desk.When("Load_number", [&](QWidget& window) {
      look(window);
      test::Press(window, Qt::Key_Return);
    });
    windows.ShowLoadNumber(dialog);
  }

  /// With a board that has been analysed and is held.
  void LookAtEdit(const Look& look) {
    desk.Prog.Set.At(1).Tricks[0] = 3;
    desk.When("Edit", [&](QWidget& window) {
      test::Press(window, Qt::Key_C, Qt::ControlModifier | Qt::ShiftModifier);
      look(window);
      test::Press(window, Qt::Key_Escape);
    });
    shell.MenuEdit();
  }

  /// A short box, and one with a line for each of 100 boards.
  void LookAtBoxes(const Look& look) {
    std::string report = "Boards passed over: 100";
    for (int line = 1; line <= 100; ++line) {
      report += "\r\nLine " + std::to_string(line) +
                ": the hands do not have 13 cards each, or a card is there twice";
    }
    for (const std::string& text : {std::string("The set has unsaved changes"), report}) {
      desk.When("MessageBox", [&](QWidget& window) {
        look(window);
        window.close();
      });
      desk.Ui.MessageBox(text, kYesNoCancelExclamation, "Box");
    }
  }

  void LookAtFileDialogs(const Look& look) {
    for (const bool saving : {false, true}) {
      desk.When(saving ? "cdSave" : "cdOpen", [&](QWidget& window) {
        look(window);
        window.close();
      });
      desk.Ui.AskFile({"Title", "PBN files (*.pbn)|*.pbn", 1, desk.Folder.Path(), saving});
    }
  }

  /// `Generate` with results, and for empty boards.
  void LookAtGenerate(const Look& look) {
    const auto before = std::make_unique<BoardSet>(desk.Prog.Set);
    desk.Store.Set(kNewShapes, "1");
    generate::GenerateForm form(desk.Prog, shell.Deals(), shell.History(), [] {});
    desk.When("Generate", [&](QWidget& window) {
      form.bigdeal();
      desk.Loop.Pump();
      look(window);
      form.ChooseRandom(false);
      desk.Loop.Pump();
      look(window);
      window.close();
    });
    windows.ShowGenerate(form);
    desk.Prog.Set = *before;
  }

  /// Two pages of the set, on paper of no printer.
  void LookAtPreview(const Look& look) {
    QtPrinter printer(desk.Loop, std::make_unique<test::NoPrinters>());
    desk.When("Preview", [&](QWidget& window) {
      desk.Loop.Pump();
      look(window);
      window.close();
    });
    print::PrintOptions options;
    options.PerPage = 1;
    options.To = desk.Prog.Set.LastBoard;
    options.Statistics = print::PrintOptions::kStatisticsLast;
    const print::Document document(desk.Prog.Set, options);
    const auto draw = [&document](Canvas& canvas) {
      static_cast<void>(document.Draw(canvas, [] { return true; }));
    };
    printer.Preview({"Boards", 1}, draw,
                    {{"cmdPrint", "&Print", [] {}}, {"SaveAsPdf", "&Save as PDF...", [] {}}});
  }

  /// `HandRecord` without a layout, in each mode, and in the middle of a run.
  void LookAtHandRecord(const Look& look) {
    desk.Store.Set(kPrintAnalyze, "0");  // or it asks
    print::HandRecord dialog(desk.Prog, {});
    bool looked = false;
    desk.When("HandRecord", [&](QWidget& window) {
      look(window);
      // They may have been scrolled out of sight.
      const auto choose = [&window](const char* option) {
        test::Find<QAbstractButton>(window, option).click();
      };
      choose("Option3");
      for (const char* mode : {"PrintMode2", "PrintMode3", "PrintMode1"}) {
        choose(mode);
        look(window);
      }
      const auto before = desk.Loop.OnPump;
      desk.Loop.OnPump = [&] {
        before();
        if (dialog.BoardsDone() != 2 || std::exchange(looked, true)) return;
        look(window);
      };
      test::Click(window, "cmdPrint");
      desk.Loop.OnPump = before;
      window.close();
    });
    windows.ShowHandRecord(dialog);
  }

  /// `DeepF` over a set, and beside the flows over one board, with the longest of its labels.
  void LookAtDeepF(const Look& look) {
    analysis::SolverProcess process(processes, "", "");
    struct Child final : ChildProcess {
      explicit Child(std::shared_ptr<bool> alive) : Alive(std::move(alive)) {}
      [[nodiscard]] bool Lives() override { return *Alive; }
      std::shared_ptr<bool> Alive;
    };
    std::shared_ptr<bool> alive;
    processes.OnStart = [&alive](const ProcessOrder& /*order*/) {
      alive = std::make_shared<bool>(true);
      return StartedProcess{std::make_unique<Child>(alive), std::nullopt};
    };
    for (const auto solver : {analysis::Solver::kDds, analysis::Solver::kDeepFinesse}) {
      OpenAnalysis open(desk.Prog, process, solver, 0);
      open.Window = windows.OpenDeepF(open.Run);
      open.Run.Open(*open.Window);
      QWidget* window = test::TopWindow("DeepF");
      ASSERT_NE(window, nullptr);
      desk.Loop.WaitMs(analysis::DeepF::kTimer1Ms + 3000);
      look(*window);
      *alive = false;
      desk.Loop.WaitMs(3 * analysis::DeepF::kTimer2Ms);
      look(*window);
      test::Click(*window, "DF_Cancel");
      desk.Loop.RunUntil([&open] { return open.Run.Closed(); });
    }
    processes.OnStart = nullptr;
  }

  void LookAtPreferences(const Look& look) {
    Preferences preferences(desk.Prog);
    desk.When("Preferences", [&](QWidget& window) {
      look(window);
      window.close();
    });
    windows.ShowPreferences(preferences);
  }

  /// The run window, idle, and the error dialog over it in the middle of a board.
  void LookAtRun(const Look& look) {
    machine::DealingRun run(desk.Prog, machine_, memory_);
    LookAtRunWindow<machine::DealinProg>(run, "cmdDeal", look, [](QWidget&) {});
  }

  /// The window of each kind of run: idle, in the middle of a board, with the error dialog over it,
  /// and behind that.
  void LookAtRuns(const Look& look) {
    machine::DealingRun run(desk.Prog, machine_, memory_);
    LookAtRunWindow<machine::DealinProg>(run, "cmdDeal", look, look);
    LookAtRead(look);
    LookAtSort(look);
    LookAtPoker(look);
  }

  /// A board that is there already is read from the pack into an empty one.
  void LookAtRead(const Look& look) {
    const auto before = std::make_unique<BoardSet>(desk.Prog.Set);
    simulated.LayBoard(desk.Prog.Set.At(2));
    desk.Prog.Set.At(1) = NumberedBoard(1);
    machine::ReadingRun run(desk.Prog, machine_, memory_, [] {});
    LookAtRunWindow<machine::DealinProg>(run, "cmdDeal", look, look);
    desk.Prog.Set = *before;
  }

  /// Without an order, with one, in a run, and behind it, with the piles to be carried.
  void LookAtPoker(const Look& look) {
    ASSERT_TRUE(machine::OpenLink(desk.Prog, machine_.Link, 200));
    poker::Poker poker(desk.Prog, machine_, memory_);
    poker::PokerWindow window(desk.Prog, poker, menu.get());
    poker.Open(window);
    desk.Loop.WaitMs(machine::MachineRun::kFirstContactMs + 100);
    window.activateWindow();  // as window managers do behind a box
    look(window);
    test::Find<QAbstractButton>(window, "Generate").click();
    look(window);
    desk.Loop.After(4000, [&] { look(window); });
    test::Find<QAbstractButton>(window, "FirstDeal").click();
    look(window);
    poker.Exit();
  }

  void LookAtSort(const Look& look) {
    machine::SortingRun run(desk.Prog, machine_, memory_);
    LookAtRunWindow<machine::SortProg>(run, "cmdSort", look, look);
  }

 private:
  template <typename Window, typename Run>
  void LookAtRunWindow(Run& run, const char* start, const Look& look, const Look& later) {
    ASSERT_TRUE(machine::OpenLink(desk.Prog, machine_.Link, 200));
    Window window(desk.Prog, run, menu.get());
    run.Open(window);
    desk.Loop.WaitMs(machine::MachineRun::kFirstContactMs + 100);
    auto* boards = window.template findChild<QAbstractButton*>("Disp_boards");
    if (boards != nullptr && !run.Window().ShowBoards) test::Click(*boards);
    window.activateWindow();  // as window managers do behind a box
    look(window);
    // The same cards each time.
    std::array<int, kCards> pack{};
    std::iota(pack.begin(), pack.end(), 1);
    simulated.LoadPack(pack);
    desk.Loop.After(4000, [&] { later(window); });
    desk.Loop.After(6000, [this] { simulated.CauseFault(25); });
    desk.When("Error_disp", [&](QWidget& error) {
      look(error);
      test::Click(error, "Cancel_button");
    });
    test::Click(window, start);
    window.activateWindow();
    later(window);
    run.Exit();
  }

  machine::RunMemory memory_;
};

}  // namespace morvane::shell
