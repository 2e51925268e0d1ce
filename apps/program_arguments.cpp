#include "program_arguments.h"

#include <QCommandLineParser>
#include <QStringDecoder>
#include <algorithm>
#include <array>

#include "bridges/machine_choice.h"
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

bool TakeProgramArguments(QCommandLineParser& parser, const QStringList& arguments,
                          const ProgramTexts& texts, ProgramArguments& result) {
  constexpr std::array kNames{"data", "settings", "machine"};
  for (const char* name : kNames) parser.addOption(QCommandLineOption(name, "", "value"));
  parser.addOption(QCommandLineOption(QStringList{"h", "help"}));
  parser.addOption(QCommandLineOption("version"));
  if (!parser.parse(arguments)) {
    result.Error = parser.errorText().toStdString();
    return false;
  }
  if (parser.isSet("help")) {
    result.Help = texts.Usage;
    return false;
  }
  if (parser.isSet("version")) {
    result.Help = texts.Name + " " + std::string(shell::kVersion) + "\n";
    return false;
  }
  for (const char* name : kNames) {
    if (!parser.isSet(name) || !parser.value(name).isEmpty()) continue;
    result.Error = std::string("--") + name + ": nothing named";
    return false;
  }
  result.Data = parser.value("data").toStdString();
  result.Settings = parser.value("settings").toStdString();
  result.Machine =
      parser.isSet("machine") ? parser.value("machine").toStdString() : bridges::kDefaultMachine;
  return true;
}

}  // namespace morvane
