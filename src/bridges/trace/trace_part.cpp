#include "bridges/trace/trace_part.h"

#include <filesystem>
#include <memory>
#include <system_error>

#include "platform/files.h"

namespace morvane::bridges {
namespace {

/// No program of ours writes a part that is nearly so large.
constexpr std::uintmax_t kLargestPart = std::uintmax_t{1} << 28U;

std::optional<std::string> WrongFile(const std::filesystem::path& path) {
  std::error_code failure;
  const auto status = std::filesystem::status(path, failure);
  if (!std::filesystem::exists(status)) return "there is no such file";
  if (!std::filesystem::is_regular_file(status)) return "this is no file";
  const auto size = std::filesystem::file_size(path, failure);
  if (!failure && size > kLargestPart) return "it is too large for a trace";
  return std::nullopt;
}

bool IsHeadLine(std::string_view text) { return text.starts_with('#') && text != kTraceEnd; }

}  // namespace

std::optional<std::string> TracePart::Open() {
  const auto path = PathOfUtf8(path_);
  if (const auto wrong = WrongFile(path)) return path_ + ": " + *wrong;
  file_.open(path, std::ios::binary);
  if (!file_) return path_ + ": it cannot be read";
  if (TakeHead() == Got::kFault) return fault_;
  return std::nullopt;
}

std::unique_ptr<TracePart> TracePart::Fork() {
  auto fork = std::make_unique<TracePart>(path_);
  if (fork->Open() || fork->head_ != head_) return nullptr;
  fork->held_ = false;
  fork->file_.clear();
  fork->file_.seekg(file_.tellg());
  fork->number_ = number_;
  fork->at_ = at_;
  return fork;
}

TracePart::Got TracePart::Wrong(const std::string& what) {
  fault_ = Place() + ": " + what;
  return Got::kFault;
}

std::string TracePart::Place() const { return path_ + ", line " + std::to_string(number_); }

TracePart::Got TracePart::NextText() {
  file_.getline(buffer_.data(), static_cast<std::streamsize>(buffer_.size()));
  const auto got = static_cast<std::size_t>(file_.gcount());
  text_ = {buffer_.data(), file_ && got != 0 ? got - 1 : got};  // without its end
  if (got == 0 && file_.eof()) return Got::kEnd;
  ++number_;
  if (file_.eof()) return Wrong("the file is cut off in the middle of this line");
  if (file_.bad()) return Wrong("it cannot be read");
  if (file_.fail()) return Wrong("this line is longer than those of a trace");
  return Got::kLine;
}

TracePart::Got TracePart::TakeHead() {
  const Got first = NextText();
  if (first == Got::kEnd) {
    fault_ = path_ + ": the file is empty";
    return Got::kFault;
  }
  if (!text_.starts_with(kTraceMarkOfAny)) return Wrong("this is no trace");
  if (first == Got::kFault) return first;
  if (text_ != kTraceMark) return Wrong("this trace is of a newer version of Morvane");
  while (NextText() == Got::kLine) {
    held_ = !IsHeadLine(text_);
    if (held_) break;
    if (!TakeHeadLine(text_, head_)) return Wrong("this is no line of a trace's head");
  }
  if (!fault_.empty()) return Got::kFault;
  return head_.Began.empty() ? Wrong("the head of the trace is not whole") : Got::kLine;
}

TracePart::Got TracePart::Next(TraceLine& line) {
  if (!fault_.empty()) return Got::kFault;
  if (!held_) {
    const Got got = NextText();
    if (got != Got::kLine) return got;
  }
  held_ = false;
  if (ended_) return Wrong("the trace goes on behind its end");
  ended_ = text_ == kTraceEnd;
  return ended_ ? Next(line) : Parse(line);
}

TracePart::Got TracePart::Parse(TraceLine& line) {
  if (const auto wrong = ParseTraceLine(text_, line)) return Wrong(*wrong);
  if (line.At < at_) return Wrong("its time lies before the end of the line above");
  if (line.What == Operation::kRead && line.Bytes.size() > line.Numbers[1]) {
    return Wrong("more bytes were read than were asked for");
  }
  at_ = line.At + line.Took;
  return Got::kLine;
}

}  // namespace morvane::bridges
