#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "maintenance/console_host.h"
#include "maintenance/console_poll.h"
#include "maintenance/developer_tests.h"
#include "maintenance/download_command.h"
#include "maintenance/identity.h"
#include "maintenance/maintenance_view.h"
#include "maintenance/parameter_block.h"
#include "maintenance/recognition_bench.h"
#include "maintenance/service_file_run.h"

namespace morvane::maintenance {

/// What is there of the window and what is enabled.
struct ServiceControls {
  bool MachineKnown = false;  ///< the controls that need the machine
  bool Download = false;      ///< the button is there
  bool Video = false;         ///< `Video_Brightness`, `Video_Contrast` and their labels are
  bool Board_Sen = false;     ///< it, its label and `Calibrate_Board_Switch` are
};

/// The window `Maintenance`, the machine's service console, without its looks. Opened once; the
/// link must be open. Each public procedure is a control's event; while one of them, or the poll,
/// has the link, another does nothing.
class Maintenance final : private ConsoleHost {
 public:
  static constexpr std::int16_t kLinkTimeoutMs = 400;
  static constexpr int kFirstContactMs = 2000;
  static constexpr int kPollMs = 50;

  /// `pictures` outlive the console.
  Maintenance(Program& program, machine::Machine& machine, PictureStore& pictures);
  ~Maintenance();
  Maintenance(const Maintenance&) = delete;
  Maintenance& operator=(const Maintenance&) = delete;

  /// For who has no radio buttons; before `Open`. The stored selection stays as it is, and with an
  /// `index` (`CardSettings::Index`) that one is worked on in its place: where the machine cannot
  /// do it, the service ends behind the box that says so, and no parameter has been read.
  void KeepSelection(std::optional<int> index) { parameters_.KeepSelection(index); }
  /// With a `firmware` file the console is there for its download alone: that is begun as soon as
  /// the machine is known, and the console leaves behind it.
  void Open(MaintenanceView& view, std::string firmware = {});
  /// The close box or Escape. Asks once if something has been edited and not been written. During
  /// an exchange the window goes when that is over.
  void Exit();
  [[nodiscard]] bool Closed() const { return closed_; }

  // The outputs and the gate test are switched in `Console`; the next poll tells the machine.
  void Feed_card();
  void Get_param();
  void save_param();
  void SelectIndex(int index);
  void SelectNational(int national) { parameters_.CardSelection.National = national; }
  void SelectCardType(int cardType) { parameters_.CardSelection.CardType = cardType; }
  void SelectThreshold(int threshold) { parameters_.CardSelection.Threshold = threshold; }
  void AutoSetup_command();
  /// The button "Create Service File".
  void Email();
  void Calibrate_Board_Switch();
  void DealTest();
  /// The button: the operator picks a file, unless `path` is one.
  void Download(const std::string& path = {});
  /// A click on the picture: `Magnify1`, for technicians.
  void Magnify();
  /// The factory's form, once the machine has been spoken with; also where it holds no firmware.
  void Advance();

  // What the window shows.
  [[nodiscard]] ConsolePoll& Console() { return poll_; }
  [[nodiscard]] const ConsolePoll& Console() const { return poll_; }
  /// Boxes that are typed in; empty until the first read.
  [[nodiscard]] ParameterBoxes& Boxes() { return parameters_.Boxes; }
  [[nodiscard]] const ParameterBlock& Parameters() const { return parameters_; }
  [[nodiscard]] const Identity& TheIdentity() const { return identity_; }
  [[nodiscard]] RecognitionBench& Bench() { return bench_; }
  [[nodiscard]] const RecognitionBench& Bench() const { return bench_; }
  [[nodiscard]] DeveloperTests& Developer() { return developer_; }
  [[nodiscard]] const ServiceControls& Controls() const { return controls_; }
  [[nodiscard]] const ServiceFileRun& ServiceFiles() const { return serviceFile_; }
  [[nodiscard]] bool LinkFailed() const { return link_.LinkFailed(); }
  [[nodiscard]] const machine::Machine& TheMachine() const { return machine_; }

 private:
  void AtMachine(const std::function<void()>& work) override;
  [[nodiscard]] MaintenanceView& View() override { return *view_; }
  [[nodiscard]] bool Leaving() const override { return leaving_ || program_.Loop.Quitting(); }

  void WindowStart();
  void Timer3m();
  bool FirstContact();
  bool ReadMachine();
  void EnableControls();
  void StartPolling();
  void Timer1m();
  void Tick();
  void TakeDownload();
  void DownloadFrom(const std::string& path, DownloadCommand::For whom);
  void MeetAnew();
  void TellBasicInfo();
  [[nodiscard]] bool TakeUnasked(const wire::Frame& frame);
  /// Does `work` with the link, unless another has it; then `show`s what has come of it.
  void AtLink(const std::function<void()>& work,
              void (MaintenanceView::*show)() = &MaintenanceView::ShowAll);
  /// `CreateServiceFile`, for who has the link.
  void CreateServiceFile();
  [[nodiscard]] bool MayLeave();
  void Unload();

  Program& program_;
  machine::Machine& machine_;
  PictureStore& pictures_;
  ServiceLink link_;
  ConsolePoll poll_;
  ParameterBlock parameters_;
  Identity identity_;
  RecognitionBench bench_;
  DeveloperTests developer_;
  ServiceFileRun serviceFile_;
  ServiceControls controls_;
  MaintenanceView* view_ = nullptr;
  std::string firmware_;  ///< `FirmwareFile`, while `ExternalFirmware` is 1
  std::unique_ptr<Timer> Timer1m_;
  std::unique_ptr<Timer> Timer3m_;
  bool leaving_ = false;  ///< somebody wants to leave, once the link is free
  bool closed_ = false;
};

}  // namespace morvane::maintenance
