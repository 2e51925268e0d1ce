#include "simulator/recogniser.h"

#include <algorithm>
#include <cstdlib>

namespace morvane::simulator {

using namespace wire;

namespace {

constexpr int kWhite = 255;
constexpr int kWholly = 100;
/// A shape that fits worse than this is none that it knows.
constexpr int kFits = 90;

int LevelOf(std::uint8_t percent) { return percent * kWhite / kWholly; }

std::uint8_t ByteOf(int value) { return static_cast<std::uint8_t>(std::max(value, 0)); }

SymbolFrame FrameRound(const std::optional<InkBox>& box) {
  if (!box) return {};
  return {ByteOf(box->Left - 1), ByteOf(box->Right + 1), ByteOf(box->Top - 1),
          ByteOf(box->Bottom + 1)};
}

int QuarterOf(const SymbolFrame& frame) { return (frame.XMax - frame.XMin) / 4 + frame.XMin; }

}  // namespace

VerdictReply Recogniser::Recognise(const Picture& grey, const RecoTask& task) {
  InkLabels::Band band{task.StartX - kBand, task.StartX + kBand, kBandTop, kBandBottom};
  ink_.Separate(grey, LevelOf(task.SymbolThreshold), 0);
  symbolBox_ = ink_.Take(band, InkLabels::kSymbol);
  suitBox_.reset();
  if (symbolBox_ && symbolBox_->Bottom < kBandBottom) {
    band.Top = symbolBox_->Bottom + 1;
    ink_.Separate(grey, LevelOf(task.SuitThreshold), band.Top);
    suitBox_ = ink_.Take(band, InkLabels::kSuit);
  }
  rank_ = LikenessOf(symbolBox_, InkLabels::kSymbol, RankGlyphs());
  suitShape_ = LikenessOf(suitBox_, InkLabels::kSuit, SuitGlyphs());
  symbol_ = {rank_.Percent, suitShape_.Percent, FrameRound(symbolBox_)};
  suit_ = {task.SuitThreshold, FrameRound(suitBox_)};
  VerdictReply verdict{kTime, 0, 0, task.SymbolThreshold, 0};
  verdict.Error = Judge(task, verdict);
  if (verdict.Error != kNone) verdict.Rank = verdict.Suit = 0;
  return verdict;
}

Recogniser::Error Recogniser::Judge(const RecoTask& task, VerdictReply& verdict) const {
  const Error error = JudgeSymbol(task, verdict);
  return error == kNone ? JudgeSuit(task, verdict) : error;
}

Recogniser::Error Recogniser::JudgeSymbol(const RecoTask& task, VerdictReply& verdict) const {
  if (symbolBox_ && symbolBox_->Width() == Picture::kWidth &&
      symbolBox_->Height() == Picture::kHeight) {
    return kNoPaper;
  }
  const Error error =
      JudgeBox(symbolBox_, task.Symbol, {kNoSymbol, kSymbolCut, kSymbolSmall, kSymbolBig});
  if (error != kNone) return error;
  if (std::abs(QuarterOf(symbol_.Box) - task.StartX) > kAside) return kSymbolAside;
  if (rank_.Percent < kFits) return kUnknownSymbol;
  const auto rank = RankOfGlyph(rank_.Glyph, task.National);
  if (!rank) return rank_.Glyph == JokersGlyph() ? kUnknownSymbol : kOtherNational;
  verdict.Rank = ByteOf(*rank);
  return kNone;
}

Recogniser::Error Recogniser::JudgeSuit(const RecoTask& task, VerdictReply& verdict) const {
  const Error error = JudgeBox(suitBox_, task.Suit, {kNoSuit, kSuitCut, kSuitSmall, kSuitBig});
  if (error != kNone) return error;
  if (suitShape_.Percent < kFits) return kUnknownSuit;
  verdict.Suit = static_cast<std::uint8_t>(suitShape_.Glyph + 1);
  return kNone;
}

Recogniser::Error Recogniser::JudgeBox(const std::optional<InkBox>& box, const SizeLimits& limits,
                                       const Refusals& refusals) {
  if (!box) return refusals.Missing;
  if (box->TouchesTheEdge()) return refusals.Cut;
  if (box->Width() > limits.MaxX || box->Height() > limits.MaxY) return refusals.Big;
  if (box->Width() < limits.MinX || box->Height() < limits.MinY) return refusals.Small;
  return kNone;
}

Recogniser::Likeness Recogniser::LikenessOf(const std::optional<InkBox>& box,
                                            InkLabels::Class label,
                                            std::span<const Glyph> glyphs) const {
  Likeness best;
  if (!box || box->TouchesTheEdge()) return best;
  int fewest = box->Width() * box->Height();
  const int pixels = fewest;
  for (std::size_t glyph = 0; glyph < glyphs.size(); ++glyph) {
    const int unlike = Unlike(*box, label, glyphs[glyph], fewest);
    if (unlike >= fewest) continue;
    fewest = unlike;
    best = {glyph, static_cast<std::uint8_t>(kWholly * (pixels - unlike) / pixels)};
  }
  return best;
}

/// The pixels in which the two differ, as far as they are fewer than `most`.
int Recogniser::Unlike(const InkBox& box, InkLabels::Class label, const Glyph& glyph,
                       int most) const {
  int unlike = 0;
  for (int y = 0; y < box.Height() && unlike < most; ++y) {
    for (int x = 0; x < box.Width(); ++x) {
      const bool ink = Labels().At(box.Left + x, box.Top + y) == label;
      if (ink != glyph.InkAt(x, y, box.Width(), box.Height())) ++unlike;
    }
  }
  return unlike;
}

}  // namespace morvane::simulator
