#include "generate/history_ring.h"

#include <filesystem>
#include <optional>

#include "model/messages.h"
#include "platform/files.h"

namespace morvane::generate {
namespace {

std::optional<RuntimeError> EnterFolder(const std::string& folder) {
  std::error_code failure;
  const std::filesystem::path path = PathOfUtf8(folder);
  if (std::filesystem::is_directory(path, failure)) return std::nullopt;
  failure.clear();
  std::filesystem::create_directories(path, failure);
  if (failure) return RuntimeError::Of(failure);
  return std::nullopt;
}

}  // namespace

bool HistoryRing::LoadHistory(Program& program) {
  HistoryEnabled = true;
  if (const auto error = EnterFolder(program.Paths.Data)) {
    const std::string text = Fill(program.Texts.Msg083, "***", program.Paths.Application);
    program.ShowMessage(Fill(text, "###", error->Description), kOkCritical, "History Error");
    HistoryEnabled = false;
  }
  return HistoryEnabled;
}

HistoricSimilarity HistoryRing::HistorySimilarity(const Board& /*candidate*/) const { return {}; }

}  // namespace morvane::generate
