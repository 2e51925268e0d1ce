#include "cli/order_job.h"

#include "poker/order_files.h"
#include "poker/random_deals.h"

namespace morvane::cli {

bool LoadOrder(Job& job, const std::string& path, poker::PokerOrder& order) {
  job.KeepsHistory = false;
  ConsoleUi& ui = job.Place.Operator;
  ui.NameFile("Load Error", path);
  ui.AnswerNextFile(path);
  return poker::LoadPokerOrder(job.Place.Prog, order);
}

bool MaySaveOrder(Job& job, const std::string& path) {
  ConsoleUi& ui = job.Place.Operator;
  const std::string named = poker::NamedPkr(path);
  ui.NameFile("Save Error", named);
  ui.KeepConsent(true);
  ui.AnswerNextFile(named);
  FileRequest request;
  request.Title = "Save Poker Order";
  request.Saving = true;
  const bool may = ui.AskFile(request).has_value();
  ui.KeepConsent(false);
  return may;
}

bool TakesDeals(Workplace& place, int deals) {
  if (poker::IsDealCount(deals)) return true;
  place.Prog.ShowMessage(poker::kWrongDealCount, kOkExclamation, "Poker Dealing");
  return false;
}

bool SaveOrder(Job& job, const std::string& path, poker::PokerOrder& order) {
  job.KeepsHistory = false;
  ConsoleUi& ui = job.Place.Operator;
  // With the whole name it is this program that asks whether to replace the file.
  const std::string named = poker::NamedPkr(path);
  ui.NameFile("Save Error", named);
  ui.AnswerNextFile(named);
  return poker::SavePokerOrder(job.Place.Prog, order);
}

bool IsInOrder(Workplace& place, const poker::PokerOrder& order, int number) {
  if (number >= 1 && number <= order.PokerDealCount) return true;
  place.Screen.Error("Deal " + std::to_string(number) + " is not in " + order.Poker_File +
                     ", which has 1 to " + std::to_string(order.PokerDealCount) + ".\n");
  return false;
}

}  // namespace morvane::cli
