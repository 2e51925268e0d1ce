#include "platform/qt/preview_window.h"

#include <QPrintPreviewWidget>
#include <QTest>

#include "platform/qt/qt_printer.h"
#include "support/no_printers.h"
#include "support/qt_desk.h"

namespace morvane {
namespace {

class PreviewWindowTest : public ::testing::Test {
 protected:
  test::QtDesk desk;
  QtPrinter printer{desk.Loop, std::make_unique<test::NoPrinters>()};
  int pages = 3;
  int printed = 0;

  void Show(const std::function<void(QWidget&)>& act) {
    desk.When("Preview", [this, act](QWidget& window) {
      desk.Loop.Pump();
      act(window);
    });
    printer.Preview({"Evening", 1},
                    [this](Canvas& canvas) {
                      for (int page = 1; page <= pages; ++page) {
                        canvas.Text(50, 50, "page", {}, {});
                        EXPECT_TRUE(page == pages || canvas.NewPage());
                      }
                    },
                    {{"cmdPrint", "&Print", [this] { ++printed; }}});
  }
  static std::string Where(const QWidget& window) { return test::TextOf(window, "txtPage"); }
};

TEST_F(PreviewWindowTest, ButtonsTurnThePages) {
  Show([](QWidget& window) {
    EXPECT_EQ(Where(window), "Page 1 of 3");
    EXPECT_FALSE(test::Enabled(window, "PreviousPage"));
    test::Click(window, "NextPage");
    EXPECT_EQ(Where(window), "Page 2 of 3");
    EXPECT_TRUE(test::Enabled(window, "PreviousPage"));
    test::Click(window, "NextPage");
    EXPECT_EQ(Where(window), "Page 3 of 3");
    EXPECT_FALSE(test::Enabled(window, "NextPage"));
    test::Click(window, "PreviousPage");
    EXPECT_EQ(Where(window), "Page 2 of 3");
    test::Click(window, "ClosePreview");
  });
}

TEST_F(PreviewWindowTest, KeysTurnThePages) {
  Show([](QWidget& window) {
    const std::vector<std::pair<Qt::Key, std::string>> keys{
        {Qt::Key_PageUp, "Page 1 of 3"}, {Qt::Key_PageDown, "Page 2 of 3"},
        {Qt::Key_End, "Page 3 of 3"},    {Qt::Key_PageDown, "Page 3 of 3"},
        {Qt::Key_PageUp, "Page 2 of 3"}, {Qt::Key_Home, "Page 1 of 3"}};
    for (const auto& [key, where] : keys) {
      test::Press(window, key);
      EXPECT_EQ(Where(window), where);
    }
    test::Press(window, Qt::Key_Escape);
  });
}

TEST_F(PreviewWindowTest, KeysAndButtonsZoom) {
  Show([](QWidget& window) {
    const auto& preview = test::Find<QPrintPreviewWidget>(window, "Pages");
    EXPECT_EQ(preview.zoomMode(), QPrintPreviewWidget::FitInView);
    const auto fit = preview.zoomFactor();
    test::Press(window, Qt::Key_Plus, Qt::ControlModifier);
    EXPECT_NEAR(preview.zoomFactor(), 1.25 * fit, 0.01);
    test::Press(window, Qt::Key_Equal, Qt::ControlModifier);
    EXPECT_NEAR(preview.zoomFactor(), 1.5625 * fit, 0.01);
    test::Press(window, Qt::Key_Minus, Qt::ControlModifier);
    EXPECT_NEAR(preview.zoomFactor(), 1.25 * fit, 0.01);
    test::Click(window, "ZoomIn");
    EXPECT_NEAR(preview.zoomFactor(), 1.5625 * fit, 0.01);
    test::Click(window, "ZoomOut");
    EXPECT_NEAR(preview.zoomFactor(), 1.25 * fit, 0.01);
    test::Click(window, "FitWidth");
    EXPECT_EQ(preview.zoomMode(), QPrintPreviewWidget::FitToWidth);
    test::Click(window, "FitPage");
    EXPECT_NEAR(preview.zoomFactor(), fit, 0.01);
    test::Press(window, Qt::Key_Escape);
  });
}

TEST_F(PreviewWindowTest, ActionsAreDoneOverTheOpenWindow) {
  Show([this](QWidget& window) {
    test::Click(window, "cmdPrint");
    EXPECT_EQ(printed, 1);
    EXPECT_TRUE(window.isVisible());
    test::Press(window, Qt::Key_P, Qt::AltModifier);
    EXPECT_TRUE(QTest::qWaitFor([this] { return printed == 2; })) << "it stays down for a moment";
    test::Press(window, Qt::Key_Escape);
  });
}

TEST_F(PreviewWindowTest, ReturnPressesTheButtonWithTheFocusOnce) {
  Show([this](QWidget& window) {
    auto& print = test::Find<QWidget>(window, "cmdPrint");
    print.setFocus();
    test::Press(window, Qt::Key_Return);
    EXPECT_EQ(printed, 1);
    for (QWidget* control : {&print, &test::Find<QWidget>(window, "PagesView"), &window}) {
      QKeyEvent held(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, "\r", true);
      QApplication::sendEvent(control, &held);
    }
    EXPECT_EQ(printed, 1);
    EXPECT_TRUE(window.isVisible());
    test::Press(window, Qt::Key_Escape);
  });
}

TEST_F(PreviewWindowTest, TheButtonAtTheLastPageHandsItsFocusOn) {
  pages = 2;
  Show([](QWidget& window) {
    test::Find<QWidget>(window, "NextPage").setFocus();
    test::Press(window, Qt::Key_Space);
    EXPECT_EQ(Where(window), "Page 2 of 2");
    EXPECT_EQ(window.focusWidget()->objectName(), "PreviousPage");
    test::Press(window, Qt::Key_Escape);
  });
}

TEST_F(PreviewWindowTest, OnePageHasNoOtherToTurnTo) {
  pages = 1;
  Show([](QWidget& window) {
    EXPECT_EQ(Where(window), "Page 1 of 1");
    EXPECT_FALSE(test::Enabled(window, "PreviousPage"));
    EXPECT_FALSE(test::Enabled(window, "NextPage"));
    test::Press(window, Qt::Key_Return);
  });
}

TEST_F(PreviewWindowTest, ItEndsWithTheProgram) {
  Show([this](QWidget& /*window*/) { desk.Loop.Quit(); });
  EXPECT_EQ(test::TopWindow("Preview"), nullptr);
}

TEST_F(PreviewWindowTest, TheNextOneIsAsLargeAsTheLast) {
  Show([](QWidget& window) {
    window.resize(500, 420);
    window.close();
  });
  Show([](QWidget& window) {
    EXPECT_EQ(window.size(), QSize(500, 420));
    window.close();
  });
}

}  // namespace
}  // namespace morvane
