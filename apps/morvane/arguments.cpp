#include "arguments.h"

#include <QCommandLineParser>

#include "bridges/link_request.h"
#include "platform/files.h"

namespace morvane {
namespace {

std::string Usage() {
  return "Usage: morvane [--machine M] [--data DIR] [--settings FILE] [PATH]\n"
         "\n"
         "  PATH             the board file to load; a firmware file (.adc) is loaded into the "
         "machine\n"
         "  --machine M      " +
         bridges::MachineUsage(19) +
         "\n"
         "  --trace FILE     note all that passes over the link, to be read or replayed\n"
         "  --trace-without-hands  but not who has which card, so that it can be handed on\n"
         "  --data DIR       the folder of logs and history\n"
         "  --settings FILE  the settings store\n"
         "  --version        say which version this is\n";
}

/// The path in front, absolute and in double quotes, where start-up looks for it; then the rest, in
/// which quotes would name another.
std::string CommandLineOf(const QStringList& arguments, const QStringList& paths) {
  QStringList words = arguments.mid(1);
  for (const QString& path : paths) words.removeOne(path);
  words.replaceInStrings("\"", "");
  for (const QString& path : paths) {
    words.prepend('"' + QString::fromStdString(AbsolutePath(path.toStdString())) + '"');
  }
  return words.join(' ').toStdString();
}

}  // namespace

Arguments ParseArguments(const QStringList& arguments) {
  Arguments result;
  QCommandLineParser parser;
  if (!TakeProgramArguments(parser, arguments, {"morvane", Usage()}, result)) return result;
  const QStringList paths = parser.positionalArguments();
  // No board file: those have an extension.
  if (paths == QStringList{"help"}) {
    result.Help = Usage();
    return result;
  }
  if (paths.size() > 1) {
    result.Error = "more than one file";
    return result;
  }
  if (!paths.isEmpty() && paths.front().contains('"')) {
    result.Error =
        "a file name with a double quote cannot be opened: " + paths.front().toStdString();
  } else {
    result.CommandLine = CommandLineOf(arguments, paths);
  }
  return result;
}

}  // namespace morvane
