#include "cli/maintain_parameters_command.h"

#include <array>
#include <memory>

#include "cli/console_service.h"
#include "cli/parameter_file.h"
#include "cli/service_lines.h"
#include "platform/files.h"

namespace morvane::cli {
namespace {

using maintenance::Maintenance;
using maintenance::ParameterBoxes;

/// What is to be written, and where it comes from.
struct Wanted {
  ParameterChanges Changes;
  std::optional<ParameterFile> File;
};

class ParametersService final : public ConsoleService {
 public:
  ParametersService(Maintenance& console, Terminal& terminal, const Wanted& wanted, bool& done)
      : ConsoleService(console), terminal_(terminal), wanted_(wanted), done_(done) {}

 private:
  void Known() override {
    if (!HasFirmware()) {
      SayNoFirmware(terminal_);
    } else if (wanted_.Changes.empty()) {
      Print();
      done_ = true;
    } else {
      done_ = Write();
    }
    console_.Exit();
  }
  [[nodiscard]] bool Write() {
    ParameterBoxes boxes = console_.Boxes();
    if (const std::string fault = Change(boxes); !fault.empty()) {
      terminal_.Error("Nothing is written: " + fault + ".\n");
      return false;
    }
    if (boxes.Edited()) {
      WarnOfOtherRecord();
      console_.Boxes() = boxes;
      console_.save_param();
    } else {
      terminal_.Error("Nothing is written: the machine holds these values already.\n");
    }
    if (console_.LinkFailed()) return false;
    Print();
    return console_.Boxes().DiffersFrom(boxes).empty();
  }
  [[nodiscard]] std::string Change(ParameterBoxes& boxes) const {
    if (wanted_.File) {
      const std::string fault = WhyNotWhole(*wanted_.File, console_);
      if (!fault.empty()) return "the file is not whole, or of another machine: " + fault;
    }
    return Type(wanted_.Changes, console_, boxes);
  }
  /// It may be the same one, whose number has moved on: whoever is asked knows.
  void WarnOfOtherRecord() {
    const std::string& here = console_.Boxes().param_ID;
    if (!wanted_.File || wanted_.File->param_ID == here) return;
    terminal_.Error("The file has the param_ID " + wanted_.File->param_ID + ", the machine " +
                    here + ".\n");
  }
  void Print() { terminal_.Out(TextOf(ParameterLines(console_))); }

  Terminal& terminal_;
  const Wanted& wanted_;
  bool& done_;
};

/// Takes what the file has, if there is one. False: the operator has been told.
bool TakeFile(Terminal& terminal, const MaintainParametersOptions& options, Wanted& wanted) {
  if (options.From.empty()) return true;
  ParameterFile file;
  std::string fault = ReadParameterFile(options.From, file);
  if (fault.empty() && options.Index && *options.Index != file.CardIndex) {
    fault = options.From + " has the parameters of the index " +
            std::string(kIndexCaptions[static_cast<std::size_t>(file.CardIndex)]);
  }
  if (!fault.empty()) {
    terminal.Error(fault + ". Nothing is written.\n");
    return false;
  }
  wanted.Changes = file.Values;
  wanted.File = std::move(file);
  return true;
}

ParameterChanges ChangesIn(OptionReader& given) {
  ParameterChanges changes;
  for (const std::string& text : given.Texts("set")) {
    const std::size_t equals = text.find('=');
    if (equals == std::string::npos) {
      given.Refuse("--set " + text + ": wanted NAME=VALUE");
      return {};
    }
    changes.push_back({text.substr(0, equals), text.substr(equals + 1)});
  }
  if (const std::string fault = WhyNot(changes); !fault.empty()) given.Refuse("--set: " + fault);
  return changes;
}

constexpr std::array kOptions{
    Option{kIndexOption.Name, kIndexOption.Value,
           "whose record is meant; otherwise that of the settings, or of the file"},
    Option{"set", "NAME=VALUE", "write this value; it may stand there several times"},
    Option{"from", "FILE", "write the values that this command has once printed into the file"},
};

}  // namespace

MaintainParametersOptions ReadMaintainParametersOptions(OptionReader& given) {
  MaintainParametersOptions options;
  options.Index = IndexIn(given);
  options.Set = ChangesIn(given);
  const auto from = given.Text("from");
  if (!from) return options;
  if (from->empty()) given.Refuse("--from: a file without a name");
  if (!options.Set.empty()) given.Refuse("--set and --from do not go together");
  options.From = AbsolutePath(*from);
  return options;
}

ExitStatus MaintainParameters(Job& job, const MaintainParametersOptions& options) {
  Terminal& terminal = job.Place.Screen;
  Wanted wanted{options.Set, std::nullopt};
  if (!TakeFile(terminal, options, wanted)) return kFailed;
  const std::optional<int> index =
      wanted.File ? std::optional(wanted.File->CardIndex) : options.Index;
  bool done = false;
  Serve(job, index, [&](Maintenance& console) {
    return std::make_unique<ParametersService>(console, terminal, wanted, done);
  });
  return done ? kDone : kFailed;
}

constinit const Command kMaintainParametersCommand{
    .Name = "maintain parameters",
    .Options = kOptions,
    .Summary =
        "Shows the parameters that the machine holds, by which its camera finds and judges "
        "a card. With --set or --from it writes these first; the exit status is 0 only when "
        "the machine holds them then.",
    .Note =
        "maintain parameters > FILE keeps a machine's parameters before a change, and "
        "maintain parameters --from FILE brings them back.",
    .Prepare = TaskOf<ReadMaintainParametersOptions, MaintainParameters>};

}  // namespace morvane::cli
