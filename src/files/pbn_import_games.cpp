#include "files/pbn_import_games.h"

#include <algorithm>
#include <utility>

#include "files/pbn_import_values.h"
#include "model/text.h"

namespace morvane::files {
namespace {

constexpr std::size_t kMostFlaws = 100;

constexpr std::array<std::string_view, kGameTags> kNames{
    "EVENT",  "SITE",       "DATE", "EVENTDATE",         "BOARD",
    "DEALER", "VULNERABLE", "DEAL", "DOUBLEDUMMYTRICKS", "OPTIMUMRESULTTABLE",
    "ABILITY"};

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

/// A value as a game has it: without blanks at the ends, and empty where nothing is known.
std::string Plain(std::string_view value) {
  std::string text = Trim(value);
  std::size_t end = std::min(text.size(), kLongestValue + 1);
  const auto insideCharacter = [&] {
    return end < text.size() && (static_cast<unsigned char>(text[end]) & 0xC0U) == 0x80U;
  };
  while (insideCharacter()) ++end;
  text.resize(end);
  if (text.find_first_not_of("?. ") == std::string::npos) text.clear();
  return text;
}

void Set(GameValue& value, const std::string& text) {
  value.Changed = value.Text != text;
  if (value.Changed) value.Text = text;
}

}  // namespace

const PbnGame* PbnGames::Next() {
  Clear();
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

void PbnGames::Clear() {
  for (GameValue& value : game_.Values) {
    value.Line = 0;
    value.Changed = false;
  }
  game_.TableRows.clear();
  game_.Line = 0;
  game_.Flaws.clear();
}

/// Puts the tag read ahead into the game, and resolves its repeat marks.
void PbnGames::Take(GameTag which) {
  const auto at = static_cast<std::size_t>(which);
  GameValue& value = game_.Values[at];
  if (value.Line > 0) return;  // the first of a game counts
  if (game_.Line == 0) game_.Line = tag_.Line;
  value.Line = tag_.Line;
  asDefault_.reset(at);
  if (which == GameTag::kOptimumResultTable) game_.TableRows = std::move(tag_.Section);
  const std::string text = Plain(tag_.Value);
  if (!text.starts_with('#')) return Set(value, text);

  const bool lasting = text.starts_with("##");
  const std::string marked = Trim(std::string_view(text).substr(lasting ? 2 : 1));
  if (!marked.empty()) Set(value, Plain(marked));
  if (!lasting) return;
  defaults_[at] = value.Text;
  asDefault_.set(at);
}

/// Gives the game what it has no tag for from the last "##".
void PbnGames::FillIn() {
  for (std::size_t at = 0; at < kGameTags; ++at) {
    GameValue& value = game_.Values[at];
    if (value.Line > 0) continue;
    if (!defaults_[at]) {
      Set(value, {});
      continue;
    }
    value.Line = game_.Line;
    if (!asDefault_.test(at)) Set(value, *defaults_[at]);
    asDefault_.set(at);
  }
}

}  // namespace morvane::files
