#pragma once

#include <string>

#include "generate/generate_set.h"

// What the window `Generate` says in words of its own.

namespace morvane::generate {

inline constexpr const char* kShapeWords =
    "Rejects a deal with a hand shape that the set has had about twice as often as is to be "
    "expected, so that rare shapes do not pile up.";
inline constexpr const char* kInnerWords =
    "Rejects a deal in which a hand has the same 13 cards as a hand of another board of the set. "
    "Similarity 9, 12N:5E means: North of board 12 and East of board 5 have 9 cards in common, and "
    "no other pair has more.";
inline constexpr const char* kHistoryWords =
    "Rejects a deal in which a hand has the same 13 cards as a hand of a board that was saved or "
    "loaded here before. The most alike one is shown with its file.";
inline constexpr const char* kHistoryOffWords =
    "The history is off until the program ends: this test compares with nothing.";
inline constexpr const char* kShufflingWords =
    "Shuffles a pack: 50 riffles before each deal, going on from the last one.";
inline constexpr const char* kEmptyWords =
    "The boards get their dealer and vulnerability and no cards, to be filled by reading cards or "
    "by hand.";
inline constexpr const char* kBitsWords =
    "Moving the mouse over this window makes the seeds harder to guess.";

/// Of the number generator.
[[nodiscard]] std::string BigDealWords(const Program& program);
/// What becomes of the current set.
[[nodiscard]] std::string ReplacesWords(const BoardSet& set);

/// Beside the count of a test that had nothing to compare with.
inline constexpr const char* kOffSign = "\u25B2 off";

/// "green" and "red" for who does not see colours.
[[nodiscard]] std::string SignOf(const RejectCounter& counter);

/// What came of a press, in lines ended by LF; empty when the program is quitting.
[[nodiscard]] std::string ReportOf(const Program& program, const GenerateRequest& request,
                                   const GenerateResult& result, bool historyIsOn);

}  // namespace morvane::generate
