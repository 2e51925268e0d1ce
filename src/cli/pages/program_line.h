#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace morvane::pages {

/// What may stand where a word stands for a value or an operand.
struct Taken {
  enum class Kind {
    kAnything,
    kWord,  ///< one of `Words`
    kFile,  ///< with one of the extensions `Words`; any where there are none
    kFolder,
    kMachine,  ///< in one of its forms
    kCommand,  ///< the name of one
  };
  Kind Is = Kind::kAnything;
  std::vector<std::string> Words{};
  bool operator==(const Taken&) const = default;
};

/// What may stand for `word`, as the tables of options and operands have it; nothing where it is in
/// none of them.
[[nodiscard]] std::optional<Taken> TakenFor(std::string_view word);

struct TakenOption {
  std::string Name;   ///< without its dashes
  std::string Value;  ///< empty: a switch
  std::string Means;
  Taken Takes{};
};

struct TakenOperand {
  Taken Takes;
  bool Several = false;
};

/// A command, or a program without any.
struct CommandLine {
  std::string Name;
  std::string Means;
  std::vector<TakenOperand> Operands;
  std::vector<TakenOption> Options;
};

/// A form of --machine, or a key of the simulated one, as far as it can be typed ahead.
struct MachineStart {
  std::string Start;
  std::string Means;
};

/// All that a program takes on its command line.
struct ProgramLine {
  std::string Name;
  std::vector<TakenOption> Options;    ///< with every command
  std::vector<TakenOperand> Operands;  ///< of a program without commands
  std::vector<CommandLine> Commands;
  std::vector<MachineStart> Machines;
};

[[nodiscard]] ProgramLine ConsoleLine();  ///< `morvane-cli`
[[nodiscard]] ProgramLine DesktopLine();  ///< `morvane`
[[nodiscard]] ProgramLine ServingLine();  ///< `morvane-machine`

/// What the keys of the simulated machine take.
[[nodiscard]] std::vector<MachineStart> SimulatedKeys();

}  // namespace morvane::pages
