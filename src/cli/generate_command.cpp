#include "cli/generate_command.h"

#include "audit/fingerprint.h"
#include "generate/generate_set.h"
#include "generate/seeds.h"
#include "text/text.h"

namespace morvane::cli {
namespace {

using generate::DealGenerator;

class Progress final : public generate::GenerateView {
 public:
  explicit Progress(Terminal& terminal) : terminal_(terminal) {}
  ~Progress() override {
    if (shown_) terminal_.Out("\n");
  }
  Progress(const Progress&) = delete;
  Progress& operator=(const Progress&) = delete;
  void RunStarts() override {}
  void BoardsGen(int count) override {
    if (!terminal_.ShowsProgress()) return;
    terminal_.Out("\rBoards generated: " + std::to_string(count));
    shown_ = true;
  }

 private:
  Terminal& terminal_;
  bool shown_ = false;
};

generate::GenerateRequest WhatToMake(const Settings& store, const Request& request) {
  generate::GenerateRequest make;
  make.First = request.First.value_or(store.Get(kNewFirstBoard));
  make.Last = request.Last.value_or(store.Get(kNewLastBoard));
  make.Random = !request.Empty;
  const bool shufflingAsked =
      request.Generator ? *request.Generator == "morvane" : store.Get(kGenerator) == "1";
  // An empty set is the shuffling generator's button.
  const bool shuffling = request.Empty || request.Lfsr || (shufflingAsked && !request.Seedr);
  make.With = shuffling ? DealGenerator::kShuffling : DealGenerator::kNumber;
  make.Reject = {request.Shapes.value_or(store.IsOn(kNewShapes)),
                 request.Inner.value_or(store.IsOn(kNewInner)),
                 request.History.value_or(store.IsOn(kNewHistory))};
  return make;
}

/// With seeds given, the set can be made again; otherwise they are fresh.
std::optional<generate::GenerateResult> Run(Workplace& place, const Request& request,
                                            shell::Shell& shell) {
  const generate::GenerateRequest make = WhatToMake(place.Prog.Store, request);
  generate::Generator& generator = shell.Deals();
  Progress progress(place.Screen);
  if (request.Lfsr || request.Seedr) {
    const bool taken = request.Lfsr
                           ? generate::UseLfsrSeed(place.Prog, generator.Shuffling, *request.Lfsr)
                           : generate::UseNumberSeeds(place.Prog, generator.Number, *request.Seedr,
                                                      request.Seedo.value_or(""));
    if (!taken) return std::nullopt;
    return generate::GenerateSet(place.Prog, generator, shell.History().Ring(), make, progress);
  }
  return make.With == DealGenerator::kShuffling
             ? generate::PressCmdDeal(place.Prog, generator, shell.History().Ring(), make, progress)
             : generate::PressBigDeal(place.Prog, generator, shell.History().Ring(), make,
                                      progress);
}

std::string Summary(const BoardSet& set, const generate::GenerateResult& result) {
  std::string text = "Boards " + std::to_string(set.FirstBoard) + " to " +
                     std::to_string(set.LastBoard) + ": " + std::to_string(set.Count());
  const auto add = [&text](const char* name,
                           const std::optional<generate::RejectCounter>& counter) {
    if (counter) text += std::string("  ") + name + " rejected: " + std::to_string(counter->Count);
  };
  add("shapes", result.ShpRejects);
  add("inner similarity", result.InnRejects);
  add("history", result.HisRejects);
  if (const std::string pair = result.InnSim.value_or(""); !pair.empty()) {
    text += "  most alike: " + pair;
  }
  return text + "\n";
}

}  // namespace

ExitStatus Generate(Workplace& place, const Request& request, shell::Shell& shell) {
  generate::OpenGenerate(place.Prog, shell.Deals());
  const auto result = Run(place, request, shell);
  if (!result) {
    place.Screen.Error("The seeds are not hexadecimal numbers of the length asked for.\n");
    return kWrongUsage;
  }
  if (result->End != generate::GenerateEnd::kDone) return kFailed;
  if (!Save(place, request, shell)) return kFailed;
  place.Screen.Out(Summary(place.Prog.Set, *result));
  if (!request.Empty) {
    place.Screen.Out("SHA-256: " + audit::SetFingerprint(place.Prog.Set) + "\n");
  }
  return kDone;
}

}  // namespace morvane::cli
