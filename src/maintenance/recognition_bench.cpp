#include "maintenance/recognition_bench.h"

#include "machine/gates.h"

namespace morvane::maintenance {
namespace {

using machine::VersionGate;

constexpr VersionGate kFocusGate{0x72, nullptr};

std::uint8_t ByteOf(int value) { return static_cast<std::uint8_t>(value); }

/// The pixels between the two.
std::string Between(std::uint8_t low, std::uint8_t high) { return std::to_string(high - low - 1); }

}  // namespace

bool RecognitionBench::Capture(const machine::CardSettings& cards) {
  ClearResults();
  lastPictureKind_ = PictureStore::Kind::kGrey;
  if (const auto reply = link_.Ask(wire::CaptureCommand{ByteOf(cards.CardIndex)})) Take(*reply);
  RecoOn = true;  // whatever stopped it
  return !link_.LinkFailed();
}

bool RecognitionBench::Reco(const machine::CardSettings& cards) {
  ClearResults();
  lastPictureKind_ = PictureStore::Kind::kLabels;
  const auto verdict =
      link_.Ask(wire::RecogniseCommand{ByteOf(cards.National), ByteOf(cards.CardType),
                                       ByteOf(cards.Threshold), ByteOf(cards.CardIndex)});
  if (verdict) Take(*verdict);
  if (const auto symbol = link_.Ask(wire::SymbolMeasureCommand{})) Take(*symbol);
  if (const auto suit = link_.Ask(wire::SuitMeasureCommand{})) Take(*suit);
  RecoOn = !HoldStop;
  return !link_.LinkFailed();
}

bool RecognitionBench::Showb(const std::function<bool(int line)>& goesOn) {
  pictures_.ImageMode = lastPictureKind_;
  for (int y = 0; y < PixelPlane::kHeight; ++y) {
    const auto line = link_.Ask(wire::PictureLineCommand{ByteOf(y)});
    if (link_.LinkFailed()) return false;
    program_.Loop.Pump();
    if (line && line->Line == y) pictures_.Take(y, line->Pixels);
    if (!goesOn(y)) break;
  }
  return true;
}

void RecognitionBench::ClearResults() {
  Verdict = {};
  Cap_time.clear();
  Symbol_size_x.clear();
  Symbol_size_y.clear();
  Suit_size_x.clear();
  Suit_size_y.clear();
}

void RecognitionBench::Take(const wire::CaptureReply& reply) {
  Cap_time = std::to_string(reply.Time);
  if (program_.ServiceLevel == 0) return;
  const bool known =
      machine_.Version.FirmwareMajor > 2 || (Passes(machine_, kFocusGate) && reply.IsMarked());
  Focus = known ? std::to_string(reply.Focus) : "N/A";
}

void RecognitionBench::Take(const wire::VerdictReply& reply) {
  Verdict.Take(reply);
  if (reply.Error != 0) return;
  const bool other =
      (!HoldS.empty() && HoldS != Verdict.Symbol) || (!HoldC.empty() && HoldC != Verdict.Suit);
  HoldStop = other;
  if (other) RecoOn = false;
}

void RecognitionBench::Take(const wire::SymbolMeasureReply& reply) {
  Reco_param1 = std::to_string(reply.Param1);
  Reco_param2 = std::to_string(reply.Param2);
  SymbolBox = reply.Box;
  Symbol_size_x = Between(SymbolBox.XMin, SymbolBox.XMax);
  Symbol_size_y = Between(SymbolBox.YMin, SymbolBox.YMax);
}

void RecognitionBench::Take(const wire::SuitMeasureReply& reply) {
  Verdict.Threshold += "," + std::to_string(reply.Threshold);
  SuitBox = reply.Box;
  Suit_size_x = Between(SuitBox.XMin, SuitBox.XMax);
  Suit_size_y = Between(SuitBox.YMin, SuitBox.YMax);
}

}  // namespace morvane::maintenance
