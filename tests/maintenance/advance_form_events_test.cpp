#include "maintenance/advance_desk.h"

// What comes while the factory's form is at work: a lost link, clicks, the close box, the end.

namespace morvane::maintenance {
namespace {

using test::Bytes;
using ::testing::IsEmpty;
using ::testing::SizeIs;

struct Work {
  const char* Name;
  std::function<bool(AdvanceForm&)> Do;
  std::size_t Asked;   ///< questions
  std::size_t Frames;  ///< that it sends
  std::size_t Told;    ///< boxes behind them
};
const std::vector<Work> kWork{
    {"Update", [](AdvanceForm& form) { return form.Update(); }, 0, 4, 1},
    {"Clear_boards", [](AdvanceForm& form) { return form.Clear_boards(); }, 1, 2, 0},
    {"ErrorClear", [](AdvanceForm& form) { return form.ErrorClear(); }, 1, 5, 1},
};

class FormEvents : public AdvanceDesk {
 protected:
  void Begin() {
    Deaf = nullptr;
    OnFrame = nullptr;
    paper = PaperRecord();
    Open();
    desk.Ui.Boxes.clear();
    desk.Ui.Answers.assign(1, kYes);
  }
  /// The machine hears nothing any more from this frame on, counted from 0.
  void SilentFrom(std::size_t frame) {
    Deaf = [this, frame](const Bytes&) { return bridge.Sent.size() > frame; };
  }
};

TEST_F(FormEvents, ALinkLostAtAnyExchangeOfTheOpeningIsToldOnceAndClosesIt) {
  for (std::size_t frame = 0; frame < 4; ++frame) {
    SCOPED_TRACE(frame);
    desk.Ui.Boxes.clear();
    bridge.Sent.clear();
    Make(true);
    SilentFrom(frame);
    form->Open(view);
    EXPECT_EQ(bridge.Sent.size(), frame + 2) << "one retry, no more";
    ASSERT_THAT(desk.Ui.Boxes, SizeIs(1));
    EXPECT_EQ(desk.Ui.Boxes[0].Text, desk.Prog.Texts.Msg055);
    EXPECT_EQ(desk.Ui.Boxes[0].Title, "Communication Error");
    EXPECT_EQ(recoveries, 1);
    EXPECT_FALSE(form->Known());
    EXPECT_TRUE(form->Closed());
  }
}

TEST_F(FormEvents, ALinkLostAtAnyExchangeOfAButtonIsToldOnceAndClosesIt) {
  for (const Work& work : kWork) {
    for (std::size_t frame = 0; frame < work.Frames; ++frame) {
      SCOPED_TRACE(std::string(work.Name) + " at frame " + std::to_string(frame));
      Begin();
      SilentFrom(frame);
      // The boards' number has no answer: its loss shows at the next frame.
      const bool unanswered = work.Name == std::string("Clear_boards") && frame == 0;
      EXPECT_FALSE(work.Do(*form));
      EXPECT_EQ(bridge.Sent.size(), frame + (unanswered ? 3 : 2));
      ASSERT_FALSE(desk.Ui.Boxes.empty());
      EXPECT_EQ(desk.Ui.Boxes.back().Text, desk.Prog.Texts.Msg055);
      EXPECT_EQ(recoveries, 1);
      EXPECT_TRUE(form->Closed());
      const std::size_t sent = bridge.Sent.size();
      for (const Work& other : kWork) EXPECT_FALSE(other.Do(*form));
      EXPECT_EQ(bridge.Sent.size(), sent) << "nothing more is tried";
    }
  }
}

TEST_F(FormEvents, ARecordLostBetweenEraseAndWriteIsNeverCalledUpdated) {
  Begin();
  SilentFrom(1);
  EXPECT_FALSE(form->Update());
  ASSERT_THAT(desk.Ui.Boxes, SizeIs(1));
  EXPECT_EQ(desk.Ui.Boxes[0].Text, desk.Prog.Texts.Msg055);
}

TEST_F(FormEvents, AReplyThatIsLostOnceIsAskedForAgain) {
  for (const Work& work : kWork) {
    if (work.Name == std::string("Clear_boards")) continue;  // its first frame has none
    for (std::size_t frame = 0; frame < work.Frames; ++frame) {
      SCOPED_TRACE(std::string(work.Name) + " at frame " + std::to_string(frame));
      Begin();
      Deaf = [this, frame](const Bytes&) { return bridge.Sent.size() == frame + 1; };
      EXPECT_TRUE(work.Do(*form));
      EXPECT_EQ(bridge.Sent.size(), work.Frames + 1);
      EXPECT_THAT(desk.Ui.Boxes, SizeIs(work.Asked + work.Told));
    }
  }
}

TEST_F(FormEvents, WhatComesWhileAButtonIsAtWorkDoesNothingAndTheCloseBoxWaits) {
  for (const Work& work : kWork) {
    for (std::size_t frame = 1; frame <= work.Frames; ++frame) {
      for (const bool leaves : {false, true}) {
        SCOPED_TRACE(std::string(work.Name) + " in frame " + std::to_string(frame));
        Begin();
        OnFrame = [&](const Bytes&) {
          if (bridge.Sent.size() != frame) return;
          for (const Work& other : kWork) EXPECT_FALSE(other.Do(*form));
          if (leaves) form->Close();
          EXPECT_FALSE(form->Closed());
        };
        EXPECT_TRUE(work.Do(*form));
        EXPECT_EQ(bridge.Sent.size(), work.Frames);
        EXPECT_EQ(bridge.Overlaps, 0);
        EXPECT_THAT(desk.Ui.Boxes, SizeIs(work.Asked + work.Told));
        EXPECT_EQ(form->Closed(), leaves);
      }
    }
  }
}

TEST_F(FormEvents, WhatComesInAWaitOfTheOpeningDoesNothingAndTheCloseBoxWaits) {
  Make(true);
  int waits = 0;
  desk.Loop.After(5, [&] {
    ++waits;
    for (const Work& work : kWork) EXPECT_FALSE(work.Do(*form));
    form->Close();
    EXPECT_FALSE(form->Closed());
  });
  bridge.Sent.clear();
  form->Open(view);
  EXPECT_EQ(waits, 1);
  EXPECT_EQ(bridge.Sent.size(), 4U);
  EXPECT_THAT(desk.Ui.Boxes, IsEmpty());
  EXPECT_TRUE(form->Closed());
}

TEST_F(FormEvents, AProgramThatQuitsBetweenEraseAndWriteStillWritesTheRecord) {
  Begin();
  OnFrame = [this](const Bytes&) {
    if (bridge.Sent.size() == 1) desk.Loop.Quit();
  };
  EXPECT_TRUE(form->Update());
  EXPECT_EQ(paper.Block, PaperRecord().Block) << "and no erased one is left behind";
}

TEST_F(FormEvents, AFormThatIsClosedDoesNothing) {
  Begin();
  form->Close();
  EXPECT_TRUE(form->Closed());
  for (const Work& work : kWork) EXPECT_FALSE(work.Do(*form));
  EXPECT_THAT(bridge.Sent, IsEmpty());
}

}  // namespace
}  // namespace morvane::maintenance
