#include "arguments.h"

#include <QCommandLineParser>
#include <map>

#include "files/format_table.h"
#include "platform/files.h"

namespace morvane {
namespace {

constexpr const char* kUsage =
    "Usage: morvane-cli [--data DIR] [--settings FILE] [--machine M] [--yes] COMMAND ...\n"
    "\n"
    "  generate OUT [--first N] [--last N] [--generator bigdeal|morvane] [--empty]\n"
    "               [--shapes on|off] [--inner on|off] [--history on|off]\n"
    "               [--seedr HEX40 --seedo HEX40] [--lfsr HEX32]\n"
    "  convert IN OUT [--first N] [--import]\n"
    "  show IN [--board N]\n"
    "  deal IN [--from N] [--to N] [--copies N] [--auto]\n"
    "  history [--list]\n"
    "  audit LOG [--sha256 HEX64]\n"
    "\n"
    "Machines: simulated[,speed=1,firmware=2.90,hardware=0x7F,serial=4711,noise=0,seed=N,\n"
    "          fault=BOARD:CARD:CODE], serial:PATH. Set files: .pbn .bri .dge .dup .all .bre .csv\n"
    "\n"
    "generate shows the SHA-256 of the deals that it has made: publish it before play, and\n"
    "the log afterwards. audit deals the sets of a log again from their seeds, compares every\n"
    "board, and shows the SHA-256 of each. With --sha256, one must have that one. The exit\n"
    "status is 0 only when all is the same.\n";

/// The paths of a command, those it reads in front, and its options beside those of every command.
struct CommandShape {
  qsizetype Inputs;
  qsizetype Outputs;
  QStringList Options;
};

const std::map<QString, CommandShape>& Commands() {
  static const std::map<QString, CommandShape> commands{
      {"generate",
       {0,
        1,
        {"first", "last", "generator", "empty", "shapes", "inner", "history", "seedr", "seedo",
         "lfsr"}}},
      {"convert", {1, 1, {"first", "import"}}},
      {"show", {1, 0, {"board"}}},
      {"deal", {1, 0, {"from", "to", "copies", "auto"}}},
      {"history", {0, 0, {"list"}}},
      {"audit", {1, 0, {"sha256"}}}};
  return commands;
}

const QStringList kOfEveryCommand{"data", "settings", "machine", "help", "yes"};
const QStringList kSwitches{"yes", "empty", "auto", "list", "import"};

void AddOptions(QCommandLineParser& parser) {
  QStringList names{"yes"};
  for (const auto& [name, shape] : Commands()) names += shape.Options;
  names.removeDuplicates();
  for (const QString& name : names) {
    if (kSwitches.contains(name)) {
      parser.addOption(QCommandLineOption(name));
    } else {
      parser.addOption(QCommandLineOption(name, "", "value"));
    }
  }
}

/// Takes the values out of the parser; the first that is wrong leaves its words in `Error`.
class Values {
 public:
  Values(const QCommandLineParser& parser, std::string& error) : parser_(parser), error_(error) {}

  [[nodiscard]] std::optional<std::string> Text(const char* name) const {
    if (!parser_.isSet(name)) return std::nullopt;
    return parser_.value(name).toStdString();
  }
  std::optional<int> Number(const char* name) {
    const auto text = Text(name);
    if (!text) return std::nullopt;
    bool isNumber = false;
    const int number = QString::fromStdString(*text).toInt(&isNumber);
    if (isNumber && number > 0) return number;
    return Wrong<int>(name, *text, "a number above 0");
  }
  /// What a board number box takes; whether there is such a board is seen when it is used.
  std::optional<std::string> BoardNumber(const char* name) {
    auto text = Text(name);
    if (!text) return std::nullopt;
    const bool digits = text->find_first_not_of("0123456789") == std::string::npos;
    if (digits && !text->empty() && text->size() <= 3) return text;
    return Wrong<std::string>(name, *text, "a number up to 999");
  }
  std::optional<bool> Switch(const char* name) {
    const auto text = Text(name);
    if (!text) return std::nullopt;
    if (*text == "on" || *text == "off") return *text == "on";
    return Wrong<bool>(name, *text, "on or off");
  }
  std::optional<std::string> Choice(const char* name, const char* one, const char* other) {
    auto text = Text(name);
    if (!text || *text == one || *text == other) return text;
    return Wrong<std::string>(name, *text, std::string(one) + " or " + other);
  }
  std::optional<std::string> Hex(const char* name, std::size_t digits) {
    auto text = Text(name);
    if (!text) return std::nullopt;
    const bool hex = text->find_first_not_of("0123456789abcdefABCDEF") == std::string::npos;
    if (hex && text->size() == digits) return text;
    return Wrong<std::string>(name, *text, std::to_string(digits) + " hexadecimal digits");
  }

 private:
  template <typename T>
  std::optional<T> Wrong(const char* name, const std::string& text, const std::string& wanted) {
    if (error_.empty()) error_ = std::string("--") + name + " " + text + ": wanted " + wanted;
    return std::nullopt;
  }
  const QCommandLineParser& parser_;
  std::string& error_;
};

std::string CheckShape(const QCommandLineParser& parser, const QString& command,
                       const CommandShape& shape) {
  for (const QString& option : parser.optionNames()) {
    if (!kOfEveryCommand.contains(option) && !shape.Options.contains(option)) {
      return "--" + option.toStdString() + " does not belong to " + command.toStdString();
    }
  }
  const QStringList words = parser.positionalArguments();
  if (words.size() != 1 + shape.Inputs + shape.Outputs)
    return command.toStdString() + ": wrong number of files";
  if (words.contains("")) return command.toStdString() + ": a file without a name";
  return "";
}

void TakeValues(const QCommandLineParser& parser, Arguments& result) {
  Values values(parser, result.Error);
  cli::Request& what = result.What;
  what.First = values.BoardNumber("first");
  what.Last = values.BoardNumber("last");
  what.Generator = values.Choice("generator", "bigdeal", "morvane");
  what.Empty = parser.isSet("empty");
  what.Shapes = values.Switch("shapes");
  what.Inner = values.Switch("inner");
  what.History = values.Switch("history");
  what.Seedr = values.Hex("seedr", 40);
  what.Seedo = values.Hex("seedo", 40);
  what.Lfsr = values.Hex("lfsr", 32);
  what.Sha256 = values.Hex("sha256", 64);
  what.Import = parser.isSet("import");
  what.Board = values.Number("board");
  what.From = values.Number("from");
  what.To = values.Number("to");
  what.Copies = values.Number("copies");
  what.Auto = parser.isSet("auto");
  what.List = parser.isSet("list");
  what.Yes = parser.isSet("yes");
  if (!result.Error.empty()) return;
  if (what.Seedr.has_value() != what.Seedo.has_value()) {
    result.Error = "--seedr and --seedo go together";
  } else if (what.Lfsr && (what.Seedr || what.Generator == "bigdeal")) {
    result.Error = "--lfsr is a state of the other generator";
  } else if (what.Seedr && what.Generator == "morvane") {
    result.Error = "--seedr and --seedo are seeds of the other generator";
  } else if (what.Empty && (what.Seedr || what.Lfsr)) {
    result.Error = "--empty needs no seeds";
  } else if (what.Copies && *what.Copies > 99) {
    result.Error = "--copies: 99 at most";
  }
}

}  // namespace

Arguments ParseArguments(const QStringList& arguments) {
  Arguments result;
  QCommandLineParser parser;
  AddOptions(parser);
  if (!TakeProgramArguments(parser, arguments, kUsage, result)) return result;
  const QStringList words = parser.positionalArguments();
  const auto command = words.isEmpty() ? Commands().end() : Commands().find(words.front());
  if (command == Commands().end()) {
    result.Error =
        words.isEmpty() ? "no command" : "unknown command: " + words.front().toStdString();
    return result;
  }
  result.Error = CheckShape(parser, command->first, command->second);
  if (!result.Error.empty()) return result;
  result.What.Command = command->first.toStdString();
  // A quoted path in it would be one to load.
  result.What.Raw = arguments.mid(1).join(' ').remove('"').toStdString();
  const auto path = [&words](qsizetype at) { return AbsolutePath(words.at(at).toStdString()); };
  const CommandShape& shape = command->second;
  if (shape.Inputs > 0) result.What.In = path(1);
  if (shape.Outputs > 0) result.What.Out = path(1 + shape.Inputs);
  TakeValues(parser, result);
  return result;
}

}  // namespace morvane
