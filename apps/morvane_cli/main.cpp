#include <QGuiApplication>
#include <QLoggingCategory>
#include <iostream>
#include <memory>

#include "arguments.h"
#include "bridges/machine_choice.h"
#include "cli/job.h"
#include "console_words.h"
#include "end_signals.h"
#include "given_words.h"
#include "page_platform.h"
#include "platform/console/console_ui.h"
#include "platform/qt/pdf_printer.h"
#include "platform/system_processes.h"
#include "system_parts.h"
#include "written_out.h"

namespace {

class NoSound final : public morvane::Sound {
 public:
  void Play(const std::string&) override {}
};

/// Pages need fonts, which come with an application that could show windows; it takes longer to
/// start, and no display. From words beside the program's name it would take those that Qt knows.
std::unique_ptr<QCoreApplication> ApplicationWithFonts(int& nameAlone, char** argv) {
  qputenv("QT_QPA_PLATFORM", morvane::PagePlatform());
  // It speaks of the session that it misses. QT_LOGGING_RULES brings that back.
  QLoggingCategory::setFilterRules("*.warning=false");
  return std::make_unique<QGuiApplication>(nameAlone, argv);
}

/// The status of a job behind whose machine a file is in trouble: a trace belongs to what was asked
/// for; what a simulated machine keeps is its own.
morvane::cli::ExitStatus TellTrouble(morvane::bridges::MachineChoice& machine,
                                     morvane::cli::ExitStatus status) {
  machine.End();
  const std::string trouble = machine.Trouble();
  if (!trouble.empty()) std::cerr << "morvane-cli: " << trouble << "\n";
  const bool whole = machine.LinkTrouble().empty();
  return status == morvane::cli::kDone && !whole ? morvane::cli::kPartly : status;
}

}  // namespace

int main(int argc, char** argv) {
  [[maybe_unused]] const morvane::ConsoleWords words;
  int nameAlone = 1;  // an application holds on to it
  auto application = std::make_unique<QCoreApplication>(argc, argv);
  const morvane::GivenWords given = morvane::GivenWordsOf(argc, argv);
  if (!given.AreText) {
    std::cerr << "morvane-cli: an argument is not UTF-8 text\n";
    return morvane::cli::kWrongUsage;
  }
  const morvane::Arguments arguments = morvane::ParseArguments(given.Words);
  if (!arguments.Help.empty()) {
    const bool written = morvane::WriteOut("morvane-cli", arguments.Help);
    return written ? morvane::cli::kDone : morvane::cli::kFailed;
  }
  if (!arguments.Error.empty()) {
    std::cerr << "morvane-cli: " << arguments.Error << "\nTry 'morvane-cli --help'.\n";
    return morvane::cli::kWrongUsage;
  }
  if (arguments.Request.Asked->Draws) {
    application.reset();  // there is one at a time
    application = ApplicationWithFonts(nameAlone, argv);
  }
  morvane::SystemParts parts(argv[0], arguments.Data, arguments.Settings);
  auto machine = morvane::bridges::ChooseMachine(arguments, parts.Time);
  if (!machine.Usb) {
    std::cerr << "morvane-cli: " << machine.Error << "\n";
    return morvane::cli::kWrongUsage;
  }
  morvane::StandardTerminal terminal;
  morvane::ConsoleUi operatorAtTerminal(terminal, parts.Random, arguments.Yes, arguments.Overwrite);
  NoSound silence;
  morvane::PdfPrinter pages;
  morvane::Program program(
      {operatorAtTerminal, parts.Loop, parts.Time, parts.Store, parts.Random, silence, pages},
      parts.Paths);
  morvane::QuitOnEndSignals(parts.Loop);
  morvane::QuitOnBrokenPipe();
  morvane::SystemProcesses processes;
  morvane::cli::Workplace place{program,   operatorAtTerminal, terminal,         *machine.Usb,
                                processes, machine.Kind,       machine.Simulated};
  const auto status =
      TellTrouble(machine, morvane::cli::RunJob(place, given.Typed.value_or(arguments.Given.Raw),
                                                arguments.Request.What.Work));
  std::cout.flush();
  if (std::cout) return status;
  // Whoever has closed the other end has had enough.
  if (!morvane::PipeHasBroken()) std::cerr << "morvane-cli: standard output cannot be written\n";
  const bool done = status == morvane::cli::kDone || status == morvane::cli::kPartly;
  return done ? morvane::cli::kFailed : status;
}
