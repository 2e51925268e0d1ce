// What `Generate` shows, and how it is worked.

#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <filesystem>
#include <set>

#include "generate/fingerprint.h"
#include "generate/ui/generate_window_desk.h"
#include "platform/qt/readable_colour.h"

namespace morvane::generate {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::Not;

bool Checked(const QWidget& window, const char* name) {
  return test::Find<QAbstractButton>(window, name).isChecked();
}

std::string ResultOf(const QWidget& window) {
  return test::Find<QPlainTextEdit>(window, "Result").toPlainText().toStdString();
}

TEST_F(GenerateWindowTest, ShowsItsCaptionsAndTheSettings) {
  desk.Store.Set(kNewFirstBoard, "5");
  Open([this](QWidget& window) {
    EXPECT_EQ(window.windowTitle(), "Generate New Boards Set");
    EXPECT_EQ(window.windowModality(), Qt::WindowModal);
    EXPECT_EQ(test::TextOf(*menu, "Panel1"), "Generate");
    for (const auto& [name, caption] : {std::pair("generate_yes", "Generate Random Boards"),
                                        {"generate_no", "Leave Boards Empty"},
                                        {"bigdeal", "&Generate Boards using BigDeal"},
                                        {"cmdDeal", "&Generate Boards using Morvane generator"},
                                        {"cmdExit", "E&xit"},
                                        {"Reject_shape", "Reject Odd Shapes"},
                                        {"Reject_inner", "Check Inner Similarity"},
                                        {"Reject_history", "Check History File"},
                                        {"txtFirstBoard", "5"},
                                        {"txtLastBoard", "32"},
                                        {"BoardsGen", ""}}) {
      EXPECT_EQ(Text(window, name), caption) << name;
    }
    for (const auto& [name, title] : {std::pair("FrameShp", "Shape Reject "),
                                      {"FrameInn", "Inner Similarity Reject"},
                                      {"FrameHis", "History Reject"}}) {
      EXPECT_EQ(test::Find<QGroupBox>(window, name).title(), title);
    }
    EXPECT_TRUE(Checked(window, "generate_yes"));
    EXPECT_FALSE(Checked(window, "Reject_shape"));
    EXPECT_TRUE(Checked(window, "Reject_inner"));
    EXPECT_TRUE(Checked(window, "Reject_history"));
  });
}

TEST_F(GenerateWindowTest, ComesUpWithBothNumbersSelectedAndTheFirstToBeTypedOver) {
  Open([](QWidget& window) {
    EXPECT_EQ(Focus(window), "txtFirstBoard");
    EXPECT_EQ(test::Find<QLineEdit>(window, "txtFirstBoard").selectedText(), "1");
    EXPECT_EQ(test::Find<QLineEdit>(window, "txtLastBoard").selectedText(), "32");
    test::Type(window, "7");
    EXPECT_EQ(Text(window, "txtFirstBoard"), "7");
    test::Press(window, Qt::Key_Tab);
    test::Type(window, "1000x");
    EXPECT_EQ(Text(window, "txtLastBoard"), "100") << "no more than 999, and digits only";
  });
}

TEST_F(GenerateWindowTest, SaysInWordsWhatTheTestsAndTheGeneratorsDo) {
  Open([](QWidget& window) {
    std::string all;
    for (const auto* label : window.findChildren<QLabel*>()) {
      if (label->isVisible()) all += label->text().toStdString() + "\n";
    }
    for (const char* words : {"shape", "same 13 cards", "saved or loaded", "equally likely",
                              "riffles", "mouse", "replaces the current Board Set"}) {
      EXPECT_THAT(all, HasSubstr(words));
    }
    EXPECT_THAT(all, Not(HasSubstr("history is off")));
  });
}

TEST_F(GenerateWindowTest, TheWordsAreSpokenWithTheirControls) {
  const auto spoken = [](const QWidget& window, const char* name) {
    return test::Find<QWidget>(window, name).accessibleDescription().toStdString();
  };
  Open([&](QWidget& window) {
    for (const auto& [name, words] : {std::pair("Reject_shape", "hand shape"),
                                      {"Reject_inner", "another board of the set"},
                                      {"Reject_history", "saved or loaded"},
                                      {"bigdeal", "equally likely"},
                                      {"cmdDeal", "riffles"}}) {
      EXPECT_THAT(spoken(window, name), HasSubstr(words));
    }
    test::Click(window, "generate_no");
    EXPECT_THAT(spoken(window, "cmdDeal"), HasSubstr("no cards"));
  });
}

TEST_F(GenerateWindowTest, CountersOfFiveDigitsFitLargeLettersToo) {
  const QFont before = QApplication::font();
  QFont large = before;
  large.setPointSizeF(2 * before.pointSizeF());
  QApplication::setFont(large);
  Open([](QWidget& window) {
    for (const char* name : {"txtShpRejects", "txtInnRejects", "txtHisRejects"}) {
      auto& box = test::Find<QLineEdit>(window, name);
      const int frame = box.width() - box.contentsRect().width();
      EXPECT_GE(box.width(), box.fontMetrics().horizontalAdvance("31360") + frame) << name;
    }
  });
  QApplication::setFont(before);
}

TEST_F(GenerateWindowTest, SaysWhetherWhatItReplacesIsUnsaved) {
  const std::string saved =
      "Generating replaces the current Board Set and empties the event texts.";
  const std::string unsaved =
      "Generating replaces the unsaved Board Set and empties the event texts.";
  Open([&](QWidget& window) {
    EXPECT_EQ(Text(window, "lblReplaces"), saved) << "there is none";
    test::Click(window, "bigdeal");
    EXPECT_EQ(Text(window, "lblReplaces"), unsaved);
  });
  desk.Prog.Set.MarkSaved();
  Open([&](QWidget& window) { EXPECT_EQ(Text(window, "lblReplaces"), saved); });
  desk.Prog.Set.Edited = true;  // no question is asked about edits
  Open([&](QWidget& window) { EXPECT_EQ(Text(window, "lblReplaces"), unsaved); });
}

TEST_F(GenerateWindowTest, ClaimsNoProofWhereTheLogIsOff) {
  Open([this](QWidget& window) {
    EXPECT_THAT(Text(window, "lblBigDeal"), HasSubstr("The log keeps what proves the set later."));
    const std::string log = desk.Prog.Log.Path();
    std::filesystem::remove(log);
    std::filesystem::create_directory(log);
    desk.AnswerBox(QMessageBox::Ok);
    test::Click(window, "bigdeal");
    EXPECT_EQ(desk.Boxes.at(0).Title, "Log Write Error");
    EXPECT_THAT(Text(window, "lblBigDeal"), HasSubstr("nothing will prove the set later"));
    EXPECT_THAT(ResultOf(window), HasSubstr("not on record"));
  });
}

TEST_F(GenerateWindowTest, SaysThatAHistoryThatIsOffComparesWithNothing) {
  Start();
  const history::History off;
  GenerateForm form(desk.Prog, shell.Deals(), off, [] {});
  desk.When("Generate", [](QWidget& window) {
    bool told = false;
    for (const auto* label : window.findChildren<QLabel*>()) {
      told = told || label->text().contains("The history is off");
    }
    EXPECT_TRUE(told);
    test::Click(window, "bigdeal");
    EXPECT_EQ(Text(window, "txtHisRejects"), "0");
    EXPECT_EQ(Text(window, "txtHisRejects_sign"), "\xE2\x96\xB2 off") << "not good";
    EXPECT_EQ(Text(window, "txtInnRejects_sign"), "\xE2\x9C\x93 good");
    EXPECT_THAT(ResultOf(window), HasSubstr("nothing was compared"));
    window.close();
  });
  windows.ShowGenerate(form);
}

TEST_F(GenerateWindowTest, TheGeneratorSettingDecidesWhichButtonsAreShown) {
  for (const auto& [setting, bigdeal, cmdDeal] :
       {std::tuple("0", true, false), std::tuple("1", false, true), std::tuple("2", true, true)}) {
    desk.Store.Set(kGenerator, setting);
    Open([&, bigdeal = bigdeal, cmdDeal = cmdDeal](QWidget& window) {
      EXPECT_EQ(test::Visible(window, "bigdeal"), bigdeal);
      EXPECT_EQ(test::Visible(window, "cmdDeal"), cmdDeal);
      EXPECT_EQ(test::Visible(window, "lblBigDeal"), bigdeal) << "its words go with it";
      EXPECT_EQ(test::Visible(window, "lblMorvane"), cmdDeal);
    });
  }
}

TEST_F(GenerateWindowTest, EmptyBoardsNeedNoTestsAndOneButton) {
  desk.Store.Set(kGenerator, "0");
  Open([this](QWidget& window) {
    const QPoint before = test::Find<QWidget>(window, "Result").mapTo(&window, QPoint());
    test::Click(window, "generate_no");
    desk.Loop.Pump();
    for (const char* name : {"FrameShp", "FrameInn", "FrameHis", "bigdeal"}) {
      EXPECT_FALSE(test::Visible(window, name)) << name;
    }
    EXPECT_TRUE(test::Visible(window, "cmdDeal"));
    EXPECT_EQ(Text(window, "cmdDeal"), "&Generate Empty Board Set");
    EXPECT_THAT(Text(window, "lblMorvane"), HasSubstr("no cards"));
    EXPECT_EQ(test::Find<QWidget>(window, "Result").mapTo(&window, QPoint()), before);
    test::Click(window, "generate_yes");
    desk.Loop.Pump();
    for (const char* name : {"FrameShp", "FrameInn", "FrameHis", "bigdeal"}) {
      EXPECT_TRUE(test::Visible(window, name)) << name;
    }
    EXPECT_FALSE(test::Visible(window, "cmdDeal"));
    EXPECT_EQ(test::Find<QWidget>(window, "Result").mapTo(&window, QPoint()), before);
  });
}

TEST_F(GenerateWindowTest, EachCheckBoxShowsAndHidesTheResultsOfItsFrame) {
  const std::vector<std::pair<const char*, std::vector<const char*>>> frames{
      {"Reject_shape", {"txtShpRejects"}},
      {"Reject_inner", {"txtInnRejects", "txtInnSim"}},
      {"Reject_history", {"txtHisRejects", "txtOuSim", "txtOuDeals"}}};
  Open([&](QWidget& window) {
    for (const auto& [check, results] : frames) {
      const QRect place = test::Find<QWidget>(window, check).geometry();
      for (int click = 1; click <= 2; ++click) {
        const bool on = !Checked(window, check);
        test::Click(window, check);
        desk.Loop.Pump();
        EXPECT_EQ(Checked(window, check), on);
        for (const char* name : results) EXPECT_EQ(test::Visible(window, name), on) << name;
        for (const QLabel* label : test::Find<QWidget>(window, results[0])
                                       .parentWidget()
                                       ->parentWidget()
                                       ->findChildren<QLabel*>()) {
          EXPECT_EQ(label->isVisible(), on) << label->text().toStdString();
        }
        EXPECT_EQ(test::Find<QWidget>(window, check).geometry(), place) << "nothing moves";
      }
    }
  });
}

TEST_F(GenerateWindowTest, ACleanRunShowsResultsAndEnterLeaves) {
  Open([](QWidget& window) {
    test::Click(window, "Reject_history");
    Range(window, "3", "6");
    test::Click(window, "bigdeal");
    EXPECT_EQ(Text(window, "BoardsGen"), "4");
    EXPECT_EQ(Text(window, "txtInnRejects"), "0");
    EXPECT_EQ(Text(window, "txtInnRejects_sign"), "\xE2\x9C\x93 good");
    EXPECT_NE(Text(window, "txtInnSim"), "");
    EXPECT_EQ(Focus(window), "cmdExit");
    EXPECT_TRUE(test::Find<QPushButton>(window, "cmdExit").isDefault());
    test::Press(window, Qt::Key_Return);
    EXPECT_FALSE(window.isVisible());
  });
  EXPECT_EQ(test::TextOf(*menu, "txtFirstBoard") + " " + test::TextOf(*menu, "txtLastBoard"),
            "3 6");
  EXPECT_EQ(test::TextOf(*menu, "Panel1"), "Ready");
  EXPECT_TRUE(menu->isWindowModified());
}

TEST_F(GenerateWindowTest, ARunThatRejectedIsRedWithASignAndEnterGeneratesAgain) {
  Start();
  shell.Deals().Limits.InnerLimit = 8;
  Open([this](QWidget& window) {
    test::Click(window, "cmdDeal");
    ASSERT_NE(Text(window, "txtInnRejects"), "0");
    EXPECT_EQ(Text(window, "txtInnRejects_sign"), "\xE2\x96\xB2 too many");
    const QPalette palette = test::Find<QLineEdit>(window, "txtInnRejects").palette();
    const QColor red = palette.color(QPalette::Text);
    EXPECT_GT(red.red(), 2 * std::max(red.green(), red.blue()));
    EXPECT_GE(Contrast(red, palette.color(QPalette::Base)), kReadable);
    EXPECT_EQ(Focus(window), "cmdDeal");
    const auto cards = desk.Prog.Set.At(1).Cards;
    test::Press(window, Qt::Key_Return);
    EXPECT_NE(desk.Prog.Set.At(1).Cards, cards);
  });
}

TEST_F(GenerateWindowTest, EnterInANumberGenerates) {
  Open([this](QWidget& window) {
    test::Type(window, "30");
    test::Press(window, Qt::Key_Return);
    EXPECT_EQ(desk.Prog.Set.FirstBoard, 30);
    EXPECT_NE(desk.Prog.Set.At(30).DealNumber, (std::array<std::uint8_t, 12>{})) << "BigDeal's";
    Range(window, "31", "31");
    test::Press(window, Qt::Key_Return);
    EXPECT_TRUE(window.isVisible()) << "what was typed after a run is not closed over";
    EXPECT_EQ(desk.Prog.Set.FirstBoard, 31);
  });
}

TEST_F(GenerateWindowTest, TheSameLetterComesToBothGenerateButtons) {
  Open([this](QWidget& window) {
    window.activateWindow();
    std::set<std::string> reached;
    for (int press = 1; press <= 2; ++press) {
      test::Press(window, Qt::Key_G, Qt::AltModifier);
      reached.insert(Focus(window));
    }
    EXPECT_EQ(reached, (std::set<std::string>{"bigdeal", "cmdDeal"}));
    EXPECT_FALSE(desk.Prog.Set.Exists()) << "they are gone to, not pressed";
    test::Press(window, Qt::Key_Space);
    EXPECT_TRUE(desk.Prog.Set.Exists());
  });
}

TEST_F(GenerateWindowTest, TheLetterPressesTheButtonThatIsAlone) {
  desk.Store.Set(kGenerator, "1");
  Open([this](QWidget& window) {
    PressLetter(window, Qt::Key_G, "cmdDeal");
    EXPECT_EQ(desk.Prog.Set.LastBoard, 32);
    PressLetter(window, Qt::Key_X, "cmdExit");
    EXPECT_FALSE(window.isVisible());
  });
}

TEST_F(GenerateWindowTest, TheTabKeyFollowsTheEye) {
  Open([](QWidget& window) {
    Range(window, "1", "1");
    test::Click(window, "bigdeal");
    std::vector<std::string> names;
    test::Find<QWidget>(window, "generate_yes").setFocus();
    do {
      names.push_back(Focus(window));
      test::Press(window, Qt::Key_Tab);
    } while (Focus(window) != "generate_yes" && names.size() < 20);
    EXPECT_THAT(names, ElementsAre("generate_yes", "txtFirstBoard", "txtLastBoard", "Reject_shape",
                                   "Reject_inner", "Reject_history", "Result", "Copy", "bigdeal",
                                   "cmdDeal", "cmdExit"));
  });
}

TEST_F(GenerateWindowTest, TheResultIsCopied) {
  Open([this](QWidget& window) {
    EXPECT_FALSE(test::Enabled(window, "Copy")) << "nothing to copy yet";
    Range(window, "1", "4");
    test::Click(window, "bigdeal");
    EXPECT_THAT(ResultOf(window), HasSubstr("\nSHA-256: " + SetFingerprint(desk.Prog.Set)));
    PressLetter(window, Qt::Key_C, "Copy");
    EXPECT_EQ(QApplication::clipboard()->text().toStdString(), ResultOf(window) + "\n");
  });
}

TEST_F(GenerateWindowTest, TheMouseOverItFeedsThePoolInItsOwnCoordinates) {
  Open([this](QWidget& window) {
    const RandomPool& pool = shell.Deals().Pool;
    const auto& gauge = test::Find<QProgressBar>(window, "RandomBits");
    EXPECT_EQ(gauge.maximum(), 512);
    const int before = pool.SeedmCounter;
    EXPECT_EQ(gauge.value(), before);
    // 0x2A and 0x14: 0xA and 0x4 enter.
    QCursor::setPos(window.mapToGlobal(QPoint(0x2A, 0x14)));
    desk.Loop.WaitMs(50);
    EXPECT_EQ(pool.Seedm[64], 0xA4);
    EXPECT_EQ(pool.SeedmCounter, before + 8);
    EXPECT_EQ(gauge.value(), before + 8);
    QCursor::setPos(window.mapToGlobal(QPoint(0x4B, 0x14)));
    desk.Loop.WaitMs(200);
    EXPECT_EQ(pool.SeedmCounter, before + 8) << "it has moved sideways only";
  });
}

TEST_F(GenerateWindowTest, TheCountersCanBeReadWhenTheDesktopTurnsDark) {
  const QPalette before = QApplication::palette();
  Open([this](QWidget& window) {
    Range(window, "1", "4");
    test::Click(window, "bigdeal");
    QPalette dark(QColor(45, 45, 45));
    dark.setColor(QPalette::Base, QColor(30, 30, 30));
    QApplication::setPalette(dark);
    desk.Loop.Pump();
    const QPalette box = test::Find<QLineEdit>(window, "txtInnRejects").palette();
    EXPECT_EQ(box.color(QPalette::Base), QColor(30, 30, 30));
    EXPECT_GE(Contrast(box.color(QPalette::Text), QColor(30, 30, 30)), kReadable);
  });
  QApplication::setPalette(before);
}

}  // namespace
}  // namespace morvane::generate
