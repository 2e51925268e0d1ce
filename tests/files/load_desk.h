#pragma once

#include <functional>
#include <string>

#include "files/load_number.h"
#include "files/load_set.h"
#include "files/sets.h"
#include "support/fakes.h"

namespace morvane::files {

/// Board 3 complete, board 4 with three cards.
inline const std::string kTwoBoards =
    "[Event \"Evening\"]\r\n[Site \"Hall\"]\r\n[Date \"2026.03.03\"]\r\n"
    "[Board \"3\"]\r\n" +
    kSuitDeal + "\r\n[Board \"4\"]\r\n[Deal \"W:A - K. Q\"]\r\n";

/// An operator who answers the numbering dialog by `Answer`, by default with its OK button.
class FakeNumbers final : public NumberDialog {
 public:
  void ShowLoadNumber(LoadNumber& dialog) override {
    ++Shown;
    Answer(dialog);
  }
  int Shown = 0;
  std::function<void(LoadNumber&)> Answer = [](LoadNumber& dialog) { dialog.Command1(); };
};

/// A load whose boards keep the numbers that they are offered.
inline bool LoadFile(Program& program, history::History& history, const std::string& path) {
  FakeNumbers numbers;
  return LoadFile(program, history, numbers, path);
}

/// A desk on which boards 1 to 4 of an older file lie.
struct LoadDesk : test::TestDesk {
  LoadDesk() {
    test::FillSet(Prog.Set, 1, 4);
    Prog.Set.EventName = "Old";
    Prog.Set.EventSite = "Old site";
    Prog.Set.EventDate = "Old date";
    Prog.Set.BoardSetFile = "/old.pbn";
    Prog.Set.CurrentBoard = 2;
    test::WriteContent(Good, kTwoBoards);
  }
  void Load() { LoadBoardSet(Prog, History, Numbers, StartFile); }

  const std::string Good = Folder / "two.pbn";
  std::string StartFile;
  FakeNumbers Numbers;
};

}  // namespace morvane::files
