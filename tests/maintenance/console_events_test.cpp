#include <array>

#include "maintenance/console_desk.h"

namespace morvane::maintenance {
namespace {

using test::Bytes;
using ::testing::Contains;
using ::testing::IsEmpty;

/// Everything that can come while a frame is on its way.
struct Event {
  const char* Name;
  std::function<void(ConsoleDesk&, Maintenance&)> Do;
  bool Leaves = false;
};

const std::vector<Event> kEvents{
    {"Feed_card", [](auto&, auto& console) { console.Feed_card(); }},
    {"Get_param", [](auto&, auto& console) { console.Get_param(); }},
    {"save_param", [](auto&, auto& console) { console.save_param(); }},
    {"Card_Index_j", [](auto&, auto& console) { console.SelectIndex(1); }},
    {"Test", [](auto&, auto& console) { console.Developer().Test(); }},
    {"Test_write", [](auto&, auto& console) { console.Developer().Test_write(); }},
    {"Capture", [](auto&, auto& console) { console.Bench().Capture(); }},
    {"Reco", [](auto&, auto& console) { console.Bench().Reco(); }},
    {"Showb", [](auto&, auto& console) { console.Bench().Showb(); }},
    {"AutoSetup_command", [](auto&, auto& console) { console.AutoSetup_command(); }},
    {"Picture1", [](auto&, auto& console) { console.Magnify(); }},
    {"Advance", [](auto&, auto& console) { console.Advance(); }},
    {"the close box", [](auto&, auto& console) { console.Exit(); }, true},
};

/// What has the link when they come.
struct Work {
  const char* Name;
  std::function<void(Maintenance&)> Do;
};

const std::vector<Work> kWork{
    {"Feed_card", [](auto& console) { console.Feed_card(); }},
    {"Get_param", [](auto& console) { console.Get_param(); }},
    {"save_param", [](auto& console) { console.save_param(); }},
    {"Card_Index_sm", [](auto& console) { console.SelectIndex(2); }},
    {"Test", [](auto& console) { console.Developer().Test(); }},
    {"Test_write", [](auto& console) { console.Developer().Test_write(); }},
    {"Capture", [](auto& console) { console.Bench().Capture(); }},
    {"Reco", [](auto& console) { console.Bench().Reco(); }},
};

class Events : public ConsoleDesk {
 protected:
  /// Opens anew and does `work`, or the window start without one; all frames that it sends.
  std::size_t FramesOf(const Work* work) {
    OnFrame = nullptr;
    Damage = nullptr;
    if (work == nullptr) {
      Start();
      return bridge.Sent.size();
    }
    Start();
    Begin(*work);
    return bridge.Sent.size();
  }
  void Begin(const Work& work) {
    bridge.Sent.clear();
    desk.Ui.Boxes.clear();
    desk.Ui.Answers = {kYes, kYes};
    work.Do(*console);
  }
  void QuitAt(std::size_t frame) {
    OnFrame = [this, frame](const Bytes&) {
      if (bridge.Sent.size() == frame) desk.Loop.Quit();
    };
  }
  /// After a quit, that the window goes with what was under way, of `frames`, and nothing behind
  /// it.
  void ExpectLeftInPeace(std::size_t frames) {
    EXPECT_TRUE(desk.Loop.Quitting());
    console->Exit();
    EXPECT_TRUE(console->Closed());
    EXPECT_FALSE(machine.Link.IsOpen());
    EXPECT_EQ(bridge.Overlaps, 0);
    EXPECT_EQ(bridge.Sent.size(), frames);
    EXPECT_THAT(bridge.Calls, Contains("WriteLatch 1 0"));
    desk.Loop.Restart();
    OnFrame = nullptr;
  }
};

TEST_F(Events, WhatComesDuringAnExchangeDoesNothingAndTheCloseBoxWaits) {
  for (const Work& work : kWork) {
    const std::size_t frames = FramesOf(&work);
    for (const Event& event : kEvents) {
      for (std::size_t at = 0; at < frames; ++at) {
        SCOPED_TRACE(std::string(event.Name) + " in frame " + std::to_string(at) + " of " +
                     work.Name);
        OnFrame = nullptr;
        Start();
        const int boxes = work.Name == std::string("save_param") ? 2 : 0;
        OnFrame = [&](const Bytes&) {
          if (bridge.Sent.size() == at + 1) event.Do(*this, *console);
        };
        Begin(work);
        EXPECT_EQ(bridge.Sent.size(), frames);
        EXPECT_EQ(bridge.Overlaps, 0);
        EXPECT_EQ(desk.Ui.Boxes.size(), static_cast<std::size_t>(boxes));
        EXPECT_EQ(console->Closed(), event.Leaves);
        EXPECT_EQ(machine.Link.IsOpen(), !event.Leaves);
        EXPECT_FALSE(machine.PollLock);
      }
    }
  }
}

TEST_F(Events, WhatComesDuringTheWindowStartAndThePollDoesNothingToo) {
  constexpr std::size_t kStart = 12;
  for (const Event& event : kEvents) {
    for (std::size_t at = 1; at <= kStart + 6; ++at) {
      SCOPED_TRACE(std::string(event.Name) + " in frame " + std::to_string(at));
      OnFrame = [&](const Bytes&) {
        if (bridge.Sent.size() == at) event.Do(*this, *console);
      };
      Start();
      if (!event.Leaves) Poll();
      if (!console->Closed()) desk.Loop.WaitMs(Maintenance::kPollMs);
      EXPECT_EQ(bridge.Overlaps, 0);
      EXPECT_THAT(desk.Ui.Boxes, IsEmpty());
      EXPECT_EQ(console->Closed(), event.Leaves);
      const std::size_t polls = event.Leaves ? (at > kStart ? 1 : 0) : 2;
      EXPECT_EQ(bridge.Sent.size(), kStart + 6 * polls);
    }
  }
}

TEST_F(Events, TheSettlingOfAWriteLetsEventsThroughAndNoneOfThemSends) {
  for (const Event& event : kEvents) {
    SCOPED_TRACE(event.Name);
    Start();
    const auto timer = desk.Loop.StartTimer(5, [&] {
      if (!console->Closed()) event.Do(*this, *console);
    });
    Begin(kWork[2]);
    EXPECT_EQ(bridge.Overlaps, 0);
    EXPECT_EQ(SubCodes(0x13).size(), 6U);
    EXPECT_EQ(bridge.Sent.size(), 12U) << "what was read back comes behind";
    EXPECT_EQ(console->Closed(), event.Leaves);
  }
}

TEST_F(Events, AProgramThatQuitsDuringAnExchangeLeavesTheMachineInPeace) {
  for (const Work& work : kWork) {
    const std::size_t frames = FramesOf(&work);
    for (std::size_t at = 1; at <= frames; ++at) {
      SCOPED_TRACE(std::string(work.Name) + " in frame " + std::to_string(at));
      OnFrame = nullptr;
      Start();
      QuitAt(at);
      Begin(work);
      ExpectLeftInPeace(frames);
    }
  }
}

TEST_F(Events, AProgramThatQuitsDuringTheWindowStartOrAPollLeavesTheMachineInPeace) {
  constexpr std::size_t kStart = 12;
  for (std::size_t at = 1; at <= kStart + 6; ++at) {
    SCOPED_TRACE(at);
    QuitAt(at);
    Start();
    if (at > kStart) Poll();
    ExpectLeftInPeace(at > kStart ? kStart + 6 : kStart);
  }
}

TEST_F(Events, ALinkLostAtAnyExchangeIsToldOnceAndTheNextWindowWorks) {
  constexpr int kStart = 12;
  for (int target = 1; target < kStart + 6; ++target) {
    SCOPED_TRACE(target);
    desk.Ui.Boxes.clear();
    int frames = 0;
    Damage = [&](const Bytes&, Bytes wire) { return frames++ >= target ? Bytes{} : wire; };
    desk.Store.Set(kCardIndex, "7");  // there is no such card
    Start();
    desk.Loop.WaitMs(5000);
    EXPECT_EQ(bridge.Sent.size(), static_cast<std::size_t>(target) + 2) << "one retry, no more";
    ASSERT_EQ(desk.Ui.Boxes.size(), 1U);
    EXPECT_EQ(desk.Ui.Boxes[0].Text, desk.Prog.Texts.Msg055);
    EXPECT_EQ(desk.Ui.Boxes[0].Title, "Communication Error");
    EXPECT_TRUE(console->Closed());
    EXPECT_FALSE(machine.Link.IsOpen());
    EXPECT_FALSE(machine.PollLock);
    EXPECT_THAT(bridge.Calls, Contains("WriteLatch 1 0"));
    EXPECT_EQ(desk.Store.Get(kCardIndex), "0") << "as when it is left";
    Damage = nullptr;
    Start();
    EXPECT_TRUE(console->Controls().MachineKnown);
    Poll();
    console->Exit();
  }
}

TEST_F(Events, ALinkLostWhileParametersAreWrittenEndsTheUpdateWithoutAnotherWord) {
  const std::size_t frames = FramesOf(&kWork[2]);
  for (std::size_t target = 6; target < frames; ++target) {
    SCOPED_TRACE(target);
    Start();
    Damage = [&](const Bytes&, Bytes wire) { return bridge.Sent.size() > target ? Bytes{} : wire; };
    Begin(kWork[2]);
    ASSERT_EQ(desk.Ui.Boxes.size(), 2U);
    EXPECT_EQ(desk.Ui.Boxes[1].Text, desk.Prog.Texts.Msg055);
    EXPECT_TRUE(console->Closed());
    Damage = nullptr;
  }
}

TEST_F(Events, AReplyThatIsLostOnceIsAskedForAgain) {
  for (int target = 0; target < 18; ++target) {
    SCOPED_TRACE(target);
    int frames = 0;
    Damage = [&](const Bytes&, Bytes wire) { return frames++ == target ? Bytes{} : wire; };
    Start();
    Poll();
    EXPECT_EQ(bridge.Sent.size(), 19U);
    EXPECT_THAT(desk.Ui.Boxes, IsEmpty());
    EXPECT_EQ(console->Parameters().Known(), true);
    EXPECT_NE(console->Console().Now().Inside_temp.Text, "");
    Damage = nullptr;
    console->Exit();
  }
}

}  // namespace
}  // namespace morvane::maintenance
