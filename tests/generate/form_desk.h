#pragma once

#include <optional>
#include <string>
#include <vector>

#include "generate/generate_desk.h"
#include "generate/generate_form.h"

namespace morvane::generate {

/// A window that notes what it is told.
class FakeFormView final : public GenerateFormView {
 public:
  explicit FakeFormView(const GenerateForm& form) : form_(form) {}
  [[nodiscard]] Point Mouse() const override { return MouseNow; }
  void Show() override { Showed.push_back(form_.State()); }
  void ShowProgress() override { Progress.push_back(form_.State().BoardsGen); }
  void ShowBits() override { Bits = form_.Bits(); }
  void Focus(FormControl control) override {
    EXPECT_FALSE(form_.State().Running) << "a control that is off takes no focus";
    Focused.push_back(control);
  }
  void SelectNumbers() override { SelectedBehind = Focused.size(); }
  void Close() override { ++Closes; }

  Point MouseNow;
  std::vector<GenerateFormState> Showed;
  std::vector<int> Progress;
  int Bits = -1;
  std::vector<FormControl> Focused;
  std::size_t SelectedBehind = 0;
  int Closes = 0;

 private:
  const GenerateForm& form_;
};

struct FormDesk : GenerateDesk {
  void Open() {
    Form.emplace(Prog, Gen, History, [this] { ++Generated; });
    Window.emplace(*Form);
    Form->Open(*Window);
    Window->Focused.clear();
  }
  void Range(const std::string& first, const std::string& last) {
    Form->ChangeFirstBoard({first, 0});
    Form->ChangeLastBoard({last, 0});
  }
  [[nodiscard]] const GenerateFormState& Now() const { return Form->State(); }
  [[nodiscard]] FormControl Focus() const { return Window->Focused.back(); }
  /// Everything that the window could be asked to do; the buttons last.
  void PressEverything() {
    Form->ChangeFirstBoard({"77", 2});
    Form->ChangeLastBoard({"78", 2});
    Form->ChooseRandom(false);
    Form->ChooseTests({true, false, false});
    Form->bigdeal();
    Form->cmdDeal();
    Form->cmdExit();
  }

  int Generated = 0;
  std::optional<GenerateForm> Form;
  std::optional<FakeFormView> Window;
};

}  // namespace morvane::generate
