#pragma once

#include <optional>
#include <string>
#include <vector>

#include "maintenance/advance_form.h"
#include "maintenance/paper_record.h"
#include "maintenance/service_desk.h"

namespace morvane::maintenance {

class NotedAdvance final : public AdvanceView {
 public:
  int Shows = 0;
  void ShowAll() override { ++Shows; }
};

/// The form over a record on paper, opened.
class AdvanceDesk : public ServiceDesk {
 protected:
  PaperRecord paper;
  NotedAdvance view;
  std::optional<ServiceLink> way;  ///< of the form; a lost one stays lost
  std::optional<AdvanceForm> form;

  void SetUp() override {
    ServiceDesk::SetUp();
    paper.Counters[0] = 70'000;
    bridge.Answer = [this](const test::Bytes& plain) {
      if (OnFrame) OnFrame(plain);
      if (Deaf && Deaf(plain)) return test::Bytes{};
      const test::Bytes reply = paper.ReplyTo(plain);
      return reply.empty() ? reply : test::OnTheWire(reply, 21);
    };
  }
  void Make(bool machineKnown) {
    recoveries = 0;
    form.reset();
    way.emplace(desk.Prog, machine, [this] { ++recoveries; });
    form.emplace(desk.Prog, *way, machineKnown);
  }
  void Open(bool machineKnown = true) {
    Make(machineKnown);
    form->Open(view);
    bridge.Sent.clear();
  }
  static void Type(ValueBox& box, const std::string& text) {
    FilteredBox shown{text, static_cast<int>(text.size())};
    box.Change(shown);
  }
  void TypeDay(const std::string& day, const std::string& month, const std::string& year) {
    Type(form->Adv_Day, day);
    Type(form->Adv_month, month);
    Type(form->Adv_Year, year);
  }
  [[nodiscard]] std::string Words() const {
    return desk.Ui.Boxes.empty() ? "" : desk.Ui.Boxes.back().Text;
  }
  [[nodiscard]] std::vector<int> Codes() const {
    std::vector<int> codes;
    for (const test::Bytes& frame : bridge.Sent) codes.push_back(frame[0]);
    return codes;
  }
  void ExpectBox(const std::string& text, int flags) const {
    ASSERT_THAT(desk.Ui.Boxes, ::testing::SizeIs(1));
    EXPECT_EQ(desk.Ui.Boxes[0], (test::FakeUi::Box{text, flags, "Advance_Maintenance"}));
  }
};

}  // namespace morvane::maintenance
