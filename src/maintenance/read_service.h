#pragma once

#include <memory>
#include <optional>
#include <string>

#include "maintenance/picture_store.h"
#include "maintenance/readings.h"
#include "maintenance/service_file_reader.h"
#include "program/program.h"

namespace morvane::maintenance {

/// Of its boxes.
inline constexpr const char* kReadServiceTitle = "Read Service";

/// Reads a service file. Nothing: it cannot be read at all, which the operator has been told.
[[nodiscard]] std::optional<ServiceFileRead> ReadServiceFile(Program& program,
                                                             const std::string& path);
/// Whether the file calls itself a service file: by its ending and by its first words.
[[nodiscard]] bool IsServiceFile(const std::string& path);
/// Names the line that cannot be read, if there is one.
void TellFault(Program& program, const ServiceFileRead& read);

/// "Now showing parameters for Standard Card Index"; `index` as in `CardSettings::Index`.
[[nodiscard]] std::string ShowsText(int index);

/// What the machine's sensors said when the file was made.
[[nodiscard]] Readings SensorsIn(const ServiceFileRead& read);
/// How many rows of a picture were read.
[[nodiscard]] int RowsIn(const ServiceFileRead& read, const service_line::Range& lines);
/// A number of the file; nothing where it is empty.
[[nodiscard]] std::optional<int> NumberIn(const ServiceFile& file, ServiceFieldName name);

/// The window `Read_Service`, as its logic sees it.
class ReadServiceView {
 public:
  virtual ~ReadServiceView() = default;
  /// Another file is there, or the same one differently.
  virtual void ShowAll() = 0;
};

/// The window `Read_Service` without its looks: what a service file tells, in the console's boxes.
/// Each public procedure is a control's event.
class ReadService {
 public:
  explicit ReadService(Program& program) : program_(program) {}

  /// Shows the file at `path`, or one that the operator picks; without any the window goes.
  void Open(ReadServiceView& view, const std::string& path);
  /// "Open...": another file.
  void Ask();
  /// Another file, from outside or picked.
  void OpenFile(const std::string& path);
  /// A file that is dropped on the window: whoever drags it does not wait for a box about it.
  void OpenSoon(const std::string& path);
  void Exit() { closed_ = true; }
  [[nodiscard]] bool Closed() const { return closed_; }

  // Which record is shown.
  void Show_st() { ShowRecord(0); }
  void Show_j() { ShowRecord(1); }
  void Show_sm() { ShowRecord(2); }

  /// "Show Capture": the grey picture is `Picture1`.
  void Capture() { Paint(PictureStore::Kind::kGrey); }
  /// "Show Recognize": what the recogniser has made of it is.
  void Reco() { Paint(PictureStore::Kind::kLabels); }
  /// "Draw frames", on both pictures, and so is "Draw start point", of the record that is shown.
  void Frame_draw();
  void Start_draw();

  /// Of the last file that could be read.
  [[nodiscard]] const ServiceFileRead& Read() const { return read_; }
  /// Empty: there is no file yet.
  [[nodiscard]] const std::string& Path() const { return path_; }
  [[nodiscard]] int Index() const { return index_; }
  /// Empty before a file has told its records.
  [[nodiscard]] std::string Shows() const;
  [[nodiscard]] const ServiceFile::Record& Record() const {
    return read_.File.Records[static_cast<std::size_t>(index_)];
  }
  /// Which of the two pictures `Picture1` is; beside it stands the other one.
  [[nodiscard]] PictureStore::Kind Painted() const { return pictures_.ImageMode; }
  [[nodiscard]] const PictureStore& Pictures() const { return pictures_; }
  [[nodiscard]] const PaintedPicture& Beside() const { return beside_.Picture1; }

 private:
  void ShowRecord(int index);
  void Paint(PictureStore::Kind kind);

  Program& program_;
  ReadServiceView* view_ = nullptr;
  ServiceFileRead read_;
  std::string path_;
  int index_ = 0;  ///< as in `CardSettings::Index`
  PictureStore pictures_;
  PictureStore beside_;
  std::unique_ptr<Timer> soon_;
  bool closed_ = false;
};

class ReadServiceDialog {
 public:
  virtual ~ReadServiceDialog() = default;
  /// Opens `viewer` with the file at `path`, or asks for one, and shows it until it is closed.
  /// False: this program has no such window.
  virtual bool ShowReadService(ReadService& /*viewer*/, const std::string& /*path*/) {
    return false;
  }
};

}  // namespace morvane::maintenance
