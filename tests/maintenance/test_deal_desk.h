#pragma once

#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "maintenance/paper_deck.h"
#include "maintenance/service_desk.h"
#include "maintenance/test_deal.h"

namespace morvane::maintenance {

/// One test deal at a machine on paper.
class TestDealDesk : public ServiceDesk {
 protected:
  struct NotedView final : TestDealView {
    std::function<void()> OnShow;
    std::function<void(machine::ErrorDialog&)> OnError;
    int Errors = 0;
    void ShowState() override {
      if (OnShow) OnShow();
    }
    void ShowError(machine::ErrorDialog& dialog) override {
      ++Errors;
      dialog.Open([] {});
      if (OnError) OnError(dialog);
    }
  };

  NotedView view;
  PaperDeck deck;
  bool leaving = false;
  machine::CardSettings cards;
  TestDealTotals before;
  std::optional<TestDeal> deal;
  /// Frames of that code, counted from 1, are not answered.
  std::function<bool(int code, int nth)> Silent;

  void SetUp() override {
    ServiceDesk::SetUp();
    RuntimeError error;
    ASSERT_TRUE(desk.Prog.Log.Start(desk.Folder.Path(), error));
    machine.PollLock = true;  // whoever runs it has the link
    Damage = [this](const test::Bytes& plain, const test::Bytes& wire) {
      if (Silent && Silent(plain[0], Heard(plain[0]))) return test::Bytes{};
      const test::Bytes reply = deck.ReplyTo(plain);
      return reply.empty() ? wire : reply;
    };
  }
  TestDeal::End Run(std::deque<PaperDeck::Status> plan) {
    deck.Plan = std::move(plan);
    bridge.Sent.clear();
    deal.emplace(desk.Prog, link, machine, cards, before, [this] { return leaving; });
    deal->Run(view);
    return deal->Result();
  }
  /// How many frames of that code have been sent.
  [[nodiscard]] int Heard(int code) const {
    return static_cast<int>(std::count_if(bridge.Sent.begin(), bridge.Sent.end(),
                                          [&](const auto& frame) { return frame[0] == code; }));
  }
  /// Does `event` when that many status frames have been answered.
  void AtPoll(int polls, const std::function<void()>& event) {
    view.OnShow = [this, polls, event] {
      if (Heard(0x19) == polls) event();
    };
  }
  /// Bit 0 of each status frame.
  [[nodiscard]] std::vector<int> Breaks() const {
    std::vector<int> breaks;
    for (const int byte : SubCodes(0x19)) breaks.push_back(byte & 1);
    return breaks;
  }
  /// What the log has of test deals.
  [[nodiscard]] std::vector<std::string> LogTexts() const {
    std::vector<std::string> lines;
    for (const std::string& line : desk.LogLines()) {
      if (line.starts_with("   Test Deal")) lines.push_back(line);
    }
    return lines;
  }
};

}  // namespace morvane::maintenance
