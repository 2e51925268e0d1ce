#include "maintenance/read_service.h"

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <filesystem>

#include "platform/files.h"
#include "text/box_text.h"
#include "text/text.h"
#include "text/text_encoding.h"
#include "wire/service_replies.h"

namespace morvane::maintenance {
namespace {

constexpr const char* kFilter = "Morvane Service file (*.txt)|*.txt";
/// The line of the switches.
constexpr int kSwitchesLine = 3;

void Tell(Program& program, const std::string& text) {
  program.ShowMessage(text, kOkCritical, kReadServiceTitle);
}

std::string InitialFolder(const Program& program) {
  std::string folder = program.Store.Get(kServiceFileFolder);
  std::error_code unknown;
  // A stick that it stood on may have been pulled out.
  return std::filesystem::is_directory(PathOfUtf8(folder), unknown) ? folder : program.Paths.Data;
}

/// A switch that is not on stands out, also one of which nothing was known: required.
Reading SwitchIn(const ServiceFileRead& read, ServiceFieldName name) {
  const std::string& text = read.File[name];
  if (read.Lines < kSwitchesLine) return {text, Shade::kPlain};
  return {text, text == "ON" ? Shade::kGood : Shade::kBad};
}

Reading SpeedIn(const ServiceFile& file, ServiceFieldName name) {
  const auto speed = NumberIn(file, name);
  return speed ? SpeedReading(*speed) : Reading{};
}

/// Afresh, as the zoom shows it; what was not read stays white.
void PaintRows(PictureStore& store, int rows) {
  store.Picture1 = {};
  for (int y = 0; y < rows; ++y) {
    for (int x = 0; x < PixelPlane::kWidth; ++x) store.Picture1.Set(x, y, store.Magnified(x, y));
  }
}

}  // namespace

std::optional<ServiceFileRead> ReadServiceFile(Program& program, const std::string& path) {
  std::string bytes;
  const auto error = ReadFile(path, bytes, kLargestServiceFile);
  if (!error) return ServiceFileIn(std::move(bytes));
  if (error->Number == EFBIG) {
    Tell(program, "      This is no service file: it is too large      ");
  } else {
    Tell(program, "      Error: " + std::to_string(error->Number) + ", " + error->Description +
                      "      \r\n      Service file: " + path + "      ");
  }
  return std::nullopt;
}

bool IsServiceFile(const std::string& path) {
  std::string bytes;
  return LowerCase(path).ends_with(".txt") && !ReadFile(path, bytes, kLargestServiceFile) &&
         DecodeText(std::move(bytes)).starts_with("Service file ");
}

void TellFault(Program& program, const ServiceFileRead& read) {
  const auto line = read.Fault();
  if (line) Tell(program, "      Service file error at line: " + std::to_string(*line));
}

std::string ShowsText(int index) {
  constexpr std::array kIndexes{"Standard", "Jumbo", "Small"};
  return std::string("Now showing parameters for ") + kIndexes[static_cast<std::size_t>(index)] +
         " Card Index";
}

int RowsIn(const ServiceFileRead& read, const service_line::Range& lines) {
  return std::clamp(read.Lines - lines.First + 1, 0, PixelPlane::kHeight);
}

std::optional<int> NumberIn(const ServiceFile& file, ServiceFieldName name) {
  const std::string& text = file[name];
  int number = 0;
  const auto read = std::from_chars(text.data(), text.data() + text.size(), number);
  if (read.ec != std::errc()) return std::nullopt;
  return number;
}

Readings SensorsIn(const ServiceFileRead& read) {
  const ServiceFile& file = read.File;
  const auto switches = NumberIn(file, "LastSwitchByte");
  const auto photo = [&](ServiceFieldName name, std::size_t sensor) {
    if (!switches) return Reading{file[name], Shade::kUnknown};
    const bool seen = (*switches & wire::PhotoReply::PhotoBit(sensor)) != 0;
    return Reading{file[name], seen ? Shade::kGood : Shade::kPlain};
  };
  Readings sensors;
  sensors.Photo = {Reading{},          photo("Photo1", 1), photo("Photo2", 2),
                   photo("Photo3", 3), photo("Photo4", 4), photo("Photo5", 5)};
  sensors.Front_Switch = SwitchIn(read, "Front_Switch");
  sensors.Cover_Switch = SwitchIn(read, "Cover_Switch");
  sensors.Box_Switch = SwitchIn(read, "Box_Switch");
  sensors.Flip_Switch = SwitchIn(read, "Flip_Switch");
  sensors.Motor_speed = {Reading{}, SpeedIn(file, "Motor_speed_1"), SpeedIn(file, "Motor_speed_2"),
                         SpeedIn(file, "Motor_speed_3"), SpeedIn(file, "Motor_speed_4")};
  sensors.Inside_temp = {file["Inside_temp"], Shade::kPlain};
  sensors.Supply_volt = {file["Supply_volt"], Shade::kPlain};
  sensors.Board_no_txt = file["Board_no_txt"];
  sensors.Board_no_test_txt = file["Board_no_test_txt"];
  return sensors;
}

void ReadService::Open(ReadServiceView& view, const std::string& path) {
  view_ = &view;
  if (!path.empty()) return OpenFile(path);
  Ask();
  if (path_.empty()) Exit();
}

void ReadService::Ask() {
  const auto path =
      program_.Operator.AskFile({"Open Service file", kFilter, 1, InitialFolder(program_), false});
  if (path) OpenFile(*path);
}

void ReadService::OpenFile(const std::string& path) {
  auto read = ReadServiceFile(program_, path);
  if (!read) return;
  read_ = std::move(*read);
  path_ = path;
  program_.StoreSetting(kServiceFileFolder, FolderOf(path));
  index_ = NumberIn(read_.File, "CardIndex digit").value_or(0);
  for (PictureStore* store : {&pictures_, &beside_}) {
    store->CardImage = read_.File.CardImage;
    store->LabelImage = read_.File.LabelImage;
  }
  Capture();
  TellFault(program_, read_);
}

void ReadService::OpenSoon(const std::string& path) {
  constexpr int kSoonMs = 1;
  soon_ = program_.Loop.StartTimer(kSoonMs, [this, path] {
    const auto once = std::move(soon_);
    OpenFile(path);
  });
}

void ReadService::ShowRecord(int index) {
  index_ = index;
  view_->ShowAll();
}

std::string ReadService::Shows() const {
  return read_.Lines < service_line::kRecords.First + index_ ? "" : ShowsText(index_);
}

void ReadService::Paint(PictureStore::Kind kind) {
  const bool grey = kind == PictureStore::Kind::kGrey;
  pictures_.ImageMode = kind;
  beside_.ImageMode = grey ? PictureStore::Kind::kLabels : PictureStore::Kind::kGrey;
  for (PictureStore* store : {&pictures_, &beside_}) {
    const bool isGrey = store->ImageMode == PictureStore::Kind::kGrey;
    PaintRows(*store, RowsIn(read_, isGrey ? service_line::kGrey : service_line::kLabels));
  }
  view_->ShowAll();
}

void ReadService::Frame_draw() {
  if (read_.Lines < service_line::kFrames.Last) return;
  for (PictureStore* store : {&pictures_, &beside_}) {
    store->DrawFrames(read_.File.SymbolBox, read_.File.SuitBox);
  }
  view_->ShowAll();
}

void ReadService::Start_draw() {
  constexpr std::size_t kStartX = 2;  // of the record
  constexpr std::size_t kStartY = 3;
  if (Record()[kStartX].empty() || Record()[kStartY].empty()) return;
  for (PictureStore* store : {&pictures_, &beside_}) {
    store->DrawStart(Val(Record()[kStartX]), Val(Record()[kStartY]));
  }
  view_->ShowAll();
}

}  // namespace morvane::maintenance
