#pragma once

#include <functional>
#include <string>
#include <vector>

#include "print/hand_record.h"
#include "support/fakes.h"

namespace morvane::print {

/// A window that notes what it is told.
class FakeHandRecordView final : public HandRecordView {
 public:
  explicit FakeHandRecordView(HandRecord& dialog) : dialog_(dialog) {}
  void Show() override { Printing.push_back(dialog_.Printing()); }
  void ShowProgress() override {
    Progress.push_back(dialog_.BoardsDone());
    if (OnProgress) OnProgress();
  }
  void Correct(HandRecordBox box) override { Corrected.push_back(box); }

  std::vector<bool> Printing;  ///< whether a run was under way each time that something changed
  std::vector<int> Progress;
  std::function<void()> OnProgress;
  std::vector<HandRecordBox> Corrected;

 private:
  HandRecord& dialog_;
};

/// Boards 5 to 9, all analysed, and 12 boards a page.
struct PrintDesk : test::TestDesk {
  PrintDesk() {
    test::FillSet(Prog.Set, 5, 9);
    for (int n = 5; n <= 9; ++n) Prog.Set.At(n).Tricks[0] = 3;
    Prog.Set.EventName = "Club evening";
    Store.Set(kPrintPerPage, "2");
  }
  /// The lines of the log that printing wrote.
  [[nodiscard]] std::vector<std::string> Lines() const {
    std::vector<std::string> lines;
    for (const std::string& line : LogLines()) {
      const bool isOurs = line.starts_with("  Print ") || line.starts_with("   ");
      if (isOurs) lines.push_back(line);
    }
    return lines;
  }
  /// The numbers of the boards on the pages of hand records drawn last.
  [[nodiscard]] std::vector<std::string> Drawn() const {
    std::vector<std::string> numbers;
    for (const auto& page : ThePrinter.Drawn.Pages) {
      for (const auto& text : page.Texts) {
        if (text.Text.starts_with("Board: ")) numbers.push_back(text.Text.substr(7));
      }
    }
    return numbers;
  }
};

/// The printing dialog over them.
struct HandRecordDesk : PrintDesk {
  std::vector<std::string> Downloads;
  HandRecord Dialog{Prog, [this](const std::string& path) { Downloads.push_back(path); }};
  FakeHandRecordView View{Dialog};

  HandRecordDesk() { Dialog.ShowOn(&View); }
  void Type(HandRecordBox box, const std::string& text) {
    Dialog.Change(box, {text, static_cast<int>(text.size())});
  }
  void TypeRange(const std::string& from, const std::string& to) {
    Type(HandRecordBox::kFromBoard, from);
    Type(HandRecordBox::kToBoard, to);
  }
};

}  // namespace morvane::print
