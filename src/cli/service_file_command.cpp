#include "cli/service_file_command.h"

#include <array>

#include "cli/camera_service.h"
#include "cli/console_service.h"
#include "cli/paper_request.h"
#include "cli/service_lines.h"
#include "maintenance/png.h"
#include "maintenance/read_service.h"
#include "platform/files.h"
#include "platform/paths.h"

namespace morvane::cli {
namespace {

using maintenance::PictureStore;
using maintenance::ServiceFile;
using maintenance::ServiceFileRead;
namespace service_line = maintenance::service_line;

constexpr int kSelectionLine = 5;

ServiceLines FieldLines(const ServiceFile& file, int line) {
  ServiceLines lines;
  for (std::size_t at = 0; at < maintenance::kServiceFields.size(); ++at) {
    const maintenance::ServiceField& field = maintenance::kServiceFields[at];
    if (field.Line != line) continue;
    lines.push_back({std::string(field.Name), file[maintenance::ServiceFieldName(at)]});
  }
  return lines;
}

/// The first fields are digits; shown are the captions of what they choose, as the console has it.
ServiceLines ChoiceLines(const ServiceFile& file) {
  using maintenance::NumberIn;
  const std::array digits{NumberIn(file, "National digit"), NumberIn(file, "CardType digit"),
                          NumberIn(file, "Threshold digit"), NumberIn(file, "CardIndex digit")};
  ServiceLines lines = SelectionLines(
      {digits[0].value_or(0), digits[1].value_or(0), digits[2].value_or(0), digits[3].value_or(0)});
  for (std::size_t i = 0; i < digits.size(); ++i) {
    if (!digits[i]) lines[i].Value.clear();
  }
  const ServiceLines fields = FieldLines(file, kSelectionLine);
  lines.insert(lines.end(), fields.begin() + digits.size(), fields.end());
  return lines;
}

ServiceLines RecordLines(const ServiceFile& file, int index) {
  ServiceLines lines{{"shows", maintenance::ShowsText(index)}};
  const ServiceFile::Record& record = file.Records[static_cast<std::size_t>(index)];
  for (std::size_t i = 0; i < record.size(); ++i) {
    lines.push_back({std::string(maintenance::kRecordNames[i]), record[i]});
  }
  return lines;
}

ServiceLine FrameLine(const char* name, const wire::SymbolFrame& box) {
  std::string edges;
  for (const auto edge : maintenance::kFrameEdges) {
    edges += (edges.empty() ? "" : ",") + std::to_string(box.*edge);
  }
  return {name, edges};
}

ServiceLines NumberLines(const char* name, const std::vector<maintenance::LabelledNumber>& all) {
  ServiceLines lines;
  for (const auto& [label, text] : all) {
    lines.push_back({std::string(name) + " " + std::to_string(label), std::string(text)});
  }
  return lines;
}

/// What a line of the file says; nothing where it is a picture's, or of another record than
/// `index`.
ServiceLines LinesOf(const ServiceFile& file, int line, int index) {
  if (service_line::kInfo.Has(line)) return {{"Info", file.Info}};
  if (line == kSelectionLine) return ChoiceLines(file);
  if (line == service_line::kRecords.First + index) return RecordLines(file, index);
  if (service_line::kCounters.Has(line)) return NumberLines("Error", ErrorsOfLine(file, line));
  if (service_line::kTestBytes.Has(line)) return NumberLines("Test", TestBytesOfLine(file, line));
  if (service_line::kFrames.Has(line)) {
    return {FrameLine("SymbolBox", file.SymbolBox), FrameLine("SuitBox", file.SuitBox)};
  }
  return FieldLines(file, line);
}

void Print(Terminal& screen, const ServiceFileRead& read, const std::optional<int>& index) {
  const int own = maintenance::NumberIn(read.File, "CardIndex digit").value_or(0);
  for (int line = 1; line <= read.Lines; ++line) {
    screen.Out(TextOf(LinesOf(read.File, line, index.value_or(own))));
  }
}

/// Writes a picture, or says why not.
bool WritePicture(Job& job, const ServiceFileRead& read, PictureStore::Kind kind,
                  const std::string& out) {
  const bool grey = kind == PictureStore::Kind::kGrey;
  if (RowsIn(read, grey ? service_line::kGrey : service_line::kLabels) !=
      maintenance::PixelPlane::kHeight) {
    job.Place.Screen.Error(out + ": The picture was not read whole. Nothing is written.\n");
    return false;
  }
  PictureStore pictures;
  pictures.CardImage = read.File.CardImage;
  pictures.LabelImage = read.File.LabelImage;
  pictures.ImageMode = kind;
  return WritePng(job, out, maintenance::PngOf(pictures));
}

/// The file is to be read, and not to be written over.
bool MayWrite(Job& job, const ServiceFileOptions& options, const std::string& out) {
  if (out.empty()) return true;
  return !IsItself(job, {options.In, out, "service file"}) && MayWritePicture(job, out);
}

/// Also where the two are written in other ways.
bool IsOneFile(const std::string& one, const std::string& other) {
  return TruePath(one) == TruePath(other);
}

std::string PictureIn(OptionReader& given, const std::string& name) {
  const auto path = given.Text(name);
  if (!path) return {};
  if (path->empty()) given.Refuse("--" + name + ": a file without a name");
  std::string out = AbsolutePath(*path);
  RefuseSetName(given, out);
  return out;
}

constexpr std::array kOperands{Operand{"IN.txt", "the service file to read"}};
constexpr std::array kOptions{
    Option{"picture", "OUT.png", "also write the picture of the card"},
    Option{"labels", "OUT.png", "also write how the recogniser had divided it"},
    Option{kIndexOption.Name, kIndexOption.Value,
           "whose parameters to print; otherwise those in use"},
};

}  // namespace

ServiceFileOptions ReadServiceFileOptions(OptionReader& given) {
  ServiceFileOptions options{.In = given.Path(0),
                             .Picture = PictureIn(given, "picture"),
                             .Labels = PictureIn(given, "labels"),
                             .Index = IndexIn(given)};
  if (!options.Picture.empty() && IsOneFile(options.Picture, options.Labels)) {
    given.Refuse("--picture and --labels are the same file");
  }
  return options;
}

ExitStatus ShowServiceFile(Job& job, const ServiceFileOptions& options) {
  job.KeepsHistory = false;
  job.Place.Operator.NameFile(maintenance::kReadServiceTitle, options.In);
  const auto read = maintenance::ReadServiceFile(job.Place.Prog, options.In);
  if (!read || !MayWrite(job, options, options.Picture) ||
      !MayWrite(job, options, options.Labels)) {
    return kFailed;
  }
  Print(job.Place.Screen, *read, options.Index);
  maintenance::TellFault(job.Place.Prog, *read);
  bool whole = !read->Fault();
  const auto write = [&](PictureStore::Kind kind, const std::string& out) {
    if (!out.empty()) whole = WritePicture(job, *read, kind, out) && whole;
  };
  write(PictureStore::Kind::kGrey, options.Picture);
  write(PictureStore::Kind::kLabels, options.Labels);
  return whole ? kDone : kPartly;
}

constinit const Command kServiceFileCommand{
    .Name = "service-file",
    .Operands = kOperands,
    .Options = kOptions,
    .Summary =
        "Prints what a service file tells of its machine, a box of the console a line. Of a file "
        "that is damaged it prints what stands before the damage, and says where that is.",
    .Prepare = TaskOf<ReadServiceFileOptions, ShowServiceFile>};

}  // namespace morvane::cli
