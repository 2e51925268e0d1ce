#include "cli/pages/shell_table.h"

namespace morvane::pages {
namespace {

/// How a shell writes a quote within single quotes, and what it reads as another character there.
struct Quoting {
  std::string_view Quote;
  std::string_view Backslash;
};
constexpr Quoting kPosix{"'\\''", "\\"};
constexpr Quoting kFish{"\\'", "\\\\"};

std::string Quoted(std::string_view text, const Quoting& quoting) {
  std::string result = "'";
  for (const char c : text) {
    if (c == '\'') {
      result += quoting.Quote;
    } else if (c == '\\') {
      result += quoting.Backslash;
    } else {
      result += c;
    }
  }
  return result + "'";
}

/// The command that prints the lines; of none there is nothing to print.
std::string Printing(const Entry& entry, const Quoting& quoting, const std::string& indent) {
  if (entry.Lines.empty()) return indent + "true\n";
  std::string text = indent + "printf '%s\\n'";
  for (const std::string& line : entry.Lines) {
    text += " \\\n" + indent + "  " + Quoted(line, quoting);
  }
  return text + "\n";
}

std::string CaseFunction(const Lookup& lookup) {
  std::string text = "_PROGRAM__" + lookup.Name + "() {\n  case $1 in\n";
  for (const Entry& entry : lookup.Entries) {
    text += "    " + Quoted(entry.Key, kPosix) + ")\n" + Printing(entry, kPosix, "      ") +
            "      ;;\n";
  }
  return text + "    *) return 1 ;;\n  esac\n}\n";
}

std::string SwitchFunction(const Lookup& lookup) {
  std::string text = "function _PROGRAM__" + lookup.Name + "\n  switch $argv[1]\n";
  for (const Entry& entry : lookup.Entries) {
    text += "    case " + Quoted(entry.Key, kFish) + "\n" + Printing(entry, kFish, "      ");
  }
  return text + "    case '*'\n      return 1\n  end\nend\n";
}

}  // namespace

std::string CaseFunctions(std::span<const Lookup> tables) {
  std::string text;
  for (const Lookup& lookup : tables) text += "\n" + CaseFunction(lookup);
  return text;
}

std::string SwitchFunctions(std::span<const Lookup> tables) {
  std::string text;
  for (const Lookup& lookup : tables) text += "\n" + SwitchFunction(lookup);
  return text;
}

}  // namespace morvane::pages
