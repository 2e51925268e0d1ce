#include "generate/generate_form.h"

#include <algorithm>
#include <utility>

#include "generate/generate_report.h"
#include "text/text.h"

namespace morvane::generate {
namespace {

/// A setting that the box cannot hold gives way to its default.
std::string NumberOf(const Settings& store, const SettingKey& key) {
  FilteredBox box{store.Get(key)};
  std::string previous(key.Default);
  FilterNumber(box, previous, GenerateForm::kTypedLimit);
  return box.Text;
}

bool ChangedTheSet(GenerateEnd end) {
  return end == GenerateEnd::kDone || end == GenerateEnd::kCannotGenerate;
}

template <typename Box>
void TakeInto(Box& box, const std::optional<typename Box::value_type>& value) {
  if (value) box = value;
}
void TakeInto(std::string& box, const std::optional<std::string>& value) {
  if (value) box = *value;
}

}  // namespace

GenerateForm::GenerateForm(Program& program, Generator& generator, const history::History& history,
                           std::function<void()> changed)
    : program_(program), generator_(generator), history_(history), changed_(std::move(changed)) {
  const Settings& store = program.Store;
  state_.txtFirstBoard = NumberOf(store, kNewFirstBoard);
  state_.txtLastBoard = NumberOf(store, kNewLastBoard);
  state_.Reject = {store.IsOn(kNewShapes), store.IsOn(kNewInner), store.IsOn(kNewHistory)};
  offered_ = store.Get(kGenerator);
  ShowButtons();
}

void GenerateForm::Open(GenerateFormView& view) {
  view_ = &view;
  view.Show();
  view.Focus(FormControl::kLastBoard);
  view.Focus(FormControl::kFirstBoard);
  view.SelectNumbers();
  state_.Running = true;  // the log's box may come up
  OpenGenerate(program_, generator_);
  state_.Running = false;
  view.ShowBits();
  EnableTimer1big();
}

FilteredBox GenerateForm::ChangeFirstBoard(FilteredBox box) {
  return Change(std::move(box), state_.txtFirstBoard);
}

FilteredBox GenerateForm::ChangeLastBoard(FilteredBox box) {
  return Change(std::move(box), state_.txtLastBoard);
}

FilteredBox GenerateForm::Change(FilteredBox box, std::string& text) {
  if (state_.Running) return {text};
  FilterNumber(box, text, kTypedLimit);
  InputChanged();
  return box;
}

void GenerateForm::ChooseRandom(bool yes) {
  if (state_.Running || yes == state_.generate_yes) return;
  state_.generate_yes = yes;
  ShowButtons();
  InputChanged();
}

void GenerateForm::ChooseTests(RejectionSwitches tests) {
  if (state_.Running) return;
  state_.Reject = tests;
  InputChanged();
}

/// What has been changed is to be generated: Enter does not close over it.
void GenerateForm::InputChanged() {
  state_.Default = GenerateButton();
  if (view_ != nullptr) view_->Show();
}

/// Only `cmdDeal` makes an empty set, whatever the setting offers.
void GenerateForm::ShowButtons() {
  state_.bigdealVisible = state_.generate_yes && offered_ != "1";
  state_.cmdDealVisible = !state_.generate_yes || offered_ != "0";
  state_.Default = GenerateButton();
}

FormControl GenerateForm::GenerateButton() const {
  if (!state_.bigdealVisible) return FormControl::kCmdDeal;
  return state_.cmdDealVisible ? lastPressed_ : FormControl::kBigDeal;
}

void GenerateForm::bigdeal() {
  if (state_.bigdealVisible) Press(FormControl::kBigDeal);
}

void GenerateForm::cmdDeal() {
  if (state_.cmdDealVisible) Press(FormControl::kCmdDeal);
}

void GenerateForm::cmdExit() {
  if (state_.Running || closed_) return;
  Timer1big_.reset();
  closed_ = true;
  if (view_ != nullptr) view_->Close();
}

GenerateRequest GenerateForm::Request() const {
  return {.First = state_.txtFirstBoard,
          .Last = state_.txtLastBoard,
          .Random = state_.generate_yes,
          .Reject = state_.Reject};
}

void GenerateForm::Press(FormControl button) {
  if (state_.Running || closed_ || view_ == nullptr) return;
  state_.Running = true;
  state_.Result.clear();
  Timer1big_.reset();
  view_->Show();
  const auto press = button == FormControl::kBigDeal ? PressBigDeal : PressCmdDeal;
  const GenerateResult result = press(program_, generator_, history_.Ring(), Request(), *this);
  if (ChangedTheSet(result.End)) changed_();
  // What was pressed meanwhile finds everything off.
  program_.Loop.Pump();
  state_.Running = false;
  Take(result, button);
  EnableTimer1big();
}

void GenerateForm::Take(const GenerateResult& result, FormControl button) {
  // An empty set says nothing about the generator for the next deals.
  if (state_.generate_yes) lastPressed_ = button;
  TakeInto(state_.txtShpRejects, result.ShpRejects);
  TakeInto(state_.txtInnRejects, result.InnRejects);
  TakeInto(state_.txtHisRejects, result.HisRejects);
  TakeInto(state_.txtInnSim, result.InnSim);
  TakeInto(state_.txtOuSim, result.OuSim);
  TakeInto(state_.txtOuDeals, result.OuDeals);
  if (result.End != GenerateEnd::kDone) state_.BoardsToMake = 0;
  state_.Result = ReportOf(program_, Request(), result, HistoryIsOn());
  const bool exits = result.Focus == GenerateFocus::kExit;
  state_.Default = exits ? FormControl::kExit : button;
  view_->Show();
  switch (result.Focus) {
    case GenerateFocus::kFirstBoard:
      return view_->Focus(FormControl::kFirstBoard);
    case GenerateFocus::kLastBoard:
      return view_->Focus(FormControl::kLastBoard);
    default:
      return view_->Focus(state_.Default);
  }
}

void GenerateForm::RunStarts() {
  state_.txtShpRejects.reset();
  state_.txtHisRejects.reset();
  state_.txtOuSim.clear();
  state_.txtOuDeals.clear();
  view_->Show();
}

void GenerateForm::BoardsGen(int count) {
  state_.BoardsGen = count;
  state_.BoardsToMake = Val(state_.txtLastBoard) - Val(state_.txtFirstBoard) + 1;
  view_->ShowProgress();
}

void GenerateForm::EnableTimer1big() {
  Timer1big_ = program_.Loop.StartTimer(kTimer1Ms, [this] {
    const Point mouse = view_->Mouse();
    generator_.Pool.SampleMouse(mouse.X, mouse.Y);
    view_->ShowBits();
  });
}

}  // namespace morvane::generate
