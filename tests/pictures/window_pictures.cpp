#include <QDir>
#include <QLineEdit>
#include <algorithm>
#include <cstdio>
#include <random>
#include <set>

#include "machine/ui/error_disp.h"
#include "platform/qt/program_icon.h"
#include "shell/ui/every_window.h"

// No test: window_pictures FOLDER writes a picture of every window into the folder, at the scale
// that QT_SCALE_FACTOR says. tools/pictures runs it.

namespace morvane::shell {
namespace {

constexpr QSize kRoomy{1080, 760};

QDir& Folder() {
  static QDir folder;
  return folder;
}

Board DealtBoard(int n, std::mt19937& chance) {
  Board board = test::RoundBoard(n);
  std::shuffle(board.Cards.begin() + 1, board.Cards.end(), chance);
  AnalyzeBoard(board);
  return board;
}

/// An evening at a club.
class WindowPictures : public EveryWindow {
 protected:
  WindowPictures() {
    BoardSet& set = desk.Prog.Set;
    set.Clear();
    std::mt19937 chance(20261122);
    for (int n = 1; n <= 32; ++n) set.At(n) = DealtBoard(n, chance);
    set.FirstBoard = 1;
    set.LastBoard = 32;
    set.EventName = "Open Pairs, Second Session";
    set.EventSite = "Riverside Bridge Club";
    set.EventDate = "14 May 2026";
    set.BoardSetFile = "/home/club/sets/Open Pairs 2.pbn";
    desk.Prog.ServiceLevel = 0;
  }

  /// Of a state that comes up more than once the first is taken, of the main window the last, which
  /// has the statistics.
  void Take(QWidget& window) {
    if (window.objectName().startsWith("cd")) return;  // the file dialogs are the toolkit's
    const QString name = NameOf(window);
    if (!taken_.insert(name).second && name != "MainMenu") return;
    if (window.objectName() == "MainMenu" || window.objectName() == "DealinProg" ||
        window.objectName() == "Poker") {
      window.resize(kRoomy);
    }
    if (name == "About") {
      Show(window, "txtData", "/home/club/.local/share/Morvane_Data");
      Show(window, "txtSettings", "/home/club/.config/morvane.exe.ini");
    }
    if (name == "MainMenu_empty") Show(window, "txtFileName", "");
    Save(window, name);
  }

  /// What a club would see in place of a test's file.
  static void Show(QWidget& window, const char* box, const char* text) {
    test::Find<QLineEdit>(window, box).setText(text);
  }

  void Save(QWidget& window, const QString& name) {
    desk.Loop.Pump();
    constexpr int kSmallest = 0;
    const QString path = Folder().filePath(name + ".png");
    ASSERT_TRUE(window.grab().save(path, "PNG", kSmallest)) << path.toStdString();
  }

  /// One of another kind than that of the runs.
  void TakeFault(const machine::Fault& fault, const QString& name) {
    machine::ErrorDialog dialog(desk.Prog, machine_, machine::kStop, fault);
    machine::ErrorDisp window(dialog, menu.get());
    window.show();
    Save(window, name);
  }

  /// The window's name; of a run also what it does and how it stands.
  static QString NameOf(const QWidget& window) {
    QString name = window.objectName();
    if (const auto* tabs = window.findChild<QTabWidget*>("tabs")) {
      const QString page = tabs->tabText(tabs->currentIndex()).remove('&').replace(' ', '_');
      if (tabs->currentIndex() != 0) name += "_" + page;
    }
    if (name.startsWith("Maintenance") && !test::Enabled(window, "Motors")) return name + "_start";
    if (name == "Poker") return name + PokerState(window);
    if (name == "MainMenu" && test::Visible(window, "FirstSteps")) return name + "_empty";
    if (name != "DealinProg") return name;
    if (window.windowTitle().contains("Reading")) name += "_read";
    if (window.windowTitle().contains("Sorting")) name += "_sort";
    const std::string state = test::TextOf(window, "lblProgress");
    if (state.ends_with("ing ...")) return name + "_busy";
    return state.starts_with("Last") ? name + "_stopped" : name;
  }

  static QString PokerState(const QWidget& window) {
    if (test::TextOf(window, "txtStatus") == "Busy") return "_busy";
    if (test::Enabled(window, "SecondDeal")) return "_carry";
    return test::Enabled(window, "FirstDeal") ? "" : "_empty";
  }

 private:
  std::set<QString> taken_;
};

TEST_F(WindowPictures, AreWritten) {
  LookAtAll([this](QWidget& window) { Take(window); });
  constexpr int kJam = 9;
  machine_.MachineError = kJam;
  TakeFault({.Board = 7, .Card = 17}, "Error_disp_cancel");
  TakeFault({.Board = 7, .Label = 8}, "Error_disp_board");
}

}  // namespace
}  // namespace morvane::shell

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  const QApplication application(argc, argv);
  QApplication::setWindowIcon(morvane::ProgramIcon());
  if (argc != 2 || !QDir().mkpath(argv[1])) {
    std::fprintf(stderr, "Usage: window_pictures FOLDER\n");
    return 2;
  }
  // An analysis changes the working folder.
  morvane::shell::Folder() = QDir(argv[1]).absolutePath();
  return RUN_ALL_TESTS();
}
