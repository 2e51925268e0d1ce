#include "maintenance/read_service.h"

#include <gmock/gmock.h>

#include "maintenance/service_file_sample.h"
#include "support/fakes.h"

namespace morvane::maintenance {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;
using Box = test::FakeUi::Box;

class CountingView final : public ReadServiceView {
 public:
  void ShowAll() override { ++Shown; }
  int Shown = 0;
};

class ReadServiceTest : public ::testing::Test {
 protected:
  ReadServiceTest() { Write(lines); }
  void Write(const std::vector<std::string>& content) const {
    test::WriteContent(path, ServiceBytesOf(content));
  }
  void OpenWithLine(std::size_t line, const std::string& text) {
    auto changed = lines;
    changed[line] = text;
    Write(changed);
    viewer.Open(view, path);
  }
  [[nodiscard]] Readings Sensors() const { return SensorsIn(viewer.Read()); }

  const std::vector<std::string> lines = ServiceLinesOf(BytesOf(SampleServiceFile()));
  test::TestDesk desk;
  const std::string path = desk.Folder / "Service_file_4711.txt";
  CountingView view;
  ReadService viewer{desk.Prog};
};

TEST_F(ReadServiceTest, AsksForAFileInTheDataFolderFirst) {
  desk.Ui.Files = {path};
  viewer.Open(view, "");
  ASSERT_THAT(desk.Ui.FileRequests, SizeIs(1));
  EXPECT_EQ(desk.Ui.FileRequests[0].Filter, "Morvane Service file (*.txt)|*.txt");
  EXPECT_EQ(desk.Ui.FileRequests[0].Directory, desk.Prog.Paths.Data);
  EXPECT_FALSE(desk.Ui.FileRequests[0].Saving);
  EXPECT_EQ(viewer.Path(), path);
  EXPECT_EQ(viewer.Read().File["Serial_number"], "4711");
  EXPECT_EQ(view.Shown, 1);
  EXPECT_FALSE(viewer.Closed());
  EXPECT_THAT(desk.Ui.Boxes, IsEmpty());
}

TEST_F(ReadServiceTest, AsksForTheNextWhereTheLastOneWas) {
  desk.Ui.Files = {path};
  viewer.Open(view, "");
  viewer.Ask();
  EXPECT_EQ(desk.Ui.FileRequests.at(1).Directory, desk.Folder / "");
  ReadService later{desk.Prog};
  later.Open(view, "");
  EXPECT_EQ(desk.Ui.FileRequests.at(2).Directory, desk.Folder / "");
}

TEST_F(ReadServiceTest, WithoutAFileItGoes) {
  viewer.Open(view, "");
  EXPECT_TRUE(viewer.Closed());
}

TEST_F(ReadServiceTest, WhenNoOtherFileIsChosenTheOneThatIsThereStays) {
  viewer.Open(view, path);
  viewer.Ask();
  EXPECT_FALSE(viewer.Closed());
  EXPECT_EQ(viewer.Path(), path);
}

TEST_F(ReadServiceTest, AFileThatCannotBeReadLeavesTheOneThatIsThere) {
  viewer.Open(view, path);
  viewer.OpenFile(desk.Folder / "none.txt");
  EXPECT_EQ(viewer.Path(), path);
  EXPECT_EQ(viewer.Read().File["Serial_number"], "4711");
  EXPECT_THAT(desk.Ui.Boxes, ElementsAre(Box{"      Error: 2, No such file or directory      \r\n"
                                             "      Service file: " +
                                                 (desk.Folder / "none.txt") + "      ",
                                             kOkCritical, "Read Service"}));
}

TEST_F(ReadServiceTest, OnceThereWasAFileAnotherMayBeTried) {
  viewer.Open(view, desk.Folder / "none.txt");
  EXPECT_FALSE(viewer.Closed()) << "the window's button asks for another";
}

TEST_F(ReadServiceTest, AFaultyLineIsNamedAndWhatWasReadStays) {
  OpenWithLine(7, "1,2,x");
  EXPECT_THAT(desk.Ui.Boxes,
              ElementsAre(Box{"      Service file error at line: 7", kOkCritical, "Read Service"}));
  EXPECT_EQ(viewer.Read().File["Serial_number"], "4711");
  EXPECT_EQ(view.Shown, 1);
}

TEST_F(ReadServiceTest, WhatWasReadIsShownWhenTheFaultIsTold) {
  int shown = 0;
  desk.Ui.OnBox = [&] { shown = view.Shown; };
  OpenWithLine(20, "");
  EXPECT_EQ(shown, 1);
}

TEST_F(ReadServiceTest, LogsNoFileThatItShows) {
  const auto before = desk.LogLines();
  viewer.Open(view, path);
  viewer.Reco();
  EXPECT_EQ(desk.LogLines(), before);
}

TEST_F(ReadServiceTest, ShowsTheRecordOfTheIndexThatWasInUse) {
  viewer.Open(view, path);
  EXPECT_EQ(viewer.Index(), 1);
  EXPECT_EQ(viewer.Shows(), "Now showing parameters for Jumbo Card Index");
  EXPECT_EQ(viewer.Record()[0], "21");
}

TEST_F(ReadServiceTest, ShowsTheRecordThatIsAskedFor) {
  viewer.Open(view, path);
  viewer.Show_st();
  EXPECT_EQ(viewer.Shows(), "Now showing parameters for Standard Card Index");
  EXPECT_EQ(viewer.Record()[11], "12");
  viewer.Show_sm();
  EXPECT_EQ(viewer.Shows(), "Now showing parameters for Small Card Index");
  EXPECT_EQ(viewer.Record()[0], "0");
  viewer.Show_j();
  EXPECT_EQ(viewer.Shows(), "Now showing parameters for Jumbo Card Index");
  EXPECT_EQ(viewer.Record()[11], "255");
}

TEST_F(ReadServiceTest, ShowsNoRecordWhereNoneWasRead) {
  OpenWithLine(3, "x");
  EXPECT_EQ(viewer.Shows(), "");
  EXPECT_EQ(viewer.Record()[0], "");
}

TEST_F(ReadServiceTest, ASwitchIsGreenWhenOnAndRedOtherwise) {
  OpenWithLine(3, "1,0,0,0,1,1,0,1,ON,OFF,on,,31.4,12.1,17");
  EXPECT_EQ(Sensors().Front_Switch, (Reading{"ON", Shade::kGood}));
  EXPECT_EQ(Sensors().Box_Switch, (Reading{"OFF", Shade::kBad}));
  EXPECT_EQ(Sensors().Cover_Switch, (Reading{"on", Shade::kBad}));
  EXPECT_EQ(Sensors().Flip_Switch, (Reading{"", Shade::kBad}));
  EXPECT_EQ(Sensors().Inside_temp.Text, "31.4");
  EXPECT_EQ(Sensors().Supply_volt.Text, "12.1");
  EXPECT_EQ(Sensors().Board_no_txt, "17");
}

TEST_F(ReadServiceTest, ASwitchThatWasNotReadHasNoColour) {
  OpenWithLine(2, "\x01");
  EXPECT_EQ(Sensors().Front_Switch, Reading{});
}

TEST_F(ReadServiceTest, AMotorHasTheConsolesColours) {
  OpenWithLine(4, "13000,13001,15999,16000,5,4,3,2,1");
  EXPECT_EQ(Sensors().Motor_speed[4], (Reading{"13000", Shade::kBad}));
  EXPECT_EQ(Sensors().Motor_speed[3], (Reading{"13001", Shade::kGood}));
  EXPECT_EQ(Sensors().Motor_speed[2], (Reading{"15999", Shade::kGood}));
  EXPECT_EQ(Sensors().Motor_speed[1], (Reading{"16000", Shade::kBad}));
}

TEST_F(ReadServiceTest, AMotorThatStandsIsWhiteAndOneThatIsNotKnownEmpty) {
  OpenWithLine(4, "0,-1,");
  EXPECT_EQ(Sensors().Motor_speed[4], (Reading{"0", Shade::kPlain}));
  EXPECT_EQ(Sensors().Motor_speed[3], (Reading{"-1", Shade::kBad}));
  EXPECT_EQ(Sensors().Motor_speed[2], Reading{});
  EXPECT_EQ(Sensors().Photo[2], Reading{});
}

TEST_F(ReadServiceTest, TheSwitchByteColoursThePhotoSensors) {
  viewer.Open(view, path);  // 37 = 32 + 4 + 1; bit 5 is no photo sensor's
  EXPECT_EQ(Sensors().Photo[1], (Reading{"11", Shade::kGood}));
  EXPECT_EQ(Sensors().Photo[2], (Reading{"12", Shade::kPlain}));
  EXPECT_EQ(Sensors().Photo[3], (Reading{"13", Shade::kGood}));
  EXPECT_EQ(Sensors().Photo[4], (Reading{"14", Shade::kPlain}));
  EXPECT_EQ(Sensors().Photo[5], (Reading{"15", Shade::kPlain}));
}

TEST_F(ReadServiceTest, BothPicturesAreThereAtOnceAndTheButtonsExchangeThem) {
  viewer.Open(view, path);
  EXPECT_EQ(viewer.Painted(), PictureStore::Kind::kGrey);
  EXPECT_EQ(viewer.Pictures().Picture1.At(100, 20), Grey(120));
  EXPECT_EQ(viewer.Beside().At(3, 0), kBlack);
  viewer.Reco();
  EXPECT_EQ(viewer.Painted(), PictureStore::Kind::kLabels);
  EXPECT_EQ(viewer.Pictures().Picture1.At(3, 0), kBlack);
  EXPECT_EQ(viewer.Beside().At(100, 20), Grey(120));
  viewer.Capture();
  EXPECT_EQ(viewer.Painted(), PictureStore::Kind::kGrey);
}

TEST_F(ReadServiceTest, LabelsHaveTheColoursOfTheZoom) {
  viewer.Open(view, path);
  viewer.Reco();
  const PaintedPicture& painted = viewer.Pictures().Picture1;
  EXPECT_EQ(painted.At(0, 0), 0xFFFFFFU);
  EXPECT_EQ(painted.At(3, 0), 0U);
  EXPECT_EQ(painted.At(6, 0), 0xC0U);
  EXPECT_EQ(painted.At(9, 0), 0xFFC000U);
}

TEST_F(ReadServiceTest, RowsThatWereNotReadStayWhite) {
  OpenWithLine(20, "");  // rows 0 to 9 stand before it
  EXPECT_EQ(viewer.Pictures().Picture1.At(0, 9), Grey(9));
  EXPECT_EQ(viewer.Pictures().Picture1.At(0, 10), kWhite);
  EXPECT_EQ(viewer.Beside().At(3, 0), kWhite);
}

TEST_F(ReadServiceTest, FramesAreDrawnOnBothUntilThePicturesArePaintedAnew) {
  viewer.Open(view, path);
  viewer.Frame_draw();  // 10..30 by 40..70, and 11..33 by 80..112
  for (const PaintedPicture* picture : {&viewer.Pictures().Picture1, &viewer.Beside()}) {
    EXPECT_EQ(picture->At(10, 40), kRed);
    EXPECT_EQ(picture->At(30, 70), kRed);
    EXPECT_EQ(picture->At(33, 112), kRed);
    EXPECT_NE(picture->At(20, 50), kRed);
  }
  viewer.Capture();
  EXPECT_EQ(viewer.Pictures().Picture1.At(10, 40), Grey(50));
}

TEST_F(ReadServiceTest, TheStartPointIsThatOfTheRecordThatIsShown) {
  viewer.Open(view, path);
  viewer.Show_st();  // 3, 4
  viewer.Start_draw();
  EXPECT_EQ(viewer.Pictures().Picture1.At(5, 6), kYellow);
  EXPECT_EQ(viewer.Beside().At(8, 9), kBlue);
  EXPECT_EQ(viewer.Pictures().Picture1.At(33, 100), kYellow) << "the band ends there";
}

TEST_F(ReadServiceTest, AnotherFileReplacesAllOfIt) {
  viewer.Open(view, path);
  viewer.Reco();
  viewer.Frame_draw();
  test::WriteContent(desk.Folder / "other.txt", BytesOf(ServiceFile{}));
  viewer.OpenFile(desk.Folder / "other.txt");
  EXPECT_EQ(viewer.Read().File["Serial_number"], "");
  EXPECT_EQ(viewer.Index(), 0);
  EXPECT_EQ(viewer.Painted(), PictureStore::Kind::kGrey);
  EXPECT_EQ(viewer.Pictures().Picture1.At(10, 40), kBlack);
}

}  // namespace
}  // namespace morvane::maintenance
