#include "maintenance/service_file.h"

#include "text/box_text.h"
#include "text/text.h"
#include "text/text_encoding.h"

namespace morvane::maintenance {
namespace {

/// Puts texts beside each other as the fields of a line.
class LineText {
 public:
  LineText& Add(std::string_view field) {
    // What would break the line, or be taken for damage.
    text_.append(empty_ ? "" : ",").append(WithoutControls(std::string(field)));
    empty_ = false;
    return *this;
  }
  [[nodiscard]] std::string Take() { return std::move(text_); }

 private:
  std::string text_;
  bool empty_ = true;
};

std::string InfoText(const ServiceFile& file, int /*line*/) { return file.Info; }

std::string NamedText(const ServiceFile& file, int line) {
  LineText text;
  for (std::size_t at = 0; at < kServiceFields.size(); ++at) {
    if (kServiceFields[at].Line == line) text.Add(file[ServiceFieldName(at)]);
  }
  return text.Take();
}

std::string RecordText(const ServiceFile& file, int line) {
  LineText text;
  const int record = line - service_line::kRecords.First;
  for (const std::string& value : file.Records[static_cast<std::size_t>(record)]) text.Add(value);
  return text.Take();
}

/// A row of a picture, without anything between its digits.
std::string RowText(const PixelPlane& picture, int y) {
  std::string digits;
  for (int x = 0; x < PixelPlane::kWidth; ++x) digits += Hex2(picture.At(x, y));
  return digits;
}
std::string GreyText(const ServiceFile& file, int line) {
  return RowText(file.CardImage, line - service_line::kGrey.First);
}
std::string LabelText(const ServiceFile& file, int line) {
  return RowText(file.LabelImage, line - service_line::kLabels.First);
}

template <std::size_t N>
std::string PartText(const std::array<std::string, N>& all, int part) {
  LineText text;
  for (std::size_t i = 0; i < kNumbersOfLine; ++i) {
    text.Add(all[static_cast<std::size_t>(part) * kNumbersOfLine + i]);
  }
  return text.Take();
}
std::string CountersText(const ServiceFile& file, int line) {
  return PartText(file.ErrorCounters, line - service_line::kCounters.First);
}
std::string TestBytesText(const ServiceFile& file, int line) {
  return PartText(file.TestBytes, line - service_line::kTestBytes.First);
}

std::string FramesText(const ServiceFile& file, int /*line*/) {
  LineText text;
  for (const wire::SymbolFrame& box : {file.SymbolBox, file.SuitBox}) {
    for (const auto edge : kFrameEdges) text.Add(std::to_string(box.*edge));
  }
  return text.Take();
}

/// The lines of which none has named fields; the rest have nothing else.
struct Writer {
  service_line::Range Lines;
  std::string (*Text)(const ServiceFile& file, int line);
};
constexpr std::array kWriters{
    Writer{service_line::kInfo, InfoText},         Writer{service_line::kRecords, RecordText},
    Writer{service_line::kGrey, GreyText},         Writer{service_line::kLabels, LabelText},
    Writer{service_line::kCounters, CountersText}, Writer{service_line::kTestBytes, TestBytesText},
    Writer{service_line::kFrames, FramesText},
};

std::string TextOfLine(const ServiceFile& file, int line) {
  for (const Writer& writer : kWriters) {
    if (writer.Lines.Has(line)) return writer.Text(file, line);
  }
  return NamedText(file, line);
}

}  // namespace

ServiceFile::Record NoRecord() {
  ServiceFile::Record record;
  record.fill("0");
  return record;
}

std::string BytesOf(const ServiceFile& file) {
  std::string text;
  for (int line = 1; line <= ServiceFile::kLines; ++line) {
    text.append(TextOfLine(file, line)).append(kCrLf);
  }
  return EncodeText(text);
}

}  // namespace morvane::maintenance
