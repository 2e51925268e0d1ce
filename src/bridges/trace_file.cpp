#include "bridges/trace_file.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <optional>
#include <system_error>

#include "platform/files.h"

namespace morvane::bridges {
namespace {

using Fault = std::optional<std::string>;

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

/// What is there in place of a plain file.
Fault NoPlainFile(std::filesystem::file_type type) {
  using std::filesystem::file_type;
  switch (type) {
    case file_type::regular:
    case file_type::not_found:
      return std::nullopt;
    case file_type::symlink:
      return "this is a link";
    case file_type::directory:
      return "this is a folder";
    default:
      return "this is no plain file";
  }
}

/// A trace of any version, or nothing yet: what may be moved on, and go in the end.
Fault NoTrace(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  if (!file) return RuntimeError::Last().Description;
  std::array<char, kTraceMarkOfAny.size()> start{};
  file.read(start.data(), start.size());
  const std::string_view got(start.data(), static_cast<std::size_t>(file.gcount()));
  if (got.empty() || got == kTraceMarkOfAny) return std::nullopt;
  return "there is a file of this name, and it is no trace";
}

Fault NotOurs(const std::string& path) {
  std::error_code failure;
  const auto status = std::filesystem::symlink_status(PathOfUtf8(path), failure);
  if (status.type() == std::filesystem::file_type::none) return failure.message();
  if (Fault fault = NoPlainFile(status.type())) return fault;
  if (!std::filesystem::exists(status)) return std::nullopt;
  return NoTrace(PathOfUtf8(path));
}

bool IsEmpty(const std::string& path) {
  std::error_code failure;
  return std::filesystem::file_size(PathOfUtf8(path), failure) == 0 && !failure;
}

bool IsThere(const std::string& path) {
  std::error_code failure;
  return std::filesystem::exists(PathOfUtf8(path), failure);
}

bool Remove(const std::string& path) {
  std::error_code failure;
  return std::filesystem::remove(PathOfUtf8(path), failure);
}

}  // namespace

TraceFile::TraceFile(const TraceOrder& order, const Clock& clock)
    : clock_(clock),
      began_(clock.Elapsed()),
      path_(order.Path),
      largest_(order.LargestPart),
      head_{TimeText(clock.Now()), order.Machine, 1, order.HandsLeftOut} {
  trouble_ = ForeignPart();
  if (!trouble_.empty() || !TakeLock() || !MakeRoom()) return;
  StartPart();
}

TraceFile::~TraceFile() {
  if (file_) Put(std::string(kTraceEnd) + "\n");
}

void TraceFile::Write(const TraceLine& line, std::string_view said) {
  if (!file_) return;
  const std::string text = TextOf(line, said);
  if (hasLines_ && size_ + text.size() > largest_) {
    file_.reset();
    ++head_.Part;
    if (!MakeRoom() || !StartPart()) return;
  }
  hasLines_ = Put(text);
}

/// The newest first.
std::string TraceFile::Part(int number) const {
  return number == 0 ? path_ : path_ + "." + std::to_string(number);
}

/// What is wrong with what stands under the names of the parts.
std::string TraceFile::ForeignPart() const {
  for (int number = 0; number <= kOldParts; ++number) {
    if (const Fault fault = NotOurs(Part(number))) return Part(number) + ": " + *fault;
  }
  return "";
}

bool TraceFile::TakeLock() {
  bool held = false;
  lock_ = FileLock::Try(path_ + ".lock", held);
  if (held) {
    trouble_ = path_ + ": another program is writing this trace";
  } else if (!lock_) {
    trouble_ = path_ + ": " + RuntimeError::Last().Description;
  }
  return lock_.has_value();
}

/// Moves the parts on, as far as there is one in the way.
bool TraceFile::MakeRoom() {
  if (!IsThere(path_) || (IsEmpty(path_) && Remove(path_))) return true;
  int last = 1;
  while (last < kOldParts && IsThere(Part(last))) ++last;
  std::error_code failure;
  for (int number = last; number > 0 && !failure; --number) {
    std::filesystem::rename(PathOfUtf8(Part(number - 1)), PathOfUtf8(Part(number)), failure);
  }
  if (failure) Stop(failure.message());
  return !failure;
}

bool TraceFile::StartPart() {
  size_ = 0;
  hasLines_ = false;
  file_ = OpenToWrite(path_, Opening::kNew, NewFile::kPrivate);
  if (!file_) {
    Stop(RuntimeError::Last().Description);
    return false;
  }
  std::setvbuf(file_.get(), nullptr, _IONBF, 0);
  return Put(TextOf(head_));
}

bool TraceFile::Put(std::string_view text) {
  if (std::fwrite(text.data(), 1, text.size(), file_.get()) != text.size()) {
    Stop(RuntimeError::Last().Description);
    return false;
  }
  size_ += text.size();
  return true;
}

/// For good. What a full disk has left of a line goes.
void TraceFile::Stop(const std::string& why) {
  trouble_ = path_ + ": " + why + (size_ > 0 || head_.Part > 1 ? "; the trace ends here" : "");
  if (!file_) return;
  file_.reset();
  std::error_code failure;
  std::filesystem::resize_file(PathOfUtf8(path_), size_, failure);
  if (size_ == 0) Remove(path_);
}

}  // namespace morvane::bridges
