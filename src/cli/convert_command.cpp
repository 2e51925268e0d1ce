#include "cli/convert_command.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <map>

#include "cli/values.h"
#include "files/format_table.h"
#include "platform/files.h"
#include "text/text.h"

namespace morvane::cli {
namespace {

/// A number that nobody asked for would be lost without a word.
bool FirstWasTaken(Job& job, const std::optional<std::string>& first) {
  if (!first || job.Windows.NumbersAsked()) return true;
  const BoardSet& set = job.Place.Prog.Set;
  job.Place.Screen.Error("--first " + *first + " was not asked for: " + set.BoardSetFile +
                         " has boards " + std::to_string(set.FirstBoard) + " to " +
                         std::to_string(set.LastBoard) + ".\n");
  return false;
}

bool ConvertFile(Job& job, const ConvertOptions& options, const std::string& in,
                 const std::string& out) {
  job.Windows.AnswerFirstBoard(options.First);
  return Load(job, in, options.Import) && FirstWasTaken(job, options.First) && Save(job, out);
}

/// Each file under its own name in the folder.
ExitStatus ConvertAll(Job& job, const ConvertOptions& options) {
  Terminal& screen = job.Place.Screen;
  std::error_code failure;
  if (!std::filesystem::is_directory(PathOfUtf8(options.Out), failure)) {
    screen.Error(options.Out + " is no folder.\n");
    return kFailed;
  }
  std::map<std::string, std::string> made;  // of which file each was
  for (const std::string& in : options.In) {
    if (job.Place.Prog.Loop.Quitting()) {
      screen.Error("Broken off before " + in + "\n");
      break;
    }
    const std::string out =
        JoinPath(options.Out, files::NameOf(FileTitle(in)) + "." + options.To.value_or(""));
    if (const auto other = made.find(out); other != made.end()) {
      screen.Error(in + " was not converted: " + out + " has been made of " + other->second + "\n");
    } else if (ConvertFile(job, options, in, out)) {
      made[out] = in;
    }
  }
  screen.Out(std::to_string(made.size()) + " of " + std::to_string(options.In.size()) +
             (options.In.size() == 1 ? " file" : " files") + " converted.\n");
  return made.size() == options.In.size() ? kDone : kFailed;
}

/// A format that can be saved, in small letters.
std::optional<std::string> FormatOf(OptionReader& given) {
  const auto text = given.Text("to");
  if (!text) return std::nullopt;
  const files::Format* const format = files::FindFormat(UpperCase(*text));
  if (format != nullptr && format->Write != nullptr) return LowerCase(*text);
  given.Refuse("--to " + *text + ": wanted " + ListOf(files::SavedExtensions()));
  return std::nullopt;
}

constexpr std::array kOperands{
    Operand{
        .Word = "IN", .Means = "the file to load; with --to there may be several", .Several = true},
    Operand{.Word = "OUT",
            .Means = "the file to save, in the format of its extension; with --to the folder"},
};
constexpr std::array kOptions{
    Option{"to", "FORMAT",
           "save each file under its name in the folder OUT, in this format; what a format "
           "loses is asked for each, unless --yes is given"},
    Option{"first", "N", "the number of the first board of a file without numbers"},
    kImportOption,
    Option{"history", "on|off",
           "off: what is converted is not added to the history, nor sought there"},
};

}  // namespace

ConvertOptions ReadConvertOptions(OptionReader& given) {
  ConvertOptions options{.In = {},
                         .Out = given.Path(given.Words() - 1),
                         .To = FormatOf(given),
                         .First = given.BoardNumber("first"),
                         .Import = given.Has("import"),
                         .History = given.Switch("history").value_or(true)};
  for (std::size_t at = 0; at + 1 < given.Words(); ++at) options.In.push_back(given.Path(at));
  if (options.In.size() > 1 && !given.Has("to")) {
    given.Refuse("convert: several files need --to FORMAT and a folder");
  }
  return options;
}

ExitStatus Convert(Job& job, const ConvertOptions& options) {
  job.KeepsHistory = options.History;
  if (options.To) return ConvertAll(job, options);
  return ConvertFile(job, options, options.In.front(), options.Out) ? kDone : kFailed;
}

constinit const Command kConvertCommand{
    .Name = "convert",
    .Operands = kOperands,
    .Options = kOptions,
    .Summary = "Loads a set from one file and saves it in another, or several in a folder.",
    .Prepare = TaskOf<ReadConvertOptions, Convert>};

}  // namespace morvane::cli
