#include "print/hand_record.h"

#include <algorithm>
#include <utility>

#include "print/print_checks.h"
#include "print/print_run.h"
#include "print/text_output.h"
#include "text/text.h"

namespace morvane::print {
namespace {

using Box = HandRecordBox;
using Option = HandRecordOption;

constexpr int kTypedLimit = 999;

constexpr std::size_t IndexOf(Box box) { return static_cast<std::size_t>(box); }

const SettingKey& KeyOf(Option option) {
  switch (option) {
    case Option::kMode:
      return kPrintMode;
    case Option::kPerPage:
      return kPrintPerPage;
    case Option::kColour:
      return kPrintColor;
    case Option::kAnalysis:
      return kPrintAnalyze;
    case Option::kHcp:
      return kPrintHcp;
    case Option::kStatistics:
      return kPrintStat;
    case Option::kTen:
      return kPrintTen;
    case Option::kNational:
      return kNational;
    default:
      return kPrintScoreCardMode;
  }
}

/// The two switches of score cards are one setting.
bool IsOfScoreCards(Option option) {
  return option == Option::kPrintBoards || option == Option::kPrintNS;
}

int ValueOf(const PrintOptions& options, Option option) {
  switch (option) {
    case Option::kMode:
      return static_cast<int>(options.Mode);
    case Option::kPerPage:
      return options.PerPage;
    case Option::kColour:
      return options.Colour ? 1 : 0;
    case Option::kAnalysis:
      return options.Analysis ? 1 : 0;
    case Option::kHcp:
      return options.Hcp ? 1 : 0;
    case Option::kStatistics:
      return options.Statistics;
    case Option::kTen:
      return options.TenAsNumber ? 2 : 1;
    case Option::kNational:
      return options.National;
    case Option::kPrintBoards:
      return options.PrintBoards ? 1 : 0;
    case Option::kPrintNS:
      return options.PrintNS ? 1 : 0;
  }
  return 0;
}

void Set(PrintOptions& options, Option option, int value) {
  switch (option) {
    case Option::kMode:
      options.Mode = static_cast<PrintMode>(value);
      break;
    case Option::kPerPage:
      options.PerPage = value;
      break;
    case Option::kColour:
      options.Colour = value == 1;
      break;
    case Option::kAnalysis:
      options.Analysis = value == 1;
      break;
    case Option::kHcp:
      options.Hcp = value == 1;
      break;
    case Option::kStatistics:
      options.Statistics = value;
      break;
    case Option::kTen:
      options.TenAsNumber = value == 2;
      break;
    case Option::kNational:
      options.National = value;
      break;
    case Option::kPrintBoards:
      options.PrintBoards = value == 1;
      break;
    case Option::kPrintNS:
      options.PrintNS = value == 1;
      break;
  }
}

int LimitOf(Box box) {
  if (box == Box::kCopies) return HandRecord::kMostCopies;
  return box == Box::kNsOffset ? HandRecord::kMostNsOffset : kTypedLimit;
}

/// An empty box is 1.
int NumberOrOne(const std::string& text) { return text.empty() ? 1 : Val(text); }

}  // namespace

/// Holds the dialog for the time of one procedure, in which no request from outside is taken up.
class HandRecord::Busy {
 public:
  explicit Busy(HandRecord& dialog) : dialog_(dialog) {
    dialog_.busy_ = true;
    dialog_.Timer1Print_.reset();
  }
  ~Busy() {
    dialog_.busy_ = false;
    dialog_.WatchLink();
  }
  Busy(const Busy&) = delete;
  Busy& operator=(const Busy&) = delete;

 private:
  HandRecord& dialog_;
};

HandRecord::HandRecord(Program& program, Download download)
    : program_(program),
      download_(std::move(download)),
      options_(LoadPrintOptions(program.Store)),
      texts_{std::to_string(program.Set.FirstBoard), std::to_string(program.Set.LastBoard), "1",
             "1", program.Set.EventName} {
  WatchLink();
}

void HandRecord::Choose(Option option, int value) {
  print::Set(options_, option, value);
  const int stored = IsOfScoreCards(option) ? ScoreCardMode(options_) : value;
  program_.StoreSetting(KeyOf(option), std::to_string(stored));
  Show();
}

int HandRecord::Chosen(Option option) const { return ValueOf(options_, option); }

FilteredBox HandRecord::Change(Box box, FilteredBox typed) {
  std::string& text = texts_[IndexOf(box)];
  if (box == Box::kHeader) {
    text = typed.Text;
  } else {
    FilterNumber(typed, text, LimitOf(box));
  }
  return typed;
}

const std::string& HandRecord::Text(Box box) const { return texts_[IndexOf(box)]; }

bool HandRecord::Matters(Option option) const {
  switch (option) {
    case Option::kPerPage:
    case Option::kStatistics:
      return options_.Mode == PrintMode::kHandRecords;
    case Option::kColour:
    case Option::kHcp:
      return HasPages();
    case Option::kPrintBoards:
    case Option::kPrintNS:
      return options_.Mode == PrintMode::kScoreCards;
    default:
      return true;
  }
}

bool HandRecord::Matters(Box box) const {
  switch (box) {
    case Box::kCopies:
      return HasPages();
    case Box::kNsOffset:
      return options_.Mode == PrintMode::kScoreCards && options_.PrintNS;
    case Box::kHeader:
      return options_.Mode != PrintMode::kScoreCards;
    default:
      return true;
  }
}

bool HandRecord::CanPrint() const {
  return options_.Mode != PrintMode::kHandRecords || options_.PerPage != 0;
}

bool HandRecord::HasPages() const { return options_.Mode != PrintMode::kText; }

bool HandRecord::MayStart() const { return !busy_ && !closed_ && CanPrint(); }

PrintOptions HandRecord::Job() const {
  PrintOptions job = options_;
  job.Header = Text(Box::kHeader);
  job.From = Val(Text(Box::kFromBoard));
  job.To = Val(Text(Box::kToBoard));
  job.Copies = NumberOrOne(Text(Box::kCopies));
  job.NsOffset = NumberOrOne(Text(Box::kNsOffset));
  return job;
}

void HandRecord::cmdPrint() {
  if (!MayStart()) return;
  const Busy busy(*this);
  const PrintOptions job = Job();
  if (Checked(job)) Run(job, HasPages() ? PrintPages : PrintToTextFile);
}

void HandRecord::cmdPdf() {
  if (!MayStart() || !HasPages()) return;
  const Busy busy(*this);
  const PrintOptions job = Job();
  if (Checked(job)) Run(job, SavePages);
}

void HandRecord::cmdPreview() {
  if (!MayStart() || !HasPages()) return;
  const Busy busy(*this);
  const PrintOptions job = Job();
  if (!Checked(job)) return;
  PreviewPages(
      program_, job, [this, &job] { Run(job, PrintPages); }, [this, &job] { Run(job, SavePages); });
}

bool HandRecord::Checked(const PrintOptions& job) {
  const RangeFault fault = CheckRange(program_.Set, job);
  if (fault == RangeFault::kNone) {
    program_.Status("Printing");
    return !LacksAnalysis(program_.Set, job) ||
           program_.Ask(program_.Texts.Msg082, kYesNoExclamation, "Printing") == kYes;
  }
  program_.Status(kParameterError);
  program_.ShowMessage(TextOf(fault, program_.Texts), kOkCritical, kParameterError);
  if (view_ != nullptr) {
    view_->Correct(fault == RangeFault::kFrom ? Box::kFromBoard : Box::kToBoard);
  }
  return false;
}

void HandRecord::Run(const PrintOptions& job, Procedure procedure) {
  if (printing_) return;
  printing_ = true;
  done_ = 0;
  inAll_ = job.To - job.From + 1;
  Show();
  program_.Loop.Pump();
  program_.Log.WriteLine("  Print parameters: " + PrintParameters(job));
  procedure(program_, job, [this] { return BoardDone(); });
  // What was pressed meanwhile must not do anything afterwards.
  program_.Loop.Pump();
  printing_ = false;
  program_.Status("Printing");
  Show();
}

/// Where the printer makes no copies, the pages are drawn again for each.
bool HandRecord::BoardDone() {
  if (done_ == inAll_) done_ = 0;
  ++done_;
  if (view_ != nullptr) view_->ShowProgress();
  return program_.Loop.PumpOften();
}

void HandRecord::cmdPrinterSetup() {
  if (busy_ || closed_) return;
  const Busy busy(*this);
  program_.Status("Printer Setup");
  const auto copies = SetUpPrinter(program_, Job().Copies);
  program_.Status("Printing");
  if (!copies) return;
  texts_[IndexOf(Box::kCopies)] = std::to_string(std::clamp(*copies, 1, kMostCopies));
  Show();
}

void HandRecord::cmdExit() {
  if (busy_) return;
  closed_ = true;
  Timer1Print_.reset();
}

void HandRecord::WatchLink() {
  Timer1Print_ = program_.Loop.StartTimer(kTimer1Ms, [this] { Timer1PrintTick(); });
}

void HandRecord::Timer1PrintTick() {
  if (program_.Link.Pending != LinkRequest::kDownload) return;
  const std::string path = std::exchange(program_.Link, {}).File;
  const std::string question = Fill(program_.Texts.Msg091, "***", path);
  if (program_.Ask(question, kYesNoExclamationNo, "Download New Firmware") == kYes) download_(path);
}

void HandRecord::Show() {
  if (view_ != nullptr) view_->Show();
}

}  // namespace morvane::print
