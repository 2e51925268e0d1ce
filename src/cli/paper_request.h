#pragma once

#include <functional>
#include <optional>
#include <string>

#include "cli/job.h"
#include "cli/option_reader.h"
#include "print/print_options.h"

namespace morvane::cli {

/// What `print` and `text` both take. What was not given is empty, and means what the set or the
/// settings say.
struct PaperRequest {
  std::string In;
  std::string Out;
  std::optional<int> From;
  std::optional<int> To;
  bool NoAnalysis = false;
  std::optional<std::string> Header;
  std::optional<std::string> Ten;       ///< "T" or "10"
  std::optional<std::string> National;  ///< "0" to "6"
  bool Import = false;
};

inline constexpr Option kFromOption{"from", "N", "the first board to print"};
inline constexpr Option kToOption{"to", "N", "the last board to print"};
inline constexpr Option kNoAnalysisOption{"no-analysis", "", "leave out the makeable contracts"};
inline constexpr Option kHeaderOption{"header", "TEXT",
                                      "what stands above; otherwise the name of the event"};
inline constexpr Option kTenOption{"ten", "T|10", "the ten as a letter or as a number"};
inline constexpr Option kNationalOption{
    "national", "0..6",
    "the letters of the ranks: 0 AKQJ, 1 ARDV, 2 1RDV, 3 AKDB, 4 AHVB, 5 EKDB, 6 EKDKn"};

/// Nor may OUT be named as a set is: that would hardly be meant.
[[nodiscard]] PaperRequest ReadPaperRequest(OptionReader& given);

/// Loads the set and says what to print of it and how. Nothing when the operator has been told why
/// not, or does not want to. Whatever would keep OUT from being written is told before.
[[nodiscard]] std::optional<print::PrintOptions> TakePaper(Job& job, const PaperRequest& request,
                                                           print::PrintMode mode);

void LogParameters(Program& program, const print::PrintOptions& options);

/// Has `print` do it, boards counted at the terminal, and says so when it was broken off.
[[nodiscard]] ExitStatus PutOnPaper(
    Job& job, const PaperRequest& request,
    const std::function<bool(const std::function<bool()>& boardDone)>& print);

}  // namespace morvane::cli
