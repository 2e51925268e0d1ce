#include "support/print_queue.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QSpinBox>

#include "platform/qt/qt_printer.h"
#include "support/pdf_reader.h"
#include "support/qt_desk.h"

namespace morvane {
namespace {

/// Two pages with a word each.
void DrawTwoPages(Canvas& canvas) {
  canvas.Text(20, 50, "first", {Typeface::kTimes, 20, true}, {});
  ASSERT_TRUE(canvas.NewPage());
  canvas.Text(20, 50, "second", {Typeface::kTimes, 20, true}, {});
}

/// The system with the queue of that name chosen.
class Choosing final : public PrintSystem {
 public:
  explicit Choosing(const char* name) : name_(name) {}
  [[nodiscard]] std::unique_ptr<QPrinter> MakeDevice() const override {
    auto device = PrintSystem::MakeDevice();
    device->setPrinterName(name_);
    return device;
  }

 private:
  const char* name_;
};

class PrintQueueTest : public ::testing::Test {
 protected:
  test::QtDesk desk;
};

TEST_F(PrintQueueTest, AJobComesOutWithItsTitleItsPagesAndItsCopies) {
  test::PrintQueue queue;
  QtPrinter printer(desk.Loop);
  EXPECT_EQ(printer.DeviceName(), "Office");
  EXPECT_EQ(printer.Print({"Club Evening", 3}, DrawTwoPages), std::nullopt);
  const auto job = queue.Next();
  EXPECT_EQ(job.Title, "Club Evening");
  EXPECT_EQ(job.Copies, "3");
  const test::PdfReader pdf(job.PdfFile);
  ASSERT_EQ(pdf.Pages(), 2) << "copies are the printer's business";
  EXPECT_EQ(pdf.Words(1), std::vector<std::string>{"first"});
  EXPECT_EQ(pdf.Words(2), std::vector<std::string>{"second"});
}

// 595 - 20 - 18 and 842 - 12 - 12 points.
TEST_F(PrintQueueTest, ThePageIsWhatThePrinterReachesAndAtMostTheUsual) {
  const test::PrintQueue queue;
  QtPrinter printer(desk.Loop);
  EXPECT_EQ(printer.Print({"Club Evening", 1},
                          [](Canvas& canvas) {
                            EXPECT_NEAR(canvas.Width(), 557, 1);
                            EXPECT_NEAR(canvas.Height(), 818, 1);
                          }),
            std::nullopt);
}

TEST_F(PrintQueueTest, WhatTheSetupChoosesIsKeptForAllJobs) {
  test::PrintQueue queue;
  QtPrinter printer(desk.Loop);
  desk.When("PrinterSetup", [](QWidget& window) {
    test::Find<QAbstractButton>(window, "duplexLong").setChecked(true);
    test::Find<QSpinBox>(window, "copies").setValue(2);
    test::Press(window, Qt::Key_Return);
  });
  EXPECT_EQ(printer.Setup(1), 2);
  for (int job = 1; job <= 2; ++job) {
    EXPECT_EQ(printer.Print({"Club Evening", 2}, DrawTwoPages), std::nullopt);
    EXPECT_THAT(queue.Next().Options, ::testing::HasSubstr("sides=two-sided-long-edge"));
  }
}

TEST_F(PrintQueueTest, ACancelledSetupLeavesPrinterAndSidesAsTheyWere) {
  test::PrintQueue queue;
  QtPrinter printer(desk.Loop);
  desk.When("PrinterSetup", [](QWidget& window) {
    test::Find<QAbstractButton>(window, "duplexLong").setChecked(true);
    test::Press(window, Qt::Key_Return);
  });
  ASSERT_EQ(printer.Setup(1), 1);
  desk.When("PrinterSetup", [](QWidget& window) {
    auto& printers = test::Find<QComboBox>(window, "printers");
    printers.setCurrentIndex(printers.findText("Cellar"));
    test::Press(window, Qt::Key_Escape);
  });
  ASSERT_EQ(printer.Setup(1), std::nullopt);
  EXPECT_EQ(printer.Print({"Club Evening", 1}, DrawTwoPages), std::nullopt);
  EXPECT_THAT(queue.Next().Options, ::testing::HasSubstr("sides=two-sided-long-edge"));
}

TEST_F(PrintQueueTest, AQueueThatRefusesJobsSaysSo) {
  test::PrintQueue queue;
  QtPrinter printer(desk.Loop, std::make_unique<Choosing>("Cellar"));
  EXPECT_EQ(printer.DeviceName(), "Cellar");
  const auto error = printer.Print({"Club Evening", 1}, DrawTwoPages);
  ASSERT_TRUE(error.has_value());
  EXPECT_EQ(error->Number, 0x506) << "not accepting jobs";
  EXPECT_THAT(error->Description, ::testing::HasSubstr("not accepting jobs"));
}

TEST_F(PrintQueueTest, AJobAfterARefusedOneIsJudgedByItself) {
  test::PrintQueue queue;
  QtPrinter refused(desk.Loop, std::make_unique<Choosing>("Cellar"));
  ASSERT_TRUE(refused.Print({"Club Evening", 1}, DrawTwoPages).has_value());
  QtPrinter printer(desk.Loop);
  EXPECT_EQ(printer.Print({"Club Evening", 1}, DrawTwoPages), std::nullopt);
}

TEST_F(PrintQueueTest, ASpoolerThatGoesWhileAJobIsDrawnIsTold) {
  test::PrintQueue queue;
  QtPrinter printer(desk.Loop);
  const auto error = printer.Print({"Club Evening", 1}, [&queue](Canvas& canvas) {
    DrawTwoPages(canvas);
    queue.Stop();
  });
  ASSERT_TRUE(error.has_value());
  EXPECT_NE(error->Description, "");
}

TEST_F(PrintQueueTest, AnotherJobAfterThePrinterHasGoneNamesIt) {
  test::PrintQueue queue;
  QtPrinter printer(desk.Loop);
  ASSERT_EQ(printer.DeviceName(), "Office");
  queue.Stop();
  const auto error = printer.Print({"Club Evening", 1}, DrawTwoPages);
  ASSERT_TRUE(error.has_value());
  EXPECT_EQ(error->Number, ENODEV);
  EXPECT_EQ(error->Description, "The printer Office is not there any more");
}

TEST_F(PrintQueueTest, APrinterThatComesLaterIsTaken) {
  QtPrinter printer(desk.Loop);
  EXPECT_EQ(printer.DeviceName(), "");
  const auto error = printer.Print({"Club Evening", 1}, DrawTwoPages);
  ASSERT_TRUE(error.has_value());
  EXPECT_EQ(error->Number, ENODEV);
  EXPECT_EQ(error->Description, "There is no printer");
  test::PrintQueue queue;
  EXPECT_EQ(printer.DeviceName(), "Office");
  EXPECT_EQ(printer.Print({"Club Evening", 1}, DrawTwoPages), std::nullopt);
  EXPECT_EQ(queue.Next().Title, "Club Evening");
}

}  // namespace
}  // namespace morvane
