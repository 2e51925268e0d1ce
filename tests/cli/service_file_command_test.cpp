#include <gmock/gmock.h>

#include <filesystem>

#include "cli/cli_desk.h"
#include "cli/request.h"
#include "maintenance/service_file_sample.h"
#include "platform/files.h"
#include "support/png_pixels.h"

// service-file.

namespace morvane::cli {
namespace {

using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::Not;
using ::testing::StartsWith;

struct Desk : CliDesk {
  explicit Desk(bool yes = false, bool overwrite = false) : CliDesk(yes, AtSpeed(0), overwrite) {
    Write(SampleLines());
  }
  static std::vector<std::string> SampleLines() {
    return maintenance::ServiceLinesOf(BytesOf(maintenance::SampleServiceFile()));
  }
  static std::string Join(const std::vector<std::string>& lines) {
    return maintenance::ServiceBytesOf(lines);
  }
  void Write(const std::vector<std::string>& lines) { test::WriteContent(In, Join(lines)); }
  void WriteWithLine(std::size_t line, const std::string& text) {
    auto lines = SampleLines();
    lines[line] = text;
    Write(lines);
  }

  const std::string In = Folder / "Service_file_4711.txt";
  const std::string Picture = Folder / "picture.png";
  const std::string Labels = Folder / "labels.png";
  const ServiceFileOptions Plain{.In = In};
  const ServiceFileOptions Pictures{.In = In, .Picture = Picture, .Labels = Labels};
};

TEST(ServiceFileCommand, PrintsABoxALineInTheOrderOfTheFile) {
  Desk desk;
  EXPECT_EQ(desk.Run(desk.Plain), kDone);
  EXPECT_THAT(desk.Screen.Output,
              StartsWith("Info: Service file 3/5/2019 4:05:06 PM Software ver: 4.17 Service \n"
                         "Serial_number: 4711\n"
                         "Boards_dealed: 123456\n"));
  EXPECT_THAT(desk.Screen.Output, HasSubstr("DLLver: 3.3.0.0\nMotors: 1\nGate1: 0\n"));
  EXPECT_THAT(desk.Screen.Output, HasSubstr("Board_no_txt: 17\nMotor_speed_4: 14500\n"));
  EXPECT_THAT(desk.Screen.Output, HasSubstr("Photo1: 11\n"
                                            "National: EKDKn\n"
                                            "CardType: Framed\n"
                                            "Threshold: Bold\n"
                                            "CardIndex: Jumbo\n"
                                            "Ignore_flip: 0\n"));
  EXPECT_THAT(desk.Screen.Output, HasSubstr("Bold_th_txt: 60\nFine_th_txt: 61\n"
                                            "Bold_th1_txt: 62\nFine_th1_txt: 63\n"
                                            "Reco_error: OK\nThreshold: 90,95\nSymbol: 10\n"));
  EXPECT_THAT(desk.Screen.Output, EndsWith("HoldS: K\nHoldC:\n"
                                           "SymbolBox: 10,30,40,70\nSuitBox: 11,33,80,112\n"
                                           "Board_Sen: 100\n"
                                           "Video_Brightness: 128\n"
                                           "Video_Contrast: 64\n"));
  EXPECT_EQ(desk.Screen.Errors, "");
}

TEST(ServiceFileCommand, LabelsTheNumbersAsTheViewerDoes) {
  Desk desk;
  EXPECT_EQ(desk.Run(desk.Plain), kDone);
  EXPECT_THAT(desk.Screen.Output, HasSubstr("Suit_size_y: 31\nError 1: 0\nError 2: 100000\n"));
  EXPECT_THAT(desk.Screen.Output, HasSubstr("Error 31: 3000000\nError 33: 3200000\n"));
  EXPECT_THAT(desk.Screen.Output, HasSubstr("Error 63: 6200000\nDie_ID: 0102030405060708\n"));
  EXPECT_THAT(desk.Screen.Output, HasSubstr("Set_ID: A1A2A3A4A5A6A7A8\nTest 0: 255\n"));
  EXPECT_THAT(desk.Screen.Output, HasSubstr("Test 127: 128\nBoot_ver: 1.02\n"));
}

TEST(ServiceFileCommand, PrintsTheRecordInUseOrTheOneAskedFor) {
  Desk desk;
  EXPECT_EQ(desk.Run(desk.Plain), kDone);
  EXPECT_THAT(desk.Screen.Output,
              HasSubstr("shows: Now showing parameters for Jumbo Card Index\n"
                        "pos_x: 21\npos_y: 22\nstart_x: 23\nstart_y: 24\nSym_x_min: 25\n"));
  EXPECT_THAT(desk.Screen.Output, Not(HasSubstr("pos_x: 1\n")));
  desk.Screen.Output.clear();
  EXPECT_EQ(desk.Run(ServiceFileOptions{.In = desk.In, .Index = 0}), kDone);
  EXPECT_THAT(desk.Screen.Output,
              HasSubstr("shows: Now showing parameters for Standard Card Index\npos_x: 1\n"));
}

TEST(ServiceFileCommand, AChoiceThatIsNotKnownIsEmpty) {
  Desk desk;
  desk.WriteWithLine(5, "");
  EXPECT_EQ(desk.Run(desk.Plain), kDone);
  EXPECT_THAT(desk.Screen.Output, HasSubstr("National:\nCardType:\nThreshold:\nCardIndex:\n"
                                            "Ignore_flip:\n"));
  EXPECT_THAT(desk.Screen.Output, HasSubstr("Standard Card Index\npos_x: 1\n"));
}

TEST(ServiceFileCommand, ATextCannotCommandTheTerminal) {
  Desk desk;
  desk.WriteWithLine(2,
                     "\xC2\x9B"
                     "2J,\xC3\xBC");  // a control sequence as one character
  EXPECT_EQ(desk.Run(desk.Plain), kDone);
  EXPECT_THAT(desk.Screen.Output, HasSubstr("Serial_number: ?2J\nBoards_dealed: \xC3\xBC\n"));
}

TEST(ServiceFileCommand, OfADamagedFileWhatStandsBeforeTheDamageIsPrinted) {
  Desk desk;
  desk.WriteWithLine(4, "fast");
  EXPECT_EQ(desk.Run(desk.Plain), kPartly);
  EXPECT_THAT(desk.Screen.Output, EndsWith("Supply_volt: 12.1\nBoard_no_txt: 17\n"));
  EXPECT_EQ(desk.Screen.Errors, "Read Service: " + desk.In + ": Service file error at line: 4\n");
}

TEST(ServiceFileCommand, AFileThatIsNotThereIsTold) {
  Desk desk;
  std::filesystem::remove(desk.In);
  EXPECT_EQ(desk.Run(desk.Pictures), kFailed);
  EXPECT_EQ(desk.Screen.Output, "");
  EXPECT_THAT(desk.Screen.Errors,
              StartsWith("Read Service: " + desk.In + ": Error: 2, No such file or directory\n"));
  EXPECT_FALSE(std::filesystem::exists(desk.Picture));
}

TEST(ServiceFileCommand, AFileThatIsFarTooLargeIsNoServiceFile) {
  Desk desk;
  std::filesystem::resize_file(desk.In, 1'000'001);
  EXPECT_EQ(desk.Run(desk.Plain), kFailed);
  EXPECT_EQ(desk.Screen.Errors,
            "Read Service: " + desk.In + ": This is no service file: it is too large\n");
}

TEST(ServiceFileCommand, WritesThePictures) {
  Desk desk;
  EXPECT_EQ(desk.Run(desk.Pictures), kDone);
  const test::PngPixels grey(test::Content(desk.Picture));
  EXPECT_TRUE(grey.Grey);
  EXPECT_EQ(grey.Width, 128U);
  EXPECT_EQ(grey.Height, 192U);
  EXPECT_EQ(grey.At(100, 20), 120);
  EXPECT_EQ(grey.At(127, 191), 62);  // 318 - 256
  const test::PngPixels labels(test::Content(desk.Labels));
  EXPECT_FALSE(labels.Grey);
  // Classes 0, 1, 2, 3 at the start of the first row, three pixels each, as red, green, blue.
  const std::vector<int> colours(labels.Values.begin(), labels.Values.begin() + 36);
  EXPECT_THAT(colours, ::testing::ElementsAre(255, 255, 255, 255, 255, 255, 255, 255, 255, 0, 0, 0,
                                              0, 0, 0, 0, 0, 0, 0xC0, 0, 0, 0xC0, 0, 0, 0xC0, 0, 0,
                                              0, 0xC0, 0xFF, 0, 0xC0, 0xFF, 0, 0xC0, 0xFF));
}

TEST(ServiceFileCommand, APictureThatWasNotReadWholeIsNotWritten) {
  Desk desk;
  auto lines = Desk::SampleLines();
  lines[394].pop_back();
  desk.Write(lines);
  EXPECT_EQ(desk.Run(desk.Pictures), kPartly);
  EXPECT_TRUE(std::filesystem::exists(desk.Picture)) << "it stands before the damage";
  EXPECT_FALSE(std::filesystem::exists(desk.Labels));
  EXPECT_THAT(desk.Screen.Errors,
              EndsWith("error at line: 394\n" + desk.Labels +
                       ": The picture was not read whole. Nothing is written.\n"));
}

TEST(ServiceFileCommand, APictureThatExistsIsReplacedOnlyWhenThatIsAsked) {
  Desk desk(true);
  test::WriteContent(desk.Labels, "mine");
  EXPECT_EQ(desk.Run(desk.Pictures), kFailed) << "--yes replaces no file";
  EXPECT_EQ(test::Content(desk.Labels), "mine");
  EXPECT_FALSE(std::filesystem::exists(desk.Picture)) << "it is asked before anything is written";
  Desk forced(false, true);
  test::WriteContent(forced.Labels, "mine");
  EXPECT_EQ(forced.Run(forced.Pictures), kDone);
  EXPECT_THAT(test::Content(forced.Labels), StartsWith("\x89PNG"));
}

TEST(ServiceFileCommand, NeverWritesOverTheFileThatItReads) {
  Desk desk(false, true);
  const std::string before = test::Content(desk.In);
  EXPECT_EQ(desk.Run(ServiceFileOptions{.In = desk.In, .Labels = desk.In}), kFailed);
  EXPECT_EQ(desk.Screen.Errors, desk.In + " is the service file itself.\n");
  EXPECT_EQ(test::Content(desk.In), before);
}

TEST(ServiceFileCommand, AFolderThatIsNotThereIsToldBeforeAnythingIsPrinted) {
  Desk desk;
  const std::string out = desk.Folder / "nowhere/a.png";
  EXPECT_EQ(desk.Run(ServiceFileOptions{.In = desk.In, .Picture = out}), kFailed);
  EXPECT_EQ(desk.Screen.Output, "");
  EXPECT_THAT(desk.Screen.Errors, StartsWith(out + ": No such file or directory"));
}

std::string ErrorOf(std::vector<GivenOption> options) {
  return TakeRequest({"", {"service-file", "/a.txt"}, std::move(options)}).Error;
}

TEST(ServiceFileCommand, WrongUsageIsToldBeforeAnythingHappens) {
  EXPECT_EQ(ErrorOf({}), "");
  EXPECT_EQ(ErrorOf({{"picture", "/a.png"}, {"labels", "/b.png"}, {"index", "small"}}), "");
  EXPECT_EQ(ErrorOf({{"picture", ""}}), "--picture: a file without a name");
  EXPECT_EQ(ErrorOf({{"labels", ""}}), "--labels: a file without a name");
  EXPECT_EQ(ErrorOf({{"picture", "/a.png"}, {"labels", "/a.png"}}),
            "--picture and --labels are the same file");
  EXPECT_THAT(ErrorOf({{"picture", "/a.pbn"}}), HasSubstr(AbsolutePath("/a.pbn")));
  EXPECT_NE(ErrorOf({{"index", "large"}}), "");
  EXPECT_NE(TakeRequest({"", {"service-file"}, {}}).Error, "");
}

}  // namespace
}  // namespace morvane::cli
