#include "program_arguments.h"

#include <QCommandLineParser>
#include <QStringDecoder>
#include <algorithm>
#include <array>

#include "shell/version.h"

namespace morvane {

bool AreText(int argc, char** argv) {
  return std::all_of(argv, argv + argc, [](const char* word) {
    // Stateless: a character that is cut off at the end is an error, and not waited for.
    QStringDecoder decoder(QStringDecoder::System, QStringDecoder::Flag::Stateless);
    const QString text = decoder(word);
    return !decoder.hasError();
  });
}

namespace {

constexpr std::array kNames{"data", "settings", "machine", "trace"};
constexpr const char* kWithoutHands = "trace-without-hands";

void AddProgramOptions(QCommandLineParser& parser) {
  for (const char* name : kNames) parser.addOption(QCommandLineOption(name, "", "value"));
  parser.addOption(QCommandLineOption(kWithoutHands));
  parser.addOption(QCommandLineOption(QStringList{"h", "help"}));
  parser.addOption(QCommandLineOption("version"));
}

std::string HelpAskedFor(const QCommandLineParser& parser, const ProgramTexts& texts) {
  if (parser.isSet("help")) return texts.Usage;
  if (!parser.isSet("version")) return "";
  return texts.Name + " " + std::string(shell::kVersion) + "\n";
}

std::string WrongUse(const QCommandLineParser& parser) {
  for (const char* name : kNames) {
    if (parser.isSet(name) && parser.value(name).isEmpty()) {
      return std::string("--") + name + ": nothing named";
    }
  }
  if (!parser.isSet(kWithoutHands) || parser.isSet("trace")) return "";
  return std::string("--") + kWithoutHands + " needs --trace FILE";
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
  result.TraceWithoutHands = parser.isSet(kWithoutHands);
  return true;
}

}  // namespace morvane
