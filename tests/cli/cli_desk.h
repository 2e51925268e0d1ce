#pragma once

#include <algorithm>
#include <deque>
#include <string>
#include <vector>

#include "cli/analyze_command.h"
#include "cli/audit_command.h"
#include "cli/boot_c_command.h"
#include "cli/convert_command.h"
#include "cli/deal_command.h"
#include "cli/firmware_file_command.h"
#include "cli/generate_command.h"
#include "cli/history_command.h"
#include "cli/maintain_auto_setup_command.h"
#include "cli/maintain_calibrate_command.h"
#include "cli/maintain_firmware_command.h"
#include "cli/maintain_info_command.h"
#include "cli/maintain_parameters_command.h"
#include "cli/maintain_picture_command.h"
#include "cli/maintain_recognise_command.h"
#include "cli/maintain_record_command.h"
#include "cli/maintain_service_file_command.h"
#include "cli/maintain_test_deal_command.h"
#include "cli/maintain_watch_command.h"
#include "cli/poker_deal_command.h"
#include "cli/poker_new_command.h"
#include "cli/poker_print_command.h"
#include "cli/poker_read_command.h"
#include "cli/poker_show_command.h"
#include "cli/print_command.h"
#include "cli/read_command.h"
#include "cli/service_file_command.h"
#include "cli/show_command.h"
#include "cli/sort_command.h"
#include "cli/stats_command.h"
#include "cli/text_command.h"
#include "cli/txt_hex_command.h"
#include "simulator/simulated_machine.h"
#include "support/fakes.h"

namespace morvane::cli {

/// A terminal on paper: it keeps what is written and gives its lines one after the other.
class FakeTerminal final : public Terminal {
 public:
  void Out(const std::string& text) override { Output += text; }
  void Error(const std::string& text) override { (Shared ? Output : Errors) += text; }
  [[nodiscard]] bool CanAsk() const override { return Person; }
  [[nodiscard]] bool ShowsProgress() const override { return Progress; }
  std::optional<std::string> ReadLine() override {
    if (Lines.empty()) return std::nullopt;
    std::string line = Lines.front();
    Lines.pop_front();
    return line;
  }
  std::optional<std::string> ReadLineIfAny() override { return ReadLine(); }
  [[nodiscard]] bool InputEnded() const override { return Ended; }

  bool Person = false;  ///< there is somebody to ask
  bool Progress = false;
  bool Shared = false;  ///< both go to one screen, `Output`
  bool Ended = false;
  std::deque<std::string> Lines;
  std::string Output;
  std::string Errors;
};

/// A simulated machine as fast as it is asked; `more` as behind `--machine simulated`.
inline simulator::Options Asked(const std::string& more) {
  simulator::Options options;
  EXPECT_EQ(simulator::ParseOptions("simulated,speed=0" + more, options), std::nullopt);
  return options;
}

inline simulator::Options AtSpeed(double speed) {
  simulator::Options options;
  options.Speed = speed;
  return options;
}

inline simulator::Options WithFault(simulator::CardFault fault) {
  simulator::Options options = AtSpeed(0);
  options.Faults = {fault};
  return options;
}

/// Everything that `main` makes for a command, on virtual time, with a folder of its own. The
/// simulated machine is as fast as it is asked unless told otherwise.
struct CliDesk {
  explicit CliDesk(bool yes = false, const simulator::Options& options = AtSpeed(0),
                   bool overwrite = false)
      : Operator(Screen, Random, yes, overwrite),
        Prog({Operator, Loop, Clock, Store, Random, Speaker, ThePrinter},
             {Folder.Path(), Folder / "Morvane_Data"}),
        Machine(options, Clock) {}

  test::TempFolder Folder;
  test::VirtualClock Clock;
  test::VirtualEventLoop Loop{Clock};
  test::MemorySettings Store;
  test::FakeEntropy Random;
  test::FakeSound Speaker;
  test::FakePrinter ThePrinter;
  FakeTerminal Screen;
  ConsoleUi Operator;
  Program Prog;
  simulator::SimulatedMachine Machine;
  test::FakeProcesses Processes;
  const std::string In = Folder / "in.pbn";
  const std::string Out = Folder / "out.pbn";

  ExitStatus Run(const GenerateOptions& options) { return Do(Generate, options); }
  ExitStatus Run(const ConvertOptions& options) { return Do(Convert, options); }
  ExitStatus Run(const ShowOptions& options) { return Do(Show, options); }
  ExitStatus Run(const AnalyzeOptions& options) { return Do(Analyze, options); }
  ExitStatus Run(const StatsOptions& options) { return Do(Stats, options); }
  ExitStatus Run(const PrintRequest& request) { return Do(Print, request); }
  ExitStatus Run(const PaperRequest& request) { return Do(WriteText, request); }
  ExitStatus Run(const DealOptions& options) { return Do(Deal, options); }
  ExitStatus Run(const ReadOptions& options) { return Do(Read, options); }
  ExitStatus Run(const SortOptions& options) { return Do(Sort, options); }
  ExitStatus Run(const HistoryOptions& options) { return Do(ShowHistory, options); }
  ExitStatus Run(const AuditOptions& options) { return Do(Audit, options); }
  ExitStatus Run(const PokerNewOptions& options) { return Do(PokerNew, options); }
  ExitStatus Run(const PokerShowOptions& options) { return Do(PokerShow, options); }
  ExitStatus Run(const PokerPrintOptions& options) { return Do(PokerPrint, options); }
  ExitStatus Run(const PokerDealOptions& options) { return Do(PokerDeal, options); }
  ExitStatus Run(const PokerReadOptions& options) { return Do(PokerRead, options); }
  ExitStatus Run(const FirmwareFileOptions& options) { return Do(MakeFirmwareFile, options); }
  ExitStatus Run(const BootCOptions& options) { return Do(MakeBootC, options); }
  ExitStatus Run(const TxtHexOptions& options) { return Do(TxtHex, options); }
  ExitStatus Run(const ServiceFileOptions& options) { return Do(ShowServiceFile, options); }
  ExitStatus Run(const MaintainInfoOptions& options) { return Do(MaintainInfo, options); }
  ExitStatus Run(const MaintainWatchOptions& options) { return Do(MaintainWatch, options); }
  ExitStatus Run(const MaintainParametersOptions& options) {
    return Do(MaintainParameters, options);
  }
  ExitStatus Run(const MaintainPictureOptions& options) { return Do(MaintainPicture, options); }
  ExitStatus Run(const MaintainRecogniseOptions& options) { return Do(MaintainRecognise, options); }
  ExitStatus Run(const MaintainAutoSetupOptions& options) { return Do(MaintainAutoSetup, options); }
  ExitStatus Run(const MaintainTestDealOptions& options) { return Do(MaintainTestDeal, options); }
  ExitStatus Run(const MaintainServiceFileOptions& options) {
    return Do(MaintainServiceFile, options);
  }
  ExitStatus Run(const MaintainFirmwareOptions& options) { return Do(MaintainFirmware, options); }
  ExitStatus RunOn(UsbXpress& usb, const MaintainPictureOptions& options) {
    return DoOn(usb, nullptr, MaintainPicture, options);
  }
  ExitStatus RunOn(UsbXpress& usb, const MaintainRecogniseOptions& options) {
    return DoOn(usb, nullptr, MaintainRecognise, options);
  }
  ExitStatus RunOn(UsbXpress& usb, const MaintainAutoSetupOptions& options) {
    return DoOn(usb, nullptr, MaintainAutoSetup, options);
  }
  ExitStatus RunOn(UsbXpress& usb, const MaintainCalibrateOptions& options) {
    return DoOn(usb, nullptr, MaintainCalibrate, options);
  }
  ExitStatus RunOn(UsbXpress& usb, const MaintainTestDealOptions& options) {
    return DoOn(usb, nullptr, MaintainTestDeal, options);
  }
  ExitStatus RunOn(UsbXpress& usb, const MaintainFirmwareOptions& options) {
    return DoOn(usb, nullptr, MaintainFirmware, options);
  }
  ExitStatus RunOn(UsbXpress& usb, const MaintainRecordOptions& options) {
    return DoOn(usb, nullptr, MaintainRecord, options);
  }
  ExitStatus RunOn(UsbXpress& usb, const MaintainInfoOptions& options) {
    return DoOn(usb, nullptr, MaintainInfo, options);
  }
  ExitStatus RunOn(UsbXpress& usb, const MaintainWatchOptions& options) {
    return DoOn(usb, nullptr, MaintainWatch, options);
  }
  ExitStatus RunOn(UsbXpress& usb, const MaintainParametersOptions& options) {
    return DoOn(usb, nullptr, MaintainParameters, options);
  }
  /// On another machine than the simulated one; `seen` is the one whose pockets are looked into.
  ExitStatus RunOn(UsbXpress& usb, simulator::SimulatedMachine* seen, const DealOptions& options) {
    return DoOn(usb, seen, Deal, options);
  }
  ExitStatus RunOn(UsbXpress& usb, const ReadOptions& options) {
    return DoOn(usb, nullptr, Read, options);
  }
  ExitStatus RunOn(UsbXpress& usb, const PokerDealOptions& options) {
    return DoOn(usb, nullptr, PokerDeal, options);
  }
  ExitStatus RunOn(UsbXpress& usb, const PokerReadOptions& options) {
    return DoOn(usb, nullptr, PokerRead, options);
  }
  [[nodiscard]] std::vector<std::string> LogLines() const {
    std::vector<std::string> lines;
    const std::string log = test::Content(Prog.Log.Path());
    for (std::size_t at = 0; at < log.size();) {
      const std::size_t end = std::min(log.find("\r\n", at), log.size());
      lines.push_back(log.substr(at, end - at));
      at = end + 2;
    }
    return lines;
  }
  /// The log's lines of dealt boards: two blanks and a digit.
  [[nodiscard]] std::vector<std::string> RunLines() const {
    std::vector<std::string> lines;
    for (const auto& line : LogLines()) {
      if (line.size() > 2 && line.starts_with("  ") && line[2] == '0') lines.push_back(line);
    }
    return lines;
  }

 private:
  template <typename Options>
  ExitStatus Do(ExitStatus (*command)(Job&, const Options&), const Options& options) {
    return DoOn(Machine, &Machine, command, options);
  }
  template <typename Options>
  ExitStatus DoOn(UsbXpress& usb, simulator::SimulatedMachine* seen,
                  ExitStatus (*command)(Job&, const Options&), const Options& options) {
    using machine::MachineKind;
    Workplace place{Prog, Operator,  Screen,
                    usb,  Processes, seen != nullptr ? MachineKind::kSimulated : MachineKind::kReal,
                    seen};
    const ExitStatus status = RunJob(place, "", [&](Job& job) { return command(job, options); });
    Loop.Restart();  // the next command is a program of its own
    return status;
  }
};

/// Boards `first`..`last` in which each hand holds one suit; the dealer of the board the spades.
inline std::string SuitDeals(int first, int last) {
  std::string text;
  for (int n = first; n <= last; ++n) {
    text += "[Board \"" + std::to_string(n) + "\"]\r\n[Deal \"" +
            std::string(1, "NESW"[(n - 1) % 4]) +
            ":AKQJT98765432... .AKQJT98765432.. ..AKQJT98765432. ...AKQJT98765432\"]\r\n";
  }
  return text;
}

/// A desk with boards `first`..`last` in the file `In`, and what is asked of it.
struct DealDesk : CliDesk {
  explicit DealDesk(int first = 1, int last = 3, bool yes = false,
                    const simulator::Options& options = AtSpeed(0))
      : CliDesk(yes, options) {
    test::WriteContent(In, SuitDeals(first, last));
    What.In = In;
    What.Yes = yes;
    What.Auto = true;
  }
  DealOptions What;
  ExitStatus Deal() { return Run(What); }
};

}  // namespace morvane::cli
