#include "poker/stage_words.h"

#include <array>
#include <numeric>

#include "model/tables.h"

namespace morvane::poker {
namespace {

constexpr std::array<std::string_view, kRuns + 1> kRunNames{"", "First Run", "Second Run",
                                                            "Third Run", "Fourth Run"};
constexpr std::array<std::string_view, 4> kStateWords{"to come", "next", "running", "done"};

bool IsCarried(const PokerStage& stage) {
  return std::accumulate(stage.Carried.begin(), stage.Carried.end(), 0) > 0;
}

PilePicture CarryPicture(const PokerStage& stage) {
  const auto& carried = stage.Carried;
  return {"Put the piles into the feeder",
          {{"East", carried[0], "on top"},
           {"West", carried[1], ""},
           {"South", carried[2], "at the bottom"}},
          {{"North", stage.Staying, "stays"}}};
}

std::string InWords(const Pile& pile) {
  std::string words(pile.Name);
  if (pile.Cards > 0) words += ", " + std::to_string(pile.Cards) + " cards";
  if (!pile.Where.empty()) words += ", " + std::string(pile.Where);
  return words;
}

std::string PilesInWords(const PilePicture& picture) {
  if (picture.Task.empty()) return {};
  std::string words = " " + std::string(picture.Task);
  std::string_view before = ": ";
  for (const auto* piles : {&picture.Feeder, &picture.North}) {
    for (const Pile& pile : *piles) {
      words.append(before).append(InWords(pile));
      before = "; ";
    }
  }
  return words + ".";
}

std::string RunsInWords(const PokerStage& stage) {
  std::string words;
  for (int run = 1; run <= kRuns; ++run) {
    words.append(words.empty() ? "" : ", ").append(NameOfRun(run)).append(" ");
    words.append(WordOf(StateOfRun(stage, run)));
  }
  return words + ".";
}

}  // namespace

StepState StateOfRun(const PokerStage& stage, int run) {
  if (stage.What != PokerStage::Task::kDeal) return StepState::kToCome;
  if (run <= stage.Done) return StepState::kDone;
  if (run > stage.Done + 1) return StepState::kToCome;
  return stage.Running ? StepState::kRunning : StepState::kNext;
}

std::string_view NameOfRun(int run) { return kRunNames[static_cast<std::size_t>(run)]; }

std::string_view WordOf(StepState state) { return kStateWords[static_cast<std::size_t>(state)]; }

PilePicture PicturePiles(const PokerStage& stage) {
  if (stage.Running) return {};
  switch (stage.What) {
    case PokerStage::Task::kRead:
      return {"Put the stacked pack into the feeder", {{"Pack", kCards, "as it lies"}}, {}};
    case PokerStage::Task::kDeal:
      if (IsCarried(stage)) return CarryPicture(stage);
      if (stage.Done == 0) return {"Put a whole pack into the feeder", {{"Pack", kCards, ""}}, {}};
      if (stage.Done == kRuns) {
        return {"Take the stacked pack, put in the next one",
                {{"Pack", kCards, "the next"}},
                {{"North", kCards, "take it"}}};
      }
      return {};
    default:
      return {};
  }
}

std::string ProgressText(const PokerStage& stage) {
  if (!stage.Running) return {};
  if (stage.Fallen == 0) return std::to_string(static_cast<int>(stage.Seconds)) + " s";
  return std::to_string(stage.Fallen) + " of " + std::to_string(stage.Count) + " cards";
}

std::string StageInWords(const PokerStage& stage) {
  switch (stage.What) {
    case PokerStage::Task::kDeal:
      return RunsInWords(stage) + PilesInWords(PicturePiles(stage));
    case PokerStage::Task::kRead:
      return (stage.Running ? "Reading." : "Ready to read.") + PilesInWords(PicturePiles(stage));
    default:
      return "No deal yet.";
  }
}

}  // namespace morvane::poker
