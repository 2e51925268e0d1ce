#include "files/fixed_records.h"

#include <algorithm>
#include <array>
#include <utility>

#include "files/bri_records.h"
#include "files/deal305_records.h"
#include "files/dge_records.h"
#include "files/dup_records.h"
#include "files/placed_boards.h"

namespace morvane::files {
namespace {

using ParseRecord = std::string (*)(std::string_view record, Board& board, FileNumbers& numbers,
                                    const Messages& texts);

std::string ParseBri(std::string_view record, Board& board, FileNumbers& /*numbers*/,
                     const Messages& texts) {
  return ParseBriRecord(record, board, BriMode::kWholeRecord, texts);
}

std::string ParseDge(std::string_view record, Board& board, FileNumbers& /*numbers*/,
                     const Messages& texts) {
  return ParseDgeRecord(record, board, DgeMode::kWholeRecord, texts);
}

std::string ParseDeal305(std::string_view record, Board& board, FileNumbers& /*numbers*/,
                         const Messages& texts) {
  return ParseDeal305Record(record, board, texts);
}

struct RecordFormat {
  std::string_view Name;
  std::size_t Length;
  ParseRecord Parse;
};
constexpr std::array<RecordFormat, 4> kRecordFormats{{{"BRI", kBriRecord, ParseBri},
                                                      {"DGE", kDgeRecord, ParseDge},
                                                      {"DUP", kDupRecord, ParseDupRecord},
                                                      {"DEAL305", kDeal305Record, ParseDeal305}}};

const RecordFormat& RecordFormatOf(std::string_view name) {
  return *std::find_if(kRecordFormats.begin(), kRecordFormats.end(),
                       [&](const RecordFormat& format) { return format.Name == name; });
}

}  // namespace

std::optional<FormatFault> ParseFixedRecords(std::string_view bytes, std::string_view formatName,
                                             BoardSet& set, FileNumbers& numbers,
                                             const Messages& texts) {
  constexpr auto kRecords = FormatFault::Counting::kRecords;
  const RecordFormat& format = RecordFormatOf(formatName);
  if (bytes.empty()) return FormatFault{texts.Msg013, 0, kRecords};
  while (!bytes.empty()) {
    const std::string_view record = bytes.substr(0, format.Length);
    bytes.remove_prefix(record.size());
    const int number = set.LastBoard + 1;
    Board board;
    if (auto error = format.Parse(record, board, numbers, texts); !error.empty()) {
      return FormatFault{std::move(error), number, kRecords};
    }
    if (!AppendBoard(set, board)) return FormatFault{texts.Msg012, number, kRecords};
  }
  return std::nullopt;
}

}  // namespace morvane::files
