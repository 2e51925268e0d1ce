#include "simulator/reco_task.h"

namespace morvane::simulator {

RecoTask TaskOf(const StoredParameters& parameters, wire::CardIndex index, CardFont font) {
  const IndexRecord& record = parameters.Records[static_cast<std::size_t>(index)];
  const wire::ThresholdBlock& thresholds = parameters.Thresholds;
  RecoTask task;
  task.SymbolThreshold = font == CardFont::Fine   ? thresholds.FineSymbol
                         : font == CardFont::Bold ? thresholds.BoldSymbol
                                                  : kNormalThreshold;
  task.SuitThreshold = font == CardFont::Fine   ? thresholds.FineSuit
                       : font == CardFont::Bold ? thresholds.BoldSuit
                                                : kNormalThreshold;
  task.StartX = record.Positions.StartX;
  task.Symbol = record.Symbol.Limits;
  task.Suit = record.Suit.Limits;
  return task;
}

}  // namespace morvane::simulator
