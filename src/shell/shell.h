#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "analysis/solver_process.h"
#include "edit/clip_memory.h"
#include "generate/generator.h"
#include "history/history.h"
#include "machine/board_walk.h"
#include "machine/machine.h"
#include "maintenance/picture_store.h"
#include "platform/instance.h"
#include "program/program.h"
#include "shell/analyze_flow.h"
#include "shell/flow_windows.h"
#include "shell/recent_files.h"
#include "shell/start_up.h"
#include "shell/unsaved_copy.h"
#include "text/number_filter.h"

namespace morvane::shell {

/// The main window without its looks: start-up, the menu's flows and exit. It owns the long-lived
/// state of the subsystems. One flow runs at a time; a request that comes while one runs does
/// nothing.
class Shell {
 public:
  static constexpr int kTimer2Ms = 100;
  static constexpr int kKeepMs = 1000;  ///< as much of the work can be lost

  /// `instance` calls `LinkExecute` as long as the event loop runs.
  Shell(Program& program, UsbXpress& usb, ProcessStarter& processes, FlowWindows& windows,
        Instance& instance, machine::MachineKind kind = machine::MachineKind::kReal);

  /// From its start on the program keeps a copy of what is unsaved. Before `StartUp`.
  void KeepUnsavedSet();
  /// From its start on the program keeps a list of the board files that it used last. Before
  /// `StartUp`.
  void KeepRecentFiles();
  /// Start-up, in its order; `commandLine` is the command line without the program's name, `typed`
  /// what the log says of it. The program ends unless it `kGoesOn`.
  StartOutcome StartUp(const std::string& commandLine, const std::string& typed);
  StartOutcome StartUp(const std::string& commandLine) { return StartUp(commandLine, commandLine); }
  /// The main window has been activated: the reference of the time entropy.
  void Activated();
  /// The close box or `menuExit`. Whether the program ends; the window may go then.
  bool Exit();
  /// Ends a program whose loop has been told to quit: nothing is asked, an unsaved set stays as its
  /// copy. Does nothing behind an `Exit`.
  void End();
  /// The session ends, and the system may end the program as soon as this returns: the loop quits,
  /// and what must survive is done. What still runs stops by the loop; only the copy is made then,
  /// and `End` comes behind if there is time.
  void EndOfSession();
  /// The program's own code has failed, with `what`: the copy of the set is brought up to date, the
  /// log says it, and the loop quits, since nothing is certain any more. `End` comes behind.
  /// What the next start will offer.
  UnsavedCopy::State Fail(const std::string& what);

  void MenuNew();
  void MenuLoad();
  void MenuImport();
  void MenuSave();
  /// The Load flow, or Import's, with a file of `Recent`.
  void MenuRecent(const RecentFile& file);
  [[nodiscard]] std::vector<RecentFile> Recent() const;
  void MenuDeal();
  void MenuRead();
  void MenuSort();
  void MenuPoker();
  void MenuEdit();
  void MenuPrint();
  /// `cmdMaintenance`.
  void MenuMaintenance();
  /// `Read_Service_File`.
  void MenuReadServiceFile();
  /// Analize: all boards of the set.
  void MenuAnalyze();
  /// Within the flow of the editor or of a command: modal, and without a question. `board` 0: the
  /// whole set. How it has ended.
  analysis::DeepF::Status Analyze(analysis::Solver solver, int board);
  void CmdPref();

  /// The event boxes, after every change. The text that the box is to show.
  enum class EventText { kName, kSite, kDate };
  FilteredBox ChangeEvent(EventText which, FilteredBox box);

  /// A link command: "1" and a board file to load, or "2" and a firmware file to download. It is
  /// taken up when no flow is open; the main window comes to the front at once.
  void LinkExecute(std::string_view command);

  /// Shows or hides the statistics.
  void ShowStat();

  [[nodiscard]] bool FlowActive() const { return flowActive_; }
  [[nodiscard]] generate::Generator& Deals() { return generator_; }
  [[nodiscard]] history::History& History() { return history_; }
  [[nodiscard]] const history::History& History() const { return history_; }
  [[nodiscard]] machine::Machine& TheMachine() { return machine_; }

 private:
  /// One flow of the menu. `Timer2mm` stands still while any is open, so that no request from
  /// outside and no pool update runs inside one.
  class Flow {
   public:
    enum class Waits { kAnew, kAsBefore };
    /// `waits`: whether locks that an earlier flow waited for in vain are waited for again.
    explicit Flow(Shell& shell, Waits waits = Waits::kAnew);
    ~Flow();
    Flow(const Flow&) = delete;
    Flow& operator=(const Flow&) = delete;

   private:
    Shell& shell_;
  };
  /// Import's flow; with a `path` no file is asked for.
  void Import(const std::string& path);
  /// The end of each flow that may have changed the set.
  void RefreshStatistics();
  void EnableTimer2mm();
  void Timer2mmTick();
  void Keep();
  void WriteExit();
  /// The file of a start or of a request from outside: a service file is shown to technicians, any
  /// other is loaded.
  void OpenStartFile();
  /// The service, with a `firmware` file for its download alone; `status` behind it.
  void Service(const std::string& firmware, const std::string& status = "Ready");

  Program& program_;
  FlowWindows& windows_;
  Instance& instance_;
  generate::Generator generator_;
  history::History history_;
  machine::Machine machine_;
  maintenance::PictureStore pictures_;
  machine::RunMemory runMemory_;
  analysis::SolverProcess solver_;
  std::unique_ptr<OpenAnalysis> analysis_;  ///< beside the flows
  edit::ClipMemory clip_;
  std::string startFile_;
  std::unique_ptr<Timer> Timer2mm_;
  std::optional<UnsavedCopy> unsaved_;
  std::optional<RecentFiles> recent_;
  std::unique_ptr<Timer> keeper_;  ///< goes on while a flow is open
  bool flowActive_ = false;
  bool started_ = false;
  bool cutOff_ = false;  ///< an exception has left a flow
  bool failed_ = false;
};

}  // namespace morvane::shell
