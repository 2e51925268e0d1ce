#include "arguments.h"

#include <QCommandLineParser>

#include "cli/registry.h"
#include "cli/usage.h"

namespace morvane {
namespace {

QString Text(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

/// The options of all commands: which one has which is seen when the command is known.
void AddOptions(QCommandLineParser& parser) {
  parser.addOption(QCommandLineOption("yes"));
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
  // A quoted path in it would be one to load.
  given.Raw = arguments.mid(1).join(' ').remove('"').toStdString();
  for (const QString& word : parser.positionalArguments())
    given.Words.push_back(word.toStdString());
  for (const QString& name : parser.optionNames()) {
    given.Options.push_back({name.toStdString(), parser.value(name).toStdString()});
  }
  return given;
}

}  // namespace

Arguments ParseArguments(const QStringList& arguments) {
  Arguments result;
  QCommandLineParser parser;
  AddOptions(parser);
  if (!TakeProgramArguments(parser, arguments, cli::UsagePage(), result)) return result;
  result.Yes = parser.isSet("yes");
  result.Given = WordsOf(parser, arguments);
  result.Request = cli::TakeRequest(result.Given);
  result.Error = result.Request.Error;
  result.Help = result.Request.What.Text;
  return result;
}

}  // namespace morvane
