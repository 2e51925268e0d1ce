#include "cli/generate_command.h"

#include <algorithm>
#include <array>

#include "generate/fingerprint.h"
#include "generate/generate_set.h"
#include "generate/seeds.h"
#include "model/tables.h"
#include "platform/console/progress_line.h"
#include "text/text.h"

namespace morvane::cli {
namespace {

using generate::DealGenerator;

class Progress final : public generate::GenerateView {
 public:
  explicit Progress(Terminal& terminal) : line_(terminal) {}
  ~Progress() override { line_.Leave(); }
  Progress(const Progress&) = delete;
  Progress& operator=(const Progress&) = delete;
  void RunStarts() override {}
  void BoardsGen(int count) override { line_.Show("Boards generated: " + std::to_string(count)); }

 private:
  ProgressLine line_;
};

/// With seeds given, the set can be made again; otherwise they are fresh.
std::optional<generate::GenerateResult> Run(Job& job, const GenerateOptions& options,
                                            const generate::GenerateRequest& make) {
  Program& program = job.Place.Prog;
  generate::Generator& generator = job.Shell.Deals();
  Progress progress(job.Place.Screen);
  if (options.Lfsr || options.Seedr) {
    const bool taken = options.Lfsr
                           ? generate::UseLfsrSeed(program, generator.Shuffling, *options.Lfsr)
                           : generate::UseNumberSeeds(program, generator.Number, *options.Seedr,
                                                      options.Seedo.value_or(""));
    if (!taken) return std::nullopt;
    return generate::GenerateSet(program, generator, job.Shell.History().Ring(), make, progress);
  }
  return make.With == DealGenerator::kShuffling
             ? generate::PressCmdDeal(program, generator, job.Shell.History().Ring(), make,
                                      progress)
             : generate::PressBigDeal(program, generator, job.Shell.History().Ring(), make,
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

void CheckTogether(const GenerateOptions& options, OptionReader& given) {
  if (options.Seedr.has_value() != options.Seedo.has_value()) {
    given.Refuse("--seedr and --seedo go together");
  } else if (options.Lfsr && (options.Seedr || options.Generator == "bigdeal")) {
    given.Refuse("--lfsr is a state of the other generator");
  } else if (options.Seedr && options.Generator == "morvane") {
    given.Refuse("--seedr and --seedo are seeds of the other generator");
  } else if (options.Empty && (options.Seedr || options.Lfsr)) {
    given.Refuse("--empty needs no seeds");
  }
}

constexpr std::array kOperands{Operand{"OUT", "the file to save the set in"}};
constexpr Option kGeneratorOption{"generator", "bigdeal|morvane",
                                  "the number or the shuffling generator"};
constexpr std::array kOptions{
    Option{"first", "N", "the number of the first board"},
    Option{"last", "N", "the number of the last board"},
    kGeneratorOption,
    Option{"empty", "", "leave the boards without cards"},
    Option{"shapes", "on|off", "reject odd shapes"},
    Option{"inner", "on|off", "reject what resembles another board of the set"},
    Option{"history", "on|off", "reject what resembles a board already played"},
    Option{"seedr", "HEX40", "a seed of the number generator, with --seedo", true},
    Option{"seedo", "HEX40", "its other seed, with --seedr"},
    Option{"lfsr", "HEX32", "a state of the shuffling generator"},
};

}  // namespace

generate::GenerateRequest WhatToMake(const Settings& store, const GenerateOptions& options) {
  generate::GenerateRequest make;
  make.First = options.First.value_or(store.Get(kNewFirstBoard));
  make.Last = options.Last.value_or(store.Get(kNewLastBoard));
  make.Random = !options.Empty;
  const bool shufflingAsked =
      options.Generator ? *options.Generator == "morvane" : store.Get(kGenerator) == "1";
  // An empty set is the shuffling generator's button.
  const bool shuffling = options.Empty || options.Lfsr || (shufflingAsked && !options.Seedr);
  make.With = shuffling ? DealGenerator::kShuffling : DealGenerator::kNumber;
  make.Reject = {options.Shapes.value_or(store.IsOn(kNewShapes)),
                 options.Inner.value_or(store.IsOn(kNewInner)),
                 options.History.value_or(store.IsOn(kNewHistory))};
  return make;
}

std::unique_ptr<BoardSet> ComingSet(const generate::GenerateRequest& make) {
  auto set = std::make_unique<BoardSet>();
  set->Clear();
  const auto number = [](const std::string& text) {
    return static_cast<std::int16_t>(std::clamp(Val(text), 1, kMaxBoards));
  };
  set->FirstBoard = number(make.First);
  set->LastBoard = number(make.Last);
  if (!make.Random) return set;
  for (int n = set->FirstBoard; n <= set->LastBoard; ++n) set->At(n).Status = Board::kComplete;
  return set;
}

GenerateOptions ReadGenerateOptions(OptionReader& given) {
  GenerateOptions options{.Out = given.Path(0),
                          .First = given.BoardNumber("first"),
                          .Last = given.BoardNumber("last"),
                          .Generator = given.Choice(kGeneratorOption),
                          .Empty = given.Has("empty"),
                          .Shapes = given.Switch("shapes"),
                          .Inner = given.Switch("inner"),
                          .History = given.Switch("history"),
                          .Seedr = given.Hex("seedr", 40),
                          .Seedo = given.Hex("seedo", 40),
                          .Lfsr = given.Hex("lfsr", 32)};
  CheckTogether(options, given);
  return options;
}

ExitStatus Generate(Job& job, const GenerateOptions& options) {
  Terminal& screen = job.Place.Screen;
  Program& program = job.Place.Prog;
  const generate::GenerateRequest make = WhatToMake(program.Store, options);
  if (!MaySave(job, *ComingSet(make), options.Out)) return kFailed;
  generate::OpenGenerate(program, job.Shell.Deals());
  const auto result = Run(job, options, make);
  if (!result) {
    screen.Error("The seeds are not hexadecimal numbers of the length asked for.\n");
    return kWrongUsage;
  }
  if (result->End != generate::GenerateEnd::kDone) return kFailed;
  if (!Save(job, options.Out)) return kFailed;
  screen.Out(Summary(program.Set, *result));
  if (!options.Empty) screen.Out(generate::FingerprintLine(program) + "\n");
  return kDone;
}

constinit const Command kGenerateCommand{
    .Name = "generate",
    .Operands = kOperands,
    .Options = kOptions,
    .Summary = "Makes a set of boards and saves it. What no option says, the settings say.",
    .Note =
        "generate shows the SHA-256 of the deals that it has made: publish it before play, and "
        "the log afterwards.",
    .Prepare = TaskOf<ReadGenerateOptions, Generate>};

}  // namespace morvane::cli
