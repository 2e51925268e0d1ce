#include "bridges/simulated_choice.h"

#include "bridges/pack_file.h"

namespace morvane::bridges {
namespace {

/// What is wrong with the file of `pack=`. A text with further keys behind it is a mistake that is
/// easily made.
std::string PackError(const std::string& path, const std::string& error) {
  const bool hasKeys = path.find(',') != std::string::npos;
  return "simulated machine: pack \"" + path + "\": " + error +
         (hasKeys ? " (pack= stands last: the rest of the text is its path)" : "");
}

}  // namespace

SimulatedChoice ChooseSimulated(std::string_view text) {
  SimulatedChoice choice;
  if (auto error = simulator::ParseOptions(text, choice.Kind)) {
    choice.Error = *error;
  } else if (!choice.Kind.Pack.empty()) {
    const auto wrong = ReadPackFile(choice.Kind.Pack, choice.Boards);
    if (wrong) choice.Error = PackError(choice.Kind.Pack, *wrong);
  }
  return choice;
}

}  // namespace morvane::bridges
