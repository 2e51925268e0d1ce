#include "bridges/machine_choice.h"

#include <array>
#include <string_view>
#include <utility>

#include "bridges/real_machine.h"
#include "bridges/simulated_choice.h"
#include "bridges/trace/replay_bridge.h"
#include "bridges/trace/trace_parts.h"
#include "bridges/trace/traced_bridge.h"
#include "platform/files.h"
#include "simulator/simulated_machine.h"

namespace morvane::bridges {
namespace {

constexpr std::string_view kReplay = "replay:";

MachineChoice NoMachine(std::string error) {
  MachineChoice none;
  none.Error = std::move(error);
  return none;
}

MachineChoice Unknown(const std::string& text) {
  return NoMachine("unknown machine \"" + text + "\": " + MachineForms());
}

// By the kind that the text names, `rest` being what stands behind it.

MachineChoice ChooseReal(RealMachine machine, const std::string& text) {
  if (!machine.Usb) return machine.Error.empty() ? Unknown(text) : NoMachine(machine.Error);
  MachineChoice choice;
  choice.Usb = std::move(machine.Usb);
  return choice;
}

MachineChoice ChooseUsb(const std::string& rest, Clock& /*clock*/) {
  return ChooseReal(MachineAtUsb(rest), "usb:" + rest);
}

MachineChoice ChooseSerial(const std::string& rest, Clock& /*clock*/) {
  return ChooseReal(MachineAtSerial(rest), "serial:" + rest);
}

MachineChoice ChooseReplay(const std::string& rest, Clock& clock) {
  TraceReader trace;
  if (auto error = trace.Open(rest)) return NoMachine(std::move(*error));
  auto replay = std::make_unique<ReplayBridge>(std::move(trace), clock);
  MachineChoice choice;
  choice.Kind = machine::MachineKind::kReplayed;
  choice.Replayed = replay.get();
  choice.Usb = std::move(replay);
  return choice;
}

MachineChoice MakeSimulated(const std::string& text, Clock& clock) {
  SimulatedChoice simulated = ChooseSimulated(text);
  if (!simulated.Error.empty()) return NoMachine(std::move(simulated.Error));
  auto machine = std::make_unique<simulator::SimulatedMachine>(simulated.Kind, clock);
  machine->LayBoards(std::move(simulated.Boards));
  MachineChoice choice;
  choice.Kind = machine::MachineKind::kSimulated;
  choice.Simulated = machine.get();
  choice.Usb = std::move(machine);
  return choice;
}

struct Way {
  std::string_view Name;  ///< with the colon behind which the rest stands
  MachineChoice (*Choose)(const std::string& rest, Clock& clock);
};
constexpr std::array<Way, 3> kWays{
    {{"usb:", ChooseUsb}, {"serial:", ChooseSerial}, {kReplay, ChooseReplay}}};

MachineChoice ChooseLink(const std::string& text, Clock& clock) {
  if (text == kDefaultMachine) return ChooseUsb("", clock);
  if (text.starts_with("simulated")) return MakeSimulated(text, clock);
  for (const Way& way : kWays) {
    if (!text.starts_with(way.Name) || text.size() == way.Name.size()) continue;
    return way.Choose(text.substr(way.Name.size()), clock);
  }
  return Unknown(text);
}

/// The file of the newest part of a trace that has this part.
std::string NewestPart(const std::string& path) {
  return FileBehind(AbsolutePath(TraceParts::NewestBeside(path)));
}

/// A trace that begins moves the one of its name on, also while it is played.
bool IsPlayed(const LinkRequest& request) {
  if (request.Trace.empty() || !request.Machine.starts_with(kReplay)) return false;
  return NewestPart(request.Machine.substr(kReplay.size())) == NewestPart(request.Trace);
}

MachineChoice Traced(MachineChoice choice, const LinkRequest& request, const Clock& clock) {
  TraceOrder order;
  order.Path = request.Trace;
  order.Machine = request.Machine;
  order.HandsLeftOut = request.TraceWithoutHands;
  auto traced = std::make_unique<TracedBridge>(std::move(choice.Usb), order, clock);
  if (!traced->File().Trouble().empty()) return NoMachine(traced->File().Trouble());
  choice.Traced = traced.get();
  choice.Usb = std::move(traced);
  return choice;
}

/// A run that has stopped, or has not come to the end of its trace.
std::string WhyNotWhole(const Playback& playback) {
  return playback.Trouble().empty() ? playback.LeftOver() : playback.Trouble();
}

void AddLine(std::string& lines, const std::string& line) {
  if (!line.empty()) lines += (lines.empty() ? "" : "\n") + line;
}

}  // namespace

MachineChoice ChooseMachine(const LinkRequest& request, Clock& clock) {
  if (IsPlayed(request)) return NoMachine("--trace " + request.Trace + ": that trace is played");
  MachineChoice choice = ChooseLink(request.Machine, clock);
  if (choice.Usb == nullptr || request.Trace.empty()) return choice;
  return Traced(std::move(choice), request, clock);
}

void MachineChoice::End() {
  if (Traced != nullptr) Traced->End();
}

std::string MachineChoice::LinkTrouble() const {
  std::string lines;
  if (Replayed != nullptr) AddLine(lines, WhyNotWhole(Replayed->Play()));
  if (Traced != nullptr) AddLine(lines, Traced->File().Trouble());
  return lines;
}

std::string MachineChoice::Trouble() const {
  std::string lines = LinkTrouble();
  if (Simulated != nullptr) AddLine(lines, Simulated->Trouble());
  return lines;
}

}  // namespace morvane::bridges
