#include "platform/qt/qt_printer.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QPaintEngine>
#include <QPrintDialog>
#include <QPrintEngine>
#include <QPushButton>
#include <QSpinBox>

#include "support/pdf_reader.h"
#include "support/print_queue.h"
#include "support/qt_desk.h"

namespace morvane {
namespace {

/// Two pages with a word each, unless the canvas takes no more.
void DrawTwoPages(Canvas& canvas) {
  canvas.Text(20, 50, "first", {Typeface::kTimes, 20, true}, {});
  if (!canvas.NewPage()) return;
  canvas.Text(20, 50, "second", {Typeface::kTimes, 20, true}, {});
}

/// A driver that does what the test says and counts jobs and pages.
class Driver final : public QPaintEngine, public QPrintEngine {
 public:
  bool TakesJobs = true;
  bool MakesCopies = true;
  int MostPages = 100;
  QPrinter::PrinterState AtTheEnd = QPrinter::Idle;
  std::vector<int> Jobs;  ///< the pages of each
  bool Aborted = false;
  std::map<PrintEnginePropertyKey, QVariant> Told;

  bool begin(QPaintDevice* /*device*/) override {
    Jobs.push_back(1);
    setActive(TakesJobs);
    state_ = QPrinter::Active;
    return TakesJobs;
  }
  bool end() override {
    state_ = AtTheEnd;
    return true;
  }
  void updateState(const QPaintEngineState& /*state*/) override {}
  void drawPixmap(const QRectF&, const QPixmap&, const QRectF&) override {}
  [[nodiscard]] Type type() const override { return User; }

  void setProperty(PrintEnginePropertyKey key, const QVariant& value) override {
    Told[key] = value;
  }
  [[nodiscard]] QVariant property(PrintEnginePropertyKey key) const override {
    if (key == PPK_SupportsMultipleCopies) return MakesCopies;
    if (key == PPK_PrinterName) return "Office";
    if (key == PPK_QPageLayout) return QVariant::fromValue(layout_);
    const auto told = Told.find(key);
    return told == Told.end() ? QVariant() : told->second;
  }
  bool newPage() override { return ++Jobs.back() <= MostPages; }
  bool abort() override { return Aborted = true; }
  [[nodiscard]] int metric(QPaintDevice::PaintDeviceMetric which) const override {
    constexpr int kDots = 600;
    const bool dots = which == QPaintDevice::PdmDpiX || which == QPaintDevice::PdmDpiY ||
                      which == QPaintDevice::PdmPhysicalDpiX ||
                      which == QPaintDevice::PdmPhysicalDpiY;
    return dots ? kDots : 5000;
  }
  [[nodiscard]] QPrinter::PrinterState printerState() const override { return state_; }

 private:
  QPrinter::PrinterState state_ = QPrinter::Idle;
  QPageLayout layout_{QPageSize(QPageSize::A4), QPageLayout::Portrait, {}};
};

class DrivenDevice final : public QPrinter {
 public:
  explicit DrivenDevice(Driver& driver) { setEngines(&driver, &driver); }
};

/// A system whose devices the test makes. It asks no queue why a job was refused.
class TestSystem final : public PrintSystem {
 public:
  using Make = std::function<std::unique_ptr<QPrinter>()>;
  explicit TestSystem(Make make) : make_(std::move(make)) {}
  [[nodiscard]] std::unique_ptr<QPrinter> MakeDevice() const override { return make_(); }
  [[nodiscard]] std::optional<RuntimeError> RefusedJob() const override { return std::nullopt; }

 private:
  Make make_;
};

QPushButton& OkButton(QWidget& dialog) {
  return *dialog.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok);
}

class QtPrinterTest : public ::testing::Test {
 protected:
  test::QtDesk desk;
  Driver driver;

  QtPrinter PrinterOf(TestSystem::Make make) {
    return QtPrinter(desk.Loop, std::make_unique<TestSystem>(std::move(make)));
  }
  QtPrinter Driven() {
    return PrinterOf([this] { return std::make_unique<DrivenDevice>(driver); });
  }
  static QtPrinter::Draw TwoPages() { return DrawTwoPages; }
  QtPrinter FileOf(const std::string& file) {
    return PrinterOf([file] {
      auto device = std::make_unique<QPrinter>();
      device->setOutputFileName(QString::fromStdString(file));
      device->setOutputFormat(QPrinter::PdfFormat);
      return device;
    });
  }
};

TEST_F(QtPrinterTest, TheSystemIsNotAskedBeforeItIsNeeded) {
  int asked = 0;
  QtPrinter printer = PrinterOf([&asked] {
    ++asked;
    return std::make_unique<QPrinter>();
  });
  EXPECT_EQ(asked, 0);
  EXPECT_EQ(printer.DeviceName(), "");
  EXPECT_EQ(printer.DeviceName(), "");
  EXPECT_EQ(asked, 1);
}

// With a queue, a device is one for paper.
TEST_F(QtPrinterTest, ADriverWithoutCopiesGetsTheJobAsOften) {
  const test::PrintQueue queue;
  driver.MakesCopies = false;
  QtPrinter printer = Driven();
  EXPECT_EQ(printer.Print({"Evening", 3}, DrawTwoPages), std::nullopt);
  EXPECT_EQ(driver.Jobs, (std::vector<int>{2, 2, 2}));
}

TEST_F(QtPrinterTest, ADriverWithCopiesGetsTheJobOnceAndTheirNumber) {
  const test::PrintQueue queue;
  QtPrinter printer = Driven();
  EXPECT_EQ(printer.Print({"Evening", 3}, DrawTwoPages), std::nullopt);
  EXPECT_EQ(driver.Jobs, (std::vector<int>{2}));
  EXPECT_EQ(driver.Told[QPrintEngine::PPK_CopyCount], 3);
  EXPECT_EQ(driver.Told[QPrintEngine::PPK_DocumentName], "Evening");
}

TEST_F(QtPrinterTest, PortraitWinsOverTheDialog) {
  const test::PrintQueue queue;
  driver.Told[QPrintEngine::PPK_Orientation] = QPageLayout::Landscape;
  QtPrinter printer = Driven();
  EXPECT_EQ(printer.Print({"Evening", 1}, DrawTwoPages), std::nullopt);
  EXPECT_EQ(driver.Told[QPrintEngine::PPK_Orientation].toInt(), QPageLayout::Portrait);
}

TEST_F(QtPrinterTest, ADriverThatTakesNoJobIsTold) {
  const test::PrintQueue queue;
  driver.TakesJobs = false;
  QtPrinter printer = Driven();
  const auto error = printer.Print({"Evening", 1}, DrawTwoPages);
  ASSERT_TRUE(error.has_value());
  EXPECT_EQ(error->Number, EIO);
  EXPECT_EQ(error->Description, "The printer does not take the job");
}

TEST_F(QtPrinterTest, ADriverThatTakesNoMorePagesIsTold) {
  const test::PrintQueue queue;
  driver.MostPages = 1;
  driver.MakesCopies = false;
  QtPrinter printer = Driven();
  const auto error = printer.Print({"Evening", 3}, DrawTwoPages);
  ASSERT_TRUE(error.has_value());
  EXPECT_EQ(error->Number, EIO);
  EXPECT_EQ(error->Description, "The printer takes no more pages");
  EXPECT_EQ(driver.Jobs.size(), 1U) << "no further copies";
}

TEST_F(QtPrinterTest, AJobThatTheDriverAbortsAtItsEndIsTold) {
  const test::PrintQueue queue;
  driver.AtTheEnd = QPrinter::Aborted;
  QtPrinter printer = Driven();
  const auto error = printer.Print({"Evening", 1}, DrawTwoPages);
  ASSERT_TRUE(error.has_value());
  EXPECT_EQ(error->Number, ECANCELED);
  EXPECT_EQ(error->Description, "The printer has aborted the job");
}

TEST_F(QtPrinterTest, AProgramThatQuitsAbortsItsJob) {
  const test::PrintQueue queue;
  QtPrinter printer = Driven();
  static_cast<void>(printer.Print({"Evening", 1}, [this](Canvas& canvas) {
    DrawTwoPages(canvas);
    desk.Loop.Quit();
  }));
  EXPECT_TRUE(driver.Aborted);
}

TEST_F(QtPrinterTest, AFileGetsThePagesOnce) {
  QtPrinter printer = FileOf(desk.Folder / "evening.pdf");
  EXPECT_EQ(printer.DeviceName(), desk.Folder / "evening.pdf");
  EXPECT_EQ(printer.Print({"Evening", 3}, DrawTwoPages), std::nullopt);
  const test::PdfReader pdf(desk.Folder / "evening.pdf");
  EXPECT_EQ(pdf.Pages(), 2);
  EXPECT_EQ(pdf.Title(), "Evening");
}

TEST_F(QtPrinterTest, AFileIsChosenForOneJob) {
  QtPrinter printer = FileOf(desk.Folder / "evening.pdf");
  EXPECT_EQ(printer.DeviceName(), desk.Folder / "evening.pdf");
  EXPECT_EQ(printer.Print({"One", 1}, DrawTwoPages), std::nullopt);
  EXPECT_NE(printer.DeviceName(), desk.Folder / "evening.pdf");
}

TEST_F(QtPrinterTest, AProgramThatQuitsLeavesTheFileAsItWas) {
  const std::string file = desk.Folder / "evening.pdf";
  test::WriteContent(file, "of last week");
  QtPrinter printer = FileOf(file);
  EXPECT_TRUE(printer
                  .Print({"Evening", 1},
                         [this](Canvas& canvas) {
                           canvas.Text(20, 50, "first", {}, {});
                           desk.Loop.Quit();
                         })
                  .has_value());
  EXPECT_EQ(test::Content(file), "of last week");
}

TEST_F(QtPrinterTest, AFileOnAFullDiskIsTold) {
  QtPrinter printer = FileOf("/dev/full");
  const auto error = printer.Print({"Evening", 1}, DrawTwoPages);
  ASSERT_TRUE(error.has_value());
  EXPECT_EQ(error->Number, ENOSPC);
}

TEST_F(QtPrinterTest, AFileInNoFolderIsTold) {
  QtPrinter printer = FileOf(desk.Folder / "none/evening.pdf");
  const auto error = printer.Print({"Evening", 1}, DrawTwoPages);
  ASSERT_TRUE(error.has_value());
  EXPECT_EQ(error->Number, ENOENT);
}

TEST_F(QtPrinterTest, APdfHasThePaperOfThePrinter) {
  for (const auto& [id, size] : {std::pair(QPageSize::A4, "595 x 842 pts (A4)"),
                                 std::pair(QPageSize::Letter, "612 x 792 pts (letter)")}) {
    QtPrinter printer = PrinterOf([id = id] {
      auto device = std::make_unique<QPrinter>();
      device->setPageSize(QPageSize(id));
      return device;
    });
    test::WriteContent(desk.Folder / "paper.pdf", printer.Pdf({"Evening", 1}, DrawTwoPages));
    EXPECT_EQ(test::PdfReader(desk.Folder / "paper.pdf").PageSize(), size);
  }
}

TEST_F(QtPrinterTest, TheSetupConfirmsCopies) {
  const test::PrintQueue queue;
  QtPrinter printer(desk.Loop);
  desk.When("PrinterSetup", [](QWidget& window) {
    EXPECT_EQ(window.windowTitle(), "Printer Setup");
    EXPECT_TRUE(window.isModal());
    auto& copies = test::Find<QSpinBox>(window, "copies");
    EXPECT_EQ(copies.value(), 2);
    EXPECT_TRUE(copies.isVisible());
    EXPECT_FALSE(test::Visible(window, "pagesRadioButton"));
    EXPECT_TRUE(OkButton(window).text() == "OK") << "it does not print";
    copies.setFocus();
    copies.selectAll();
    test::Type(window, "7");
    test::Press(window, Qt::Key_Return);
  });
  EXPECT_EQ(printer.Setup(2), 7);
  EXPECT_EQ(printer.Print({"Evening", 4}, DrawTwoPages), std::nullopt);
}

TEST_F(QtPrinterTest, TheSetupThatIsCancelledSaysNothing) {
  const test::PrintQueue queue;
  QtPrinter printer(desk.Loop);
  desk.When("PrinterSetup", [](QWidget& window) { test::Press(window, Qt::Key_Escape); });
  EXPECT_EQ(printer.Setup(2), std::nullopt);
  EXPECT_EQ(printer.DeviceName(), "Office");
}

/// Turns to the entry of that number; the printers come first, a PDF last.
void ChoosePrinter(QWidget& window, int index) {
  auto& printers = test::Find<QComboBox>(window, "printers");
  printers.setCurrentIndex(index < 0 ? printers.count() + index : index);
}

TEST_F(QtPrinterTest, AnotherPrinterInACancelledSetupIsNotTaken) {
  const test::PrintQueue queue;
  QtPrinter printer(desk.Loop);
  desk.When("PrinterSetup", [](QWidget& window) {
    const auto& printers = test::Find<QComboBox>(window, "printers");
    ChoosePrinter(window, printers.findText("Cellar"));
    test::Press(window, Qt::Key_Escape);
  });
  EXPECT_EQ(printer.Setup(1), std::nullopt);
  EXPECT_EQ(printer.DeviceName(), "Office");
}

TEST_F(QtPrinterTest, APdfInACancelledSetupIsNotTaken) {
  const test::PrintQueue queue;
  QtPrinter printer = PrinterOf([] {
    auto device = std::make_unique<QPrinter>();
    device->setPrinterName("Cellar");
    return device;
  });
  desk.When("PrinterSetup", [](QWidget& window) {
    ChoosePrinter(window, -1);
    test::Press(window, Qt::Key_Escape);
  });
  EXPECT_EQ(printer.Setup(1), std::nullopt);
  EXPECT_EQ(printer.DeviceName(), "Cellar") << "and not the default one";
}

TEST_F(QtPrinterTest, AFileStaysChosenWhenTheSetupIsCancelled) {
  const test::PrintQueue queue;
  const std::string file = desk.Folder / "evening.pdf";
  QtPrinter printer = FileOf(file);
  desk.When("PrinterSetup", [](QWidget& window) {
    ChoosePrinter(window, 0);
    test::Press(window, Qt::Key_Escape);
  });
  EXPECT_EQ(printer.Setup(1), std::nullopt);
  EXPECT_EQ(printer.DeviceName(), file);
}

TEST_F(QtPrinterTest, TheSetupEndsWithTheProgram) {
  const test::PrintQueue queue;
  QtPrinter printer(desk.Loop);
  desk.When("PrinterSetup", [this](QWidget& /*window*/) { desk.Loop.Quit(); });
  EXPECT_EQ(printer.Setup(2), std::nullopt);
}

}  // namespace
}  // namespace morvane
