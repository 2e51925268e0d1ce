#include "shell/guide.h"

#include <algorithm>
#include <array>
#include <filesystem>

#include "platform/files.h"
#include "platform/utf8_of_path.h"
#include "shell/help_pages.h"
#include "shell/installed_guide.h"
#include "text/box_text.h"

namespace morvane::shell {
namespace {

/// Seen from the program's folder: beside the program, in a build tree, and installed. What lies
/// beside an unpacked folder is nobody's guide to this program.
constexpr std::array kPlaces{std::string_view("guide"), std::string_view("../guide"),
                             kInstalledGuide};

std::string PathOf(const std::string& folder, std::string_view page) {
  return JoinPath(folder, std::string(page) + ".html");
}

bool IsThere(const std::string& path) {
  std::error_code none;
  return std::filesystem::is_regular_file(PathOfUtf8(path), none);
}

std::string Line(const std::string& text) { return "      " + text + "      \r\n"; }

}  // namespace

std::string Guide::Folder() const {
  const auto folderAt = [this](std::string_view place) {
    const auto path = PathOfUtf8(JoinPath(program_.Paths.Application, place));
    return Utf8OfPath(path.lexically_normal());
  };
  const auto* place = std::find_if(kPlaces.begin(), kPlaces.end(), [&](std::string_view each) {
    return IsThere(PathOf(folderAt(each), kContentsPage));
  });
  return folderAt(place == kPlaces.end() ? kInstalledGuide : *place);
}

void Guide::Open(std::string_view page) {
  const std::string path = PathOf(Folder(), page);
  if (!IsThere(path)) {
    return Tell(Line("The guide is not installed.") + Line("Its page would be: " + path) + "\r\n" +
                Line(kGuideAdvice));
  }
  // The system says that it hands a page on, not that somebody has a browser for it.
  program_.Status("The guide: " + path);
  if (desktop_.Show(path)) return;
  Tell(Line("No web browser could be started.") + Line("The page is: " + path) + "\r\n" +
       Line("Please open it in a web browser."));
}

void Guide::Tell(const std::string& text) { program_.ShowBeside(text, kOkInformation, kCaption); }

}  // namespace morvane::shell
