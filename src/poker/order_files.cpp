#include "poker/order_files.h"

#include <filesystem>
#include <optional>
#include <utility>

#include "files/format_frame.h"
#include "files/format_table.h"
#include "files/last_used.h"
#include "platform/files.h"
#include "poker/pkr_file.h"
#include "program/program.h"

namespace morvane::poker {
namespace {

constexpr const char* kLoadError = "Load Error";
constexpr const char* kSaveError = "Save Error";
constexpr const char* kSaveTitle = "Save Poker Order";

void TellFailure(Program& program, const RuntimeError& error, const std::string& end,
                 const char* title) {
  program.ShowMessage("      " + error.Description + "      \r\n      " + end + "      ",
                      kOkCritical, title);
}

void TakeName(Program& program, PokerOrder& order, const std::string& path) {
  program.StoreSetting(kInitDirectory, FolderOf(path));
  order.Poker_File = FileTitle(path);
}

/// Whether the file was read without an error of the system; `right`: it is an order.
bool ReadOrder(Program& program, const std::string& path, PokerOrder& order, bool& right) {
  const auto error = files::ReadUnderHourglass(
      program, path, [&](std::string bytes) { right = ReadPokerFile(std::move(bytes), order); });
  if (error) TellFailure(program, *error, "Load operation aborted", kLoadError);
  return !error;
}

bool MayReplace(Program& program, const std::string& path) {
  std::error_code unknown;
  if (!std::filesystem::exists(PathOfUtf8(path), unknown)) return true;
  const std::string question =
      "      " + path + "      \r\n      already exists. Do you want to replace it?      ";
  return program.Ask(question, kYesNoExclamation, kSaveTitle) == kYes;
}

/// The file asked for. The dialog has asked whether to replace it, but under the name given there.
std::optional<std::string> AskSaveFile(Program& program) {
  const auto path = program.Operator.AskFile(
      {kSaveTitle, "pkr (*.pkr)|*.pkr", 1, files::InitialDirectory(program.Store), true});
  if (!path) return std::nullopt;
  const std::string named = NamedPkr(*path);
  if (named != *path && !MayReplace(program, named)) return std::nullopt;
  return named;
}

std::optional<RuntimeError> WriteOrder(Program& program, const std::string& path,
                                       const PokerOrder& order) {
  const Hourglass hourglass(program.Operator);
  return WriteFile(path, PokerFileBytes(order));
}

}  // namespace

bool LoadPokerOrder(Program& program, PokerOrder& order) {
  const auto path =
      program.Operator.AskFile({"Open Board Set file", "pkr (*.pkr)|*.pkr|All files (*.*)|*.*", 1,
                                files::InitialDirectory(program.Store), false});
  bool right = false;
  if (!path || !ReadOrder(program, *path, order, right)) return false;
  if (!right) {
    program.ShowMessage("File Format Error", kOkCritical, kLoadError);
    return false;
  }
  TakeName(program, order, *path);
  order.CurrentDeal = 1;
  order.PokerOrderExists = true;
  return true;
}

bool SavePokerOrder(Program& program, PokerOrder& order) {
  if (!order.PokerOrderExists) {
    program.ShowMessage("     Order not exist. Request Ignored      ", kOkCritical, kSaveError);
    return false;
  }
  const auto path = AskSaveFile(program);
  if (!path) return false;
  if (const auto error = WriteOrder(program, *path, order)) {
    TellFailure(program, *error, "Save operation aborted", kSaveError);
    return false;
  }
  TakeName(program, order, *path);
  return true;
}

std::string NamedPkr(const std::string& path) {
  return files::ExtensionOf(FileTitle(path)).empty() ? path + ".PKR" : path;
}

}  // namespace morvane::poker
