#include "program_arguments.h"

#include <QCommandLineParser>

#include "cli/programs.h"
#include "shell/version.h"

namespace morvane {

namespace {

QString Text(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

void AddProgramOptions(QCommandLineParser& parser) {
  for (const cli::Option& option : cli::kProgramOptions) {
    parser.addOption(QCommandLineOption(Text(option.Name), "", Text(option.Value)));
  }
  parser.addOption(QCommandLineOption(QStringList{"h", "help"}));
  parser.addOption(QCommandLineOption("version"));
}

bool WithoutHands(const QCommandLineParser& parser) {
  return parser.isSet(Text(cli::kWithoutHandsOption.Name));
}

std::string HelpAskedFor(const QCommandLineParser& parser, const ProgramTexts& texts) {
  if (parser.isSet("help")) return texts.Usage;
  if (!parser.isSet("version")) return "";
  return texts.Name + " " + std::string(shell::kVersion) + "\n";
}

std::string WrongUse(const QCommandLineParser& parser) {
  for (const cli::Option& option : cli::kProgramOptions) {
    const QString name = Text(option.Name);
    if (!option.Value.empty() && parser.isSet(name) && parser.value(name).isEmpty()) {
      return "--" + std::string(option.Name) + ": nothing named";
    }
  }
  if (!WithoutHands(parser) || parser.isSet("trace")) return "";
  return "--" + std::string(cli::kWithoutHandsOption.Name) + " needs --trace FILE";
}

}  // namespace

bool TakeProgramArguments(QCommandLineParser& parser, const QStringList& arguments,
                          const ProgramTexts& texts, ProgramArguments& result) {
  AddProgramOptions(parser);
  if (!parser.parse(arguments)) {
    result.Error = parser.errorText().toStdString();
    return false;
  }
  result.Help = HelpAskedFor(parser, texts);
  if (result.Help.empty()) result.Error = WrongUse(parser);
  if (!result.Help.empty() || !result.Error.empty()) return false;
  result.Data = parser.value("data").toStdString();
  result.Settings = parser.value("settings").toStdString();
  if (parser.isSet("machine")) result.Machine = parser.value("machine").toStdString();
  result.Trace = parser.value("trace").toStdString();
  result.TraceWithoutHands = WithoutHands(parser);
  return true;
}

}  // namespace morvane
