#include "shell/guide.h"

#include <filesystem>

#include "platform/files.h"
#include "platform/utf8_of_path.h"
#include "support/fake_desktop.h"
#include "support/fakes.h"

namespace morvane::shell {
namespace {

#ifdef _WIN32
const std::string kPlace = "usr/libexec/morvane/guide";
const std::string kAdvice = "Please install Morvane again, or unpack it whole.";
#else
const std::string kPlace = "usr/share/morvane/guide";
const std::string kAdvice = "Please install the package morvane-doc.";
#endif

using test::FakeUi;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// As the program names a page: with the system's separators.
std::string NativePage(const std::string& folder, const std::string& page) {
  return Utf8OfPath(PathOfUtf8(JoinPath(folder, page + ".html")).make_preferred());
}

/// A program of its own folder, with guides where the test puts them.
struct GuideDesk : test::TestDesk {
  test::FakeDesktop Around;
  Program Installed{{Ui, Loop, Clock, Store, Random, Speaker, ThePrinter},
                    {Folder / "usr/libexec/morvane", Folder / "data"}};
  Guide TheGuide{Installed, Around};

  std::string PutPage(const std::string& folder, const std::string& page) {
    std::filesystem::create_directories(Folder / folder);
    test::WriteContent(Folder / (folder + "/" + page + ".html"), "page");
    return Folder / (folder + "/" + page + ".html");
  }
};

TEST(Guide, IsFoundWhereItIsInstalled) {
  GuideDesk desk;
  desk.PutPage(kPlace, "index");
  const std::string page = desk.PutPage(kPlace, "stops");
  desk.TheGuide.Open("stops");
  EXPECT_THAT(desk.Around.Shown, ElementsAre(page));
  EXPECT_THAT(desk.Ui.Boxes, IsEmpty());
}

TEST(Guide, SaysInTheStatusWhichPageItHandsOn) {
  GuideDesk desk;
  desk.PutPage(kPlace, "index");
  const std::string page = desk.PutPage(kPlace, "stops");
  desk.TheGuide.Open("stops");
  EXPECT_EQ(desk.Ui.Statuses.back(), "The guide: " + page);
}

TEST(Guide, OfABuildTreeIsTakenWhereNoneLiesBesideTheProgram) {
  GuideDesk desk;
  desk.PutPage("usr/share/morvane/guide", "index");
  const std::string page = desk.PutPage("usr/libexec/guide", "index");
  desk.TheGuide.Open("index");
  EXPECT_THAT(desk.Around.Shown, ElementsAre(page));
}

TEST(Guide, BesideTheProgramComesFirst) {
  GuideDesk desk;
  desk.PutPage("usr/libexec/guide", "index");
  const std::string page = desk.PutPage("usr/libexec/morvane/guide", "index");
  desk.TheGuide.Open("index");
  EXPECT_THAT(desk.Around.Shown, ElementsAre(page));
}

TEST(Guide, ThatIsNotInstalledIsToldWithItsPlaceAndItsPackage) {
  GuideDesk desk;
  desk.TheGuide.Open("stops");
  EXPECT_THAT(desk.Around.Shown, IsEmpty());
  EXPECT_THAT(desk.Ui.Boxes, ElementsAre(FakeUi::Box{"      The guide is not installed.      \r\n"
                                                     "      Its page would be: " +
                                                         NativePage(desk.Folder / kPlace, "stops") +
                                                         "      \r\n"
                                                         "\r\n"
                                                         "      " +
                                                         kAdvice + "      \r\n",
                                                     64, "Guide"}));
}

TEST(Guide, SaysWhereThePageIsWhenNoBrowserStarts) {
  GuideDesk desk;
  const std::string page = desk.PutPage(kPlace, "index");
  desk.Around.Shows = false;
  desk.TheGuide.Open("index");
  ASSERT_EQ(desk.Ui.Boxes.size(), 1U);
  EXPECT_EQ(desk.Ui.Boxes[0].Text,
            "      No web browser could be started.      \r\n"
            "      The page is: " +
                page +
                "      \r\n"
                "\r\n"
                "      Please open it in a web browser.      \r\n");
}

}  // namespace
}  // namespace morvane::shell
