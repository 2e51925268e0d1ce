#pragma once

#include <string>

#include "files/file_boxes.h"
#include "files/load_desk.h"
#include "files/save_set.h"
#include "support/fakes.h"

namespace morvane::files {

// The bytes of two boards, worked out on paper. Of `test::SuitBoard` each hand holds one suit. Of
// `test::RoundBoard` North holds the cards 1, 5, 9 ... 49, so the ranks A T 6 2 of spades, J 7 3 of
// hearts, Q 8 4 of diamonds and K 9 5 of clubs; the next hands hold the cards behind those. The
// suit marks are 6 spades, 3 hearts, 4 diamonds, 5 clubs.

inline const std::string kSuitsBri =
    "01020304050607080910111213"
    "14151617181920212223242526"
    "27282930313233343536373839";
inline const std::string kRoundBri =
    "01050913172125293337414549"
    "02061014182226303438424650"
    "03071115192327313539434751";

inline const std::string kSuitsDge =
    "\006AKQJT98765432\003\004\005"
    "\006\003AKQJT98765432\004\005"
    "\006\003\004AKQJT98765432\005"
    "\006\003\004\005AKQJT98765432";
inline const std::string kRoundDge =
    "\006AT62\003J73\004Q84\005K95"
    "\006K95\003AT62\004J73\005Q84"
    "\006Q84\003K95\004AT62\005J73"
    "\006J73\003Q84\004K95\005AT62";

inline const std::string kSuitsDeal305 =
    "0000000000000"
    "1111111111111"
    "2222222222222"
    "3333333333333"
    "\r\n";
inline const std::string kRoundDeal305 =
    "0123012301230123012301230123"
    "012301230123012301230123"
    "\r\n";

inline std::string Zeros(std::size_t count) { return std::string(count, '\0'); }

inline std::string BriRecord(const std::string& hands) {
  return hands + "                                " + Zeros(18);
}
inline std::string DgeRecord(const std::string& hands) { return hands + Zeros(60); }
/// `first` and `last` are fields of three characters.
inline std::string DupRecord(const std::string& bri, const std::string& dge,
                             const std::string& first, const std::string& last) {
  return bri + dge + "YN" + first + "1 " + last;
}

/// A desk for small files that are loaded and saved without questions.
struct RecordDesk : test::TestDesk {
  RecordDesk() {
    for (const SettingKey& key : {kLoadAllocation, kSaveEvent, kSaveNumbers, kSaveIncomplete}) {
      EXPECT_TRUE(Store.Set(key, "0"));
    }
  }
  bool Load(const std::string& name, const std::string& bytes) {
    test::WriteContent(Folder / name, bytes);
    return LoadFile(Prog, History, Folder / name);
  }
  /// The bytes of the file that the set makes.
  std::string Saved(const std::string& name) {
    EXPECT_TRUE(SaveFile(Prog, History, Folder / name));
    return test::Content(Folder / name);
  }
  /// A set of `SuitBoard` at `first` and `RoundBoard` behind it.
  void TwoBoards(int first) {
    Prog.Set = EmptySet(first, first + 1);
    Prog.Set.At(first) = test::SuitBoard(first);
    Prog.Set.At(first + 1) = test::RoundBoard(first + 1);
  }
};

}  // namespace morvane::files
