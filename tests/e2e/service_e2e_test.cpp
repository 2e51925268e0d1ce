#include <csignal>
#include <filesystem>

#include "e2e/maintain_fixture.h"
#include "support/png_pixels.h"

// Service file, calibration and test deal of the command line, with the simulated machine as
// another program at the other end of a pseudo-terminal.

namespace morvane::e2e {
namespace {

using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::SizeIs;
using ::testing::StartsWith;

class ServiceEndToEnd : public MaintainEndToEnd {
 protected:
  [[nodiscard]] std::vector<std::string> ServiceFiles() const {
    std::vector<std::string> paths;
    for (const auto& entry : std::filesystem::directory_iterator(data)) {
      if (entry.path().filename().string().starts_with("Service_file_")) {
        paths.push_back(entry.path().string());
      }
    }
    return paths;
  }
};

TEST_F(ServiceEndToEnd, WhatIsGatheredHereIsReadThere) {
  const Outcome made = Yes(Start(",serial=815,card=HQ"), {"service-file"});
  EXPECT_EQ(made.Status, 0) << made.Err;
  ASSERT_THAT(ServiceFiles(), SizeIs(1));
  EXPECT_EQ(made.Out, "Service_file: " + ServiceFiles()[0] + "\n");
  EXPECT_EQ(CountLines("   Service file: ", ServiceFiles()[0]), 1);
  const Outcome read =
      Run({"service-file", ServiceFiles()[0], "--picture", "card.png", "--labels", "labels.png"});
  EXPECT_EQ(read.Status, 0) << read.Err;
  EXPECT_THAT(read.Out, StartsWith("Info: Service file "));
  EXPECT_THAT(read.Out, HasSubstr("\nSerial_number: 815\n"));
  EXPECT_THAT(read.Out, HasSubstr("\nReco_error: OK\nThreshold: 46,46\nSymbol: Q\nSuit: H\n"));
  const test::PngPixels grey(test::Content(folder / "card.png"));
  ASSERT_EQ(grey.Values.size(), 128U * 192);
  for (const int value : grey.Values) EXPECT_NEAR(value, value < 130 ? 40 : 220, 4);
  EXPECT_EQ(test::PngPixels(test::Content(folder / "labels.png")).Values.size(), 3U * 128 * 192);
}

TEST_F(ServiceEndToEnd, AKillInTheMiddleLeavesNoFile) {
  const std::string named = Start();
  Process killed(YesOn(named, {"service-file"}), Around());
  ASSERT_TRUE(killed.Until([&] { return CountLines("   Service file: ") == 1; }));
  killed.Signal(SIGKILL);
  killed.Finish();
  EXPECT_THAT(ServiceFiles(), IsEmpty());
  EXPECT_EQ(Yes(named, {"service-file"}).Status, 0);
  ASSERT_THAT(ServiceFiles(), SizeIs(1));
  EXPECT_THAT(ServiceFiles()[0], EndsWith("__2.txt")) << "the first number is used up";
}

TEST_F(ServiceEndToEnd, AnInterruptLeavesNoFileAndSaysSo) {
  Process broken(YesOn(Start(), {"service-file"}), Around());
  ASSERT_TRUE(broken.Until([&] { return CountLines("   Service file: ") == 1; }));
  broken.Signal(SIGINT);
  const Outcome outcome = broken.Finish();
  EXPECT_EQ(outcome.Status, 1);
  EXPECT_THAT(outcome.Err, EndsWith("No service file was made.\n"));
  EXPECT_THAT(ServiceFiles(), IsEmpty());
}

TEST_F(ServiceEndToEnd, ACalibrationIsKeptWithoutPower) {
  std::string named = Start(",board=5");
  const Outcome outcome = Yes(named, {"calibrate"});
  EXPECT_EQ(outcome.Status, 0) << outcome.Err;
  // Lost at 101, seen again at 120: the value counts on before it is shown.
  EXPECT_EQ(outcome.Out, "On: 100\nOff: 121\nBoard_Sen: 90\n");
  EXPECT_EQ(CountLines("   Board Switch Calibration: 100,121"), 1);
  SwitchOff();
  named = Start();
  EXPECT_THAT(Maintain(named, {"parameters"}).Out, HasSubstr("\nBoard_Sen: 90\n"));
}

TEST_F(ServiceEndToEnd, AnEmptySlotIsToldBesideTheOutcome) {
  const Outcome outcome = Yes(Start(), {"calibrate"});
  EXPECT_THAT(outcome.Out, StartsWith("On: 254\nOff: 255\n"));
  EXPECT_THAT(outcome.Err, HasSubstr("The switch has seen no board at any sensitivity."));
}

TEST_F(ServiceEndToEnd, ATestDealFindsTheCardsThatAreExchanged) {
  const Outcome outcome = Yes(Start(",deck=flashed,swap=9:10"), {"test-deal"});
  EXPECT_EQ(outcome.Status, 1) << "a difference";
  EXPECT_EQ(CountLines("   Test Deal ", " expected: ST"), 1);
  EXPECT_THAT(outcome.Err, HasSubstr("The JS was recognised but ST was expected."));
  ASSERT_THAT(ServiceFiles(), SizeIs(1));
  const Outcome read = Run({"service-file", ServiceFiles()[0]});
  EXPECT_THAT(read.Out, HasSubstr("\nReco_error: 62\n"));
  EXPECT_THAT(read.Out, HasSubstr("\nSymbol: J\nSuit: S\n"));
}

TEST_F(ServiceEndToEnd, ACleanDeckIsDealtUntilSomebodyInterrupts) {
  Process deals(YesOn(Start(",deck=flashed"), {"test-deal"}), Around());
  ASSERT_TRUE(deals.Until([&] { return CountLines("   Test Deal ", " OK") >= 2; })) << deals.Err();
  deals.Signal(SIGINT);
  EXPECT_EQ(deals.Finish().Status, 1);
  EXPECT_LE(CountLines("   Test Deal ", " Cancel"), 1) << "none between two deals";
  EXPECT_THAT(LogLines().back(), StartsWith(" Exit: "));
  EXPECT_THAT(ServiceFiles(), IsEmpty());
}

}  // namespace
}  // namespace morvane::e2e
