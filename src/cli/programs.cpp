#include "cli/programs.h"

#include "cli/usage_text.h"

namespace morvane::cli {
namespace {

constexpr std::array kDesktopOperands{
    Operand{"PATH", "the board file to load; a firmware file (.adc) is loaded into the machine",
            Operand::Kind::kOptionalFile}};
constexpr std::array kDesktopOptions{kProgramOptions[0], kProgramOptions[1],  kProgramOptions[2],
                                     kProgramOptions[3], kWithoutHandsOption, kTellingOptions[0],
                                     kTellingOptions[1]};
constexpr ProgramWords kDesktop{
    .Name = "morvane",
    .Summary = "make, deal and print board sets with a card-dealing machine",
    .Does =
        "Opens the window of the program, from which sets of boards are made, edited, analysed, "
        "printed and dealt on the machine.",
    .Operands = kDesktopOperands,
    .Options = kDesktopOptions};

constexpr std::array kServingOptions{kServedOption,     kPaceOption,         kLinkOption,
                                     kLineTraceOption,  kWithoutHandsOption, kTellingOptions[0],
                                     kTellingOptions[1]};
constexpr ProgramWords kServing{
    .Name = "morvane-machine",
    .Summary = "serve simulated card-dealing machines on pseudo-terminals",
    .Does =
        "Serves simulated machines on pseudo-terminals, until a signal ends it. Its first lines "
        "are what --machine of the other programs takes, one for each machine in its order: "
        "serial:PATH.",
    .Operands = {},
    .Options = kServingOptions};

}  // namespace

const ProgramWords& DesktopWords() { return kDesktop; }

const ProgramWords& ServingWords() { return kServing; }

std::string UsageOf(const ProgramWords& program) {
  const std::string start = "Usage: " + std::string(program.Name);
  std::vector<std::string> pieces = Bracketed(program.Options);
  for (const Operand& operand : program.Operands) pieces.push_back(TextOf(operand));
  return Wrapped(start, start.size() + 1, pieces) + "\n" + Paragraph(program.Does) + "\n" +
         Table(RowsOf(program.Operands, program.Options));
}

}  // namespace morvane::cli
