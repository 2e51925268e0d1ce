#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>

#include "print/print_options.h"
#include "program/program.h"
#include "text/number_filter.h"

namespace morvane::print {

/// The boxes that can be typed into: `txtFromBoard`, `txtToBoard`, `txtCopies`, `txtNSoffset`,
/// `Header`.
enum class HandRecordBox : std::uint8_t { kFromBoard, kToBoard, kCopies, kNsOffset, kHeader };

/// What can be chosen, and the values: those of the settings store, check boxes 0 and 1.
enum class HandRecordOption : std::uint8_t {
  kMode,         ///< `PrintMode`, 0..2
  kPerPage,      ///< `Option2` to `Option5` 1..4, 0 none of them
  kColour,       ///< `ColorPrint`
  kAnalysis,     ///< `DeepPrint`
  kHcp,          ///< `PrintHCP`
  kStatistics,   ///< `Stat1` to `Stat3`, 1..3
  kTen,          ///< `Ten1`, `Ten2`, 1 and 2
  kNational,     ///< `National_1` to `National_7`, 0..6
  kPrintBoards,  ///< `chkPrintBoards`
  kPrintNS,      ///< `chkPrintNS`
};

/// What the printing dialog needs of its window. What is shown is read from the dialog.
class HandRecordView {
 public:
  virtual ~HandRecordView() = default;
  /// Anything of it has changed.
  virtual void Show() = 0;
  /// Another board is done.
  virtual void ShowProgress() = 0;
  /// Brings the operator back to a box whose number was refused.
  virtual void Correct(HandRecordBox box) = 0;
};

/// `HandRecord` without its looks: options, which are stored at each change, the boards to print,
/// and the runs that print them. While one is under way nothing else can be done.
class HandRecord {
 public:
  static constexpr int kTimer1Ms = 100;
  static constexpr int kMostCopies = 999;
  /// With it the last pair of a score card has three digits still.
  static constexpr int kMostNsOffset = 984;

  /// A firmware file that is to be downloaded; somebody has asked the operator.
  using Download = std::function<void(const std::string& path)>;

  /// There is a set, which outlives the dialog.
  HandRecord(Program& program, Download download);

  /// Null: nobody looks any more.
  void ShowOn(HandRecordView* view) { view_ = view; }

  void Choose(HandRecordOption option, int value);
  [[nodiscard]] int Chosen(HandRecordOption option) const;
  /// A box after a change by the operator. What it is to show.
  FilteredBox Change(HandRecordBox box, FilteredBox typed);
  [[nodiscard]] const std::string& Text(HandRecordBox box) const;
  /// Whether what is printed now depends on it.
  [[nodiscard]] bool Matters(HandRecordOption option) const;
  [[nodiscard]] bool Matters(HandRecordBox box) const;

  /// Checks and prints, on paper or into a text file.
  void cmdPrint();
  /// Checks and shows the pages; from there they are printed or saved as a PDF.
  void cmdPreview();
  /// Checks, and saves the pages as a PDF.
  void cmdPdf();
  void cmdPrinterSetup();
  /// Not while a run is under way.
  void cmdExit();

  /// Hand records need a layout.
  [[nodiscard]] bool CanPrint() const;
  /// Whether it prints pages, which a text is not.
  [[nodiscard]] bool HasPages() const;
  [[nodiscard]] const BoardSet& Set() const { return program_.Set; }
  [[nodiscard]] bool Printing() const { return printing_; }
  /// Of the run that is under way.
  [[nodiscard]] int BoardsDone() const { return done_; }
  [[nodiscard]] int BoardsInAll() const { return inAll_; }
  [[nodiscard]] bool Closed() const { return closed_; }

 private:
  class Busy;

  [[nodiscard]] PrintOptions Job() const;
  [[nodiscard]] bool MayStart() const;
  bool Checked(const PrintOptions& job);
  using Procedure = bool (*)(Program& program, const PrintOptions& job,
                             const std::function<bool()>& boardDone);
  void Run(const PrintOptions& job, Procedure procedure);
  bool BoardDone();
  void WatchLink();
  void Timer1PrintTick();
  void Show();

  Program& program_;
  Download download_;
  HandRecordView* view_ = nullptr;
  PrintOptions options_;
  std::array<std::string, 5> texts_;  ///< by `HandRecordBox`
  std::unique_ptr<Timer> Timer1Print_;
  int done_ = 0;
  int inAll_ = 0;
  bool busy_ = false;      ///< a box, a dialog or a run is open
  bool printing_ = false;  ///< a run is under way
  bool closed_ = false;
};

/// Brings up the dialog.
class HandRecordDialog {
 public:
  virtual ~HandRecordDialog() = default;
  /// Shows it modally and returns when it is closed, or when nobody can close it any more because
  /// the program ends. False: this program has no such window.
  virtual bool ShowHandRecord(HandRecord& /*dialog*/) { return false; }
};

}  // namespace morvane::print
