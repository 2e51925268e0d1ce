#include "files/pbn_import_games.h"

#include <algorithm>
#include <utility>

#include "files/pbn_import_values.h"
#include "text/text.h"
#include "text/text_encoding.h"

namespace morvane::files {
namespace {

constexpr std::size_t kMostFlaws = 100;

constexpr std::array<std::string_view, kGameTags> kNames{
    "EVENT",  "SITE",       "DATE", "EVENTDATE",         "BOARD",
    "DEALER", "VULNERABLE", "DEAL", "DOUBLEDUMMYTRICKS", "OPTIMUMRESULTTABLE",
    "ABILITY"};

constexpr std::string_view NameOf(GameTag tag) { return kNames[static_cast<std::size_t>(tag)]; }

std::optional<GameTag> TagOfName(std::string_view name) {
  constexpr std::size_t kLongestName = 18;
  if (name.size() > kLongestName) return std::nullopt;
  const auto at = std::find(kNames.begin(), kNames.end(), UpperCase(name));
  if (at == kNames.end()) return std::nullopt;
  return static_cast<GameTag>(at - kNames.begin());
}

/// The tags of which a game has one each, and with which it may begin.
bool IsMainTag(GameTag tag) { return tag <= GameTag::kDeal && tag != GameTag::kEventDate; }

/// Whether the operator has to know: a bare value in a tag that is skipped does no harm.
bool Counts(const PbnFlaw& flaw, bool known) {
  return known || flaw.What != PbnFlaw::Kind::kBareValue;
}

/// What is kept of a value, which has no blanks at its ends.
std::string_view Kept(std::string_view value) {
  // One character more than can be used, so that the reader of a deal sees that it is too long.
  value = FirstCharacters(value, kLongestValue + 1);
  // The marks for what is not known.
  if (value.find_first_not_of("?. ") == std::string_view::npos) return {};
  return value;
}

}  // namespace

PbnGames::PbnGames(std::string_view text) : scanner_(text, NameOf(GameTag::kOptimumResultTable)) {
  more_ = scanner_.Next(tag_);
}

const PbnGame* PbnGames::Next() {
  Begin();
  for (; more_; more_ = scanner_.Next(tag_)) {
    const auto which = TagOfName(tag_.Name);
    if (which && game_.Line > 0 && BeginsGame(*which)) break;
    for (const PbnFlaw& flaw : tag_.Flaws) {
      if (Counts(flaw, which.has_value()) && game_.Flaws.size() < kMostFlaws) {
        game_.Flaws.push_back(flaw);
      }
    }
    if (which) Take(*which);
  }
  if (game_.Line == 0) return nullptr;
  FillIn();
  return &game_;
}

bool PbnGames::BeginsGame(GameTag which) const {
  if (!IsMainTag(which)) return false;
  return game_.At(which).Line > 0 || (tag_.BehindBlankLine && game_.At(GameTag::kDeal).Line > 0);
}

void PbnGames::Begin() {
  for (std::size_t at = 0; at < kGameTags; ++at) {
    before_[at] = std::move(game_.Values[at].Shared);
  }
  game_ = {};
}

/// Puts the tag read ahead into the game.
void PbnGames::Take(GameTag which) {
  const auto at = static_cast<std::size_t>(which);
  GameValue& value = game_.Values[at];
  if (value.Line > 0) return;  // the first of a game counts
  if (game_.Line == 0) game_.Line = tag_.Line;
  value.Line = tag_.Line;
  value.Shared = Resolved(at);
  if (which == GameTag::kOptimumResultTable) game_.TableRows = std::move(tag_.Section);
}

/// The text of the tag read ahead, its repeat marks resolved.
PbnGames::SharedText PbnGames::Resolved(std::size_t at) {
  std::string text = Trim(tag_.Value);
  const std::size_t marks = text.starts_with("##") ? 2 : text.starts_with('#') ? 1 : 0;
  if (marks > 0) text = Trim(std::string_view(text).substr(marks));
  SharedText resolved = marks > 0 && text.empty() ? before_[at] : Share(at, Kept(text));
  if (marks == 2) defaults_[at] = resolved;
  return resolved;
}

/// The same text as that of the game before is shared too, so that it counts as unchanged.
PbnGames::SharedText PbnGames::Share(std::size_t at, std::string_view text) const {
  if (text.empty()) return nullptr;
  if (before_[at] && *before_[at] == text) return before_[at];
  return std::make_shared<const std::string>(text);
}

/// Gives the game what it has no tag for from the last "##".
void PbnGames::FillIn() {
  for (std::size_t at = 0; at < kGameTags; ++at) {
    GameValue& value = game_.Values[at];
    if (value.Line == 0 && defaults_[at]) {
      value.Shared = *defaults_[at];
      value.Line = game_.Line;
    }
    value.Changed = value.Shared != before_[at];
  }
}

}  // namespace morvane::files
