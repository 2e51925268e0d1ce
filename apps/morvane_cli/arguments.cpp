#include "arguments.h"

#include <QCommandLineParser>
#include <QHash>
#include <string>
#include <utility>
#include <vector>

#include "cli/registry.h"
#include "cli/usage.h"
#ifdef _WIN32
#include "morvane_cli/file_pattern.h"
#endif

namespace morvane {
namespace {

QString Text(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

/// Elsewhere the shell has put the names of files in the place of a pattern.
#ifdef _WIN32
std::vector<std::string> PathsOf(const QString& word) { return FilesThatFit(word.toStdString()); }
#else
std::vector<std::string> PathsOf(const QString& word) { return {word.toStdString()}; }
#endif

/// The options of all commands: which one has which is seen when the command is known.
void AddOptions(QCommandLineParser& parser) {
  for (const char* name : {"yes", "overwrite"}) parser.addOption(QCommandLineOption(name));
  QStringList added;
  for (const cli::Command* command : cli::Commands()) {
    for (const cli::Option& option : command->Options) {
      if (added.contains(Text(option.Name))) continue;
      added += Text(option.Name);
      parser.addOption(QCommandLineOption(added.back(), "", Text(option.Value)));
    }
  }
}

cli::CommandWords WordsOf(const QCommandLineParser& parser, const QStringList& arguments) {
  cli::CommandWords given;
  given.Raw = arguments.mid(1).join(' ').toStdString();
  for (const QString& word : parser.positionalArguments()) {
    for (std::string& path : PathsOf(word)) given.Words.push_back(std::move(path));
  }
  QHash<QString, qsizetype> taken;
  for (const QString& name : parser.optionNames()) {
    given.Options.push_back(
        {name.toStdString(), parser.values(name).value(taken[name]++).toStdString()});
  }
  return given;
}

/// Help that is asked for beside a command is about that one.
void TellOfCommand(const QCommandLineParser& parser, Arguments& result) {
  std::vector<std::string> words;
  for (const QString& word : parser.positionalArguments()) words.push_back(word.toStdString());
  const cli::Command* const command = cli::CommandOf(words);
  if (command != nullptr) result.Help = cli::CommandHelp(*command);
}

}  // namespace

Arguments ParseArguments(const QStringList& arguments) {
  Arguments result;
  QCommandLineParser parser;
  AddOptions(parser);
  if (!TakeProgramArguments(parser, arguments, {"morvane-cli", cli::UsagePage()}, result)) {
    if (!result.Help.empty() && parser.isSet("help")) TellOfCommand(parser, result);
    return result;
  }
  result.Yes = parser.isSet("yes");
  result.Overwrite = parser.isSet("overwrite");
  result.Given = WordsOf(parser, arguments);
  result.Request = cli::TakeRequest(result.Given);
  result.Error = result.Request.Error;
  result.Help = result.Request.What.Text;
  return result;
}

}  // namespace morvane
