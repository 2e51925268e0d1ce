#include "arguments.h"

#include <QCommandLineParser>

#include "bridges/machine_choice.h"
#include "platform/files.h"

namespace morvane {
namespace {

constexpr const char* kUsage =
    "Usage: morvane [--machine M] [--data DIR] [--settings FILE] [PATH]\n"
    "\n"
    "  PATH             the board file to load\n"
    "  --machine M      "
    "simulated[,speed=1,firmware=2.90,hardware=0x7F,serial=4711,noise=0,seed=N,\n"
    "                   fault=BOARD:CARD:CODE] or serial:PATH\n"
    "  --data DIR       the folder of logs and history\n"
    "  --settings FILE  the settings store\n";

}  // namespace

Arguments ParseArguments(const QStringList& arguments) {
  Arguments result;
  QCommandLineParser parser;
  for (const char* name : {"machine", "data", "settings"}) {
    parser.addOption(QCommandLineOption(name, "", "value"));
  }
  parser.addOption(QCommandLineOption("help"));
  if (!parser.parse(arguments)) {
    result.Error = parser.errorText().toStdString();
    return result;
  }
  if (parser.isSet("help")) {
    result.Help = kUsage;
    return result;
  }
  const QStringList paths = parser.positionalArguments();
  if (paths.size() > 1) {
    result.Error = "more than one file";
    return result;
  }
  result.Data = parser.value("data").toStdString();
  result.Settings = parser.value("settings").toStdString();
  result.Machine =
      parser.isSet("machine") ? parser.value("machine").toStdString() : bridges::kDefaultMachine;
  if (!paths.isEmpty() && paths.front().contains('"')) {
    result.Error =
        "a file name with a double quote cannot be opened: " + paths.front().toStdString();
  } else if (!paths.isEmpty()) {
    result.CommandLine = '"' + AbsolutePath(paths.front().toStdString()) + '"';
  }
  return result;
}

}  // namespace morvane
