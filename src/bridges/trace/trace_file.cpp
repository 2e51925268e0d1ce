#include "bridges/trace/trace_file.h"

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <system_error>

#include "platform/files.h"

namespace morvane::bridges {
namespace {

std::string Digits(int number, std::size_t count) {
  const std::string digits = std::to_string(number);
  return std::string(count - std::min(count, digits.size()), '0') + digits;
}

/// "2026-03-03 15:04:05.123".
std::string TimeText(const LocalTime& time) {
  return Digits(time.Year, 4) + "-" + Digits(time.Month, 2) + "-" + Digits(time.Day, 2) + " " +
         Digits(time.Hour, 2) + ":" + Digits(time.Minute, 2) + ":" + Digits(time.Second, 2) + "." +
         Digits(time.Millisecond, 3);
}

/// A trace that is handed on names no paths and no seeds.
std::string MachineText(const TraceOrder& order) {
  return order.HandsLeftOut ? order.Machine.substr(0, order.Machine.find_first_of(":,"))
                            : order.Machine;
}

}  // namespace

TraceFile::TraceFile(const TraceOrder& order, const Clock& clock)
    : clock_(clock),
      made_(clock.Elapsed()),
      parts_(order.Path),
      largest_(order.LargestPart),
      head_{TimeText(clock.Now()), MachineText(order), 1, order.HandsLeftOut},
      trouble_(parts_.Wrong()) {}

void TraceFile::Write(const TraceLine& line, std::string_view said) {
  if (!begun_) Begin();
  if (!file_) return;
  const std::string text = TextOf(line, said);
  if (hasLines_ && size_ + text.size() > largest_) {
    file_.reset();
    ++head_.Part;
    if (!StartPart()) return;
  }
  if (Put(text)) hasLines_ = true;
}

void TraceFile::End() {
  begun_ = true;
  if (file_ && Put(std::string(kTraceEnd) + "\n") && std::fclose(file_.release()) != 0) {
    Stop(parts_.Newest() + ": " + RuntimeError::Last().Description);
  }
  lock_.reset();
}

void TraceFile::Begin() {
  begun_ = true;
  // What stands there may have changed since it was looked at.
  if (trouble_.empty()) trouble_ = parts_.Wrong();
  if (trouble_.empty() && TakeLock()) StartPart();
}

bool TraceFile::TakeLock() {
  bool held = false;
  lock_ = FileLock::Try(parts_.Lock(), held);
  if (held) {
    trouble_ = parts_.Newest() + ": another program is writing this trace";
  } else if (!lock_) {
    trouble_ = parts_.Newest() + ": " + RuntimeError::Last().Description;
  }
  return lock_.has_value();
}

bool TraceFile::StartPart() {
  size_ = 0;
  hasLines_ = false;
  if (const std::string wrong = parts_.MoveOn(); !wrong.empty()) {
    Stop(wrong);
    return false;
  }
  file_ = OpenToWrite(parts_.Newest(), Opening::kNew, NewFile::kPrivate);
  if (!file_) {
    Stop(parts_.Newest() + ": " + RuntimeError::Last().Description);
    return false;
  }
  std::setvbuf(file_.get(), nullptr, _IONBF, 0);
  return Put(TextOf(head_));
}

bool TraceFile::Put(std::string_view text) {
  if (std::fwrite(text.data(), 1, text.size(), file_.get()) != text.size()) {
    Stop(parts_.Newest() + ": " + RuntimeError::Last().Description);
    return false;
  }
  size_ += text.size();
  return true;
}

/// For good.
void TraceFile::Stop(const std::string& why) {
  trouble_ = why + (hasLines_ || head_.Part > 1 ? "; the trace ends here" : "");
  if (file_) LetGo();
  if (!hasLines_) parts_.MoveBack();
}

/// What a full disk has left of a line goes, and a part that has none: of the file that is open,
/// whatever stands under its name by now.
void TraceFile::LetGo() {
  CutOff(*file_, hasLines_ ? size_ : 0);
  const bool goes = !hasLines_ && LeadsTo(parts_.Newest(), *file_);
  file_.reset();
  std::error_code failure;
  if (goes) std::filesystem::remove(PathOfUtf8(parts_.Newest()), failure);
}

}  // namespace morvane::bridges
