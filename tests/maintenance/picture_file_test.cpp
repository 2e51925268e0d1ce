#include "maintenance/picture_file.h"

#include <gmock/gmock.h>

#include "support/fakes.h"

namespace morvane::maintenance {
namespace {

using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::SizeIs;

class PictureFile : public ::testing::Test {
 protected:
  test::TestDesk desk;
  const std::string path = desk.Folder / "card.png";

  bool Save(const std::string& name) {
    desk.Ui.Files = {name};
    return SavePicture(desk.Prog, "PNG");
  }
};

TEST_F(PictureFile, TheBytesAreWrittenUnderTheNameGiven) {
  EXPECT_TRUE(Save(path));
  EXPECT_EQ(test::Content(path), "PNG");
  EXPECT_TRUE(desk.Ui.FileRequests.at(0).Saving);
  EXPECT_EQ(desk.Ui.FileRequests.at(0).Filter, "PNG (*.png)|*.png");
  EXPECT_THAT(desk.Ui.Boxes, IsEmpty());
}

TEST_F(PictureFile, ANameWithoutItGetsTheExtension) {
  EXPECT_TRUE(Save(desk.Folder / "card"));
  EXPECT_EQ(test::Content(path), "PNG");
  EXPECT_TRUE(Save(desk.Folder / "card.PNG"));
  EXPECT_EQ(test::Content(desk.Folder / "card.PNG"), "PNG");
}

TEST_F(PictureFile, TheFileThatTheExtensionMakesIsNotReplacedUnasked) {
  test::WriteContent(path, "old");
  desk.Ui.Answers = {kNo};
  EXPECT_FALSE(Save(desk.Folder / "card"));
  EXPECT_EQ(test::Content(path), "old");
  ASSERT_THAT(desk.Ui.Boxes, SizeIs(1));
  EXPECT_THAT(desk.Ui.Boxes[0].Text, HasSubstr("already exists. Do you want to replace it?"));
  desk.Ui.Answers = {kYes};
  EXPECT_TRUE(Save(desk.Folder / "card"));
  EXPECT_EQ(test::Content(path), "PNG");
}

TEST_F(PictureFile, ACancelledDialogWritesNothing) {
  EXPECT_FALSE(SavePicture(desk.Prog, "PNG"));
  EXPECT_THAT(desk.Ui.Boxes, IsEmpty());
}

TEST_F(PictureFile, WhyItCouldNotBeWrittenIsTold) {
  EXPECT_FALSE(Save(desk.Folder / "nowhere/card.png"));
  ASSERT_THAT(desk.Ui.Boxes, SizeIs(1));
  EXPECT_EQ(desk.Ui.Boxes[0].Flags, kOkCritical);
  EXPECT_THAT(desk.Ui.Boxes[0].Text, HasSubstr("No such file or directory"));
}

}  // namespace
}  // namespace morvane::maintenance
