#include "maintenance/auto_setup.h"

#include <algorithm>

#include "maintenance/picture_fetch.h"
#include "wire/picture_commands.h"

namespace morvane::maintenance {
namespace {

using machine::CardSettings;

// From these heights on a symbol needs the raised limits.
constexpr int kHighSymbol = 72;
constexpr int kHighSuit = 66;

/// What does not fit goes out as the highest: required.
std::uint8_t OnTheWire(int value) { return static_cast<std::uint8_t>(std::clamp(value, 0, 255)); }

std::string PlaceText(const SearchPosition& at) {
  return std::to_string(at.pos_x) + "," + std::to_string(at.pos_y) + "," +
         std::to_string(at.start_x) + "," + std::to_string(at.start_y);
}

/// The limit that stays: the old one if it is above the raised one, which is to be kept otherwise.
std::string Stays(int old, int raised, int& kept) {
  if (old <= raised) kept = raised;
  return std::to_string(std::max(old, raised));
}

}  // namespace

std::string CardIndexName(int index) {
  return index == CardSettings::kLargeIndex   ? "Large"
         : index == CardSettings::kSmallIndex ? "Small"
                                              : "Standard";
}

AutoSetup::AutoSetup(Program& program, ServiceLink& link, PictureStore& pictures,
                     const CardSettings& cards, const HeightLimits& old)
    : program_(program),
      link_(link),
      pictures_(pictures),
      cards_(cards),
      old_(old),
      search_(static_cast<wire::CardIndex>(cards.CardIndex)) {}

void AutoSetup::Run(AutoSetupView& view) {
  while (search_.Now() == SetupSearch::State::kSearching) {
    if (!Try()) return;
    view.ShowSearch();
    program_.Loop.Pump();
    if (cancelRequested_ || program_.Loop.Quitting()) return;
  }
  if (search_.Now() == SetupSearch::State::kNotFound) {
    stage_ = Stage::kOver;
    view.ShowSearch();
    TellFailure();
    return;
  }
  stage_ = Stage::kPicture;
  view.ShowSearch();
  if (!TakePicture(view)) return;
  program_.Log.WriteLine("   AutoSetup OK for " + CardIndexName(cards_.CardIndex) + " " +
                         PlaceText(search_.At()));
  KeepRaisedLimits();
  stage_ = Stage::kOver;
  view.ShowSearch();
  const int answer = program_.Ask(program_.Texts.Msg116, kYesNoInformation, "Auto Setup");
  if (answer == kYes) found_ = search_.At();
}

bool AutoSetup::Try() {
  const SearchPosition& at = search_.At();
  const auto verdict = link_.Ask(wire::TrialCommand{
      OnTheWire(at.pos_x), OnTheWire(at.pos_y), OnTheWire(cards_.Threshold),
      OnTheWire(cards_.CardIndex), OnTheWire(at.start_x), OnTheWire(at.start_y)});
  const auto symbol = link_.Ask(wire::SymbolMeasureCommand{});
  const auto suit = link_.Ask(wire::SuitMeasureCommand{});
  if (!verdict || !symbol || !suit) return false;
  search_.Take({*verdict, symbol->Box, suit->Box});
  return true;
}

bool AutoSetup::TakePicture(AutoSetupView& view) {
  const SearchPosition& at = search_.At();
  link_.Ask(wire::PositionedCaptureCommand{OnTheWire(cards_.CardIndex), OnTheWire(at.pos_x),
                                           OnTheWire(at.pos_y)});
  pictures_.ImageMode = PictureStore::Kind::kGrey;
  const auto shown = [&](int /*line*/) {
    view.ShowPicture();
    return !program_.Loop.Quitting();
  };
  if (!FetchPicture(program_, link_, pictures_, shown)) return false;
  pictures_.DrawStartPoint(at.start_x, at.start_y);
  view.ShowPicture();
  return true;
}

void AutoSetup::KeepRaisedLimits() {
  if (cards_.CardIndex != CardSettings::kStandardIndex) return;
  const TrialAnswer& seen = search_.LastAnswer();
  const bool high = seen.Symbol.YMax - seen.Symbol.YMin >= kHighSymbol ||
                    seen.Suit.YMax - seen.Suit.YMin >= kHighSuit;
  const bool raised =
      old_.Suit_y_max < HeightLimits::kSuit || old_.Sym_y_max < HeightLimits::kSymbol;
  if (!high || !raised) return;
  symy_ = "Max Symbol Y:" + Stays(old_.Sym_y_max, HeightLimits::kSymbol, kept_.Sym_y_max);
  suity_ = "Max Suit Y:" + Stays(old_.Suit_y_max, HeightLimits::kSuit, kept_.Suit_y_max);
}

void AutoSetup::TellFailure() {
  program_.ShowMessage(program_.Texts.Msg117, kOkCritical, "Auto Setup");
  program_.Log.WriteLine("   AutoSetup Failed for " + CardIndexName(cards_.CardIndex));
}

}  // namespace morvane::maintenance
