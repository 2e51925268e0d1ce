#include "cli/console_auto_setup.h"

#include <algorithm>

namespace morvane::cli {

namespace {

constexpr int kLines = maintenance::PixelPlane::kHeight;

}  // namespace

using maintenance::AutoSetup;
using maintenance::SearchPosition;
using maintenance::SetupSearch;

ConsoleAutoSetup::~ConsoleAutoSetup() {
  progress_.Show("");
  outcome_ = SetupOutcome{setup_.Found(), setup_.Kept()};
}

void ConsoleAutoSetup::ShowSearch() {
  const SetupSearch& search = setup_.Search();
  const SearchPosition& at = search.At();
  const bool searching = search.Now() == SetupSearch::State::kSearching;
  progress_.Show(searching ? "Position X: " + std::to_string(at.pos_x) +
                                 "  Position Y: " + std::to_string(at.pos_y) + "  " +
                                 std::to_string(search.Progress()) + " %"
                           : "");
  const bool found = search.Now() == SetupSearch::State::kFound;
  if (found && setup_.Now() == AutoSetup::Stage::kOver) PrintFound();
}

void ConsoleAutoSetup::ShowPicture() {
  lines_ = std::min(lines_ + 1, kLines);  // once more when the start point has been drawn
  progress_.Show("Picture: " + std::to_string(lines_) + " of " + std::to_string(kLines) + " lines");
}

void ConsoleAutoSetup::PrintFound() {
  const SearchPosition& at = setup_.Search().At();
  ServiceLines lines{{"pos_x", std::to_string(at.pos_x)},
                     {"pos_y", std::to_string(at.pos_y)},
                     {"start_x", std::to_string(at.start_x)},
                     {"start_y", std::to_string(at.start_y)}};
  terminal_.Out(TextOf(lines));
  for (const std::string& raised : {setup_.symy(), setup_.suity()}) {
    if (!raised.empty()) terminal_.Out(raised + "\n");
  }
}

}  // namespace morvane::cli
