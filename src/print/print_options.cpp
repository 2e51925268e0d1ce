#include "print/print_options.h"

#include <algorithm>

#include "program/setting_keys.h"
#include "text/text.h"

namespace morvane::print {
namespace {

int NumberIn(const Settings& store, const SettingKey& key, int low, int high) {
  const std::string text = store.Get(key);
  const bool isDigit = text.size() == 1 && text[0] >= '0' + low && text[0] <= '0' + high;
  return (isDigit ? text[0] : key.Default[0]) - '0';
}

bool IsOn(const Settings& store, const SettingKey& key) { return NumberIn(store, key, 0, 1) == 1; }

}  // namespace

PrintOptions LoadPrintOptions(const Settings& store) {
  PrintOptions options;
  options.Mode = static_cast<PrintMode>(NumberIn(store, kPrintMode, 0, 2));
  options.PerPage = NumberIn(store, kPrintPerPage, 0, 4);
  options.Colour = IsOn(store, kPrintColor);
  options.Analysis = IsOn(store, kPrintAnalyze);
  options.Hcp = IsOn(store, kPrintHcp);
  options.Statistics = NumberIn(store, kPrintStat, 1, 3);
  options.TenAsNumber = NumberIn(store, kPrintTen, 1, 2) == 2;
  options.National = NumberIn(store, kNational, 0, 6);
  const int mode = NumberIn(store, kPrintScoreCardMode, 0, 3);
  options.PrintNS = mode % 2 == 1;
  options.PrintBoards = mode >= 2;
  return options;
}

int ScoreCardMode(const PrintOptions& options) {
  return (options.PrintNS ? 1 : 0) + (options.PrintBoards ? 2 : 0);
}

std::string PrintParameters(const PrintOptions& options) {
  const auto digit = [](int number) { return std::to_string(number); };
  return digit(options.TenAsNumber ? 2 : 1) + digit(options.Statistics) + digit(options.Colour) +
         digit(options.Analysis) + digit(options.Hcp) + ",  " +
         digit(std::max(options.PerPage - 1, 0)) + "," + digit(ScoreCardMode(options)) + "," +
         digit(options.National) + "," + digit(options.From) + "," + digit(options.To) + "," +
         digit(options.Copies);
}

}  // namespace morvane::print
