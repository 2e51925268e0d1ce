#include "cli/firmware_file_command.h"

#include <array>

#include "cli/paper_request.h"
#include "maintenance/factory_tools.h"

namespace morvane::cli {
namespace {

constexpr std::array kOperands{
    Operand{"CODE.dsp", "the code of the signal processor"},
    Operand{"BIT", "the bitstream of the programmable logic"},
    Operand{"OUT.adc", "the firmware file to make"},
};

}  // namespace

FirmwareFileOptions ReadFirmwareFileOptions(OptionReader& given) {
  FirmwareFileOptions options{
      .Code = given.Path(0), .Bitstream = given.Path(1), .Out = given.Path(2)};
  RefuseSetName(given, options.Out);
  return options;
}

ExitStatus MakeFirmwareFile(Job& job, const FirmwareFileOptions& options) {
  job.KeepsHistory = false;
  ConsoleUi& ui = job.Place.Operator;
  ui.NameFile(maintenance::kCodeTitle, options.Code);
  ui.NameFile(maintenance::kBitstreamTitle, options.Bitstream);
  ui.NameFile(maintenance::kFirmwareTitle, options.Out);
  ui.AnswerNextFiles({options.Code, options.Bitstream, options.Out});
  return maintenance::Prepare(job.Place.Prog) ? kDone : kFailed;
}

constinit const Command kFirmwareFileCommand{
    .Name = "firmware-file",
    .Operands = kOperands,
    .Summary = "Puts the two pieces of the machine's program into the file that is loaded into it.",
    .Prepare = TaskOf<ReadFirmwareFileOptions, MakeFirmwareFile>};

}  // namespace morvane::cli
