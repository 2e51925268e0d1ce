#pragma once

#include <memory>
#include <string>

#include "files/pbn_import.h"
#include "files/sets.h"
#include "program/log_record.h"

namespace morvane::files {

/// A text and what Import has made of it.
struct Imported {
  explicit Imported(const std::string& text) {
    Set->Clear();
    Report = ImportPbn(text, *Set);
  }
  [[nodiscard]] const Board& At(int n) const { return Set->At(n); }
  /// The hands of board `n` as the log has them, North first.
  [[nodiscard]] std::string Cards(int n) const { return FormatBoardForLog(At(n), false); }

  std::unique_ptr<BoardSet> Set = std::make_unique<BoardSet>();
  ImportReport Report;
};

/// Four complete hands, and four others.
inline const std::string& kDeal = kSuitDeal;
inline const std::string kOtherDeal = "[Deal \"E:" + std::string(kSuitsPbn) + "\"]";
inline const std::string kCards = std::string(kSuitsPbn) + " ";
inline constexpr const char* kOtherCards =
    "...AKQJT98765432 AKQJT98765432... .AKQJT98765432.. ..AKQJT98765432. ";

}  // namespace morvane::files
