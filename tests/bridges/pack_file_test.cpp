#include "bridges/pack_file.h"

#include <gtest/gtest.h>

#include "bridges/file_packs.h"
#include "bridges/machine_choice.h"
#include "files/format_table.h"
#include "simulator/simulated_machine.h"
#include "support/fakes.h"

namespace morvane::bridges {
namespace {

constexpr const char* kSuits =
    "[Board \"5\"]\r\n[Deal \"N:AKQJT98765432... .AKQJT98765432.. ..AKQJT98765432. "
    "...AKQJT98765432\"]\r\n";
constexpr const char* kEmpty = "[Board \"6\"]\r\n[Deal \"N:... ... ... ...\"]\r\n";

class PackFile : public testing::Test {
 protected:
  test::TestDesk desk;
  std::vector<Board> boards;

  /// What is wrong with a file of these bytes.
  std::string Error(const std::string& name, const std::string& bytes) {
    test::WriteContent(desk.Folder / name, bytes);
    return ReadPackFile(desk.Folder / name, boards).value_or("");
  }
  /// Why there is no machine with this pack.
  std::string ChoiceError(const std::string& pack) {
    return ChooseMachine({"simulated,speed=0,pack=" + pack}, desk.Clock).Error;
  }
};

TEST_F(PackFile, EveryFormatThatIsSavedIsTaken) {
  ASSERT_TRUE(desk.Prog.StoreSetting(kSaveEvent, "0"));
  for (const char* extension : {"BRI", "DGE", "DUP", "ALL", "BRE", "CSV", "PBN"}) {
    SCOPED_TRACE(extension);
    test::FillSet(desk.Prog.Set, 1, 2);
    desk.Prog.Set.At(1) = test::SuitBoard(1);
    desk.Prog.Set.At(2) = test::RoundBoard(2);
    const std::string path = desk.Folder / ("set." + std::string(extension));
    const files::Format& format = *files::FindFormat(extension);
    ASSERT_TRUE(format.Write(desk.Prog, format, path, ""));
    EXPECT_EQ(ReadPackFile(path, boards), std::nullopt);
    ASSERT_EQ(boards.size(), 2U);
    EXPECT_EQ(boards[0].Cards, test::SuitBoard(1).Cards);
    EXPECT_EQ(boards[1].Cards, test::RoundBoard(2).Cards);
  }
}

TEST_F(PackFile, EmptyBoardsAreNoPacks) {
  EXPECT_EQ(Error("set.pbn", std::string(kSuits) + kEmpty), "");
  ASSERT_EQ(boards.size(), 1U);
  EXPECT_EQ(boards[0].Cards, test::SuitBoard(5).Cards);
  EXPECT_EQ(Error("none.pbn", kEmpty), "there is no complete board in it");
  EXPECT_EQ(boards.size(), 1U) << "they are as they were";
}

TEST_F(PackFile, AnIncompleteBoardIsTold) {
  EXPECT_EQ(Error("set.pbn",
                  std::string(kSuits) + "[Board \"7\"]\r\n[Deal \"N:AKQ... ... ... ...\"]\r\n"),
            "board 7 is not complete");
  EXPECT_TRUE(boards.empty());
}

TEST_F(PackFile, WhatLoadRefusesIsToldInItsWords) {
  EXPECT_EQ(Error("set.bri", ""), "File format error: File is empty");
  EXPECT_EQ(Error("set.bri", "0102"),
            "File format error: Incorrect record length = 4  in record: 1");
  EXPECT_EQ(Error("set.xyz", kSuits), "this is no kind of board file");
  EXPECT_EQ(Error("Log_2611.txt", "log"), "this is no kind of board file")
      << "a log has to be asked about";
  EXPECT_EQ(ReadPackFile(desk.Folder / "missing.pbn", boards), "No such file or directory");
  EXPECT_TRUE(ReadPackFile(desk.Folder.Path() + "/", boards));
  EXPECT_TRUE(boards.empty());
}

TEST_F(PackFile, TheChosenMachineHasItsBoardsToRead) {
  ASSERT_EQ(Error("a,b.pbn", kSuits), "");
  const MachineChoice choice =
      ChooseMachine({"simulated,speed=0,pack=" + (desk.Folder / "a,b.pbn")}, desk.Clock);
  ASSERT_NE(choice.Simulated, nullptr) << choice.Error;
  EXPECT_EQ(choice.Simulated->BoardsToRead(), 1U);
  EXPECT_EQ(ChooseMachine({"simulated"}, desk.Clock).Simulated->BoardsToRead(), 0U);
}

TEST_F(PackFile, TheOperatorChoosesOne) {
  FilePacks packs(desk.Prog);
  EXPECT_FALSE(packs.Ask()) << "cancelled";
  ASSERT_EQ(desk.Ui.FileRequests.size(), 1U);
  EXPECT_EQ(desk.Ui.FileRequests[0].Title, "Load boards for reading");
  EXPECT_FALSE(desk.Ui.FileRequests[0].Saving);
  ASSERT_EQ(Error("set.pbn", kSuits), "");
  desk.Ui.Files = {desk.Folder / "set.pbn", desk.Folder / "none.pbn"};
  const auto chosen = packs.Ask();
  ASSERT_TRUE(chosen);
  ASSERT_EQ(chosen->size(), 1U);
  EXPECT_EQ(chosen->front().Cards, test::SuitBoard(5).Cards);
  EXPECT_TRUE(desk.Ui.Boxes.empty());
  EXPECT_FALSE(packs.Ask());
  ASSERT_EQ(desk.Ui.Boxes.size(), 1U);
  EXPECT_EQ(desk.Ui.Boxes[0],
            (test::FakeUi::Box{"none.pbn: No such file or directory", kOkCritical, "Load Error"}));
}

TEST_F(PackFile, ABadOneIsNoMachine) {
  EXPECT_EQ(ChoiceError("/no/such.pbn"),
            "simulated machine: pack \"/no/such.pbn\": No such file or directory");
  EXPECT_EQ(ChoiceError("/no/such.pbn,seed=1"),
            "simulated machine: pack \"/no/such.pbn,seed=1\": this is no kind of board file (pack= "
            "stands last: the rest of the text is its path)");
}

}  // namespace
}  // namespace morvane::bridges
