#include "machine/run_fixture.h"

namespace morvane::machine {
namespace {

using ::testing::HasSubstr;
using ::testing::IsEmpty;

constexpr std::uint8_t kBothBits = 0x0C;       // reader and jumbo cards
constexpr std::uint8_t kWithoutReader = 0x08;  // bit 2 is clear
constexpr std::uint8_t kWithoutJumbo = 0x04;   // bit 3 is clear

/// A feature as its control asks for it, the setting behind it, and the byte of its gate.
struct Feature {
  const char* Name;
  std::uint8_t Minor;
  bool MajorTwoOnly;
  const char* Text;
  std::function<void(DealingRun&)> Ask;
  SettingKey Key;
  const char* Granted;
  const char* Refused;
};

void AskCheck(DealingRun& run) { run.Change(&RunOptions::SetCheck_board, true); }
void AskLarge(DealingRun& run) {
  run.Change(&RunOptions::SetCardIndex, int{CardSettings::kLargeIndex});
}
void AskSmall(DealingRun& run) {
  run.Change(&RunOptions::SetCardIndex, int{CardSettings::kSmallIndex});
}

const std::vector<Feature> kClicked{
    {"Check_board", 0x3A, false,
     "Using Board Number Check requires Firmware version 2.70 or later.", AskCheck, kCheckBoard,
     "1", "0"},
    {"Card_Index_j", 0x40, true,
     "Using cards with Large Index requires Firmware version 2.40 or later.", AskLarge, kCardIndex,
     "1", "0"},
    {"Card_Index_sm", 0x66, true,
     "Using cards with Small Index requires Firmware version 2.66 or later.", AskSmall, kCardIndex,
     "2", "0"}};

struct Silent {
  const char* Name;
  std::uint8_t Minor;
  bool MajorTwoOnly;
  std::uint8_t MissingBit;  ///< hardware that lacks what it needs
  SettingKey Key;
};

const std::vector<Silent> kSilent{{"Check_board", 0x40, false, kWithoutReader, kCheckBoard},
                                  {"Card_Index_j", 0x40, true, kWithoutJumbo, kCardIndex}};

struct Start {
  int National;
  std::uint8_t Minor;
  const char* Text;
};

const std::vector<Start> kStarts{
    {CardSettings::kFrench, 0x27,
     "Settings for National cards other than the standard requires Firmware version 2.27 or "
     "later."},
    {CardSettings::kFrenchOne, 0x27, "requires Firmware version 2.27 or later."},
    {CardSettings::kGerman, 0x27, "requires Firmware version 2.27 or later."},
    {CardSettings::kDutch, 0x27, "requires Firmware version 2.27 or later."},
    {CardSettings::kDanish, 0x32, "Using Danish cards requires Firmware version 2.32 or later."},
    {CardSettings::kSwedish, 0x90, "Using Swedish cards requires Firmware version 2.90 or later."}};

struct Firmware {
  std::uint8_t Major;
  std::uint8_t Minor;
};

/// The versions about a gate, and whether each is past it.
std::vector<std::pair<Firmware, bool>> About(std::uint8_t minor, bool majorTwoOnly) {
  return {{{1, 0x99}, majorTwoOnly}, {{1, 0x00}, majorTwoOnly},
          {{2, 0x00}, false},        {{2, static_cast<std::uint8_t>(minor - 1)}, false},
          {{2, minor}, true},        {{2, 0x99}, true},
          {{3, 0x00}, true}};
}

/// Each test opens the run window many times, on a machine of another version.
class GateEdges : public RunFixture {
 protected:
  struct Window {
    explicit Window(GateEdges& test)
        : View(test.desk), Run(test.desk.Prog, test.machine, Memory), Test(test) {
      test.machine.Link.UsbHandle = 7;
      test.desk.Ui.Boxes.clear();
      Run.Open(View);
      test.desk.Loop.WaitMs(DealingRun::kFirstContactMs);
      test.bridge.Sent.clear();
    }
    ~Window() { Run.Exit(); }
    RunMemory Memory;
    RecordingView View;
    DealingRun Run;
    GateEdges& Test;
  };

  void Load(const Firmware& firmware, std::uint8_t hardware = kBothBits) {
    paper.Major = firmware.Major;
    paper.Minor = firmware.Minor;
    paper.Hardware = hardware;
  }
  static std::string Named(const char* name, const Firmware& firmware) {
    return std::string(name) + " at " + std::to_string(firmware.Major) + "." +
           std::to_string(firmware.Minor);
  }
};

TEST_F(GateEdges, AClickIsGrantedFromItsByteOnAndOtherwiseRefusedInItsWords) {
  for (const Feature& feature : kClicked) {
    for (const auto& [firmware, granted] : About(feature.Minor, feature.MajorTwoOnly)) {
      SCOPED_TRACE(Named(feature.Name, firmware));
      desk.Store.Set(feature.Key, "0");
      Load(firmware);
      Window window(*this);
      feature.Ask(window.Run);
      EXPECT_EQ(desk.Store.Get(feature.Key), granted ? feature.Granted : feature.Refused);
      EXPECT_EQ(LastBox().empty(), granted);
      EXPECT_THAT(LastBox(), HasSubstr(granted ? "" : feature.Text));
    }
  }
}

TEST_F(GateEdges, AtOpeningItIsClearedWithoutAWordAndThatIsStored) {
  for (const Silent& option : kSilent) {
    for (const auto& [firmware, kept] : About(option.Minor, option.MajorTwoOnly)) {
      SCOPED_TRACE(Named(option.Name, firmware));
      desk.Store.Set(option.Key, "1");
      Load(firmware);
      const Window window(*this);
      EXPECT_EQ(desk.Store.Get(option.Key), kept ? "1" : "0");
      EXPECT_THAT(desk.Ui.Boxes, IsEmpty());
    }
  }
}

TEST_F(GateEdges, ACheckThatAClickGrantsMayGoAtTheNextOpening) {
  Load({2, 0x3A});  // the two gates of one option differ
  {
    Window window(*this);
    AskCheck(window.Run);
    EXPECT_EQ(desk.Store.Get(kCheckBoard), "1");
  }
  const Window again(*this);
  EXPECT_EQ(desk.Store.Get(kCheckBoard), "0");
}

TEST_F(GateEdges, ASmallIndexIsNotLookedAtWhenTheWindowOpens) {
  desk.Store.Set(kCardIndex, "2");
  Load({2, 0x00}, 0);
  const Window window(*this);
  EXPECT_EQ(desk.Store.Get(kCardIndex), "2");
  EXPECT_THAT(desk.Ui.Boxes, IsEmpty());
}

TEST_F(GateEdges, EachHardwareBitIsNeededByItsOwnOption) {
  const auto stored = [this](std::uint8_t hardware) {
    desk.Store.Set(kCheckBoard, "1");
    desk.Store.Set(kCardIndex, "1");
    Load({3, 0}, hardware);
    const Window window(*this);
    EXPECT_THAT(desk.Ui.Boxes, IsEmpty());
    return desk.Store.Get(kCheckBoard) + desk.Store.Get(kCardIndex);
  };
  EXPECT_EQ(stored(kBothBits), "11");
  EXPECT_EQ(stored(kWithoutReader), "01");
  EXPECT_EQ(stored(kWithoutJumbo), "10");
  EXPECT_EQ(stored(0xF3), "00") << "all bits but these";
}

TEST_F(GateEdges, AClickTellsTheMissingHardware) {
  Load({3, 0}, kWithoutReader);
  {
    Window window(*this);
    AskCheck(window.Run);
    EXPECT_THAT(LastBox(),
                HasSubstr("Your Morvane machine is not equipped with a Board Number Reader."));
    EXPECT_EQ(desk.Store.Get(kCheckBoard), "0");
    AskLarge(window.Run);
    EXPECT_EQ(desk.Store.Get(kCardIndex), "1") << "that needs another bit";
  }
  Load({3, 0}, kWithoutJumbo);
  Window window(*this);
  AskLarge(window.Run);
  EXPECT_THAT(LastBox(), HasSubstr("not suitable to deal Large Indexed (Jumbo) cards."));
  EXPECT_THAT(LastBox(), HasSubstr("This setting cannot be selected"));
  EXPECT_EQ(desk.Store.Get(kCardIndex), "0");
  AskCheck(window.Run);
  EXPECT_EQ(desk.Store.Get(kCheckBoard), "1");
}

TEST_F(GateEdges, NationalCardsAreDealtFromTheirByteOnAndOtherwiseNothingIsSent) {
  for (const Start& start : kStarts) {
    for (const auto& [firmware, granted] : About(start.Minor, false)) {
      SCOPED_TRACE(Named(start.Text, firmware));
      desk.Store.Set(kNational, std::to_string(start.National));
      Load(firmware);
      Window window(*this);
      const RunControls before = window.Run.Window().Controls;
      window.Run.cmdDeal();
      EXPECT_EQ(SentOf(0x98).size(), granted ? 1U : 0U);
      if (granted) continue;
      EXPECT_THAT(bridge.Sent, IsEmpty());
      EXPECT_EQ(desk.Ui.Boxes.back().Title, "Dealing Error");
      // Below the first gate it is the first one's words for every country.
      const bool first = firmware.Major < 2 || firmware.Minor < 0x27;
      EXPECT_THAT(LastBox(), HasSubstr(first ? kStarts[0].Text : start.Text));
      EXPECT_EQ(window.Run.Window().Controls.cmdDeal, before.cmdDeal);
      EXPECT_EQ(desk.Store.Get(kNational), std::to_string(start.National)) << "the choice stays";
    }
  }
}

TEST_F(GateEdges, StandardCardsNeedNoFirmware) {
  for (const Firmware& firmware : {Firmware{1, 0}, {2, 0}}) {
    Load(firmware);
    Window window(*this);
    window.Run.cmdDeal();
    EXPECT_EQ(LastLine(), "  001 : 1,0 0,0,0,0 OK");
  }
}

TEST_F(GateEdges, EachTextTellsTheFirmwareThatIsThere) {
  Load({1, 0x99});
  Window window(*this);
  AskCheck(window.Run);
  EXPECT_THAT(LastBox(), HasSubstr("Current Firmware version is 1.99"));
}

}  // namespace
}  // namespace morvane::machine
