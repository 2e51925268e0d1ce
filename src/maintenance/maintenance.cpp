#include "maintenance/maintenance.h"

#include <utility>

#include "machine/gates.h"
#include "maintenance/advance_form.h"
#include "maintenance/auto_setup_command.h"
#include "maintenance/calibration_command.h"
#include "maintenance/service_file_command.h"
#include "maintenance/test_deal_command.h"
#include "text/box_text.h"
#include "wire/service_commands.h"

namespace morvane::maintenance {
namespace {

using machine::Machine;
using wire::IdentityReply;

/// The status answers behind which the log gets what is known of the machine.
constexpr int kAnswersBeforeInfo = 10;
/// What the machine needs to start.
constexpr int kRestartMs = 500;
/// Twice, so that who asked for a download finds the machine started.
constexpr int kBeforeLeavingMs = 1000;

}  // namespace

Maintenance::Maintenance(Program& program, Machine& machine, PictureStore& pictures)
    : program_(program),
      machine_(machine),
      pictures_(pictures),
      link_(program, machine, [this] { Unload(); }),
      poll_(link_, machine, [this] { TellBasicInfo(); }),
      parameters_(program, link_, machine),
      bench_(program, link_, machine, parameters_, pictures, *this),
      developer_(link_, *this) {
  machine_.OnUnasked = [this](const wire::Frame& frame) { return TakeUnasked(frame); };
}

Maintenance::~Maintenance() { machine_.OnUnasked = nullptr; }

// Opening, the first contact, and leaving.

void Maintenance::Open(MaintenanceView& view, std::string firmware) {
  view_ = &view;
  firmware_ = std::move(firmware);
  // What a window whose link was lost has left behind.
  machine_.PollLock = false;
  machine_.ForgetAnother();
  program_.Log.WriteTime(" Maintenance: ");
  WindowStart();
}

void Maintenance::WindowStart() {
  identity_ = {};
  controls_ = {};
  machine_.Version = {};
  bench_.ForgetFrames();
  parameters_.LoadSelection();
  machine_.Link.MachineLatchOn();
  Timer1m_.reset();
  Timer3m_ = program_.Loop.StartTimer(kFirstContactMs, [this] { Timer3m(); });
  view_->ShowAll();
}

void Maintenance::Timer3m() {
  const auto once = std::move(Timer3m_);
  AtLink([this] {
    if (!FirstContact()) return;
    StartPolling();
    if (firmware_.empty() || Leaving()) return;
    view_->ShowAll();
    DownloadFrom(firmware_, DownloadCommand::For::kAnother);
  });
}

bool Maintenance::FirstContact() {
  machine_.Link.FlushLink();
  poll_.SensorsLive = true;
  if (!link_.AskFirst(wire::ServiceVersionCommand{})) return false;
  identity_.TakeVersion(machine_);
  if (HasFirmware(machine_) && !ReadMachine()) return false;
  controls_.Download = true;
  return ReadInnerVersions(link_, identity_);
}

bool Maintenance::ReadMachine() {
  if (!ReadIdentity(link_, identity_)) return false;
  if (!parameters_.ApplyGates()) {
    Unload();
    return false;
  }
  if (!parameters_.Read()) return false;
  EnableControls();
  return true;
}

void Maintenance::EnableControls() {
  controls_.MachineKnown = true;
  controls_.Video =
      machine_.Version.FirmwareMajor > 2 ||
      (Passes(machine_, kVideoGate) && machine_.HasHardware(IdentityReply::kVideoSettings));
  controls_.Board_Sen = machine_.HasHardware(IdentityReply::kOpticalBoardSwitch);
}

void Maintenance::Exit() {
  if (closed_) return;
  if (machine_.PollLock) {
    leaving_ = true;
    return;
  }
  if (MayLeave()) Unload();
}

bool Maintenance::MayLeave() {
  if (program_.Loop.Quitting() || !Boxes().Edited()) return true;
  const machine::LinkHold hold(machine_);
  const int answer = program_.Ask(
      "      Parameters have been changed and not been written to the machine.      \r\n"
      "      Do you want to leave without writing them?      ",
      kYesNoExclamationNo, "Maintenance");
  leaving_ = false;
  return answer == kYes;
}

void Maintenance::Unload() {
  if (closed_) return;
  closed_ = true;
  controls_ = {};
  Timer1m_.reset();
  Timer3m_.reset();
  machine_.Link.MachineLatchOff();
  machine_.Link.CloseLink();
  parameters_.SaveSelection();
  view_->Close();
}

// The poll.

void Maintenance::StartPolling() {
  Timer1m_ = program_.Loop.StartTimer(kPollMs, [this] { Timer1m(); });
}

/// Each poll begins a while behind the end of the last. While another has the link, which may be
/// for an open box, it waits, and so does a firmware file from outside.
void Maintenance::Timer1m() {
  const auto once = std::move(Timer1m_);
  if (!machine_.PollLock) Tick();
  if (!closed_ && Timer3m_ == nullptr) StartPolling();
}

void Maintenance::Tick() {
  if (program_.Link.Pending == LinkRequest::kDownload) {
    TakeDownload();
  } else {
    AtLink([this] { poll_.Poll(false); }, &MaintenanceView::ShowReadings);
  }
}

void Maintenance::TakeDownload() {
  AtLink([this] {
    DownloadFrom(std::exchange(program_.Link, {}).File, DownloadCommand::For::kOperator);
  });
}

void Maintenance::TellBasicInfo() {
  if (poll_.StatusAnswers() != kAnswersBeforeInfo) return;
  std::string line = "   Basic info: ";
  for (std::size_t i = 0; i < kLoggedIdentity; ++i) line += identity_.*kIdentityTexts[i].Text + ",";
  const Readings& now = poll_.Now();
  program_.Log.WriteLine(line + now.Inside_temp.Text + "," + now.Supply_volt.Text);
}

bool Maintenance::TakeUnasked(const wire::Frame& frame) {
  if (!wire::Answers<wire::VerdictReply>(wire::CodeOf(frame))) return false;
  bench_.Take(wire::Get<wire::VerdictReply>(frame));
  return true;
}

// The buttons.

void Maintenance::AtLink(const std::function<void()>& work, void (MaintenanceView::*show)()) {
  if (closed_) return;
  {
    const ServiceLink::Turn turn(link_);
    if (turn) work();
  }
  if (closed_) return;
  (view_->*show)();
  if (leaving_) Exit();
}

void Maintenance::AtMachine(const std::function<void()>& work) {
  if (controls_.MachineKnown) AtLink(work);
}

void Maintenance::Feed_card() {
  if (!controls_.MachineKnown) return;
  AtLink([this] { poll_.Poll(true); }, &MaintenanceView::ShowReadings);
}

void Maintenance::Get_param() {
  AtMachine([this] { parameters_.Read(); });
}

void Maintenance::save_param() {
  if (!parameters_.Known()) return;
  AtMachine([this] { parameters_.Save(); });
}

void Maintenance::SelectIndex(int index) {
  AtMachine([this, index] { parameters_.SelectIndex(index); });
}

void Maintenance::AutoSetup_command() {
  AtMachine([this] {
    bench_.Rest(true);
    AutoSetupCommand(program_, link_, machine_, poll_, parameters_, pictures_, *this).Run();
    bench_.Rest(false);
  });
}

void Maintenance::Email() {
  AtMachine([this] { CreateServiceFile(); });
}

void Maintenance::CreateServiceFile() {
  bench_.Rest(true);
  ServiceFileCommand(program_, link_, machine_, poll_, parameters_, bench_, pictures_, identity_,
                     developer_, serviceFile_, *this)
      .CreateServiceFile();
  bench_.Rest(false);
}

void Maintenance::Calibrate_Board_Switch() {
  AtMachine([this] { CalibrationCommand(program_, link_, machine_, parameters_, *this).Run(); });
}

void Maintenance::DealTest() {
  AtMachine([this] {
    TestDealCommand(program_, link_, machine_, poll_, parameters_, bench_, serviceFile_, *this,
                    [this] { CreateServiceFile(); })
        .Run();
  });
}

void Maintenance::Download(const std::string& path) {
  if (!controls_.Download) return;
  AtLink([&] { DownloadFrom(path, DownloadCommand::For::kOperator); });
}

void Maintenance::DownloadFrom(const std::string& path, DownloadCommand::For whom) {
  Timer1m_.reset();
  const bool sent = DownloadCommand(program_, link_, machine_, *this).Run(path, whom);
  if (closed_) return;
  if (!sent) StartPolling();
  if (sent && !Leaving()) MeetAnew();
  if (whom == DownloadCommand::For::kOperator) return;
  program_.Loop.WaitMs(kBeforeLeavingMs);
  program_.Loop.WaitMs(kBeforeLeavingMs);
  Unload();
}

/// The machine starts what it was loaded with as soon as the latch line drops.
void Maintenance::MeetAnew() {
  parameters_.LogLostEdits();
  identity_ = {};
  controls_ = {};
  view_->ShowAll();
  machine_.Link.MachineLatchOff();
  program_.Loop.WaitMs(kRestartMs);
  WindowStart();
}

/// Polls stand still meanwhile; the first contact must not.
void Maintenance::Magnify() {
  if (program_.ServiceLevel == 0 || Timer3m_ != nullptr) return;
  AtLink([this] { view_->Magnify(); });
}

/// What it has changed is shown behind it.
void Maintenance::Advance() {
  if (!controls_.Download) return;
  AtLink([this] {
    AdvanceForm form(program_, link_, controls_.MachineKnown);
    view_->ShowAdvance(form);
    if (controls_.MachineKnown) ReadIdentity(link_, identity_);
  });
}

}  // namespace morvane::maintenance
