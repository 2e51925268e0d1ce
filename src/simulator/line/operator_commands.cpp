#include "simulator/line/operator_commands.h"

#include <array>
#include <charconv>
#include <optional>

#include "simulator/card_rank.h"
#include "text/text.h"
#include "wire/machine_errors.h"
#include "wire/replies.h"

namespace morvane::simulator {
namespace {

constexpr int kWay = -1;
constexpr int kCard = -2;
constexpr int kTenths = 10;

struct Command {
  std::string_view Word;
  int Highest;  ///< of the number behind it, which begins at 1; 0 = there is none, kWay = a
                ///< `Carry`, kCard = a card
  std::string_view Means;
  std::string (*Do)(WiredMachine& machine, int number);
  /// Whom it concerns where no machine is named and there are several.
  enum Whose : std::uint8_t { kOneMachines, kEachMachines, kNobodys } Concerns = kOneMachines;
};

std::string Board(WiredMachine& machine, int number) {
  machine.InsertBoard(number);
  return "Board " + std::to_string(number) + " is in the slot.\n";
}

std::string Remove(WiredMachine& machine, int /*number*/) {
  machine.RemoveBoard();
  return "The slot is empty.\n";
}

std::string Pedal(WiredMachine& machine, int /*number*/) {
  machine.PressPedal();
  return "The pedal was pressed.\n";
}

std::string Fault(WiredMachine& machine, int code) {
  machine.CauseFault(code);
  return "At the next card: " + Trim(wire::TextOfError(code).Text) + ".\n";
}

std::string CarryPiles(WiredMachine& machine, int way) {
  machine.CarryNext(static_cast<Carry>(way));
  return "The next carry: " + std::string(WordsOf(machine.NextCarry()).Means) + ".\n";
}

std::string PutBack(WiredMachine& machine, int /*number*/) {
  return machine.PutBackPack() ? "The pack of North lies in the feeder.\n"
                               : "There is no pack in North, or cards are falling.\n";
}

std::string Photo(WiredMachine& machine, int photo) {
  const bool covered = !machine.Opened().Covered(photo);
  machine.Opened().Cover(photo, covered);
  return "Photo sensor " + std::to_string(photo) + (covered ? " is covered.\n" : " is free.\n");
}

/// Moves a switch to where it is not.
bool Move(WiredMachine& machine, Sensors::Switch which) {
  machine.Opened().Set(which, !machine.Opened().On(which));
  return machine.Opened().On(which);
}

std::string Front(WiredMachine& machine, int /*number*/) {
  return Move(machine, Sensors::Switch::Front) ? "The front switch is pressed.\n"
                                               : "The front switch is free.\n";
}

std::string Cover(WiredMachine& machine, int /*number*/) {
  return Move(machine, Sensors::Switch::Cover) ? "The cover is closed.\n" : "The cover is open.\n";
}

std::string Flip(WiredMachine& machine, int /*number*/) {
  return Move(machine, Sensors::Switch::FlipPlate) ? "The flip plate is closed.\n"
                                                   : "The flip plate is open.\n";
}

std::string ShowCard(WiredMachine& machine, int card) {
  machine.ShowCard(card);
  return card == 0 ? "No card is at the camera.\n" : "The card is at the camera.\n";
}

std::string Speed(WiredMachine& machine, int speed) {
  for (int motor = 1; motor <= Sensors::kMotors; ++motor) machine.Opened().SetSpeed(motor, speed);
  return "Motors that are on turn at " + std::to_string(speed) + ".\n";
}

std::string Degrees(WiredMachine& machine, int degrees) {
  machine.Opened().SetTemperature(degrees * kTenths);
  return "It is at " + std::to_string(degrees) + " degrees.\n";
}

std::string Volts(WiredMachine& machine, int volts) {
  machine.Opened().SetSupply(volts * kTenths);
  return "The supply has " + std::to_string(volts) + " volts.\n";
}

std::string Off(WiredMachine& machine, int /*number*/) {
  machine.PowerOff();
  return "The power is off.\n";
}

std::string On(WiredMachine& machine, int /*number*/) {
  machine.PowerOn();
  return "The power is on.\n";
}

std::string State(WiredMachine& machine, int /*number*/) { return machine.StateText() + "\n"; }

std::string Help(WiredMachine& /*machine*/, int /*number*/) { return OperatorCommandsHelp(); }

std::string Nothing(WiredMachine& /*machine*/, int /*number*/) { return ""; }

constexpr std::string_view kQuit = "quit";

constexpr std::array<Command, 19> kCommands{{
    {"pedal", 0, "press the pedal", Pedal},
    {"board", kMaxBoards, "push board N into the slot", Board},
    {"remove", 0, "take the board out", Remove},
    {"fault", wire::StatusReply::kLastError, "stop with error code N at the next card", Fault},
    {"carry", kWay,
     "how the piles are carried next: right, swapped,\n"
     "             dropped, exchanged, turned, north or nothing",
     CarryPiles},
    {"putback", 0, "put the pack of North into the feeder", PutBack},
    {"photo", Sensors::kPhotos, "cover photo sensor N, or free it", Photo},
    {"front", 0, "press the front switch, or let it go", Front},
    {"cover", 0, "open the cover, or close it", Cover},
    {"flip", 0, "open the flip plate, or close it", Flip},
    {"card", kCard, "lay this card before the camera, such as ST, or none", ShowCard},
    {"speed", Sensors::kHighestSpeed, "let the motors turn at N", Speed},
    {"degrees", Sensors::kHighestTemperature / kTenths, "bring the inside to N degrees", Degrees},
    {"volts", Sensors::kHighestSupply / kTenths, "set the supply to N volts", Volts},
    {"off", 0, "switch the machine off", Off},
    {"on", 0, "switch it on", On},
    {"state", 0, "what it is doing", State, Command::kEachMachines},
    {"help", 0, "this list", Help, Command::kNobodys},
    {kQuit, 0, "end", Nothing, Command::kNobodys},
}};

const Command* Find(std::string_view word) {
  for (const Command& command : kCommands) {
    if (command.Word == word) return &command;
  }
  return nullptr;
}

std::optional<int> WayIn(std::string_view text) {
  const auto way = CarryOf(text);
  return way ? std::optional(static_cast<int>(*way)) : std::nullopt;
}

/// The number that the whole `text` is, 0 without one; nothing where it is none of the command's.
std::optional<int> NumberFor(const Command& command, std::string_view text) {
  if (command.Highest == kWay) return WayIn(text);
  if (command.Highest == kCard) return MachineCardIn(text);
  if (command.Highest == 0) return text.empty() ? std::optional(0) : std::nullopt;
  int number = 0;
  const char* const end = text.data() + text.size();
  const auto result = std::from_chars(text.data(), end, number);
  if (result.ec != std::errc() || result.ptr != end) return std::nullopt;
  if (number < 1 || number > command.Highest) return std::nullopt;
  return number;
}

std::string Expected(const Command& command) {
  const std::string word(command.Word);
  if (command.Highest == kWay) return word + " takes " + std::string(kCarryList) + ".\n";
  if (command.Highest == kCard) return word + " takes " + std::string(kCardWords) + ".\n";
  if (command.Highest == 0) return word + " takes nothing behind it.\n";
  return word + " takes a number from 1 to " + std::to_string(command.Highest) + ".\n";
}

/// The word that stands for what is typed behind the command; empty where nothing is.
std::string_view BehindWord(const Command& command) {
  if (command.Highest == 0) return "";
  return command.Highest == kWay ? "WAY" : command.Highest == kCard ? "CARD" : "N";
}

/// What a person has typed, taken apart.
struct Typed {
  std::size_t Machine = 0;  ///< its number; 0 is none
  std::string Word;
  std::string Behind;
};

/// The first word, which is taken from `text`.
std::string TakeWord(std::string& text) {
  std::string word = text.substr(0, text.find(' '));
  text = Trim(std::string_view(text).substr(word.size()));
  return word;
}

Typed TakeApart(std::string_view line) {
  Typed typed;
  typed.Behind = Trim(line);
  typed.Word = TakeWord(typed.Behind);
  const char* const end = typed.Word.data() + typed.Word.size();
  const auto number = std::from_chars(typed.Word.data(), end, typed.Machine);
  if (number.ec == std::errc() && number.ptr == end && typed.Machine != 0) {
    typed.Word = TakeWord(typed.Behind);
  } else {
    typed.Machine = 0;
  }
  return typed;
}

/// At each machine, whose number stands before its answer.
std::string DoAtEach(std::span<WiredMachine* const> machines, const Command& command, int number) {
  std::string answers;
  for (std::size_t at = 0; at < machines.size(); ++at) {
    answers += std::to_string(at + 1) + ": " + command.Do(*machines[at], number);
  }
  return answers;
}

/// Whether the command means nothing until one of several machines is named.
bool NeedsMachine(std::span<WiredMachine* const> machines, const Typed& typed,
                  const Command& command) {
  return typed.Machine == 0 && machines.size() > 1 && command.Concerns == Command::kOneMachines;
}

std::string DoAt(std::span<WiredMachine* const> machines, std::size_t machine,
                 const Command& command, int number) {
  if (machine != 0) return command.Do(*machines[machine - 1], number);
  if (machines.size() > 1 && command.Concerns == Command::kEachMachines) {
    return DoAtEach(machines, command, number);
  }
  return command.Do(*machines.front(), number);
}

}  // namespace

std::string Obey(std::span<WiredMachine* const> machines, std::string_view line, bool& quit) {
  const Typed typed = TakeApart(line);
  if (typed.Machine > machines.size()) {
    return "There is no machine " + std::to_string(typed.Machine) + ".\n";
  }
  if (typed.Word.empty() && typed.Machine == 0) return "";
  const Command* const command = Find(typed.Word);
  if (command == nullptr) return "No such command; help lists them.\n";
  if (NeedsMachine(machines, typed, *command)) {
    return "Which machine? Its number goes in front, such as 1 " + typed.Word + ".\n";
  }
  const auto number = NumberFor(*command, typed.Behind);
  if (!number) return Expected(*command);
  quit = quit || command->Word == kQuit;
  return DoAt(machines, typed.Machine, *command, *number);
}

std::vector<OperatorWords> OperatorCommands() {
  std::vector<OperatorWords> commands;
  commands.reserve(kCommands.size());
  for (const Command& command : kCommands) {
    commands.push_back({command.Word, BehindWord(command), command.Means});
  }
  return commands;
}

std::string OperatorCommandsHelp() {
  constexpr std::size_t kColumn = 13;
  std::string text;
  for (const OperatorWords& command : OperatorCommands()) {
    std::string row = "  " + std::string(command.Word);
    if (!command.Behind.empty()) row += " " + std::string(command.Behind);
    row.resize(kColumn, ' ');
    text += row + std::string(command.Means) + "\n";
  }
  return text;
}

}  // namespace morvane::simulator
