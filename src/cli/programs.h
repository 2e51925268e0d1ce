#pragma once

#include <array>
#include <span>
#include <string>
#include <string_view>

#include "cli/command.h"

namespace morvane::cli {

/// Ends what `--machine` means where no forms of a machine are in sight.
inline constexpr std::string_view kFormsInHelp = "; --help has its forms";

/// What `morvane` and `morvane-cli` both take.
inline constexpr std::array kProgramOptions{
    Option{"data", "DIR", "the folder of logs and history"},
    Option{"settings", "FILE", "the settings store"},
    Option{"machine", "M", "the way to the machine; --help has its forms"},
    Option{"trace", "FILE", "note all that passes over the link"},
    Option{"trace-without-hands", "", "but not who has which card"},
};
inline constexpr Option kWithoutHandsOption = kProgramOptions.back();

/// What every program takes, and does nothing else then.
inline constexpr std::array kTellingOptions{
    Option{"help", "", "say how it is used"},
    Option{"version", "", "say which version this is"},
};

/// A program without commands.
struct ProgramWords {
  std::string_view Name;
  std::string_view Summary;  ///< what it is, for lists of programs
  std::string_view Does;
  std::span<const Operand> Operands;
  std::span<const Option> Options;
};

/// `morvane`.
[[nodiscard]] const ProgramWords& DesktopWords();

/// `morvane-machine`, whose options each have a name here.
inline constexpr Option kServedOption{
    "machine", "M",
    "a machine to be served, in the form below. Each further one is a machine more; the options "
    "behind it are that one's, those before the first are the first one's"};
inline constexpr Option kPaceOption{
    "pace", "wire|fast",
    "wire (the default): bytes and answers take the time that they take over a serial line; fast: "
    "none"};
inline constexpr Option kLinkOption{"link", "PATH",
                                    "a link to the device, for a path that is always the same"};
inline constexpr Option kLineTraceOption{
    "trace", "FILE", "write what is said on the line there, for people to read"};
[[nodiscard]] const ProgramWords& ServingWords();

/// The usage of such a program: its line, what it does, a row for each word and option.
[[nodiscard]] std::string UsageOf(const ProgramWords& program);

}  // namespace morvane::cli
