#pragma once

#include <optional>
#include <span>

#include "simulator/glyphs.h"
#include "simulator/ink_labels.h"
#include "simulator/reco_task.h"
#include "wire/picture_replies.h"

namespace morvane::simulator {

/// Takes a card for what its picture shows, and measures that. It knows of no card but the picture.
class Recogniser {
 public:
  /// Its error codes, among those that are a "Card Recognition Error" of a run.
  enum Error : std::uint8_t {
    kNone = 0,
    kUnknownSymbol = 25,
    kNoSymbol = 26,   ///< no ink in the band
    kNoPaper = 27,    ///< all is dark
    kSymbolCut = 28,  ///< it touches the picture's edge
    kSymbolSmall = 29,
    kSymbolBig = 30,
    kSymbolAside = 31,  ///< the quarter of its width is more than 12 columns from the start point
    kNoSuit = 32,
    kSuitCut = 33,
    kSuitSmall = 34,
    kSuitBig = 35,
    kUnknownSuit = 36,
    kOtherNational = 61,  ///< a letter that these cards do not have
  };
  static constexpr std::uint16_t kTime = 41;
  static constexpr int kBand = 30;  ///< columns that are searched on both sides of the start point
  static constexpr int kBandTop = 20;
  static constexpr int kBandBottom = 190;
  static constexpr int kAside = 12;

  /// The verdict on `grey`. What it has found and measured stays, whatever the verdict is.
  wire::VerdictReply Recognise(const Picture& grey, const RecoTask& task);

  /// 0 paper, 1 ink, 2 the symbol's, 3 the suit's.
  [[nodiscard]] const Picture& Labels() const { return ink_.Labels(); }
  /// Frames that run round the ink one pixel outside, so that their width less 1 is the ink's; all
  /// 0 for what was not found.
  [[nodiscard]] const wire::SymbolMeasureReply& SymbolMeasure() const { return symbol_; }
  [[nodiscard]] const wire::SuitMeasureReply& SuitMeasure() const { return suit_; }

 private:
  /// What a shape was taken for, and how well it fits, 0..100.
  struct Likeness {
    std::size_t Glyph = 0;
    std::uint8_t Percent = 0;
  };
  struct Refusals {
    Error Missing;
    Error Cut;
    Error Small;
    Error Big;
  };

  [[nodiscard]] Error Judge(const RecoTask& task, wire::VerdictReply& verdict) const;
  [[nodiscard]] Error JudgeSymbol(const RecoTask& task, wire::VerdictReply& verdict) const;
  [[nodiscard]] Error JudgeSuit(const RecoTask& task, wire::VerdictReply& verdict) const;
  static Error JudgeBox(const std::optional<InkBox>& box, const wire::SizeLimits& limits,
                        const Refusals& refusals);
  [[nodiscard]] Likeness LikenessOf(const std::optional<InkBox>& box, InkLabels::Class label,
                                    std::span<const Glyph> glyphs) const;
  [[nodiscard]] int Unlike(const InkBox& box, InkLabels::Class label, const Glyph& glyph,
                           int most) const;

  InkLabels ink_;
  std::optional<InkBox> symbolBox_;
  std::optional<InkBox> suitBox_;
  Likeness rank_;
  Likeness suitShape_;
  wire::SymbolMeasureReply symbol_;
  wire::SuitMeasureReply suit_;
};

}  // namespace morvane::simulator
