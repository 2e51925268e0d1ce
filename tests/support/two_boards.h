#pragma once

#include "support/fakes.h"

namespace morvane::test {

// What `sha256sum` says of these lines, each ended with LF; `openssl dgst -sha256` says the same.
// 1 AKQJT98765432... .AKQJT98765432.. ..AKQJT98765432. ...AKQJT98765432
// 2 AT62.J73.Q84.K95 K95.AT62.J73.Q84 Q84.K95.AT62.J73 J73.Q84.K95.AT62
inline constexpr const char* kTwoBoards =
    "8d5417bc01e60c7a2bebba4ee30545013b5345823cb85b1d0cd50920f27573e3";

/// The set of these lines.
inline BoardSet TwoBoards() {
  BoardSet set;
  set.FirstBoard = 1;
  set.LastBoard = 2;
  set.At(1) = SuitBoard(1);
  set.At(2) = RoundBoard(2);
  return set;
}

}  // namespace morvane::test
