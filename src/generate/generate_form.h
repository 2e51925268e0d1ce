#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "generate/generate_set.h"
#include "history/history.h"
#include "platform/ui.h"
#include "text/number_filter.h"

namespace morvane::generate {

/// The controls of `Generate` that are brought to the operator.
enum class FormControl { kFirstBoard, kLastBoard, kBigDeal, kCmdDeal, kExit };

/// What the controls of `Generate` show.
struct GenerateFormState {
  std::string txtFirstBoard;
  std::string txtLastBoard;
  bool generate_yes = true;  ///< otherwise `generate_no`, and the frames of the tests are hidden
  RejectionSwitches Reject;  ///< the check boxes; each shows or hides the results in its frame
  bool bigdealVisible = true;
  bool cmdDealVisible = true;
  FormControl Default = FormControl::kBigDeal;  ///< what Enter presses
  bool Running = false;                         ///< nothing can be used, as in a run
  std::optional<RejectCounter> txtShpRejects;   ///< empty until there is a result
  std::optional<RejectCounter> txtInnRejects;
  std::optional<RejectCounter> txtHisRejects;
  std::string txtInnSim;
  std::string txtOuSim;
  std::string txtOuDeals;
  int BoardsGen = 0;
  int BoardsToMake = 0;  ///< 0: there is no run whose progress could be shown
  std::string Result;    ///< what came of the last press, in lines ended by LF
};

/// The window of a form. It reads the form when it is told that something has changed.
class GenerateFormView {
 public:
  virtual ~GenerateFormView() = default;
  /// In the window's own client coordinates.
  [[nodiscard]] virtual Point Mouse() const = 0;
  virtual void Show() = 0;
  virtual void ShowProgress() = 0;
  virtual void ShowBits() = 0;
  virtual void Focus(FormControl control) = 0;
  /// Selects the whole text of both numbers.
  virtual void SelectNumbers() = 0;
  virtual void Close() = 0;
};

/// The window `Generate` without its looks: which boards are to be made and how, and what came of
/// it. While a run goes on, and while one of its boxes is open, all its methods do nothing.
class GenerateForm final : private GenerateView {
 public:
  static constexpr int kTimer1Ms = 50;
  static constexpr int kTypedLimit = 999;

  /// `changed` is called when a press has changed the set, before anything can be pressed again.
  GenerateForm(Program& program, Generator& generator, const history::History& history,
               std::function<void()> changed);

  /// The window has come up; `view` stays until the form is closed.
  void Open(GenerateFormView& view);

  /// The boxes, after every change by the operator. What the box is to show.
  FilteredBox ChangeFirstBoard(FilteredBox box);
  FilteredBox ChangeLastBoard(FilteredBox box);
  /// `generate_yes` or, if not, `generate_no`.
  void ChooseRandom(bool yes);
  /// All three check boxes.
  void ChooseTests(RejectionSwitches tests);
  void bigdeal();
  void cmdDeal();
  void cmdExit();

  [[nodiscard]] const GenerateFormState& State() const { return state_; }
  /// `SeedmCounter`, 0 to `RandomPool::kMostBits`.
  [[nodiscard]] int Bits() const { return generator_.Pool.SeedmCounter; }
  /// Whether the history test has deals to compare with.
  [[nodiscard]] bool HistoryIsOn() const { return history_.HistoryEnabled(); }
  /// The program, as the words of the window tell of it.
  [[nodiscard]] const Program& Prog() const { return program_; }
  [[nodiscard]] bool Closed() const { return closed_; }

 private:
  void RunStarts() override;
  void BoardsGen(int count) override;
  FilteredBox Change(FilteredBox box, std::string& text);
  void InputChanged();
  void ShowButtons();
  void Press(FormControl button);
  void Take(const GenerateResult& result, FormControl button);
  void EnableTimer1big();
  [[nodiscard]] GenerateRequest Request() const;
  [[nodiscard]] FormControl GenerateButton() const;

  Program& program_;
  Generator& generator_;
  const history::History& history_;
  std::function<void()> changed_;
  GenerateFormView* view_ = nullptr;
  GenerateFormState state_;
  std::string offered_;  ///< the setting `Generator`
  FormControl lastPressed_ = FormControl::kBigDeal;
  std::unique_ptr<Timer> Timer1big_;
  bool closed_ = false;
};

/// Brings up the window.
class GenerateDialog {
 public:
  virtual ~GenerateDialog() = default;
  /// Shows it modally and returns when it is closed, or when the program ends. A program that has
  /// no such window does nothing.
  virtual void ShowGenerate(GenerateForm& /*form*/) {}
};

}  // namespace morvane::generate
