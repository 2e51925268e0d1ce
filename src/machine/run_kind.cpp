#include "machine/run_kind.h"

#include <array>

namespace morvane::machine {
namespace {

// A sort run goes into the log as a dealing run: required.
constexpr std::array<RunWords, 4> kWords{{
    {"Dealing", " Dealing Boards ", " Deal: ", "Dealing Error", "deal", "Dealing", "dealt",
     "board"},
    {"Reading", " Reading Boards ", " Read: ", "Reading Error", "read", "Reading", "read", "board"},
    {"Sorting", " Sorting Cards ", " Deal: ", "Sort Error", "sort", "Sorting", "done", "sort"},
    {"Poker", " Stacking Packs ", " Poker: ", "Poker Dealing", "run", "Running", "done", "run"},
}};

}  // namespace

const RunWords& WordsOf(RunKind kind) { return kWords[static_cast<std::size_t>(kind)]; }

}  // namespace morvane::machine
