#pragma once

#include <QAbstractButton>
#include <QDialog>
#include <QMainWindow>
#include <QTest>
#include <memory>

#include "machine/dealing_run.h"
#include "machine/machine.h"
#include "machine/open_link.h"
#include "machine/ui/dealin_prog.h"
#include "simulator/simulated_machine.h"
#include "support/qt_desk.h"

namespace morvane::machine {

/// A run window over boards 1 to 3 on a simulated machine that takes its real time: a board is
/// dealt in about 15 s.
class RunDesk : public ::testing::Test {
 protected:
  explicit RunDesk(const simulator::Options& options = Options())
      : simulated(options, desk.Clock) {}

  test::QtDesk desk;
  simulator::SimulatedMachine simulated;
  Machine machine{desk.Random, simulated, MachineKind::kSimulated};
  RunMemory memory;
  QMainWindow mainWindow;
  std::unique_ptr<QDialog> window;

  static simulator::Options Options() {
    simulator::Options options;
    options.Seed = 7;
    return options;
  }

  void SetUp() override {
    test::FillSet(desk.Prog.Set, 1, 3);
    mainWindow.setObjectName("MainMenu");
    mainWindow.show();
  }

  template <typename Window, typename Run>
  void OpenWindow(Run& run) {
    ASSERT_TRUE(OpenLink(desk.Prog, machine.Link, 200));
    auto made = std::make_unique<Window>(desk.Prog, run, &mainWindow);
    Window& view = *made;
    window = std::move(made);
    run.Open(view);
    window->activateWindow();
    desk.Loop.Pump();
  }
  /// Lets the machine answer.
  void WaitForContact() { desk.Loop.WaitMs(MachineRun::kFirstContactMs + 100); }

  void Click(const char* name) { test::Click(*window, name); }
  /// The letter of the button `name`, which stays down for a moment.
  static void PressLetter(QWidget& of, Qt::Key letter, const char* name) {
    const auto& button = test::Find<QAbstractButton>(of, name);
    of.activateWindow();  // a box may have had the keyboard
    test::Press(of, letter, Qt::AltModifier);
    ASSERT_TRUE(QTest::qWaitFor([&] { return !button.isDown(); }));
  }
  void PressLetter(Qt::Key letter, const char* name) { PressLetter(*window, letter, name); }
  [[nodiscard]] std::string Text(const char* name) const { return test::TextOf(*window, name); }
  [[nodiscard]] bool Enabled(const char* name) const { return test::Enabled(*window, name); }
  [[nodiscard]] bool Visible(const char* name) const { return test::Visible(*window, name); }
  [[nodiscard]] std::string FocusName() const {
    const QWidget* focus = window->focusWidget();
    return focus == nullptr ? "" : focus->objectName().toStdString();
  }

  /// What `lblCnt_1` to `lblCnt_4` show, joined by blanks.
  [[nodiscard]] std::string Counts() const {
    std::string counts = Text("lblCnt_1");
    for (const char* name : {"lblCnt_2", "lblCnt_3", "lblCnt_4"}) counts += " " + Text(name);
    return counts;
  }

  /// In the middle of what comes next, `ms` milliseconds from now.
  void MeanwhileAt(int ms, std::function<void()> act) {
    ++toCome_;
    desk.Loop.After(ms, [this, act = std::move(act)] {
      --toCome_;
      act();
    });
  }
  void TearDown() override { EXPECT_EQ(toCome_, 0) << "something was to be done that never was"; }

  [[nodiscard]] bool LiesInThePockets(int board) const {
    return simulated.DealtBoard().Cards == desk.Prog.Set.At(board).Cards;
  }
  [[nodiscard]] std::string LastLine() const { return desk.LogLines().back(); }

 private:
  int toCome_ = 0;
};

/// `DealinProg` of a dealing run.
class RunWindow : public RunDesk {
 protected:
  using RunDesk::RunDesk;
  DealingRun run{desk.Prog, machine, memory};
  ~RunWindow() override { window.reset(); }  // before the run that it shows

  void Open() { OpenWindow<DealinProg>(run); }
  void Contact() {
    Open();
    WaitForContact();
    ASSERT_FALSE(!run.Options().MachineKnown);
  }
};

}  // namespace morvane::machine
