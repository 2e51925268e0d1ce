#include <filesystem>

#include "e2e/e2e_fixture.h"

// The desktop where it has no display to show itself on.

namespace morvane::e2e {
namespace {

class NoDisplayEndToEnd : public EndToEnd {
 protected:
  Outcome StartWith(const std::vector<std::string>& variables,
                    const std::vector<std::string>& words = {}) {
    Surroundings around{.Folder = folder.Path(), .Program = ProgramNamed("morvane")};
    around.Variables = variables;
    return Process(Whole(words), around).Finish();
  }
};

TEST_F(NoDisplayEndToEnd, WithoutADisplayOneLineSaysSoAndTheProgramEndsWith1) {
  const Outcome outcome = StartWith({"QT_QPA_PLATFORM=", "DISPLAY=", "WAYLAND_DISPLAY="});
  EXPECT_EQ(outcome.Status, 1);
  EXPECT_EQ(outcome.Err,
            "morvane: there is no display: neither DISPLAY nor WAYLAND_DISPLAY is set\n");
  EXPECT_EQ(outcome.Out, "");
  EXPECT_TRUE(std::filesystem::is_empty(folder.Path())) << "nothing was begun";
}

TEST_F(NoDisplayEndToEnd, ADisplayThatCannotBeOpenedIsNamed) {
  const Outcome outcome = StartWith({"QT_QPA_PLATFORM=", "DISPLAY=:4711", "WAYLAND_DISPLAY="});
  EXPECT_EQ(outcome.Status, 1);
  EXPECT_EQ(outcome.Err, "morvane: the display :4711 cannot be opened\n");
}

TEST_F(NoDisplayEndToEnd, ThePlatformAskedForIsNamed) {
  const Outcome outcome = StartWith({"QT_QPA_PLATFORM=xcb", "DISPLAY=:4711", "WAYLAND_DISPLAY="});
  EXPECT_EQ(outcome.Status, 1);
  EXPECT_EQ(outcome.Err, "morvane: the display :4711 cannot be opened with QT_QPA_PLATFORM=xcb\n");
}

}  // namespace
}  // namespace morvane::e2e
