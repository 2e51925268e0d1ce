#include "cli/txt_hex_command.h"

#include <array>

#include "maintenance/factory_files.h"
#include "maintenance/factory_tools.h"

namespace morvane::cli {
namespace {

/// The tool has no dialog for what it writes, so it does not ask.
bool MayReplace(ConsoleUi& ui, const std::string& path) {
  ui.AnswerNextFile(path);
  return ui.AskFile({maintenance::kHexTitle, "", 1, "", true}).has_value();
}

constexpr std::array kOperands{Operand{"IN.txt", "\"@\" and an address, lines of 16 bytes, \"q\""}};

}  // namespace

TxtHexOptions ReadTxtHexOptions(OptionReader& given) { return {.In = given.Path(0)}; }

ExitStatus TxtHex(Job& job, const TxtHexOptions& options) {
  job.KeepsHistory = false;
  ConsoleUi& ui = job.Place.Operator;
  const std::string out = maintenance::HexFileOf(options.In);
  ui.NameFile(maintenance::kTextHexTitle, options.In);
  ui.NameFile(maintenance::kHexTitle, out);
  if (!MayReplace(ui, out)) return kFailed;
  ui.AnswerNextFile(options.In);
  return maintenance::txt_hex(job.Place.Prog) ? kDone : kFailed;
}

constinit const Command kTxtHexCommand{
    .Name = "txt-hex",
    .Operands = kOperands,
    .Summary =
        "Makes an Intel HEX file of a text hex file, under its name with \"hex\" in place of the "
        "last three letters.",
    .Prepare = TaskOf<ReadTxtHexOptions, TxtHex>};

}  // namespace morvane::cli
