#pragma once

#include <optional>
#include <string>

#include "generate/generator.h"
#include "generate/rejection.h"

namespace morvane::generate {

enum class DealGenerator { kNumber, kShuffling };

/// What the operator asked for; the settings `New_FirstBoard` and so on are what the window starts
/// with.
struct GenerateRequest {
  std::string First;   ///< text of `txtFirstBoard`
  std::string Last;    ///< text of `txtLastBoard`
  bool Random = true;  ///< `generate_yes`; otherwise the boards are left empty
  DealGenerator With = DealGenerator::kNumber;
  RejectionSwitches Reject;
};

enum class GenerateEnd {
  kDone,            ///< the set exists
  kNoSeeds,         ///< the system's random source failed; the set is as it was
  kRefused,         ///< first and last board do not fit; the set is as it was
  kCannotGenerate,  ///< the attempts for one board ran out; no set exists
  kQuit,            ///< the program is quitting; no set exists
};

/// The control that gets the focus after a run.
enum class GenerateFocus { kNone, kFirstBoard, kLastBoard, kGenerateButton, kExit };

/// Colours of the counters, as their boxes take them.
enum class CounterColour : int { kRed = 255, kGreen = 65280 };

struct RejectCounter {
  int Count = 0;
  CounterColour Colour = CounterColour::kGreen;
};

/// How a run ended and what its window shows. A box without a value keeps what it shows: its test
/// was off, or there is no set.
struct GenerateResult {
  GenerateEnd End = GenerateEnd::kDone;
  GenerateFocus Focus = GenerateFocus::kNone;
  bool InviteAnother = false;  ///< so much was rejected that the generate buttons are the default
  std::optional<RejectCounter> ShpRejects;
  std::optional<RejectCounter> InnRejects;
  std::optional<RejectCounter> HisRejects;
  std::optional<std::string> InnSim;   ///< "9, 12N:5E", the newer board first; "" without a pair
  std::optional<std::string> OuSim;    ///< the same with a historic board
  std::optional<std::string> OuDeals;  ///< the history file of that board
};

/// The window of a run, while it lasts.
class GenerateView {
 public:
  virtual ~GenerateView() = default;
  /// `cmdExit`, `cmdDeal` and `bigdeal` go off; `txtShpRejects`, `txtHisRejects`, `txtOuSim` and
  /// `txtOuDeals` are cleared.
  virtual void RunStarts() = 0;
  /// So many boards are made.
  virtual void BoardsGen(int count) = 0;
};

/// What comes before everything when boards are to be made: the log's line, and the moment for the
/// pool.
void OpenGenerate(Program& program, Generator& generator);

/// Replaces the set by boards First..Last, empty or dealt by the generator asked for with the seeds
/// that it has. Failures have been shown. The buttons are the window's to enable again.
GenerateResult GenerateSet(Program& program, Generator& generator,
                           const history::HistoryRing& history, const GenerateRequest& request,
                           GenerateView& view);

/// The buttons: new seeds, then `GenerateSet` with that generator. The window's mouse feeder is off
/// meanwhile.
GenerateResult PressBigDeal(Program& program, Generator& generator,
                            const history::HistoryRing& history, GenerateRequest request,
                            GenerateView& view);
GenerateResult PressCmdDeal(Program& program, Generator& generator,
                            const history::HistoryRing& history, GenerateRequest request,
                            GenerateView& view);

}  // namespace morvane::generate
