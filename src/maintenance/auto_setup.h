#pragma once

#include <optional>
#include <string>

#include "machine/card_settings.h"
#include "maintenance/auto_setup_view.h"
#include "maintenance/picture_store.h"
#include "maintenance/service_link.h"
#include "maintenance/setup_search.h"

namespace morvane::maintenance {

/// The limits that high symbols need, and what becomes of them.
struct HeightLimits {
  static constexpr int kSymbol = 86;
  static constexpr int kSuit = 76;
  int Sym_y_max = 0;
  int Suit_y_max = 0;
  bool operator==(const HeightLimits&) const = default;
};

/// The window `AutoSetup` without its looks: looks for the ten of spades and, where it is found,
/// asks whether its place is to be kept. Whoever runs it has the link.
class AutoSetup {
 public:
  enum class Stage { kSearching, kPicture, kOver };

  AutoSetup(Program& program, ServiceLink& link, PictureStore& pictures,
            const machine::CardSettings& cards, const HeightLimits& old);

  void Run(AutoSetupView& view);
  void Cancel() { cancelRequested_ = stage_ == Stage::kSearching; }

  /// What was found and is to be kept.
  [[nodiscard]] const std::optional<SearchPosition>& Found() const { return found_; }
  /// The raised limits that are to stay; 0: the old ones do.
  [[nodiscard]] const HeightLimits& Kept() const { return kept_; }

  // What the window shows.
  [[nodiscard]] const SetupSearch& Search() const { return search_; }
  [[nodiscard]] Stage Now() const { return stage_; }
  [[nodiscard]] const std::string& symy() const { return symy_; }  ///< empty: hidden
  [[nodiscard]] const std::string& suity() const { return suity_; }

 private:
  bool Try();
  bool TakePicture(AutoSetupView& view);
  void KeepRaisedLimits();
  void TellFailure();

  Program& program_;
  ServiceLink& link_;
  PictureStore& pictures_;
  machine::CardSettings cards_;
  HeightLimits old_;
  HeightLimits kept_;
  SetupSearch search_;
  std::optional<SearchPosition> found_;
  std::string symy_;
  std::string suity_;
  Stage stage_ = Stage::kSearching;
  bool cancelRequested_ = false;
};

/// "Standard", "Large", "Small": by `CardSettings::Index`.
[[nodiscard]] std::string CardIndexName(int index);

}  // namespace morvane::maintenance
