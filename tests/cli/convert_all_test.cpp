#include <filesystem>

#include "cli/cli_desk.h"

// Convert of several files into a folder.

namespace morvane::cli {
namespace {

using ::testing::EndsWith;
using ::testing::HasSubstr;

struct FolderDesk : CliDesk {
  FolderDesk() {
    for (const char* name : {"sets", "other"}) {
      std::filesystem::create_directory(Folder / name);
    }
    test::WriteContent(Folder / "a.pbn", SuitDeals(1, 2));
    test::WriteContent(Folder / "b.PBN", SuitDeals(3, 4));
  }
  ExitStatus Convert(const std::vector<std::string>& names, const std::string& folder = "sets",
                     const std::string& to = "csv") {
    ConvertOptions request;
    for (const std::string& name : names) request.In.push_back(Folder / name);
    request.Out = Folder / folder;
    request.To = to;
    request.Import = Import;
    Store.Set(kSaveEvent, "0");
    Screen.Errors.clear();
    Screen.Output.clear();
    return Run(request);
  }
  [[nodiscard]] bool Exists(const std::string& name) const {
    return std::filesystem::exists(Folder / name);
  }
  bool Import = false;
};

TEST(ConvertAll, SavesEachUnderItsNameInTheFolder) {
  FolderDesk desk;
  EXPECT_EQ(desk.Convert({"a.pbn", "b.PBN"}), kDone) << desk.Screen.Errors;
  EXPECT_TRUE(desk.Exists("sets/a.csv"));
  EXPECT_TRUE(desk.Exists("sets/b.csv"));
  EXPECT_EQ(desk.Screen.Output, "2 of 2 files converted.\n");
  EXPECT_EQ(desk.Screen.Errors, "");
  EXPECT_EQ(desk.Convert({"sets/a.csv"}, "other", "pbn"), kDone);
  EXPECT_THAT(test::Content(desk.Folder / "other/a.pbn"), HasSubstr("[Board \"2\"]"));
  EXPECT_EQ(desk.Screen.Output, "1 of 1 file converted.\n");
}

TEST(ConvertAll, AFileThatFailsDoesNotKeepTheRestFromIt) {
  FolderDesk desk;
  test::WriteContent(desk.Folder / "bad.pbn", "Dear Sir,\r\n");
  EXPECT_EQ(desk.Convert({"none.pbn", "bad.pbn", "a.pbn", "a.pbn/x.pbn"}), kFailed);
  EXPECT_TRUE(desk.Exists("sets/a.csv"));
  EXPECT_EQ(desk.Screen.Output, "1 of 4 files converted.\n");
  const std::string aborted = "Load operation aborted!\n";
  EXPECT_EQ(desk.Screen.Errors,
            "Load Error: " + (desk.Folder / "none.pbn") +
                ": Error: 2 during load operation - No such file or directory\n" + aborted +
                "Load Error: " + (desk.Folder / "bad.pbn") +
                ": File format error\nFile is empty\n\n" + aborted + (desk.Folder / "bad.pbn") +
                " is no PBN file.\nLoad Error: " + (desk.Folder / "a.pbn/x.pbn") +
                ": Error: 20 during load operation - Not a directory\n" + aborted)
      << "each with its own error";
}

TEST(ConvertAll, AFileThatIsThereIsKeptAndTheRestGoesOn) {
  FolderDesk desk;
  test::WriteContent(desk.Folder / "sets/a.csv", "as it was");
  EXPECT_EQ(desk.Convert({"a.pbn", "b.PBN"}), kFailed);
  EXPECT_EQ(test::Content(desk.Folder / "sets/a.csv"), "as it was");
  EXPECT_TRUE(desk.Exists("sets/b.csv"));
  EXPECT_EQ(desk.Screen.Errors, "Save Board Set: " + (desk.Folder / "sets/a.csv") +
                                    " exists already. Replace it?\nThere is nobody to ask; "
                                    "--overwrite would replace it.\nNot replaced.\n");
}

TEST(ConvertAll, TwoFilesOfOneNameDoNotReplaceEachOther) {
  FolderDesk desk;
  test::WriteContent(desk.Folder / "other/a.pbn", SuitDeals(7, 7));
  EXPECT_EQ(desk.Convert({"a.pbn", "other/a.pbn"}), kFailed);
  EXPECT_EQ(desk.Screen.Errors, (desk.Folder / "other/a.pbn") +
                                    " was not converted: " + (desk.Folder / "sets/a.csv") +
                                    " has been made of " + (desk.Folder / "a.pbn") + "\n");
  EXPECT_EQ(desk.Screen.Output, "1 of 2 files converted.\n");
}

TEST(ConvertAll, WhereOneIsDonePartlyAllAre) {
  FolderDesk desk;
  desk.Import = true;
  test::WriteContent(desk.Folder / "a.pbn", SuitDeals(1, 2) + "[Board \"0\"]\r\n");
  EXPECT_EQ(desk.Convert({"a.pbn", "b.PBN"}), kPartly);
  EXPECT_THAT(desk.Screen.Errors,
              HasSubstr("Import PBN: " + (desk.Folder / "a.pbn") + ": Boards imported: 2\n"));
  EXPECT_THAT(desk.Screen.Errors,
              EndsWith("Import PBN: " + (desk.Folder / "b.PBN") + ": Boards imported: 2\n"));
  EXPECT_EQ(desk.Convert({"none.pbn", "a.pbn"}, "other"), kFailed);
}

TEST(ConvertAll, TheFolderMustBeThere) {
  FolderDesk desk;
  for (const char* name : {"none", "a.pbn"}) {
    EXPECT_EQ(desk.Convert({"a.pbn", "b.PBN"}, name), kFailed);
    EXPECT_EQ(desk.Screen.Errors, (desk.Folder / name) + " is no folder.\n");
    EXPECT_EQ(desk.Screen.Output, "");
  }
}

TEST(ConvertAll, ThatIsToldToEndNamesTheFileThatItDidNotBegin) {
  FolderDesk desk;
  desk.Loop.Quit();
  EXPECT_EQ(desk.Convert({"a.pbn", "b.PBN"}), kFailed);
  EXPECT_EQ(desk.Screen.Errors, "Broken off before " + (desk.Folder / "a.pbn") + "\n");
  EXPECT_EQ(desk.Screen.Output, "0 of 2 files converted.\n");
  EXPECT_FALSE(desk.Exists("sets/a.csv"));
}

}  // namespace
}  // namespace morvane::cli
