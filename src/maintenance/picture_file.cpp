#include "maintenance/picture_file.h"

#include <filesystem>
#include <optional>

#include "platform/files.h"
#include "text/text.h"

namespace morvane::maintenance {
namespace {

constexpr const char* kTitle = "Save Picture";

/// The dialog has asked whether to replace the file, but under the name given there.
bool MayReplace(Program& program, const std::string& path) {
  std::error_code unknown;
  if (!std::filesystem::exists(PathOfUtf8(path), unknown)) return true;
  const std::string question =
      "      " + path + "      \r\n      already exists. Do you want to replace it?      ";
  return program.Ask(question, kYesNoExclamation, kTitle) == kYes;
}

std::optional<std::string> AskPictureFile(Program& program) {
  auto path = program.Operator.AskFile({kTitle, "PNG (*.png)|*.png", 1, "", true});
  if (!path || LowerCase(*path).ends_with(".png")) return path;
  std::string named = *path + ".png";
  if (!MayReplace(program, named)) return std::nullopt;
  return named;
}

}  // namespace

bool SavePicture(Program& program, std::string_view png) {
  const auto path = AskPictureFile(program);
  if (!path) return false;
  const auto error = WriteFile(*path, png);
  if (error) {
    program.ShowMessage(
        "      The picture has not been saved:      \r\n      " + error->Description + "      ",
        kOkCritical, kTitle);
  }
  return !error;
}

}  // namespace morvane::maintenance
