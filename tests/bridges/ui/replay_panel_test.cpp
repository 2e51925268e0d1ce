#include "bridges/ui/replay_panel.h"

#include <QLabel>
#include <QPlainTextEdit>
#include <QProgressBar>

#include "bridges/trace/replay_bridge.h"
#include "bridges/written_trace.h"
#include "machine/machine.h"
#include "support/qt_desk.h"

namespace morvane::bridges {
namespace {

using test::Short;
using ::testing::HasSubstr;
using ::testing::StartsWith;

class ReplayPanelTest : public ::testing::Test {
 protected:
  test::QtDesk desk;
  std::string path = desk.Folder / "evening.trace";
  std::unique_ptr<ReplayBridge> bridge;
  std::unique_ptr<machine::Machine> machine;
  std::unique_ptr<ReplayPanel> panel;

  /// Opens the panel on time-outs, which have been set, a poll and a question for the version.
  void Open(const TraceHead& head = {"2026-03-03 15:04:05.123", "usb:4711S", 1, false}) {
    WrittenTrace trace(head);
    trace.Add(Operation::kSetTimeouts, {200, 200});
    trace.Poll().Exchange(Short({0x1A}), Short({0x1A, 2, 0x90}));
    test::WriteContent(path, trace.End().Text());
    TraceReader reader;
    ASSERT_EQ(reader.Open(path), std::nullopt);
    bridge = std::make_unique<ReplayBridge>(std::move(reader), desk.Clock);
    machine =
        std::make_unique<machine::Machine>(desk.Random, *bridge, machine::MachineKind::kReplayed);
    machine->Link.UsbHandle = 7;
    machine->Link.SetLinkTimeouts(200);
    panel = std::make_unique<ReplayPanel>(desk.Loop, bridge->Play());
    panel->show();
  }
  void Refresh() { desk.Loop.WaitMs(150); }
  [[nodiscard]] std::string Shown(const char* name) const { return test::TextOf(*panel, name); }
  [[nodiscard]] std::string Trouble() const {
    return test::Find<QPlainTextEdit>(*panel, "txtTrouble").toPlainText().toStdString();
  }
  [[nodiscard]] std::string Bar() const {
    return test::Find<QProgressBar>(*panel, "barPlayed").text().toStdString();
  }
};

TEST_F(ReplayPanelTest, SaysWhichTraceItIs) {
  Open();
  EXPECT_EQ(panel->windowTitle(), "Morvane - Replayed Machine");
  EXPECT_EQ(Shown("lblFile"), "evening.trace");
  EXPECT_EQ(test::Find<QLabel>(*panel, "lblFile").toolTip().toStdString(), path);
  EXPECT_EQ(Shown("lblRecorded"), "2026-03-03 15:04:05.123");
  EXPECT_EQ(Shown("lblMachine"), "usb:4711S");
}

TEST_F(ReplayPanelTest, SaysThatTheHandsAreNotInIt) {
  Open({"2026-03-03 15:04:05.123", "usb", 1, true});
  EXPECT_EQ(Shown("lblRecorded"), "2026-03-03 15:04:05.123, without the hands");
}

TEST_F(ReplayPanelTest, ShowsHowFarItHasBeenPlayed) {
  Open();
  EXPECT_EQ(Shown("lblState"), "Being played");
  EXPECT_EQ(Bar(), "1 of 5");
  EXPECT_FALSE(test::Visible(*panel, "txtTrouble"));
  machine->Exchange(machine->Poll());
  Refresh();
  EXPECT_EQ(Bar(), "3 of 5");
  EXPECT_EQ(test::Find<QPlainTextEdit>(*panel, "txtFrames").toPlainText().toStdString(),
            "CmdStatus -> status: idle, 0 0 0 0");
  machine->VersionProbe();
  Refresh();
  EXPECT_EQ(Bar(), "5 of 5");
  EXPECT_EQ(Shown("lblState"), "Played to its end");
  EXPECT_FALSE(test::Visible(*panel, "txtTrouble"));
}

TEST_F(ReplayPanelTest, ADifferenceIsToldInWordsThatCanBeCopied) {
  Open();
  machine->Exchange(wire::IdentityCommand{});
  Refresh();
  EXPECT_EQ(Shown("lblState"), "Stopped: the program does something else");
  EXPECT_TRUE(test::Visible(*panel, "txtTrouble"));
  EXPECT_THAT(Trouble(), HasSubstr("The trace: CmdVersion: 1A"));
  EXPECT_THAT(Trouble(), HasSubstr("The program: CmdIdentity page 1: 12 01"));
  const auto& trouble = test::Find<QPlainTextEdit>(*panel, "txtTrouble");
  EXPECT_EQ(trouble.lineWrapMode(), QPlainTextEdit::WidgetWidth);
  EXPECT_TRUE(trouble.textInteractionFlags().testFlag(Qt::TextSelectableByMouse));
}

TEST_F(ReplayPanelTest, TheEndIsToldWhenMoreIsAsked) {
  Open();
  machine->Exchange(machine->Poll());
  machine->VersionProbe();
  machine->VersionProbe();
  Refresh();
  EXPECT_EQ(Shown("lblState"), "Stopped: the trace is at its end");
  EXPECT_THAT(Trouble(), StartsWith("The trace ends here"));
}

TEST_F(ReplayPanelTest, WhatHasBeenSelectedStaysSo) {
  Open();
  machine->Exchange(wire::IdentityCommand{});
  Refresh();
  auto& trouble = test::Find<QPlainTextEdit>(*panel, "txtTrouble");
  trouble.selectAll();
  Refresh();
  EXPECT_TRUE(trouble.textCursor().hasSelection());
}

TEST_F(ReplayPanelTest, ItDoesNotGrowWithWhatItSays) {
  Open();
  const int before = panel->sizeHint().width();
  machine->Exchange(wire::IdentityCommand{});
  Refresh();
  EXPECT_EQ(panel->sizeHint().width(), before);
}

TEST_F(ReplayPanelTest, ItStaysAsLongAsTheProgram) {
  Open();
  panel->close();
  EXPECT_TRUE(panel->isVisible());
}

}  // namespace
}  // namespace morvane::bridges
