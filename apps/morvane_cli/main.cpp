#include <QGuiApplication>
#include <QLoggingCategory>
#include <algorithm>
#include <iostream>
#include <memory>

#include "arguments.h"
#include "bridges/machine_choice.h"
#include "cli/job.h"
#include "cli/registry.h"
#include "end_signals.h"
#include "platform/console/console_ui.h"
#include "platform/qt/pdf_printer.h"
#include "system_parts.h"

namespace {

class NoSound final : public morvane::Sound {
 public:
  void Play(const std::string&) override {}
};

/// Pages need fonts, which come with an application that could show windows; it takes longer to
/// start, and no display.
std::unique_ptr<QCoreApplication> MakeApplication(int& argc, char** argv) {
  const bool draws = std::any_of(argv, argv + argc, [](const char* word) {
    const auto* const command = morvane::cli::FindCommand(word);
    return command != nullptr && command->Draws;
  });
  if (!draws) return std::make_unique<QCoreApplication>(argc, argv);
  qputenv("QT_QPA_PLATFORM", "offscreen");
  // It speaks of the session that it misses. QT_LOGGING_RULES brings that back.
  QLoggingCategory::setFilterRules("*.warning=false");
  return std::make_unique<QGuiApplication>(argc, argv);
}

}  // namespace

int main(int argc, char** argv) {
  const auto application = MakeApplication(argc, argv);
  if (!morvane::AreText(argc, argv)) {
    std::cerr << "morvane-cli: an argument is not UTF-8 text\n";
    return morvane::cli::kWrongUsage;
  }
  const morvane::Arguments arguments = morvane::ParseArguments(QCoreApplication::arguments());
  if (!arguments.Help.empty()) {
    std::cout << arguments.Help;
    return morvane::cli::kDone;
  }
  if (!arguments.Error.empty()) {
    std::cerr << "morvane-cli: " << arguments.Error << "\nTry 'morvane-cli --help'.\n";
    return morvane::cli::kWrongUsage;
  }
  morvane::SystemParts parts(argv[0], arguments.Data, arguments.Settings);
  const auto machine = morvane::bridges::ChooseMachine(arguments.Machine, parts.Time);
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
  morvane::cli::Workplace place{program, operatorAtTerminal, terminal, *machine.Usb,
                                machine.Simulated};
  const auto status = morvane::cli::RunJob(place, arguments.Given.Raw, arguments.Request.What.Work);
  std::cout.flush();
  if (std::cout) return status;
  // Whoever has closed the other end has had enough.
  if (!morvane::PipeHasBroken()) std::cerr << "morvane-cli: standard output cannot be written\n";
  const bool done = status == morvane::cli::kDone || status == morvane::cli::kPartly;
  return done ? morvane::cli::kFailed : status;
}
