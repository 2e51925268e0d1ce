#include <filesystem>

#include "files/file_boxes.h"
#include "files/load_desk.h"

namespace morvane::files {
namespace {

using test::FakeUi;
using ::testing::ElementsAre;

FakeUi::Box UnknownFormat(const std::string& extension) {
  return {
      "      Unknow file format: " + extension + "      \r\n      Load operation aborted!      ",
      16, "Load Error"};
}

TEST(FailedLoad, AnUnknownExtensionIsNamedAndTheOldSetIsLost) {
  LoadDesk desk;
  desk.Ui.Files = {desk.Folder / "set.old.xyz"};
  desk.Load();
  EXPECT_THAT(desk.Ui.Boxes, ElementsAre(UnknownFormat("XYZ")));
  EXPECT_THAT(desk.Ui.Statuses, ElementsAre("Loading", "Load operation aborted", "Ready"));
  EXPECT_THAT(desk.LogLines(),
              ElementsAre(" File-Load: 3:04:05 PM", "  Load: " + (desk.Folder / "set.old.xyz"),
                          "    Load Error: Unknow file format: XYZ : Load operation aborted!"));
  ExpectNoSet(desk.Prog.Set);
  EXPECT_FALSE(desk.Store.Has(kInitFormat));
  EXPECT_FALSE(desk.Store.Has(kInitDirectory));
}

TEST(FailedLoad, ANameWithoutADotHasNothingInItsPlace) {
  LoadDesk desk;
  std::filesystem::create_directory(desk.Folder / "club.pbn");
  desk.Ui.Files = {desk.Folder / "club.pbn/two"};  // the dot of a folder does not count
  desk.Load();
  EXPECT_THAT(desk.Ui.Boxes, ElementsAre(UnknownFormat("")));
  ExpectNoSet(desk.Prog.Set);
}

TEST(FailedLoad, ALogIsUnknownWithoutServiceLevelAndHasNothingInItsPlace) {
  LoadDesk desk;
  const std::string path = desk.Folder / "Log_2026_3.txt";
  test::WriteContent(path, "");
  desk.Ui.Files = {path};
  desk.Load();
  EXPECT_THAT(desk.Ui.Boxes, ElementsAre(UnknownFormat("")));
  ExpectNoSet(desk.Prog.Set);
}

TEST(FailedLoad, APendingNamesTitleStandsBehindItsLastSeparator) {
  LoadDesk desk;
  desk.StartFile = "/sets.pbn/evening";
  desk.Load();
  EXPECT_THAT(desk.Ui.Boxes, ElementsAre(UnknownFormat("")));
}

#ifndef _WIN32  // there both separate
TEST(FailedLoad, OffWindowsABackslashAndAColonArePartOfTheTitle) {
  LoadDesk desk;
  desk.StartFile = "c:\\sets.pbn\\evening";
  desk.Load();
  EXPECT_THAT(desk.Ui.Boxes, ElementsAre(UnknownFormat("PBN\\EVENING")));
  const std::string path = desk.Folder / "a:b\\two.pbn";
  test::WriteContent(path, kTwoBoards);
  desk.StartFile = path;
  desk.Load();
  EXPECT_EQ(desk.Prog.Set.BoardSetFile, path);
  EXPECT_EQ(desk.Store.Get(kInitDirectory), desk.Folder / "");
}
#endif

TEST(FailedLoad, AHugeFaultyValueIsQuotedInTime) {
  LoadDesk desk;
  const std::string path = desk.Folder / "huge.pbn";
  std::string value;
  for (int i = 0; i < 500'000; ++i) value += "record###      ";
  test::WriteContent(path, "[Board \"1\"]\n[Dealer \"" + value + "\"]\n");
  EXPECT_FALSE(LoadFile(desk.Prog, desk.History, path));
  EXPECT_TRUE(desk.Ui.Boxes.at(0).Text.ends_with(
      "line2      \" in line: 2      \r\n\r\n      Load operation aborted!      "));
  ExpectNoSet(desk.Prog.Set);
}

TEST(FailedLoad, AMissingFileIsTheSystemsError) {
  LoadDesk desk;
  desk.Ui.Files = {desk.Folder / "none.pbn"};
  desk.Load();
  EXPECT_THAT(desk.Ui.Boxes, ElementsAre(LoadFailure("2", "No such file or directory")));
  EXPECT_THAT(desk.Ui.Statuses, ElementsAre("Loading", "Ready"));
  EXPECT_THAT(desk.LogLines(),
              ElementsAre(" File-Load: 3:04:05 PM", "  Load: " + (desk.Folder / "none.pbn"),
                          "    Load Error: Error: 2 during load operation - No such file or "
                          "directory : Load operation aborted!"));
  ExpectNoSet(desk.Prog.Set);
}

TEST(FailedLoad, ADirectoryIsTheSystemsError) {
  LoadDesk desk;
  std::filesystem::create_directory(desk.Folder / "x.pbn");
  desk.Ui.Files = {desk.Folder / "x.pbn"};
  desk.Load();
  EXPECT_THAT(desk.Ui.Boxes, ElementsAre(LoadFailure("21", "Is a directory")));
  ExpectNoSet(desk.Prog.Set);
}

#ifndef _WIN32  // no folder of processes
TEST(FailedLoad, AFileThatCannotBeReadIsTheSystemsError) {
  LoadDesk desk;
  std::filesystem::create_symlink("/proc/self/mem", desk.Folder / "x.pbn");
  desk.Ui.Files = {desk.Folder / "x.pbn"};
  desk.Load();
  EXPECT_THAT(desk.Ui.Boxes, ElementsAre(LoadFailure("5", "Input/output error")));
  ExpectNoSet(desk.Prog.Set);
}
#endif

TEST(FailedLoad, EveryLaterOneShowsTheFirstOnesWords) {
  LoadDesk desk;
  std::filesystem::create_directory(desk.Folder / "x.pbn");
  EXPECT_FALSE(LoadFile(desk.Prog, desk.History, desk.Folder / "none.pbn"));
  EXPECT_FALSE(LoadFile(desk.Prog, desk.History, desk.Folder / "x.pbn"));
  const FakeUi::Box first = LoadFailure("2", "No such file or directory");
  EXPECT_THAT(desk.Ui.Boxes, ElementsAre(first, first));
}

TEST(FailedLoad, AFaultInTheFileNamesItsLineAndNothingSurvives) {
  LoadDesk desk;
  const std::string path = desk.Folder / "bad.pbn";
  test::WriteContent(path, kTwoBoards + "[Board \"641\"]\r\n");
  desk.Ui.Files = {path};
  desk.Load();
  EXPECT_THAT(desk.Ui.Boxes, ElementsAre(LoadError(Told("Invalid board number in line: 8"))));
  EXPECT_THAT(desk.Ui.Statuses,
              ElementsAre("Loading", "Load operation aborted",
                          "Load operation aborted. File - Import PBN may take this file"));
  EXPECT_THAT(desk.LogLines(),
              ElementsAre(" File-Load: 3:04:05 PM", "  Load: " + path,
                          "    Load Error: File format error: Invalid board number in line: 8 :  : "
                          "Load operation aborted!"));
  ExpectNoSet(desk.Prog.Set);
}

TEST(FailedLoad, AFileWithoutBytesOrWithAMarkAloneIsEmpty) {
  for (const char* content : {"", "\xEF\xBB\xBF"}) {
    LoadDesk desk;
    const std::string path = desk.Folder / "empty.pbn";
    test::WriteContent(path, content);
    EXPECT_FALSE(LoadFile(desk.Prog, desk.History, path));
    EXPECT_THAT(desk.Ui.Boxes, ElementsAre(LoadError(kFileIsEmpty)));
    EXPECT_THAT(desk.Ui.Statuses, ElementsAre("Load operation aborted", "Ready"));
    ExpectNoSet(desk.Prog.Set);
  }
}

TEST(FailedLoad, TheNextLoadWorksAgain) {
  LoadDesk desk;
  EXPECT_FALSE(LoadFile(desk.Prog, desk.History, desk.Folder / "none.pbn"));
  EXPECT_TRUE(LoadFile(desk.Prog, desk.History, desk.Good));
  EXPECT_EQ(desk.Prog.Set.Count(), 2);
}

TEST(FailedLoad, AFileTooLargeForASetIsRefusedInWords) {
  for (const char* name : {"set.pbn", "set.bri", "set.csv", "set.dup"}) {
    LoadDesk desk;
    const std::string path = desk.Folder / name;
    test::WriteContent(path, "");
    std::filesystem::resize_file(path,
                                 268'435'457);  // 256 MB and a byte, of which the disk has none
    desk.Ui.Files = {path};
    desk.Load();
    EXPECT_THAT(desk.Ui.Boxes, ElementsAre(LoadFailure("27", "File too large")));
    ExpectNoSet(desk.Prog.Set);
  }
}

}  // namespace
}  // namespace morvane::files
