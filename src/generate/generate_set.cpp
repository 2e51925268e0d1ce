#include "generate/generate_set.h"

#include <algorithm>

#include "generate/board_maker.h"
#include "generate/generate_line.h"
#include "generate/seeds.h"
#include "model/shapes.h"
#include "text/text.h"

namespace morvane::generate {
namespace {

constexpr int kTolerableShapeRejects = 5;

struct Range {
  int First = 0;
  int Last = 0;
};

GenerateResult Ended(GenerateEnd end, GenerateFocus focus = GenerateFocus::kNone) {
  GenerateResult result;
  result.End = end;
  result.Focus = focus;
  return result;
}

/// The box to correct, told to the operator; `kNone` when the range can be generated.
GenerateFocus CheckRange(Program& program, Range range) {
  const auto refuse = [&](const std::string& text) {
    program.ShowMessage(text, kOkExclamation, kGenerateCaption);
  };
  if (range.First > range.Last) {
    refuse(program.Texts.Msg063);
    return GenerateFocus::kFirstBoard;
  }
  if (range.First > kMaxBoards) {
    refuse(program.Texts.Msg064);
    return GenerateFocus::kFirstBoard;
  }
  if (range.Last > kMaxBoards) {
    refuse(program.Texts.Msg065);
    return GenerateFocus::kLastBoard;
  }
  if (range.First < 1) {
    refuse(program.Texts.Msg106);
    return GenerateFocus::kFirstBoard;
  }
  return GenerateFocus::kNone;
}

void DropSet(Program& program) {
  BoardSet& set = program.Set;
  set.LastBoard = 0;
  set.BoardSetChanged = "1";
  set.BoardSetFile.clear();
  set.EventName.clear();
  set.EventSite.clear();
  set.EventDate.clear();
  program.Operator.RefreshSet();
  for (int n = 1; n <= kMaxBoards; ++n) {
    set.At(n) = Board{};
    set.At(n).Number = static_cast<std::int16_t>(n);
  }
  std::fill_n(set.ShapeCount.begin() + 1, Shapes.Count(), std::int16_t{0});
}

void SetRange(BoardSet& set, Range range) {
  set.LastBoard = static_cast<std::int16_t>(range.Last);
  set.FirstBoard = static_cast<std::int16_t>(range.First);
}

GenerateResult LeaveEmpty(Program& program, Range range, GenerateView& view) {
  SetRange(program.Set, range);
  view.BoardsGen(range.Last - range.First + 1);
  for (int n = range.First; n <= range.Last; ++n) program.Set.At(n) = NumberedBoard(n);
  program.Log.WriteLine(GenerateLine{range.First, range.Last, std::nullopt}.Text());
  program.Operator.Busy(false);
  return {};
}

CandidateSource SourceOf(Generator& generator, DealGenerator with) {
  if (with == DealGenerator::kNumber) {
    return [&dealer = generator.Number](Board& board) { dealer.NextNumberDeal(board); };
  }
  return [&dealer = generator.Shuffling](Board& board) { dealer.NextShuffledDeal(board); };
}

GenerateEnd DealBoards(Program& program, Range range, RejectionTests& tests,
                       const CandidateSource& nextCandidate, GenerateView& view) {
  for (int k = range.First; k <= range.Last; ++k) {
    if (!program.Loop.Pump()) return GenerateEnd::kQuit;
    if (!MakeBoard(program.Set, tests, k, nextCandidate)) return GenerateEnd::kCannotGenerate;
    view.BoardsGen(k - range.First + 1);
  }
  return GenerateEnd::kDone;
}

RejectCounter Counter(int count, int tolerable) {
  return {count, count > tolerable ? CounterColour::kRed : CounterColour::kGreen};
}

GenerateResult Results(const RejectionTests& tests, const RejectionSwitches& reject) {
  GenerateResult result;
  if (reject.History) {
    result.HisRejects = Counter(tests.HistoryRejects, 0);
    result.OuSim = tests.BestHistory.Text();
    result.OuDeals = tests.BestHistory.File;
  }
  if (reject.Inner) {
    result.InnRejects = Counter(tests.InnerRejects, 0);
    result.InnSim = tests.BestInner.Text();
  }
  if (reject.Shape) result.ShpRejects = Counter(tests.ShapeRejects, kTolerableShapeRejects);
  result.InviteAnother = tests.HistoryRejects != 0 || tests.InnerRejects > 0 ||
                         tests.ShapeRejects > kTolerableShapeRejects;
  result.Focus = result.InviteAnother ? GenerateFocus::kGenerateButton : GenerateFocus::kExit;
  return result;
}

void LogSet(Program& program, Range range, const RejectionTests& tests,
            const RejectionSwitches& reject) {
  const GenerateLine line{
      range.First, range.Last,
      GenerateLine::Tests{reject, {tests.ShapeRejects, tests.InnerRejects, tests.HistoryRejects}}};
  program.Log.Boards(program.Set, range.First, range.Last, true, line.Text());
}

GenerateResult DealSet(Program& program, Generator& generator, const history::HistoryRing& history,
                       Range range, const GenerateRequest& request, GenerateView& view) {
  RejectionTests tests(program.Set, history, range.First, request.Reject, generator.Limits);
  const CandidateSource source = SourceOf(generator, request.With);
  const GenerateEnd end = DealBoards(program, range, tests, source, view);
  program.Operator.Busy(false);
  if (end == GenerateEnd::kCannotGenerate) {
    program.ShowMessage("    Cannot generate!      ", kOkCritical, kGenerateCaption);
  }
  if (end != GenerateEnd::kDone) return Ended(end);
  SetRange(program.Set, range);
  LogSet(program, range, tests, request.Reject);
  return Results(tests, request.Reject);
}

}  // namespace

void OpenGenerate(Program& program, Generator& generator) {
  generator.Number.Seedo = {};
  program.Log.WriteTime(" File-New: ");
  generator.Pool.AddTimeEntropy();
}

GenerateResult GenerateSet(Program& program, Generator& generator,
                           const history::HistoryRing& history, const GenerateRequest& request,
                           GenerateView& view) {
  view.RunStarts();
  const Range range{Val(request.First), Val(request.Last)};
  const GenerateFocus wrongBox = CheckRange(program, range);
  if (wrongBox != GenerateFocus::kNone) return Ended(GenerateEnd::kRefused, wrongBox);
  program.Operator.Busy(true);
  DropSet(program);
  if (!request.Random) return LeaveEmpty(program, range, view);
  return DealSet(program, generator, history, range, request, view);
}

GenerateResult PressBigDeal(Program& program, Generator& generator,
                            const history::HistoryRing& history, GenerateRequest request,
                            GenerateView& view) {
  request.With = DealGenerator::kNumber;
  if (!PrepareNumberSeeds(program, generator)) return Ended(GenerateEnd::kNoSeeds);
  return GenerateSet(program, generator, history, request, view);
}

GenerateResult PressCmdDeal(Program& program, Generator& generator,
                            const history::HistoryRing& history, GenerateRequest request,
                            GenerateView& view) {
  request.With = DealGenerator::kShuffling;
  PrepareLfsrSeed(program, generator);
  return GenerateSet(program, generator, history, request, view);
}

}  // namespace morvane::generate
