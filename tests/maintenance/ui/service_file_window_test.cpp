#include "maintenance/ui/service_file_window.h"

#include <gmock/gmock.h>

#include <QProgressBar>
#include <filesystem>

#include "maintenance/ui/picture_desk.h"
#include "platform/files.h"

namespace morvane::maintenance {
namespace {

using ::testing::IsEmpty;
using ::testing::SizeIs;

class ServiceFileWindowTest : public PictureDesk {
 protected:
  int lines = 0;
  std::function<void(int line)> Behind;  ///< once the window shows line 1 .. 384

  void SetUp() override {
    PictureDesk::SetUp();
    std::filesystem::create_directory(desk.Prog.Paths.Data);
    OnLine = [this](int /*y*/) {
      if (++lines == 1) return;
      if (Behind && Shown() != nullptr) Behind(lines - 1);
    };
  }
  void Make() {
    OpenPicture();
    desk.AnswerBox(QMessageBox::Ok);
    Click("Email");
  }
  static QWidget* Shown() { return test::TopWindow("Service_file"); }
  static int Progress() { return test::Find<QProgressBar>(*Shown(), "ProgressBar1").value(); }
  [[nodiscard]] bool NoFile() const {
    const std::filesystem::directory_iterator files(desk.Prog.Paths.Data);
    return std::none_of(begin(files), end(files), [](const auto& entry) {
      return entry.path().filename().string().starts_with("Service_file_");
    });
  }
};

TEST_F(ServiceFileWindowTest, ShowsThePicturesAsTheyCome) {
  int looks = 0;
  Behind = [&](int line) {
    if (line == 96) {
      EXPECT_EQ(Shown()->windowTitle(), "Morvane - Service File");
      EXPECT_EQ(test::TextOf(*Shown(), "Doing"), "Fetching the picture of the card ...");
      EXPECT_EQ(Progress(), 15 + 45 * 95 / 192);
      const auto& card = test::Find<PixelView>(*Shown(), "Card").Image();
      EXPECT_EQ(qRed(card.pixel(3, 50)), Pixel(3, 50));
      EXPECT_EQ(qRed(View().Image().pixel(3, 50)), Pixel(3, 50)) << "the console's, too";
      ++looks;
    }
    if (line == 300) {
      EXPECT_EQ(test::TextOf(*Shown(), "Doing"), "Fetching what the machine has made of it ...");
      ++looks;
    }
  };
  bool rest = false;
  bridge.OnFrame = [&] {
    if (Shown() == nullptr || machine.Link.TxFrame[0] != 0x1E) return;
    rest = true;
    EXPECT_EQ(test::TextOf(*Shown(), "Doing"), "Reading parameters and counters ...");
    EXPECT_FALSE(test::Enabled(*Shown(), "Command1"));
  };
  desk.AnswerBox(QMessageBox::Ok);  // behind it
  Make();
  EXPECT_TRUE(rest);
  EXPECT_EQ(looks, 2);
  EXPECT_EQ(lines, 384);
  EXPECT_EQ(Shown(), nullptr);
  EXPECT_FALSE(NoFile());
  ASSERT_THAT(desk.Boxes, SizeIs(2));
  EXPECT_EQ(FocusName(), "Email");
}

TEST_F(ServiceFileWindowTest, EscapeCancels) {
  Behind = [&](int line) {
    if (line == 40) test::Press(*Shown(), Qt::Key_Escape);
  };
  Make();
  EXPECT_LE(lines, 42);
  EXPECT_TRUE(NoFile());
  EXPECT_EQ(Shown(), nullptr);
  EXPECT_FALSE(console.Closed()) << "the console is still there";
  EXPECT_FALSE(Checked("Motors"));
  EXPECT_FALSE(Checked("Cam_leds"));
}

TEST_F(ServiceFileWindowTest, TheButtonAndItsLetterCancel) {
  for (const bool letter : {false, true}) {
    lines = 0;
    Behind = [&](int line) {
      if (line != 200) return;
      if (letter) {
        test::Press(*Shown(), Qt::Key_C, Qt::AltModifier);
      } else {
        test::Click(*Shown(), "Command1");
      }
    };
    if (window == nullptr) OpenPicture();
    desk.AnswerBox(QMessageBox::Ok);
    Click("Email");
    EXPECT_LT(lines, 384) << letter;
    EXPECT_TRUE(NoFile());
  }
}

TEST_F(ServiceFileWindowTest, TheCloseBoxCancels) {
  Behind = [&](int line) {
    if (line == 40) Shown()->close();
  };
  Make();
  EXPECT_LE(lines, 42);
  EXPECT_TRUE(NoFile());
}

TEST_F(ServiceFileWindowTest, ACancelledPromptOpensNothing) {
  OpenPicture();
  desk.AnswerBox(QMessageBox::Cancel);
  Click("Email");
  EXPECT_EQ(lines, 0);
  EXPECT_TRUE(NoFile());
}

TEST_F(ServiceFileWindowTest, TheButtonsWaitForTheMachine) {
  Open();
  EXPECT_FALSE(Enabled("Email"));
  EXPECT_FALSE(Enabled("DealTest"));
  desk.Loop.WaitMs(Maintenance::kFirstContactMs + 100);
  EXPECT_TRUE(Enabled("Email"));
  EXPECT_TRUE(Enabled("DealTest"));
}

}  // namespace
}  // namespace morvane::maintenance
