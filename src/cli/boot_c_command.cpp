#include "cli/boot_c_command.h"

#include <array>

#include "cli/paper_request.h"
#include "maintenance/factory_tools.h"

namespace morvane::cli {
namespace {

constexpr std::array kOperands{
    Operand{"BOOT.adb", "the boot code, 8192 bytes at most"},
    Operand{"OUT.c", "the source file to make"},
};

}  // namespace

BootCOptions ReadBootCOptions(OptionReader& given) {
  BootCOptions options{.In = given.Path(0), .Out = given.Path(1)};
  RefuseSetName(given, options.Out);
  return options;
}

ExitStatus MakeBootC(Job& job, const BootCOptions& options) {
  job.KeepsHistory = false;
  ConsoleUi& ui = job.Place.Operator;
  ui.NameFile(maintenance::kBootCodeTitle, options.In);
  ui.NameFile(maintenance::kBootSourceTitle, options.Out);
  ui.AnswerNextFiles({options.In, options.Out});
  return maintenance::Boot(job.Place.Prog) ? kDone : kFailed;
}

constinit const Command kBootCCommand{
    .Name = "boot-c",
    .Operands = kOperands,
    .Summary =
        "Writes the machine's boot code as an array in C, 8192 entries with 0xFF behind the code.",
    .Prepare = TaskOf<ReadBootCOptions, MakeBootC>};

}  // namespace morvane::cli
