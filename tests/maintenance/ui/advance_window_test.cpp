#include "maintenance/ui/advance_window.h"

#include <gmock/gmock.h>

#include <QCheckBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <set>

#include "maintenance/paper_record.h"
#include "maintenance/ui/console_desk.h"

namespace morvane::maintenance {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

/// The console on its developer's page, over a record on paper; the button opens the form.
class Advance : public ConsoleDesk {
 protected:
  using ConsoleDesk::ConsoleDesk;

  PaperRecord paper;
  std::vector<int> writes;  ///< codes of the frames that change something

  void Start() {
    paper.Counters[0] = 70'000;
    Service(2);
    camera.Answer = [this](const test::Bytes& plain) {
      if (plain[0] == 43 || plain[0] == 44 || plain[0] == 52 || plain[0] == 173) {
        writes.push_back(plain[0]);
      }
      return paper.ReplyTo(plain);
    };
    Open();
    desk.Loop.WaitMs(Maintenance::kFirstContactMs + 100);
    Page(kDeveloperPage);
  }
  /// The window comes up, and `act` is done once it shows the machine.
  void Form(std::function<void(QWidget&)> act) {
    Form(std::move(act), [this] { Click("Advance"); });
  }
  void Form(std::function<void(QWidget&)> act, const std::function<void()>& open) {
    bool came = false;
    desk.When("Advance_form", [&](QWidget& form) {
      desk.Loop.After(100, [&] {
        came = true;
        form.activateWindow();
        act(form);
        if (form.isVisible()) test::Click(form, "cmdClose");
      });
    });
    open();
    EXPECT_TRUE(came);
    EXPECT_EQ(test::TopWindow("Advance_form"), nullptr);
  }
  /// Alt and the letter of the control, which stays down for a moment.
  static void PressLetter(QWidget& form, Qt::Key letter, const char* name) {
    const auto& button = test::Find<QAbstractButton>(form, name);
    form.activateWindow();
    test::Press(form, letter, Qt::AltModifier);
    ASSERT_TRUE(QTest::qWaitFor([&] { return !button.isDown(); }));
  }
  static void TypeInto(QWidget& form, const char* name, const std::string& text) {
    auto& box = test::Find<QLineEdit>(form, name);
    box.setFocus();
    box.selectAll();
    test::Type(form, text);
  }
  static bool Checked(QWidget& form, const char* name) {
    return test::Find<QCheckBox>(form, name).isChecked();
  }
};

TEST_F(Advance, ShowsTheRecordTheCountersAndTheTools) {
  paper.Counters[5] = 3;
  Start();
  Form([](QWidget& form) {
    EXPECT_EQ(form.windowTitle(), "Morvane - Advance_Maintenance");
    EXPECT_EQ(test::TextOf(form, "Adv_SerialNumber"), "4711");
    EXPECT_EQ(test::TextOf(form, "Adv_Day"), "14");
    EXPECT_EQ(test::TextOf(form, "Adv_month"), "6");
    EXPECT_EQ(test::TextOf(form, "Adv_Year"), "2019");
    EXPECT_EQ(test::TextOf(form, "Curr_HID"), "103");  // 0x67
    EXPECT_EQ(test::TextOf(form, "Boards_dealt"), "70000");
    const QString errors = test::Find<QPlainTextEdit>(form, "Error_view").toPlainText();
    EXPECT_TRUE(errors.contains(" 5:          3")) << errors.toStdString();
    EXPECT_TRUE(test::Find<QPlainTextEdit>(form, "Error_view").isReadOnly());
  });
}

TEST_F(Advance, HasTheCaptionsOfTheFactory) {
  Start();
  Form([](QWidget& form) {
    const auto caption = [&form](const char* name) {
      return test::Find<QAbstractButton>(form, name).text().remove('&').toStdString();
    };
    EXPECT_EQ(caption("HID_bit0"), "Machine has Flip Plate");
    EXPECT_EQ(
        caption("HID_bit1"),
        "Machine has Sony Camera                  (with lens lock screw facing to the right)");
    EXPECT_EQ(caption("HID_bit2"), "Main pcb has Board Reader connector (pcb version 07 or later)");
    EXPECT_EQ(caption("HID_bit34"),
              "Machine can read jumbo cards (machine with small feeder roller)");
    EXPECT_EQ(caption("Clear_boards"), "Set Number of Dealt Boards");
    EXPECT_EQ(caption("ErrorClear"), "Errors Clear");
    EXPECT_EQ(caption("Boot"), "boot.adb -> boot.c");
    EXPECT_EQ(caption("Prepare"), "Code Prepare");
    EXPECT_EQ(caption("txt_hex"), "txt -> hex");
  });
}

TEST_F(Advance, ItsLetterOpensItAndEscapeAndTheCloseBoxCloseIt) {
  Start();
  for (const bool escape : {true, false}) {
    Form(
        [escape](QWidget& form) {
          if (escape) {
            test::Press(form, Qt::Key_Escape);
          } else {
            form.close();
          }
          EXPECT_FALSE(form.isVisible());
        },
        [this] { ConsoleDesk::PressLetter(Qt::Key_V, "Advance"); });
  }
  EXPECT_FALSE(console.Closed());
  Polls();
  EXPECT_NE(Text("Photo1"), "");
}

TEST_F(Advance, EveryControlIsReachedByALetterOfItsOwn) {
  Start();
  Form([](QWidget& form) {
    std::set<QChar> letters;
    const auto take = [&letters](const QString& text) {
      const auto at = text.indexOf('&');
      if (at < 0) return;
      EXPECT_TRUE(letters.insert(text[at + 1].toUpper()).second) << text.toStdString();
    };
    for (const auto* button : form.findChildren<QAbstractButton*>()) {
      EXPECT_TRUE(button->text().contains('&')) << button->objectName().toStdString();
      take(button->text());
    }
    for (const auto* label : form.findChildren<QLabel*>()) take(label->text());
    EXPECT_THAT(letters, SizeIs(16));
  });
}

TEST_F(Advance, ChecksAndUnchecksTheBitsAndShowsTheIdentifier) {
  Start();
  Form([this](QWidget& form) {
    EXPECT_TRUE(Checked(form, "HID_bit0") && Checked(form, "HID_bit1"));
    EXPECT_TRUE(Checked(form, "HID_bit2"));
    EXPECT_FALSE(Checked(form, "HID_bit34"));
    PressLetter(form, Qt::Key_J, "HID_bit34");
    EXPECT_EQ(test::TextOf(form, "Curr_HID"), "127");
    PressLetter(form, Qt::Key_S, "HID_bit1");
    EXPECT_EQ(test::TextOf(form, "Curr_HID"), "125");
    test::Find<QCheckBox>(form, "HID_bit0").setFocus();
    test::Press(form, Qt::Key_Space);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !Checked(form, "HID_bit0"); }));
    EXPECT_EQ(test::TextOf(form, "Curr_HID"), "124");
    desk.AnswerBox(QMessageBox::Yes);
  });
  EXPECT_THAT(writes, IsEmpty());
}

TEST_F(Advance, TypesARecordAndWritesIt) {
  Start();
  Form([this](QWidget& form) {
    TypeInto(form, "Adv_SerialNumber", "12");
    TypeInto(form, "Adv_Day", "1");
    TypeInto(form, "Adv_month", "2");
    TypeInto(form, "Adv_Year", "2026");
    EXPECT_EQ(test::Find<QWidget>(form, "Adv_SerialNumber").accessibleDescription(),
              "Changed, not written to the machine");
    desk.AnswerBox(QMessageBox::Ok);
    PressLetter(form, Qt::Key_U, "Update");
    EXPECT_EQ(test::Find<QWidget>(form, "Adv_SerialNumber").accessibleDescription(), "");
  });
  EXPECT_EQ(paper.Block, (std::array<std::uint8_t, 8>{0, 12, 0, 0x67, 1, 2, 0x07, 0xEA}));
  ASSERT_THAT(desk.Boxes, SizeIs(1));
  EXPECT_EQ(desk.Boxes[0].Text, "Parameters updated OK");
  EXPECT_THAT(writes, ElementsAre(44, 173));
  EXPECT_EQ(console.TheIdentity().Serial_number, "12") << "the console has read it, too";
}

TEST_F(Advance, EnterInABoxWritesNothing) {
  Start();
  Form([this](QWidget& form) {
    TypeInto(form, "Adv_SerialNumber", "12");
    test::Press(form, Qt::Key_Return);
    test::Press(form, Qt::Key_Enter);
    EXPECT_TRUE(form.isVisible());
    desk.AnswerBox(QMessageBox::Yes);
  });
  EXPECT_THAT(writes, IsEmpty());
}

TEST_F(Advance, LeavingWithWhatIsNotWrittenIsAskedAboutAndReturnStays) {
  Start();
  Form([this](QWidget& form) {
    TypeInto(form, "Adv_SerialNumber", "12");
    desk.When("MessageBox", [](QWidget& box) { test::Press(box, Qt::Key_Return); });
    test::Press(form, Qt::Key_Escape);
    EXPECT_TRUE(form.isVisible());
    EXPECT_EQ(test::Find<QLineEdit>(form, "Adv_SerialNumber").text(), "12");
    desk.AnswerBox(QMessageBox::Yes);
  });
  EXPECT_THAT(writes, IsEmpty());
}

TEST_F(Advance, ARecordOfAnErasedFlashIsSaidToBeNone) {
  paper.Block.fill(0xFF);
  Start();
  Form([](QWidget& form) {
    EXPECT_EQ(test::TextOf(form, "Curr_HID"), "65535 (the machine holds no record)");
  });
}

TEST_F(Advance, EnterPressesTheButtonThatHasTheFocus) {
  Start();
  Form([this](QWidget& form) {
    desk.AnswerBox(QMessageBox::Ok);
    test::Find<QPushButton>(form, "Update").setFocus();
    test::Press(form, Qt::Key_Return);
  });
  EXPECT_THAT(writes, ElementsAre(44, 173));
}

TEST_F(Advance, ReturnAnswersBothQuestionsNo) {
  Start();
  Form([this](QWidget& form) {
    for (const auto& [letter, name] :
         {std::pair{Qt::Key_N, "Clear_boards"}, {Qt::Key_E, "ErrorClear"}}) {
      desk.When("MessageBox", [](QWidget& box) { test::Press(box, Qt::Key_Return); });
      PressLetter(form, letter, name);
    }
  });
  ASSERT_THAT(desk.Boxes, SizeIs(2));
  EXPECT_EQ(desk.Boxes[0].Text, "Do you really want to set boards dealt ???");
  EXPECT_EQ(desk.Boxes[1].Text, "Do you really want to clear all errors informations???");
  EXPECT_THAT(writes, IsEmpty());
}

TEST_F(Advance, SetsTheBoardsAndClearsTheErrorsOnAYes) {
  paper.Counters[5] = 3;
  Start();
  Form([this](QWidget& form) {
    TypeInto(form, "Boards_dealt", "4294967295");
    desk.AnswerBox(QMessageBox::Yes);
    test::Click(form, "Clear_boards");
    EXPECT_EQ(test::TextOf(form, "Boards_dealt"), "4294967295");
    desk.AnswerBox(QMessageBox::Yes);
    desk.AnswerBox(QMessageBox::Ok);
    test::Click(form, "ErrorClear");
    const QString errors = test::Find<QPlainTextEdit>(form, "Error_view").toPlainText();
    EXPECT_TRUE(errors.contains(" 0: 4294967295")) << errors.toStdString();
    EXPECT_TRUE(errors.contains(" 5:          0")) << errors.toStdString();
  });
  EXPECT_THAT(writes, ElementsAre(52, 43));
  EXPECT_EQ(Text("Boards_dealed"), "4294967295");
}

TEST_F(Advance, UntilTheRecordIsReadNothingCanBeSet) {
  Start();
  bool looked = false;
  const auto answer = camera.Answer;
  camera.Answer = [&](const test::Bytes& plain) {
    const QWidget* form = test::TopWindow("Advance_form");
    if (form != nullptr && plain[0] == 18 && plain[1] == 2 && !std::exchange(looked, true)) {
      for (const char* name : {"Update", "Clear_boards", "ErrorClear"}) {
        EXPECT_FALSE(test::Enabled(*form, name)) << name;
      }
    }
    return answer(plain);
  };
  Form([](QWidget& form) {
    for (const char* name : {"Update", "Clear_boards", "ErrorClear"}) {
      EXPECT_TRUE(test::Enabled(form, name)) << name;
    }
  });
  EXPECT_TRUE(looked);
}

TEST_F(Advance, ALostLinkClosesTheFormAndTheConsole) {
  Start();
  Form([this](QWidget& form) {
    simulated.PowerOff();
    camera.Answer = nullptr;
    desk.AnswerBox(QMessageBox::Ok);
    test::Click(form, "Update");
    EXPECT_FALSE(form.isVisible());
  });
  ASSERT_THAT(desk.Boxes, SizeIs(1));
  EXPECT_EQ(desk.Boxes[0].Title, "Communication Error");
  EXPECT_TRUE(console.Closed());
  EXPECT_FALSE(window->isVisible());
}

TEST_F(Advance, TheProgramsEndClosesIt) {
  Start();
  desk.When("Advance_form", [this](QWidget&) { desk.Loop.Quit(); });
  Click("Advance");
  EXPECT_EQ(test::TopWindow("Advance_form"), nullptr);
  EXPECT_THAT(desk.Boxes, IsEmpty());
  EXPECT_THAT(writes, IsEmpty());
}

TEST_F(Advance, BelowServiceLevelTwoNothingCanBeSet) {
  ServiceLink link(desk.Prog, machine, [] {});
  AdvanceForm form(desk.Prog, link, true);
  for (const int level : {0, 1, 2}) {
    Service(level);
    const AdvanceWindow shown(desk.Prog, form, &mainWindow);
    for (const char* name : {"SetUp", "Update", "Clear_boards", "ErrorClear", "HID_bit34"}) {
      EXPECT_EQ(shown.findChild<QWidget*>(name) != nullptr, level == 2) << name;
    }
    EXPECT_NE(shown.findChild<QWidget*>("Error_view"), nullptr);
  }
}

TEST_F(Advance, AToolWritesItsFileAndSaysSo) {
  Start();
  test::WriteContent(desk.Folder / "boot.adb", "ab");
  Form([&](QWidget& form) {
    for (const auto& [dialog, file] : {std::pair("cdOpen", desk.Folder / "boot.adb"),
                                       std::pair("cdSave", desk.Folder / "boot.c")}) {
      desk.When(dialog, [file = file](QWidget& shown) {
        test::Type(shown, file);
        test::Press(shown, Qt::Key_Return);
      });
    }
    desk.AnswerBox(QMessageBox::Ok);
    PressLetter(form, Qt::Key_B, "Boot");
    EXPECT_EQ(test::Find<QLabel>(form, "lblTool").text(), "The C file is written.");
  });
  EXPECT_TRUE(test::Content(desk.Folder / "boot.c").starts_with("const unsigned char boot[] = {"));
  EXPECT_THAT(writes, IsEmpty());
}

TEST_F(Advance, AToolThatIsGivenNoFileSaysThatNothingIsWritten) {
  Start();
  Form([&](QWidget& form) {
    for (const char* tool : {"Boot", "Prepare", "txt_hex"}) {
      desk.When("cdOpen", [](QWidget& dialog) { test::Press(dialog, Qt::Key_Escape); });
      test::Click(form, tool);
      EXPECT_EQ(test::Find<QLabel>(form, "lblTool").text(), "Nothing is written.") << tool;
    }
  });
}

/// Boot bytes 0.
class AdvanceWithoutFirmware : public Advance {
 protected:
  AdvanceWithoutFirmware() : Advance(Bare()) {}
  static simulator::Options Bare() {
    simulator::Options options = MachineOf();
    options.BootMajor = options.BootMinor = 0;
    return options;
  }
};

TEST_F(AdvanceWithoutFirmware, OnlyWhatNeedsNoMachineCanBeUsed) {
  Start();
  Form([](QWidget& form) {
    for (const char* name : {"Adv_SerialNumber", "Adv_Day", "HID_bit0", "Update", "Boards_dealt",
                             "Clear_boards", "ErrorClear", "Error_view"}) {
      EXPECT_FALSE(test::Enabled(form, name)) << name;
    }
    EXPECT_EQ(test::TextOf(form, "Curr_HID"), "");
  });
  EXPECT_THAT(writes, IsEmpty());
}

}  // namespace
}  // namespace morvane::maintenance
