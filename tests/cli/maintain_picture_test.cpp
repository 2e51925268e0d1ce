#include <gmock/gmock.h>

#include <filesystem>

#include "cli/camera_desk.h"
#include "support/png_pixels.h"

// maintain picture.

namespace morvane::cli {
namespace {

using ::testing::ElementsAre;
using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;
using ::testing::StartsWith;

struct Desk : CameraDesk {
  using CameraDesk::CameraDesk;
  const std::string Picture = Folder / "card.png";
  ExitStatus Take(std::optional<int> index = {}) {
    return RunOn(Bridge, MaintainPictureOptions{.Out = Picture, .Index = index});
  }
  /// What the fetch of its lines up to `y` leads to.
  void AtLine(int y, const std::function<void()>& does) {
    OnFrame = [y, does](const test::Bytes& plain) {
      if (plain[0] == 0x01 && plain[1] == y) does();
    };
  }
};

TEST(MaintainPicture, WritesWhatTheCameraSees) {
  Desk desk;
  EXPECT_EQ(desk.Take(), kDone);
  const test::PngPixels png(test::Content(desk.Picture));
  EXPECT_TRUE(png.Grey);
  ASSERT_EQ(png.Values.size(), 128U * 192);
  for (const auto& [x, y] : {std::pair{0, 0}, {127, 0}, {0, 191}, {127, 191}, {77, 100}}) {
    EXPECT_EQ(png.At(x, y), (x + y) % 256) << x << "," << y;
  }
  EXPECT_EQ(desk.Screen.Output, "");
  EXPECT_EQ(desk.Screen.Errors, "");
}

TEST(MaintainPicture, TheCameraHasLightAndPowerBefore) {
  Desk desk;
  std::vector<int> before;
  desk.OnFrame = [&](const test::Bytes& plain) {
    if (plain[0] == 0x0A) before = desk.Sent(0x17);
  };
  EXPECT_EQ(desk.Take(), kDone);
  EXPECT_THAT(before, ElementsAre(0x30, 0x30)) << "Cam_leds and Cam_power";
}

TEST(MaintainPicture, OfTheIndexAskedForOrOfThatOfTheSettings) {
  Desk desk;
  desk.Store.Set(kCardIndex, "2");
  EXPECT_EQ(desk.Take(), kDone);
  std::filesystem::remove(desk.Picture);
  EXPECT_EQ(desk.Take(1), kDone);
  EXPECT_THAT(desk.Sent(0x0A), ElementsAre(2, 1));
  EXPECT_EQ(desk.Store.Get(kCardIndex), "2") << "nothing of it is stored";
}

TEST(MaintainPicture, AFileThatIsThereStaysAndTheMachineIsNotAsked) {
  Desk desk(/*yes=*/true);
  test::WriteContent(desk.Picture, "mine");
  EXPECT_EQ(desk.Take(), kFailed);
  EXPECT_EQ(test::Content(desk.Picture), "mine");
  EXPECT_EQ(desk.Screen.Errors, "Save Picture: " + desk.Picture +
                                    " exists already. Replace it?\n"
                                    "There is nobody to ask; --overwrite would replace it.\n"
                                    "Not replaced.\n");
  EXPECT_THAT(desk.Bridge.Calls, IsEmpty());
}

TEST(MaintainPicture, OverwriteReplacesIt) {
  Desk desk(/*yes=*/false, "", /*overwrite=*/true);
  test::WriteContent(desk.Picture, "mine");
  EXPECT_EQ(desk.Take(), kDone);
  EXPECT_THAT(test::Content(desk.Picture), StartsWith("\x89PNG"));
}

TEST(MaintainPicture, AFolderThatIsNotThereIsToldBeforeTheMachineIsAsked) {
  Desk desk;
  const std::string out = desk.Folder / "none/card.png";
  EXPECT_EQ(desk.RunOn(desk.Bridge, MaintainPictureOptions{.Out = out}), kFailed);
  EXPECT_EQ(desk.Screen.Errors, out + ": No such file or directory. Nothing is written.\n");
  EXPECT_THAT(desk.Bridge.Calls, IsEmpty());
}

#ifndef _WIN32  // no limit for files, no device that is full
TEST(MaintainPicture, APlaceWithoutRoomIsToldAndIsAFailure) {
  Desk desk;
  EXPECT_EQ(desk.RunOn(desk.Bridge, MaintainPictureOptions{.Out = "/dev/full"}), kFailed);
  EXPECT_EQ(desk.Screen.Errors, "/dev/full: No space left on device. Nothing is written.\n");
}
#endif

TEST(MaintainPicture, ALinkLostInTheMiddleLeavesTheFileAsItWas) {
  for (const int line : {0, 100, 191}) {
    Desk desk(/*yes=*/false, "", /*overwrite=*/true);
    test::WriteContent(desk.Picture, "mine");
    desk.Deaf = [line](const test::Bytes& plain) { return plain[0] == 0x01 && plain[1] == line; };
    EXPECT_EQ(desk.Take(), kFailed);
    EXPECT_EQ(test::Content(desk.Picture), "mine");
    EXPECT_EQ(desk.Screen.Errors,
              "Communication Error: Lost Communication with Morvane  -  Maintenance Aborted!\n");
  }
}

TEST(MaintainPicture, ACaptureThatIsNotAnsweredEndsIt) {
  Desk desk;
  desk.Deaf = [](const test::Bytes& plain) { return plain[0] == 0x0A; };
  EXPECT_EQ(desk.Take(), kFailed);
  EXPECT_FALSE(std::filesystem::exists(desk.Picture));
  EXPECT_THAT(desk.Sent(0x01), IsEmpty());
}

TEST(MaintainPicture, AnInterruptInTheMiddleLeavesNoFile) {
  Desk desk;
  desk.AtLine(50, [&] { desk.Loop.Quit(); });
  EXPECT_EQ(desk.Take(), kFailed);
  EXPECT_EQ(desk.Sent(0x01).size(), 51U);
  EXPECT_FALSE(std::filesystem::exists(desk.Picture));
  EXPECT_EQ(desk.Screen.Errors, "Broken off.\n");
}

TEST(MaintainPicture, AnInterruptBeforeTheFirstContactIsToldToo) {
  Desk desk;
  desk.Loop.After(500, [&] { desk.Loop.Quit(); });
  EXPECT_EQ(desk.Take(), kFailed);
  EXPECT_EQ(desk.Screen.Errors, "Broken off.\n");
}

TEST(MaintainPicture, AMachineWithoutFirmwareHasNoCamera) {
  Desk desk(/*yes=*/false, ",boot=0.00");
  EXPECT_EQ(desk.Take(), kFailed);
  EXPECT_THAT(desk.Screen.Errors, StartsWith("The machine holds no firmware"));
  EXPECT_FALSE(std::filesystem::exists(desk.Picture));
}

TEST(MaintainPicture, AnIndexThatTheMachineCannotDoIsRefused) {
  Desk desk(/*yes=*/false, ",firmware=2.3F");
  EXPECT_EQ(desk.Take(1), kFailed);
  EXPECT_THAT(desk.Screen.Errors, StartsWith("Maintenance Error: "));
  EXPECT_THAT(desk.Sent(0x0A), IsEmpty());
}

TEST(MaintainPicture, ATerminalSeesHowFarTheFetchHasCome) {
  Desk desk;
  desk.Screen.Progress = true;
  EXPECT_EQ(desk.Take(), kDone);
  EXPECT_THAT(desk.Screen.Output, StartsWith("\rPicture: 1 of 192 lines\rPicture: 2 of 192"));
  EXPECT_THAT(desk.Screen.Output, HasSubstr("\rPicture: 192 of 192 lines\r"));
  EXPECT_THAT(desk.Screen.Output, EndsWith(" \r")) << "the line is free again";
  EXPECT_THAT(desk.Screen.Output, Not(HasSubstr("\n")));
}

}  // namespace
}  // namespace morvane::cli
