#pragma once

#include <QAbstractButton>
#include <QApplication>
#include <QProgressBar>
#include <QTabWidget>
#include <functional>
#include <memory>
#include <numeric>
#include <string>
#include <utility>

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
#include "maintenance/maintenance.h"
#include "maintenance/paper_flash.h"
#include "maintenance/ui/camera_bridge.h"
#include "maintenance/ui/magnify_window.h"
#include "maintenance/ui/maintenance_window.h"
#include "platform/qt/qt_printer.h"
#include "platform/qt/window_place.h"
#include "poker/poker.h"
#include "poker/ui/poker_window.h"
#include "print/document.h"
#include "shell/ui/main_menu_desk.h"
#include "simulator/ui/fake_packs.h"
#include "simulator/ui/machine_panel.h"
#include "support/no_printers.h"

namespace morvane::shell {

/// Brings up every window and box of the desktop, one after the other, over a set of three boards
/// and with all their controls shown.
class EveryWindow : public MainMenuTest {
 protected:
  EveryWindow() {
    test::FillSet(desk.Prog.Set, 1, 3);
    desk.Prog.ServiceLevel = 2;
    desk.Store.Set(kDealCopy, "1");
    desk.Store.Set(kDealSub, "1");
  }

  using Look = std::function<void(QWidget&)>;
  void LookAtAll(const Look& look) {
    LookAtMainMenu(look);
    LookAtPanel([&look](QWidget& panel) { LookAtPages(panel, look); });
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
  }

  void LookAtMainMenu(const Look& look) {
    Start();
    for (const bool statistics : {false, true}) {
      desk.Prog.ShowStatistics = statistics;
      menu->RefreshSet();
      ShowFigures();
      desk.Loop.Pump();
      look(*menu);
    }
  }

  void LookAtPanel(const Look& look) {
    test::FakePacks packs;
    simulator::MachinePanel panel(desk.Loop, simulated, packs);
    Dock(panel, *menu);
    panel.show();
    desk.Loop.Pump();
    look(panel);
  }

  static void LookAtPages(QWidget& panel, const Look& look) {
    auto& tabs = test::Find<QTabWidget>(panel, "tabs");
    for (int page = 0; page < tabs.count(); ++page) {
      tabs.setCurrentIndex(page);
      QApplication::processEvents();
      look(panel);
    }
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

  /// Before the machine answers; then each page, with the motors on, a flip plate that is open,
  /// parameters that are not written, and a picture; then the windows that it opens.
  void LookAtMaintenance(const Look& look) {
    ASSERT_TRUE(
        machine::OpenLink(desk.Prog, machine_.Link, maintenance::Maintenance::kLinkTimeoutMs));
    const auto pictures = std::make_unique<maintenance::PictureStore>();
    maintenance::Maintenance console(desk.Prog, machine_, *pictures);
    maintenance::MaintenanceWindow window(desk.Prog, console, menu.get());
    console.Open(window);
    window.activateWindow();
    look(window);
    desk.Loop.WaitMs(maintenance::Maintenance::kFirstContactMs + 100);
    for (const char* output : {"Motors", "Cam_leds", "Cam_power"}) {
      test::Find<QAbstractButton>(window, output).click();
    }
    test::Find<QAbstractButton>(window, "Ignore_flip").click();
    simulated.Opened().Cover(2, true);
    simulated.Opened().SetSpeed(3, 9000);
    simulated.Opened().Set(simulator::Sensors::Switch::FlipPlate, false);
    test::Find<QAbstractButton>(window, "Feed_card").click();
    desk.Loop.WaitMs(20'000);  // the motors run up
    for (const char* step : {"Capture", "Showb", "Reco", "Frame_draw", "Start_draw"}) {
      test::Find<QAbstractButton>(window, step).click();
    }
    LookAtPages(window, look);
    LookAtMagnify(*pictures, window, look);
    LookAtAdvance(console, look);
    LookAtAutoSetup(window, look);  // it writes the parameters: nothing is lost at the end
    LookAtFirmware(window, look);
    console.Exit();
  }

  void LookAtMagnify(const maintenance::PictureStore& pictures, QWidget& console,
                     const Look& look) {
    maintenance::MagnifyWindow window(pictures, &console);
    window.show();
    test::Find<QAbstractButton>(window, "Raster").click();
    desk.Loop.Pump();
    look(window);
    window.close();
  }

  void LookAtAdvance(maintenance::Maintenance& console, const Look& look) {
    const int before = std::exchange(desk.Prog.ServiceLevel, 2);
    desk.When("Advance_form", [&](QWidget& window) {
      desk.Loop.After(100, [&] {  // it reads the machine
        look(window);
        window.close();
      });
    });
    console.Advance();
    desk.Prog.ServiceLevel = before;
  }

  /// In the middle of a search that finds nothing: the card is another.
  void LookAtAutoSetup(QWidget& console, const Look& look) {
    constexpr int kMiddle = 20;  // per cent
    desk.AnswerBox(QMessageBox::Ok);
    bool looked = false;
    const auto before = desk.Loop.OnPump;
    desk.Loop.OnPump = [&] {
      before();
      QWidget* window = test::TopWindow("AutoSetup");
      if (window == nullptr || looked) return;
      if (test::Find<QProgressBar>(*window, "ProgressBar1").value() < kMiddle) return;
      looked = true;
      window->activateWindow();  // as window managers do behind a box
      look(*window);
      test::Find<QAbstractButton>(*window, "Cancel").click();
    };
    test::Find<QAbstractButton>(console, "AutoSetup_command").click();
    desk.Loop.OnPump = before;
    EXPECT_TRUE(looked);
  }

  /// In the middle of a download.
  void LookAtFirmware(QWidget& console, const Look& look) {
    constexpr int kMiddle = 40;  // of 64 blocks
    const std::string path = desk.Folder / "Firmware 2.91.adc";
    test::WriteContent(
        path, maintenance::FileOf(maintenance::CodeOf(2, 0x91, 4000), std::string(4000, 'b')));
    desk.When("cdOpen", [&path](QWidget& dialog) {
      test::Type(dialog, path);
      test::Press(dialog, Qt::Key_Return);
    });
    bool looked = false;
    int blocks = 0;
    flash_.Answer = [&](const test::Bytes& plain) {
      if (plain[0] == 0x29) return test::Short({0x29});
      if (plain[0] != 0xAA) return test::Bytes();
      desk.Clock.Spend(std::chrono::milliseconds(100));
      if (++blocks == kMiddle) {
        desk.Loop.Post([&] {
          QWidget* window = test::TopWindow("Firmware");
          ASSERT_NE(window, nullptr);
          looked = true;
          window->activateWindow();  // as window managers do behind a dialog
          look(*window);
          test::Find<QAbstractButton>(*window, "Command1").click();
        });
      }
      return test::Short({0x2A});
    };
    test::Find<QAbstractButton>(console, "Download").click();
    flash_.Answer = nullptr;
    EXPECT_TRUE(looked);
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

  maintenance::CameraBridge flash_{simulated};
  machine::Machine machine_{desk.Random, flash_};
  machine::RunMemory memory_;
};

}  // namespace morvane::shell
