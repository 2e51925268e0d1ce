#include "arguments.h"

#include <QCommandLineParser>

#include "bridges/link_request.h"
#include "cli/programs.h"
#include "platform/files.h"

namespace morvane {
namespace {

std::string Usage() {
  return cli::UsageOf(cli::DesktopWords()) + "\nMachines:  " + bridges::MachineUsage(11) + "\n";
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
  if (!TakeProgramArguments(parser, arguments, {std::string(cli::DesktopWords().Name), Usage()},
                            result))
    return result;
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
