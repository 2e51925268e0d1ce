#pragma once

#include <functional>
#include <optional>
#include <string>

#include "cli/job.h"
#include "cli/option_reader.h"
#include "platform/printer.h"
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

/// Refuses an OUT that is named as a set is: that would hardly be meant.
void RefuseSetName(OptionReader& given, const std::string& out);

[[nodiscard]] PaperRequest ReadPaperRequest(OptionReader& given);

/// Loads the set and says what to print of it and how. Nothing when the operator has been told why
/// not, or does not want to. Whatever would keep OUT from being written is told before.
[[nodiscard]] std::optional<print::PrintOptions> TakePaper(Job& job, const PaperRequest& request,
                                                           print::PrintMode mode);

void LogParameters(Program& program, const print::PrintOptions& options);

struct PaperFiles {
  std::string In;
  std::string Out;
  std::string What;  ///< IN is, for who would write over it
};
/// OUT is IN, which the operator has been told.
[[nodiscard]] bool IsItself(Job& job, const PaperFiles& files);
/// Whether OUT can be written and is not IN. False: the operator has been told.
[[nodiscard]] bool MayWriteOut(Job& job, const PaperFiles& files);

/// Has `print` do it, what is printed ("Boards") counted at the terminal, and says so when it was
/// broken off before `out`.
[[nodiscard]] ExitStatus PutOnPaper(
    Job& job, const std::string& out, const std::string& what,
    const std::function<bool(const std::function<bool()>& oneDone)>& print);

/// The option --paper, and the sheet that its word means.
inline constexpr Option kPaperOption{"paper", "a4|letter",
                                     "the size of the pages; otherwise that of the country"};
[[nodiscard]] Paper SheetOf(const std::optional<std::string>& word);

}  // namespace morvane::cli
